#ifndef UXCUSTOMTOOLBUTTON_H
#define UXCUSTOMTOOLBUTTON_H

#include "uicomponents_export.h"

#include <QList>
#include <QPointer>
#include <QToolButton>
#include <QVariant>

class QAction;
class UxCusMenu;

/// A filter button: a tool button whose drop-down menu holds checkable
/// choices, exactly one checked after the user picks one; the button's text is
/// the checked choice. A choice is reported through clicked(true); read it from
/// text() or from the checked action's data.
///
/// selectedChanged(true) is emitted when the menu opens; nothing emits false:
/// the owner resets the look with setSelected(false). The "selected" property
/// is re-polished on change, so style sheets can select on it.
///
/// A menu the client deletes is replaced by a new, empty one on the next
/// addActionToMenu() or showMenu(); actions the client deletes are forgotten.
class UICOMPONENTS_EXPORT UxCustomToolButton : public QToolButton
{
    Q_OBJECT
    Q_PROPERTY(bool selected READ selected WRITE setSelected NOTIFY selectedChanged)
public:
    explicit UxCustomToolButton(QWidget* parent = nullptr);
    ~UxCustomToolButton() override;

    void addActionToMenu(const QString& text, const QVariant& data = QVariant());
    /// Checks the actions with this text and shows it, even when none has it.
    void setDefaultActionChecked(const QString& text);
    /// Opens the menu at POS (global) or closes it when it is open.
    void showMenu(const QPoint& pos);

    bool selected() const;
    void setSelected(bool selected);
    void emitSelected();

Q_SIGNALS:
    void selectedChanged(bool selected);

private Q_SLOTS:
    void slotMenuTriggered(QAction* action);

private:
    void createFrame();

    /// Guarded: a client may delete the menu (from menu()) or an action; a
    /// deleted menu is made anew when next needed, deleted actions are skipped.
    QPointer<UxCusMenu> m_pMenu;
    bool m_bSelected;
    QList<QPointer<QAction>> m_actions;
};

#endif // UXCUSTOMTOOLBUTTON_H
