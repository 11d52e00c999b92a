// Window chrome: the shadow frame (and the message box's shadow), the
// frameless helper, the sliding stacked widget and the flow layout.

#include "uxtestenv.h"

#include "framelesshelper.h"
#include "uxanimationstackedwidget.h"
#include "uxbaseshadowwidget.h"
#include "uxflowlayout.h"
#include "uxmessagebox.h"

#include <QBuffer>
#include <QPainter>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QRubberBand>
#include <QWindow>

namespace {

// One colour per shadow piece, in painting order; tst_chrome.qrc holds the
// same colours under ":/bg/".
const char* const kPieces[8] = {"top_left", "left", "bottom_left", "top", "bottom", "right", "top_right", "bottom_right"};
const QRgb kColours[8] = {qRgb(255, 0, 0),   qRgb(0, 255, 0),   qRgb(0, 0, 255), qRgb(255, 255, 0),
                          qRgb(0, 255, 255), qRgb(255, 0, 255), qRgb(128, 0, 0), qRgb(0, 128, 0)};

// The first pixel of the border band that differs from where each piece must
// go for a W x H widget with border B, or (-1, -1).
QPoint shadowMismatch(const QImage& actual, int b)
{
    const int w = actual.width(), h = actual.height();
    const QRect rects[8] = {{0, 0, b, b},         {0, b, b, h - 2 * b},     {0, h - b, b, b}, {b, 0, w - 2 * b, b},
                            {b, h - b, w - 2 * b, b}, {w - b, b, b, h - 2 * b}, {w - b, 0, b, b}, {w - b, h - b, b, b}};
    const QRect body = QRect(0, 0, w, h).adjusted(b, b, -b, -b);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            QRgb expected = 0;
            for (int i = 0; i < 8; ++i)
                expected = rects[i].contains(x, y) ? kColours[i] : expected;
            if (!body.contains(x, y) && actual.pixel(x, y) != expected)
                return QPoint(x, y);
        }
    return QPoint(-1, -1);
}

