// Host core and window chrome: skinning, skin and configuration paths,
// invoking by name, the shadow frame (and the message box's shadow), both
// frameless helpers, the sliding stacked widget and the flow layout.

#include "uxtestenv.h"
#include "rows.h"

#include "framelesshelper.h"
#include "uxanimationstackedwidget.h"
#include "uxbaseshadowwidget.h"
#include "uxflowlayout.h"
#include "uxmessagebox.h"

#include <uxcore/uxcustommenu.h>

#include <QtWidgets>

namespace {

// One colour per shadow piece, in painting order (top-left, left, bottom-left, top, bottom, right, top-right,
// bottom-right); tst_chrome.qrc holds the same colours under ":/bg/".
const QRgb kColours[8] = {qRgb(255, 0, 0),   qRgb(0, 255, 0),   qRgb(0, 0, 255), qRgb(255, 255, 0),
                          qRgb(0, 255, 255), qRgb(255, 0, 255), qRgb(128, 0, 0), qRgb(0, 128, 0)};

// The first pixel of the border band B wide that differs from where each
// piece must go, or (-1, -1).
QPoint shadowMismatch(const QImage& actual, int b)
{
    const int w = actual.width(), h = actual.height();
    const QRect rects[8] = {{0, 0, b, b},         {0, b, b, h - 2 * b},     {0, h - b, b, b}, {b, 0, w - 2 * b, b},
                            {b, h - b, w - 2 * b, b}, {w - b, b, b, h - 2 * b}, {w - b, 0, b, b}, {w - b, h - b, b, b}};
    const QRect body = QRect(0, 0, w, h).adjusted(b, b, -b, -b);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            QRgb expected = 0;
            for (int i = 0; i < 8; ++i) expected = rects[i].contains(x, y) ? kColours[i] : expected;
            if (!body.contains(x, y) && actual.pixel(x, y) != expected) return QPoint(x, y);
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

struct BlackFrameWidget : UxBaseShadowWidget {
    void drawFrame(QPainter* painter) override { painter->fillRect(rect(), Qt::black); }
};

template <class Base> struct Counting : Base {
    int presses = 0, moves = 0, keys = 0;
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseMoveEvent(QMouseEvent*) override { ++moves; }
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

// A skinned widget that counts what the skin manager hands it.
struct SkinnedLabel : QLabel, IUxSkin {
    explicit SkinnedLabel(const QString& cssPath) { UxCore::instance()->addStyle2View(this, cssPath); }
    void loadSkin(const QVariant& style) override
    {
        ++loads;
        IUxSkin::loadSkin(style);
        if (loads > 1 && victim) // deletes another registered widget during a switch
            delete std::exchange(victim, nullptr);
    }
    int loads = 0;
    SkinnedLabel* victim = nullptr;
};

// A shown 300 x 200 frameless top-level widget (minimum 200 x 100) with an
// activated library helper, or the host core's helper.
struct Target {
    Counting<QWidget> widget;
    FramelessHelper helper;
    UxFramelessHelper* host = nullptr;
    QPoint origin;
    explicit Target(bool hostHelper = false)
    {
        widget.setWindowFlags(Qt::FramelessWindowHint);
        widget.setGeometry(100, 100, 300, 200);
        widget.setMinimumSize(200, 100);
        hostHelper ? (host = new UxFramelessHelper(&widget))->activateOn(&widget) : helper.activateOn(&widget);
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
        origin = widget.frameGeometry().topLeft();
    }
    void send(QEvent::Type type, const QPoint& at, Qt::MouseButtons b = Qt::LeftButton) { UxTest::sendMouse(&widget, type, at, origin + at, b); }
    QRect relative() const { return widget.frameGeometry().translated(-origin); }
};

const QString kLightSheet = QStringLiteral("QLabel { color: #010203; }");
const QString kDarkSheet = QStringLiteral("QLabel { color: #040506; }");

} // namespace

class TenArgs : public QObject
{
    Q_OBJECT
public:
    QString got;
    Q_INVOKABLE void ten(int a, int b, int c, int d, int e, int f, int g, int h, int i, int j)
    {
        for (int v : {a, b, c, d, e, f, g, h, i, j}) got += QString::number(v);
    }
};

class TstChrome : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        UxTest::writeSkin(QStringLiteral("light"), {{"test/a.css", kLightSheet.toUtf8()}, {"test/b.css", "QLabel {}"}});
        UxTest::writeSkin(QStringLiteral("dark"), {{"test/a.css", kDarkSheet.toUtf8()}});
        UxCore::instance()->setSkinRoot(UxTest::skinRoot()); // drops cached sheets
        UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
    }
    void cleanup()
    {
        FramelessHelper().setBorderWidth(5); // the border width and title height are process-wide
        FramelessHelper().setTitleHeight(30);
    }

