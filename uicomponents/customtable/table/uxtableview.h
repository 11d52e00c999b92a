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
// - A header click suppresses the next scroll change only when resetting the
//   scroll bar to the top actually changes it, so a click at the top does not
//   swallow the user's next scroll.
// - setHHeaderData() with fewer than two columns leaves the section size at 80.
// - moveUp()/moveDown() ignore a row outside the table.
// - setRowSelected() scrolls the row into view when it is off screen.
// - The frozen view hands keyboard focus to this view, so keys behave the
//   same wherever the row was clicked.
// - Cells lying under the frozen view are not painted by this view while
//   the frozen view is shown with an opaque background; it covers them.
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
    void sigSubPages(const SubPageData& pPageData);
    void sigSubPages(const QStringList& lstCodes);
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
    void paintEvent(QPaintEvent* event) override;
    // Keeps the frozen view over the viewport when scroll bars come and go.
    void updateGeometries() override;

private:
    void initFrozenTableView();
    void connectSignals();
    void updateFrozenTableGeometry();
    QRect frozenCoverage() const;
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
