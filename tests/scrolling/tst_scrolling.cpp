#include "uxtestenv.h"

#include "uxscrollarea.h"
#include "uxviewscrollbarexpand.h"

#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <QWheelEvent>

#include <memory>

// The overlays hide through the scheduler, which drops a hide whose poll came
// more than 2 ms late (by design). A loaded machine can stall the loop that
// long, so a run in which the hide never came is repeated.
static const int kAttempts = 4;

namespace {

std::unique_ptr<QListWidget> makeList(int items, const QSize& size = QSize(200, 150))
{
    auto list = std::make_unique<QListWidget>();
    for (int i = 0; i < items; ++i)
        list->addItem(QStringLiteral("item %1").arg(i));
    list->resize(size);
    list->show();
    return list;
}

QScrollBar* vOverlay(QAbstractItemView* view)
{
    return view->findChild<QScrollBar*>(QStringLiteral("UxViewScrollbarExpandV"), Qt::FindDirectChildrenOnly);
}

QScrollBar* hOverlay(QAbstractItemView* view)
{
    return view->findChild<QScrollBar*>(QStringLiteral("UxViewScrollbarExpandH"), Qt::FindDirectChildrenOnly);
}

void sendEnter(QWidget* w)
{
    QEvent e(QEvent::Enter);
    QCoreApplication::sendEvent(w, &e);
}

void sendLeave(QWidget* w)
{
    QEvent e(QEvent::Leave);
    QCoreApplication::sendEvent(w, &e);
}

bool sendWheel(QWidget* w, int dy)
{
    const QPointF pos(w->width() / 2.0, w->height() / 2.0);
    QWheelEvent e(pos, w->mapToGlobal(pos.toPoint()), QPoint(), QPoint(0, dy), Qt::NoButton, Qt::NoModifier,
                  Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(w, &e);
    return e.isAccepted();
}

bool waitHidden(QWidget* w, int ms)
{
    return UxTest::spinUntil([w]() { return !w->isVisible(); }, ms);
}

} // namespace

class TstScrolling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scrollAreaShowsBarsOnlyWhileHovered()
    {
        UxScrollArea area;
        auto* content = new QLabel(QStringLiteral("content"));
        content->setFixedSize(600, 600);
        area.setWidget(content);
        area.resize(200, 200);
        area.show();
        QVERIFY(QTest::qWaitForWindowExposed(&area));
        QVERIFY(area.verticalScrollBar()->isHidden());
        QVERIFY(area.horizontalScrollBar()->isHidden());

        sendEnter(&area);
        QVERIFY(area.verticalScrollBar()->isVisible());
        QVERIFY(area.horizontalScrollBar()->isVisible());

        sendLeave(&area);
        QVERIFY(area.verticalScrollBar()->isHidden());
        QVERIFY(area.horizontalScrollBar()->isHidden());
    }

