// Scroll-bar helpers: the scroll area that shows its bars only under the
// mouse, and the overlay bars that replace an item view's own.

#include "uxtestenv.h"

#include "uxscrollarea.h"
#include "uxviewscrollbarexpand.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <QWheelEvent>

#include <memory>

namespace {

std::unique_ptr<QListWidget> makeList(int items)
{
    auto list = std::make_unique<QListWidget>();
    for (int i = 0; i < items; ++i)
        list->addItem(QStringLiteral("item %1").arg(i));
    list->resize(200, 150);
    list->show();
    return list;
}

QScrollBar* overlay(QAbstractItemView* view, char orientation)
{
    return view->findChild<QScrollBar*>(QStringLiteral("UxViewScrollbarExpand") + QLatin1Char(orientation),
                                        Qt::FindDirectChildrenOnly);
}

void sendPlain(QWidget* w, QEvent::Type type)
{
    QEvent e(type);
    QCoreApplication::sendEvent(w, &e);
}

void sendWheel(QWidget* w, int dy)
{
    const QPointF pos(w->width() / 2.0, w->height() / 2.0);
    QWheelEvent e(pos, w->mapToGlobal(pos.toPoint()), QPoint(), QPoint(0, dy), Qt::NoButton, Qt::NoModifier,
                  Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(w, &e);
}

} // namespace

class TstScrolling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Only a bar visible when the area is shown is hidden then; one that
    // becomes needed later shows until the mouse has come and gone.
    void scrollAreaBarsFollowTheMouse_data()
    {
        QTest::addColumn<int>("contentAtShow");
        QTest::addColumn<bool>("visibleAfterGrowth");
        QTest::newRow("needed at show") << 600 << false;
        QTest::newRow("needed later") << 50 << true;
    }
    void scrollAreaBarsFollowTheMouse()
    {
        QFETCH(int, contentAtShow);
        QFETCH(bool, visibleAfterGrowth);
        UxScrollArea area;
        auto* content = new QLabel(QStringLiteral("content"));
        content->setFixedSize(contentAtShow, contentAtShow);
        area.setWidget(content);
        area.resize(200, 200);
        area.show();
        QVERIFY(QTest::qWaitForWindowExposed(&area));
        content->setFixedSize(600, 600);
        QCoreApplication::processEvents();
        QScrollBar* v = area.verticalScrollBar();
        QCOMPARE(v->isVisible(), visibleAfterGrowth);
        sendPlain(&area, QEvent::Leave);
        QVERIFY(!v->isVisible());
        sendPlain(&area, QEvent::Enter);
        QVERIFY(v->isVisible() && area.horizontalScrollBar()->isVisible());
    }

    void overlaysReplaceTheViewsBars_data()
    {
        QTest::addColumn<bool>("table");
        QTest::newRow("list") << false;
        QTest::newRow("table below its header") << true;
    }
    void overlaysReplaceTheViewsBars()
    {
        QFETCH(bool, table);
        std::unique_ptr<QAbstractItemView> view;
        QStandardItemModel model(50, 3);
        if (table) {
            view.reset(new QTableView);
            view->setModel(&model);
        } else {
            view = makeList(50);
        }
        view->resize(240, 180);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        const int top = table ? static_cast<QTableView*>(view.get())->horizontalHeader()->height() : 0;
        QVERIFY(!table || top > 0);

        UxViewScrollbarExpand expand(view.get());
        QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view->verticalScrollMode(), QAbstractItemView::ScrollPerItem);
        QCOMPARE(view->horizontalScrollMode(), QAbstractItemView::ScrollPerItem);
        QScrollBar* v = overlay(view.get(), 'V');
        QVERIFY(v->isHidden() && overlay(view.get(), 'H')->isHidden());
        QVERIFY(!v->hasTracking());
        for (const QSize& s : {QSize(240, 180), QSize(300, 220)}) {
            view->resize(s);
            QCOMPARE(v->geometry(), QRect(s.width() - 8, top, 8, s.height() - top));
            QCOMPARE(overlay(view.get(), 'H')->geometry(), QRect(0, s.height() - 8, s.width() - 8, 8));
        }
        // The overlay and the view's own bar move each other.
        QCOMPARE(v->maximum(), view->verticalScrollBar()->maximum());
        v->setValue(7);
        QCOMPARE(view->verticalScrollBar()->value(), 7);
        view->verticalScrollBar()->setValue(3);
        QCOMPARE(v->value(), 3);
        sendPlain(view.get(), QEvent::Enter);
        QVERIFY(v->isVisible());

