// The quote table: sort, quote-update bursts through a shown view, painting
// and memory per row, each beside what a Qt developer would write with the
// standard classes (QStandardItemModel, QSortFilterProxyModel, QTableView).

#include "benchdata.h"
#include "uxtablemodel.h"
#include "uxtableview.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QHash>
#include <QHeaderView>
#include <QImage>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTableView>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <vector>

using namespace bench;

namespace {

const int kSortRole = Qt::UserRole + 1;

// Gives the model rows that only it holds, as after the client's hand-over.
void loadOwned(UxTableModel& model, const QList<_TableData>& rows)
{
    QList<_TableData> own = rows;
    own.detach();
    model.setTableData(own);
}

// The numeric value a Qt developer would store in the sort role.
double sortValue(const QString& text)
{
    return UxTableModel::toNumber(text).toDouble();
}

// The standard-item peer of the quote model: every cell an item with its
// text and colour; the sort column also carries its number in kSortRole.
void fillPeer(QStandardItemModel& model, const QList<_TableData>& rows)
{
    const QList<_TableHHeaderData> columns = quoteColumns();
    const int sortColumn = columnOf(sortFeild());
    model.clear();
    model.setColumnCount(columns.size());
    QStringList captions;
    for (const _TableHHeaderData& h : columns)
        captions << h.text;
    model.setHorizontalHeaderLabels(captions);
    for (int r = 0; r < rows.size(); ++r) {
        QList<QStandardItem*> items;
        items.reserve(columns.size());
        for (int c = 0; c < columns.size(); ++c) {
            const _TableHHeaderData& h = columns.at(c);
            auto* item = new QStandardItem(displayOf(h, rows.at(r), r));
            item->setTextAlignment(h.alignment);
            const QColor fg = foregroundOf(h, rows.at(r));
            if (fg.isValid())
                item->setForeground(fg);
            if (c == sortColumn)
                item->setData(sortValue(rows.at(r).values.value(h.feild)), kSortRole);
            items << item;
        }
        model.appendRow(items);
    }
}

// The same geometry for both views: 1400 x 600, rows of 30, sections of 80.
void shapeView(QTableView& view)
{
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultSectionSize(30);
    view.horizontalHeader()->setDefaultSectionSize(80);
    view.horizontalHeader()->setFixedHeight(27);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.resize(1400, 600);
}

void showAndSettle(QWidget& w)
{
    w.show();
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

// ---------------------------------------------------------------- sort

// A live table: loaded once, sorted by the column before (as the peer keeps
// its numbers in the sort role); each sort starts from an order unrelated to
// the column, that of the codes.
void BM_Sort_Ours(benchmark::State& state)
{
    const auto order = Qt::SortOrder(state.range(0));
    UxTableModel model;
    model.setHeaderDatas(quoteColumns());
    loadOwned(model, quoteRows(kMarketRows));
    const int column = columnOf(sortFeild());
    const int codeColumn = columnOf(QStringLiteral("Code"));
    model.sort(column, order);
    for (auto _ : state) {
        state.PauseTiming();
        model.sort(codeColumn, Qt::AscendingOrder);
        state.ResumeTiming();
        model.sort(column, order);
    }
}
BENCHMARK(BM_Sort_Ours)->Arg(Qt::AscendingOrder)->Arg(Qt::DescendingOrder)->Unit(benchmark::kMillisecond);

// The first sort by the column after the rows were loaded: every text is
// read and parsed.
void BM_SortFirst_Ours(benchmark::State& state)
{
    const auto order = Qt::SortOrder(state.range(0));
    UxTableModel model;
    model.setHeaderDatas(quoteColumns());
    const QList<_TableData> rows = quoteRows(kMarketRows);
    const int column = columnOf(sortFeild());
    for (auto _ : state) {
        state.PauseTiming();
        loadOwned(model, rows);
        state.ResumeTiming();
        model.sort(column, order);
    }
}
BENCHMARK(BM_SortFirst_Ours)->Arg(Qt::AscendingOrder)->Arg(Qt::DescendingOrder)->Unit(benchmark::kMillisecond);

void BM_Sort_Peer(benchmark::State& state)
{
    const auto order = Qt::SortOrder(state.range(0));
    QStandardItemModel source;
    fillPeer(source, quoteRows(kMarketRows));
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&source);
    proxy.setSortRole(kSortRole);
    const int column = columnOf(sortFeild());
    for (auto _ : state) {
        state.PauseTiming();
        proxy.sort(-1); // back to the source order
        state.ResumeTiming();
        proxy.sort(column, order);
    }
}
BENCHMARK(BM_Sort_Peer)->Arg(Qt::AscendingOrder)->Arg(Qt::DescendingOrder)->Unit(benchmark::kMillisecond);

void BM_Sort_Floor(benchmark::State& state)
{
    const auto order = Qt::SortOrder(state.range(0));
    std::vector<double> keys;
    for (const _TableData& r : quoteRows(kMarketRows))
        keys.push_back(sortValue(r.values.value(sortFeild())));
    std::vector<double> copy;
    for (auto _ : state) {
        state.PauseTiming();
        copy = keys;
        state.ResumeTiming();
        if (order == Qt::AscendingOrder)
            std::sort(copy.begin(), copy.end());
        else
            std::sort(copy.begin(), copy.end(), std::greater<double>());
        benchmark::DoNotOptimize(copy.data());
    }
}
BENCHMARK(BM_Sort_Floor)->Arg(Qt::AscendingOrder)->Arg(Qt::DescendingOrder)->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------- updates
// One iteration: a burst of 10,000 updates, then the events that repaint.

void BM_Update_Ours(benchmark::State& state)
{
    const int n = int(state.range(0));
    const QList<_TableData> rows = quoteRows(n);
    const QList<_TableData> bursts[2] = {updateBurst(rows, 1), updateBurst(rows, 0)};
    UxTableView view;
    view.setHHeaderData(quoteColumns());
    view.slotCreateTableData(rows);
    view.setBackgroundColorChangedEnable(true);
    view.setIsPageChanged(false);
    showAndSettle(view);
    int i = 0;
    for (auto _ : state) {
        view.slotUpdateTable(bursts[i++ % 2]);
        QCoreApplication::processEvents();
    }
    state.SetItemsProcessed(state.iterations() * kUpdatesPerBurst);
}
BENCHMARK(BM_Update_Ours)->Arg(kSmallRows)->Arg(kMarketRows)->Unit(benchmark::kMillisecond);

// What a Qt developer would write: find the row through a hash of codes,
// setData the cells whose text or colour changed, tint a changed last price
// and clear the tints a second later.
class PeerUpdater
{
public:
    PeerUpdater(QStandardItemModel& model, const QList<_TableData>& rows)
        : m_model(model)
        , m_columns(quoteColumns())
        , m_nowColumn(columnOf(QStringLiteral("Now")))
    {
        for (int r = 0; r < rows.size(); ++r)
            m_rowOf.insert(rows.at(r).code, r);
        m_clear.setSingleShot(true);
        m_clear.setInterval(1000);
        QObject::connect(&m_clear, &QTimer::timeout, [this] {
            for (QStandardItem* item : qAsConst(m_tinted))
                item->setData(QVariant(), Qt::BackgroundRole);
            m_tinted.clear();
        });
    }

