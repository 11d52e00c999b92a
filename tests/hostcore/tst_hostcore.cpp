// The host core's contract: style registration and re-application on a skin
// switch, skin paths and the fallback to compiled-in defaults, configuration
// paths, invoking by name, and the frameless helper's drag and resize.

#include "uxtestenv.h"

#include <uxcore/uxcore.h>

#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>

namespace {

// A skinned widget that counts what the skin manager hands it.
class SkinnedLabel : public QLabel, public IUxSkin
{
public:
    explicit SkinnedLabel(const QString& cssPath)
    {
        UxCore::instance()->addStyle2View(this, cssPath);
    }
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

} // namespace

class TstHostCore : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        UxTest::writeSkin(QStringLiteral("light"), {{"test/a.css", "QLabel { color: #010203; }"}});
        UxTest::writeSkin(QStringLiteral("dark"), {{"test/a.css", "QLabel { color: #040506; }"}});
        UxCore::instance()->setSkinRoot(UxTest::skinRoot()); // drops cached sheets
        UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
    }

    void registrationAppliesAtOnce()
    {
        SkinnedLabel w(QStringLiteral("test/a.css"));
        QCOMPARE(w.loads, 1);
        QCOMPARE(w.styleSheet(), QStringLiteral("QLabel { color: #010203; }"));
    }

    void skinSwitchReappliesThenSignals()
    {
        SkinnedLabel w(QStringLiteral("test/a.css"));
        QString sheetWhenSignalled;
        QMetaObject::Connection c = connect(UxCore::instance(), &UxCore::signalSkinChanged, this,
                                            [&](const QString&) { sheetWhenSignalled = w.styleSheet(); });
        QSignalSpy spy(UxCore::instance(), &UxCore::signalSkinChanged);
        UxCore::instance()->setCurrentSkin(QStringLiteral("dark"));
        disconnect(c);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toString(), QStringLiteral("dark"));
        QCOMPARE(w.loads, 2);
        QCOMPARE(sheetWhenSignalled, QStringLiteral("QLabel { color: #040506; }"));
        QCOMPARE(UxCore::instance()->getCurrentSkinId(), QStringLiteral("dark"));
    }

    void destroyedWidgetIsNeverStyledAgain()
    {
        const int before = UxCore::instance()->registeredViewCount();
        auto* w = new SkinnedLabel(QStringLiteral("test/a.css"));
        QCOMPARE(UxCore::instance()->registeredViewCount(), before + 1);
        delete w;
        QCOMPARE(UxCore::instance()->registeredViewCount(), before);
        // Would touch freed memory (and fail under the sanitizers) if still registered.
        UxCore::instance()->setCurrentSkin(QStringLiteral("dark"));
    }

    void viewDestroyedDuringSwitchIsSkipped()
    {
        // A widget destroyed by another widget's loadSkin must not be called.
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
        UxCore::instance()->setCurrentSkin(QStringLiteral("dark"));
        QCOMPARE(killer.victim, nullptr);
    }

    void missingSheetFallsBackToDefaultsThenNothing()
    {
        // The compiled-in default exists for the quote table.
        SkinnedLabel table(QStringLiteral("quote/customtable.css"));
        QVERIFY(table.styleSheet().contains(QLatin1String("QTableView")));
        // Neither skin nor defaults: unstyled, and a previous skin's look does not linger.
        SkinnedLabel w(QStringLiteral("test/only-in-light.css"));
        QVERIFY(w.styleSheet().isEmpty());
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
        QTest::newRow("plain") << QByteArray("a { image: url(img/x.png); }")
                               << QStringLiteral("a { image: url(%1/img/x.png); }").arg(dir);
        QTest::newRow("quoted") << QByteArray("a { image: url(\"img/x.png\"); }")
                                << QStringLiteral("a { image: url(%1/img/x.png); }").arg(dir);
        QTest::newRow("resource kept") << QByteArray("a { image: url(:/uicomponents/y.png); }")
                                       << QStringLiteral("a { image: url(:/uicomponents/y.png); }");
        QTest::newRow("absolute kept") << QByteArray("a { image: url(/usr/x.png); }")
                                       << QStringLiteral("a { image: url(/usr/x.png); }");
        QTest::newRow("two urls") << QByteArray("a{b:url(p.png)} c{d:url('q.png')}")
                                  << QStringLiteral("a{b:url(%1/p.png)} c{d:url(%1/q.png)}").arg(dir);
    }
    void relativeUrlsResolveAgainstTheSkinFolder()
    {
        QFETCH(QByteArray, sheet);
        QFETCH(QString, expected);
        UxTest::writeSkin(QStringLiteral("light"), {{"test/url.css", sheet}});
        UxCore::instance()->setSkinRoot(UxTest::skinRoot());
        QCOMPARE(UxCore::instance()->styleSheet(QStringLiteral("test/url.css")), expected);
    }

    void skinPaths()
    {
        UxTest::writeSkin(QStringLiteral("dark"), {{"img/only-dark.png", "x"}});
        UxCore::instance()->setCurrentSkin(QStringLiteral("dark"));
        QCOMPARE(UxCore::instance()->getCurrentSkinPath(QStringLiteral("img/only-dark.png")),
                 UxTest::skinRoot() + QStringLiteral("/dark/img/only-dark.png"));
        // Missing everywhere: still a path inside the current skin.
        QCOMPARE(UxCore::instance()->getCurrentSkinPath(QStringLiteral("none.png")),
                 UxTest::skinRoot() + QStringLiteral("/dark/none.png"));
        // Missing in the skin but compiled in: the default.
        QCOMPARE(UxCore::instance()->getCurrentSkinPath(QStringLiteral("quote/customtable.css")),
                 QStringLiteral(":/uicomponents/quote/customtable.css"));
        const QStringList ids = UxCore::instance()->skinIds();
        QVERIFY(ids.contains(QStringLiteral("light")) && ids.contains(QStringLiteral("dark"))
                && ids.contains(QStringLiteral("black")));
    }

    void mainWindow()
    {
        QCOMPARE(UxApplication::uxmainWindow(), nullptr);
        auto* w = new QWidget;
        UxCore::instance()->setMainWindow(w);
        QCOMPARE(UxApplication::uxmainWindow(), w);
        delete w;
        QCOMPARE(UxCore::instance()->mainWindow(), nullptr);
    }

    void configPaths()
    {
        QCOMPARE(UxCfg::instance()->path(QString()), UxTest::configDir());
        UxCfg::instance()->setPath(QString(), UxTest::configDir() + QStringLiteral("/sub/"));
        QCOMPARE(UxCfg::instance()->path(QString()), UxTest::configDir() + QStringLiteral("/sub"));
        QCOMPARE(UxCfg::instance()->path(QStringLiteral("layouts")), UxTest::configDir() + QStringLiteral("/sub/layouts"));
        UxCfg::instance()->setPath(QString(), UxTest::configDir());
    }

    void invokeByName()
    {
        Target t;
        QString url = QStringLiteral("view://attentionpage?id=7");
        InvokerBase invoker;
        invoker.addArgument(&url, "QString");
        invoker.invoke(&t, "openStringUrl");
        QCOMPARE(t.calls, QStringList{url});

        QString a = QStringLiteral("n=");
        int b = 42;
        InvokerBase two;
        using Arg = QPair<void*, const char*>;
        two << Arg(&a, "QString") << Arg(&b, "int");
        two.invoke(&t, "two");
        QCOMPARE(t.calls.last(), QStringLiteral("n=42"));
    }

    void invokeBadTargetsAreLoggedNotCalled()
    {
        Target t;
        InvokerBase invoker;
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("no such method")));
        invoker.invoke(&t, "noSuchMethod");
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("target is null")));
        invoker.invoke(nullptr, "openStringUrl");
        QVERIFY(t.calls.isEmpty());
    }

    void interfacesAreFoundByQobjectCast()
    {
        struct Skinned : QWidget, IUxSkin
        {
        };
        Skinned s;
        QCOMPARE(s.widget(), static_cast<QWidget*>(&s));
        QVERIFY(QByteArray(qobject_interface_iid<IUxSkin*>()).startsWith("com.uicomponents"));
        QVERIFY(QByteArray(qobject_interface_iid<IUxMemory*>()).startsWith("com.uicomponents"));
    }

    void invalidStyleChangesNothing()
    {
        SkinnedLabel w(QStringLiteral("test/a.css"));
        w.IUxSkin::loadSkin(QVariant());
        QCOMPARE(w.styleSheet(), QStringLiteral("QLabel { color: #010203; }"));
    }

    void framelessHelperDragsTheWindow()
    {
        QWidget w;
        w.setWindowFlags(Qt::FramelessWindowHint);
        w.setGeometry(100, 100, 200, 150);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        UxFramelessHelper helper(&w);
        helper.activateOn(&w);
        helper.setWidgetMovable(true, 0);
        helper.setWidgetResizable(false);
        const QPoint start = w.pos();
        QTest::mousePress(&w, Qt::LeftButton, Qt::NoModifier, QPoint(50, 50));
        QMouseEvent move(QEvent::MouseMove, QPoint(80, 70), w.mapToGlobal(QPoint(80, 70)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&w, &move);
        QTest::mouseRelease(&w, Qt::LeftButton, Qt::NoModifier, QPoint(80, 70));
        QCOMPARE(w.pos(), start + QPoint(30, 20));
        QCOMPARE(w.size(), QSize(200, 150));
    }

    void framelessHelperResizesOnlyWhenAsked_data()
    {
        QTest::addColumn<bool>("resizable");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("fixed") << false << QSize(200, 150);
        QTest::newRow("resizable") << true << QSize(230, 150);
    }
    void framelessHelperResizesOnlyWhenAsked()
    {
        QFETCH(bool, resizable);
        QFETCH(QSize, expected);
        QWidget w;
        w.setWindowFlags(Qt::FramelessWindowHint);
        w.setGeometry(100, 100, 200, 150);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        UxFramelessHelper helper(&w);
        helper.activateOn(&w);
        helper.setWidgetMovable(false, 0);
        helper.setWidgetResizable(resizable);
        const QPoint edge(198, 75);
        QTest::mousePress(&w, Qt::LeftButton, Qt::NoModifier, edge);
        QMouseEvent move(QEvent::MouseMove, edge + QPoint(30, 0), w.mapToGlobal(edge + QPoint(30, 0)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&w, &move);
        QTest::mouseRelease(&w, Qt::LeftButton, Qt::NoModifier, edge + QPoint(30, 0));
        QCOMPARE(w.size(), expected);
    }
};

UX_TEST_MAIN(TstHostCore)
#include "tst_hostcore.moc"
