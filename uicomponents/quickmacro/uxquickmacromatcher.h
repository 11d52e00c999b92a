#ifndef UXQUICKMACROMATCHER_H
#define UXQUICKMACROMATCHER_H

#include "quickmacroitem.h"

#include <QModelIndex>
#include <QString>
#include <QStringList>
#include <QVector>

#include <vector>

// The ranking shared by the keyboard wizard and the search overlay.
//
// For a non-empty text, all comparisons case-insensitive:
//   1. records whose code or name equals the text (dictionary order; the scan
//      stops once 200 of them are found),
//   2. records whose code contains the text, by the position of the first
//      match, then dictionary order,
//   3. records whose name or further key contains the text,
// at most 200 in all. An empty text gives every record.
//
// Null pointers and records with fewer than four texts are never returned.
//
// Speed: every keystroke scans the whole dictionary, so the matcher keeps a
// case-folded copy of each record's code, name and key in one flat buffer
// (folded per code point exactly as QString's case-insensitive comparisons
// fold, so results are those of QString::compare/indexOf with
// Qt::CaseInsensitive). Each record's text list is held as a shallow copy:
// a record the client edits after setDictionary() no longer shares it and is
// folded again on the next search, so the results always follow the records'
// current texts.
class UxQuickMacroMatcher
{
public:
    static constexpr int MaxHits = 200;

    void setDictionary(const QVector<quickMacroItem*>& dict);
    const QVector<quickMacroItem*>& dictionary() const { return m_dict; }

    QVector<quickMacroItem*> search(const QString& text);

    // Not null and holding at least the kind, code, name and key texts.
    static bool isUsable(const quickMacroItem* item);
    // The usable hit on INDEX's row of HITS, or null (invalid index, a row
    // outside the hits, an unusable record).
    static const quickMacroItem* hitAt(const QVector<quickMacroItem*>& hits, const QModelIndex& index);

private:
    enum Field { Code, Name, Key, FieldCount };
    struct Entry
    {
        quickMacroItem* item = nullptr;
        QStringList texts; // shallow copy taken when folded
        int offset[FieldCount] = {0, 0, 0};
        int length[FieldCount] = {0, 0, 0};
        bool usable = false;
    };

    void fold(Entry& entry);
    void refresh(Entry& entry);
    void appendFolded(const QString& text);

    QVector<quickMacroItem*> m_dict;
    QVector<Entry> m_entries; // one per non-null record, dictionary order
    std::vector<ushort> m_folded;
    int m_foldedLive = 0; // folded units still referenced by an entry

    // Scratch lists reused by every search.
    std::vector<ushort> m_needle;
    QVector<int> m_exact;
    QVector<int> m_other;
    QVector<QVector<int>> m_byPosition;
};

#endif // UXQUICKMACROMATCHER_H
