// The quote model's hot paths: a unit-aware sort of a full sorted table
// (32,760 rows of mixed 万 / 亿 / % / plain / junk texts) and bursts of
// single-row quote updates.
//
// Sort peer: the plain reference the tests check against, keys parsed inside
// every comparison (QVariant keys, conversion by the left key). Sort floor: std::sort of doubles extracted beforehand.

#include "tablesortreference.h"
#include "uxtablemodel.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QRandomGenerator>

#include <algorithm>
#include <vector>

namespace {

const int kSortRows = 32760;

QString mixedValue(QRandomGenerator& rng)
{
    switch (rng.bounded(6)) {
    case 0:
        return QStringLiteral("%1.%2万").arg(rng.bounded(99999)).arg(rng.bounded(100), 2, 10, QLatin1Char('0'));
    case 1:
        return QStringLiteral("%1.%2亿").arg(rng.bounded(99)).arg(rng.bounded(100), 2, 10, QLatin1Char('0'));
    case 2:
        return QStringLiteral("%1.%2%").arg(rng.bounded(100)).arg(rng.bounded(100));
    case 3:
        return QString::number(rng.bounded(100000000));
    case 4:
        return QString::number(rng.bounded(100000) / 100.0, 'f', 2);
    default:
        return QStringLiteral("--");
    }
}

QList<_TableHHeaderData> columns()
{
    QList<_TableHHeaderData> list;
    for (const char* f : {"", "Code", "Name", "Now", "Amount"}) {
        _TableHHeaderData h;
        h.feild = QString::fromLatin1(f);
        list << h;
    }
    return list;
}

QList<_TableData> rows(int n)
{
    QRandomGenerator rng(42);
    QList<_TableData> list;
    list.reserve(n);
    for (int i = 0; i < n; ++i) {
        _TableData r;
        r.key = QStringLiteral("k");
        r.code = QString::number(600000 + i);
        r.market = i % 2;
        r.values.insert(QStringLiteral("Amount"), mixedValue(rng));
        r.values.insert(QStringLiteral("Now"), QString::number(rng.bounded(10000) / 100.0, 'f', 2));
        list << r;
    }
    return list;
}

void BM_ModelSort(benchmark::State& state)
{
    UxTableModel model;
    model.setHeaderDatas(columns());
    const QList<_TableData> data = rows(kSortRows);
    for (auto _ : state) {
        state.PauseTiming();
        model.setTableData(data);
        state.ResumeTiming();
        model.sort(4, Qt::AscendingOrder);
    }
    state.SetItemsProcessed(state.iterations() * kSortRows);
}
BENCHMARK(BM_ModelSort)->Unit(benchmark::kMillisecond);

void BM_PeerSortKeysInComparison(benchmark::State& state)
{
    const QList<_TableData> data = rows(kSortRows);
    const QString feild = QStringLiteral("Amount");
    for (auto _ : state) {
        benchmark::DoNotOptimize(ref::sorted(data, feild, Qt::AscendingOrder));
    }
    state.SetItemsProcessed(state.iterations() * kSortRows);
}
BENCHMARK(BM_PeerSortKeysInComparison)->Unit(benchmark::kMillisecond);

void BM_FloorSortExtractedDoubles(benchmark::State& state)
{
    const QList<_TableData> data = rows(kSortRows);
    std::vector<double> keys;
    for (const _TableData& r : data)
        keys.push_back(UxTableModel::toNumber(r.values.value(QStringLiteral("Amount"))).toDouble());
    for (auto _ : state) {
        std::vector<double> copy = keys;
        std::sort(copy.begin(), copy.end());
        benchmark::DoNotOptimize(copy.data());
    }
    state.SetItemsProcessed(state.iterations() * kSortRows);
}
BENCHMARK(BM_FloorSortExtractedDoubles)->Unit(benchmark::kMillisecond);

// 10,000 quote updates into a table of state.range(0) rows.
void BM_ModelUpdateRow(benchmark::State& state)
{
    const int n = int(state.range(0));
    UxTableModel model;
    model.setHeaderDatas(columns());
    const QList<_TableData> data = rows(n);
    model.setTableData(data);
    QList<_TableData> updates;
    QRandomGenerator rng(7);
    for (int i = 0; i < 10000; ++i) {
        _TableData u = data.at(rng.bounded(n));
        u.values.insert(QStringLiteral("Now"), QString::number(i));
        updates << u;
    }
    for (auto _ : state) {
        for (const _TableData& u : qAsConst(updates))
            model.updateRow(u);
    }
    state.SetItemsProcessed(state.iterations() * updates.size());
}
BENCHMARK(BM_ModelUpdateRow)->Arg(1000)->Arg(kSortRows)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
