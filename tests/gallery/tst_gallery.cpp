// The gallery as a client runs it: the window registered with the host core, paging, ticks, sorting and
// skin switches through the quote page, the ticker's click reaching openStringUrl, and the screenshot mode.

#include "uxtestenv.h"

#include "gallerywindow.h"
#include "marketsimulator.h"
#include "quotespage.h"

#include <uicomponents/uxcustomtablewidget.h>
#include <uicomponents/uxlooplabels.h>

#include <QtWidgets>

#include <cmath>

namespace {

// WCAG relative luminance and contrast ratio.
double luminance(const QColor& c)
{
    const auto channel = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * channel(c.redF()) + 0.7152 * channel(c.greenF()) + 0.0722 * channel(c.blueF());
}

double contrast(const QColor& a, const QColor& b)
{ return (qMax(luminance(a), luminance(b)) + 0.05) / (qMin(luminance(a), luminance(b)) + 0.05); }

} // namespace

class TstGallery : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The shipped skins, so that every page is styled as users see it.
        UxCore::instance()->setSkinRoot(qEnvironmentVariable("UX_SOURCE_DIR") + QStringLiteral("/skins"));
        UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
    }

    // Deterministic per seed, clipped ranges, units that keep a decimal point, sorting with suspended ones last.
    void simulatedMarket()
    {
        MarketSimulator a(500, 7), b(500, 7), c(500, 8);
        QCOMPARE(a.rows(0, 500), b.rows(0, 500));
        QVERIFY(a.rows(0, 500) != c.rows(0, 500));
        QCOMPARE(a.tick(0, 50, 20), b.tick(0, 50, 20));
        QCOMPARE(a.rows(490, 100).size(), 10);
        QCOMPARE(a.rows(-2, 5), a.rows(0, 3));
        QStringList units;
        for (double value : {9999.0, 123456.0, 19674500.0, 426000000.0})
            units << MarketSimulator::formatUnits(value);
        QCOMPARE(units, QStringList({"9999", "12.35万", "1967.5万", "4.26亿"}));
        a.sortBy(QStringLiteral("Now"), 2);
        QList<double> prices;
        for (const _TableData& r : a.rows(0, 500))
            if (r.values.contains(QStringLiteral("Now"))) // suspended ones have none
                prices << r.values.value(QStringLiteral("Now")).toDouble();
        QVERIFY(prices.size() > 400 && std::is_sorted(prices.rbegin(), prices.rend()));
    }

    // The column file's tints per skin: untouched on the white table; on dark ones a dim tint of the same hue
    // under a brighter, legible price.
    void tintsReadOnEverySkin_data()
    {
        QTest::addColumn<QString>("skin");
        QTest::addColumn<QString>("direction");
        for (const char* skin : {"light", "dark", "black"})
            for (const char* direction : {"rise", "fall"})
                QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(QLatin1String(skin), QLatin1String(direction))))
                    << QString::fromLatin1(skin) << QString::fromLatin1(direction);
    }
    void tintsReadOnEverySkin()
    {
        QFETCH(QString, skin);
        QFETCH(QString, direction);
        const QJsonObject file = QJsonDocument::fromJson(UxTest::readFile(
            qEnvironmentVariable("UX_SOURCE_DIR") + QStringLiteral("/gallery/config/hsstocktemplatetable.json"))).object();
        const QColor text(file.value(direction + QStringLiteral("Color")).toString());
        const QColor tint(file.value(direction + QStringLiteral("BgColor")).toString());
        QVERIFY(text.isValid() && tint.isValid());
        const QColor shown = QuotesPage::tintForSkin(tint, skin);
        if (skin == QLatin1String("light")) {
            QCOMPARE(shown, tint);
            return;
        }
        QVERIFY2(luminance(shown) < luminance(text), qPrintable(shown.name()));
        QVERIFY2(contrast(shown, text) >= 3.0, qPrintable(QString::number(contrast(shown, text))));
        QVERIFY2(contrast(shown, QColor(Qt::black)) >= 1.15, qPrintable(shown.name())); // still visible as a tint
        QVERIFY(qAbs(shown.hsvHue() - tint.hsvHue()) <= 2);
    }

    // The window registers with the host core; only the requested rows carry quotes, a tick changes and tints
    // some of them, a header click asks for the block sorted, skins switch live, the ticker opens its page.
    void windowAnswersPagesTicksSkinsAndClicks()
    {
        GalleryWindow w;
        QCOMPARE(UxCore::instance()->mainWindow(), &w);
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        auto* page = qobject_cast<QuotesPage*>(w.pages().at(0).widget);
        QTRY_VERIFY_WITH_TIMEOUT(page->requestCount() > 0, 5000);
        const SubPageData request = page->lastRequest();
        const QList<_TableData> before = page->table()->getTableDatas();
        const int outside = request.start + request.count + 5;
        QVERIFY(request.count > 0 && outside < before.size());
        QCOMPARE(before.size(), w.market()->count());
        QVERIFY(!before.at(request.start).values.value(QStringLiteral("Now")).isEmpty());
        QVERIFY(before.at(outside).values.isEmpty());
        for (int i = 0; i < 5; ++i)
            page->tick();
        const QList<_TableData> after = page->table()->getTableDatas();
        int changed = 0, tinted = 0;
        for (int r = request.start; r < request.start + request.count && r < after.size(); ++r) {
            changed += before.at(r).values != after.at(r).values;
            for (int c = 0; c < page->table()->columnCount(); ++c)
                tinted += page->table()->backgroundColorAt(r, c).isValid();
        }
        QVERIFY(changed > 0 && tinted > 0);

        const int requests = page->requestCount();
        auto* view = page->table()->findChild<QTableView*>(QStringLiteral("tableView"));
        QVERIFY(view);
        const int x = view->horizontalHeader()->sectionViewportPosition(3) + 5; // "Now" in the shipped template
        QTest::mouseClick(view->horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, 5));
        QTRY_VERIFY_WITH_TIMEOUT(page->requestCount() > requests, 5000);
        const QList<_TableData> rows = page->table()->getTableDatas();
        QVERIFY(rows.at(0).values.value(QStringLiteral("Now")).toDouble() <= rows.at(1).values.value("Now").toDouble());

        const QString light = w.styleSheet();
        w.switchSkin(QStringLiteral("dark"));
        QCOMPARE(UxCore::instance()->getCurrentSkinId(), QStringLiteral("dark"));
        QVERIFY(w.styleSheet() != light && w.styleSheet().contains(QLatin1String("#1e2129")));
        QVERIFY(page->table()->styleSheet().contains(QLatin1String("QTableView")));
        w.switchSkin(QStringLiteral("light"));
        QCOMPARE(w.styleSheet(), light);

        tagMessage msg;
        msg.msgType = QStringLiteral("2");
        msg.content = QStringLiteral("价格预警");
        w.ticker()->slotClickedMsg(msg);
        QTRY_COMPARE(w.lastOpenedUrl(), QStringLiteral("view://attentionpage?rootid=0&id=1&attentionid=1"));
    }

    // One screenshot per page and skin, none blank (a styled page has more than a handful of colours);
    // without skins the table still gets the compiled-in sheet and there is one per page.
    void screenshotsOfEveryPageAndSkin_data()
    {
        QTest::addColumn<bool>("skins");
        QTest::newRow("shipped skins") << true;
        QTest::newRow("no skins") << false;
    }
    void screenshotsOfEveryPageAndSkin()
    {
        QFETCH(bool, skins);
        const QString shipped = UxCore::instance()->skinRoot();
        if (!skins)
            UxCore::instance()->setSkinRoot(UxTest::rootDir() + QStringLiteral("/no-such-skins"));
        const auto restore = qScopeGuard([shipped] { UxCore::instance()->setSkinRoot(shipped); });
        GalleryWindow w;
        w.show();
        QVERIFY(QTest::qWaitForWindowExposed(&w));
        QVERIFY(qobject_cast<QuotesPage*>(w.pages().at(0).widget)->table()->styleSheet().contains("QTableView"));
        QTemporaryDir dir;
        QVERIFY(w.writeScreenshots(dir.path()));
        const QStringList files = QDir(dir.path()).entryList({QStringLiteral("*.png")});
        QCOMPARE(files.size(), w.pages().size() * (skins ? UxCore::instance()->skinIds().size() : 1));
        for (const QString& f : files) {
            const QImage image(dir.filePath(f));
            QSet<QRgb> colours;
            for (int y = 0; y < image.height(); y += 7)
                for (int x = 0; x < image.width(); x += 7)
                    colours.insert(image.pixel(x, y));
            QVERIFY2(!image.isNull() && (!skins || colours.size() > 20), qPrintable(f));
        }
        QVERIFY(!skins || UxCore::instance()->getCurrentSkinId() == QLatin1String("light"));
    }
};

UX_TEST_MAIN(TstGallery)
#include "tst_gallery.moc"
