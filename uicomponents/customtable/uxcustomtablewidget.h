#ifndef UXCUSTOMTABLEWIDGET_H
#define UXCUSTOMTABLEWIDGET_H

#include "uicomponents_export.h"
#include "uxtabledefines.h"

#include <iuxskin.h>

#include <QFrame>
#include <QHeaderView>
#include <QList>
#include <QMap>
#include <QModelIndex>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

class UxSettingDialog;
class UxTableView;

namespace Ui {
class UxCustomTableWidget;
}

/// The quote table as applications use it: a settings button above the table
/// view, the column-settings dialog, and the column files.
///
/// Columns come from JSON files: the user's own file under the host's
/// configuration directory when it holds any, the template shipped under
/// "<application dir>/config/" otherwise (initTable() uses the default names;
/// the two-name setHHeaderData() takes others). The settings button (hidden
/// until setSettingBtnVisible(true)) drops the column dialog down under
/// itself; every change there is applied to the table and saved to the user
/// file at once, so Cancel does not undo it; OK saves the final list.
///
/// The view's signals are passed on unchanged, and the other methods forward
/// to the view. Styled by the skin's "quote/customtable.css".
///
/// Our choice: the top-level dialog is released after the widget
/// (deleteLater) instead of being left behind; otherwise every table a client
/// creates and destroys would leave one hidden dialog, without bound.
class UICOMPONENTS_EXPORT UxCustomTableWidget : public QFrame, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    explicit UxCustomTableWidget(QWidget* parent = nullptr);
    ~UxCustomTableWidget() override;

    QString blockId() const;
    void setBlockId(const QString& blockId);
    QList<_TableHHeaderData> getHHeaderData() const;
    QList<_TableData> getTableDatas() const;
    int rowCount() const;
    int columnCount() const;
    /// The tint a quote update left on a cell, invalid when there is none. The
    /// table records tints but does not paint them; a client that wants them
    /// visible paints them itself, e.g. with a delegate of its own on the
    /// "tableView" child.
    QColor backgroundColorAt(int row, int column) const;
    void save(QMap<QString, QVariant>& m);
    void restore(const QMap<QString, QVariant>& m);

    void setBackgroundColorChangedEnable(bool enable);
    void setDefaultSortFeildAndMode(const QString& feild, UxHeaderSort mode);
    /// Hides a column of the scrolling part (not the frozen one).
    void setColumnHidden(int column, bool hide);
    void setFrozenViewColumnHidden(int column, bool hide);
    void setHHeaderResizeMode(QHeaderView::ResizeMode mode);
    void setFrozenViewHHeaderResizeMode(QHeaderView::ResizeMode mode);
    void setHHeaderSortEnable(bool on);
    void setIsIndexSelected(bool b);
    void setIsPageChanged(bool b);
    void setRowSelected(int row);
    void setTableViewCustomContexrtMenuEnable(bool on);
    void setSettingBtnVisible(bool visible);

    /// Default column files: "<config dir>/userhsstocktable.json" and
    /// "<application dir>/config/hsstocktemplatetable.json".
    void initTable();
    /// Named column files: "<config dir>/<userFile>" and
    /// "<application dir>/config/<templateFile>".
    void setHHeaderData(const QString& userFile, const QString& templateFile);
    /// One read-only column file, "<application dir>/config/<fileName>".
    void setHHeaderData(const QString& fileName);
    void setHHeaderData(const QList<_TableHHeaderData>& list);

Q_SIGNALS:
    void sigSubPages(const SubPageData& pPageData); // clazy:exclude=overloaded-signal (the client connects both by text)
    void sigSubPages(const QStringList& listCodes); // clazy:exclude=overloaded-signal
    void sigTableViewClicked(const TableData& oData, const QModelIndex& index);
    void sigTableViewDoubleClicked(const TableData& oData, const QModelIndex& index);
    void sigSortTableData(const SubPageData& pPageData);
    void sigCustomContextMenuRequested(const TableData& oData, const QModelIndex& index);

public Q_SLOTS:
    void slotCreateTableData(const QList<TableData>& lstTableData);
    void slotUpdateTable(const QList<TableData>& lstTableData);
    void slotUpdateAllTable(const QList<TableData>& lstTableData);
    void slotSubFirstPage();
    void moveUp(const TableData& oData, int iRow, bool bMoveTop = false);
    void moveDown(const TableData& oData, int iRow, bool bMoveDown = false);
    void remove(const TableData& oData);
    void add(const TableData& oData);

protected:
    void changeEvent(QEvent* event) override;

private Q_SLOTS:
    void slotSettingBtnClicked();
    void slotHeadersChanged();

private:
    void connectSignals();
    void useColumnFiles(const QString& userPath, const QString& templatePath);
    void retranslate();

    Ui::UxCustomTableWidget* ui;
    QPointer<UxSettingDialog> m_pSettingDialog;
};

#endif // UXCUSTOMTABLEWIDGET_H
