// Window chrome: the shadow frame, the frameless helper and the sliding
// stacked widget.

#include "uxtestenv.h"

#include "framelesshelper.h"
#include "uxanimationstackedwidget.h"
#include "uxbaseshadowwidget.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPropertyAnimation>
#include <QRubberBand>
#include <QWindow>

namespace {

// The colours of the test's shadow pieces (tst_chrome.qrc).
const QRgb kTopLeft = qRgb(255, 0, 0);
const QRgb kLeft = qRgb(0, 255, 0);
const QRgb kBottomLeft = qRgb(0, 0, 255);
const QRgb kTop = qRgb(255, 255, 0);
const QRgb kBottom = qRgb(0, 255, 255);
const QRgb kRight = qRgb(255, 0, 255);
const QRgb kTopRight = qRgb(128, 0, 0);
const QRgb kBottomRight = qRgb(0, 128, 0);
const QRgb kBody = qRgb(255, 255, 255);

QImage paintedImage(QWidget* w)
{
    QImage image(w->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    w->render(&image, QPoint(), QRegion(), QWidget::DrawWindowBackground);
    return image;
}

QRgb opaque(const QImage& image, int x, int y)
{
    return image.pixel(x, y) | 0xff000000u;
}

class BlackFrameWidget : public UxBaseShadowWidget
{
public:
    void drawFrame(QPainter* painter) override { painter->fillRect(rect(), Qt::black); }
};

void sendMouse(QObject* target, QEvent::Type type, const QPoint& local, const QPoint& global,
               Qt::MouseButton button = Qt::LeftButton)
{
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
    QMouseEvent e(type, local, global, type == QEvent::MouseMove ? Qt::NoButton : button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &e);
}

class CountingWidget : public QWidget
{
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

class CountingWindow : public QWindow
{
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

QRubberBand* visibleRubberBand()
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* band = qobject_cast<QRubberBand*>(w)) {
            if (band->isVisible())
                return band;
        }
    }
    return nullptr;
}

} // namespace

class TstChrome : public QObject
{
    Q_OBJECT

private:
    // A shown 300 x 200 frameless top-level widget with an activated helper.
    struct Target
    {
        CountingWidget widget;
        FramelessHelper helper;
        QPoint origin;
        Target()
        {
            widget.setWindowFlags(Qt::FramelessWindowHint);
            widget.setGeometry(100, 100, 300, 200);
            helper.activateOn(&widget);
            widget.show();
            QVERIFY(QTest::qWaitForWindowExposed(&widget));
            origin = widget.frameGeometry().topLeft();
        }
        QPoint global(const QPoint& local) const { return origin + local; }
        void press(const QPoint& local) { sendMouse(&widget, QEvent::MouseButtonPress, local, global(local)); }
        void moveTo(const QPoint& local) { sendMouse(&widget, QEvent::MouseMove, local, global(local)); }
        void release(const QPoint& local) { sendMouse(&widget, QEvent::MouseButtonRelease, local, global(local)); }
        // A window's unset cursor reads as the arrow.
        int cursorShape() const { return int(widget.cursor().shape()); }
    };

private Q_SLOTS:
    void cleanup()
    {
        // Border width and title height are process-wide: back to the defaults.
        FramelessHelper helper;
        helper.setBorderWidth(5);
        helper.setTitleHeight(30);
    }

    // --- shadow frame -------------------------------------------------------