    void contract_data()
    {
        Rows::actualExpected();
        static FramelessHelper helper;
        QTest::newRow("border width 5, title height 30") << QVariant(QVariantList{helper.borderWidth(), helper.titleHeight()}) << QVariant(QVariantList{5u, 30u});
        QTest::newRow("movable, resizable") << QVariant(helper.widgetMovable() && helper.widgetResizable()) << QVariant(true);
        QTest::newRow("rubberBandOnResisze") << QVariant(helper.rubberBandOnMove() || helper.rubberBandOnResisze()) << QVariant(false);
        static UxFramelessHelper host(nullptr);
        QTest::newRow("host movable, resizable") << QVariant(host.isMovable() && host.isResizable()) << QVariant(true);
        static UxCustomMenu menu;
        QTest::newRow("host menu shows tool tips") << QVariant(menu.toolTipsVisible()) << QVariant(true);
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
        static UxFlowLayout unspaced(0, -1, -1); // no parent: no smart spacing either
        QTest::newRow("flow spacings -1") << QVariant(unspaced.horizontalSpacing() + unspaced.verticalSpacing()) << QVariant(-2);
        static QWidget parent;
        static UxBaseShadowWidget shadow(&parent);
        QTest::newRow("shadow flags replaced") << QVariant(int(shadow.windowFlags())) << QVariant(int(Qt::FramelessWindowHint));
        QTest::newRow("shadow translucent") << QVariant(shadow.testAttribute(Qt::WA_TranslucentBackground)) << QVariant(true);
    }
    void contract() { Rows::compareActual(); }

    void skinning()
    {
        SkinnedLabel w(QStringLiteral("test/a.css")), b(QStringLiteral("test/b.css"));
        SkinnedLabel table(QStringLiteral("quote/customtable.css")), none(QStringLiteral("test/none.css"));
        w.IUxSkin::loadSkin(QVariant()); // an invalid style changes nothing
        QCOMPARE(w.styleSheet(), kLightSheet);
        QVERIFY(table.styleSheet().contains(QLatin1String("QTableView"))); // compiled-in default
        QVERIFY(none.styleSheet().isEmpty() && !b.styleSheet().isEmpty());
        const int registered = UxCore::instance()->registeredViewCount();
        delete new SkinnedLabel(QStringLiteral("test/a.css"));
        QCOMPARE(UxCore::instance()->registeredViewCount(), registered);
        w.victim = new SkinnedLabel(QStringLiteral("test/a.css")); // never styled once deleted
        // The signal comes after the sheets are re-applied.
        QString sheetWhenSignalled;
        QMetaObject::Connection c = connect(UxCore::instance(), &UxCore::signalSkinChanged, this,
                                            [&](const QString&) { sheetWhenSignalled = w.styleSheet(); });
        QSignalSpy spy(UxCore::instance(), &UxCore::signalSkinChanged);
        UxCore::instance()->setCurrentSkin(QStringLiteral("dark"));
        disconnect(c);
        QCOMPARE(QList<QVariantList>(spy), QList<QVariantList>{{QStringLiteral("dark")}});
        // Loaded once more, the victim deleted before its turn, and the previous skin's look does not linger.
        QCOMPARE(QVariantList({w.loads, w.victim == nullptr, sheetWhenSignalled, b.styleSheet()}), QVariantList({2, true, kDarkSheet, QString()}));
    }

