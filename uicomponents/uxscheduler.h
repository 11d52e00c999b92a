#ifndef UXSCHEDULER_H
#define UXSCHEDULER_H

#include "uicomponents_export.h"

#include <QMutex>
#include <QObject>
#include <QTimer>

#include <functional>
#include <vector>

/// Runs deferred callbacks on the GUI thread. Schedule() queues a copy of the
/// function with a delay in milliseconds and a caller's id (ids need not be
/// unique); a 1 ms precise timer polls the queue, which is kept sorted by due
/// time (equal due times keep their scheduling order).
///
/// A task runs when a poll finds it within 2 ms of its due time. A task that
/// was missed by more than 2 ms (the event loop was blocked) is never run and
/// stays queued until it is cancelled; later tasks are not held up by it.
///
/// A callback may call Schedule, CancelTask, CancelAll or Abort, and may even
/// delete the scheduler: the walk re-reads the queue after each callback and
/// stops at once when the scheduler is gone, rather than run on freed memory.
/// An Abort from inside a callback leaves the remaining tasks polled (and not
/// run) until the next Schedule.
/// Not thread-safe: call it from the thread it lives in.
class UICOMPONENTS_EXPORT UxScheduler : public QObject
{
    Q_OBJECT
public:
    explicit UxScheduler(QObject* parent = nullptr);
    ~UxScheduler() override;

    void Schedule(const std::function<void()>& fn, uint delayMs, uint id);
    /// Removes the earliest pending task with this id; false when there is none.
    bool CancelTask(uint id);
    /// Drops every pending task and stops until the next Schedule.
    void CancelAll();
    /// Stops polling; pending tasks are kept.
    void Abort();

private:
    struct Task
    {
        uint id = 0;
        std::function<void()> function;
        qint64 due = 0;
        quint64 seq = 0; ///< identifies a task while its callback runs
    };

    void Run();
    void startPolling();

    bool aborted = false;
    QTimer timer;
    QMutex mutex;
    std::vector<Task> tasks;
    quint64 m_nextSeq = 0;
};

#endif // UXSCHEDULER_H
