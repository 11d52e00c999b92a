// Labels, menus and buttons: the message ticker, the indent label and the
// filter tool button.

#include "uxtestenv.h"
#include "rows.h"

#include "uxanimationstackedwidget.h"
#include "uxbottomlabel.h"
#include "uxcusmenu.h"
#include "uxcustomtoolbutton.h"
#include "uxlooplabels.h"
#include "uxnewindentlabel.h"

#include <QtWidgets>

// Stands in for the client's main window: records the pages it is asked to
// open, and may delete the status bar while doing so.
class TestMainWindow : public QWidget
{
    Q_OBJECT
public:
    QStringList urls;
    QWidget* statusBar = nullptr;
    Q_INVOKABLE void openStringUrl(const QString& url)
    {
        urls << url;
        delete std::exchange(statusBar, nullptr);
    }
};

namespace {

tagMessage nth(int i, const QString& type = QStringLiteral("1"), int level = 0)
{
    tagMessage m;
    m.msgType = type;
    m.level = level;
    m.time = QStringLiteral("2024/03/05 09:30:%1").arg(i, 2, 10, QLatin1Char('0'));
    m.content = QStringLiteral("m%1").arg(i);
    return m;
}

UxAnimationStackedWidget* stackOf(QWidget* ticker) { return ticker->findChild<UxAnimationStackedWidget*>(); }
UxBottomLabel* lineAt(QWidget* ticker, int i) { return qobject_cast<UxBottomLabel*>(stackOf(ticker)->widget(i)); }
QPropertyAnimation* slideOf(QWidget* ticker) { return stackOf(ticker)->findChild<QPropertyAnimation*>(); }

QStringList lineTexts(QWidget* ticker)
{
    QStringList texts;
    for (int i = 0; i < stackOf(ticker)->count(); ++i)
        texts << lineAt(ticker, i)->text().section(QLatin1Char(' '), 2);
    return texts;
}

void click(QWidget* w) { QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5)); }

// The roll timer as the event dispatcher knows it: interval and type.
QPair<int, int> rollTimer(QObject* ticker)
{
    const auto timers = QAbstractEventDispatcher::instance()->registeredTimers(ticker);
    return timers.size() == 1 ? qMakePair(timers[0].interval, int(timers[0].timerType)) : qMakePair(-1, int(timers.size()));
}

// Columns [first, last] holding dark ink in rows [top, top + height) of W painted on white.
QPair<int, int> inkIn(QWidget* w, int top, int height)
{
    QImage image(w->size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    w->render(&image, QPoint(), QRegion(), QWidget::RenderFlags());
    QPair<int, int> ink(INT_MAX, -1);
    for (int y = qMax(0, top); y < qMin(image.height(), top + height); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qRed(image.pixel(x, y)) < 128) ink = qMakePair(qMin(ink.first, x), qMax(ink.second, x));
    return ink;
}

// A ticker whose rolls only happen when a test asks for them.
struct Ticker {
    UxLoopLabels ticker;
    Ticker()
    {
        ticker.resize(400, 24);
        ticker.barMsgEnable(false);
        stackOf(&ticker)->setDuration(1);
    }
    void add(int i) { ticker.addMessages(nth(i)); }
};

} // namespace

class TstLabels : public QObject
{
    Q_OBJECT

