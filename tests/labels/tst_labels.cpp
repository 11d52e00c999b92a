// Labels, menus and buttons: the message ticker, the indent label and the
// filter tool button.

#include "uxtestenv.h"

#include "uxanimationstackedwidget.h"
#include "uxbottomlabel.h"
#include "uxcustomtoolbutton.h"
#include "uxlooplabels.h"
#include "uxnewindentlabel.h"

#include <QAction>
#include <QHelpEvent>
#include <QPropertyAnimation>
#include <QRegularExpression>

// Stands in for the client's main window: records the pages it is asked to open.
class TestMainWindow : public QWidget
{
    Q_OBJECT
public:
    QStringList urls;
    Q_INVOKABLE void openStringUrl(const QString& url) { urls << url; }
};

namespace {

tagMessage message(const QString& content, const QString& time = QStringLiteral("2024/03/05 09:30:00"),
                   const QString& type = QStringLiteral("1"), int level = 0)
{
    tagMessage m;
    m.msgType = type;
    m.level = level;
    m.time = time;
    m.content = content;
    return m;
}

// The i-th message of a series, each with its own time.
tagMessage nth(int i)
{
    return message(QStringLiteral("m%1").arg(i), QStringLiteral("2024/03/05 09:30:%1").arg(i, 2, 10, QLatin1Char('0')));
}

UxAnimationStackedWidget* stackOf(UxLoopLabels& ticker)
{
    return ticker.findChild<UxAnimationStackedWidget*>();
}

UxBottomLabel* lineAt(UxLoopLabels& ticker, int i)
{
    return qobject_cast<UxBottomLabel*>(stackOf(ticker)->widget(i));
}

QStringList lineTexts(UxLoopLabels& ticker)
{
    QStringList texts;
    UxAnimationStackedWidget* stack = stackOf(ticker);
    for (int i = 0; i < stack->count(); ++i)
        texts << lineAt(ticker, i)->text().section(QLatin1Char(' '), 2);
    return texts;
}

// A line added while the ticker is full gets a click connection Qt refuses
// (three warning lines).
void expectRefusedClickConnection()
{
    for (int i = 0; i < 3; ++i)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^QObject::connect")));
}

void click(QWidget* w)
{
    QTest::mousePress(w, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QTest::mouseRelease(w, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
}

// Rows of IMAGE (white background) that hold dark pixels, as [first, last]
// dark column per row band of height LINE.
struct Ink
{
    bool any = false;
    int left = INT_MAX;
    int right = -1;
};

Ink inkIn(const QImage& image, int top, int height)
{
    Ink ink;
    for (int y = qMax(0, top); y < qMin(image.height(), top + height); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qRed(image.pixel(x, y)) < 128) {
                ink.any = true;
                ink.left = qMin(ink.left, x);
                ink.right = qMax(ink.right, x);
            }
        }
    }
    return ink;
}

QImage paintLabel(QWidget* label)
{
    QImage image(label->size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    label->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    return image;
}

} // namespace

class TstLabels : public QObject
{
    Q_OBJECT

private:
    TestMainWindow* m_main = nullptr;

    // A ticker whose rolls only happen when a test asks for them.
    struct Ticker
    {
        UxLoopLabels ticker;
        Ticker()
        {
            ticker.resize(400, 24);
            ticker.barMsgEnable(false);
            stackOf(ticker)->setDuration(50);
        }
    };

private Q_SLOTS:
    void init()
    {
        m_main = new TestMainWindow;
        m_main->resize(800, 600);
        UxCore::instance()->setMainWindow(m_main);
    }

    void cleanup()
    {
        UxCore::instance()->setMainWindow(nullptr);
        delete m_main;
        m_main = nullptr;
    }

    // --- message ticker -----------------------------------------------------

    void tickerDropsRepeats_data()
    {
        QTest::addColumn<tagMessage>("first");
        QTest::addColumn<tagMessage>("second");
        QTest::addColumn<int>("lines");
        const tagMessage hello = message(QStringLiteral("hello"));
        tagMessage otherKind = hello;
        otherKind.msgType = QStringLiteral("4");
        otherKind.level = 4;
        otherKind.msgId = QStringLiteral("x");
        QTest::newRow("same message") << hello << hello << 1;
        QTest::newRow("same time and text, other kind") << hello << otherKind << 1;
        QTest::newRow("other time") << hello << message(QStringLiteral("hello"), QStringLiteral("2024/03/05 09:31:00")) << 2;
        QTest::newRow("other text") << hello << message(QStringLiteral("hello!")) << 2;
        QTest::newRow("two empty messages") << tagMessage() << tagMessage() << 1;
    }
    void tickerDropsRepeats()
    {
        QFETCH(tagMessage, first);
        QFETCH(tagMessage, second);
        QFETCH(int, lines);
        Ticker t;
        t.ticker.addMessages(first);
        QCOMPARE(t.ticker.isRepeatMsg(second), lines == 1);
        t.ticker.addMessages(second);
        QCOMPARE(stackOf(t.ticker)->count(), lines);
    }

