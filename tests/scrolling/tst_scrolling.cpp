#include "uxtestenv.h"

#include "uxscrollarea.h"
#include "uxviewscrollbarexpand.h"

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

bool sendWheel(QWidget* w, int dy)
{
    const QPointF pos(w->width() / 2.0, w->height() / 2.0);
    QWheelEvent e(pos, w->mapToGlobal(pos.toPoint()), QPoint(), QPoint(0, dy), Qt::NoButton, Qt::NoModifier,
                  Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(w, &e);
    return e.isAccepted();
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
        const QList<QScrollBar*> bars{area.verticalScrollBar(), area.horizontalScrollBar()};
        for (QScrollBar* bar : bars)
            QVERIFY(bar->isHidden());
        sendPlain(&area, QEvent::Enter);
        for (QScrollBar* bar : bars)
            QVERIFY(bar->isVisible());
        sendPlain(&area, QEvent::Leave);
        for (QScrollBar* bar : bars)
            QVERIFY(bar->isHidden());
    }

    void expanderTakesOverTheViewsScrollBars()
    {
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        QCOMPARE(list->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(list->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(list->verticalScrollMode(), QAbstractItemView::ScrollPerItem);
        QScrollBar* v = overlay(list.get(), 'V');
        QVERIFY(v && overlay(list.get(), 'H'));
        QVERIFY(v->isHidden() && overlay(list.get(), 'H')->isHidden());
        QVERIFY(v->maximum() > 0);
        QCOMPARE(v->maximum(), list->verticalScrollBar()->maximum());

        auto small = makeList(2); // content that fits shows no overlay on hover
        UxViewScrollbarExpand smallExpand(small.get());
        sendPlain(small.get(), QEvent::Enter);
        QVERIFY(overlay(small.get(), 'V')->isHidden() && overlay(small.get(), 'H')->isHidden());
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
        const int top = table && !headerHidden ? static_cast<QTableView*>(view.get())->horizontalHeader()->height() : 0;

        UxViewScrollbarExpand expand(view.get());
        for (const QSize& s : {QSize(240, 180), QSize(300, 220)}) {
            view->resize(s);
            QCOMPARE(overlay(view.get(), 'V')->geometry(), QRect(s.width() - 8, top, 8, s.height() - top));
            QCOMPARE(overlay(view.get(), 'H')->geometry(), QRect(0, s.height() - 8, s.width() - 8, 8));
        }
    }

    // The hide runs through the scheduler, which drops a poll more than 2 ms
    // late (by design); a run in which the hide never came is repeated.
    void overlayHidesAfterTheStayTime_data()
    {
        QTest::addColumn<uint>("stayTime"); // 0: the default 2000 ms
        QTest::addColumn<int>("secondActivityAfter"); // 0: none
        QTest::addColumn<int>("stillVisibleAfter");
        QTest::addColumn<int>("hiddenWithin");
        QTest::newRow("default") << 0u << 0 << 800 << 6000;
        QTest::newRow("activity restarts the stay") << 0u << 1500 << 1000 << 6000;
        QTest::newRow("configured") << 100u << 0 << 0 << 1500;
    }
    void overlayHidesAfterTheStayTime()
    {
        QFETCH(uint, stayTime);
        QFETCH(int, secondActivityAfter);
        QFETCH(int, stillVisibleAfter);
        QFETCH(int, hiddenWithin);
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        if (stayTime)
            expand.setScrollbarStayTime(stayTime);
        QScrollBar* v = overlay(list.get(), 'V');
        for (int attempt = 0; attempt < 4; ++attempt) {
            sendPlain(list.get(), QEvent::Enter);
            QVERIFY(v->isVisible());
            if (secondActivityAfter) {
                UxTest::spin(secondActivityAfter);
                QVERIFY(v->isVisible());
                sendPlain(list.get(), QEvent::Leave); // activity: rearms without hiding
            }
            UxTest::spin(stillVisibleAfter);
            QVERIFY2(v->isVisible(), "hidden before the stay time");
            if (UxTest::spinUntil([v]() { return !v->isVisible(); }, hiddenWithin))
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
        if (expected < 0)
            expected = own->maximum();
        // The same rule holds for wheel events on the viewport and on the view itself.
        for (QWidget* target : {list->viewport(), static_cast<QWidget*>(list.get())}) {
            own->setValue(start);
            QCOMPARE(overlay(list.get(), 'V')->value(), start);
            QVERIFY(sendWheel(target, delta) || target == list.get());
            QCOMPARE(own->value(), expected);
            QVERIFY(overlay(list.get(), 'V')->isVisible());
        }
    }

    void overlayDrivesTheView()
    {
        auto list = makeList(300);
        UxViewScrollbarExpand expand(list.get());
        QSignalSpy pressed(list->verticalScrollBar(), &QScrollBar::sliderPressed);
        QSignalSpy released(list->verticalScrollBar(), &QScrollBar::sliderReleased);
        QScrollBar* v = overlay(list.get(), 'V');
        v->setValue(37);
        QCOMPARE(list->verticalScrollBar()->value(), 37);
        emit v->sliderPressed();
        emit v->sliderReleased();
        QCOMPARE(pressed.count(), 1);
        QCOMPARE(released.count(), 1);
        QVERIFY(v->isVisible());
    }

    void viewMayDieFirstOrBeNull()
    {
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        expand.setScrollbarStayTime(50);
        sendPlain(list.get(), QEvent::Enter);
        list.reset();
        UxTest::spin(200);
        expand.HideScrollBar();
        expand.InitView();

        UxViewScrollbarExpand none(nullptr);
        none.InitView();
        none.HideScrollBar();
    }
};

UX_TEST_MAIN(TstScrolling)
#include "tst_scrolling.moc"
