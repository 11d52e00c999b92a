// The scroll area whose bars follow the mouse, and the overlay bars that replace an item view's own.

#include "uxtestenv.h"

#include "uxscrollarea.h"
#include "uxviewscrollbarexpand.h"

#include <QtWidgets>


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

QScrollBar* overlay(QAbstractItemView* view, char o) // 'V' or 'H'
{ return view->findChild<QScrollBar*>(QStringLiteral("UxViewScrollbarExpand") + o, Qt::FindDirectChildrenOnly); }

// Sends one event of TYPE with plausible contents to TARGET.
void send(QWidget* target, int type, char way = 'd') // wheel: 'd'own, 'u'p or 's'ideways
{
    const QPoint at(5, 5), angle(way == 's' ? -120 : 0, way == 'u' ? 120 : -120 * (way == 'd'));
    QWheelEvent wheel(at, at, QPoint(), angle, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QResizeEvent resize(target->size(), QSize(1, 1));
    QEvent plain{QEvent::Type(type)};
    QCoreApplication::sendEvent(target, type == QEvent::Wheel ? &wheel : type == QEvent::Resize ? &resize : &plain);
}

struct Witness : QObject // records what gets past the filters installed after it
{
    QList<int> seen;
    bool eventFilter(QObject*, QEvent* e) override { return seen << int(e->type()), false; }
};

} // namespace

