#include "uxtableview.h"

#include "uxcore.h"
#include "uxtabledelegate.h"
#include "uxtablemodel.h"

#include <QDebug>
#include <QEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QScrollBar>

namespace {

const int kFrozenColumns = 3;
const int kRowHeight = 30;
const int kHeaderHeight = 27;
const int kSectionSize = 80;
const int kSequenceWidth = 60;
const int kSortRequestRows = 32760;

} // namespace

UxTableView::UxTableView(QWidget* parent)
    : QTableView(parent)
{
    m_pModel = new UxTableModel();
    m_pDelegate = new UxTableDelegate(this);

    setAttribute(Qt::WA_MouseTracking);
    setSortingEnabled(false);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    verticalHeader()->hide();
    setShowGrid(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    horizontalHeader()->setDefaultSectionSize(kSectionSize);
    horizontalHeader()->setFixedHeight(kHeaderHeight);
    setModel(m_pModel);
    setItemDelegate(m_pDelegate);
    initFrozenTableView();
    resize(1400, 600);
    connectSignals();
    UxCore::instance()->addStyle2View(this, QStringLiteral("quote/customtable.css"));
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    verticalScrollBar()->hide();
    horizontalScrollBar()->hide();
}

UxTableView::~UxTableView()
{
    // The frozen view talks back to this view; let it go while this view
    // is still whole.
    delete m_pFrozenView;
    m_pFrozenView = nullptr;
    m_pModel->deleteLater();
    m_pModel = nullptr;
    m_pDelegate->deleteLater();
    m_pDelegate = nullptr;
}

QWidget* UxTableView::widget()
{
    return this;
}

void UxTableView::initFrozenTableView()
{
    m_pFrozenView = new QTableView(this);
    m_pFrozenView->setObjectName(QStringLiteral("frozenTableView"));
    m_pFrozenView->setModel(m_pModel);
    m_pFrozenView->setItemDelegate(m_pDelegate);
    QItemSelectionModel* own = m_pFrozenView->selectionModel();
    m_pFrozenView->setSelectionModel(selectionModel());
    delete own;

    m_pFrozenView->setShowGrid(false);
    m_pFrozenView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pFrozenView->verticalHeader()->hide();
    m_pFrozenView->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    m_pFrozenView->horizontalHeader()->setDefaultSectionSize(kSectionSize);
    m_pFrozenView->setStyleSheet(QStringLiteral("QTableView {border: none;}"));

    viewport()->stackUnder(m_pFrozenView);

    for (int c = 0; c < kFrozenColumns; ++c)
        m_pFrozenView->setColumnWidth(c, columnWidth(c));

    m_pFrozenView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pFrozenView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    updateFrozenTableGeometry();
    m_pFrozenView->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_pFrozenView->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    m_pFrozenView->horizontalHeader()->setFixedHeight(kHeaderHeight);
    m_pFrozenView->verticalHeader()->setDefaultSectionSize(kRowHeight);

    connect(m_pFrozenView->horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int logicalIndex, int, int newSize) {
                if (logicalIndex < m_pModel->columnCount() && !isHidden()) {
                    setUpdatesEnabled(false);
                    setColumnWidth(logicalIndex, newSize);
                    setUpdatesEnabled(true);
                }
            });
}

void UxTableView::connectSignals()
{
    QScrollBar* vbar = verticalScrollBar();
    connect(vbar, &QScrollBar::sliderReleased, this, &UxTableView::slotVSliderReleased);
    connect(vbar, &QScrollBar::sliderPressed, this, &UxTableView::slotVSliderPressed);
    connect(vbar, &QScrollBar::valueChanged, this, &UxTableView::slotVScrollBarValueChanged);

    connect(this, &QTableView::clicked, this, &UxTableView::slotTableViewClicked);
    connect(this, &QTableView::doubleClicked, this, &UxTableView::slotTableViewDoubleClicked);

    connect(horizontalHeader(), SIGNAL(sectionResized(int, int, int)), this, SLOT(updateSectionWidth(int, int, int)));
    connect(m_pFrozenView->horizontalHeader(), SIGNAL(sectionClicked(int)), this, SLOT(slotHHeaderClicked(int)));

    QScrollBar* frozenBar = m_pFrozenView->verticalScrollBar();
    connect(frozenBar, &QScrollBar::valueChanged, vbar, &QScrollBar::setValue);
    connect(vbar, &QScrollBar::valueChanged, frozenBar, &QScrollBar::setValue);

    connect(m_pFrozenView, &QTableView::doubleClicked, this, &UxTableView::slotTableViewDoubleClicked);
    connect(m_pFrozenView, &QTableView::clicked, this, &UxTableView::slotTableViewClicked);

    connect(this, &QWidget::customContextMenuRequested, this, &UxTableView::slotCustomContextMenuRequested);
    connect(m_pFrozenView, &QWidget::customContextMenuRequested, this, &UxTableView::slotCustomContextMenuRequested);
}

