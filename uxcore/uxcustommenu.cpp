#include "uxcustommenu.h"

UxCustomMenu::UxCustomMenu(QWidget* parent)
    : QMenu(parent)
{
    if (objectName().isEmpty())
        setObjectName(QStringLiteral("UxCustomMenu"));
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setToolTipsVisible(true);
}

UxCustomMenu::~UxCustomMenu() = default;

bool UxCustomMenu::event(QEvent* e)
{
    return QMenu::event(e);
}
