// The host core's contract: style registration and re-application on a skin
// switch, skin paths and the fallback to compiled-in defaults, configuration
// paths, invoking by name, and the frameless helper's drag and resize.

#include "uxtestenv.h"

#include <uxcore/uxcore.h>

#include "uxfiledialog.h"

#include <QLabel>
#include <QMouseEvent>
#include <QSignalSpy>

namespace {

// A skinned widget that counts what the skin manager hands it.
class SkinnedLabel : public QLabel, public IUxSkin
{
public:
    explicit SkinnedLabel(const QString& cssPath) { UxCore::instance()->addStyle2View(this, cssPath); }
    void loadSkin(const QVariant& style) override
    {
        ++loads;
        IUxSkin::loadSkin(style);
    }
    int loads = 0;
};

class Target : public QObject
{
    Q_OBJECT
public:
    QStringList calls;
    Q_INVOKABLE void openStringUrl(const QString& url) { calls << url; }
    Q_INVOKABLE void two(const QString& a, int b) { calls << a + QString::number(b); }
};

const QString kLightSheet = QStringLiteral("QLabel { color: #010203; }");
const QString kDarkSheet = QStringLiteral("QLabel { color: #040506; }");

} // namespace

class TstHostCore : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        UxTest::writeSkin(QStringLiteral("light"), {{"test/a.css", kLightSheet.toUtf8()}});
        UxTest::writeSkin(QStringLiteral("dark"), {{"test/a.css", kDarkSheet.toUtf8()}});
        UxCore::instance()->setSkinRoot(UxTest::skinRoot()); // drops cached sheets
        UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
    }

    void registrationAppliesNowAndOnEverySwitch()
    {
        SkinnedLabel w(QStringLiteral("test/a.css"));
        QCOMPARE(w.widget(), static_cast<QWidget*>(&w));
        QCOMPARE(w.loads, 1);
        QCOMPARE(w.styleSheet(), kLightSheet);
        w.IUxSkin::loadSkin(QVariant()); // an invalid style changes nothing
        QCOMPARE(w.styleSheet(), kLightSheet);

        // The signal comes after the sheets are re-applied.
        QString sheetWhenSignalled;
        QMetaObject::Connection c = connect(UxCore::instance(), &UxCore::signalSkinChanged, this,
                                            [&](const QString&) { sheetWhenSignalled = w.styleSheet(); });
        QSignalSpy spy(UxCore::instance(), &UxCore::signalSkinChanged);
        UxCore::instance()->setCurrentSkin(QStringLiteral("dark"));
        disconnect(c);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("dark"));
        QCOMPARE(w.loads, 2);
        QCOMPARE(sheetWhenSignalled, kDarkSheet);
        QCOMPARE(UxCore::instance()->getCurrentSkinId(), QStringLiteral("dark"));
    }

    void destroyedWidgetIsNeverStyledAgain()
    {
        const int before = UxCore::instance()->registeredViewCount();
        delete new SkinnedLabel(QStringLiteral("test/a.css"));
        QCOMPARE(UxCore::instance()->registeredViewCount(), before);

        // A widget destroyed by another widget's loadSkin during the switch must not be called.
        struct Killer : SkinnedLabel
        {
            using SkinnedLabel::SkinnedLabel;
            SkinnedLabel* victim = nullptr;
            void loadSkin(const QVariant& style) override
            {
                SkinnedLabel::loadSkin(style);
                if (loads > 1 && victim) {
                    delete victim;
                    victim = nullptr;
                }
            }
        };
        Killer killer(QStringLiteral("test/a.css"));
        killer.victim = new SkinnedLabel(QStringLiteral("test/a.css"));
        UxCore::instance()->setCurrentSkin(QStringLiteral("dark")); // crashes under the sanitizers if not
        QCOMPARE(killer.victim, nullptr);
    }

    void missingSheetFallsBackToDefaultsThenNothing()
    {
        SkinnedLabel table(QStringLiteral("quote/customtable.css")); // compiled-in default
        QVERIFY(table.styleSheet().contains(QLatin1String("QTableView")));
        SkinnedLabel w(QStringLiteral("test/only-in-light.css"));
        QVERIFY(w.styleSheet().isEmpty());
        // A previous skin's look does not linger where the new skin lacks the sheet.
        UxTest::writeSkin(QStringLiteral("light"), {{"test/b.css", "QLabel { color: red; }"}});
        UxCore::instance()->setSkinRoot(UxTest::skinRoot());
        SkinnedLabel b(QStringLiteral("test/b.css"));
        QVERIFY(!b.styleSheet().isEmpty());
        UxCore::instance()->setCurrentSkin(QStringLiteral("dark"));
        QVERIFY(b.styleSheet().isEmpty());
    }

    void relativeUrlsResolveAgainstTheSkinFolder_data()
    {
        QTest::addColumn<QByteArray>("sheet");
        QTest::addColumn<QString>("expected");
        const QString dir = UxTest::skinRoot() + QStringLiteral("/light");
        QTest::newRow("quoted") << QByteArray("a { image: url(\"img/x.png\"); }")
                                << QStringLiteral("a { image: url(%1/img/x.png); }").arg(dir);
        QTest::newRow("resource kept") << QByteArray("a { image: url(:/uicomponents/y.png); }")
                                       << QStringLiteral("a { image: url(:/uicomponents/y.png); }");
        QTest::newRow("two urls") << QByteArray("a{b:url(p.png)} c{d:url('q.png')}")
                                  << QStringLiteral("a{b:url(%1/p.png)} c{d:url(%1/q.png)}").arg(dir);
    }
    void relativeUrlsResolveAgainstTheSkinFolder()
    {
        QFETCH(QByteArray, sheet);
        UxTest::writeSkin(QStringLiteral("light"), {{"test/url.css", sheet}});
        UxCore::instance()->setSkinRoot(UxTest::skinRoot());
        QTEST(UxCore::instance()->styleSheet(QStringLiteral("test/url.css")), "expected");
    }

    void skinPathsAndIds()
    {
        UxTest::writeSkin(QStringLiteral("dark"), {{"img/only-dark.png", "x"}});
        UxCore::instance()->setCurrentSkin(QStringLiteral("dark"));
        UxCore* core = UxCore::instance();
        QCOMPARE(core->getCurrentSkinPath(QStringLiteral("img/only-dark.png")),
                 UxTest::skinRoot() + QStringLiteral("/dark/img/only-dark.png"));
        // Missing everywhere: still a path inside the current skin; compiled in: the default.
        QCOMPARE(core->getCurrentSkinPath(QStringLiteral("none.png")), UxTest::skinRoot() + QStringLiteral("/dark/none.png"));
        QCOMPARE(core->getCurrentSkinPath(QStringLiteral("quote/customtable.css")),
                 QStringLiteral(":/uicomponents/quote/customtable.css"));
        QVERIFY(core->skinIds().contains(QStringLiteral("black")));
    }

    void mainWindowAndConfigPaths()
    {
        QCOMPARE(UxApplication::uxmainWindow(), nullptr);
        auto* w = new QWidget;
        UxCore::instance()->setMainWindow(w);
        QCOMPARE(UxApplication::uxmainWindow(), w);
        delete w;
        QCOMPARE(UxCore::instance()->mainWindow(), nullptr);

        QCOMPARE(UxCfg::instance()->path(QString()), UxTest::configDir());
        UxCfg::instance()->setPath(QString(), UxTest::configDir() + QStringLiteral("/sub/"));
        QCOMPARE(UxCfg::instance()->path(QString()), UxTest::configDir() + QStringLiteral("/sub"));
        QCOMPARE(UxCfg::instance()->path(QStringLiteral("layouts")), UxTest::configDir() + QStringLiteral("/sub/layouts"));
        UxCfg::instance()->setPath(QString(), UxTest::configDir());
    }

    void invokeByName()
    {
        Target t;
        QString a = QStringLiteral("n=");
        int b = 42;
        InvokerBase invoker;
        invoker.addArgument(&a, "QString");
        invoker.addArgument(&b, "int");
        invoker.invoke(&t, "two");
        QCOMPARE(t.calls, QStringList{QStringLiteral("n=42")});

        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("no such method")));
        invoker.invoke(&t, "noSuchMethod");
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("target is null")));
        InvokerBase().invoke(nullptr, "openStringUrl");
        QCOMPARE(t.calls.size(), 1);
    }

    // The host helper drags and resizes from activateOn() on, unless told
    // otherwise; the skinned file dialog relies on that.
    void framelessHelper_data()
    {
        QTest::addColumn<int>("setup"); // 0 defaults, 1 not resizable, 2 neither, 3 file dialog
        QTest::addColumn<QPoint>("press");
        QTest::addColumn<QPoint>("to");
        QTest::addColumn<QRect>("expected"); // relative to the original geometry
        QTest::newRow("drag") << 0 << QPoint(50, 50) << QPoint(80, 70) << QRect(30, 20, 200, 150);
        QTest::newRow("right edge") << 0 << QPoint(198, 75) << QPoint(228, 75) << QRect(0, 0, 230, 150);
        QTest::newRow("bottom edge") << 0 << QPoint(100, 148) << QPoint(100, 168) << QRect(0, 0, 200, 170);
        QTest::newRow("above the bottom band drags") << 0 << QPoint(100, 144) << QPoint(100, 164) << QRect(0, 20, 200, 150);
        QTest::newRow("left edge") << 0 << QPoint(1, 75) << QPoint(21, 75) << QRect(20, 0, 180, 150);
        QTest::newRow("edge drags when fixed") << 1 << QPoint(198, 75) << QPoint(228, 85) << QRect(30, 10, 200, 150);
        QTest::newRow("neither") << 2 << QPoint(198, 75) << QPoint(228, 85) << QRect(0, 0, 200, 150);
        QTest::newRow("file dialog drag") << 3 << QPoint(100, 60) << QPoint(130, 80) << QRect(30, 20, 0, 0);
        QTest::newRow("file dialog resize") << 3 << QPoint(-2, 60) << QPoint(38, 60) << QRect(0, 0, 40, 0);
    }
    void framelessHelper()
    {
        QFETCH(int, setup);
        QFETCH(QPoint, press);
        QFETCH(QPoint, to);
        QFETCH(QRect, expected);
        QScopedPointer<QWidget> w(setup == 3 ? static_cast<QWidget*>(new UxFileDialog) : new QWidget);
        if (setup == 3) {
            w->resize(700, 480);
            if (press.x() < 0) { // from the right edge
                press.rx() += w->width();
                to.rx() += w->width();
            }
            expected.setSize(expected.size() + w->size());
        } else {
            w->setWindowFlags(Qt::FramelessWindowHint);
            w->resize(200, 150);
        }
        w->move(100, 100);
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.data()));
        const QRect before = w->geometry();
        UxFramelessHelper* helper = setup == 3 ? w->findChild<UxFramelessHelper*>() : new UxFramelessHelper(w.data());
        QVERIFY(helper);
        if (setup != 3)
            helper->activateOn(w.data());
        if (setup == 2)
            helper->setWidgetMovable(false, 0);
        if (setup >= 1 && setup <= 2)
            helper->setWidgetResizable(false);
        UxTest::sendMouse(w.data(), QEvent::MouseButtonPress, press, w->mapToGlobal(press));
        UxTest::sendMouse(w.data(), QEvent::MouseMove, to, w->mapToGlobal(to));
        UxTest::sendMouse(w.data(), QEvent::MouseButtonRelease, to, w->mapToGlobal(to));
        QTRY_COMPARE(w->geometry(), expected.translated(before.topLeft()));
    }

    void framelessHelperPassesOtherEventsOn()
    {
        struct Counting : QWidget {
            int keys = 0, presses = 0;
            void keyPressEvent(QKeyEvent*) override { ++keys; }
            void mousePressEvent(QMouseEvent*) override { ++presses; }
        } w;
        w.resize(200, 150);
        UxFramelessHelper helper(&w);
        helper.activateOn(&w);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QTest::keyClick(&w, Qt::Key_A);
        QCOMPARE(w.keys, 1);
        UxTest::sendMouse(&w, QEvent::MouseButtonPress, QPoint(50, 50), w.mapToGlobal(QPoint(50, 50)), Qt::RightButton);
        QCOMPARE(w.presses, 1);
    }
};

UX_TEST_MAIN(TstHostCore)
#include "tst_hostcore.moc"
