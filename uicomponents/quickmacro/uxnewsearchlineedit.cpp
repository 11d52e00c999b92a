#include "uxnewsearchlineedit.h"

#include "uxcompleter.h"

#include <QRegularExpression>
#include <QRegularExpressionValidator>

UxNewSearchLineEdit::UxNewSearchLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setObjectName(QStringLiteral("UxNewSearchLineEdit"));
    m_completer = new UxCompleter(this);
    setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("^[a-zA-Z0-9.\\w]+$")), this));
    adjustSize();
    resize(120, height());
}

UxNewSearchLineEdit::~UxNewSearchLineEdit() = default;

void UxNewSearchLineEdit::setDictData(const QVector<quickMacroItem*>& items)
{
    if (m_dict != items)
        m_dict = items;
}

QVector<quickMacroItem*> UxNewSearchLineEdit::getDictData() const
{
    return m_dict;
}