    TestMainWindow* m_main = nullptr;

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
    }

    void contract_data()
    {
        Rows::actualExpected();
        static UxLoopLabels ticker;
        QTest::newRow("ticker name") << QVariant(ticker.objectName()) << QVariant(QStringLiteral("UxLoopLabels"));
        QTest::newRow("4000 ms coarse roll") << QVariant::fromValue(rollTimer(&ticker)) << QVariant::fromValue(qMakePair(4000, int(Qt::CoarseTimer)));
        QTest::newRow("1000 ms slide") << QVariant(stackOf(&ticker)->getDuration()) << QVariant(1000);
        QTest::newRow("linear slide") << QVariant(int(slideOf(&ticker)->easingCurve().type())) << QVariant(int(QEasingCurve::Linear));
        QTest::newRow("stack minimum width") << QVariant(stackOf(&ticker)->minimumWidth()) << QVariant(200);
        QTest::newRow("record type name") << QVariant(QByteArray(QVariant::fromValue(tagMessage()).typeName())) << QVariant(QByteArray("Message"));
        QTest::newRow("colours start invalid") << QVariant(ticker.normalColor().isValid() || ticker.importColor().isValid() || ticker.urgencyColor().isValid()) << QVariant(false);
        const QMetaObject &loop = UxLoopLabels::staticMetaObject, &line = UxBottomLabel::staticMetaObject;
        for (const char* p : {"normalColor", "importColor", "urgencyColor"})
            QTest::newRow(p) << QVariant(loop.indexOfProperty(p) > 0) << QVariant(true);
        for (const char* sig : {"sigClickedMsg(Message)", "slotClickedMsg(Message)", "isRepeatMsg(Message)", "updateBarMsgNumOrTime()",
                                "signalClicked(Message)", "signalHovered(bool)", "setLabelData(Message)"})
            QTest::newRow(sig) << QVariant(loop.indexOfMethod(sig) >= 0 || line.indexOfMethod(sig) >= 0) << QVariant(true);
        static UxBottomLabel label(nth(1));
        QTest::newRow("line minimum width") << QVariant(label.minimumWidth()) << QVariant(200);
        static UxCustomToolButton button;
        QTest::newRow("button name") << QVariant(button.objectName()) << QVariant(QStringLiteral("UXFILTER_TOOLBUTTON"));
        QTest::newRow("menu name") << QVariant(button.menu()->objectName()) << QVariant(QStringLiteral("TOOLBUTTON_MENU"));
        QTest::newRow("menu class") << QVariant(bool(qobject_cast<UxCusMenu*>(button.menu()))) << QVariant(true);
        QTest::newRow("popup mode") << QVariant(int(button.popupMode())) << QVariant(int(QToolButton::MenuButtonPopup));
        QTest::newRow("selected property") << QVariant(button.property("selected")) << QVariant(false);
        static UxNewIndentLabel indent;
        QTest::newRow("link name") << QVariant(indent.linkLabel()->objectName()) << QVariant(QStringLiteral("linkLabel"));
        QTest::newRow("link not hidden") << QVariant(indent.linkLabel()->isHidden()) << QVariant(false);
    }
    void contract() { Rows::compareActual(); }

    void timerSettings_data()
    {
        // What is done to a stopped ticker, then the interval (-1: stopped) and the one after barMsgEnable(true).
        Rows::columns<int>({"call", "interval", "resumed"});
        QTest::newRow("show") << 0 << 4000 << 4000;
        QTest::newRow("barMsgEnable(true)") << 1 << 4000 << 4000;
        QTest::newRow("setTimerStatus(true)") << 2 << 3000 << 3000;
        QTest::newRow("setIntervalTime(250)") << 3 << 250 << 250;
        QTest::newRow("setDurationTime(0)") << 4 << 3000 << 3000;
        QTest::newRow("setDurationTime(1000): same, nothing") << 5 << -1 << 4000;
        QTest::newRow("reset ends stopped") << 6 << -1 << 3000;
        QTest::newRow("hide") << 7 << -1 << 4000;
    }
    void timerSettings()
    {
        QFETCH(int, call);
        Ticker t;
        call == 0 || call == 7 ? t.ticker.show() : void();
        call == 1 ? t.ticker.barMsgEnable(true) : call == 2 ? t.ticker.setTimerStatus(true) : void();
        call == 3 || call == 6 ? t.ticker.setIntervalTime(250) : void();
        call == 4 || call == 5 ? t.ticker.setDurationTime(call == 4 ? 0 : 1000) : void();
        call == 6 ? t.ticker.updateBarMsgNumOrTime() : call == 7 ? t.ticker.hide() : void();
        QTEST(rollTimer(&t.ticker).first, "interval");
        t.ticker.barMsgEnable(true);
        QTEST(rollTimer(&t.ticker).first, "resumed");
    }

    void rollsWrapsAndFills()
    {
        Ticker t;
        UxAnimationStackedWidget* stack = stackOf(&t.ticker);
        QSignalSpy rolled(stack, &UxAnimationStackedWidget::signalFrameIndexChanged);
        QSignalSpy clicked(&t.ticker, &UxLoopLabels::sigClickedMsg);
        t.add(1);
        tagMessage repeat = nth(1, QStringLiteral("4"), 4); // same time and text, other kind
        repeat.msgId = QStringLiteral("x");
        t.ticker.addMessages(repeat);
        QCOMPARE(stack->count(), 1);
        QCOMPARE(slideOf(&t.ticker)->state(), QAbstractAnimation::Stopped);
        t.add(2); // each new line rolls in
        QTRY_COMPARE(stack->currentIndex(), 1);
        QEvent enter(QEvent::Enter), leave(QEvent::Leave); // but not while a line is hovered
        QCoreApplication::sendEvent(lineAt(&t.ticker, 1), &enter);
        t.add(3);
        QCOMPARE(slideOf(&t.ticker)->state(), QAbstractAnimation::Stopped);
        QCOMPARE(stack->currentIndex(), 1);
        QCOMPARE(lineAt(&t.ticker, 1)->cursor().shape(), Qt::PointingHandCursor);
        QCoreApplication::sendEvent(lineAt(&t.ticker, 1), &leave);
        for (int i = 4; i <= 5; ++i) {
            t.add(i);
            QTRY_COMPARE(stack->currentIndex(), i - 1);
        }
        QCOMPARE(lineTexts(&t.ticker), QStringList({"m1", "m2", "m3", "m4", "m5"}));
        t.ticker.setIntervalTime(5); // the roll timer wraps from the last line to the first
        QTRY_COMPARE(stack->currentIndex(), 0);
        t.ticker.barMsgEnable(false);
        QTRY_COMPARE(slideOf(&t.ticker)->state(), QAbstractAnimation::Stopped);
        for (int i = 0; i < 3; ++i) // the refused click connection warns
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^QObject::connect")));
        rolled.clear();
        stack->setCurrentIndex(2);
        t.add(6);
        QCOMPARE(lineTexts(&t.ticker), QStringList({"m6", "m1", "m2", "m3", "m4"}));
        QVERIFY(!t.ticker.isRepeatMsg(nth(5)));
        QTRY_COMPARE(QList<QVariantList>(rolled), QList<QVariantList>{{0}});
        // Lines added while full do not forward clicks, the older ones do; a release without a press is no click.
        QMouseEvent release(QEvent::MouseButtonRelease, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(lineAt(&t.ticker, 1), &release);
        click(lineAt(&t.ticker, 0));
        click(lineAt(&t.ticker, 1));
        QCOMPARE(clicked.count(), 1);
        QCOMPARE(clicked.at(0).at(0).value<tagMessage>().content, QStringLiteral("m1"));
        // A dropped line is deleted, not kept hidden.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(t.ticker.findChildren<UxBottomLabel*>().size(), 5);
        t.ticker.updateBarMsgNumOrTime();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(t.ticker.findChildren<UxBottomLabel*>().size(), 0);
        t.add(1); // no longer a repeat
        QCOMPARE(stack->count(), 1);
    }

    void levelColours_data()
    {
        QTest::addColumn<int>("level"); QTest::addColumn<QColor>("colour");
        QTest::newRow("normal") << 0 << QColor(10, 120, 10);
        QTest::newRow("important") << 1 << QColor(200, 120, 0);
        QTest::newRow("urgent") << 4 << QColor(220, 0, 0);
        QTest::newRow("other") << 2 << QColor(0x87, 0x87, 0x87);
    }
    void levelColours()
    {
        QFETCH(int, level); QFETCH(QColor, colour);
        Ticker t;
        t.ticker.setNormalColor(QColor(10, 120, 10));
        t.ticker.setImportColor(QColor(200, 120, 0));
        t.ticker.setUrgencyColor(QColor(220, 0, 0));
        tagMessage m = nth(1, QStringLiteral("1"), level);
        m.content = QString(6, QChar(0x2588)); // full blocks: solid pixels of the pen
        t.ticker.addMessages(m);
        lineAt(&t.ticker, 0)->resize(200, 24);
        const QImage image = lineAt(&t.ticker, 0)->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const auto* bits = reinterpret_cast<const QRgb*>(image.constBits());
        QVERIFY(std::count(bits, bits + image.width() * image.height(), colour.rgb()) > 0);
    }

    void clickOpensPage_data()
    {
        QTest::addColumn<QString>("type"); QTest::addColumn<int>("id"); QTest::addColumn<bool>("deleteTicker");
        for (int i = 0; i <= 5; ++i)
            QTest::addRow("type %d", i) << QString::number(i) << (i >= 1 && i <= 4 ? i - 1 : 0) << false;
        QTest::newRow("not a number") << "alert" << 0 << false;
        QTest::newRow("padded") << " 3" << 2 << false;
        QTest::newRow("page deletes the status bar") << "2" << 1 << true;
    }
    void clickOpensPage()
    {
        QFETCH(QString, type); QFETCH(bool, deleteTicker);
        auto* statusBar = new QWidget;
        auto* ticker = new UxLoopLabels(statusBar);
        connect(ticker, &UxLoopLabels::sigClickedMsg, ticker, &UxLoopLabels::slotClickedMsg);
        QSignalSpy clicked(ticker, &UxLoopLabels::sigClickedMsg);
        ticker->addMessages(nth(1, type));
        ticker->addMessages(nth(2, type));
        QPointer<QWidget> line = lineAt(ticker, 1);
        m_main->statusBar = deleteTicker ? statusBar : nullptr;
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("\"m2\"  msgType  \"%1\"$").arg(type)));
        click(line);
        QFETCH(int, id);
        QCOMPARE(m_main->urls, QStringList(QStringLiteral("view://attentionpage?rootid=0&id=%1&attentionid=1").arg(id)));
        if (deleteTicker) {
            QVERIFY(line.isNull());
            UxTest::spin(20); // nothing left behind runs on freed memory
            return;
        }
        QCOMPARE(clicked.at(0).at(0).value<tagMessage>().msgType, type);
        delete statusBar;
    }

    void elision_data()
    {
        QTest::addColumn<bool>("mainWindow"); QTest::addColumn<int>("limit");
        QTest::newRow("half the main window") << true << 350;
        QTest::newRow("half the parent") << false << 250;
    }
    void elision()
    {
        QFETCH(bool, mainWindow); QFETCH(int, limit);
        m_main->resize(700, 300);
        if (!mainWindow) UxCore::instance()->setMainWindow(nullptr);
        Ticker t;
        stackOf(&t.ticker)->resize(500, 24);
        tagMessage m = nth(1);
        m.time += QStringLiteral(" extra");
        m.content = QStringLiteral("a long notice ").repeated(20).trimmed();
        t.ticker.addMessages(m);
        UxBottomLabel* line = lineAt(&t.ticker, 0);
        QVERIFY(line->text().endsWith(QChar(0x2026)));
        const int width = line->fontMetrics().horizontalAdvance(line->text());
        QVERIFY(width <= limit && width > limit - 40);
        QHelpEvent tip(QEvent::ToolTip, QPoint(5, 5), line->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(line, &tip);
        QCOMPARE(line->toolTip(), QStringLiteral("2024/03/05 09:30:01 ") + m.content);
        if (!mainWindow) // with neither a main window nor a parent there is nothing to elide against
            QCOMPARE(UxBottomLabel(m).text(), line->toolTip());
        t.add(2); // a short one is shown whole
        QCOMPARE(lineAt(&t.ticker, 1)->text(), QStringLiteral("2024/03/05 09:30:02 m2"));
    }

    void indentLabel_data()
    {
        QTest::addColumn<int>("lines"); // label height in lines
        QTest::addColumn<int>("indent"); QTest::addColumn<int>("chars"); QTest::addColumn<bool>("linkFlag");
        QTest::addColumn<int>("inkLines"); QTest::addColumn<bool>("linkShown");
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
        QFETCH(int, lines); QFETCH(int, indent); QFETCH(int, chars); QFETCH(bool, linkFlag);
        QWidget host;
        UxNewIndentLabel label(&host);
        QFont font(QStringLiteral("DejaVu Sans Mono"));
        font.setPixelSize(12);
        label.setFont(font);
        const int ls = QFontMetrics(font).lineSpacing(), cw = QFontMetrics(font).horizontalAdvance(QLatin1Char('x'));
        label.setLink(QStringLiteral("<a href=\"https://example.com\">more</a>"));
        QVERIFY(label.linkLabel()->openExternalLinks());
        label.showLinkTextVisible(linkFlag);
        label.setMsg(QStringLiteral("  ") + QStringLiteral("x").repeated(chars) + QStringLiteral("\n"));
        label.setTextIndent(indent);
        label.resize(200, lines * ls + 2);
        host.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host));
        QFETCH(int, inkLines);
        for (int k = 0; k < lines; ++k) QCOMPARE(inkIn(&label, k * ls, ls).second >= 0, k < inkLines);
        QTEST(label.linkLabel()->isVisible(), "linkShown");
        // The first line starts after the indent of the simplified message.
        const int first = inkIn(&label, 0, ls).first;
        QVERIFY(first >= qMax(0, indent) * cw && first < qMax(0, indent) * cw + cw);
        if (chars == 200) {
            if (lines > 1) { // full lines are cut at the last character that fits
                const int end = inkIn(&label, 0, ls).second;
                QVERIFY(end >= 200 - 2 * cw && end < 199); // the last character that fits, none past it
                QVERIFY(inkIn(&label, ls, ls).first < cw);
            }
            QVERIFY(inkIn(&label, (lines - 1) * ls, ls).second < 200 - label.linkLabel()->width());
            QCOMPARE(label.linkLabel()->geometry().topRight(), QPoint(199, (lines - 1) * ls - 2));
        }
    }

    // A choice from the menu, then the menu's opening and the selected look.
    void toolButton_data()
    {
        QTest::addColumn<QStringList>("choices"); QTest::addColumn<QString>("text");
        QTest::addColumn<int>("checked"); // -1: none
        QTest::newRow("trigger B") << QStringList{"B"} << "B" << 1;
        QTest::newRow("back and forth") << QStringList{"A", "C", "A"} << "A" << 0;
        QTest::newRow("default B") << QStringList{"=B"} << "B" << 1;
        QTest::newRow("default unknown") << QStringList{"C", "=Z"} << "Z" << -1;
    }
    void toolButton()
    {
        QFETCH(QStringList, choices);
        UxCustomToolButton button;
        button.setStyleSheet(QStringLiteral("UxCustomToolButton[selected=\"true\"] { color: #ff0000; }"
                                            "UxCustomToolButton { color: #0000ff; }"));
        button.ensurePolished();
        for (int i = 0; i < 3; ++i) button.addActionToMenu(QString(QChar('A' + i)), i + 1);
        QSignalSpy clicked(&button, &QToolButton::clicked), selected(&button, &UxCustomToolButton::selectedChanged);
        const QList<QAction*> actions = button.menu()->actions();
        int triggers = 0;
        for (const QString& c : choices)
            c.startsWith(QLatin1Char('=')) ? button.setDefaultActionChecked(c.mid(1))
                                           : (actions.at(c.at(0).unicode() - 'A')->trigger(), void(++triggers));
        QCOMPARE(clicked.count(), triggers);
        QVERIFY(!triggers || clicked.last().at(0).toBool());
        QTEST(button.text(), "text");
        QFETCH(int, checked);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(actions[i]->isChecked() ? actions[i]->data().toInt() : 0, i == checked ? i + 1 : 0);
        // Showing the menu, not choosing from it, selects the button.
        button.showMenu(QPoint(40, 50));
        QVERIFY(button.menu()->isVisible());
        QCOMPARE(QList<QVariantList>(selected), QList<QVariantList>{{true}});
        button.showMenu(QPoint(40, 50)); // a second call closes it
        QVERIFY(!button.menu()->isVisible());
        QCOMPARE(button.palette().color(QPalette::ButtonText), QColor(0, 0, 255));
        button.setSelected(true);
        button.setSelected(true);
        QCOMPARE(button.palette().color(QPalette::ButtonText), QColor(255, 0, 0));
        button.emitSelected(); // setSelected() itself emits nothing
        QCOMPARE(QList<QVariantList>(selected), QList<QVariantList>({{true}, {true}}));
    }
};

UX_TEST_MAIN(TstLabels)
#include "tst_labels.moc"
