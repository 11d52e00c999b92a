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

// Sends one event of TYPE with plausible contents to TARGET.
void send(QWidget* target, int type, int wheelDelta = -120)
{
    const QPoint at(5, 5);
    if (type == QEvent::Wheel) {
        QWheelEvent e(at, target->mapToGlobal(at), QPoint(), QPoint(0, wheelDelta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(target, &e);
    } else if (type == QEvent::MouseMove) {
        UxTest::sendMouse(target, QEvent::MouseMove, at, target->mapToGlobal(at), Qt::NoButton);
    } else if (type == QEvent::Resize) {
        QResizeEvent e(target->size(), QSize(1, 1));
        QCoreApplication::sendEvent(target, &e);
    } else {
        QEvent e{QEvent::Type(type)};
        QCoreApplication::sendEvent(target, &e);
    }
}

// Records what gets past the filters installed after it.
struct Witness : QObject
{
    QList<int> seen;
    bool eventFilter(QObject*, QEvent* e) override
    {
        seen << int(e->type());
        return false;
    }
};

} // namespace

class TstScrolling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contract()
    {
        auto list = makeList(50);
        UxViewScrollbarExpand expand(list.get());
        UxScrollArea area;
        QCOMPARE(QVariantList({list->verticalScrollBarPolicy(), list->horizontalScrollBarPolicy(),
                               list->verticalScrollMode(), list->horizontalScrollMode()}),
                 QVariantList({Qt::ScrollBarAlwaysOff, Qt::ScrollBarAlwaysOff, QAbstractItemView::ScrollPerItem,
                               QAbstractItemView::ScrollPerItem}));
        QVERIFY(list->hasMouseTracking() && area.hasMouseTracking());
        QVERIFY(overlay(list.get(), 'V')->isHidden() && overlay(list.get(), 'H')->isHidden());
        QVERIFY(!overlay(list.get(), 'V')->hasTracking());
        QCOMPARE(expand.scollbarStyle(), QStringLiteral(
            "QScrollBar:vertical{background:rgba(126,154,248,0.2);}QScrollBar::handle:vertical{background:#C1C1C1;}"
            "QScrollBar:horizontal {            background:rgba(126,154,248,0.2);}                                  "
            "QScrollBar::handle:horizontal {    background:#C1C1C1;}"));
        for (const char* slot : {"slotValueChanged(int)", "slotHorizentalValueChanged(int)"})
            QVERIFY2(UxViewScrollbarExpand::staticMetaObject.indexOfSlot(slot) >= 0, slot);
    }

    // Only a bar visible when the area is shown is hidden then; one that
    // becomes needed later shows until the mouse has come and gone.
    void scrollAreaBarsFollowTheMouse_data()
    {
        QTest::addColumn<int>("contentAtShow");
        QTest::newRow("needed at show") << 600;
        QTest::newRow("needed later") << 50;
    }
    void scrollAreaBarsFollowTheMouse()
    {
        QFETCH(int, contentAtShow);
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
        QCOMPARE(v->isVisible(), contentAtShow < 200);
        send(&area, QEvent::Leave);
        QVERIFY(!v->isVisible());
        send(&area, QEvent::Enter);
        QVERIFY(v->isVisible() && area.horizontalScrollBar()->isVisible());
    }

    // The overlays sit on the right and bottom edges (below a table's header)
    // and move the view, and the view them.
    void overlaysReplaceTheViewsBars()
    {
        QStandardItemModel model(50, 3);
        QTableView view;
        view.setModel(&model);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        const int top = view.horizontalHeader()->height();
        QVERIFY(top > 0);
        UxViewScrollbarExpand expand(&view);
        QScrollBar* v = overlay(&view, 'V');
        for (const QSize& s : {QSize(240, 180), QSize(300, 220)}) {
            view.resize(s);
            QCOMPARE(v->geometry(), QRect(s.width() - 8, top, 8, s.height() - top));
            QCOMPARE(overlay(&view, 'H')->geometry(), QRect(0, s.height() - 8, s.width() - 8, 8));
        }
        QCOMPARE(v->maximum(), view.verticalScrollBar()->maximum());
        v->setValue(7);
        QCOMPARE(view.verticalScrollBar()->value(), 7);
        view.verticalScrollBar()->setValue(3);
        QCOMPARE(v->value(), 3);
    }

    // What shows the overlays; content that fits shows none.
    void activityShowsTheOverlay_data()
    {
        QTest::addColumn<int>("items");
        QTest::addColumn<QString>("activity");
        QTest::addColumn<bool>("shown");
        QTest::newRow("enter") << 100 << "enter" << true;
        QTest::newRow("enter, content fits") << 2 << "enter" << false;
        QTest::newRow("leave") << 100 << "leave" << false;
        QTest::newRow("move over the side bar") << 100 << "V" << true;
        QTest::newRow("move over the bottom bar") << 100 << "H" << true;
        QTest::newRow("move elsewhere") << 100 << "move" << false;
        QTest::newRow("click an item") << 100 << "click" << true;
        QTest::newRow("press the slider") << 100 << "press" << true;
    }
    void activityShowsTheOverlay()
    {
        QFETCH(int, items);
        QFETCH(QString, activity);
        QFETCH(bool, shown);
        auto list = makeList(items);
        QVERIFY(QTest::qWaitForWindowExposed(list.get()));
        UxViewScrollbarExpand expand(list.get());
        QScrollBar* v = overlay(list.get(), 'V');
        QSignalSpy pressed(list->verticalScrollBar(), &QScrollBar::sliderPressed);
        if (activity.size() == 1) {
            const QPoint at = overlay(list.get(), activity.at(0).toLatin1())->geometry().center();
            UxTest::sendMouse(list.get(), QEvent::MouseMove, at, list->mapToGlobal(at), Qt::NoButton);
        } else if (activity == QLatin1String("click")) {
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
        } else if (activity == QLatin1String("press")) {
            emit v->sliderPressed();
        } else {
            send(list.get(), activity == QLatin1String("enter") ? QEvent::Enter
                             : activity == QLatin1String("leave") ? QEvent::Leave : QEvent::MouseMove);
        }
        QCOMPARE(v->isVisible(), shown);
        QVERIFY(!overlay(list.get(), 'H')->isVisible()); // the items are narrow
        QCOMPARE(pressed.count(), activity == QLatin1String("press") ? 1 : 0); // owners still see drags
    }

    // The overlays hide 2000 ms after the last activity. The hide runs through
    // the scheduler, which drops a poll that comes more than 2 ms late; a run in
    // which the hide never came is repeated.
    void overlayHidesAfterTheStayTime_data()
    {
        QTest::addColumn<uint>("stayTime"); // 0: the default
        QTest::addColumn<int>("expectedMs"); // after the last activity
        QTest::newRow("default") << 0u << 2000;
        QTest::newRow("activity restarts the stay") << 150u << 150;
    }
    void overlayHidesAfterTheStayTime()
    {
        QFETCH(uint, stayTime);
        QFETCH(int, expectedMs);
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        if (stayTime)
            expand.setScrollbarStayTime(stayTime);
        QScrollBar* v = overlay(list.get(), 'V');
        for (int attempt = 0; attempt < 4; ++attempt) {
            send(list.get(), QEvent::Enter);
            if (stayTime) {
                UxTest::spin(100);
                QVERIFY(v->isVisible());
                send(list.get(), QEvent::Leave); // activity: rearms without hiding
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
        send(onViewport ? list->viewport() : list.get(), QEvent::Wheel, delta);
        QCOMPARE(own->value(), expected < 0 ? own->maximum() : expected);
        QCOMPARE(overlay(list.get(), 'V')->isVisible(), !onViewport);
    }

    // The expander only watches: every event still reaches the view, and
    // anything else the filter was put on.
    void filterNeverSwallows_data()
    {
        QTest::addColumn<bool>("onView");
        QTest::addColumn<int>("type");
        for (int type : {QEvent::KeyPress, QEvent::Resize, QEvent::Enter, QEvent::Leave, QEvent::Wheel, QEvent::MouseMove})
            QTest::addRow("view, event %d", type) << true << type;
        for (int type : {QEvent::Enter, QEvent::Resize, QEvent::Wheel})
            QTest::addRow("other object, event %d", type) << false << type;
    }
    void filterNeverSwallows()
    {
        QFETCH(bool, onView);
        QFETCH(int, type);
        auto list = makeList(100);
        QWidget other;
        QWidget* target = onView ? static_cast<QWidget*>(list.get()) : &other;
        Witness witness;
        target->installEventFilter(&witness); // runs after the filters installed later
        UxViewScrollbarExpand expand(list.get());
        other.installEventFilter(&expand);
        witness.seen.clear();
        if (type == QEvent::KeyPress) {
            list->setCurrentRow(0);
            QTest::keyClick(list.get(), Qt::Key_Down);
            QCOMPARE(list->currentRow(), 1);
        } else {
            send(target, type);
        }
        QVERIFY(witness.seen.contains(type));
    }

    void viewMayDieFirstOrBeNull()
    {
        auto list = makeList(100);
        UxViewScrollbarExpand expand(list.get());
        expand.setScrollbarStayTime(50);
        send(list.get(), QEvent::Enter);
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
