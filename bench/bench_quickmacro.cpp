// One keystroke of the quick-macro search over a 30,000-record dictionary:
//   ours   - the shared ranking (exact, code by match position, name/key; 200 cap)
//   wizard - the same plus refilling the keyboard wizard's list
//   qt     - QSortFilterProxyModel, case-insensitive fixed-string filter over
//            code, name and key (no ranking at all)
//   floor  - one plain case-sensitive scan of pre-extracted codes
// Every iteration types the next text of a fixed list of typical keystrokes.

#include "quickmacroitem.h"
#include "uxkeyboradsprit.h"
#include "uxquickmacromatcher.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QMap>
#include <QRandomGenerator>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

const int DictSize = 30000;

struct Dictionary
{
    std::vector<std::unique_ptr<quickMacroItem>> owned;
    QVector<quickMacroItem*> items;
};

const Dictionary& dictionary()
{
    static const Dictionary dict = [] {
        Dictionary d;
        QRandomGenerator rng(42);
        const QString hanzi = QString::fromUtf8("浦发银行平安招商宁德时代中国石油工商建设农业交通保险证券科技电子医药");
        const QString kinds[] = {QString::fromUtf8("沪A"), QString::fromUtf8("深A"), QString::fromUtf8("基金"),
                                 QString::fromUtf8("指数")};
        for (int i = 0; i < DictSize; ++i) {
            const int market = int(rng.bounded(4));
            const QString code = QString::number(int(rng.bounded(1000000))).rightJustified(6, QLatin1Char('0'));
            QString name;
            QString key;
            const int len = 2 + int(rng.bounded(3));
            for (int c = 0; c < len; ++c) {
                name += hanzi.at(int(rng.bounded(hanzi.size())));
                key += QChar(QLatin1Char(char('a' + rng.bounded(26))));
            }
            d.owned.emplace_back(new quickMacroItem{{kinds[market], code, name, key},
                                                    QStringLiteral("view://stock?code=") + code});
            d.items.append(d.owned.back().get());
        }
        return d;
    }();
    return dict;
}

const QStringList& keystrokes()
{
    static const QStringList texts{QStringLiteral("6"),   QStringLiteral("60"),   QStringLiteral("600"),
                                   QStringLiteral("6000"), QStringLiteral("60003"), QStringLiteral("p"),
                                   QStringLiteral("PF"),  QStringLiteral("pfy"),  QString::fromUtf8("银行"),
                                   QStringLiteral("zzzz")};
    return texts;
}

void BM_QuickMacroMatcher(benchmark::State& state)
{
    UxQuickMacroMatcher matcher;
    matcher.setDictionary(dictionary().items);
    const QStringList& texts = keystrokes();
    int i = 0;
    for (auto _ : state) {
        QVector<quickMacroItem*> hits = matcher.search(texts.at(i++ % texts.size()));
        benchmark::DoNotOptimize(hits.data());
    }
}
BENCHMARK(BM_QuickMacroMatcher)->Unit(benchmark::kMicrosecond);

void BM_KeyboardWizardKeystroke(benchmark::State& state)
{
    UxKeyBoradSprit* wizard = UxKeyBoradSprit::initance();
    wizard->setDictData(dictionary().items);
    const QStringList& texts = keystrokes();
    int i = 0;
    for (auto _ : state)
        wizard->updateResult(texts.at(i++ % texts.size()));
}
BENCHMARK(BM_KeyboardWizardKeystroke)->Unit(benchmark::kMicrosecond);

void BM_QtProxyFilter(benchmark::State& state)
{
    QStandardItemModel model(0, 3);
    for (const quickMacroItem* item : dictionary().items) {
        model.appendRow({new QStandardItem(item->texts.at(1)), new QStandardItem(item->texts.at(2)),
                         new QStandardItem(item->texts.at(3))});
    }
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&model);
    proxy.setFilterKeyColumn(-1);
    proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
    const QStringList& texts = keystrokes();
    int i = 0;
    for (auto _ : state) {
        proxy.setFilterFixedString(texts.at(i++ % texts.size()));
        benchmark::DoNotOptimize(proxy.rowCount());
    }
}
BENCHMARK(BM_QtProxyFilter)->Unit(benchmark::kMicrosecond);

void BM_PlainCodeScan(benchmark::State& state)
{
    QStringList codes;
    for (const quickMacroItem* item : dictionary().items)
        codes.append(item->texts.at(1));
    const QStringList& texts = keystrokes();
    int i = 0;
    for (auto _ : state) {
        const QString& text = texts.at(i++ % texts.size());
        int hits = 0;
        for (const QString& code : qAsConst(codes))
            hits += code.contains(text) ? 1 : 0;
        benchmark::DoNotOptimize(hits);
    }
}
BENCHMARK(BM_PlainCodeScan)->Unit(benchmark::kMicrosecond);

void BM_QuickMacroSetDictionary(benchmark::State& state)
{
    for (auto _ : state) {
        UxQuickMacroMatcher matcher;
        matcher.setDictionary(dictionary().items);
        benchmark::DoNotOptimize(&matcher);
    }
}
BENCHMARK(BM_QuickMacroSetDictionary)->Unit(benchmark::kMicrosecond);

// Console output plus, at the end, each figure against the Qt peer and the floor.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && run.iterations > 0)
                m_perIteration[QString::fromStdString(run.benchmark_name())] =
                    run.cpu_accumulated_time / double(run.iterations) * 1e6;
        }
    }
    void Finalize() override
    {
        ConsoleReporter::Finalize();
        const double qt = m_perIteration.value(QStringLiteral("BM_QtProxyFilter"));
        const double floor = m_perIteration.value(QStringLiteral("BM_PlainCodeScan"));
        std::printf("\nper keystroke over %d records (CPU microseconds):\n", DictSize);
        for (auto it = m_perIteration.constBegin(); it != m_perIteration.constEnd(); ++it) {
            std::printf("  %-28s %10.1f   vs Qt proxy %6.2fx   vs floor %6.2fx\n", qPrintable(it.key()), it.value(),
                        qt > 0 ? it.value() / qt : 0.0, floor > 0 ? it.value() / floor : 0.0);
        }
        std::printf("  (one frame is 16000 microseconds)\n");
    }

private:
    QMap<QString, double> m_perIteration;
};

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*.debug=false");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
