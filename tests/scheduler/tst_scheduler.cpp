#include "uxtestenv.h"

#include "uxscheduler.h"

#include <QPointer>
#include <QThread>

#include <functional>
#include <memory>

// The scheduler drops, by design, a task whose poll comes more than 2 ms
// late. A loaded machine can stall the event loop that long, so a run in
// which an expected task never came is repeated; a wrong order, a task that
// should not have run, or a crash fails at once.
static const int kAttempts = 5;


class TstScheduler : public QObject
{
    Q_OBJECT

private:
    // One attempt; sets MISSED when an expected task did not run in time.
    using Attempt = std::function<void(bool& missed)>;

    void retry(const Attempt& attempt)
    {
        for (int i = 0; i < kAttempts; ++i) {
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
        QTest::newRow("equal delays keep scheduling order") << QList<uint>{40, 40, 40, 40} << QList<uint>{1, 2, 3, 4};
        QTest::newRow("earliest due first") << QList<uint>{150, 20, 80} << QList<uint>{2, 3, 1};
        QTest::newRow("mixed with ties") << QList<uint>{90, 30, 90, 30} << QList<uint>{2, 4, 1, 3};
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
            UxTest::spinUntil([&]() { return order.size() == expected.size(); }, 2000);
            if (order.size() == expected.size()) {
                QCOMPARE(order, expected);
                return;
            }
            // A missed task leaves a gap; what did run must still be in order.
            QList<uint> filtered;
            for (uint id : expected) {
                if (order.contains(id))
                    filtered << id;
            }
            QCOMPARE(order, filtered);
            missed = true;
        });
    }

    void cancelTaskUnknownIdChangesNothing()
    {
        retry([&](bool& missed) {
            UxScheduler s;
            int ran = 0;
            s.Schedule([&ran]() { ++ran; }, 30, 5);
            QVERIFY(!s.CancelTask(6));
            if (!UxTest::spinUntil([&]() { return ran == 1; }, 2000))
                missed = true;
        });
    }

    void cancelTaskRemovesEarliestOfSameId()
    {
        retry([&](bool& missed) {
            UxScheduler s;
            QStringList ran;
            s.Schedule([&ran]() { ran << "late"; }, 200, 7);
            s.Schedule([&ran]() { ran << "early"; }, 40, 7);
            s.Schedule([&ran]() { ran << "other"; }, 80, 8);
            QVERIFY(s.CancelTask(7));
            if (!UxTest::spinUntil([&]() { return ran.size() == 2; }, 2000)) {
                QVERIFY(!ran.contains("early"));
                missed = true;
                return;
            }
            UxTest::spin(50);
            QCOMPARE(ran, QStringList({"other", "late"}));
        });
    }

    void cancelTaskCountsDuplicates()
    {
        UxScheduler s;
        s.Schedule([]() {}, 10000, 3);
        s.Schedule([]() {}, 20000, 3);
        QVERIFY(s.CancelTask(3));
        QVERIFY(s.CancelTask(3));
        QVERIFY(!s.CancelTask(3));
    }

    void cancelAllDropsEverythingUntilNextSchedule()
    {
        retry([&](bool& missed) {
            UxScheduler s;
            QStringList ran;
            s.Schedule([&ran]() { ran << "a"; }, 20, 1);
            s.Schedule([&ran]() { ran << "b"; }, 20, 2);
            s.CancelAll();
            QVERIFY(!s.CancelTask(1));
            QVERIFY(!s.CancelTask(2));
            UxTest::spin(100);
            QVERIFY(ran.isEmpty());

            s.Schedule([&ran]() { ran << "c"; }, 20, 3);
            if (!UxTest::spinUntil([&]() { return !ran.isEmpty(); }, 2000)) {
                missed = true;
                return;
            }
            QCOMPARE(ran, QStringList{"c"});
        });
    }

    void abortKeepsTasksButRunsNothing()
    {
        UxScheduler s;
        int ran = 0;
        s.Schedule([&ran]() { ++ran; }, 20, 1);
        s.Abort();
        UxTest::spin(100);
        QCOMPARE(ran, 0);
        // Kept, but its moment has passed: it never runs and stays until cancelled.
        QVERIFY(s.CancelTask(1));
    }

    void missedTaskStaysPendingAndDoesNotBlockLaterOnes()
    {
        retry([&](bool& missed) {
            UxScheduler s;
            QStringList ran;
            s.Schedule([&ran]() { ran << "missed"; }, 5, 1);
            QThread::msleep(30); // the event loop is blocked past the due time
            s.Schedule([&ran]() { ran << "later"; }, 40, 2);
            if (!UxTest::spinUntil([&]() { return ran.contains("later"); }, 2000)) {
                QVERIFY(!ran.contains("missed"));
                missed = true;
                return;
            }
            UxTest::spin(30);
            QCOMPARE(ran, QStringList{"later"});
            QVERIFY(s.CancelTask(1));
            QVERIFY(!s.CancelTask(1));
        });
    }

    void callbackMayCancelEverything()
    {
        retry([&](bool& missed) {
            UxScheduler s;
            QStringList ran;
            s.Schedule(
                [&]() {
                    ran << "first";
                    s.CancelAll();
                },
                30, 1);
            s.Schedule([&ran]() { ran << "second"; }, 30, 2);
            s.Schedule([&ran]() { ran << "third"; }, 60, 3);
            if (!UxTest::spinUntil([&]() { return !ran.isEmpty(); }, 2000)) {
                missed = true;
                return;
            }
            UxTest::spin(100);
            QCOMPARE(ran, QStringList{"first"});
            QVERIFY(!s.CancelTask(3));
        });
    }

    void callbackMayScheduleAgain()
    {
        retry([&](bool& missed) {
            UxScheduler s;
            QStringList ran;
            s.Schedule(
                [&]() {
                    ran << "outer";
                    // The usual re-arm: drop everything, then schedule afresh.
                    s.CancelAll();
                    s.Schedule([&ran]() { ran << "inner"; }, 30, 1);
                },
                20, 1);
            if (!UxTest::spinUntil([&]() { return ran.size() == 2; }, 2000)) {
                QVERIFY(ran.size() <= 1);
                missed = true;
                return;
            }
            QCOMPARE(ran, QStringList({"outer", "inner"}));
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
            if (!UxTest::spinUntil([&]() { return s.isNull(); }, 2000)) {
                delete s.data();
                missed = true;
                return;
            }
            UxTest::spin(30);
            QCOMPARE(ran, 1);
        });
    }

    void destructionDropsPendingTasks()
    {
        int ran = 0;
        {
            UxScheduler s;
            s.Schedule([&ran]() { ++ran; }, 20, 1);
        }
        UxTest::spin(80);
        QCOMPARE(ran, 0);
    }
};

UX_TEST_MAIN(TstScheduler)
#include "tst_scheduler.moc"