    void shadowPieces_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("border"); // -1: the default 8
        QTest::addColumn<QPoint>("point");
        QTest::addColumn<uint>("colour");
        const QSize s(200, 100);
        QTest::newRow("top-left corner") << s << -1 << QPoint(0, 0) << uint(kTopLeft);
        QTest::newRow("top edge starts after the corner") << s << -1 << QPoint(8, 0) << uint(kTop);
        QTest::newRow("top edge ends before the corner") << s << -1 << QPoint(191, 7) << uint(kTop);
        QTest::newRow("top-right corner") << s << -1 << QPoint(192, 0) << uint(kTopRight);
        QTest::newRow("left edge") << s << -1 << QPoint(0, 8) << uint(kLeft);
        QTest::newRow("right edge") << s << -1 << QPoint(192, 50) << uint(kRight);
        QTest::newRow("bottom-left corner") << s << -1 << QPoint(0, 92) << uint(kBottomLeft);
        QTest::newRow("bottom edge") << s << -1 << QPoint(100, 92) << uint(kBottom);
        QTest::newRow("bottom-right corner") << s << -1 << QPoint(199, 99) << uint(kBottomRight);
        QTest::newRow("body, top row") << s << -1 << QPoint(100, 8) << uint(kBody);
        QTest::newRow("body, right column") << s << -1 << QPoint(191, 50) << uint(kBody);
        QTest::newRow("zero border, top") << s << 0 << QPoint(100, 0) << uint(kBody);
        QTest::newRow("zero border, right") << s << 0 << QPoint(199, 50) << uint(kBody);
        // Narrower than two bands: the right corners start at x = 2 over the
        // left ones; nothing is clamped and no body shows.
        const QSize n(10, 10);
        QTest::newRow("narrow, top-left") << n << -1 << QPoint(1, 0) << uint(kTopLeft);
        QTest::newRow("narrow, top-right") << n << -1 << QPoint(5, 0) << uint(kTopRight);
        QTest::newRow("narrow, bottom-right") << n << -1 << QPoint(5, 9) << uint(kBottomRight);
        QTest::newRow("narrow, bottom-left") << n << -1 << QPoint(1, 9) << uint(kBottomLeft);
    }
    void shadowPieces()
    {
        QFETCH(QSize, size);
        QFETCH(int, border);
        QFETCH(QPoint, point);
        UxBaseShadowWidget w;
        w.resize(size);
        if (border >= 0)
            w.setWindowBorderWidth(border);
        QTEST(uint(opaque(paintedImage(&w), point.x(), point.y())), "colour");
    }

    void shadowFlags()
    {
        UxBaseShadowWidget w;
        QVERIFY(w.isWindow());
        QVERIFY(w.windowFlags().testFlag(Qt::FramelessWindowHint));
        QVERIFY(w.testAttribute(Qt::WA_TranslucentBackground));
        // The flag set is replaced, not or-ed into: a child stays a child.
        QWidget parent;
        UxBaseShadowWidget child(&parent);
        QCOMPARE(child.windowFlags(), Qt::WindowFlags(Qt::FramelessWindowHint));
    }

    void shadowDrawFrameSplit()
    {
        UxBaseShadowWidget plain;
        plain.resize(200, 100);
        const QImage own = paintedImage(&plain);

        // drawFrame paints what the widget paints for itself.
        QImage drawn(plain.size(), QImage::Format_ARGB32_Premultiplied);
        drawn.fill(Qt::transparent);
        {
            QPainter p(&drawn);
            plain.drawFrame(&p);
        }
        QCOMPARE(drawn, own);

        // Overriding drawFrame leaves the widget's own painting alone.
        BlackFrameWidget black;
        black.resize(200, 100);
        QCOMPARE(paintedImage(&black), own);
    }

    // --- frameless helper ---------------------------------------------------

    void edgeHits_data()
    {
        QTest::addColumn<int>("setup");
        QTest::addColumn<QPoint>("local");
        QTest::addColumn<int>("cursor");
        const int none = Qt::ArrowCursor;
        QTest::newRow("left band, inner limit") << 0 << QPoint(5, 100) << int(Qt::SizeHorCursor);
        QTest::newRow("just inside the left band") << 0 << QPoint(6, 100) << none;
        QTest::newRow("right band, inner limit") << 0 << QPoint(295, 100) << int(Qt::SizeHorCursor);
        QTest::newRow("just inside the right band") << 0 << QPoint(294, 100) << none;
        QTest::newRow("one pixel past right()") << 0 << QPoint(300, 100) << int(Qt::SizeHorCursor);
        QTest::newRow("two pixels past right()") << 0 << QPoint(301, 100) << none;
        QTest::newRow("top band, inner limit") << 0 << QPoint(150, 5) << int(Qt::SizeVerCursor);
        QTest::newRow("just below the top band") << 0 << QPoint(150, 6) << none;
        QTest::newRow("bottom band, inner limit") << 0 << QPoint(150, 195) << int(Qt::SizeVerCursor);
        QTest::newRow("one pixel past bottom()") << 0 << QPoint(150, 200) << int(Qt::SizeVerCursor);
        QTest::newRow("top-left corner") << 0 << QPoint(0, 0) << int(Qt::SizeFDiagCursor);
        QTest::newRow("bottom-right corner") << 0 << QPoint(299, 199) << int(Qt::SizeFDiagCursor);
        QTest::newRow("bottom-left corner") << 0 << QPoint(3, 197) << int(Qt::SizeBDiagCursor);
        QTest::newRow("top-right corner") << 0 << QPoint(297, 2) << int(Qt::SizeBDiagCursor);
        QTest::newRow("middle") << 0 << QPoint(150, 100) << none;
        QTest::newRow("maximized") << 1 << QPoint(0, 100) << none;
        QTest::newRow("not resizable") << 2 << QPoint(0, 100) << none;
        // Another helper's border width applies to every helper.
        QTest::newRow("shared border width") << 3 << QPoint(10, 100) << int(Qt::SizeHorCursor);
    }
    void edgeHits()
    {
        QFETCH(int, setup);
        QFETCH(QPoint, local);
        if (setup == 3) {
            FramelessHelper first;
            first.setBorderWidth(10);
            first.setBorderWidth(0); // ignored
        }
        Target t;
        if (setup == 1) {
            t.widget.showMaximized();
            t.origin = t.widget.frameGeometry().topLeft();
        }
        t.helper.setWidgetResizable(setup != 2);
        t.moveTo(local);
        QTEST(t.cursorShape(), "cursor");

        // A hover event inside the widget clears the edge cursor again.
        QHoverEvent inside(QEvent::HoverMove, QPointF(150, 100), QPointF(local));
        QCoreApplication::sendEvent(&t.widget, &inside);
        QCOMPARE(t.cursorShape(), int(Qt::ArrowCursor));
    }

    void titleDrag_data()
    {
        QTest::addColumn<int>("y");
        QTest::addColumn<int>("titleHeight"); // 0: the default 30
        QTest::addColumn<bool>("movable");
        QTest::addColumn<bool>("moves");
        QTest::newRow("last row of the title") << 29 << 0 << true << true;
        QTest::newRow("first row below the title") << 30 << 0 << true << false;
        QTest::newRow("below the top band") << 6 << 0 << true << true;
        QTest::newRow("not movable") << 15 << 0 << false << false;
        QTest::newRow("title height set by another helper") << 45 << 50 << true << true;
    }
    void titleDrag()
    {
        QFETCH(int, y);
        QFETCH(int, titleHeight);
        QFETCH(bool, movable);
        QFETCH(bool, moves);
        if (titleHeight) {
            FramelessHelper other;
            other.setTitleHeight(titleHeight);
            other.setTitleHeight(0); // ignored
        }
        Target t;
        t.helper.setWidgetMovable(movable);
        const QPoint before = t.widget.pos();
        t.press(QPoint(150, y));
        t.moveTo(QPoint(190, y + 25));
        t.release(QPoint(190, y + 25));
        if (moves)
            QTRY_COMPARE(t.widget.pos(), before + QPoint(40, 25));
        else
            QCOMPARE(t.widget.pos(), before);
        QCOMPARE(t.widget.size(), QSize(300, 200));
    }

    void resizeEdges_data()
    {
        QTest::addColumn<bool>("resizable");
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<QRect>("expected"); // relative to the original top-left
        QTest::newRow("right edge wider") << true << QPoint(298, 100) << QPoint(349, 100) << QRect(0, 0, 350, 200);
        QTest::newRow("not resizable") << false << QPoint(298, 100) << QPoint(349, 100) << QRect(0, 0, 300, 200);
        QTest::newRow("right edge to the minimum") << true << QPoint(298, 100) << QPoint(199, 100) << QRect(0, 0, 200, 200);
        QTest::newRow("right edge below the minimum is refused")
            << true << QPoint(298, 100) << QPoint(149, 100) << QRect(0, 0, 300, 200);
        QTest::newRow("left edge narrower") << true << QPoint(2, 100) << QPoint(50, 100) << QRect(50, 0, 250, 200);
        QTest::newRow("left edge below the minimum is refused")
            << true << QPoint(2, 100) << QPoint(150, 100) << QRect(0, 0, 300, 200);
        QTest::newRow("bottom edge taller") << true << QPoint(150, 198) << QPoint(150, 259) << QRect(0, 0, 300, 260);
        QTest::newRow("bottom edge below the minimum height is refused")
            << true << QPoint(150, 198) << QPoint(150, 80) << QRect(0, 0, 300, 200);
        QTest::newRow("top edge") << true << QPoint(150, 1) << QPoint(150, -20) << QRect(0, -20, 300, 220);
        QTest::newRow("top-left corner") << true << QPoint(1, 1) << QPoint(-10, -20) << QRect(-10, -20, 310, 220);
        QTest::newRow("bottom-right corner") << true << QPoint(299, 199) << QPoint(319, 229) << QRect(0, 0, 320, 230);
        QTest::newRow("corner: width refused, height applied")
            << true << QPoint(299, 199) << QPoint(100, 229) << QRect(0, 0, 300, 230);
        QTest::newRow("top-left corner past the opposite corner does nothing")
            << true << QPoint(1, 1) << QPoint(400, 300) << QRect(0, 0, 300, 200);
    }

    void resizeEdges()
    {
        QFETCH(bool, resizable);
        QFETCH(QPoint, press);
        QFETCH(QPoint, to);
        QFETCH(QRect, expected);
        Target t;
        t.helper.setWidgetResizable(resizable);
        t.widget.setMinimumSize(200, 100);
        t.press(press);
        t.moveTo(to);
        t.release(to);
        if (!resizable)
            QTest::qWait(50);
        QTRY_COMPARE(t.widget.frameGeometry(), expected.translated(t.origin));
    }

    // With a rubber band the widget stays put until the release.
    void rubberBand_data()
    {
        QTest::addColumn<bool>("onMove");
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<QRect>("expected"); // relative to the original top-left
        QTest::newRow("move") << true << QPoint(150, 10) << QPoint(170, 40) << QRect(20, 30, 300, 200);
        QTest::newRow("resize") << false << QPoint(298, 100) << QPoint(349, 100) << QRect(0, 0, 350, 200);
    }
    void rubberBand()
    {
        QFETCH(bool, onMove);
        QFETCH(QPoint, press);
        QFETCH(QPoint, to);
        QFETCH(QRect, expected);
        Target t;
        onMove ? t.helper.setRubberBandOnMove(true) : t.helper.setRubberBandOnResize(true);
        const QRect before = t.widget.frameGeometry();
        // A press that would do the other thing shows no band.
        t.press(onMove ? QPoint(298, 100) : QPoint(150, 100));
        QVERIFY(!visibleRubberBand());
        t.release(onMove ? QPoint(298, 100) : QPoint(150, 100));

        t.press(press);
        QRubberBand* band = visibleRubberBand();
        QVERIFY(band);
        QCOMPARE(band->geometry(), before);
        t.moveTo(to);
        QTRY_COMPARE(band->geometry(), expected.translated(t.origin));
        QCOMPARE(t.widget.frameGeometry(), before);
        t.release(to);
        QVERIFY(!band->isVisible());
        QTRY_COMPARE(t.widget.frameGeometry(), expected.translated(t.origin));
    }

    void widgetEventsAreConsumed()
    {
        Target t;
        t.press(QPoint(150, 100));
        t.release(QPoint(150, 100));
        QCOMPARE(t.widget.presses, 0);
        t.helper.removeFrom(&t.widget);
        t.press(QPoint(150, 100));
        QCOMPARE(t.widget.presses, 1);
    }

    void windowEventsArePassedOn()
    {
        CountingWindow window;
        window.setFlags(Qt::FramelessWindowHint | Qt::Window);
        window.setGeometry(100, 100, 300, 200);
        FramelessHelper helper;
        helper.activateOnQmlWidget(&window);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QPoint origin = window.frameGeometry().topLeft();
        sendMouse(&window, QEvent::MouseButtonPress, QPoint(150, 10), origin + QPoint(150, 10));
        QCOMPARE(window.presses, 1);
        sendMouse(&window, QEvent::MouseMove, QPoint(170, 40), origin + QPoint(170, 40));
        QTRY_COMPARE(window.frameGeometry().topLeft(), origin + QPoint(20, 30));
        sendMouse(&window, QEvent::MouseButtonRelease, QPoint(170, 40), origin + QPoint(170, 40));

        window.setFlags(Qt::Window);
        helper.removeQmlWidgetFrom(&window);
        QCOMPARE(window.flags(), Qt::WindowFlags(Qt::FramelessWindowHint | Qt::Window));
    }

    void removeAndDestructionRestoreWidgets()
    {
        QWidget w;
        QWidget kept;
        const Qt::WindowFlags original = w.windowFlags();
        {
            FramelessHelper helper;
            helper.setRubberBandOnMove(true);
            helper.activateOn(&w);
            helper.activateOn(&kept);
            QVERIFY(w.hasMouseTracking());
            QVERIFY(w.testAttribute(Qt::WA_Hover));
            w.setWindowFlags(Qt::FramelessWindowHint);
            kept.setWindowFlags(Qt::FramelessWindowHint);
            // A second activation keeps the first record and its saved flags.
            helper.activateOn(&w);
            helper.removeFrom(&w);
            QCOMPARE(w.windowFlags(), original);
            QVERIFY(!w.hasMouseTracking());
            QVERIFY(!w.testAttribute(Qt::WA_Hover));
            // Unknown and null widgets are ignored.
            QWidget stranger;
            helper.removeFrom(&stranger);
            helper.activateOn(nullptr);
        }
        QCOMPARE(kept.windowFlags(), original);
        QVERIFY(!kept.testAttribute(Qt::WA_Hover));
    }

    void targetsDeletedWhileActivated()
    {
        // Neither the helper's later calls nor its destruction touch them.
        FramelessHelper helper;
        auto* w = new QWidget;
        auto* window = new QWindow;
        helper.activateOn(w);
        helper.activateOnQmlWidget(window);
        delete w;
        delete window;
        helper.setRubberBandOnMove(true);

        // A fresh target may get the same address: it is activated afresh.
        auto* again = new QWidget;
        helper.activateOn(again);
        QVERIFY(again->testAttribute(Qt::WA_Hover));
        helper.removeFrom(again);
        QVERIFY(!again->testAttribute(Qt::WA_Hover));
        delete again;
    }

    // --- sliding stacked widget ---------------------------------------------

    void slideRange_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::newRow("BottomToTop") << int(UxAnimationStackedWidget::BottomToTop) << 150 << -150;
        QTest::newRow("TopToBottom") << int(UxAnimationStackedWidget::TopToBottom) << -150 << 150;
        QTest::newRow("LeftToRight") << int(UxAnimationStackedWidget::LeftToRight) << -150 << 150;
        QTest::newRow("RightToLeft") << int(UxAnimationStackedWidget::RightToLeft) << 150 << -150;
    }

    void slideRange()
    {
        QFETCH(int, type);
        QFETCH(int, from);
        QFETCH(int, to);
        UxAnimationStackedWidget w;
        auto* animation = w.findChild<QPropertyAnimation*>();
        QVERIFY(animation);
        w.setLength(301, UxAnimationStackedWidget::AnimationType(type));
        QCOMPARE(animation->startValue().toInt(), from);
        QCOMPARE(animation->endValue().toInt(), to);

        // A resize takes the range from the new width, whatever the direction.
        w.resize(200, 40);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(animation->startValue().toInt(), from * 100 / 150);
        QCOMPARE(animation->endValue().toInt(), to * 100 / 150);
    }

    void slidePaintsBothPages_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("length");
        QTest::addColumn<QPoint>("oldAtHalf");
        QTest::addColumn<QPoint>("newAtHalf");
        QTest::newRow("RightToLeft") << int(UxAnimationStackedWidget::RightToLeft) << 300 << QPoint(100, 20)
                                     << QPoint(200, 20);
        QTest::newRow("LeftToRight") << int(UxAnimationStackedWidget::LeftToRight) << 300 << QPoint(200, 20)
                                     << QPoint(100, 20);
        QTest::newRow("TopToBottom") << int(UxAnimationStackedWidget::TopToBottom) << 40 << QPoint(150, 30)
                                     << QPoint(150, 10);
        QTest::newRow("BottomToTop") << int(UxAnimationStackedWidget::BottomToTop) << 40 << QPoint(150, 10)
                                     << QPoint(150, 30);
    }

    void slidePaintsBothPages()
    {
        QFETCH(int, type);
        QFETCH(int, length);
        QFETCH(QPoint, oldAtHalf);
        QFETCH(QPoint, newAtHalf);
        UxAnimationStackedWidget w;
        QWidget* pages[2];
        const QColor colours[2] = {Qt::red, Qt::blue};
        for (int i = 0; i < 2; ++i) {
            pages[i] = new QWidget;
            QPalette pal;
            pal.setColor(QPalette::Window, colours[i]);
            pages[i]->setPalette(pal);
            pages[i]->setAutoFillBackground(true);
            w.addWidget(pages[i]);
        }
        w.resize(300, 40);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        w.setLength(length, UxAnimationStackedWidget::AnimationType(type));
        w.setEasingCurve(QEasingCurve::Linear);
        auto* animation = w.findChild<QPropertyAnimation*>();
        w.start(1);
        QCOMPARE(animation->state(), QAbstractAnimation::Running);
        animation->pause();

        // At the start the new page lies wholly outside, the old one covers all.
        animation->setCurrentTime(0);
        QImage image = w.grab().toImage();
        QCOMPARE(image.pixelColor(5, 2), QColor(Qt::red));
        QCOMPARE(image.pixelColor(295, 37), QColor(Qt::red));

        // Half way both pages share the widget.
        animation->setCurrentTime(animation->duration() / 2);
        image = w.grab().toImage();
        QCOMPARE(image.pixelColor(oldAtHalf), QColor(Qt::red));
        QCOMPARE(image.pixelColor(newAtHalf), QColor(Qt::blue));
    }

    void indexChangesOnlyAfterTheSlide()
    {
        UxAnimationStackedWidget w;
        w.addWidget(new QWidget);
        w.addWidget(new QWidget);
        w.resize(200, 40);
        w.setDuration(300);
        QSignalSpy spy(&w, &UxAnimationStackedWidget::signalFrameIndexChanged);
        w.start(1);
        QCOMPARE(spy.count(), 0);
        QCOMPARE(w.currentIndex(), 0);
        QTRY_COMPARE_WITH_TIMEOUT(spy.count(), 1, 10000);
        QCOMPARE(spy.at(0).at(0).toInt(), 1);
        QCOMPARE(w.currentIndex(), 1);
    }

    void refusedStarts()
    {
        UxAnimationStackedWidget w;
        w.addWidget(new QWidget);
        w.addWidget(new QWidget);
        auto* animation = w.findChild<QPropertyAnimation*>();

        w.start(-1);
        QCOMPARE(animation->state(), QAbstractAnimation::Stopped);
        w.start(5);
        QCOMPARE(animation->state(), QAbstractAnimation::Stopped);

        w.slotControlAni(true);
        w.start(1);
        QCOMPARE(animation->state(), QAbstractAnimation::Stopped);
        w.slotControlAni(false);

        // stop() leaves the widget refusing until resetNum().
        w.start(1);
        QCOMPARE(animation->state(), QAbstractAnimation::Running);
        w.stop();
        w.start(0);
        QCOMPARE(animation->state(), QAbstractAnimation::Stopped);
        w.slotControlAni(true);
        w.resetNum();
        w.start(1);
        QCOMPARE(animation->state(), QAbstractAnimation::Running);
    }
};

UX_TEST_MAIN(TstChrome)
#include "tst_chrome.moc"
