#include "soakdriver.h"

#include "gallerywindow.h"
#include "quotespage.h"

#include <uicomponents/uxcustomtablewidget.h>
#include <uxcore/uxcore.h>

#include <QCoreApplication>
#include <QFile>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include <unistd.h>

#include <cstdio>

SoakDriver::SoakDriver(GalleryWindow* window, int seconds, QObject* parent)
    : QObject(parent)
    , m_window(window)
    , m_seconds(seconds)
{
    // Every 10 ms, the price changes owed to keep 1,000 ticks a second on
    // average, however long the repaints take.
    m_tick.setInterval(10);
    m_tick.setTimerType(Qt::PreciseTimer);
    connect(&m_tick, &QTimer::timeout, this, &SoakDriver::tick);
    m_scroll.setInterval(3000);
    connect(&m_scroll, &QTimer::timeout, this, &SoakDriver::scrollSomewhere);
    m_sort.setInterval(5000);
    connect(&m_sort, &QTimer::timeout, this, &SoakDriver::sortSomehow);
    m_skin.setInterval(60000);
    connect(&m_skin, &QTimer::timeout, this, &SoakDriver::switchSkin);
    m_report.setInterval(1000);
    connect(&m_report, &QTimer::timeout, this, &SoakDriver::report);
}

qint64 SoakDriver::residentBytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> fields = statm.readAll().split(' ');
    return fields.size() > 1 ? fields.at(1).toLongLong() * sysconf(_SC_PAGESIZE) : 0;
}

void SoakDriver::start()
{
    m_window->showPage(0);
    m_clock.start();
    m_start = residentBytes();
    std::printf("soak: %d s, resident at start %.1f MiB\n", m_seconds, m_start / 1048576.0);
    std::fflush(stdout);
    for (QTimer* t : {&m_tick, &m_scroll, &m_sort, &m_skin, &m_report})
        t->start();
}

void SoakDriver::tick()
{
    auto* page = qobject_cast<QuotesPage*>(m_window->pages().at(0).widget);
    const qint64 owed = m_clock.elapsed() - qint64(m_ticks);
    const int changes = int(qBound(qint64(0), owed, qint64(500)));
    if (changes == 0)
        return;
    page->tick(changes);
    m_ticks += quint64(changes);
}

void SoakDriver::scrollSomewhere()
{
    auto* page = qobject_cast<QuotesPage*>(m_window->pages().at(0).widget);
    auto* view = page->table()->findChild<QTableView*>(QStringLiteral("tableView"));
    QScrollBar* bar = view->verticalScrollBar();
    // A deterministic walk over the whole block.
    bar->setValue((++m_step * 397) % qMax(1, bar->maximum() + 1));
}

void SoakDriver::sortSomehow()
{
    auto* page = qobject_cast<QuotesPage*>(m_window->pages().at(0).widget);
    auto* view = page->table()->findChild<QTableView*>(QStringLiteral("tableView"));
    QHeaderView* header = view->horizontalHeader();
    const int column = 3 + (m_step % qMax(1, header->count() - 3));
    // The header's click signal, as a user's click emits it.
    emit header->sectionClicked(column);
}

void SoakDriver::switchSkin()
{
    const QStringList ids = UxCore::instance()->skinIds();
    if (ids.isEmpty())
        return;
    const int next = (ids.indexOf(UxCore::instance()->getCurrentSkinId()) + 1) % ids.size();
    m_window->switchSkin(ids.at(next));
}

void SoakDriver::report()
{
    const qint64 elapsed = m_clock.elapsed() / 1000;
    if (m_baseline == 0 && elapsed >= qMin(60, m_seconds / 2)) {
        m_baseline = residentBytes();
        std::printf("soak: after %lld s resident %.1f MiB (baseline), %llu ticks\n", elapsed, m_baseline / 1048576.0,
                    static_cast<unsigned long long>(m_ticks));
        std::fflush(stdout);
    }
    if (elapsed < m_seconds)
        return;
    for (QTimer* t : {&m_tick, &m_scroll, &m_sort, &m_skin, &m_report})
        t->stop();
    const qint64 end = residentBytes();
    const double growth = m_baseline > 0 ? 100.0 * double(end - m_baseline) / double(m_baseline) : 0.0;
    std::printf("soak: end after %lld s resident %.1f MiB, growth since baseline %.2f%%, %llu ticks\n", elapsed,
                end / 1048576.0, growth, static_cast<unsigned long long>(m_ticks));
    std::fflush(stdout);
    emit finished(growth < 5.0);
}
