// Runs every case, then prints one table: our figure, the Qt peer on the same
// data, a floor, the ratios ours/floor and peer/ours, and whether the target
// is met. Figures are CPU time per operation; with --benchmark_repetitions=N
// each figure is the median of the N runs.

#include "benchdata.h"
#include "uxcore.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QMap>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace {

struct Figure
{
    std::vector<double> cpuNs; // per iteration, one per repetition
    std::vector<double> bytesPerRow;
};

double median(std::vector<double> v)
{
    if (v.empty())
        return 0.0;
    std::sort(v.begin(), v.end());
    const size_t m = v.size() / 2;
    return v.size() % 2 ? v[m] : (v[m - 1] + v[m]) / 2.0;
}

class SummaryReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.iterations <= 0 || run.error_occurred)
                continue;
            // "BM_Memory_Ours/iterations:1" is filed as "BM_Memory_Ours".
            std::string name = run.run_name.str();
            const size_t fixed = name.find("/iterations:");
            if (fixed != std::string::npos)
                name.erase(fixed);
            Figure& f = m_figures[name];
            f.cpuNs.push_back(run.cpu_accumulated_time / double(run.iterations) * 1e9);
            const auto it = run.counters.find("bytes_per_row");
            if (it != run.counters.end())
                f.bytesPerRow.push_back(it->second.value);
        }
    }

    void Finalize() override
    {
        ConsoleReporter::Finalize();
        printSummary();
    }