    void relativeUrls_data()
    {
        QTest::addColumn<QByteArray>("sheet"); QTest::addColumn<QString>("expected");
        const QString dir = UxTest::skinRoot() + QStringLiteral("/light");
        QTest::newRow("quoted") << QByteArray("a { image: url(\"img/x.png\"); }") << QStringLiteral("a { image: url(%1/img/x.png); }").arg(dir);
        QTest::newRow("resource kept") << QByteArray("a{b:url(:/uicomponents/y.png)}") << QStringLiteral("a{b:url(:/uicomponents/y.png)}");
        QTest::newRow("scheme kept") << QByteArray("a{b:url(file:///x.png)}") << QStringLiteral("a{b:url(file:///x.png)}");
        QTest::newRow("two urls") << QByteArray("a{b:url(p.png)} c{d:url('q.png')}") << QStringLiteral("a{b:url(%1/p.png)} c{d:url(%1/q.png)}").arg(dir);
    }
    void relativeUrls()
    {
        QFETCH(QByteArray, sheet);
        UxTest::writeSkin(QStringLiteral("light"), {{"test/url.css", sheet}});
        UxCore::instance()->setSkinRoot(UxTest::skinRoot());
        QTEST(UxCore::instance()->styleSheet(QStringLiteral("test/url.css")), "expected");
    }

