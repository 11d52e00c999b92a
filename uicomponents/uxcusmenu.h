#ifndef UXCUSMENU_H
#define UXCUSMENU_H

#include "uicomponents_export.h"

#include <QMenu>

/// The menu of UxCustomToolButton: when it opens it tells its parent button
/// (selectedChanged(true)), so the style sheet can draw the button as
/// selected. A menu whose parent is not such a button simply opens.
class UICOMPONENTS_EXPORT UxCusMenu : public QMenu
{
    Q_OBJECT
public:
    explicit UxCusMenu(QWidget* parent = nullptr);
    ~UxCusMenu() override;

protected:
    void showEvent(QShowEvent* e) override;
};

#endif // UXCUSMENU_H