QImage rendered(QWidget* w)
{
    QImage image(w->size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    w->render(&image, QPoint(), QRegion(), QWidget::DrawWindowBackground | QWidget::DrawChildren);
    return image;
}

class BlackFrameWidget : public UxBaseShadowWidget
{
public:
    void drawFrame(QPainter* painter) override { painter->fillRect(rect(), Qt::black); }
};

template <class Base> class Counting : public Base
{
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

} // namespace

class TstChrome : public QObject
{
    Q_OBJECT

    // A shown 300 x 200 frameless top-level widget (minimum 200 x 100) with an activated helper.
    struct Target
    {
        Counting<QWidget> widget;
        FramelessHelper helper;
        QPoint origin;
        Target()
        {
            widget.setWindowFlags(Qt::FramelessWindowHint);
            widget.setGeometry(100, 100, 300, 200);
            widget.setMinimumSize(200, 100);
            helper.activateOn(&widget);
            widget.show();
            QVERIFY(QTest::qWaitForWindowExposed(&widget));
            origin = widget.frameGeometry().topLeft();
        }
        void send(QEvent::Type type, const QPoint& at) { UxTest::sendMouse(&widget, type, at, origin + at); }
        QRect relative() const { return widget.frameGeometry().translated(-origin); }
    };

private Q_SLOTS:
    void cleanup()
    {
        FramelessHelper helper; // the border width and title height are process-wide
        helper.setBorderWidth(5);
        helper.setTitleHeight(30);
    }

    void contract_data()
    {
        QTest::addColumn<QVariant>("actual");
        QTest::addColumn<QVariant>("expected");
        static FramelessHelper helper;
        QTest::newRow("border width 5") << QVariant(helper.borderWidth()) << QVariant(5u);
        QTest::newRow("title height 30") << QVariant(helper.titleHeight()) << QVariant(30u);
        QTest::newRow("movable, resizable") << QVariant(helper.widgetMovable() && helper.widgetResizable()) << QVariant(true);
        QTest::newRow("rubberBandOnResisze") << QVariant(helper.rubberBandOnMove() || helper.rubberBandOnResisze()) << QVariant(false);
        static UxAnimationStackedWidget stack;
        auto* animation = stack.findChild<QPropertyAnimation*>();
        QTest::newRow("slide 2000 ms") << QVariant(stack.getDuration()) << QVariant(2000);
        QTest::newRow("OutQuint") << QVariant(int(animation->easingCurve().type())) << QVariant(int(QEasingCurve::OutQuint));
        for (const char* sig : {"signalFrameIndexChanged(int)", "resetNum()", "slotControlAni(bool)", "start(int)",
                                "valueChanged(QVariant)", "animationFinished()"})
            QTest::newRow(sig) << QVariant(UxAnimationStackedWidget::staticMetaObject.indexOfMethod(sig) >= 0) << QVariant(true);
        QTest::newRow("2finished() -> 1animationFinished()")
            << QVariant(QObject::disconnect(animation, SIGNAL(finished()), &stack, SLOT(animationFinished()))) << QVariant(true);
        static UxFlowLayout flow(0, 0, 0);
        QTest::newRow("flow expands horizontally") << QVariant(int(flow.expandingDirections())) << QVariant(int(Qt::Horizontal));
        static QWidget parent;
        static UxBaseShadowWidget shadow(&parent);
        QTest::newRow("shadow flags replaced") << QVariant(int(shadow.windowFlags())) << QVariant(int(Qt::FramelessWindowHint));
        QTest::newRow("shadow translucent") << QVariant(shadow.testAttribute(Qt::WA_TranslucentBackground)) << QVariant(true);
    }
    void contract()
    {
        QFETCH(QVariant, actual);
        QTEST(actual, "expected");
    }

    void shadowPieces_data()
    {
        QTest::addColumn<int>("source"); // 0 own paint, 1 drawFrame, 2 message box, 3 overridden drawFrame
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("border"); // -1: the default
        QTest::newRow("default 200x100") << 0 << QSize(200, 100) << -1;
        QTest::newRow("drawFrame") << 1 << QSize(200, 100) << -1;
        QTest::newRow("border 5, odd size") << 0 << QSize(37, 23) << 5;
        QTest::newRow("border 0") << 0 << QSize(60, 40) << 0;
        QTest::newRow("message box") << 2 << QSize() << 4;
        QTest::newRow("override leaves own paint") << 3 << QSize(60, 40) << -1;
    }
    void shadowPieces()
    {
        QFETCH(int, source);
        QFETCH(int, border);
        QImage image;
        if (source == 2) {
            QMap<QString, QByteArray> files;
            for (int i = 0; i < 8; ++i) {
                QImage piece(4, 4, QImage::Format_RGB32);
                piece.fill(kColours[i]);
                QBuffer png;
                png.open(QIODevice::WriteOnly);
                piece.save(&png, "PNG");
                files.insert(QStringLiteral("bg/shadow_%1.png").arg(QLatin1String(kPieces[i])), png.data());
            }
            UxTest::writeSkin(QStringLiteral("shadows"), files);
            UxCore::instance()->setSkinRoot(UxTest::skinRoot());
            UxCore::instance()->setCurrentSkin(QStringLiteral("shadows"));
            UxMessageBox box(QStringLiteral("t"), QStringLiteral("x"), QMessageBox::Ok);
            image = rendered(&box);
            UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
        } else {
            QFETCH(QSize, size);
            BlackFrameWidget black;
            UxBaseShadowWidget plain;
            UxBaseShadowWidget& w = source == 3 ? black : plain;
            w.resize(size);
            if (border >= 0)
                w.setWindowBorderWidth(border);
            image = rendered(&w);
            if (source == 1) {
                image.fill(Qt::transparent);
                QPainter p(&image);
                w.drawFrame(&p);
            }
            QCOMPARE(image.pixel(size.width() / 2, size.height() / 2), qRgb(255, 255, 255));
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("border width out of range!")));
            w.setWindowBorderWidth(INT_MIN);
            rendered(&w); // clamped: no overflow in the rectangles
        }
        QCOMPARE(shadowMismatch(image, border < 0 ? 8 : border), QPoint(-1, -1));
    }

    void hoverCursor_data()
    {
        QTest::addColumn<int>("setup"); // 1 maximized, 2 not resizable, 3 border 10 set elsewhere, 4 border UINT_MAX
        QTest::addColumn<QPoint>("at");
        QTest::addColumn<int>("cursor");
        const int none = Qt::ArrowCursor, hor = Qt::SizeHorCursor, ver = Qt::SizeVerCursor;
        QTest::newRow("left band, inner limit") << 0 << QPoint(5, 100) << hor;
        QTest::newRow("inside the left band") << 0 << QPoint(6, 100) << none;
        QTest::newRow("inside the right band") << 0 << QPoint(294, 100) << none;
        QTest::newRow("one past right()") << 0 << QPoint(300, 100) << hor;
        QTest::newRow("two past right()") << 0 << QPoint(301, 100) << none;
        QTest::newRow("below the top band") << 0 << QPoint(150, 6) << none;
        QTest::newRow("top band") << 0 << QPoint(150, 5) << ver;
        QTest::newRow("above the bottom band") << 0 << QPoint(150, 194) << none;
        QTest::newRow("one past bottom()") << 0 << QPoint(150, 200) << ver;
        QTest::newRow("top-left") << 0 << QPoint(0, 0) << int(Qt::SizeFDiagCursor);
        QTest::newRow("bottom-right") << 0 << QPoint(299, 199) << int(Qt::SizeFDiagCursor);
        QTest::newRow("bottom-left") << 0 << QPoint(3, 197) << int(Qt::SizeBDiagCursor);
        QTest::newRow("top-right") << 0 << QPoint(297, 2) << int(Qt::SizeBDiagCursor);
        QTest::newRow("maximized") << 1 << QPoint(0, 100) << none;
        QTest::newRow("not resizable") << 2 << QPoint(0, 100) << none;
        QTest::newRow("shared border width") << 3 << QPoint(10, 100) << hor;
        QTest::newRow("huge border clamped") << 4 << QPoint(150, 100) << int(Qt::SizeFDiagCursor);
    }
    void hoverCursor()
    {
        QFETCH(int, setup);
        QFETCH(QPoint, at);
        if (setup >= 3) {
            FramelessHelper first;
            if (setup == 4)
                QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("value too large!.*4294967295")));
            first.setBorderWidth(setup == 3 ? 10 : UINT_MAX);
            first.setBorderWidth(0); // ignored
            QCOMPARE(first.borderWidth(), setup == 3 ? 10u : 16384u);
        }
        Target t;
        if (setup == 1) {
            t.widget.showMaximized();
            t.origin = t.widget.frameGeometry().topLeft();
        }
        t.helper.setWidgetResizable(setup != 2);
        t.send(QEvent::MouseMove, at);
        QTEST(int(t.widget.cursor().shape()), "cursor");
        QHoverEvent inside(QEvent::HoverMove, QPointF(150, 100), QPointF(at)); // clears it again
        QCoreApplication::sendEvent(&t.widget, &inside);
        QCOMPARE(int(t.widget.cursor().shape()), setup == 4 ? int(Qt::SizeFDiagCursor) : int(Qt::ArrowCursor));
    }

    void dragAndResize_data()
    {
        QTest::addColumn<int>("setup"); // 1 not movable, 2 not resizable, 3 title 50 set elsewhere,
                                        // 4 title 2^31 + 5, 5 band on move, 6 band on resize
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<QRect>("expected"); // relative to the original top-left
        const QRect same(0, 0, 300, 200);
        QTest::newRow("last title row drags") << 0 << QPoint(150, 29) << QPoint(190, 54) << QRect(40, 25, 300, 200);
        QTest::newRow("below the title") << 0 << QPoint(150, 30) << QPoint(190, 55) << same;
        QTest::newRow("not movable") << 1 << QPoint(150, 15) << QPoint(190, 40) << same;
        QTest::newRow("title set elsewhere") << 3 << QPoint(150, 45) << QPoint(190, 70) << QRect(40, 25, 300, 200);
        QTest::newRow("huge title clamped") << 4 << QPoint(150, 100) << QPoint(160, 110) << QRect(10, 10, 300, 200);
        QTest::newRow("band on move") << 5 << QPoint(150, 10) << QPoint(170, 40) << QRect(20, 30, 300, 200);
        QTest::newRow("right edge") << 0 << QPoint(298, 100) << QPoint(349, 100) << QRect(0, 0, 350, 200);
        QTest::newRow("band on resize") << 6 << QPoint(298, 100) << QPoint(349, 100) << QRect(0, 0, 350, 200);
        QTest::newRow("not resizable") << 2 << QPoint(298, 100) << QPoint(349, 100) << same;
        QTest::newRow("right below the minimum") << 0 << QPoint(298, 100) << QPoint(149, 100) << same;
        QTest::newRow("left edge") << 0 << QPoint(2, 100) << QPoint(50, 100) << QRect(50, 0, 250, 200);
        QTest::newRow("bottom edge") << 0 << QPoint(150, 198) << QPoint(150, 259) << QRect(0, 0, 300, 260);
        QTest::newRow("bottom below the minimum") << 0 << QPoint(150, 198) << QPoint(150, 80) << same;
        QTest::newRow("top edge") << 0 << QPoint(150, 1) << QPoint(150, -20) << QRect(0, -20, 300, 220);
        QTest::newRow("top-left") << 0 << QPoint(1, 1) << QPoint(-10, -20) << QRect(-10, -20, 310, 220);
        QTest::newRow("bottom-left") << 0 << QPoint(1, 199) << QPoint(-10, 219) << QRect(-10, 0, 310, 220);
        QTest::newRow("top-right") << 0 << QPoint(299, 1) << QPoint(309, -20) << QRect(0, -20, 310, 220);
        QTest::newRow("width refused, height kept") << 0 << QPoint(299, 199) << QPoint(100, 229) << QRect(0, 0, 300, 230);
        QTest::newRow("top-left past the far corner") << 0 << QPoint(1, 1) << QPoint(400, 300) << same;
    }
    void dragAndResize()
    {
        QFETCH(int, setup);
        QFETCH(QPoint, to);
        QFETCH(QRect, expected);
        if (setup == 3 || setup == 4) {
            FramelessHelper other;
            if (setup == 4)
                QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("value too large!.*2147483653")));
            other.setTitleHeight(setup == 3 ? 50u : 0x80000005u);
        }
        Target t;
        t.helper.setWidgetMovable(setup != 1);
        t.helper.setWidgetResizable(setup != 2);
        t.helper.setRubberBandOnMove(setup == 5);
        t.helper.setRubberBandOnResize(setup == 6);
        t.send(QEvent::MouseButtonPress, QPoint(150, 100));
        QCOMPARE(t.widget.presses, 0); // consumed
        t.send(QEvent::MouseButtonRelease, QPoint(150, 100));
        QFETCH(QPoint, press);
        t.send(QEvent::MouseButtonPress, press);
        t.send(QEvent::MouseMove, to);
        if (setup >= 5) {
            QRubberBand* band = nullptr;
            for (QWidget* w : QApplication::topLevelWidgets())
                band = qobject_cast<QRubberBand*>(w) && w->isVisible() ? static_cast<QRubberBand*>(w) : band;
            QVERIFY(band);
            QCOMPARE(band->geometry().translated(-t.origin), expected);
            QCOMPARE(t.relative(), QRect(0, 0, 300, 200));
        }
        t.send(QEvent::MouseButtonRelease, to);
        QTest::qWait(10); // a platform may apply a move late
        QTRY_COMPARE(t.relative(), expected);
        t.helper.removeFrom(&t.widget);
        t.send(QEvent::MouseButtonPress, press);
        QCOMPARE(t.widget.presses, 1);
        QVERIFY(!t.widget.testAttribute(Qt::WA_Hover) && !t.widget.hasMouseTracking());
        QCOMPARE(t.widget.windowFlags(), Qt::WindowFlags(Qt::FramelessWindowHint | Qt::Window));
    }

    void windowsPassEventsOnAndTargetsMayDie()
    {
        Counting<QWindow> window;
        window.setFlags(Qt::FramelessWindowHint | Qt::Window);
        window.setGeometry(100, 100, 300, 200);
        FramelessHelper helper;
        helper.activateOnQmlWidget(&window);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QPoint origin = window.frameGeometry().topLeft();
        UxTest::sendMouse(&window, QEvent::MouseButtonPress, QPoint(150, 10), origin + QPoint(150, 10));
        QCOMPARE(window.presses, 1);
        UxTest::sendMouse(&window, QEvent::MouseMove, QPoint(170, 40), origin + QPoint(170, 40));
        QTRY_COMPARE(window.frameGeometry().topLeft(), origin + QPoint(20, 30));
        window.setFlags(Qt::Window);
        helper.removeQmlWidgetFrom(&window);
        QCOMPARE(window.flags(), Qt::WindowFlags(Qt::FramelessWindowHint | Qt::Window));
        auto* gone = new QWidget;
        helper.activateOn(gone);
        delete gone; // forgotten, never touched again
        helper.setRubberBandOnMove(true);
    }

    void slide_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("from");
        QTest::addColumn<QPoint>("oldAtHalf");
        QTest::addColumn<QPoint>("newAtHalf");
        QTest::newRow("BottomToTop") << 0 << 150 << QPoint(150, 10) << QPoint(150, 30);
        QTest::newRow("TopToBottom") << 1 << -150 << QPoint(150, 30) << QPoint(150, 10);
        QTest::newRow("LeftToRight") << 2 << -150 << QPoint(200, 20) << QPoint(100, 20);
        QTest::newRow("RightToLeft") << 3 << 150 << QPoint(100, 20) << QPoint(200, 20);
    }
    void slide()
    {
        QFETCH(int, type);
        QFETCH(int, from);
        UxAnimationStackedWidget w;
        auto* animation = w.findChild<QPropertyAnimation*>();
        w.setLength(301, UxAnimationStackedWidget::AnimationType(type));
        QCOMPARE(animation->startValue().toInt(), from);
        QCOMPARE(animation->endValue().toInt(), -from);
        for (const QColor& c : {QColor(Qt::red), QColor(Qt::blue)}) {
            auto* page = new QWidget;
            page->setStyleSheet(QStringLiteral("background: %1").arg(c.name()));
            page->setAutoFillBackground(true);
            w.addWidget(page);
        }
        w.setLength(0, UxAnimationStackedWidget::AnimationType(type));
        w.resize(300, 40); // a resize takes the range from the new width, whatever the direction
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(animation->startValue().toInt(), from);
        if (type < 2)
            w.setLength(40, UxAnimationStackedWidget::AnimationType(type));
        w.setEasingCurve(QEasingCurve::Linear);
        QSignalSpy changed(&w, &UxAnimationStackedWidget::signalFrameIndexChanged);
        w.slotControlAni(true);
        w.start(1); // refused while paused
        QCOMPARE(animation->state(), QAbstractAnimation::Stopped);
        w.slotControlAni(false);
        w.start(1);
        animation->pause();
        animation->setCurrentTime(0);
        QCOMPARE(w.grab().toImage().pixelColor(295, 37), QColor(Qt::red));
        animation->setCurrentTime(animation->duration() / 2);
        const QImage half = w.grab().toImage();
        QFETCH(QPoint, oldAtHalf);
        QFETCH(QPoint, newAtHalf);
        QCOMPARE(half.pixelColor(oldAtHalf), QColor(Qt::red));
        QCOMPARE(half.pixelColor(newAtHalf), QColor(Qt::blue));
        QCOMPARE(changed.count(), 0); // the index changes only when the slide ends
        animation->setCurrentTime(animation->duration());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toInt(), 1);
        QCOMPARE(w.currentIndex(), 1);
        // stop() leaves the widget refusing until resetNum().
        w.start(0);
        w.stop();
        w.start(0);
        QCOMPARE(animation->state(), QAbstractAnimation::Stopped);
        w.slotControlAni(true);
        w.resetNum();
        w.start(-1);
        QCOMPARE(animation->state(), QAbstractAnimation::Stopped);
        w.start(1);
        QCOMPARE(animation->state(), QAbstractAnimation::Running);
    }

    void flow_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("spacing");
        QTest::addColumn<int>("perRow");
        QTest::newRow("time pop-up grid") << 229 - 16 << 0 << 10;
        QTest::newRow("spaced") << 100 << 4 << 3;
        QTest::newRow("wider than one item") << 10 << 0 << 1;
    }
    void flow()
    {
        QFETCH(int, width);
        QFETCH(int, spacing);
        QFETCH(int, perRow);
        QWidget host;
        auto* layout = new UxFlowLayout(&host, 6, spacing, spacing);
        QList<QPushButton*> buttons;
        for (int i = 0; i < 24; ++i) {
            buttons << new QPushButton;
            buttons.last()->setFixedSize(20, 20);
            layout->addWidget(buttons.last());
        }
        const int rows = (24 + perRow - 1) / perRow;
        QCOMPARE(layout->heightForWidth(width), 12 + rows * 20 + (rows - 1) * spacing);
        layout->setGeometry(QRect(0, 0, width, 400));
        for (int i : {0, perRow - 1, perRow, 23})
            QCOMPARE(buttons[i]->geometry(), QRect(6 + (i % perRow) * (20 + spacing), 6 + (i / perRow) * (20 + spacing), 20, 20));
        QCOMPARE(layout->minimumSize(), QSize(32, 32));
        QLayoutItem* first = layout->takeAt(0); // hands the first item over, the rest shift
        QVERIFY(first && first->widget() == buttons[0]);
        delete first;
        QCOMPARE(layout->itemAt(0)->widget(), buttons[1]);
        QVERIFY(!layout->itemAt(-1) && !layout->takeAt(23));
    }
};

UX_TEST_MAIN(TstChrome)
#include "tst_chrome.moc"