    void expanderTakesOverTheViewsScrollBars()
    {
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        QCOMPARE(list->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(list->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(list->verticalScrollMode(), QAbstractItemView::ScrollPerItem);
        QVERIFY(list->hasMouseTracking());
        QScrollBar* v = vOverlay(list.get());
        QScrollBar* h = hOverlay(list.get());
        QVERIFY(v && h);
        QVERIFY(v->isHidden());
        QVERIFY(h->isHidden());
        QCOMPARE(v->maximum(), list->verticalScrollBar()->maximum());
        QVERIFY(v->maximum() > 0);
    }

    void overlaysSitOnTheEdges_data()
    {
        QTest::addColumn<bool>("table");
        QTest::addColumn<bool>("headerHidden");
        QTest::newRow("list") << false << false;
        QTest::newRow("table below its header") << true << false;
        QTest::newRow("table without header") << true << true;
    }

    void overlaysSitOnTheEdges()
    {
        QFETCH(bool, table);
        QFETCH(bool, headerHidden);

        std::unique_ptr<QAbstractItemView> view;
        QStandardItemModel model(50, 3);
        int top = 0;
        if (table) {
            auto* t = new QTableView;
            t->setModel(&model);
            t->horizontalHeader()->setHidden(headerHidden);
            view.reset(t);
        } else {
            view = makeList(50);
        }
        view->resize(240, 180);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        if (table && !headerHidden)
            top = static_cast<QTableView*>(view.get())->horizontalHeader()->height();

        UxViewScrollbarExpand expand(view.get());
        QScrollBar* v = vOverlay(view.get());
        QScrollBar* h = hOverlay(view.get());
        QCOMPARE(v->geometry(), QRect(240 - 8, top, 8, 180 - top));
        QCOMPARE(h->geometry(), QRect(0, 180 - 8, 240 - 8, 8));

        view->resize(300, 220);
        QCOMPARE(v->geometry(), QRect(300 - 8, top, 8, 220 - top));
        QCOMPARE(h->geometry(), QRect(0, 220 - 8, 300 - 8, 8));
    }

    void contentThatFitsShowsNoOverlay()
    {
        auto list = makeList(2);
        UxViewScrollbarExpand expand(list.get());
        sendEnter(list.get());
        QVERIFY(vOverlay(list.get())->isHidden());
        QVERIFY(hOverlay(list.get())->isHidden());
    }

    void overlayShowsOnEnterAndHidesAfterStayTime()
    {
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        QScrollBar* v = vOverlay(list.get());
        for (int i = 0; i < kAttempts; ++i) {
            sendEnter(list.get());
            QVERIFY(v->isVisible());
            UxTest::spin(800);
            QVERIFY2(v->isVisible(), "hidden before the stay time");
            if (waitHidden(v, 6000))
                return;
        }
        QFAIL("the overlay never hid");
    }

    void everyActivityRestartsTheStayTime()
    {
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        QScrollBar* v = vOverlay(list.get());
        for (int i = 0; i < kAttempts; ++i) {
            sendEnter(list.get());
            UxTest::spin(1500);
            QVERIFY(v->isVisible());
            sendLeave(list.get()); // activity: rearms without hiding
            UxTest::spin(1000);
            QVERIFY2(v->isVisible(), "the second activity did not restart the stay time");
            if (waitHidden(v, 6000))
                return;
        }
        QFAIL("the overlay never hid");
    }

    void stayTimeIsConfigurable()
    {
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        expand.setScrollbarStayTime(100);
        QScrollBar* v = vOverlay(list.get());
        for (int i = 0; i < kAttempts; ++i) {
            sendEnter(list.get());
            QVERIFY(v->isVisible());
            // Well under the default 2000 ms.
            if (waitHidden(v, 1500))
                return;
        }
        QFAIL("the overlay never hid");
    }

    void wheelMovesByTwentyWithFixedBound_data()
    {
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("delta");
        QTest::addColumn<int>("expected"); // -1: the view's maximum

        QTest::newRow("down from the top") << 0 << -120 << 20;
        QTest::newRow("down below the bound") << 80 << -120 << 100;
        QTest::newRow("down at the bound jumps to the end") << 81 << -120 << -1;
        QTest::newRow("down far past the bound") << 150 << -120 << -1;
        QTest::newRow("up") << 50 << 120 << 30;
        QTest::newRow("up near the top goes to the start") << 19 << 120 << 0;
    }

    void wheelMovesByTwentyWithFixedBound()
    {
        QFETCH(int, start);
        QFETCH(int, delta);
        QFETCH(int, expected);

        auto list = makeList(300);
        QVERIFY(QTest::qWaitForWindowExposed(list.get()));
        UxViewScrollbarExpand expand(list.get());
        QScrollBar* own = list->verticalScrollBar();
        QVERIFY(own->maximum() > 200);
        own->setValue(start);
        QCOMPARE(vOverlay(list.get())->value(), start);
        if (expected < 0)
            expected = own->maximum();

        QVERIFY(sendWheel(list->viewport(), delta));
        QCOMPARE(own->value(), expected);
        QVERIFY(vOverlay(list.get())->isVisible());

        // The same rule holds for wheel events the view itself receives.
        own->setValue(start);
        sendWheel(list.get(), delta);
        QCOMPARE(own->value(), expected);
    }

    void overlayDrivesTheView()
    {
        auto list = makeList(300);
        UxViewScrollbarExpand expand(list.get());
        QSignalSpy pressed(list->verticalScrollBar(), &QScrollBar::sliderPressed);
        QSignalSpy released(list->verticalScrollBar(), &QScrollBar::sliderReleased);
        QScrollBar* v = vOverlay(list.get());
        v->setValue(37);
        QCOMPARE(list->verticalScrollBar()->value(), 37);
        emit v->sliderPressed();
        emit v->sliderReleased();
        QCOMPARE(pressed.count(), 1);
        QCOMPARE(released.count(), 1);
        QVERIFY(v->isVisible());
    }

    void viewMayDieFirst()
    {
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        expand.setScrollbarStayTime(50);
        sendEnter(list.get());
        list.reset();
        UxTest::spin(200);
        expand.HideScrollBar();
        expand.InitView();
    }

    void nullViewIsHarmless()
    {
        UxViewScrollbarExpand expand(nullptr);
        expand.InitView();
        expand.HideScrollBar();
        QCOMPARE(expand.scollbarStyle().left(12), QStringLiteral("QScrollBar:v"));
    }
};

UX_TEST_MAIN(TstScrolling)
#include "tst_scrolling.moc"