void UxTableView::updateFrozenTableGeometry()
{
    if (!m_pFrozenView)
        return;
    int width = 0;
    for (int c = 0; c < kFrozenColumns; ++c)
        width += columnWidth(c);
    m_pFrozenView->setGeometry(verticalHeader()->width() + frameWidth(), frameWidth(), width,
                               viewport()->height() + horizontalHeader()->height());
}

void UxTableView::updateSectionWidth(int logicalIndex, int oldSize, int newSize)
{
    Q_UNUSED(oldSize)
    if (logicalIndex < 0 || logicalIndex >= kFrozenColumns || !m_pFrozenView)
        return;
    m_pFrozenView->setColumnWidth(logicalIndex, newSize);
    updateFrozenTableGeometry();
}

UxTableModel* UxTableView::tableModel() const
{
    return m_pModel;
}

QTableView* UxTableView::frozenView() const
{
    return m_pFrozenView;
}

QList<_TableHHeaderData> UxTableView::getHHeaderData() const
{
    return m_pModel->headerDatas();
}

QList<_TableData> UxTableView::getTableDatas() const
{
    return m_pModel->tableDatas();
}

int UxTableView::rowCount() const
{
    return m_pModel->rowCount(QModelIndex());
}

void UxTableView::setHHeaderData(const QList<_TableHHeaderData>& list)
{
    QList<_TableHHeaderData> shown;
    for (const _TableHHeaderData& h : list) {
        if (h.isShow)
            shown.append(h);
    }
    m_pModel->setHeaderDatas(shown);

    const int n = m_pModel->columnCount();
    for (int c = kFrozenColumns; c < n; ++c)
        m_pFrozenView->setColumnHidden(c, true);

    const int w = width();
    int s = kSectionSize;
    if (n * kSectionSize - 20 >= w || n == 1) {
        // A single column has nothing to share the width with.
        horizontalHeader()->setDefaultSectionSize(kSectionSize);
    } else {
        s = (w - 65) / (n - 1);
        horizontalHeader()->setDefaultSectionSize(s);
    }
    m_pFrozenView->setColumnWidth(1, s);
    m_pFrozenView->setColumnWidth(2, s);

    setColumnWidth(0, kSequenceWidth);
    m_pFrozenView->setColumnWidth(0, kSequenceWidth);
    m_pFrozenView->show();
    updateFrozenTableGeometry();
}

void UxTableView::setBlockId(const QString& blockId)
{
    if (m_blockId != blockId)
        m_blockId = blockId;
}

void UxTableView::save(QMap<QString, QVariant>& m)
{
    m.insert(QStringLiteral("blockId"), m_blockId);
}

void UxTableView::restore(const QMap<QString, QVariant>& m)
{
    m_blockId = m.value(QStringLiteral("blockId")).toString();
}

void UxTableView::setBackgroundColorChangedEnable(bool enable)
{
    m_pModel->setBackgroundColorChangedEnable(enable);
}

void UxTableView::setDefaultSortFeildAndMode(const QString& feild, UxHeaderSort mode)
{
    m_sortFeild = feild;
    m_sortMode = mode;
    m_pModel->setSortState(feild, mode);
}

void UxTableView::setFrozenViewColumnHidden(int column, bool hide)
{
    if (column < 0 || column >= m_pModel->columnCount())
        return;
    m_pFrozenView->setColumnHidden(column, hide);
}

void UxTableView::setFrozenViewHHeaderResizeMode(QHeaderView::ResizeMode mode)
{
    if (m_pFrozenView)
        m_pFrozenView->horizontalHeader()->setSectionResizeMode(mode);
}

void UxTableView::setTableViewCustomContexrtMenuEnable(bool on)
{
    const Qt::ContextMenuPolicy policy = on ? Qt::CustomContextMenu : Qt::NoContextMenu;
    setContextMenuPolicy(policy);
    m_pFrozenView->setContextMenuPolicy(policy);
}

void UxTableView::setHHeaderSortEnable(bool on)
{
    m_bHHeaderSortEnable = on;
    if (!on)
        return;
    disconnect(horizontalHeader(), &QHeaderView::sectionClicked, this, &UxTableView::slotHHeaderClicked);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &UxTableView::slotHHeaderClicked);
}

void UxTableView::setIsIndexSelected(bool b)
{
    m_bIsIndexSelected = b;
    setSortingEnabled(b);
    m_pFrozenView->setSortingEnabled(b);
    horizontalHeader()->setSortIndicatorShown(false);
    m_pFrozenView->horizontalHeader()->setSortIndicatorShown(false);
    m_pModel->setSortIndicatorShown(!b);
}

