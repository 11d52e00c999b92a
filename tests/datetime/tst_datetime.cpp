// Date and time widgets: flow layout, time pop-ups, calendar, calendar edits
// and the mini clock, seen from outside.

#include "uxtestenv.h"

#include "uxcalendartimeedit.h"
#include "uxcalendartimewidget.h"
#include "uxdatetimeedit.h"
#include "uxflowlayout.h"
#include "uxminiclockpannel.h"
#include "uxtimeeditpopedit.h"
#include "uxtimepopwidget.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QSpacerItem>

namespace {

QPushButton* buttonWithText(QWidget* parent, const QString& text)
{
    for (QPushButton* b : parent->findChildren<QPushButton*>())
        if (b->text() == text)
            return b;
    return nullptr;
}

QStringList enabledTexts(QWidget* pop)
{
    QStringList out;
    for (QPushButton* b : pop->findChildren<QPushButton*>())
        if (b->isEnabled())
            out << b->text();
    return out;
}

// Top-level widgets with NAME created since BEFORE was taken.
QWidget* newTopLevel(const QWidgetList& before, const QString& name)
{
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == name && !before.contains(w))
            return w;
    return nullptr;
}

// Seconds between the clock's "hh:mm:ss" and the local time shifted by HOURS, folded into a day.
int clockDrift(const QString& shown, int hours)
{
    const QTime t = QTime::fromString(shown, QStringLiteral("hh:mm:ss"));
    if (!t.isValid())
        return 99999;
    const int d = qAbs(QDateTime::currentDateTime().addSecs(qint64(hours) * 3600).time().secsTo(t));
    return qMin(d, 86400 - d);
}

QPushButton* child(QWidget* w, const char* name) { return w->findChild<QPushButton*>(QLatin1String(name)); }

// Exposes the day-cell painter.
class CellPainter : public UxCalendarTimeWidget
{
public:
    CellPainter() : UxCalendarTimeWidget(nullptr, true, false) {}
    QImage cell(const QDate& date) const
    {
        QImage img(40, 30, QImage::Format_ARGB32);
        img.fill(Qt::magenta);
        QPainter p(&img);
        paintCell(&p, img.rect(), date);
        return img;
    }
};

QList<QAction*> zoneActions(UxMiniClockPannel& clock)
{
    QMenu* menu = clock.findChild<QMenu*>(QStringLiteral("zoneMenu"));
    return menu ? menu->actions() : QList<QAction*>();
}

QString labelText(UxMiniClockPannel& clock, const char* name)
{
    return clock.findChild<QLabel*>(QLatin1String(name))->text();
}

} // namespace

