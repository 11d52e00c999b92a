#ifndef UXNEWSEARCHLINEEDIT_H
#define UXNEWSEARCHLINEEDIT_H

#include "quickmacroitem.h"
#include "uicomponents_export.h"

#include <QLineEdit>
#include <QVector>

class UxCompleter;

/// A narrow code-entry line edit (120 pixels): letters, digits, dots and word
/// characters only, with a suggestion popup (UxCompleter) that lists the
/// dictionary records whose code or further key holds the typed text, 400 ms
/// after the user stops typing.
class UICOMPONENTS_EXPORT UxNewSearchLineEdit : public QLineEdit
{
    Q_OBJECT
public:
    explicit UxNewSearchLineEdit(QWidget* parent = nullptr);
    ~UxNewSearchLineEdit() override;

    void setDictData(const QVector<quickMacroItem*>& items);
    QVector<quickMacroItem*> getDictData() const;

private:
    UxCompleter* m_completer = nullptr;
    QVector<quickMacroItem*> m_dict;
};

#endif // UXNEWSEARCHLINEEDIT_H