void UxTableView::setRowSelected(int row)
{
    if (row < 0 || row >= rowCount())
        return;
    selectRow(row);
    setFocus(Qt::OtherFocusReason);
    emit sigTableViewClicked(m_pModel->tableDatas().at(row), currentIndex());
}

void UxTableView::calcPageRows()
{
    // Before the first show nothing is laid out, so no page fits yet.
    if (!isVisible())
        return;
    const QRect rect = contentsRect();
    const QModelIndex top = indexAt(rect.topLeft());
    if (!top.isValid())
        return;
    m_iTopRow = top.row();
    m_iStartRow = top.row();
    const int rest = rect.height() - 28;
    m_iPageRows = rest > 0 ? (rest + 27) / 28 : 0;
}

int UxTableView::clampedEndRow(int start) const
{
    const int rows = m_pModel->rowCount();
    const int end = start + 3 * m_iPageRows;
    return end >= rows ? rows - 1 : end;
}

void UxTableView::requestSubPages(int start)
{
    if (m_iPageRows <= 0)
        return;
    m_iLastStartRow = start;
    m_iEndRow = clampedEndRow(start);

    const int count = 3 * m_iPageRows;
    _SubPageData page;
    page.start = start;
    page.count = count;
    page.blockId = m_blockId;
    if (m_iSortColumn >= 0 && m_iSortColumn < m_pModel->columnCount())
        m_sortFeild = m_pModel->headerDatas().at(m_iSortColumn).feild;
    page.sortFeild = m_sortFeild;
    page.sortMode = m_sortMode;

    emit sigSubPages(m_pModel->visibleCodes(start, count));
    emit sigSubPages(page);
}

void UxTableView::slotSubFirstPage()
{
    requestSubPages(m_iStartRow);
}

void UxTableView::slotVSliderPressed()
{
    m_bSliderPressed = true;
}

void UxTableView::slotVSliderReleased()
{
    m_bSliderPressed = false;
    qDebug() << "slotVSliderReleased";
    slotVScrollBarValueChanged(verticalScrollBar()->value());
}

void UxTableView::slotVScrollBarValueChanged(int paVal)
{
    if (m_bSliderPressed) {
        qDebug() << "m_bSliderPressed";
        return;
    }
    if (m_bSkipNextValue) {
        m_bSkipNextValue = false;
        return;
    }
    if (m_pModel->rowCount() == 0)
        return;

    m_iTopRow = paVal;
    const int page2 = 2 * m_iPageRows;
    const int s0 = m_iStartRow;
    int start = s0;
    if (paVal > m_iEndRow) {
        start = paVal;
    } else if (paVal < s0) {
        start = qMax(0, paVal - page2);
    } else if (paVal >= m_iLastValue) {
        if (paVal > s0 + page2)
            start = s0 + page2;
    } else if (paVal > s0 && paVal < s0 + m_iPageRows) {
        start = qMax(0, s0 - page2);
    }
    m_iStartRow = start;

    if (start != m_iLastStartRow) {
        requestSubPages(start);
        m_iLastStartRow = start;
        m_iLastValue = paVal;
    }
}

void UxTableView::slotHHeaderClicked(int column)
{
    if (column == 0)
        return;
    m_pModel->setSortIndicatorShown(true);
    m_pModel->toggleSortState(column);
    m_sortMode = UxHeaderSort(m_pModel->sortState(column));
    m_iSortColumn = column;

    m_iTopRow = 0;
    m_iStartRow = 0;
    m_iLastStartRow = -1;
    // Skips the change that the reset below causes (and, when the bar is
    // already at the top, the next one).
    m_bSkipNextValue = true;
    verticalScrollBar()->setValue(0);
    m_iEndRow = clampedEndRow(m_iStartRow);

    if (m_bIsIndexSelected)
        return;

    _SubPageData page;
    page.start = 0;
    page.count = kSortRequestRows;
    page.blockId = m_blockId;
    if (column >= 0 && column < m_pModel->columnCount())
        page.sortFeild = m_pModel->headerDatas().at(column).feild;
    page.sortMode = m_sortMode;
    emit sigSortTableData(page);
}

bool UxTableView::rowAt(const QModelIndex& index, _TableData* out) const
{
    if (!index.isValid() || index.row() < 0 || index.row() >= m_pModel->rowCount())
        return false;
    *out = m_pModel->tableDatas().at(index.row());
    return true;
}

void UxTableView::slotTableViewClicked(const QModelIndex& paIndex)
{
    _TableData row;
    if (rowAt(paIndex, &row))
        emit sigTableViewClicked(row, paIndex);
}