    void update(const _TableData& u)
    {
        const int r = m_rowOf.value(u.code, -1);
        if (r < 0)
            return;
        for (int c = 1; c < m_columns.size(); ++c) {
            const _TableHHeaderData& h = m_columns.at(c);
            QStandardItem* item = m_model.item(r, c);
            const QString text = displayOf(h, u, r);
            if (item->text() == text)
                continue;
            item->setText(text);
            if (h.isChangeColor)
                item->setForeground(foregroundOf(h, u));
            if (c == m_nowColumn && (u.riseFall == 0 || u.riseFall == 1)) {
                item->setBackground(u.riseFall == 0 ? h.riseBgColor : h.fallBgColor);
                m_tinted << item;
                if (!m_clear.isActive())
                    m_clear.start();
            }
        }
    }

private:
    QStandardItemModel& m_model;
    const QList<_TableHHeaderData> m_columns;
    const int m_nowColumn;
    QHash<QString, int> m_rowOf;
    QVector<QStandardItem*> m_tinted;
    QTimer m_clear;
};

void BM_Update_Peer(benchmark::State& state)
{
    const int n = int(state.range(0));
    const QList<_TableData> rows = quoteRows(n);
    const QList<_TableData> bursts[2] = {updateBurst(rows, 1), updateBurst(rows, 0)};
    QStandardItemModel model;
    fillPeer(model, rows);
    QTableView view;
    shapeView(view);
    view.setStyleSheet(quoteTableSheet());
    view.setModel(&model);
    showAndSettle(view);
    PeerUpdater updater(model, rows);
    int i = 0;
    for (auto _ : state) {
        for (const _TableData& u : bursts[i++ % 2])
            updater.update(u);
        QCoreApplication::processEvents();
    }
    state.SetItemsProcessed(state.iterations() * kUpdatesPerBurst);
}
BENCHMARK(BM_Update_Peer)->Arg(kSmallRows)->Arg(kMarketRows)->Unit(benchmark::kMillisecond);

void BM_Update_Floor(benchmark::State& state)
{
    const int n = int(state.range(0));
    QList<_TableData> rows = quoteRows(n);
    const QList<_TableData> bursts[2] = {updateBurst(rows, 1), updateBurst(rows, 0)};
    QHash<QString, int> rowOf;
    for (int r = 0; r < rows.size(); ++r)
        rowOf.insert(rows.at(r).code, r);
    rows.detach();
    int i = 0;
    for (auto _ : state) {
        for (const _TableData& u : bursts[i++ % 2]) {
            const int r = rowOf.value(u.code, -1);
            if (r >= 0)
                rows[r] = u;
        }
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kUpdatesPerBurst);
}
BENCHMARK(BM_Update_Floor)->Arg(kSmallRows)->Arg(kMarketRows)->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------- painting
// One iteration renders the whole table (headers, frozen columns, rows).

void BM_Paint_Ours(benchmark::State& state)
{
    UxTableView view;
    view.setHHeaderData(quoteColumns());
    view.slotCreateTableData(quoteRows(kSmallRows));
    showAndSettle(view);
    QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        view.render(&image);
}
BENCHMARK(BM_Paint_Ours)->Unit(benchmark::kMillisecond);

void BM_Paint_Peer(benchmark::State& state)
{
    QStandardItemModel model;
    fillPeer(model, quoteRows(kSmallRows));
    QTableView view;
    shapeView(view);
    view.setStyleSheet(quoteTableSheet());
    view.setModel(&model);
    view.setColumnWidth(0, 60);
    showAndSettle(view);
    QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        view.render(&image);
}
BENCHMARK(BM_Paint_Peer)->Unit(benchmark::kMillisecond);

// ---------------------------------------------------------------- memory
// Heap bytes held per row once 32,760 rows are loaded (and, for ours, the
// row index that updates use is built).

void BM_Memory_Ours(benchmark::State& state)
{
    for (auto _ : state) {
        const qint64 before = heapInUse();
        auto* model = new UxTableModel;
        model->setHeaderDatas(quoteColumns());
        model->setTableData(quoteRows(kMarketRows));
        benchmark::DoNotOptimize(model->findRow(model->tableDatas().first()));
        state.counters["bytes_per_row"] = double(heapInUse() - before) / kMarketRows;
        delete model;
    }
}
BENCHMARK(BM_Memory_Ours)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_Memory_Peer(benchmark::State& state)
{
    for (auto _ : state) {
        const qint64 before = heapInUse();
        auto* model = new QStandardItemModel;
        fillPeer(*model, quoteRows(kMarketRows));
        state.counters["bytes_per_row"] = double(heapInUse() - before) / kMarketRows;
        delete model;
    }
}
BENCHMARK(BM_Memory_Peer)->Iterations(1)->Unit(benchmark::kMillisecond);

// The texts themselves, UTF-16, nothing else.
void BM_Memory_Floor(benchmark::State& state)
{
    for (auto _ : state) {
        const QList<_TableHHeaderData> columns = quoteColumns();
        const QList<_TableData> rows = quoteRows(kMarketRows);
        qint64 bytes = 0;
        for (int r = 0; r < rows.size(); ++r) {
            for (const _TableHHeaderData& h : columns)
                bytes += h.feild.isEmpty() ? 0 : displayOf(h, rows.at(r), r).size() * 2;
        }
        state.counters["bytes_per_row"] = double(bytes) / kMarketRows;
    }
}
BENCHMARK(BM_Memory_Floor)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
