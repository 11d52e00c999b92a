#ifndef UXTABLEVIEW_H
#define UXTABLEVIEW_H

#include "uxtabledefines.h"

#include "iuxskin.h"

#include <QHeaderView>
#include <QList>
#include <QMap>
#include <QModelIndex>
#include <QStringList>
#include <QTableView>
#include <QVariant>

class UxTableModel;
class UxTableDelegate;

// The quote table: shows one UxTableModel through one UxTableDelegate, keeps
// columns 0-2 frozen at the left (a second view laid over the first, sharing
// model, delegate and selection), and turns scrolling into requests for the
// rows on screen: sigSubPages with the codes and a _SubPageData of three
// screens of rows, sigSortTableData after a header click. The owner answers
// by feeding rows back through the slots.
//
// Only Enter/Return, Up and Down are handled from the keyboard; the request
// range follows the scroll bar, and the scroll bars show only while the
// mouse is over the table. Styled by "quote/customtable.css".
//
// Choices of our own:
// - setHHeaderData() with one column leaves the section size at 80 (the
//   shared width would be divided by zero).
// - moveUp()/moveDown() ignore a row outside the table, which the swap would
//   read past the end of the list.
// - Before the first show the page-row count stays 0: nothing is laid out
//   yet, so no request goes out.
// - The frozen view is destroyed before this view's own teardown, since it
//   signals back into this view.
class UxTableView : public QTableView, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    explicit UxTableView(QWidget* parent = nullptr);
    ~UxTableView() override;

    QWidget* widget() override;

    QList<_TableHHeaderData> getHHeaderData() const;
    QList<_TableData> getTableDatas() const;
    int rowCount() const;
    void setHHeaderData(const QList<_TableHHeaderData>& list);
    void setBlockId(const QString& blockId);
    void save(QMap<QString, QVariant>& m);
    void restore(const QMap<QString, QVariant>& m);
    void setBackgroundColorChangedEnable(bool enable);
    void setDefaultSortFeildAndMode(const QString& feild, UxHeaderSort mode);
    void setFrozenViewColumnHidden(int column, bool hide);
    void setFrozenViewHHeaderResizeMode(QHeaderView::ResizeMode mode);
    void setTableViewCustomContexrtMenuEnable(bool on);
    void setHHeaderSortEnable(bool on);
    void setIsIndexSelected(bool b);
    void setRowSelected(int row);

    // For the owner and for tests: the parts this view is made of.
    UxTableModel* tableModel() const;
    QTableView* frozenView() const;

Q_SIGNALS:
    void sigSubPages(const SubPageData& pPageData); // clazy:exclude=overloaded-signal (the client connects both by text)
    void sigSubPages(const QStringList& lstCodes); // clazy:exclude=overloaded-signal
    void sigTableViewClicked(const TableData& oData, const QModelIndex& index);
    void sigTableViewDoubleClicked(const TableData& oData, const QModelIndex& index);
    void sigSortTableData(const SubPageData& pPageData);
    void sigCustomContextMenuRequested(const TableData& oData, const QModelIndex& index);

public Q_SLOTS:
    void slotCreateTableData(const QList<TableData>& lstTableData);
    void slotUpdateTable(const QList<TableData>& lstTableData);
    void slotUpdateAllTable(const QList<TableData>& lstTableData);
    void slotSubFirstPage();
    void updateSectionWidth(int logicalIndex, int oldSize, int newSize);
    void moveUp(const TableData& oData, int iRow, bool bMoveTop = false);
    void moveDown(const TableData& oData, int iRow, bool bMoveDown = false);
    void remove(const TableData& oData);
    void add(const TableData& oData);
    void setIsPageChanged(bool b);
    void slotVSliderPressed();
    void slotVSliderReleased();
    void slotVScrollBarValueChanged(int paVal);
    void slotTableViewClicked(const QModelIndex& paIndex);
    void slotTableViewDoubleClicked(const QModelIndex& paIndex);
    void slotHHeaderClicked(int column);
    void slotCustomContextMenuRequested(const QPoint& pos);

protected:
    bool event(QEvent* e) override;
    QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void initFrozenTableView();
    void connectSignals();
    void updateFrozenTableGeometry();
    void calcPageRows();
    void requestSubPages(int start);
    int clampedEndRow(int start) const;
    bool rowAt(const QModelIndex& index, _TableData* out) const;

    UxTableModel* m_pModel = nullptr;
    UxTableDelegate* m_pDelegate = nullptr;
    QTableView* m_pFrozenView = nullptr;
    QString m_blockId;
    int m_iReserved = -1;
    int m_iTopRow = 0;
    int m_iPageRows = 0;
    int m_iStartRow = 0;
    int m_iLastStartRow = -1;
    int m_iEndRow = 0;
    int m_iLastValue = 0;
    bool m_bSliderPressed = false;
    bool m_bSkipNextValue = false;
    bool m_bHHeaderSortEnable = false;
    UxHeaderSort m_sortMode = UxSortNone;
    QString m_sortFeild;
    int m_iSortColumn = -1;
    bool m_bIsPageChanged = true;
    bool m_bIsIndexSelected = false;
};

#endif // UXTABLEVIEW_H
