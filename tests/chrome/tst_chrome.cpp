// Window chrome: the shadow frame (and the message box's shadow), the
// frameless helper, the sliding stacked widget and the flow layout.

#include "uxtestenv.h"

#include "framelesshelper.h"
#include "uxanimationstackedwidget.h"
#include "uxbaseshadowwidget.h"
#include "uxflowlayout.h"
#include "uxmessagebox.h"

#include <QPainter>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QRubberBand>
#include <QWindow>

using UxTest::sendMouse;

namespace {

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
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* band = qobject_cast<QRubberBand*>(w); band && band->isVisible())
            return band;
    return nullptr;
}

bool hasMethod(const QMetaObject& mo, const char* signature)
{
    return mo.indexOfMethod(signature) >= 0;
}

} // namespace

class TstChrome : public QObject
{
    Q_OBJECT

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
            widget.setMinimumSize(200, 100);
            helper.activateOn(&widget);
            widget.show();
            QVERIFY(QTest::qWaitForWindowExposed(&widget));
            origin = widget.frameGeometry().topLeft();
        }
        void send(QEvent::Type type, const QPoint& local) { sendMouse(&widget, type, local, origin + local); }
        void drag(const QPoint& from, const QPoint& to)
        {
            send(QEvent::MouseButtonPress, from);
            send(QEvent::MouseMove, to);
            send(QEvent::MouseButtonRelease, to);
        }
        QRect relative() const { return widget.frameGeometry().translated(-origin); }
    };

