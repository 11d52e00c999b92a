#include "uxtestenv.h"

#include "uxscheduler.h"

#include <QPointer>
#include <QThread>

#include <functional>

// The scheduler drops, by design, a task whose poll comes more than 2 ms
// late. A loaded machine can stall the event loop that long, so a run in
// which an expected task never came is repeated; a wrong order, a task that
// should not have run, or a crash fails at once.
class TstScheduler : public QObject
{
    Q_OBJECT

    // One attempt; sets MISSED when an expected task did not run in time.
    void retry(const std::function<void(bool& missed)>& attempt)
    {
        for (int i = 0; i < 5; ++i) {
            bool missed = false;
            attempt(missed);
            if (QTest::currentTestFailed() || !missed)
                return;
        }
        QFAIL("expected tasks never ran in any attempt");
    }

private Q_SLOTS:
    void runsInDueOrder_data()
    {
        QTest::addColumn<QList<uint>>("delays");
        QTest::addColumn<QList<uint>>("expected"); // ids (1-based scheduling order) in run order
        QTest::newRow("zero delay") << QList<uint>{0} << QList<uint>{1};
        QTest::newRow("earliest due first") << QList<uint>{150, 20, 80} << QList<uint>{2, 3, 1};
        QTest::newRow("ties keep scheduling order") << QList<uint>{90, 30, 90, 30} << QList<uint>{2, 4, 1, 3};
    }
    void runsInDueOrder()
    {
        QFETCH(QList<uint>, delays);
        QFETCH(QList<uint>, expected);
        retry([&](bool& missed) {
            UxScheduler s;
            QList<uint> order;
            for (int i = 0; i < delays.size(); ++i) {
                const uint id = uint(i + 1);
                s.Schedule([&order, id]() { order << id; }, delays.at(i), id);
            }
            missed = !UxTest::spinUntil([&]() { return order.size() == expected.size(); }, 2000);
            // A missed task leaves a gap; what did run must still be in order.
            QList<uint> filtered;
            for (uint id : expected)
                if (order.contains(id))
                    filtered << id;
            QCOMPARE(order, filtered);
        });
    }

    void cancelTaskRemovesOnlyTheEarliestOfAnId()
    {
        retry([&](bool& missed) {
            UxScheduler s;
            QStringList ran;
            s.Schedule([&ran]() { ran << "late"; }, 200, 7);
            s.Schedule([&ran]() { ran << "early"; }, 40, 7);
            s.Schedule([&ran]() { ran << "other"; }, 80, 8);
            QVERIFY(!s.CancelTask(6));
            QVERIFY(s.CancelTask(7));
            missed = !UxTest::spinUntil([&]() { return ran.size() == 2; }, 2000);
            QVERIFY(!ran.contains("early"));
            if (!missed) {
                UxTest::spin(50);
                QCOMPARE(ran, QStringList({"other", "late"}));
                QVERIFY(!s.CancelTask(7));
            }
        });
    }

    void cancelAllDropsEverythingUntilNextSchedule()
    {
        retry([&](bool& missed) {
            UxScheduler s;
            QStringList ran;
            s.Schedule([&ran]() { ran << "a"; }, 20, 1);
            s.Schedule([&ran]() { ran << "b"; }, 20, 1);
            s.CancelAll();
            QVERIFY(!s.CancelTask(1));
            UxTest::spin(100);
            QVERIFY(ran.isEmpty());
            s.Schedule([&ran]() { ran << "c"; }, 20, 3);
            missed = !UxTest::spinUntil([&]() { return !ran.isEmpty(); }, 2000);
            QVERIFY(missed || ran == QStringList{"c"});
        });
    }

    void abortAndDestructionRunNothing()
    {
        int ran = 0;
        {
            UxScheduler dying;
            dying.Schedule([&ran]() { ++ran; }, 20, 1);
        }
        UxScheduler s;
        s.Schedule([&ran]() { ++ran; }, 20, 1);
        s.Schedule([&ran]() { ++ran; }, 20, 1);
        s.Abort();
        UxTest::spin(100);
        QCOMPARE(ran, 0);
        // Aborted tasks are kept, one per cancel, though their moment has passed.
        QVERIFY(s.CancelTask(1));
        QVERIFY(s.CancelTask(1));
        QVERIFY(!s.CancelTask(1));
    }

    void missedTaskStaysPendingAndDoesNotBlockLaterOnes()
    {
        retry([&](bool& missed) {
            UxScheduler s;
            QStringList ran;
            s.Schedule([&ran]() { ran << "missed"; }, 5, 1);
            QThread::msleep(30); // the event loop is blocked past the due time
            s.Schedule([&ran]() { ran << "later"; }, 40, 2);
            missed = !UxTest::spinUntil([&]() { return ran.contains("later"); }, 2000);
            UxTest::spin(30);
            QVERIFY(!ran.contains("missed"));
            if (!missed)
                QVERIFY(s.CancelTask(1));
        });
    }

    // Callbacks that cancel everything, re-arm, or delete the scheduler itself.
    void callbackMayCancelOrReschedule_data()
    {
        QTest::addColumn<bool>("reschedule");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("cancel all") << false << QStringList{"first"};
        QTest::newRow("cancel all and re-arm") << true << QStringList{"first", "inner"};
    }
    void callbackMayCancelOrReschedule()
    {
        QFETCH(bool, reschedule);
        QFETCH(QStringList, expected);
        retry([&](bool& missed) {
            UxScheduler s;
            QStringList ran;
            s.Schedule(
                [&]() {
                    ran << "first";
                    s.CancelAll();
                    if (reschedule)
                        s.Schedule([&ran]() { ran << "inner"; }, 30, 1);
                },
                30, 1);
            s.Schedule([&ran]() { ran << "second"; }, 30, 2);
            s.Schedule([&ran]() { ran << "third"; }, 60, 3);
            missed = !UxTest::spinUntil([&]() { return ran.size() == expected.size(); }, 2000);
            UxTest::spin(100);
            if (!missed)
                QCOMPARE(ran, expected);
        });
    }

    void callbackMayDeleteTheScheduler()
    {
        retry([&](bool& missed) {
            QPointer<UxScheduler> s = new UxScheduler;
            int ran = 0;
            s->Schedule(
                [&]() {
                    ++ran;
                    delete s.data();
                },
                20, 1);
            s->Schedule([&ran]() { ran += 10; }, 20, 2);
            missed = !UxTest::spinUntil([&]() { return s.isNull(); }, 2000);
            delete s.data();
            UxTest::spin(30);
            QVERIFY(missed || ran == 1);
        });
    }
};

UX_TEST_MAIN(TstScheduler)
#include "tst_scheduler.moc"