class TstDateTime : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        if (UxCore::instance()->getCurrentSkinId() != QLatin1String("light"))
            UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
    }

    // --- flow layout ---

    void flowRowsOfTimeGrid_data()
    {
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("rows");
        QTest::newRow("hours") << 24 << 3;
        QTest::newRow("minutes") << 60 << 6;
    }
    void flowRowsOfTimeGrid()
    {
        QFETCH(int, buttons);
        QFETCH(int, rows);
        QWidget host;
        auto* outer = new QHBoxLayout(&host);
        outer->setContentsMargins(8, 8, 8, 8);
        outer->setSpacing(0);
        auto* flow = new UxFlowLayout(6, 0, 0);
        QList<QPushButton*> list;
        for (int i = 0; i < buttons; ++i) {
            list << new QPushButton(&host);
            list.last()->setFixedSize(20, 20);
            flow->addWidget(list.last());
        }
        outer->addLayout(flow);
        host.setFixedSize(229, 200);
        outer->activate();
        // 229 - 2 * 8 - 2 * 6 leaves 201 pixels: ten 20-pixel buttons a row, no gaps.
        for (int i = 0; i < buttons; ++i)
            QCOMPARE(list[i]->geometry(), QRect(14 + 20 * (i % 10), 14 + 20 * (i / 10), 20, 20));
        QCOMPARE(flow->heightForWidth(213), 6 + 20 * rows + 6);
        QCOMPARE(flow->expandingDirections(), Qt::Orientations(Qt::Horizontal));
    }

    void flowWideItemsAndBadIndexes()
    {
        UxFlowLayout flow(0, 0, 0);
        QList<QSpacerItem*> items{new QSpacerItem(500, 20), new QSpacerItem(30, 20), new QSpacerItem(150, 20),
                                  new QSpacerItem(30, 10)};
        for (QSpacerItem* item : items)
            flow.addItem(item);
        flow.setGeometry(QRect(0, 0, 100, 0));
        // A wide item sits alone on its row; no empty row before the first one.
        QCOMPARE(items[0]->geometry(), QRect(0, 0, 500, 20));
        QCOMPARE(items[1]->geometry(), QRect(0, 20, 30, 20));
        QCOMPARE(items[2]->geometry(), QRect(0, 40, 150, 20));
        QCOMPARE(items[3]->geometry(), QRect(0, 60, 30, 10));
        QCOMPARE(flow.heightForWidth(100), 70);
        QCOMPARE(flow.itemAt(-1), nullptr);
        QCOMPARE(flow.takeAt(flow.count()), nullptr);
        QCOMPARE(flow.takeAt(-1), nullptr);
        QCOMPARE(flow.count(), 4);

        // Negative spacing, no parent, no widget to ask: items sit side by side.
        UxFlowLayout loose(0, -1, -1);
        auto* b = new QSpacerItem(10, 10);
        loose.addItem(new QSpacerItem(10, 10));
        loose.addItem(b);
        loose.setGeometry(QRect(0, 0, 100, 0));
        QCOMPARE(b->geometry().topLeft(), QPoint(10, 0));
    }

    // --- time pop-ups ---

    void timePopButtons_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("height");
        QTest::newRow("hours") << 0 << 24 << 88;
        QTest::newRow("minutes") << 1 << 60 << 148;
        QTest::newRow("seconds") << 2 << 60 << 148;
        QTest::newRow("unknown kind") << 5 << 0 << 148;
    }
    void timePopButtons()
    {
        QFETCH(int, kind);
        QFETCH(int, count);
        QFETCH(int, height);
        UxTimePopWidget pop(nullptr, kind);
        const QList<QPushButton*> buttons = pop.findChildren<QPushButton*>();
        QCOMPARE(buttons.size(), count);
        QCOMPARE(pop.size(), QSize(229, height));
        for (int i = 0; i < count; ++i)
            QCOMPARE(buttons.at(i)->text(), QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0')));
    }

    void timePopRange_data()
    {
        const QDateTime min(QDate(2024, 1, 1), QTime(10, 30, 0));
        const QDateTime max(QDate(2024, 1, 1), QTime(12, 0, 0));
        QTest::addColumn<int>("kind");
        QTest::addColumn<QDateTime>("min");
        QTest::addColumn<QDateTime>("max");
        QTest::addColumn<QDateTime>("current");
        QTest::addColumn<QStringList>("enabled");
        QStringList all60;
        for (int i = 0; i < 60; ++i)
            all60 << QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0'));
        const QDate day(2024, 1, 1);
        QTest::newRow("hours around 11:15:20") << 0 << min << max << QDateTime(day, QTime(11, 15, 20)) << QStringList{"11"};
        QTest::newRow("minutes at 11") << 1 << min << max << QDateTime(day, QTime(11, 15, 20)) << all60;
        QTest::newRow("minutes at 10") << 1 << min << max << QDateTime(day, QTime(10, 15, 20)) << QStringList(all60.mid(30));
        QTest::newRow("seconds at 10:30, bounds included") << 2 << min << max << QDateTime(day, QTime(10, 30, 5)) << all60;
        QTest::newRow("seconds at 12:00") << 2 << min << max << QDateTime(day, QTime(12, 0, 20)) << QStringList{"00"};
        QTest::newRow("minimum after maximum") << 0 << max << min << QDateTime(day, QTime(11, 0, 0)) << QStringList();
        QTest::newRow("another day") << 0 << min << max << QDateTime(day.addDays(1), QTime(11, 0, 0)) << QStringList();
    }
    void timePopRange()
    {
        QFETCH(int, kind);
        QFETCH(QDateTime, min);
        QFETCH(QDateTime, max);
        QFETCH(QDateTime, current);
        UxTimePopWidget pop(nullptr, kind);
        pop.setDateTime(min, max, current);
        QTEST(enabledTexts(&pop), "enabled");
        // A later, wider range enables them again.
        pop.setDateTime(QDateTime(QDate(2000, 1, 1), QTime(0, 0)), QDateTime(QDate(2100, 1, 1), QTime(0, 0)), current);
        QCOMPARE(enabledTexts(&pop).size(), kind == 0 ? 24 : 60);
    }

    void timeFieldPick()
    {
        QWidget window;
        window.move(100, 300);
        auto* field = new UxTimeEditPopEdit(&window, 1);
        field->setGeometry(50, 60, 22, 22);
        window.resize(300, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QWidgetList before = QApplication::topLevelWidgets();
        QSignalSpy spy(field, &UxTimeEditPopEdit::signalTimeSelect);
        QTest::mouseClick(field, Qt::LeftButton);
        QWidget* pop = newTopLevel(before, QStringLiteral("TimePopWidget"));
        QVERIFY(pop && pop->isVisible());
        // Above the field, 28 pixels to its left.
        const QPoint fieldTopLeft = field->mapToGlobal(QPoint(0, 0));
        QCOMPARE(pop->pos(), QPoint(fieldTopLeft.x() - 28, fieldTopLeft.y() - pop->height()));

        QTest::mouseClick(buttonWithText(pop, QStringLiteral("07")), Qt::LeftButton);
        QCOMPARE(field->text(), QStringLiteral("07"));
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toInt(), 7);
        QVERIFY(!pop->isVisible());
        QTest::mouseClick(field, Qt::RightButton); // does not open it
        QVERIFY(!pop->isVisible());
    }

    void timePopFocusLoss_data()
    {
        QTest::addColumn<bool>("mouseOnOwner");
        QTest::newRow("click elsewhere closes both") << false;
        QTest::newRow("click on the calendar keeps it") << true;
    }
    void timePopFocusLoss()
    {
        QFETCH(bool, mouseOnOwner);
        QWidget owner;
        owner.setGeometry(300, 300, 120, 120);
        owner.show();
        UxTimePopWidget pop(nullptr, 0);
        pop.setCalendarPopWidget(&owner);
        pop.move(20, 20);
        pop.show();
        QApplication::setActiveWindow(&pop);
        pop.setFocus(Qt::OtherFocusReason);
        QTRY_VERIFY(pop.hasFocus());

        QCursor::setPos(mouseOnOwner ? QPoint(350, 350) : QPoint(700, 20));
        QWidget other;
        other.setGeometry(600, 10, 150, 50);
        other.show();
        QApplication::setActiveWindow(&other);
        QTRY_VERIFY(!pop.isVisible());
        QCOMPARE(owner.isVisible(), mouseOnOwner);
    }

    // --- calendar ---

    void calendarYearList()
    {
        UxCalendarTimeWidget cal(nullptr, true, true);
        auto* years = cal.findChild<QComboBox*>(QStringLiteral("CalendarCbYear"));
        auto* months = cal.findChild<QComboBox*>(QStringLiteral("CalendarCbMonth"));
        QVERIFY(years && months);
        const int thisYear = QDate::currentDate().year();
        QCOMPARE(years->itemText(0), QString::number(thisYear + 4)); // newest first, maximum year left out
        QCOMPARE(years->itemText(years->count() - 1), QStringLiteral("1900"));
        QCOMPARE(years->count(), thisYear + 4 - 1900 + 1);
        QCOMPARE(years->currentText(), QString::number(thisYear));
        QCOMPARE(months->count(), 12);
        QCOMPARE(months->currentText(), QString::number(QDate::currentDate().month()));

        // Choosing a year or month turns the page, and turning the page updates the boxes.
        years->setCurrentText(QStringLiteral("2010"));
        QCOMPARE(cal.yearShown(), 2010);
        cal.setCurrentPage(1999, 3);
        QCOMPARE(years->currentText(), QStringLiteral("1999"));
        QCOMPARE(months->currentText(), QStringLiteral("3"));
        months->setCurrentText(QStringLiteral("11"));
        QCOMPARE(cal.monthShown(), 11);
        QCOMPARE(cal.yearShown(), 1999);

        // Text that is no year or month: no button turns the page.
        years->addItem(QStringLiteral("abc"));
        years->setCurrentText(QStringLiteral("abc"));
        months->addItem(QStringLiteral("0"));
        months->setCurrentText(QStringLiteral("0"));
        for (const char* name : {"CalendarRightMonthBtn", "CalendarRightYearBtn", "CalendarLeftMonthBtn", "CalendarLeftYearBtn"})
            child(&cal, name)->click();
        QCOMPARE(cal.yearShown(), 1999);
        QCOMPARE(cal.monthShown(), 11);
    }

    // Forward navigation stops at today; backward at the minimum's year.
    void calendarNavigation_data()
    {
        const QDate today = QDate::currentDate();
        const QDate lastMonth = today.addMonths(-1);
        QTest::addColumn<int>("year");
        QTest::addColumn<int>("month");
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("expectYear");
        QTest::addColumn<int>("expectMonth");
        QTest::newRow("next month refused this month")
            << today.year() << today.month() << "CalendarRightMonthBtn" << today.year() << today.month();
        QTest::newRow("next year refused this year")
            << today.year() << today.month() << "CalendarRightYearBtn" << today.year() << today.month();
        QTest::newRow("next month allowed last month")
            << lastMonth.year() << lastMonth.month() << "CalendarRightMonthBtn" << today.year() << today.month();
        QTest::newRow("next year allowed last year") << today.year() - 1 << 6 << "CalendarRightYearBtn" << today.year() << 6;
        QTest::newRow("previous month refused at January 1900") << 1900 << 1 << "CalendarLeftMonthBtn" << 1900 << 1;
        QTest::newRow("previous year refused in 1900") << 1900 << 7 << "CalendarLeftYearBtn" << 1900 << 7;
        QTest::newRow("previous month allowed in February 1900") << 1900 << 2 << "CalendarLeftMonthBtn" << 1900 << 1;
        QTest::newRow("previous year allowed in 1901") << 1901 << 5 << "CalendarLeftYearBtn" << 1900 << 5;
    }
    void calendarNavigation()
    {
        QFETCH(int, year);
        QFETCH(int, month);
        QFETCH(QString, button);
        UxCalendarTimeWidget cal(nullptr, true, true);
        cal.setCurrentPage(year, month);
        cal.findChild<QPushButton*>(button)->click();
        QTEST(cal.yearShown(), "expectYear");
        QTEST(cal.monthShown(), "expectMonth");
    }

    void calendarConfirm_data()
    {
        QTest::addColumn<bool>("dateOnly");
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<QTime>("time");
        QTest::newRow("date and time") << false << QStringList{"09", "08", "07"} << QTime(9, 8, 7);
        QTest::newRow("non-numeric hour reads 0") << false << QStringList{"ab", "08", "07"} << QTime(0, 8, 7);
        QTest::newRow("date only") << true << QStringList() << QTime(0, 0);
    }
    void calendarConfirm()
    {
        QFETCH(bool, dateOnly);
        QFETCH(QStringList, fields);
        UxCalendarTimeWidget cal(nullptr, dateOnly, true);
        const QList<UxTimeEditPopEdit*> edits = cal.findChildren<UxTimeEditPopEdit*>();
        QCOMPARE(edits.size(), fields.size());
        for (int i = 0; i < edits.size(); ++i)
            edits[i]->setText(fields.at(i));
        const QDate picked = QDate::currentDate().addDays(-3);
        cal.setSelectedDate(picked);
        QSignalSpy spy(&cal, &UxCalendarTimeWidget::signalSetCalendarTime);
        child(&cal, "CalendarEnsureBtn")->click();
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toDateTime().date(), picked);
        QTEST(spy.at(0).at(0).toDateTime().time(), "time");
    }

    void calendarNowAndClear()
    {
        UxCalendarTimeWidget cal(nullptr, false, true);
        QPushButton* now = child(&cal, "CalendarNowBtn");
        QPushButton* clear = child(&cal, "CalendarClearBtn");
        QCOMPARE(now->text(), QStringLiteral("现在"));
        QCOMPARE(clear->text(), QStringLiteral("清空"));
        // The time row starts at the current time.
        QStringList fields;
        for (UxTimeEditPopEdit* e : cal.findChildren<UxTimeEditPopEdit*>())
            fields << e->text();
        QVERIFY(clockDrift(fields.join(QLatin1Char(':')), 0) <= 2);

        QSignalSpy timeSpy(&cal, &UxCalendarTimeWidget::signalSetCalendarTime);
        QSignalSpy clearSpy(&cal, &UxCalendarTimeWidget::signalClearDateTime);
        cal.setSelectedDate(QDate::currentDate().addDays(-10));
        const QDateTime before = QDateTime::currentDateTime();
        now->click();
        QCOMPARE(timeSpy.count(), 1);
        const QDateTime emitted = timeSpy.at(0).at(0).toDateTime();
        QVERIFY(emitted >= before.addSecs(-1) && emitted <= QDateTime::currentDateTime().addSecs(1));
        QCOMPARE(cal.selectedDate(), QDate::currentDate());

        // Today is selected before the clear goes out.
        cal.setSelectedDate(QDate::currentDate().addDays(-10));
        QDate selectedAtClear;
        connect(&cal, &UxCalendarTimeWidget::signalClearDateTime, &cal, [&] { selectedAtClear = cal.selectedDate(); });
        clear->click();
        QCOMPARE(clearSpy.count(), 1);
        QCOMPARE(timeSpy.count(), 1);
        QCOMPARE(selectedAtClear, QDate::currentDate());
        UxCalendarTimeWidget bare(nullptr, true, false); // no bottom bar, no buttons
        QVERIFY(!child(&bare, "CalendarEnsureBtn"));
    }

    void calendarTimeRowFollowsBounds_data()
    {
        const QDate today = QDate::currentDate();
        QTest::addColumn<bool>("setMin");
        QTest::addColumn<QDateTime>("bound");
        QTest::addColumn<QStringList>("fields");
        QTest::newRow("minimum in the future") << true << QDateTime(today.addDays(2), QTime(13, 14, 15)) << QStringList{"13", "14", "15"};
        QTest::newRow("maximum in the past") << false << QDateTime(today.addDays(-2), QTime(1, 2, 3)) << QStringList{"01", "02", "03"};
    }
    void calendarTimeRowFollowsBounds()
    {
        QFETCH(bool, setMin);
        QFETCH(QDateTime, bound);
        UxCalendarTimeWidget cal(nullptr, false, true);
        setMin ? cal.setCalendarMinDate(bound) : cal.setCalendarMaxDate(bound);
        QStringList texts;
        for (UxTimeEditPopEdit* e : cal.findChildren<UxTimeEditPopEdit*>())
            texts << e->text();
        QTEST(texts, "fields");
        // An invalid bound changes nothing.
        cal.setCalendarMinDate(QDateTime());
        cal.setCalendarMaxDate(QDateTime());
        QCOMPARE(setMin ? cal.minimumDate() : cal.maximumDate(), bound.date());
    }

    void calendarTimeRowLimitsGrid()
    {
        const QDate today = QDate::currentDate();
        UxCalendarTimeWidget cal(nullptr, false, true);
        cal.setCalendarMaxDate(QDateTime(today, QTime(12, 0, 0)));
        cal.setCalendarMinDate(QDateTime(today, QTime(10, 30, 0)));
        cal.setSelectedDate(today);
        const QList<UxTimeEditPopEdit*> edits = cal.findChildren<UxTimeEditPopEdit*>();
        QCOMPARE(edits.size(), 3);
        edits[0]->setText(QStringLiteral("11"));
        edits[1]->setText(QStringLiteral("15"));
        edits[2]->setText(QStringLiteral("20"));
        emit cal.clicked(today); // the day grid's click recomposes the time
        cal.show();
        QVERIFY(QTest::qWaitForWindowExposed(&cal));

        const QWidgetList before = QApplication::topLevelWidgets();
        QTest::mouseClick(edits[0], Qt::LeftButton);
        QWidget* hours = newTopLevel(before, QStringLiteral("TimePopWidget"));
        QVERIFY(hours);
        QCOMPARE(enabledTexts(hours), QStringList{"11"});
        // Picking minute 45 in the minute grid narrows the hour grid again.
        const QWidgetList before2 = QApplication::topLevelWidgets();
        QTest::mouseClick(edits[1], Qt::LeftButton);
        QWidget* minutes = newTopLevel(before2, QStringLiteral("TimePopWidget"));
        QVERIFY(minutes);
        QCOMPARE(enabledTexts(minutes).size(), 60);
        QTest::mouseClick(buttonWithText(minutes, QStringLiteral("45")), Qt::LeftButton);
        QCOMPARE(edits[1]->text(), QStringLiteral("45"));
        QCOMPARE(enabledTexts(hours), (QStringList{"10", "11"}));
    }

    void calendarCellColours_data()
    {
        QTest::addColumn<QString>("skin");
        QTest::addColumn<QString>("which");
        QTest::addColumn<QColor>("fill");
        QTest::addColumn<QColor>("text");
        QTest::newRow("light selected") << "light" << "selected" << QColor("#0096ff") << QColor("white");
        QTest::newRow("light out of range") << "light" << "outside" << QColor("#efefef") << QColor("black");
        QTest::newRow("dark weekday") << "dark" << "weekday" << QColor("#1F294D") << QColor("black");
        QTest::newRow("black selected") << "black" << "selected" << QColor("#8FA4C9") << QColor("#FFFFFF");
        QTest::newRow("black weekend") << "black" << "weekend" << QColor("#5B687E") << QColor("#629AF8");
        QTest::newRow("black weekday") << "black" << "weekday" << QColor("#485366") << QColor("#D9DFEA");
        QTest::newRow("black out of range") << "black" << "outside" << QColor("#7D8695") << QColor("#D9DFEA");
        QTest::newRow("black today") << "black" << "today" << QColor("aqua") << QColor("brown");
    }
    void calendarCellColours()
    {
        QFETCH(QString, skin);
        QFETCH(QString, which);
        QFETCH(QColor, text);
        UxCore::instance()->setCurrentSkin(skin);
        CellPainter cal;
        const QDate today = QDate::currentDate();
        cal.setSelectedDate(today.addDays(-14));
        QDate date = cal.selectedDate();
        if (which == QLatin1String("weekday") || which == QLatin1String("weekend")) {
            date = today.addDays(-7);
            while ((date.dayOfWeek() >= 6) != (which == QLatin1String("weekend")))
                date = date.addDays(-1);
        } else if (which == QLatin1String("outside")) {
            date = QDate(1899, 12, 20);
        } else if (which == QLatin1String("today")) {
            date = today;
        }
        const QImage img = cal.cell(date);
        QTEST(QColor(img.pixel(6, 5)), "fill");
        bool textFound = false;
        for (int y = 0; y < img.height() && !textFound; ++y)
            for (int x = 0; x < img.width() && !textFound; ++x)
                textFound = QColor(img.pixel(x, y)) == text;
        QVERIFY2(textFound, qPrintable(text.name()));
    }

    // --- edits ---

    void calendarEditPickAndClear()
    {
        const QWidgetList before = QApplication::topLevelWidgets();
        UxCalendarTimeEdit edit;
        QWidget* frame = newTopLevel(before, QStringLiteral("calendarFramWidget"));
        QVERIFY(frame && !frame->isVisible());
        QCOMPARE(edit.text(), QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")));
        auto* cal = frame->findChild<UxCalendarTimeWidget*>();
        QVERIFY(cal && cal->isDateYes());
        QSignalSpy spy(&edit, &UxCalendarTimeEdit::dateChanged);

        const QDate picked = QDate::currentDate().addDays(-5);
        cal->setSelectedDate(picked);
        child(cal, "CalendarEnsureBtn")->click();
        QCOMPARE(edit.text(), picked.toString(QStringLiteral("yyyy-MM-dd")));
        QCOMPARE(edit.date(), QDateTime(picked, QTime(0, 0)));
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toDateTime(), QDateTime(picked, QTime(0, 0)));

        // Cleared: empty text and the 0xFFFFFFFF marker, not a null date-time.
        child(cal, "CalendarClearBtn")->click();
        QVERIFY(edit.text().isEmpty());
        QCOMPARE(edit.date(), QDateTime::fromSecsSinceEpoch(0xFFFFFFFF));
        QCOMPARE(spy.count(), 1);
    }

    void calendarEditMinimum()
    {
        UxCalendarTimeEdit edit;
        const QString shown = edit.text();
        const QDateTime value = edit.date();
        // Earlier than the stored minimum (now - 2 years): the edit keeps its value.
        edit.setCalendarMinDate(QDateTime::currentDateTime().addYears(-3));
        QCOMPARE(edit.text(), shown);
        QCOMPARE(edit.date(), value);
        // Later: the value and text move to it; invalid bounds and lower minimums move nothing.
        const QDateTime raised(QDate::currentDate().addDays(3), QTime(8, 30, 0));
        edit.setCalendarMinDate(raised);
        QCOMPARE(edit.text(), raised.toString(QStringLiteral("yyyy-MM-dd")));
        edit.setCalendarMinDate(QDateTime());
        edit.setCalendarMaxDate(QDateTime());
        edit.setCalendarMinDate(raised.addDays(-1));
        QCOMPARE(edit.date(), raised);
    }

    // The frame opens below the edit, or above it near the screen's bottom; a
    // click elsewhere closes it, one inside keeps it.
    void calendarFramePlacementAndFocusLoss_data()
    {
        QTest::addColumn<bool>("nearBottom");
        QTest::addColumn<bool>("mouseInside");
        QTest::newRow("room below, click elsewhere") << false << false;
        QTest::newRow("near the bottom, click inside") << true << true;
    }
    void calendarFramePlacementAndFocusLoss()
    {
        QFETCH(bool, nearBottom);
        QFETCH(bool, mouseInside);
        const QRect avail = QGuiApplication::primaryScreen()->availableGeometry();
        QWidget window;
        window.setWindowFlags(Qt::FramelessWindowHint);
        window.resize(200, 40);
        window.move(avail.x() + 50, nearBottom ? avail.height() - 60 : avail.y() + 20);
        const QWidgetList before = QApplication::topLevelWidgets();
        auto* edit = new UxCalendarTimeEdit(&window);
        edit->setGeometry(10, 5, 150, 24);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QWidget* frame = newTopLevel(before, QStringLiteral("calendarFramWidget"));
        QVERIFY(frame);
        auto* cal = frame->findChild<UxCalendarTimeWidget*>();

        QTest::mouseClick(edit, Qt::LeftButton);
        QVERIFY(frame->isVisible());
        const QPoint editTop = edit->mapToGlobal(QPoint(0, 0));
        QCOMPARE(frame->x(), editTop.x() - 8);
        QCOMPARE(frame->y(), nearBottom ? editTop.y() - cal->height() : editTop.y() + edit->height());
        QVERIFY(cal->height() > 200); // laid out before it was measured

        QApplication::setActiveWindow(frame);
        QTRY_VERIFY(frame->hasFocus());
        QCursor::setPos(mouseInside ? frame->geometry().center() : QPoint(700, 5));
        QWidget other;
        other.setGeometry(600, 0, 150, 50);
        other.show();
        QApplication::setActiveWindow(&other);
        QTRY_COMPARE(frame->isVisible(), mouseInside);
        QTest::qWait(20);
        QCOMPARE(frame->isVisible(), mouseInside);
    }

    void dateTimeEditSignals()
    {
        UxDateTimeEdit edit;
        edit.setDate(QDate(2020, 5, 5));
        auto* cal = qobject_cast<UxCalendarTimeWidget*>(edit.calendarWidget());
        QVERIFY(cal);
        QSignalSpy spy(&edit, &UxDateTimeEdit::signalDateChanged);
        // A pick reports twice: once for the pick and once for the change.
        emit cal->signalSetCalendarTime(QDateTime(QDate(2021, 7, 8), QTime(0, 0)));
        QCOMPARE(spy.count(), 2);
        for (const QList<QVariant>& args : qAsConst(spy)) {
            QCOMPARE(args.at(0).toDate(), QDate(2020, 5, 5));
            QCOMPARE(args.at(1).toDate(), QDate(2021, 7, 8));
        }
        QCOMPARE(cal->yearShown(), 2021);
        QCOMPARE(cal->monthShown(), 7);
        spy.clear();
        emit cal->signalSetCalendarTime(QDateTime(QDate(2021, 7, 8), QTime(0, 0)));
        QCOMPARE(spy.count(), 1); // the same date: only the pick reports

        // A typed date reports once, and only when it changes.
        spy.clear();
        edit.setDate(QDate(2021, 7, 8));
        QCOMPARE(spy.count(), 0);
        edit.setDate(QDate(2023, 3, 4));
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toDate(), QDate(2021, 7, 8));
        QCOMPARE(edit.text(), QStringLiteral("2023-03-04"));
    }

    // --- mini clock ---

    // A zone chosen from the menu or restored from the host's map.
    void clockZone_data()
    {
        QTest::addColumn<int>("chosen"); // 1000: restore STORED instead
        QTest::addColumn<QVariantMap>("stored");
        QTest::addColumn<int>("baseZone");
        QTest::addColumn<int>("hours");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("checkedZone"); // 1000: none checked
        QTest::newRow("choose 旧金山") << -8 << QVariantMap() << 8 << -16 << QStringLiteral("旧金山") << -8;
        QTest::newRow("choose 汉城") << 9 << QVariantMap() << 8 << 1 << QStringLiteral("汉城") << 9;
        QTest::newRow("restore 美东") << 1000 << QVariantMap{{"zone", -5}} << 8 << -13 << QStringLiteral("美东") << -5;
        QTest::newRow("nothing stored") << 1000 << QVariantMap() << 8 << 0 << QStringLiteral("北京") << 8;
        // Out of range: the base zone itself is the offset.
        QTest::newRow("out of range") << 1000 << QVariantMap{{"zone", 20}} << 8 << 8 << QString() << 1000;
        QTest::newRow("out of range, other base") << 1000 << QVariantMap{{"zone", -11}} << 9 << 9 << QString() << 1000;
        QTest::newRow("largest int") << 1000 << QVariantMap{{"zone", INT_MAX}} << 8 << 8 << QString() << 1000;
        QTest::newRow("not a number reads 0") << 1000 << QVariantMap{{"zone", "abc"}} << 8 << -8 << QString() << 1000;
        QTest::newRow("other base zone") << 1000 << QVariantMap{{"zone", 9}} << 9 << 0 << QStringLiteral("汉城") << 9;
    }
    void clockZone()
    {
        QFETCH(int, chosen);
        QFETCH(QVariantMap, stored);
        QFETCH(int, baseZone);
        QFETCH(int, hours);
        QFETCH(QString, name);
        QFETCH(int, checkedZone);
        UxMiniClockPannel clock;
        QVERIFY(clockDrift(labelText(clock, "timeLabel"), 0) <= 2); // shown at once
        clock.setBaseZone(baseZone);
        if (chosen == 1000) {
            clock.restore(stored);
        } else {
            for (QAction* a : zoneActions(clock))
                if (a->data().toInt() == chosen)
                    a->trigger();
        }
        QVERIFY2(clockDrift(labelText(clock, "timeLabel"), hours) <= 2, qPrintable(labelText(clock, "timeLabel")));
        const QString date = labelText(clock, "dateLabel");
        QVERIFY2(date.startsWith(name + QLatin1Char(' ')), qPrintable(date));
        QVERIFY(qAbs(QDateTime::currentDateTime().addSecs(qint64(hours) * 3600).date().daysTo(
                    QDate::fromString(date.section(QLatin1Char(' '), 1), QStringLiteral("yyyy/MM/dd")))) <= 1);
        for (QAction* a : zoneActions(clock))
            QCOMPARE(a->isChecked(), a->data().toInt() == checkedZone);
        if (chosen != 1000) {
            QTRY_VERIFY_WITH_TIMEOUT(clockDrift(labelText(clock, "timeLabel"), hours) <= 2, 5000); // the timer keeps it going
            QMap<QString, QVariant> saved;
            clock.save(saved);
            QCOMPARE(saved.value(QStringLiteral("zone")).toInt(), chosen);
        }
    }

    void clockMapWithoutBaseZone()
    {
        UxMiniClockPannel clock;
        auto keys = [&clock]() {
            QList<int> out;
            for (QAction* a : zoneActions(clock))
                out << a->data().toInt();
            return out;
        };
        QCOMPARE(keys(), (QList<int>{8, -8, -5, 9})); // base zone first, then ascending
        clock.setTimeZoneMap({{1, QStringLiteral("Z1")}, {-3, QStringLiteral("Z-3")}});
        QCOMPARE(keys(), (QList<int>{8, -3, 1}));
        const QList<QAction*> actions = zoneActions(clock);
        QVERIFY2(actions.first()->text().startsWith(QStringLiteral("Beijing ")), qPrintable(actions.first()->text()));
        QVERIFY(actions.first()->isChecked());
        const QString expected = QStringLiteral("Z-3 ")
            + QDateTime::currentDateTime().addSecs(-11 * 3600).toString(QStringLiteral("yyyy-MM-dd hh"));
        QVERIFY2(actions.at(1)->text().startsWith(expected), qPrintable(actions.at(1)->text()));
        QCOMPARE(clock.findChildren<QMenu*>(QStringLiteral("zoneMenu")).size(), 1);
        clock.restore({{QStringLiteral("zone"), 9}}); // a zone missing from the map shows an empty name
        QVERIFY(labelText(clock, "dateLabel").startsWith(QLatin1Char(' ')));
    }

    void clockParentDecidesChrome()
    {
        UxMiniClockPannel top;
        QPushButton* close = child(&top, "closeBushButton");
        QVERIFY(!close->isHidden());
        QVERIFY(!top.findChild<UxFramelessHelper*>());
        QVERIFY(top.windowFlags() & Qt::FramelessWindowHint);
        top.show();
        QVERIFY(QTest::qWaitForWindowExposed(&top));
        QTest::mouseClick(close, Qt::LeftButton);
        QVERIFY(!top.isVisible());

        QWidget host;
        auto* tile = new UxMiniClockPannel(&host);
        QVERIFY(child(tile, "closeBushButton")->isHidden());
        auto* helper = tile->findChild<UxFramelessHelper*>();
        QVERIFY(helper && helper->isMovable() && !helper->isResizable());
    }
};

UX_TEST_MAIN(TstDateTime)
#include "tst_datetime.moc"