    void tickerSixthGoesInFront()
    {
        Ticker t;
        UxAnimationStackedWidget* stack = stackOf(t.ticker);
        QSignalSpy rolled(stack, &UxAnimationStackedWidget::signalFrameIndexChanged);
        QSignalSpy clicked(&t.ticker, &UxLoopLabels::sigClickedMsg);
        for (int i = 1; i <= 5; ++i)
            t.ticker.addMessages(nth(i));
        QCOMPARE(lineTexts(t.ticker), QStringList({"m1", "m2", "m3", "m4", "m5"}));
        // The second line started a roll to the new last line.
        QTRY_COMPARE_WITH_TIMEOUT(rolled.count(), 1, 10000);
        QCOMPARE(rolled.at(0).at(0).toInt(), 1);

        expectRefusedClickConnection();
        t.ticker.addMessages(nth(6));
        QCOMPARE(lineTexts(t.ticker), QStringList({"m6", "m1", "m2", "m3", "m4"}));
        // The oldest kept one is gone: it may come again.
        QVERIFY(!t.ticker.isRepeatMsg(nth(5)));
        QVERIFY(t.ticker.isRepeatMsg(nth(6)));
        QTRY_COMPARE_WITH_TIMEOUT(rolled.count(), 2, 10000);
        QCOMPARE(rolled.at(1).at(0).toInt(), 0);
        QCOMPARE(stack->currentWidget(), lineAt(t.ticker, 0));

        // Lines added while full do not forward clicks; the older ones still do.
        click(lineAt(t.ticker, 0));
        QCOMPARE(clicked.count(), 0);
        click(lineAt(t.ticker, 1));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(clicked.at(0).at(0).value<tagMessage>().content, QStringLiteral("m1"));
    }

    void tickerRollsAndWraps()
    {
        Ticker t;
        UxAnimationStackedWidget* stack = stackOf(t.ticker);
        QSignalSpy rolled(stack, &UxAnimationStackedWidget::signalFrameIndexChanged);
        for (int i = 1; i <= 3; ++i)
            t.ticker.addMessages(nth(i));
        t.ticker.setIntervalTime(150);
        QTRY_VERIFY_WITH_TIMEOUT(rolled.count() >= 3, 15000);
        QCOMPARE(rolled.at(0).at(0).toInt(), 1);
        QCOMPARE(rolled.at(1).at(0).toInt(), 2);
        QCOMPARE(rolled.at(2).at(0).toInt(), 0);
    }

    void tickerSingleLineNeverRolls()
    {
        Ticker t;
        auto* animation = stackOf(t.ticker)->findChild<QPropertyAnimation*>();
        t.ticker.addMessages(nth(1));
        t.ticker.setIntervalTime(20);
        QTest::qWait(200);
        QCOMPARE(animation->state(), QAbstractAnimation::Stopped);
        QCOMPARE(stackOf(t.ticker)->currentIndex(), 0);
    }

    void tickerPausesWhileHovered()
    {
        Ticker t;
        auto* animation = stackOf(t.ticker)->findChild<QPropertyAnimation*>();
        t.ticker.addMessages(nth(1));
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(lineAt(t.ticker, 0), &enter);
        t.ticker.addMessages(nth(2));
        QCOMPARE(animation->state(), QAbstractAnimation::Stopped);

        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(lineAt(t.ticker, 0), &leave);
        t.ticker.addMessages(nth(3));
        QCOMPARE(animation->state(), QAbstractAnimation::Running);
    }

    void tickerLevelColours_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("normal") << 0 << QColor(10, 120, 10);
        QTest::newRow("important") << 1 << QColor(200, 120, 0);
        QTest::newRow("urgent") << 4 << QColor(220, 0, 0);
        QTest::newRow("other level") << 2 << QColor(QStringLiteral("#878787"));
        QTest::newRow("negative level") << -1 << QColor(QStringLiteral("#878787"));
    }

