#ifndef UXCUSTOMMENU_H
#define UXCUSTOMMENU_H

#include "uxcore_export.h"

#include <QMenu>

/// A menu with the client's look: object name "UxCustomMenu" for the skins'
/// selectors, no native drop shadow, action tool tips shown.
class UXCORE_EXPORT UxCustomMenu : public QMenu
{
    Q_OBJECT
public:
    explicit UxCustomMenu(QWidget* parent = nullptr);
    ~UxCustomMenu() override;

protected:
    bool event(QEvent* e) override;
};

#endif // UXCUSTOMMENU_H
