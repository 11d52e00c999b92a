#ifndef UXCOMPLETER_H
#define UXCOMPLETER_H

#include "uicomponents_export.h"

#include <QObject>
#include <QStringList>

class QLineEdit;
class QTimer;
class QTreeWidget;

/// The suggestion popup of UxNewSearchLineEdit. Every edit restarts a 400 ms
/// wait; then the dictionary records whose code or further key contains the
/// trimmed text (case-insensitive, dictionary order) are listed under the line
/// edit as code and name, at most seven rows visible. Enter or a click puts the
/// chosen code into the line edit; Escape or a click elsewhere closes the list;
/// typing goes on in the line edit.
///
/// Choices of our own, against reading past a record or through a null
/// editor: records with fewer than four texts are skipped, and a completer
/// made without a line edit never shows its list.
class UICOMPONENTS_EXPORT UxCompleter : public QObject
{
    Q_OBJECT
public:
    explicit UxCompleter(QLineEdit* parent);
    ~UxCompleter() override;

    void showSuggestions(const QStringList& codes, const QStringList& names);
    bool eventFilter(QObject* obj, QEvent* ev) override;

public Q_SLOTS:
    void doneCompletion();
    void preventSuggest();
    void autoSuggest();
    void slotRspCodeSearchs();

private:
    QLineEdit* m_editor = nullptr;
    QTreeWidget* m_popup = nullptr;
    QTimer* m_timer = nullptr;
};

#endif // UXCOMPLETER_H
