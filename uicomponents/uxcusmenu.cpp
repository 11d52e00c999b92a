#include "uxcusmenu.h"

#include "uxcustomtoolbutton.h"

#include <QShowEvent>

UxCusMenu::UxCusMenu(QWidget* parent)
    : QMenu(parent)
{
}

UxCusMenu::~UxCusMenu() = default;

void UxCusMenu::showEvent(QShowEvent* e)
{
    // QMenu's own handler is not called: the button owns the opening look.
    if (e->type() != QEvent::Show)
        return;
    if (auto* button = qobject_cast<UxCustomToolButton*>(parentWidget()))
        emit button->selectedChanged(true);
}
