#include "uxcustomtoolbutton.h"

#include "uxcusmenu.h"

#include <QAction>
#include <QStyle>

UxCustomToolButton::UxCustomToolButton(QWidget* parent)
    : QToolButton(parent)
    , m_pMenu(nullptr)
    , m_bSelected(false)
{
    setObjectName(QStringLiteral("UXFILTER_TOOLBUTTON"));
    setPopupMode(QToolButton::MenuButtonPopup);
    createFrame();
}

UxCustomToolButton::~UxCustomToolButton() = default;

void UxCustomToolButton::createFrame()
{
    m_pMenu = new UxCusMenu(this);
    m_pMenu->setObjectName(QStringLiteral("TOOLBUTTON_MENU"));
    setMenu(m_pMenu);
    connect(m_pMenu, &QMenu::triggered, this, &UxCustomToolButton::slotMenuTriggered);
}

void UxCustomToolButton::addActionToMenu(const QString& text, const QVariant& data)
{
    if (!m_pMenu)
        createFrame();
    QAction* action = m_pMenu->addAction(text);
    action->setCheckable(true);
    action->setData(data);
    m_actions.append(action);
}

void UxCustomToolButton::setDefaultActionChecked(const QString& text)
{
    m_actions.removeAll(nullptr);
    for (QAction* action : qAsConst(m_actions))
        action->setChecked(action->text() == text);
    setText(text);
}

void UxCustomToolButton::showMenu(const QPoint& pos)
{
    if (!m_pMenu)
        createFrame();
    if (m_pMenu->isVisible()) {
        m_pMenu->hide();
        return;
    }
    m_pMenu->move(pos);
    m_pMenu->show();
}

bool UxCustomToolButton::selected() const
{
    return m_bSelected;
}

void UxCustomToolButton::setSelected(bool selected)
{
    if (selected == m_bSelected)
        return;
    style()->unpolish(this);
    m_bSelected = selected;
    style()->polish(this);
}

void UxCustomToolButton::emitSelected()
{
    emit selectedChanged(true);
}

void UxCustomToolButton::slotMenuTriggered(QAction* action)
{
    if (!action)
        return;
    m_actions.removeAll(nullptr);
    for (QAction* a : qAsConst(m_actions))
        a->setChecked(false);
    action->setChecked(true);
    setText(action->text());
    emit clicked(true);
    if (m_pMenu)
        m_pMenu->close();
}