class TstScrolling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Only a bar visible at show is hidden then; one needed later shows until the mouse comes and goes.
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
        QVERIFY(QTest::qWaitForWindowExposed(&area) && area.hasMouseTracking());
        content->setFixedSize(600, 600);
        QCoreApplication::processEvents();
        QScrollBar* v = area.verticalScrollBar();
        QCOMPARE(v->isVisible(), contentAtShow < 200);
        send(&area, QEvent::Leave);
        QVERIFY(!v->isVisible());
        send(&area, QEvent::Enter);
        QVERIFY(v->isVisible() && area.horizontalScrollBar()->isVisible());
    }

    // The overlays replace the view's bars: hidden at first, on the edges below the header, synced both ways.
    // The filter on another object passes its events on; the view may die first, or be absent.
    void overlaysReplaceTheViewsBars()
    {
        QStandardItemModel model(50, 3);
        auto view = std::make_unique<QTableView>();
        view->setModel(&model);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        const int top = view->horizontalHeader()->height();
        UxViewScrollbarExpand expand(view.get());
        QCOMPARE(QVariantList({view->verticalScrollBarPolicy(), view->horizontalScrollBarPolicy(),
                               view->verticalScrollMode(), view->horizontalScrollMode(), view->hasMouseTracking()}),
                 QVariantList({Qt::ScrollBarAlwaysOff, Qt::ScrollBarAlwaysOff, QAbstractItemView::ScrollPerItem,
                               QAbstractItemView::ScrollPerItem, true}));
        QCOMPARE(expand.scollbarStyle(), QStringLiteral(
            "QScrollBar:vertical{background:rgba(126,154,248,0.2);}QScrollBar::handle:vertical{background:#C1C1C1;}"
            "QScrollBar:horizontal {            background:rgba(126,154,248,0.2);}                                  "
            "QScrollBar::handle:horizontal {    background:#C1C1C1;}"));
        QScrollBar* v = overlay(view.get(), 'V');
        QVERIFY(v->isHidden() && overlay(view.get(), 'H')->isHidden() && !v->hasTracking());
        view->resize(300, 220);
        QCOMPARE(v->geometry(), QRect(292, top, 8, 220 - top));
        QCOMPARE(overlay(view.get(), 'H')->geometry(), QRect(0, 212, 292, 8));
        QCOMPARE(v->maximum(), view->verticalScrollBar()->maximum());
        v->setValue(7);
        QCOMPARE(view->verticalScrollBar()->value(), 7);
        view->verticalScrollBar()->setValue(3);
        QCOMPARE(v->value(), 3);
        overlay(view.get(), 'H')->setValue(1);
        QCOMPARE(view->horizontalScrollBar()->value(), 1);
        QWidget other;
        Witness witness;
        other.installEventFilter(&witness);
        other.installEventFilter(&expand);
        for (int type : {QEvent::Enter, QEvent::Leave, QEvent::Resize})
            send(&other, type);
        QCOMPARE(witness.seen, QList<int>({QEvent::Enter, QEvent::Leave, QEvent::Resize}));
        expand.setScrollbarStayTime(50);
        send(view.get(), QEvent::Enter);
        view.reset();
        UxTest::spin(100);
        expand.HideScrollBar();
        expand.InitView();
        UxViewScrollbarExpand none(nullptr);
        none.InitView();
    }

    // What shows the overlays and where the wheel takes the view: by 20 with the fixed bound 101 on the
    // view, Qt's own step over the items. The expander only watches: every event still reaches the view.
    void activity_data()
    {
        QTest::addColumn<int>("items");
        QTest::addColumn<int>("type"); // 0: a click on an item, 1: a press on the overlay
        QTest::addColumn<char>("at");  // mouse moves: over 'V', 'H' or elsewhere; wheel: 'd'own, 'u'p, over the 'i'tems
        QTest::addColumn<int>("start");
        QTest::addColumn<bool>("shown");
        QTest::addColumn<int>("value"); // afterwards; -1: the maximum
        const int wheel = QEvent::Wheel, lines = QApplication::wheelScrollLines();
        QTest::newRow("enter") << 100 << int(QEvent::Enter) << ' ' << 0 << true << 0;
        QTest::newRow("enter, content fits") << 2 << int(QEvent::Enter) << ' ' << 0 << false << 0;
        QTest::newRow("leave") << 100 << int(QEvent::Leave) << ' ' << 0 << false << 0;
        QTest::newRow("move over the side bar") << 100 << int(QEvent::MouseMove) << 'V' << 0 << true << 0;
        QTest::newRow("move over the bottom bar") << 100 << int(QEvent::MouseMove) << 'H' << 0 << true << 0;
        QTest::newRow("move elsewhere") << 100 << int(QEvent::MouseMove) << ' ' << 0 << false << 0;
        QTest::newRow("key press") << 100 << int(QEvent::KeyPress) << ' ' << 0 << false << 1;
        QTest::newRow("click an item") << 100 << 0 << ' ' << 0 << true << 1;
        QTest::newRow("press the overlay") << 100 << 1 << ' ' << 0 << true << 0;
        QTest::newRow("wheel down below the bound") << 300 << wheel << 'd' << 80 << true << 100;
        QTest::newRow("wheel down at the bound: to the end") << 300 << wheel << 'd' << 81 << true << -1;
        QTest::newRow("wheel up") << 300 << wheel << 'u' << 50 << true << 30;
        QTest::newRow("wheel up near the top: to the start") << 300 << wheel << 'u' << 19 << true << 0;
        QTest::newRow("wheel sideways") << 300 << wheel << 's' << 50 << true << 50;
        QTest::newRow("wheel over the items") << 300 << wheel << 'i' << 50 << false << 50 + lines;
    }
    void activity()
    {
        QFETCH(int, items);
        QFETCH(int, type);
        QFETCH(char, at);
        QFETCH(int, start);
        QFETCH(bool, shown);
        QFETCH(int, value);
        auto list = makeList(items);
        QVERIFY(QTest::qWaitForWindowExposed(list.get()));
        Witness witness;
        list->installEventFilter(&witness); // runs after the expander's
        UxViewScrollbarExpand expand(list.get());
        QScrollBar* v = overlay(list.get(), 'V');
        QSignalSpy pressed(list->verticalScrollBar(), &QScrollBar::sliderPressed);
        list->setCurrentRow(0);
        list->verticalScrollBar()->setValue(start);
        if (type == 0) {
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
        } else if (type == 1) {
            emit v->sliderPressed();
        } else if (type == QEvent::KeyPress) {
            QTest::keyClick(list.get(), Qt::Key_Down);
        } else if (type == QEvent::MouseMove) {
            const QPoint pos = at == ' ' ? QPoint(5, 5) : overlay(list.get(), at)->geometry().center();
            UxTest::sendMouse(list.get(), QEvent::MouseMove, pos, list->mapToGlobal(pos), Qt::NoButton);
        } else {
            send(at == 'i' ? list->viewport() : list.get(), type, at == 'i' ? 'd' : at);
        }
        QCOMPARE(v->isVisible(), shown);
        QVERIFY(!overlay(list.get(), 'H')->isVisible()); // the items are narrow
        QCOMPARE(pressed.count(), type == 1 ? 1 : 0); // owners still see drags
        QVERIFY(type < 2 || at == 'i' || witness.seen.contains(type));
        QCOMPARE(type == QEvent::Wheel ? list->verticalScrollBar()->value() : list->currentRow(),
                 value < 0 ? list->verticalScrollBar()->maximum() : value);
    }

    // The overlays hide 2000 ms after the last activity. The scheduler drops a poll more than 2 ms late,
    // so a run in which the hide never came is repeated.
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
};

UX_TEST_MAIN(TstScrolling)
#include "tst_scrolling.moc"