private Q_SLOTS:
    void cleanup()
    {
        // Border width and title height are process-wide: back to the defaults.
        FramelessHelper helper;
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
        QTest::newRow("movable") << QVariant(helper.widgetMovable()) << QVariant(true);
        QTest::newRow("resizable") << QVariant(helper.widgetResizable()) << QVariant(true);
        QTest::newRow("band on move") << QVariant(helper.rubberBandOnMove()) << QVariant(false);
        QTest::newRow("rubberBandOnResisze") << QVariant(helper.rubberBandOnResisze()) << QVariant(false);
        static UxAnimationStackedWidget stack;
        auto* animation = stack.findChild<QPropertyAnimation*>();
        QTest::newRow("slide 2000 ms") << QVariant(stack.getDuration()) << QVariant(2000);
        QTest::newRow("OutQuint") << QVariant(int(animation->easingCurve().type())) << QVariant(int(QEasingCurve::OutQuint));
        QTest::newRow("empty property") << QVariant(animation->propertyName()) << QVariant(QByteArray());
        const QMetaObject& s = UxAnimationStackedWidget::staticMetaObject;
        for (const char* sig : {"signalFrameIndexChanged(int)", "resetNum()", "slotControlAni(bool)", "start(int)",
                                "valueChanged(QVariant)", "animationFinished()"})
            QTest::newRow(sig) << QVariant(hasMethod(s, sig)) << QVariant(true);
        // The animation is wired with text-form signatures.
        QTest::newRow("2finished()") << QVariant(QObject::disconnect(animation, SIGNAL(finished()), &stack,
                                                                     SLOT(animationFinished())))
                                     << QVariant(true);
        static UxFlowLayout flow(0, 0, 0);
        QTest::newRow("flow expands horizontally") << QVariant(int(flow.expandingDirections())) << QVariant(int(Qt::Horizontal));
        QTest::newRow("flow height for width") << QVariant(flow.hasHeightForWidth()) << QVariant(true);
        static QWidget parent;
        static UxBaseShadowWidget shadow(&parent);
        QTest::newRow("shadow flags replaced") << QVariant(int(shadow.windowFlags())) << QVariant(int(Qt::FramelessWindowHint));
        QTest::newRow("shadow translucent") << QVariant(shadow.testAttribute(Qt::WA_TranslucentBackground)) << QVariant(true);
    }
    void contract()
    {
        QFETCH(QVariant, actual);
        QFETCH(QVariant, expected);
        QCOMPARE(actual, expected);
    }

    // --- shadow frame -------------------------------------------------------

    // Each of the eight pieces against a reference rendering of where it must go.
    void shadowPieces_data()
    {
        QTest::addColumn<int>("source"); // 0 own paint, 1 drawFrame, 2 message box
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("border"); // -1: the default
        QTest::newRow("default 200x100") << 0 << QSize(200, 100) << -1;
        QTest::newRow("drawFrame 200x100") << 1 << QSize(200, 100) << -1;
        QTest::newRow("border 5, odd size") << 0 << QSize(37, 23) << 5;
        QTest::newRow("border 0") << 0 << QSize(60, 40) << 0;
        QTest::newRow("message box") << 2 << QSize() << -1;
    }
    void shadowPieces()
    {
        QFETCH(int, source);
        QFETCH(QSize, size);
        QFETCH(int, border);
        QImage image;
        int b = border < 0 ? 8 : border;
        if (source == 2) {
            UxTest::writeShadowSkin(QStringLiteral("shadows"));
            UxCore::instance()->setSkinRoot(UxTest::skinRoot());
            UxCore::instance()->setCurrentSkin(QStringLiteral("shadows"));
            UxMessageBox box(QStringLiteral("t"), QStringLiteral("x"), QMessageBox::Ok);
            image = rendered(&box);
            b = 4;
            UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
        } else {
            UxBaseShadowWidget w;
            w.resize(size);
            if (border >= 0)
                w.setWindowBorderWidth(border);
            if (source == 1) {
                image = QImage(size, QImage::Format_ARGB32);
                image.fill(Qt::transparent);
                QPainter p(&image);
                w.drawFrame(&p);
            } else {
                image = rendered(&w);
            }
            const QRect body = QRect(QPoint(), size).adjusted(b, b, -b, -b);
            if (!body.isEmpty())
                QCOMPARE(image.pixel(body.center()), qRgb(255, 255, 255));
        }
        QCOMPARE(UxTest::shadowBandMismatch(image, b), QPoint(-1, -1));
    }

    void shadowOwnPaintIgnoresOverride()
    {
        BlackFrameWidget black;
        black.resize(60, 40);
        QCOMPARE(UxTest::shadowBandMismatch(rendered(&black), 8), QPoint(-1, -1));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("border width out of range!.*2147483647")));
        black.setWindowBorderWidth(INT_MAX);
        rendered(&black); // no overflow in the rectangles
    }

    // --- frameless helper ---------------------------------------------------

    void hoverCursor_data()
    {
        QTest::addColumn<int>("setup"); // 1 maximized, 2 not resizable, 3 border 10 set by another helper
        QTest::addColumn<QPoint>("local");
        QTest::addColumn<int>("cursor");
        const int none = Qt::ArrowCursor, hor = Qt::SizeHorCursor, ver = Qt::SizeVerCursor;
        QTest::newRow("left band, inner limit") << 0 << QPoint(5, 100) << hor;
        QTest::newRow("inside the left band") << 0 << QPoint(6, 100) << none;
        QTest::newRow("right band, inner limit") << 0 << QPoint(295, 100) << hor;
        QTest::newRow("inside the right band") << 0 << QPoint(294, 100) << none;
        QTest::newRow("one past right()") << 0 << QPoint(300, 100) << hor;
        QTest::newRow("two past right()") << 0 << QPoint(301, 100) << none;
        QTest::newRow("top band") << 0 << QPoint(150, 5) << ver;
        QTest::newRow("below the top band") << 0 << QPoint(150, 6) << none;
        QTest::newRow("bottom band") << 0 << QPoint(150, 195) << ver;
        QTest::newRow("above the bottom band") << 0 << QPoint(150, 194) << none;
        QTest::newRow("one past bottom()") << 0 << QPoint(150, 200) << ver;
        QTest::newRow("top-left") << 0 << QPoint(0, 0) << int(Qt::SizeFDiagCursor);
        QTest::newRow("bottom-right") << 0 << QPoint(299, 199) << int(Qt::SizeFDiagCursor);
        QTest::newRow("bottom-left") << 0 << QPoint(3, 197) << int(Qt::SizeBDiagCursor);
        QTest::newRow("top-right") << 0 << QPoint(297, 2) << int(Qt::SizeBDiagCursor);
        QTest::newRow("maximized") << 1 << QPoint(0, 100) << none;
        QTest::newRow("not resizable") << 2 << QPoint(0, 100) << none;
        QTest::newRow("shared border width") << 3 << QPoint(10, 100) << hor;
    }
    void hoverCursor()
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
        t.send(QEvent::MouseMove, local);
        QTEST(int(t.widget.cursor().shape()), "cursor");
        // A hover inside clears the edge cursor again.
        QHoverEvent inside(QEvent::HoverMove, QPointF(150, 100), QPointF(local));
        QCoreApplication::sendEvent(&t.widget, &inside);
        QCOMPARE(int(t.widget.cursor().shape()), int(Qt::ArrowCursor));
    }

    void dragAndResize_data()
    {
        QTest::addColumn<int>("setup"); // 1 not movable, 2 not resizable, 3 title 50 set elsewhere, 4 title 2^31
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<QRect>("expected"); // relative to the original top-left
        const QRect same(0, 0, 300, 200);
        QTest::newRow("last title row drags") << 0 << QPoint(150, 29) << QPoint(190, 54) << QRect(40, 25, 300, 200);
        QTest::newRow("first row below the title") << 0 << QPoint(150, 30) << QPoint(190, 55) << same;
        QTest::newRow("not movable") << 1 << QPoint(150, 15) << QPoint(190, 40) << same;
        QTest::newRow("title set by another helper") << 3 << QPoint(150, 45) << QPoint(190, 70) << QRect(40, 25, 300, 200);
        QTest::newRow("huge title clamped, still drags") << 4 << QPoint(150, 100) << QPoint(160, 110) << QRect(10, 10, 300, 200);
        QTest::newRow("right edge") << 0 << QPoint(298, 100) << QPoint(349, 100) << QRect(0, 0, 350, 200);
        QTest::newRow("not resizable") << 2 << QPoint(298, 100) << QPoint(349, 100) << same;
        QTest::newRow("right to the minimum") << 0 << QPoint(298, 100) << QPoint(199, 100) << QRect(0, 0, 200, 200);
        QTest::newRow("right below the minimum") << 0 << QPoint(298, 100) << QPoint(149, 100) << same;
        QTest::newRow("left edge") << 0 << QPoint(2, 100) << QPoint(50, 100) << QRect(50, 0, 250, 200);
        QTest::newRow("left below the minimum") << 0 << QPoint(2, 100) << QPoint(150, 100) << same;
        QTest::newRow("bottom edge") << 0 << QPoint(150, 198) << QPoint(150, 259) << QRect(0, 0, 300, 260);
        QTest::newRow("bottom below the minimum") << 0 << QPoint(150, 198) << QPoint(150, 80) << same;
        QTest::newRow("top edge") << 0 << QPoint(150, 1) << QPoint(150, -20) << QRect(0, -20, 300, 220);
        QTest::newRow("top-left") << 0 << QPoint(1, 1) << QPoint(-10, -20) << QRect(-10, -20, 310, 220);
        QTest::newRow("bottom-left") << 0 << QPoint(1, 199) << QPoint(-10, 219) << QRect(-10, 0, 310, 220);
        QTest::newRow("top-right") << 0 << QPoint(299, 1) << QPoint(309, -20) << QRect(0, -20, 310, 220);
        QTest::newRow("bottom-right") << 0 << QPoint(299, 199) << QPoint(319, 229) << QRect(0, 0, 320, 230);
        QTest::newRow("width refused, height applied") << 0 << QPoint(299, 199) << QPoint(100, 229) << QRect(0, 0, 300, 230);
        QTest::newRow("top-left past the far corner") << 0 << QPoint(1, 1) << QPoint(400, 300) << same;
    }
    void dragAndResize()
    {
        QFETCH(int, setup);
        QFETCH(QPoint, press);
        QFETCH(QPoint, to);
        if (setup >= 3) {
            FramelessHelper other;
            if (setup == 4)
                QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("value too large!.*2147483653")));
            other.setTitleHeight(setup == 3 ? 50u : 0x80000005u);
            QCOMPARE(other.titleHeight(), setup == 3 ? 50u : 16384u);
        }
        Target t;
        t.helper.setWidgetMovable(setup != 1);
        t.helper.setWidgetResizable(setup != 2);
        QFETCH(QRect, expected);
        t.drag(press, to);
        QTest::qWait(10); // a platform may apply a move late
        QTRY_COMPARE(t.relative(), expected);
    }

    void hugeBorderIsClamped()
    {
        FramelessHelper helper;
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("value too large!.*4294967295")));
        helper.setBorderWidth(UINT_MAX);
        QCOMPARE(helper.borderWidth(), 16384u);
        Target t; // every point is now within the band
        t.send(QEvent::MouseMove, QPoint(150, 100));
        QVERIFY(t.widget.cursor().shape() != Qt::ArrowCursor);
    }

    void rubberBand_data()
    {
        QTest::addColumn<bool>("onMove");
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<QRect>("expected");
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
        // A press that would do the other thing shows no band.
        t.send(QEvent::MouseButtonPress, onMove ? QPoint(298, 100) : QPoint(150, 100));
        QVERIFY(!visibleRubberBand());
        t.send(QEvent::MouseButtonRelease, QPoint(150, 100));
        t.send(QEvent::MouseButtonPress, press);
        QRubberBand* band = visibleRubberBand();
        QVERIFY(band);
        t.send(QEvent::MouseMove, to);
        QCOMPARE(band->geometry().translated(-t.origin), expected);
        QCOMPARE(t.relative(), QRect(0, 0, 300, 200));
        t.send(QEvent::MouseButtonRelease, to);
        QVERIFY(!band->isVisible());
        QTRY_COMPARE(t.relative(), expected);
    }

    void eventsConsumedForWidgetsPassedOnForWindows()
    {
        Target t;
        t.send(QEvent::MouseButtonPress, QPoint(150, 100));
        QCOMPARE(t.widget.presses, 0);
        t.helper.removeFrom(&t.widget);
        t.send(QEvent::MouseButtonPress, QPoint(150, 100));
        QCOMPARE(t.widget.presses, 1);

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
        window.setFlags(Qt::Window);
        helper.removeQmlWidgetFrom(&window);
        QCOMPARE(window.flags(), Qt::WindowFlags(Qt::FramelessWindowHint | Qt::Window));
    }

    void removalRestoresAndForgets()
    {
        QWidget w, kept;
        const Qt::WindowFlags original = w.windowFlags();
        {
            FramelessHelper helper;
            helper.setRubberBandOnMove(true);
            helper.activateOn(&w);
            helper.activateOn(&kept);
            QVERIFY(w.hasMouseTracking() && w.testAttribute(Qt::WA_Hover));
            w.setWindowFlags(Qt::FramelessWindowHint);
            kept.setWindowFlags(Qt::FramelessWindowHint);
            helper.activateOn(&w); // keeps the first record and its saved flags
            helper.removeFrom(&w);
            QCOMPARE(w.windowFlags(), original);
            QVERIFY(!w.hasMouseTracking() && !w.testAttribute(Qt::WA_Hover));
            auto* gone = new QWidget;
            helper.activateOn(gone);
            delete gone; // forgotten, never touched again
        }
        QCOMPARE(kept.windowFlags(), original);
        QVERIFY(!kept.testAttribute(Qt::WA_Hover));
    }

    // --- sliding stacked widget ---------------------------------------------

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
        w.setLength(50, UxAnimationStackedWidget::AnimationType(7)); // only the type is stored
        QCOMPARE(animation->startValue().toInt(), from);

        const QColor colours[2] = {Qt::red, Qt::blue};
        for (const QColor& c : colours) {
            auto* page = new QWidget;
            QPalette pal;
            pal.setColor(QPalette::Window, c);
            page->setPalette(pal);
            page->setAutoFillBackground(true);
            w.addWidget(page);
        }
        w.setLength(0, UxAnimationStackedWidget::AnimationType(type));
        // A resize takes the range from the new width, whatever the direction.
        w.resize(300, 40);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(animation->startValue().toInt(), from);
        if (type < 2)
            w.setLength(40, UxAnimationStackedWidget::AnimationType(type));
        w.setEasingCurve(QEasingCurve::Linear);
        QSignalSpy changed(&w, &UxAnimationStackedWidget::signalFrameIndexChanged);
        w.start(1);
        QCOMPARE(animation->state(), QAbstractAnimation::Running);
        animation->pause();
        animation->setCurrentTime(0);
        QImage image = w.grab().toImage();
        QCOMPARE(image.pixelColor(5, 2), colours[0]);
        QCOMPARE(image.pixelColor(295, 37), colours[0]);
        animation->setCurrentTime(animation->duration() / 2);
        image = w.grab().toImage();
        QFETCH(QPoint, oldAtHalf);
        QFETCH(QPoint, newAtHalf);
        QCOMPARE(image.pixelColor(oldAtHalf), colours[0]);
        QCOMPARE(image.pixelColor(newAtHalf), colours[1]);
        // The index changes only when the slide ends.
        QCOMPARE(changed.count(), 0);
        QCOMPARE(w.currentIndex(), 0);
        animation->setCurrentTime(animation->duration());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.at(0).at(0).toInt(), 1);
        QCOMPARE(w.currentIndex(), 1);
    }

    void refusedStarts()
    {
        UxAnimationStackedWidget w;
        w.addWidget(new QWidget);
        w.addWidget(new QWidget);
        auto* animation = w.findChild<QPropertyAnimation*>();
        w.start(-1);
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

    // --- flow layout --------------------------------------------------------

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
        QCOMPARE(layout->heightForWidth(width), 6 + rows * 20 + (rows - 1) * spacing + 6);
        layout->setGeometry(QRect(0, 0, width, 400));
        for (int i : {0, perRow - 1, perRow, 23})
            QCOMPARE(buttons[i]->geometry(), QRect(6 + (i % perRow) * (20 + spacing), 6 + (i / perRow) * (20 + spacing), 20, 20));
        QCOMPARE(layout->minimumSize(), QSize(32, 32));
        // Taking the first item hands it over and shifts the rest.
        QLayoutItem* first = layout->takeAt(0);
        QVERIFY(first && first->widget() == buttons[0]);
        delete first;
        QCOMPARE(layout->count(), 23);
        QCOMPARE(layout->itemAt(0)->widget(), buttons[1]);
        QCOMPARE(layout->itemAt(-1), nullptr);
        QCOMPARE(layout->takeAt(23), nullptr);
    }
};

UX_TEST_MAIN(TstChrome)
#include "tst_chrome.moc"
