#ifndef UXKEYBORADLINEEDIT_H
#define UXKEYBORADLINEEDIT_H

#include "iuxskin.h"
#include "quickmacroitem.h"
#include "uicomponents_export.h"

#include <QLineEdit>
#include <QList>
#include <QModelIndex>
#include <QStringList>
#include <QVector>

class QCompleter;
class QSortFilterProxyModel;
class DataModel;
class QuickMacroView;

/// A line edit that carries its own quick-macro list as the popup of a
/// QCompleter, filtered by code through a proxy model. The list starts empty:
/// a subclass fills it with setTableData().
///
/// eventFilter() moves the list's current row on Up/Down and, on Enter, writes
/// the current row's code into the line edit (never asking to open a page).
/// The line edit does not install it anywhere by itself: install the line
/// edit as event filter on whichever widget should drive the list this way.
/// Null or short records in the list choose nothing.
class UICOMPONENTS_EXPORT UxKeyBoradLineEdit : public QLineEdit, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    explicit UxKeyBoradLineEdit(QWidget* parent = nullptr);
    ~UxKeyBoradLineEdit() override;

    void setDictData(const QVector<quickMacroItem*>& items);
    void updateResult(const QString& text);
    QString dbClicked(const QModelIndex& index, bool needOpenPage);
    void focusRowChanged(int nDirection);
    bool eventFilter(QObject* obj, QEvent* ev) override;


Q_SIGNALS:
    void signalStockSelected(QString strUrl, int nType);

protected:
    void setTableData(QVector<quickMacroItem*>& items, const QStringList& groupNames,
                      const QList<QList<QStringList>>& groups, bool showKindColumn);

private:
    void initUi();
    void searchTextChanged(const QString& text);

    QuickMacroView* m_view = nullptr;
    QVector<quickMacroItem*> m_dict;
    QVector<quickMacroItem*> m_result;
    QStringList m_groupNames;
    QList<QList<QStringList>> m_groups;
    int m_type = 0;
    QCompleter* m_completer = nullptr;
    DataModel* m_listModel = nullptr;
    QSortFilterProxyModel* m_proxy = nullptr;
};

#endif // UXKEYBORADLINEEDIT_H
