#include "uxtestenv.h"

#include "uxscheduler.h"

#include <QThread>

#include <functional>
#include <memory>

// Remembers the timer whose tick is being delivered: inside a callback, the scheduler's own.
struct TickSpy : QObject {
    QTimer* ticking = nullptr;
    bool eventFilter(QObject* o, QEvent* e) override
    {
        if (e->type() == QEvent::Timer && qobject_cast<QTimer*>(o))
            ticking = static_cast<QTimer*>(o);
        return false;
    }
};

// A task polled more than 2 ms late is dropped by design, and a loaded machine can stall that
// long; so an attempt that did not see the expected tasks is repeated, up to ten times.
class TstScheduler : public QObject
{
    Q_OBJECT
    std::unique_ptr<UxScheduler> m_s;
    QStringList m_ran;

    void retry(const std::function<void(bool& missed)>& attempt)
    {
        bool missed = true;
        for (int i = 0; i < 10 && missed && !QTest::currentTestFailed(); ++i)
            attempt(missed = false);
        QVERIFY2(!missed, "no attempt ran the expected tasks");
    }

    // "name@delay#id/op/op" schedules a task that records its name, then runs the ops;
    // "+id"/"-id" cancels one task of id expecting true/false; "!" cancels all;
    // "x" aborts; "~" destroys the scheduler; "zN" blocks the event loop for N ms.
    void exec(const QString& op)
    {
        const QStringList parts = op.split('/');
        const QString name = parts[0].section('@', 0, 0), arg = op.mid(1);
        if (op.contains('@'))
            m_s->Schedule([this, name, parts] { m_ran << name; for (const QString& post : parts.mid(1)) exec(post); },
                          parts[0].section('@', 1).section('#', 0, 0).toUInt(), parts[0].section('#', 1).toUInt());
        else if (op == "!")
            m_s->CancelAll();
        else if (op == "x")
            m_s->Abort();
        else if (op == "~")
            m_s.reset();
        else if (op.startsWith('z'))
            QThread::msleep(arg.toUInt());
        else
            QCOMPARE(m_s->CancelTask(arg.toUInt()), op.startsWith('+'));
    }

private Q_SLOTS:
    void cleanup() { m_s.reset(); }

    // The 1 ms precise poll runs while tasks are pending, also after a callback aborted, and stops
    // once the queue is empty.
    void pollTimer()
    {
        TickSpy spy;
        qApp->installEventFilter(&spy);
        retry([&](bool& missed) {
            m_s = std::make_unique<UxScheduler>();
            m_ran.clear();
            QTimer* timer = nullptr;
            m_s->Schedule([&] { timer = spy.ticking; m_s->Abort(); }, 0, 1);
            exec("held@30#2");
            missed = !UxTest::spinUntil([&] { return timer != nullptr; }, 500);
            if (missed)
                return;
            QCOMPARE(timer->interval(), 1);
            QCOMPARE(timer->timerType(), Qt::PreciseTimer);
            UxTest::spin(60);
            QVERIFY(timer->isActive() && m_ran.isEmpty()); // the aborted poll runs nothing
            exec("+2");
            QVERIFY(UxTest::spinUntil([&] { return !timer->isActive(); }, 500));
        });
        qApp->removeEventFilter(&spy);
    }

    void queue_data()
    {
        QTest::addColumn<QStringList>("ops");
        QTest::addColumn<QStringList>("expected"); // names in run order
        QTest::newRow("zero delay") << QStringList{"a@0#1"} << QStringList{"a"};
        QTest::newRow("earliest due first") << QStringList{"a@150#1", "b@20#2", "c@80#3"} << QStringList{"b", "c", "a"};
        QTest::newRow("ties keep order") << QStringList{"a@90#1", "b@30#2", "c@90#3", "d@30#4"} << QStringList{"b", "d", "a", "c"};
        QTest::newRow("cancel takes the earliest of an id")
            << QStringList{"late@120#7", "early@40#7", "other@80#8", "-6", "+7"} << QStringList{"other", "late"};
        QTest::newRow("cancel all until the next schedule") << QStringList{"a@10#1", "b@10#1", "!", "-1", "c@40#3"} << QStringList{"c"};
        QTest::newRow("abort") << QStringList{"a@10#1", "b@10#1", "x"} << QStringList();
        QTest::newRow("destroyed") << QStringList{"a@10#1", "~"} << QStringList();
        QTest::newRow("a missed task does not hold up later ones")
            << QStringList{"missed@5#1", "z30", "later@20#2"} << QStringList{"later"};
        QTest::newRow("callback cancels all") << QStringList{"a@20#1/!", "b@20#2", "c@40#3"} << QStringList{"a"};
        QTest::newRow("callback cancels all and re-arms")
            << QStringList{"a@20#1/!/inner@20#1", "b@20#2", "c@40#3"} << QStringList{"a", "inner"};
        QTest::newRow("callback destroys the scheduler") << QStringList{"a@20#1/~", "b@20#2"} << QStringList{"a"};
    }
    void queue()
    {
        QFETCH(QStringList, ops);
        QFETCH(QStringList, expected);
        retry([&](bool& missed) {
            m_s = std::make_unique<UxScheduler>();
            m_ran.clear();
            for (const QString& op : ops)
                exec(op);
            if (!expected.isEmpty())
                UxTest::spinUntil([&] { return m_ran.size() >= expected.size(); }, 500);
            UxTest::spin(60);
            missed = m_ran != expected;
        });
    }
};

UX_TEST_MAIN(TstScheduler)
#include "tst_scheduler.moc"
