#include "uxquickmacromatcher.h"

#include <QChar>
#include <QDebug>

#include <cstring>

namespace {

inline ushort foldUnit(ushort c)
{
    if (c < 0x80)
        return (c >= 'A' && c <= 'Z') ? ushort(c + ('a' - 'A')) : c;
    return ushort(QChar::toCaseFolded(uint(c)));
}

// Appends TEXT folded code point by code point; the length never changes,
// so match positions are those of the original text.
void foldInto(std::vector<ushort>& out, const QString& text)
{
    const ushort* p = text.utf16();
    const int n = text.size();
    for (int i = 0; i < n; ++i) {
        const ushort c = p[i];
        if (QChar::isHighSurrogate(c) && i + 1 < n && QChar::isLowSurrogate(p[i + 1])) {
            const uint f = QChar::toCaseFolded(QChar::surrogateToUcs4(c, p[i + 1]));
            out.push_back(QChar::requiresSurrogates(f) ? QChar::highSurrogate(f) : c);
            out.push_back(QChar::requiresSurrogates(f) ? QChar::lowSurrogate(f) : p[i + 1]);
            ++i;
        } else {
            out.push_back(foldUnit(c));
        }
    }
}

inline int findIn(const ushort* hay, int hayLen, const ushort* needle, int needleLen)
{
    const int last = hayLen - needleLen;
    if (last < 0)
        return -1;
    const ushort first = needle[0];
    const size_t restBytes = size_t(needleLen - 1) * sizeof(ushort);
    for (int i = 0; i <= last; ++i) {
        if (hay[i] == first && std::memcmp(hay + i + 1, needle + 1, restBytes) == 0)
            return i;
    }
    return -1;
}

inline bool equalTo(const ushort* a, int aLen, const ushort* b, int bLen)
{
    return aLen == bLen && std::memcmp(a, b, size_t(aLen) * sizeof(ushort)) == 0;
}

} // namespace

bool UxQuickMacroMatcher::isUsable(const quickMacroItem* item)
{
    return item && item->texts.size() >= 4;
}

const quickMacroItem* UxQuickMacroMatcher::hitAt(const QVector<quickMacroItem*>& hits, const QModelIndex& index)
{
    if (!index.isValid() || index.row() < 0 || index.row() >= hits.size())
        return nullptr;
    const quickMacroItem* hit = hits.at(index.row());
    return isUsable(hit) ? hit : nullptr;
}

void UxQuickMacroMatcher::setDictionary(const QVector<quickMacroItem*>& dict)
{
    m_dict = dict;
    m_entries.clear();
    m_folded.clear();
    m_foldedLive = 0;
    m_entries.reserve(dict.size());

    int nulls = 0;
    int shorts = 0;
    for (quickMacroItem* item : dict) {
        if (!item) {
            ++nulls;
            continue;
        }
        Entry entry;
        entry.item = item;
        fold(entry);
        if (!entry.usable)
            ++shorts;
        m_entries.append(entry);
    }
    if (nulls || shorts)
        qDebug() << Q_FUNC_INFO << "records skipped (null, fewer than four texts):" << nulls << shorts;
}

void UxQuickMacroMatcher::appendFolded(const QString& text)
{
    foldInto(m_folded, text);
}

void UxQuickMacroMatcher::fold(Entry& entry)
{
    entry.texts = entry.item->texts;
    entry.usable = entry.texts.size() >= 4;
    for (int f = 0; f < FieldCount; ++f) {
        entry.offset[f] = int(m_folded.size());
        if (entry.usable)
            appendFolded(entry.texts.at(f + 1));
        entry.length[f] = int(m_folded.size()) - entry.offset[f];
        m_foldedLive += entry.length[f];
    }
}

void UxQuickMacroMatcher::refresh(Entry& entry)
{
    const QStringList& now = entry.item->texts;
    // Same shared list: nothing changed since it was folded (the common case,
    // one pointer comparison inside QList::operator==).
    if (entry.texts == now) {
        entry.texts = now;
        return;
    }
    for (int f = 0; f < FieldCount; ++f)
        m_foldedLive -= entry.length[f];
    fold(entry);

    // Edited records leave dead text behind; compact once it dominates.
    if (m_folded.size() > 4096 && size_t(m_foldedLive) < m_folded.size() / 2) {
        std::vector<ushort> old;
        old.swap(m_folded);
        m_folded.reserve(size_t(m_foldedLive));
        for (Entry& e : m_entries) {
            for (int f = 0; f < FieldCount; ++f) {
                const int from = e.offset[f];
                e.offset[f] = int(m_folded.size());
                m_folded.insert(m_folded.end(), old.begin() + from, old.begin() + from + e.length[f]);
            }
        }
    }
}

QVector<quickMacroItem*> UxQuickMacroMatcher::search(const QString& text)
{
    QVector<quickMacroItem*> result;
    if (text.isEmpty()) {
        result.reserve(m_entries.size());
        for (Entry& entry : m_entries) {
            refresh(entry);
            if (entry.usable)
                result.append(entry.item);
        }
        return result;
    }

    m_needle.clear();
    foldInto(m_needle, text);
    const ushort* needle = m_needle.data();
    const int needleLen = int(m_needle.size());

    m_exact.clear();
    m_other.clear();
    for (QVector<int>& bucket : m_byPosition)
        bucket.clear();

    const int count = m_entries.size();
    for (int i = 0; i < count && m_exact.size() < MaxHits; ++i) {
        Entry& entry = m_entries[i];
        refresh(entry);
        if (!entry.usable)
            continue;
        const ushort* base = m_folded.data();
        const ushort* code = base + entry.offset[Code];
        const ushort* name = base + entry.offset[Name];
        const int codeLen = entry.length[Code];
        const int nameLen = entry.length[Name];
        if (equalTo(needle, needleLen, code, codeLen) || equalTo(needle, needleLen, name, nameLen)) {
            m_exact.append(i);
            continue;
        }
        const int pos = findIn(code, codeLen, needle, needleLen);
        if (pos >= 0) {
            if (pos >= m_byPosition.size())
                m_byPosition.resize(pos + 1);
            QVector<int>& bucket = m_byPosition[pos];
            if (bucket.size() < MaxHits)
                bucket.append(i);
            continue;
        }
        if (m_other.size() < MaxHits
            && (findIn(name, nameLen, needle, needleLen) >= 0
                || findIn(base + entry.offset[Key], entry.length[Key], needle, needleLen) >= 0)) {
            m_other.append(i);
        }
    }

    result.reserve(MaxHits);
    auto take = [&](const QVector<int>& list) {
        for (int i : list) {
            if (result.size() >= MaxHits)
                return;
            result.append(m_entries.at(i).item);
        }
    };
    take(m_exact);
    for (const QVector<int>& bucket : qAsConst(m_byPosition))
        take(bucket);
    take(m_other);
    return result;
}
