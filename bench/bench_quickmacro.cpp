// Quick-macro search over 30,000 records: the keyboard wizard typed one key
// at a time (a six-digit code, then a two-letter pinyin query) and the
// completer's suggestions, each beside the standard Qt way of doing it.
//
// Argument k of the search cases: k < 6 types the (k+1)-th key of the code
// (the text before it is already there); k == 6 types the pinyin query.

#include "benchdata.h"
#include "uxcompleter.h"
#include "uxkeyboradsprit.h"
#include "uxnewsearchlineedit.h"

#include <benchmark/benchmark.h>

#include <QCompleter>
#include <QCoreApplication>
#include <QLineEdit>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace bench;

namespace {

const int kKeystrokes = 7;

QString typedText(int k)
{
    return k < 6 ? typedCode().left(k + 1) : pinyinQuery();
}

// The text on the line edit before key K was pressed.
QString textBefore(int k)
{
    return k < 6 ? typedCode().left(k) : pinyinQuery().left(pinyinQuery().size() - 1);
}

void BM_Search_Ours(benchmark::State& state)
{
    const int k = int(state.range(0));
    UxKeyBoradSprit* wizard = UxKeyBoradSprit::initance();
    wizard->setDictData(dictionary());
    const QString before = textBefore(k);
    const QString text = typedText(k);
    for (auto _ : state) {
        state.PauseTiming();
        wizard->updateResult(before);
        state.ResumeTiming();
        wizard->updateResult(text);
    }
}
BENCHMARK(BM_Search_Ours)->DenseRange(0, kKeystrokes - 1)->Unit(benchmark::kMicrosecond);

void BM_Search_Peer(benchmark::State& state)
{
    const int k = int(state.range(0));
    QStandardItemModel model(0, 3);
    for (const quickMacroItem* item : dictionary()) {
        model.appendRow({new QStandardItem(item->texts.at(1)), new QStandardItem(item->texts.at(2)),
                         new QStandardItem(item->texts.at(3))});
    }
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&model);
    proxy.setFilterKeyColumn(-1);
    proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
    const QString before = textBefore(k);
    const QString text = typedText(k);
    for (auto _ : state) {
        state.PauseTiming();
        proxy.setFilterFixedString(before);
        state.ResumeTiming();
        proxy.setFilterFixedString(text);
        benchmark::DoNotOptimize(proxy.rowCount());
    }
}
BENCHMARK(BM_Search_Peer)->DenseRange(0, kKeystrokes - 1)->Unit(benchmark::kMicrosecond);

void BM_Search_Floor(benchmark::State& state)
{
    QStringList codes;
    for (const quickMacroItem* item : dictionary())
        codes.append(item->texts.at(1));
    const QString text = typedText(int(state.range(0)));
    for (auto _ : state) {
        int hits = 0;
        for (const QString& code : qAsConst(codes))
            hits += code.contains(text) ? 1 : 0;
        benchmark::DoNotOptimize(hits);
    }
}
BENCHMARK(BM_Search_Floor)->DenseRange(0, kKeystrokes - 1)->Unit(benchmark::kMicrosecond);

// ---------------------------------------------------------------- completer
// Argument: the length of the typed text (a prefix of the code).
// One iteration: suggestions computed, popup filled, shown and painted.

void BM_Completer_Ours(benchmark::State& state)
{
    QWidget window;
    auto* edit = new UxNewSearchLineEdit(&window);
    (new QVBoxLayout(&window))->addWidget(edit);
    edit->setDictData(dictionary());
    window.show();
    QCoreApplication::processEvents();
    auto* completer = edit->findChild<UxCompleter*>();
    auto* popup = edit->findChild<QTreeWidget*>(QStringLiteral("completerPopup"));
    edit->setText(typedCode().left(int(state.range(0))));
    for (auto _ : state) {
        completer->slotRspCodeSearchs();
        QCoreApplication::processEvents();
        state.PauseTiming();
        popup->hide();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Completer_Ours)->Arg(1)->Arg(3)->Unit(benchmark::kMillisecond);

void BM_Completer_Peer(benchmark::State& state)
{
    QWidget window;
    auto* edit = new QLineEdit(&window);
    (new QVBoxLayout(&window))->addWidget(edit);
    QStringList entries;
    for (const quickMacroItem* item : dictionary())
        entries << item->texts.at(1) + QLatin1Char(' ') + item->texts.at(2) + QLatin1Char(' ') + item->texts.at(3);
    QStringListModel model(entries);
    QCompleter completer(&model);
    completer.setFilterMode(Qt::MatchContains);
    completer.setCaseSensitivity(Qt::CaseInsensitive);
    completer.setMaxVisibleItems(7);
    edit->setCompleter(&completer);
    window.show();
    QCoreApplication::processEvents();
    const QString text = typedCode().left(int(state.range(0)));
    for (auto _ : state) {
        completer.setCompletionPrefix(text);
        completer.complete();
        QCoreApplication::processEvents();
        state.PauseTiming();
        completer.popup()->hide();
        // Forget the cached matches, as a new text would.
        completer.setCaseSensitivity(Qt::CaseInsensitive);
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Completer_Peer)->Arg(1)->Arg(3)->Unit(benchmark::kMillisecond);

} // namespace