private:
    // Median CPU nanoseconds per iteration of NAME, divided by PER; 0 if absent.
    double ns(const std::string& name, double per = 1.0) const
    {
        const auto it = m_figures.find(name);
        return it == m_figures.end() ? 0.0 : median(it->second.cpuNs) / per;
    }
    double bytes(const std::string& name) const
    {
        const auto it = m_figures.find(name);
        return it == m_figures.end() ? 0.0 : median(it->second.bytesPerRow);
    }

    static std::string time(double ns)
    {
        char buf[32];
        if (ns <= 0)
            return "-";
        if (ns < 1e3)
            std::snprintf(buf, sizeof buf, "%.0f ns", ns);
        else if (ns < 1e6)
            std::snprintf(buf, sizeof buf, "%.1f us", ns / 1e3);
        else
            std::snprintf(buf, sizeof buf, "%.2f ms", ns / 1e6);
        return buf;
    }
    static std::string ratio(double a, double b)
    {
        char buf[32];
        if (a <= 0 || b <= 0)
            return "-";
        std::snprintf(buf, sizeof buf, "%.2f", a / b);
        return buf;
    }
    static std::string number(double v, const char* unit)
    {
        char buf[48];
        if (v <= 0)
            return "-";
        std::snprintf(buf, sizeof buf, "%.0f %s", v, unit);
        return buf;
    }

    void row(const std::string& name, const std::string& ours, const std::string& peer, const std::string& floor,
             const std::string& oursFloor, const std::string& peerOurs, const std::string& target, bool known, bool met)
    {
        std::printf("| %-34s | %10s | %10s | %10s | %10s | %9s | %-28s | %-4s |\n", name.c_str(), ours.c_str(),
                    peer.c_str(), floor.c_str(), oursFloor.c_str(), peerOurs.c_str(), target.c_str(),
                    known ? (met ? "yes" : "NO") : "-");
        if (known && !met)
            ++m_missed;
    }
    // A timed case: figures per operation (iteration time divided by PER).
    void timed(const std::string& label, const std::string& ours, const std::string& peer, const std::string& floor,
               double per, const std::string& target, const std::function<bool(double, double, double)>& met)
    {
        const double o = ns(ours, per);
        const double p = peer.empty() ? 0.0 : ns(peer, per);
        const double f = floor.empty() ? 0.0 : ns(floor, per);
        // No MET: a figure for information, no target.
        const bool known = o > 0 && bool(met);
        row(label, time(o), time(p), time(f), ratio(o, f), ratio(p, o), target, known, known && met(o, p, f));
    }

    void printSummary()
    {
        std::printf("\nSummary (CPU time per operation");
        std::printf("%s)\n\n", m_figures.empty() || m_figures.begin()->second.cpuNs.size() < 2
                                   ? ""
                                   : ", median of the repetitions");
        std::printf("| %-34s | %10s | %10s | %10s | %10s | %9s | %-28s | %-4s |\n", "case", "ours", "peer", "floor",
                    "ours/floor", "peer/ours", "target", "met?");
        std::printf("|%s|%s|%s|%s|%s|%s|%s|%s|\n", std::string(36, '-').c_str(), std::string(12, '-').c_str(),
                    std::string(12, '-').c_str(), std::string(12, '-').c_str(), std::string(12, '-').c_str(),
                    std::string(11, '-').c_str(), std::string(30, '-').c_str(), std::string(6, '-').c_str());

        const auto sortMet = [](double o, double p, double f) { return o <= 2.0 * f && p >= 3.0 * o; };
        timed("sort 32,760 rows ascending", "BM_Sort_Ours/0", "BM_Sort_Peer/0", "BM_Sort_Floor/0", 1,
              "<= 2x floor, >= 3x faster", sortMet);
        timed("sort 32,760 rows descending", "BM_Sort_Ours/1", "BM_Sort_Peer/1", "BM_Sort_Floor/1", 1,
              "<= 2x floor, >= 3x faster", sortMet);

        timed("first sort after loading, asc", "BM_SortFirst_Ours/0", "BM_Sort_Peer/0", "BM_Sort_Floor/0", 1,
              "(information)", nullptr);
        timed("first sort after loading, desc", "BM_SortFirst_Ours/1", "BM_Sort_Peer/1", "BM_Sort_Floor/1", 1,
              "(information)", nullptr);

        const double updates = bench::kUpdatesPerBurst;
        const auto faster = [](double o, double p, double) { return p > o; };
        timed("update, per row, 1,000 rows", "BM_Update_Ours/1000", "BM_Update_Peer/1000", "BM_Update_Floor/1000",
              updates, "faster than peer", faster);
        timed("update, per row, 32,760 rows", "BM_Update_Ours/32760", "BM_Update_Peer/32760",
              "BM_Update_Floor/32760", updates, "faster than peer", faster);
        {
            const double small = ns("BM_Update_Ours/1000");
            const double large = ns("BM_Update_Ours/32760");
            const double peerSmall = ns("BM_Update_Peer/1000");
            const double peerLarge = ns("BM_Update_Peer/32760");
            const double floorSmall = ns("BM_Update_Floor/1000");
            const double floorLarge = ns("BM_Update_Floor/32760");
            row("update growth, 32,760 / 1,000 rows", ratio(large, small), ratio(peerLarge, peerSmall),
                ratio(floorLarge, floorSmall), "-", "-", "ours <= 1.30", small > 0 && large > 0,
                large <= 1.3 * small);
        }

        double ours = 0, peer = 0, floor = 0, oursMax = 0, peerMax = 0;
        int keys = 0;
        for (int k = 0;; ++k) {
            const std::string arg = "/" + std::to_string(k);
            const double o = ns("BM_Search_Ours" + arg);
            if (o <= 0)
                break;
            ++keys;
            ours += o;
            peer += ns("BM_Search_Peer" + arg);
            floor += ns("BM_Search_Floor" + arg);
            oursMax = std::max(oursMax, o);
            peerMax = std::max(peerMax, ns("BM_Search_Peer" + arg));
        }
        if (keys > 0) {
            ours /= keys;
            peer /= keys;
            floor /= keys;
        }
        row("search, mean per keystroke", time(ours), time(peer), time(floor), ratio(ours, floor), ratio(peer, ours),
            "<= 3x floor, faster", keys > 0, ours <= 3.0 * floor && peer > ours);
        row("search, slowest keystroke", time(oursMax), time(peerMax), "-", "-", ratio(peerMax, oursMax),
            "< 16 ms", keys > 0, oursMax < 16e6);

        timed("completer, 1 character", "BM_Completer_Ours/1", "BM_Completer_Peer/1", "", 1, "faster than peer",
              faster);
        timed("completer, 3 characters", "BM_Completer_Ours/3", "BM_Completer_Peer/3", "", 1, "faster than peer",
              faster);

        timed("paint 1400x600 table, per render", "BM_Paint_Ours", "BM_Paint_Peer", "", 1, "<= 1.2x peer",
              [](double o, double p, double) { return o <= 1.2 * p; });

        {
            const double o = bytes("BM_Memory_Ours");
            const double p = bytes("BM_Memory_Peer");
            const double f = bytes("BM_Memory_Floor");
            row("memory per row, 32,760 rows", number(o, "B"), number(p, "B"), number(f, "B"), ratio(o, f),
                ratio(p, o), "<= peer", o > 0, o <= p);
        }
        std::printf("\n%d target(s) missed.\n", m_missed);
    }

    std::map<std::string, Figure> m_figures;
    int m_missed = 0;
};

void printMachine()
{
    QString cpu;
    QFile info(QStringLiteral("/proc/cpuinfo"));
    if (info.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : info.readAll().split('\n')) {
            if (line.startsWith("model name")) {
                cpu = QString::fromUtf8(line.mid(line.indexOf(':') + 1)).trimmed();
                break;
            }
        }
    }
    QString load;
    QFile loadavg(QStringLiteral("/proc/loadavg"));
    if (loadavg.open(QIODevice::ReadOnly))
        load = QString::fromUtf8(loadavg.readAll()).section(QLatin1Char(' '), 0, 2);
    std::printf("machine: %d cores, %s, load %s, Qt %s\n", QThread::idealThreadCount(), qPrintable(cpu),
                qPrintable(load), qVersion());
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The widgets log every keystroke; the log is not what is measured.
    qputenv("QT_LOGGING_RULES", "*.debug=false");
    QApplication app(argc, argv);
    UxCore::instance()->setSkinRoot(QStringLiteral(UX_SOURCE_DIR "/skins"));
    UxCore::instance()->setCurrentSkin(QStringLiteral("light"));

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    printMachine();
    SummaryReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
