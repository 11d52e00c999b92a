#include "uxscheduler.h"

#include <QDateTime>
#include <QPointer>

#include <algorithm>

namespace {
// How far from its due time a poll may catch a task.
constexpr qint64 kWindowMs = 2;

qint64 nowMs()
{
    return QDateTime::currentDateTime().toMSecsSinceEpoch();
}
} // namespace

UxScheduler::UxScheduler(QObject* parent)
    : QObject(parent)
{
    timer.setTimerType(Qt::PreciseTimer);
    timer.setInterval(1);
    connect(&timer, &QTimer::timeout, this, &UxScheduler::Run, Qt::DirectConnection);
}

UxScheduler::~UxScheduler()
{
    timer.stop();
}

void UxScheduler::Schedule(const std::function<void()>& fn, uint delayMs, uint id)
{
    Task task;
    task.id = id;
    task.function = fn;
    task.due = nowMs() + qint64(delayMs);
    task.seq = m_nextSeq++;
    tasks.push_back(std::move(task));
    std::stable_sort(tasks.begin(), tasks.end(), [](const Task& a, const Task& b) { return a.due < b.due; });
    if (!timer.isActive())
        startPolling();
    aborted = false;
}

bool UxScheduler::CancelTask(uint id)
{
    auto it = std::find_if(tasks.begin(), tasks.end(), [id](const Task& t) { return t.id == id; });
    if (it == tasks.end())
        return false;
    tasks.erase(it);
    return true;
}

void UxScheduler::CancelAll()
{
    tasks.clear();
    timer.stop();
    aborted = true;
}

void UxScheduler::Abort()
{
    aborted = true;
    timer.stop();
}

void UxScheduler::startPolling()
{
    timer.start(1);
}

void UxScheduler::Run()
{
    timer.stop();
    if (!aborted) {
        const qint64 now = nowMs();
        QPointer<UxScheduler> self(this);
        size_t i = 0;
        while (i < tasks.size() && !aborted) {
            const qint64 due = tasks[i].due;
            if (due > now + kWindowMs)
                break;
            if (due < now - kWindowMs) {
                // Missed: left in place until someone cancels it.
                ++i;
                continue;
            }
            const quint64 seq = tasks[i].seq;
            // Run a copy: the callback may reshape the queue under us.
            const std::function<void()> fn = tasks[i].function;
            if (fn)
                fn();
            if (!self)
                return;
            auto it = std::find_if(tasks.begin(), tasks.end(), [seq](const Task& t) { return t.seq == seq; });
            if (it != tasks.end())
                tasks.erase(it);
            // The queue stays sorted, so the missed tasks are still the leading run.
            i = 0;
            while (i < tasks.size() && tasks[i].due < now - kWindowMs)
                ++i;
        }
    }
    // Pending tasks keep the poll going even when a callback aborted.
    if (!tasks.empty() && !timer.isActive())
        startPolling();
}
