#ifndef UXQUICKMACROSEARCHWIDGET_H
#define UXQUICKMACROSEARCHWIDGET_H

#include "iuxskin.h"
#include "quickmacroitem.h"
#include "uicomponents_export.h"

#include <QList>
#include <QModelIndex>
#include <QPointer>
#include <QStringList>
#include <QVector>
#include <QWidget>

#include <memory>

class QLineEdit;
class QTableView;
class QuickMacroView;
class UxQuickMacroMatcher;
template <typename T>
class UxWidgetSingleton;

/// The search overlay: laid over a panel, it opens in the panel's bottom-right
/// corner as soon as the user types on a watched widget, with its own search
/// line above the hit list; Enter or a double click chooses.
///
/// Use: make the overlay a child of the panel, install it as event filter on
/// the widgets that start a search by typing (widget->installEventFilter(
/// QuickMacroSearchWidget::initance())), and connect stockSelected and
/// extendSelected. Serving a line edit of the client instead: pass it to
/// setReplaceLineEdit(), connect its textChanged to searchTextChanged and call
/// enterIsEnabled() when it gets Enter; the own search line is then hidden and
/// the list opens under that line edit.
///
/// A left press on any watched object while the overlay is shown hides it
/// and gives that object focus; the own search line is watched too, so a
/// press there closes the overlay as well.
///
/// Choices of our own, each where the plain rule would read past a list or
/// use a deleted object:
/// - Extend names without a group (or groups without a name) are dropped.
/// - The replace line edit is held weakly: the client may delete it first.
/// - Null hit records choose nothing.
class UICOMPONENTS_EXPORT QuickMacroSearchWidget : public QWidget, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    static QuickMacroSearchWidget* initance();
    ~QuickMacroSearchWidget() override;

    void setDictData(const QVector<quickMacroItem*>& items);
    void setExtendItems(QStringList& names, QList<QList<QStringList>>& groups);
    void setReplaceLineEdit(QLineEdit* lineEdit);
    void setType(int type);
    void setWidth(int w);
    void showSearchEdit(bool show);
    QLineEdit* searchEdit();
    QTableView* tableView();

Q_SIGNALS:
    void newSearchResultCount(int nCount);
    void stockSelected(QString strUrl, int nType);
    void extendSelected(QString strTitle, int nIndex, int nType);

public Q_SLOTS:
    void searchTextChanged(QString text);
    void focusRowChanged(int nDirection);
    bool enterIsEnabled();

protected Q_SLOTS:
    void dbClicked(QModelIndex index);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit QuickMacroSearchWidget(QWidget* parent = nullptr);
    friend class UxWidgetSingleton<QuickMacroSearchWidget>;

    void fitToContainer();
    void closeToParent();
    void placeUnder(QWidget* lineEdit);

    QWidget* m_container = nullptr;
    QLineEdit* m_searchEdit = nullptr;
    QPointer<QLineEdit> m_replaceLineEdit; ///< the client's; may go away at any time
    QuickMacroView* m_view = nullptr;
    QVector<quickMacroItem*> m_dict;
    QVector<quickMacroItem*> m_result;
    QStringList m_extendNames;
    QList<QList<QStringList>> m_extendGroups;
    int m_type = 0;

    std::unique_ptr<UxQuickMacroMatcher> m_matcher;
};

#endif // UXQUICKMACROSEARCHWIDGET_H