        auto small = makeList(2); // content that fits shows no overlay on hover
        UxViewScrollbarExpand smallExpand(small.get());
        sendPlain(small.get(), QEvent::Enter);
        QVERIFY(overlay(small.get(), 'V')->isHidden() && overlay(small.get(), 'H')->isHidden());
    }

    // The overlays hide 2000 ms after the last activity. The hide runs through
    // the scheduler, which drops a poll that comes more than 2 ms late; a run in
    // which the hide never came is repeated.
    void overlayHidesAfterTheStayTime_data()
    {
        QTest::addColumn<uint>("stayTime"); // 0: the default
        QTest::addColumn<int>("secondActivityAfter"); // 0: none
        QTest::addColumn<int>("expectedMs"); // after the last activity
        QTest::newRow("default") << 0u << 0 << 2000;
        QTest::newRow("activity restarts the stay") << 150u << 100 << 150;
    }
    void overlayHidesAfterTheStayTime()
    {
        QFETCH(uint, stayTime);
        QFETCH(int, secondActivityAfter);
        QFETCH(int, expectedMs);
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        if (stayTime)
            expand.setScrollbarStayTime(stayTime);
        QScrollBar* v = overlay(list.get(), 'V');
        for (int attempt = 0; attempt < 4; ++attempt) {
            sendPlain(list.get(), QEvent::Enter);
            if (secondActivityAfter) {
                UxTest::spin(secondActivityAfter);
                QVERIFY(v->isVisible());
                sendPlain(list.get(), QEvent::Leave); // activity: rearms without hiding
            }
            QElapsedTimer clock;
            clock.start();
            if (UxTest::spinUntil([v]() { return !v->isVisible(); }, expectedMs + 400)) {
                QVERIFY2(clock.elapsed() >= expectedMs - 5 && clock.elapsed() <= expectedMs + 150,
                         qPrintable(QString::number(clock.elapsed())));
                return;
            }
        }
        QFAIL("the overlay never hid");
    }

    // Wheel steps that reach the view itself move it by 20, with the fixed
    // bound 101; those over the items stay the view's own (Qt's step).
    void wheel_data()
    {
        QTest::addColumn<bool>("onViewport");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("delta");
        QTest::addColumn<int>("expected"); // -1: the view's maximum
        QTest::newRow("down from the top") << false << 0 << -120 << 20;
        QTest::newRow("down below the bound") << false << 80 << -120 << 100;
        QTest::newRow("down at the bound jumps to the end") << false << 81 << -120 << -1;
        QTest::newRow("up") << false << 50 << 120 << 30;
        QTest::newRow("up near the top goes to the start") << false << 19 << 120 << 0;
        QTest::newRow("over the items: Qt's step") << true << 50 << -120 << 50 + QApplication::wheelScrollLines();
    }
    void wheel()
    {
        QFETCH(bool, onViewport);
        QFETCH(int, start);
        QFETCH(int, delta);
        QFETCH(int, expected);
        auto list = makeList(300);
        QVERIFY(QTest::qWaitForWindowExposed(list.get()));
        UxViewScrollbarExpand expand(list.get());
        QScrollBar* own = list->verticalScrollBar();
        own->setValue(start);
        sendWheel(onViewport ? list->viewport() : list.get(), delta);
        QCOMPARE(own->value(), expected < 0 ? own->maximum() : expected);
        QCOMPARE(overlay(list.get(), 'V')->isVisible(), !onViewport);
    }

    void viewMayDieFirstOrBeNull()
    {
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        QSignalSpy pressed(list->verticalScrollBar(), &QScrollBar::sliderPressed);
        emit overlay(list.get(), 'V')->sliderPressed();
        QCOMPARE(pressed.count(), 1);
        expand.setScrollbarStayTime(50);
        sendPlain(list.get(), QEvent::Enter);
        list.reset();
        UxTest::spin(100);
        expand.HideScrollBar();
        expand.InitView();
        UxViewScrollbarExpand none(nullptr);
        none.InitView();
        none.HideScrollBar();
    }
};

UX_TEST_MAIN(TstScrolling)
#include "tst_scrolling.moc"