    void tickerLevelColours()
    {
        QFETCH(int, level);
        QFETCH(QColor, colour);
        Ticker t;
        t.ticker.setNormalColor(QColor(10, 120, 10));
        t.ticker.setImportColor(QColor(200, 120, 0));
        t.ticker.setUrgencyColor(QColor(220, 0, 0));
        // Full blocks: the glyphs have solid pixels of the pen's colour.
        t.ticker.addMessages(message(QString(6, QChar(0x2588)), QStringLiteral("a b"), QStringLiteral("1"), level));
        UxBottomLabel* line = lineAt(t.ticker, 0);
        line->resize(200, 24);
        const QImage image = line->grab().toImage();
        bool found = false;
        for (int y = 0; y < image.height() && !found; ++y)
            for (int x = 0; x < image.width() && !found; ++x)
                found = image.pixelColor(x, y) == colour;
        QVERIFY(found);
    }

    void tickerClickOpensPage_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("id");
        QTest::newRow("1") << "1" << 0;
        QTest::newRow("2") << "2" << 1;
        QTest::newRow("3") << "3" << 2;
        QTest::newRow("4") << "4" << 3;
        QTest::newRow("7") << "7" << 0;
        QTest::newRow("0") << "0" << 0;
        QTest::newRow("not a number") << "alert" << 0;
        QTest::newRow("padded") << " 3" << 2;
    }

    void tickerClickOpensPage()
    {
        QFETCH(QString, type);
        QFETCH(int, id);
        Ticker t;
        connect(&t.ticker, &UxLoopLabels::sigClickedMsg, &t.ticker, &UxLoopLabels::slotClickedMsg);
        QSignalSpy clicked(&t.ticker, &UxLoopLabels::sigClickedMsg);
        t.ticker.addMessages(message(QStringLiteral("news"), QStringLiteral("2024/03/05 09:30:00"), type));
        click(lineAt(t.ticker, 0));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(clicked.at(0).at(0).value<tagMessage>().msgType, type);
        QCOMPARE(m_main->urls,
                 QStringList(QStringLiteral("view://attentionpage?rootid=0&id=%1&attentionid=1").arg(id)));
    }

    void tickerElidesToHalfTheMainWindow()
    {
        Ticker t;
        m_main->resize(700, 300);
        const QString content = QStringLiteral("a long notice ").repeated(20).trimmed();
        const QString full = QStringLiteral("2024/03/05 09:30:00 ") + content;
        t.ticker.addMessages(message(content, QStringLiteral("2024/03/05 09:30:00 extra")));
        UxBottomLabel* line = lineAt(t.ticker, 0);
        QVERIFY(line->text().endsWith(QChar(0x2026)));
        QVERIFY(line->fontMetrics().horizontalAdvance(line->text()) <= 350);
        QHelpEvent tip(QEvent::ToolTip, QPoint(5, 5), line->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(line, &tip);
        QCOMPARE(line->toolTip(), full);

        // A short one is shown whole.
        t.ticker.addMessages(message(QStringLiteral("short")));
        QCOMPARE(lineAt(t.ticker, 1)->text(), QStringLiteral("2024/03/05 09:30:00 short"));
    }

    void tickerElidesToHalfTheParentWithoutMainWindow()
    {
        UxCore::instance()->setMainWindow(nullptr);
        Ticker t;
        t.ticker.resize(300, 24);
        stackOf(t.ticker)->resize(300, 24);
        t.ticker.addMessages(message(QStringLiteral("x").repeated(200)));
        UxBottomLabel* line = lineAt(t.ticker, 0);
        QVERIFY(line->text().endsWith(QChar(0x2026)));
        QVERIFY(line->fontMetrics().horizontalAdvance(line->text()) <= 150);
    }

    void tickerAddMsgContents()
    {
        Ticker t;
        t.ticker.addMsgContents(QStringLiteral("market closed"));
        const QString text = lineAt(t.ticker, 0)->text();
        QVERIFY2(QRegularExpression(QStringLiteral("^\\d{4}/\\d\\d/\\d\\d \\d\\d:\\d\\d:\\d\\d market closed$"))
                     .match(text)
                     .hasMatch(),
                 qPrintable(text));
    }

    void tickerResetAndBadSettings()
    {
        Ticker t;
        t.ticker.addMessages(nth(1));
        t.ticker.addMessages(nth(2));
        t.ticker.updateBarMsgNumOrTime();
        QCOMPARE(stackOf(t.ticker)->count(), 0);
        t.ticker.addMessages(nth(1)); // no longer a repeat
        QCOMPARE(stackOf(t.ticker)->count(), 1);

        Ticker bad;
        bad.ticker.setIntervalTime(-5);
        bad.ticker.setDurationTime(-5);
        bad.ticker.setDurationTime(0);
        bad.ticker.setMaxLoopLabels(0);
        bad.ticker.addMessages(nth(1));
        bad.ticker.addMessages(nth(2));
        QVERIFY(stackOf(bad.ticker)->count() <= 1);
    }

    // --- indent label -------------------------------------------------------

    void indentLabel_data()
    {
        QTest::addColumn<int>("lines");     // label height in lines
        QTest::addColumn<int>("indent");
        QTest::addColumn<int>("chars");     // message length
        QTest::addColumn<bool>("linkFlag"); // showLinkTextVisible
        QTest::addColumn<int>("inkLines");  // lines with ink
        QTest::addColumn<bool>("linkShown");
        QTest::newRow("fits, link off") << 3 << 0 << 5 << false << 1 << false;
        QTest::newRow("fits, link on") << 3 << 0 << 5 << true << 1 << true;
        QTest::newRow("two lines") << 3 << 0 << 30 << false << 2 << false;
        QTest::newRow("overflows") << 3 << 0 << 200 << false << 3 << true;
        QTest::newRow("indented overflow") << 3 << 4 << 200 << false << 3 << true;
        QTest::newRow("negative indent") << 3 << -3 << 200 << false << 3 << true;
        QTest::newRow("one line high") << 1 << 0 << 200 << false << 1 << true;
    }

    void indentLabel()
    {
        QFETCH(int, lines);
        QFETCH(int, indent);
        QFETCH(int, chars);
        QFETCH(bool, linkFlag);
        QFETCH(int, inkLines);
        QFETCH(bool, linkShown);

        QWidget host;
        UxNewIndentLabel label(&host);
        QFont font(QStringLiteral("DejaVu Sans Mono"));
        font.setPixelSize(12);
        label.setFont(font);
        const QFontMetrics fm(font);
        const int lineSpacing = fm.lineSpacing();
        const int charWidth = fm.horizontalAdvance(QLatin1Char('x'));
        label.setLink(QStringLiteral("<a href=\"https://example.com\">more</a>"));
        label.showLinkTextVisible(linkFlag);
        label.setMsg(QStringLiteral("x").repeated(chars));
        label.setTextIndent(indent);
        label.resize(200, lines * lineSpacing + 2);
        host.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host));

        const QImage image = paintLabel(&label);
        for (int k = 0; k < lines; ++k)
            QCOMPARE(inkIn(image, k * lineSpacing, lineSpacing).any, k < inkLines);
        QCOMPARE(label.linkLabel()->isVisible(), linkShown);

        const Ink first = inkIn(image, 0, lineSpacing);
        // The first line starts after the indent (a negative one counts as none).
        QVERIFY(first.left >= qMax(0, indent) * charWidth);
        QVERIFY(first.left < qMax(0, indent) * charWidth + charWidth);
        if (chars == 200) {
            const Ink last = inkIn(image, (lines - 1) * lineSpacing, lineSpacing);
            // Full lines are cut at the last character that fits; the last
            // one is elided beside the link.
            if (lines > 1) {
                QVERIFY(first.right >= 200 - 2 * charWidth);
                QVERIFY(inkIn(image, lineSpacing, lineSpacing).left < charWidth);
            }
            QVERIFY(last.right < 200 - label.linkLabel()->width());
            QCOMPARE(label.linkLabel()->geometry().right(), 199);
            QCOMPARE(label.linkLabel()->y(), (lines - 1) * lineSpacing - 2);
        }
    }

    void indentLabelEmpty()
    {
        QWidget host;
        UxNewIndentLabel label(&host);
        label.setLink(QStringLiteral("more"));
        label.showLinkTextVisible(true);
        label.resize(200, 60);
        host.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host));
        QVERIFY(!inkIn(paintLabel(&label), 0, 60).any);
        QVERIFY(!label.linkLabel()->isVisible());

        // Zero and tiny sizes paint without trouble.
        label.setMsg(QStringLiteral("some text"));
        label.resize(0, 0);
        label.resize(5, 5);
        paintLabel(&label);
        QVERIFY(label.linkLabel()->isVisible());
    }

    void indentLabelSimplifiesTheMessage()
    {
        QWidget host;
        UxNewIndentLabel label(&host);
        QFont font(QStringLiteral("DejaVu Sans Mono"));
        font.setPixelSize(12);
        label.setFont(font);
        label.resize(300, QFontMetrics(font).lineSpacing() * 2);
        host.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host));
        label.setMsg(QStringLiteral("ab"));
        const QImage plain = paintLabel(&label);
        label.setMsg(QStringLiteral("  a\n\n b  "));
        const QImage spaced = paintLabel(&label);
        // "a b" differs from "ab" only after the first letter.
        const int charWidth = QFontMetrics(font).horizontalAdvance(QLatin1Char('a'));
        QCOMPARE(inkIn(spaced, 0, 40).left, inkIn(plain, 0, 40).left);
        // Qt 6 places glyphs at fractional advances: the ink edge may round one pixel further.
        QVERIFY(qAbs(inkIn(spaced, 0, 40).right - (inkIn(plain, 0, 40).right + charWidth)) <= 1);
    }

    // --- filter tool button -------------------------------------------------

    void toolButtonChoice_data()
    {
        QTest::addColumn<QStringList>("choices");
        QTest::newRow("one") << QStringList({"B"});
        QTest::newRow("two") << QStringList({"B", "C"});
        QTest::newRow("back and forth") << QStringList({"A", "C", "A"});
    }

    void toolButtonChoice()
    {
        QFETCH(QStringList, choices);
        UxCustomToolButton button;
        button.addActionToMenu(QStringLiteral("A"), 1);
        button.addActionToMenu(QStringLiteral("B"), 2);
        button.addActionToMenu(QStringLiteral("C"), 3);
        button.setDefaultActionChecked(QStringLiteral("A"));
        QSignalSpy clicked(&button, &QToolButton::clicked);
        const QList<QAction*> actions = button.menu()->actions();
        for (const QString& choice : choices)
            actions.at(choice.at(0).unicode() - 'A')->trigger();
        QCOMPARE(clicked.count(), choices.size());
        QCOMPARE(clicked.last().at(0).toBool(), true);
        QCOMPARE(button.text(), choices.last());
        QList<QAction*> checked;
        for (QAction* a : actions)
            if (a->isChecked())
                checked << a;
        QCOMPARE(checked.size(), 1);
        QCOMPARE(checked.first()->text(), choices.last());
        QCOMPARE(checked.first()->data().toInt(), choices.last().at(0).unicode() - 'A' + 1);
    }

    void toolButtonDefaultChoice()
    {
        UxCustomToolButton button;
        button.addActionToMenu(QStringLiteral("A"), 1);
        button.addActionToMenu(QStringLiteral("B"), 2);
        button.setDefaultActionChecked(QStringLiteral("B"));
        QVERIFY(!button.menu()->actions().at(0)->isChecked());
        QVERIFY(button.menu()->actions().at(1)->isChecked());
        button.setDefaultActionChecked(QStringLiteral("Z"));
        QCOMPARE(button.text(), QStringLiteral("Z"));
        for (QAction* a : button.menu()->actions())
            QVERIFY(!a->isChecked());
    }

    void toolButtonMenuOpening()
    {
        UxCustomToolButton button;
        QSignalSpy selected(&button, &UxCustomToolButton::selectedChanged);
        // No actions at all: opening and closing still work.
        button.showMenu(QPoint(40, 50));
        QVERIFY(button.menu()->isVisible());
        QCOMPARE(selected.count(), 1);
        QCOMPARE(selected.at(0).at(0).toBool(), true);
        button.showMenu(QPoint(40, 50));
        QVERIFY(!button.menu()->isVisible());
        button.setDefaultActionChecked(QString());
        QCOMPARE(button.text(), QString());
    }

    void toolButtonSelectedProperty()
    {
        UxCustomToolButton button;
        button.setStyleSheet(QStringLiteral("UxCustomToolButton[selected=\"true\"] { color: #ff0000; }"
                                            "UxCustomToolButton { color: #0000ff; }"));
        button.ensurePolished();
        QSignalSpy selected(&button, &UxCustomToolButton::selectedChanged);
        QCOMPARE(button.palette().color(QPalette::ButtonText), QColor(0, 0, 255));
        button.setSelected(true);
        button.setSelected(true);
        QCOMPARE(button.palette().color(QPalette::ButtonText), QColor(255, 0, 0));
        QCOMPARE(selected.count(), 0);
        button.emitSelected();
        QCOMPARE(selected.count(), 1);
    }
};

UX_TEST_MAIN(TstLabels)
#include "tst_labels.moc"