    void pathsAndInvoking()
    {
        UxCore* core = UxCore::instance();
        UxTest::writeSkin(QStringLiteral("dark"), {{"img/only-dark.png", "x"}});
        core->setCurrentSkin(QStringLiteral("dark"));
        const QString dark = UxTest::skinRoot() + QStringLiteral("/dark/");
        for (const QString& file : {QStringLiteral("img/only-dark.png"), QStringLiteral("none.png")})
            QCOMPARE(core->getCurrentSkinPath(file), dark + file);
        QCOMPARE(core->getCurrentSkinPath(QStringLiteral("quote/customtable.css")), QStringLiteral(":/uicomponents/quote/customtable.css"));
        QVERIFY(core->skinIds().contains(QStringLiteral("black")));
        auto* main = new QWidget;
        core->setMainWindow(main);
        QCOMPARE(UxApplication::uxmainWindow(), main);
        delete main;
        QCOMPARE(core->mainWindow(), nullptr);
        UxCfg* cfg = UxCfg::instance();
        cfg->setPath(QString(), UxTest::configDir() + QStringLiteral("/sub//"));
        QCOMPARE(cfg->path(QString()), UxTest::configDir() + QStringLiteral("/sub"));
        QCOMPARE(cfg->path(QStringLiteral("layouts")), UxTest::configDir() + QStringLiteral("/sub/layouts"));
        cfg->setPath(QString(), UxTest::configDir());

        TenArgs target; // the most arguments a call takes, in the order added
        int digits[11] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
        InvokerBase invoker;
        for (int i = 0; i < 10; ++i) invoker.addArgument(&digits[i], "int");
        invoker.invoke(&target, "ten");
        QCOMPARE(target.got, QStringLiteral("0123456789"));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("no such method: TenArgs \"noSuchMethod\\(int(,int){9}\\)\"$")));
        invoker.invoke(&target, "noSuchMethod");
        QObject* self = &target; // the method at index 0 is found like any other
        QSignalSpy destroyed(&target, &QObject::destroyed);
        InvokerBase().addArgument(&self, "QObject*").invoke(&target, "destroyed");
        QCOMPARE(destroyed.count(), 1);
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("target is null! ten$")));
        invoker.invoke(nullptr, "ten");
        invoker.addArgument(&digits[10], "int");
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("too many arguments: 11$")));
        invoker.invoke(&target, "ten");
    }

    void shadowPieces_data()
    {
        QTest::addColumn<int>("source"); // 0 own paint, 1 drawFrame, 2 message box, 3 overridden drawFrame
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("border"); // -1: the default
        QTest::newRow("default 200x100") << 0 << QSize(200, 100) << -1;
        QTest::newRow("drawFrame") << 1 << QSize(200, 100) << -1;
        QTest::newRow("border 5, odd size") << 0 << QSize(37, 23) << 5;
        QTest::newRow("message box") << 2 << QSize() << 4;
        QTest::newRow("override leaves own paint") << 3 << QSize(60, 40) << -1;
    }
    void shadowPieces()
    {
        QFETCH(int, source); QFETCH(int, border);
        QImage image;
        if (source == 2) {
            QMap<QString, QByteArray> files; // the resource's plain-colour pieces, as a skin's
            for (const QString& name : QDir(QStringLiteral(":/bg")).entryList())
                files.insert(QStringLiteral("bg/") + name, UxTest::readFile(QStringLiteral(":/bg/") + name));
            UxTest::writeSkin(QStringLiteral("shadows"), files);
            UxCore::instance()->setSkinRoot(UxTest::skinRoot());
            UxCore::instance()->setCurrentSkin(QStringLiteral("shadows"));
            UxMessageBox box(QStringLiteral("t"), QStringLiteral("x"), QMessageBox::Ok);
            image = rendered(&box);
        } else {
            QFETCH(QSize, size);
            BlackFrameWidget black;
            UxBaseShadowWidget plain;
            UxBaseShadowWidget& w = source == 3 ? black : plain;
            w.resize(size);
            if (border >= 0) w.setWindowBorderWidth(border);
            image = rendered(&w);
            if (source == 1) {
                image.fill(Qt::transparent);
                QPainter p(&image);
                w.drawFrame(&p);
            }
            QCOMPARE(image.pixel(size.width() / 2, size.height() / 2), qRgb(255, 255, 255));
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("border width out of range! -2147483648$")));
            w.setWindowBorderWidth(INT_MIN);
            rendered(&w); // clamped: no overflow in the rectangles
        }
        QCOMPARE(shadowMismatch(image, border < 0 ? 8 : border), QPoint(-1, -1));
    }

    // Both helpers: the hover cursor at PRESS, then a left drag to TO. EXPECTED
    // is relative to the original top-left; a null one is not checked.
    void frameless_data()
    {
        QTest::addColumn<int>("setup"); // library helper: 1 not movable, 2 not resizable, 4 title 2^31 + 5 set
            // elsewhere, 5 band on move, 6 band on resize, 7 maximized, 8 border 10 set elsewhere,
            // 9 border UINT_MAX; host helper: 10 defaults, 11 not resizable, 12 neither, 13 title 30
        QTest::addColumn<QPoint>("press"); QTest::addColumn<QPoint>("to"); QTest::addColumn<int>("cursor");
        QTest::addColumn<QRect>("expected");
        const int none = Qt::ArrowCursor, hor = Qt::SizeHorCursor, ver = Qt::SizeVerCursor;
        const int fdiag = Qt::SizeFDiagCursor, bdiag = Qt::SizeBDiagCursor;
        const QRect same(0, 0, 300, 200), dragged(40, 25, 300, 200);
        QTest::newRow("last title row drags") << 0 << QPoint(150, 29) << QPoint(190, 54) << none << dragged;
        QTest::newRow("below the title") << 0 << QPoint(150, 30) << QPoint(190, 55) << none << same;
        QTest::newRow("not movable") << 1 << QPoint(150, 15) << QPoint(190, 40) << none << same;
        QTest::newRow("huge title clamped") << 4 << QPoint(150, 100) << QPoint(160, 110) << none << QRect(10, 10, 300, 200);
        QTest::newRow("band on move") << 5 << QPoint(150, 10) << QPoint(170, 40) << none << QRect(20, 30, 300, 200);
        QTest::newRow("left band, inner limit") << 0 << QPoint(5, 100) << QPoint(53, 100) << hor << QRect(53, 0, 247, 200);
        QTest::newRow("inside the left band") << 0 << QPoint(6, 100) << QPoint(56, 100) << none << same;
        QTest::newRow("inside the right band") << 0 << QPoint(294, 100) << QPoint(344, 100) << none << same;
        QTest::newRow("right band, inner limit") << 0 << QPoint(295, 100) << QPoint(345, 100) << hor << QRect(0, 0, 346, 200);
        QTest::newRow("one past right()") << 0 << QPoint(300, 100) << QPoint(350, 100) << hor << QRect(0, 0, 351, 200);
        QTest::newRow("two past right()") << 0 << QPoint(301, 100) << QPoint(350, 100) << none << same;
        QTest::newRow("band on resize") << 6 << QPoint(298, 100) << QPoint(349, 100) << hor << QRect(0, 0, 350, 200);
        QTest::newRow("not resizable") << 2 << QPoint(298, 100) << QPoint(349, 100) << none << same;
        QTest::newRow("right below the minimum") << 0 << QPoint(298, 100) << QPoint(149, 100) << hor << same;
        QTest::newRow("below the top band drags") << 0 << QPoint(150, 6) << QPoint(190, 31) << none << dragged;
        QTest::newRow("top band") << 0 << QPoint(150, 5) << QPoint(150, -20) << ver << QRect(0, -20, 300, 220);
        QTest::newRow("above the bottom band") << 0 << QPoint(150, 194) << QPoint(150, 250) << none << same;
        QTest::newRow("one past bottom()") << 0 << QPoint(150, 200) << QPoint(150, 259) << ver << QRect(0, 0, 300, 260);
        QTest::newRow("bottom below the minimum") << 0 << QPoint(150, 198) << QPoint(150, 80) << ver << same;
        QTest::newRow("top-left") << 0 << QPoint(0, 0) << QPoint(-10, -20) << fdiag << QRect(-10, -20, 310, 220);
        QTest::newRow("top-left past the far corner") << 0 << QPoint(1, 1) << QPoint(400, 300) << fdiag << same;
        QTest::newRow("bottom-right, width refused") << 0 << QPoint(299, 199) << QPoint(100, 229) << fdiag << QRect(0, 0, 300, 230);
        QTest::newRow("bottom-left") << 0 << QPoint(3, 197) << QPoint(-10, 219) << bdiag << QRect(-10, 0, 310, 220);
        QTest::newRow("top-right") << 0 << QPoint(297, 2) << QPoint(309, -20) << bdiag << QRect(0, -20, 310, 220);
        QTest::newRow("maximized") << 7 << QPoint(0, 100) << QPoint(50, 100) << none << QRect();
        QTest::newRow("shared border width") << 8 << QPoint(10, 100) << QPoint(60, 100) << hor << QRect(60, 0, 240, 200);
        QTest::newRow("huge border clamped") << 9 << QPoint(150, 100) << QPoint(150, 100) << fdiag << QRect();
        // The host helper: no title limit, a 5-pixel band, resizing by the mouse's travel.
        QTest::newRow("host right band, inner limit") << 10 << QPoint(295, 100) << QPoint(325, 100) << hor << QRect(0, 0, 330, 200);
        QTest::newRow("host bottom band, inner limit") << 10 << QPoint(150, 195) << QPoint(150, 215) << ver << QRect(0, 0, 300, 220);
        QTest::newRow("host left of the right band") << 10 << QPoint(294, 100) << QPoint(304, 110) << none << QRect(10, 10, 300, 200);
        QTest::newRow("host above the bottom band") << 10 << QPoint(150, 194) << QPoint(150, 214) << none << QRect(0, 20, 300, 200);
        QTest::newRow("host left past the minimum") << 10 << QPoint(4, 100) << QPoint(154, 100) << hor << QRect(100, 0, 200, 200);
        QTest::newRow("host top past the minimum") << 10 << QPoint(150, 4) << QPoint(150, 154) << ver << QRect(0, 100, 300, 100);
        QTest::newRow("host right below the minimum") << 10 << QPoint(298, 100) << QPoint(148, 100) << hor << QRect(0, 0, 200, 200);
        QTest::newRow("host bottom-right") << 10 << QPoint(298, 198) << QPoint(308, 218) << fdiag << QRect(0, 0, 310, 220);
        QTest::newRow("host top-right") << 10 << QPoint(298, 1) << QPoint(308, -9) << bdiag << QRect(0, -10, 310, 210);
        QTest::newRow("host bottom-left") << 10 << QPoint(1, 198) << QPoint(-9, 208) << bdiag << QRect(-10, 0, 310, 210);
        QTest::newRow("host edge drags when fixed") << 11 << QPoint(297, 100) << QPoint(327, 110) << none << QRect(30, 10, 300, 200);
        QTest::newRow("host neither") << 12 << QPoint(297, 100) << QPoint(327, 110) << none << same;
        QTest::newRow("host last title row") << 13 << QPoint(150, 29) << QPoint(190, 54) << none << dragged;
        QTest::newRow("host below the title") << 13 << QPoint(150, 30) << QPoint(190, 55) << none << same;
    }
    void frameless()
    {
        QFETCH(int, setup); QFETCH(QPoint, press); QFETCH(QPoint, to); QFETCH(QRect, expected);
        if (setup == 4 || setup == 8 || setup == 9) {
            FramelessHelper other;
            const uint value = setup == 8 ? 10u : setup == 4 ? 0x80000005u : UINT_MAX;
            if (setup != 8)
                QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("value too large! %1$").arg(value)));
            setup == 4 ? other.setTitleHeight(value) : other.setBorderWidth(value);
            other.setBorderWidth(0); // ignored
            other.setTitleHeight(0);
            QCOMPARE(setup == 4 ? other.titleHeight() : other.borderWidth(), qMin(value, 16384u));
        }
        Target t(setup >= 10);
        if (setup == 7) {
            t.widget.showMaximized();
            t.origin = t.widget.frameGeometry().topLeft();
        }
        if (t.host) {
            t.host->activateOn(nullptr); // ignored, as is a second activation
            t.host->activateOn(&t.widget);
            t.host->setWidgetMovable(setup != 12, setup == 13 ? 30 : 0);
            t.host->setWidgetResizable(setup == 10 || setup == 13);
        } else {
            t.helper.setWidgetMovable(setup != 1);
            t.helper.setWidgetResizable(setup != 2);
            t.helper.setRubberBandOnMove(setup == 5);
            t.helper.setRubberBandOnResize(setup == 6);
        }
        // The library helper consumes every mouse event of a widget; the host's only its drags.
        QTest::keyClick(&t.widget, Qt::Key_A);
        t.send(QEvent::MouseButtonPress, press, Qt::RightButton);
        t.send(QEvent::MouseMove, press, Qt::NoButton);
        QCOMPARE(t.widget.keys + t.widget.presses + t.widget.moves, t.host ? 3 : 1);
        QTEST(int(t.widget.cursor().shape()), "cursor");
        QEvent leave(QEvent::Leave); // leaving clears it, hovering sets it again
        QCoreApplication::sendEvent(&t.widget, &leave);
        QCOMPARE(t.widget.cursor().shape(), Qt::ArrowCursor);
        t.send(QEvent::MouseMove, press, Qt::NoButton);
        QTEST(int(t.widget.cursor().shape()), "cursor");
        if (!t.host) {
            QHoverEvent inside(QEvent::HoverMove, QPointF(150, 100), QPointF(press)); // clears it again
            QCoreApplication::sendEvent(&t.widget, &inside);
            QCOMPARE(int(t.widget.cursor().shape()), setup == 9 ? int(Qt::SizeFDiagCursor) : int(Qt::ArrowCursor));
        }
        if (expected.isNull()) return;
        t.send(QEvent::MouseButtonPress, press);
        t.send(QEvent::MouseMove, to);
        if (setup == 5 || setup == 6) {
            QRect band; // the visible rubber band's
            for (QWidget* w : QApplication::topLevelWidgets())
                band = qobject_cast<QRubberBand*>(w) && w->isVisible() ? w->geometry().translated(-t.origin) : band;
            QCOMPARE(band, expected);
            QCOMPARE(t.relative(), QRect(0, 0, 300, 200));
        }
        t.send(QEvent::MouseButtonRelease, to);
        QTest::qWait(10); // a platform may apply a move late
        QTRY_COMPARE(t.relative(), expected);
        QCOMPARE(t.widget.presses + t.widget.moves, !t.host ? 0 : expected == QRect(0, 0, 300, 200) ? 5 : 3);
        if (t.host) {
            t.host->setWidgetResizable(false);
            QCOMPARE(t.widget.cursor().shape(), Qt::ArrowCursor);
            return;
        }
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
        QTest::addColumn<int>("type"); QTest::addColumn<int>("from"); QTest::addColumn<QPoint>("oldAtHalf");
        QTest::addColumn<QPoint>("newAtHalf");
        QTest::newRow("BottomToTop") << 0 << 150 << QPoint(150, 10) << QPoint(150, 30);
        QTest::newRow("TopToBottom") << 1 << -150 << QPoint(150, 30) << QPoint(150, 10);
        QTest::newRow("LeftToRight") << 2 << -150 << QPoint(200, 20) << QPoint(100, 20);
        QTest::newRow("RightToLeft") << 3 << 150 << QPoint(100, 20) << QPoint(200, 20);
    }
    void slide()
    {
        QFETCH(int, type); QFETCH(int, from); QFETCH(QPoint, oldAtHalf); QFETCH(QPoint, newAtHalf);
        const auto kind = UxAnimationStackedWidget::AnimationType(type);
        UxAnimationStackedWidget w;
        auto* animation = w.findChild<QPropertyAnimation*>();
        w.setLength(301, kind);
        QCOMPARE(QVariantList({animation->startValue(), animation->endValue()}), QVariantList({from, -from}));
        for (const QColor& c : {QColor(Qt::red), QColor(Qt::blue)}) {
            auto* page = new QWidget;
            page->setStyleSheet(QStringLiteral("background: %1").arg(c.name()));
            page->setAutoFillBackground(true);
            w.addWidget(page);
        }
        w.setLength(0, kind);
        w.resize(300, 40); // a resize takes the range from the new width, whatever the direction
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QCOMPARE(animation->startValue().toInt(), from);
        if (type < 2) w.setLength(40, kind);
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
        QCOMPARE(QList<QColor>({half.pixelColor(oldAtHalf), half.pixelColor(newAtHalf)}), QList<QColor>({Qt::red, Qt::blue}));
        QCOMPARE(changed.count(), 0); // the index changes only when the slide ends
        animation->setCurrentTime(animation->duration());
        QCOMPARE(QList<QVariantList>(changed), QList<QVariantList>{{1}});
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
        QTest::addColumn<int>("width"); QTest::addColumn<int>("spacing"); QTest::addColumn<int>("perRow");
        QTest::newRow("spaced") << 100 << 4 << 3;
        QTest::newRow("wider than one item") << 10 << 0 << 1;
        QTest::newRow("wider than one item, spaced") << 10 << 4 << 1; // an empty row never wraps
    }
    void flow()
    {
        QFETCH(int, width); QFETCH(int, spacing); QFETCH(int, perRow);
        QWidget host;
        auto* layout = new UxFlowLayout(&host, 6, spacing, spacing);
        layout->setContentsMargins(6, 6, 5, 7);
        QList<QPushButton*> buttons;
        for (int i = 0; i < 24; ++i) {
            buttons << new QPushButton;
            buttons.last()->setFixedSize(20, 20);
            layout->addWidget(buttons.last());
        }
        const int rows = (24 + perRow - 1) / perRow;
        QCOMPARE(layout->heightForWidth(width - 1), 13 + rows * 20 + (rows - 1) * spacing);
        layout->setGeometry(QRect(0, 0, width - 1, 400));
        for (int i : {0, perRow - 1, perRow, 23})
            QCOMPARE(buttons[i]->geometry(), QRect(6 + (i % perRow) * (20 + spacing), 6 + (i / perRow) * (20 + spacing), 20, 20));
        QCOMPARE(layout->minimumSize(), QSize(31, 33));
        std::unique_ptr<QLayoutItem> first(layout->takeAt(0)); // hands the first item over, the rest shift
        QVERIFY(first && first->widget() == buttons[0]);
        QCOMPARE(layout->itemAt(0)->widget(), buttons[1]);
        QVERIFY(!layout->itemAt(-1) && !layout->takeAt(-1) && !layout->takeAt(23));
        QVERIFY(layout->heightForWidth(-10) >= 0); // nonsense sizes are survived
        layout->setGeometry(QRect(0, 0, -5, -5));
        QCOMPARE(layout->count(), 23);
    }
};

UX_TEST_MAIN(TstChrome)
#include "tst_chrome.moc"