void UxTableView::slotTableViewDoubleClicked(const QModelIndex& paIndex)
{
    _TableData row;
    if (rowAt(paIndex, &row))
        emit sigTableViewDoubleClicked(row, paIndex);
}

void UxTableView::slotCustomContextMenuRequested(const QPoint& pos)
{
    const QModelIndex index = indexAt(pos);
    _TableData row;
    if (rowAt(index, &row))
        emit sigCustomContextMenuRequested(row, index);
}

void UxTableView::slotCreateTableData(const QList<TableData>& lstTableData)
{
    // Replacing the list resets the model, which drops every old row.
    m_pModel->setTableData(lstTableData);
    calcPageRows();
}

void UxTableView::slotUpdateTable(const QList<TableData>& lstTableData)
{
    if (m_pModel->backgroundColorChangedEnable())
        m_pModel->setIsPageChanged(m_bIsPageChanged);
    for (const _TableData& row : lstTableData)
        m_pModel->updateRow(row);
}

void UxTableView::slotUpdateAllTable(const QList<TableData>& lstTableData)
{
    m_pModel->updateAllRows(lstTableData);
}

void UxTableView::setIsPageChanged(bool b)
{
    m_bIsPageChanged = b;
}

void UxTableView::add(const TableData& oData)
{
    QList<_TableData> rows = m_pModel->tableDatas();
    rows.append(oData);
    m_pModel->setTableData(rows);
}

void UxTableView::remove(const TableData& oData)
{
    const int i = m_pModel->findRow(oData);
    if (i < 0)
        return;
    QList<_TableData> rows = m_pModel->tableDatas();
    rows.removeAt(i);
    m_pModel->setTableData(rows);
}

void UxTableView::moveUp(const TableData& oData, int iRow, bool bMoveTop)
{
    if (iRow == 0)
        return;
    QList<_TableData> rows = m_pModel->tableDatas();
    if (bMoveTop) {
        const int i = m_pModel->findRow(oData);
        if (i >= 0)
            rows.removeAt(i);
        rows.prepend(oData);
    } else {
        if (iRow < 1 || iRow >= rows.size())
            return;
        rows.swapItemsAt(iRow - 1, iRow);
    }
    m_pModel->setTableData(rows);
}

void UxTableView::moveDown(const TableData& oData, int iRow, bool bMoveDown)
{
    QList<_TableData> rows = m_pModel->tableDatas();
    if (iRow >= rows.size() - 1)
        return;
    if (bMoveDown) {
        const int i = m_pModel->findRow(oData);
        if (i >= 0)
            rows.removeAt(i);
        rows.append(oData);
    } else {
        if (iRow < 0)
            return;
        rows.swapItemsAt(iRow, iRow + 1);
    }
    m_pModel->setTableData(rows);
}

bool UxTableView::event(QEvent* e)
{
    switch (e->type()) {
    case QEvent::Enter:
        for (QScrollBar* bar : {verticalScrollBar(), horizontalScrollBar()}) {
            if (!bar->isVisible())
                bar->show();
        }
        break;
    case QEvent::Leave:
        for (QScrollBar* bar : {verticalScrollBar(), horizontalScrollBar()}) {
            if (bar->isVisible())
                bar->hide();
        }
        break;
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent*>(e)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            const QModelIndexList selected = selectedIndexes();
            if (!selected.isEmpty()) {
                slotTableViewDoubleClicked(selected.first());
                qDebug() << "enter double cliked";
            }
        } else if (key == Qt::Key_Up || key == Qt::Key_Down) {
            // The clicked row is the one selected before the key moves it.
            const QModelIndexList selected = selectedIndexes();
            if (!selected.isEmpty()) {
                slotTableViewClicked(selected.first());
                qDebug() << "up/down cliked";
            }
        } else {
            return false;
        }
        break;
    }
    default:
        break;
    }
    return QTableView::event(e);
}

QModelIndex UxTableView::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex current = QTableView::moveCursor(cursorAction, modifiers);
    if (cursorAction == MoveLeft && m_pFrozenView && current.column() > kFrozenColumns - 1) {
        const int x = visualRect(current).topLeft().x();
        const int frozenWidth = m_pFrozenView->columnWidth(kFrozenColumns - 1);
        if (x < frozenWidth)
            horizontalScrollBar()->setValue(horizontalScrollBar()->value() + x - frozenWidth);
    }
    return current;
}

void UxTableView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    if (index.column() > kFrozenColumns - 1)
        QTableView::scrollTo(index, hint);
}

void UxTableView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    updateFrozenTableGeometry();
    calcPageRows();
}

void UxTableView::showEvent(QShowEvent* event)
{
    QTableView::showEvent(event);
    m_iLastStartRow = -1;
    calcPageRows();
}

void UxTableView::hideEvent(QHideEvent* event)
{
    QTableView::hideEvent(event);
}
