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
    for (QPushButton* b : parent->findChildren<QPushButton*>()) {
        if (b->text() == text)
            return b;
    }
    return nullptr;
}

QStringList enabledTexts(QWidget* pop)
{
    QStringList out;
    for (QPushButton* b : pop->findChildren<QPushButton*>()) {
        if (b->isEnabled())
            out << b->text();
    }
    return out;
}

// Top-level widgets with NAME created since BEFORE was taken.
QWidget* newTopLevel(const QWidgetList& before, const QString& name)
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->objectName() == name && !before.contains(w))
            return w;
    }
    return nullptr;
}

// Seconds between the clock's "hh:mm:ss" and the local time shifted by HOURS,
// folded into a day.
int clockDrift(const QString& shown, int hours)
{
    const QTime t = QTime::fromString(shown, QStringLiteral("hh:mm:ss"));
    if (!t.isValid())
        return 99999;
    const QTime expected = QDateTime::currentDateTime().addSecs(qint64(hours) * 3600).time();
    int d = qAbs(expected.secsTo(t));
    return qMin(d, 86400 - d);
}

// Exposes the day-cell painter.
class CellPainter : public UxCalendarTimeWidget
{
public:
    CellPainter()
        : UxCalendarTimeWidget(nullptr, true, false)
    {
    }
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

QAction* zoneAction(UxMiniClockPannel& clock, int zone)
{
    for (QAction* a : zoneActions(clock)) {
        if (a->data().toInt() == zone)
            return a;
    }
    return nullptr;
}

} // namespace

class TstDateTime : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    // flow layout
    void flowRowsOfTimeGrid_data();
    void flowRowsOfTimeGrid();
    void flowOverWideItem();
    void flowItemsWithoutWidget();

    // time pop-ups
    void timePopButtons_data();
    void timePopButtons();
    void timePopRange_data();
    void timePopRange();
    void timeFieldPick();
    void timePopFocusLoss_data();
    void timePopFocusLoss();

    // calendar
    void calendarYearList();
    void calendarNavigation_data();
    void calendarNavigation();
    void calendarIgnoresBadComboText();
    void calendarConfirm_data();
    void calendarConfirm();
    void calendarNowAndClear();
    void calendarTimeRowFollowsBounds_data();
    void calendarTimeRowFollowsBounds();
    void calendarTimeRowLimitsGrid();
    void calendarCellColours_data();
    void calendarCellColours();

    // edits
    void calendarEditPickAndClear();
    void calendarEditMinimum();
    void calendarFrameFocusLoss_data();
    void calendarFrameFocusLoss();
    void calendarEditOpensBelowOrAbove_data();
    void calendarEditOpensBelowOrAbove();
    void dateTimeEditPickSignalsTwice();
    void dateTimeEditTypedDate();

    // mini clock
    void clockZoneChoice_data();
    void clockZoneChoice();
    void clockRestore_data();
    void clockRestore();
    void clockMapWithoutBaseZone();
    void clockParentDecidesChrome();
};

void TstDateTime::cleanup()
{
    if (UxCore::instance()->getCurrentSkinId() != QLatin1String("light"))
        UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
}

// --- flow layout -------------------------------------------------------------------

void TstDateTime::flowRowsOfTimeGrid_data()
{
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("rows");
    QTest::newRow("hours") << 24 << 3;
    QTest::newRow("minutes") << 60 << 6;
    QTest::newRow("one") << 1 << 1;
}

void TstDateTime::flowRowsOfTimeGrid()
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
        auto* b = new QPushButton(&host);
        b->setFixedSize(20, 20);
        flow->addWidget(b);
        list << b;
    }
    outer->addLayout(flow);
    host.setFixedSize(229, 200);
    outer->activate();

    // 229 - 2 * 8 - 2 * 6 leaves 201 pixels: ten 20-pixel buttons a row, no gaps.
    for (int i = 0; i < buttons; ++i)
        QCOMPARE(list[i]->geometry(), QRect(14 + 20 * (i % 10), 14 + 20 * (i / 10), 20, 20));
    QCOMPARE(flow->heightForWidth(213), 6 + 20 * rows + 6);
    QVERIFY(flow->hasHeightForWidth());
}

void TstDateTime::flowOverWideItem()
{
    UxFlowLayout flow(0, 0, 0);
    auto* small1 = new QSpacerItem(30, 20);
    auto* wide = new QSpacerItem(150, 20);
    auto* small2 = new QSpacerItem(30, 10);
    flow.addItem(small1);
    flow.addItem(wide);
    flow.addItem(small2);
    flow.setGeometry(QRect(0, 0, 100, 0));
    QCOMPARE(small1->geometry(), QRect(0, 0, 30, 20));
    QCOMPARE(wide->geometry(), QRect(0, 20, 150, 20)); // alone on its row
    QCOMPARE(small2->geometry(), QRect(0, 40, 30, 10));
    QCOMPARE(flow.heightForWidth(100), 50);

    // First in the layout: no empty row before it.
    UxFlowLayout first(0, 0, 0);
    auto* alone = new QSpacerItem(500, 20);
    first.addItem(alone);
    first.setGeometry(QRect(0, 0, 100, 0));
    QCOMPARE(alone->geometry().topLeft(), QPoint(0, 0));

    QCOMPARE(flow.itemAt(-1), nullptr);
    QCOMPARE(flow.takeAt(flow.count()), nullptr);
    QCOMPARE(flow.takeAt(-1), nullptr);
    QCOMPARE(flow.count(), 3);
}

void TstDateTime::flowItemsWithoutWidget()
{
    // Negative spacing, no parent, no widget to ask: items sit side by side.
    UxFlowLayout flow(0, -1, -1);
    auto* a = new QSpacerItem(10, 10);
    auto* b = new QSpacerItem(10, 10);
    flow.addItem(a);
    flow.addItem(b);
    flow.setGeometry(QRect(0, 0, 100, 0));
    QCOMPARE(b->geometry().topLeft(), QPoint(10, 0));
    QCOMPARE(flow.horizontalSpacing(), -1);
}

// --- time pop-ups -------------------------------------------------------------------

void TstDateTime::timePopButtons_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("count");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("last");
    QTest::newRow("hours") << 0 << 24 << QSize(229, 88) << "23";
    QTest::newRow("minutes") << 1 << 60 << QSize(229, 148) << "59";
    QTest::newRow("seconds") << 2 << 60 << QSize(229, 148) << "59";
    QTest::newRow("unknown kind") << 5 << 0 << QSize(229, 148) << QString();
}

void TstDateTime::timePopButtons()
{
    QFETCH(int, kind);
    QFETCH(int, count);
    QFETCH(QSize, size);
    QFETCH(QString, last);

    UxTimePopWidget pop(nullptr, kind);
    const QList<QPushButton*> buttons = pop.findChildren<QPushButton*>();
    QCOMPARE(buttons.size(), count);
    QCOMPARE(pop.size(), size);
    QCOMPARE(pop.objectName(), QStringLiteral("TimePopWidget"));
    if (count > 0) {
        QCOMPARE(buttons.first()->text(), QStringLiteral("00"));
        QCOMPARE(buttons.last()->text(), last);
        QCOMPARE(buttons.at(7)->text(), QStringLiteral("07"));
    }
    pop.show();
    QVERIFY(QTest::qWaitForWindowExposed(&pop));
    // Every button lies inside the grid.
    for (QPushButton* b : buttons)
        QVERIFY2(pop.rect().contains(b->geometry()), qPrintable(b->text()));
}

void TstDateTime::timePopRange_data()
{
    const QDateTime min(QDate(2024, 1, 1), QTime(10, 30, 0));
    const QDateTime max(QDate(2024, 1, 1), QTime(12, 0, 0));
    QTest::addColumn<int>("kind");
    QTest::addColumn<QDateTime>("min");
    QTest::addColumn<QDateTime>("max");
    QTest::addColumn<QDateTime>("current");
    QTest::addColumn<QStringList>("enabled");

    QStringList all60;
    QStringList from30;
    for (int i = 0; i < 60; ++i) {
        all60 << QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0'));
        if (i >= 30)
            from30 << all60.last();
    }
    QTest::newRow("hours around 11:15:20") << 0 << min << max << QDateTime(QDate(2024, 1, 1), QTime(11, 15, 20))
                                           << QStringList{"11"};
    QTest::newRow("minutes at 11") << 1 << min << max << QDateTime(QDate(2024, 1, 1), QTime(11, 15, 20)) << all60;
    QTest::newRow("minutes at 10") << 1 << min << max << QDateTime(QDate(2024, 1, 1), QTime(10, 15, 20)) << from30;
    QTest::newRow("seconds at 12:00") << 2 << min << max << QDateTime(QDate(2024, 1, 1), QTime(12, 0, 20))
                                      << QStringList{"00"};
    QTest::newRow("minimum after maximum") << 0 << max << min << QDateTime(QDate(2024, 1, 1), QTime(11, 0, 0))
                                           << QStringList();
    QTest::newRow("another day") << 0 << min << max << QDateTime(QDate(2024, 1, 2), QTime(11, 0, 0))
                                 << QStringList();
}

void TstDateTime::timePopRange()
{
    QFETCH(int, kind);
    QFETCH(QDateTime, min);
    QFETCH(QDateTime, max);
    QFETCH(QDateTime, current);
    QFETCH(QStringList, enabled);

    UxTimePopWidget pop(nullptr, kind);
    pop.setDateTime(min, max, current);
    QCOMPARE(enabledTexts(&pop), enabled);
    // A later, wider range enables them again.
    pop.setDateTime(QDateTime(QDate(2000, 1, 1), QTime(0, 0)), QDateTime(QDate(2100, 1, 1), QTime(0, 0)), current);
    QCOMPARE(enabledTexts(&pop).size(), kind == 0 ? 24 : 60);
}

void TstDateTime::timeFieldPick()
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
    QVERIFY(pop);
    QVERIFY(pop->isVisible());
    // Above the field, 28 pixels to its left.
    const QPoint fieldTopLeft = field->mapToGlobal(QPoint(0, 0));
    QCOMPARE(pop->pos(), QPoint(fieldTopLeft.x() - 28, fieldTopLeft.y() - pop->height()));

    QPushButton* seven = buttonWithText(pop, QStringLiteral("07"));
    QVERIFY(seven);
    QTest::mouseClick(seven, Qt::LeftButton);
    QCOMPARE(field->text(), QStringLiteral("07"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 7);
    QVERIFY(!pop->isVisible());

    // A right click does not open it.
    QTest::mouseClick(field, Qt::RightButton);
    QVERIFY(!pop->isVisible());
}

void TstDateTime::timePopFocusLoss_data()
{
    QTest::addColumn<bool>("mouseOnOwner");
    QTest::newRow("click elsewhere closes both") << false;
    QTest::newRow("click on the calendar keeps it") << true;
}

void TstDateTime::timePopFocusLoss()
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

// --- calendar -----------------------------------------------------------------------

void TstDateTime::calendarYearList()
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
    QCOMPARE(months->itemText(0), QStringLiteral("1"));
    QCOMPARE(months->itemText(11), QStringLiteral("12"));
    QCOMPARE(months->currentText(), QString::number(QDate::currentDate().month()));

    // Choosing a year turns the page, and turning the page updates the boxes.
    years->setCurrentText(QStringLiteral("2010"));
    QCOMPARE(cal.yearShown(), 2010);
    cal.setCurrentPage(1999, 3);
    QCOMPARE(years->currentText(), QStringLiteral("1999"));
    QCOMPARE(months->currentText(), QStringLiteral("3"));
    months->setCurrentText(QStringLiteral("11"));
    QCOMPARE(cal.monthShown(), 11);
    QCOMPARE(cal.yearShown(), 1999);
}

void TstDateTime::calendarNavigation_data()
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
    QTest::newRow("next year allowed last year")
        << today.year() - 1 << 6 << "CalendarRightYearBtn" << today.year() << 6;
    QTest::newRow("previous month refused at January 1900") << 1900 << 1 << "CalendarLeftMonthBtn" << 1900 << 1;
    QTest::newRow("previous year refused in 1900") << 1900 << 7 << "CalendarLeftYearBtn" << 1900 << 7;
    QTest::newRow("previous month allowed in February 1900") << 1900 << 2 << "CalendarLeftMonthBtn" << 1900 << 1;
    QTest::newRow("previous year allowed in 1901") << 1901 << 5 << "CalendarLeftYearBtn" << 1900 << 5;
}

void TstDateTime::calendarNavigation()
{
    QFETCH(int, year);
    QFETCH(int, month);
    QFETCH(QString, button);
    QFETCH(int, expectYear);
    QFETCH(int, expectMonth);

    UxCalendarTimeWidget cal(nullptr, true, true);
    cal.setCurrentPage(year, month);
    QCOMPARE(cal.yearShown(), year);
    auto* btn = cal.findChild<QPushButton*>(button);
    QVERIFY(btn);
    btn->click();
    QCOMPARE(cal.yearShown(), expectYear);
    QCOMPARE(cal.monthShown(), expectMonth);
}

void TstDateTime::calendarIgnoresBadComboText()
{
    UxCalendarTimeWidget cal(nullptr, true, true);
    cal.setCurrentPage(2010, 5);
    auto* years = cal.findChild<QComboBox*>(QStringLiteral("CalendarCbYear"));
    auto* months = cal.findChild<QComboBox*>(QStringLiteral("CalendarCbMonth"));
    years->addItem(QStringLiteral("abc"));
    years->setCurrentText(QStringLiteral("abc"));
    months->addItem(QStringLiteral("0"));
    months->setCurrentText(QStringLiteral("0"));
    for (const char* name : {"CalendarRightMonthBtn", "CalendarRightYearBtn", "CalendarLeftMonthBtn",
                             "CalendarLeftYearBtn"})
        cal.findChild<QPushButton*>(QLatin1String(name))->click();
    QCOMPARE(cal.yearShown(), 2010);
    QCOMPARE(cal.monthShown(), 5);
}

void TstDateTime::calendarConfirm_data()
{
    QTest::addColumn<bool>("dateOnly");
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QTime>("time");
    QTest::newRow("date and time") << false << QStringList{"09", "08", "07"} << QTime(9, 8, 7);
    QTest::newRow("non-numeric hour reads 0") << false << QStringList{"ab", "08", "07"} << QTime(0, 8, 7);
    QTest::newRow("date only") << true << QStringList() << QTime(0, 0);
}

void TstDateTime::calendarConfirm()
{
    QFETCH(bool, dateOnly);
    QFETCH(QStringList, fields);
    QFETCH(QTime, time);

    UxCalendarTimeWidget cal(nullptr, dateOnly, true);
    const QList<UxTimeEditPopEdit*> edits = cal.findChildren<UxTimeEditPopEdit*>();
    QCOMPARE(edits.size(), dateOnly ? 0 : 3);
    QCOMPARE(cal.findChild<QWidget*>(QStringLiteral("CalendarTimeEidtWidget")) != nullptr, !dateOnly);
    for (int i = 0; i < edits.size(); ++i)
        edits[i]->setText(fields.at(i));

    const QDate picked = QDate::currentDate().addDays(-3);
    cal.setSelectedDate(picked);
    QSignalSpy spy(&cal, &UxCalendarTimeWidget::signalSetCalendarTime);
    cal.findChild<QPushButton*>(QStringLiteral("CalendarEnsureBtn"))->click();
    QCOMPARE(spy.count(), 1);
    const QDateTime dt = spy.at(0).at(0).toDateTime();
    QCOMPARE(dt.date(), picked);
    QCOMPARE(dt.time(), time);
}

void TstDateTime::calendarNowAndClear()
{
    UxCalendarTimeWidget cal(nullptr, false, true);
    auto* now = cal.findChild<QPushButton*>(QStringLiteral("CalendarNowBtn"));
    auto* clear = cal.findChild<QPushButton*>(QStringLiteral("CalendarClearBtn"));
    QVERIFY(now && clear);
    QCOMPARE(now->text(), QStringLiteral("现在"));
    QCOMPARE(clear->text(), QStringLiteral("清空"));

    // The time row starts at the current time.
    const QList<UxTimeEditPopEdit*> fields = cal.findChildren<UxTimeEditPopEdit*>();
    QCOMPARE(fields.size(), 3);
    QVERIFY(clockDrift(fields[0]->text() + QLatin1Char(':') + fields[1]->text() + QLatin1Char(':') + fields[2]->text(),
                       0)
            <= 2);

    QSignalSpy timeSpy(&cal, &UxCalendarTimeWidget::signalSetCalendarTime);
    QSignalSpy clearSpy(&cal, &UxCalendarTimeWidget::signalClearDateTime);

    cal.setSelectedDate(QDate::currentDate().addDays(-10));
    const QDateTime before = QDateTime::currentDateTime();
    now->click();
    QCOMPARE(timeSpy.count(), 1);
    const QDateTime emitted = timeSpy.at(0).at(0).toDateTime();
    QVERIFY(emitted >= before.addSecs(-1) && emitted <= QDateTime::currentDateTime().addSecs(1));
    QCOMPARE(cal.selectedDate(), QDate::currentDate());

    cal.setSelectedDate(QDate::currentDate().addDays(-10));
    // Today is selected before the clear goes out.
    QDate selectedAtClear;
    connect(&cal, &UxCalendarTimeWidget::signalClearDateTime, &cal,
            [&] { selectedAtClear = cal.selectedDate(); });
    clear->click();
    QCOMPARE(clearSpy.count(), 1);
    QCOMPARE(timeSpy.count(), 1);
    QCOMPARE(selectedAtClear, QDate::currentDate());

    // No bottom bar, no buttons.
    UxCalendarTimeWidget bare(nullptr, true, false);
    QVERIFY(!bare.findChild<QPushButton*>(QStringLiteral("CalendarEnsureBtn")));
}

void TstDateTime::calendarTimeRowFollowsBounds_data()
{
    const QDate today = QDate::currentDate();
    QTest::addColumn<bool>("setMin");
    QTest::addColumn<QDateTime>("bound");
    QTest::addColumn<QStringList>("fields");
    QTest::newRow("minimum in the future") << true << QDateTime(today.addDays(2), QTime(13, 14, 15))
                                           << QStringList{"13", "14", "15"};
    QTest::newRow("maximum in the past") << false << QDateTime(today.addDays(-2), QTime(1, 2, 3))
                                         << QStringList{"01", "02", "03"};
}

void TstDateTime::calendarTimeRowFollowsBounds()
{
    QFETCH(bool, setMin);
    QFETCH(QDateTime, bound);
    QFETCH(QStringList, fields);

    UxCalendarTimeWidget cal(nullptr, false, true);
    if (setMin)
        cal.setCalendarMinDate(bound);
    else
        cal.setCalendarMaxDate(bound);
    QStringList texts;
    for (UxTimeEditPopEdit* e : cal.findChildren<UxTimeEditPopEdit*>())
        texts << e->text();
    QCOMPARE(texts, fields);
    QCOMPARE(setMin ? cal.minimumDate() : cal.maximumDate(), bound.date());

    // An invalid bound changes nothing.
    cal.setCalendarMinDate(QDateTime());
    cal.setCalendarMaxDate(QDateTime());
    QCOMPARE(setMin ? cal.minimumDate() : cal.maximumDate(), bound.date());
}

void TstDateTime::calendarTimeRowLimitsGrid()
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

void TstDateTime::calendarCellColours_data()
{
    QTest::addColumn<QString>("skin");
    QTest::addColumn<QString>("which");
    QTest::addColumn<QColor>("fill");
    QTest::addColumn<QColor>("text");
    QTest::newRow("light selected") << "light" << "selected" << QColor("#0096ff") << QColor("white");
    QTest::newRow("light out of range") << "light" << "outside" << QColor("#efefef") << QColor("black");
    QTest::newRow("dark weekday") << "dark" << "weekday" << QColor("#1F294D") << QColor("black");
    QTest::newRow("dark out of range") << "dark" << "outside" << QColor("#1F294D") << QColor("black");
    QTest::newRow("black selected") << "black" << "selected" << QColor("#8FA4C9") << QColor("#FFFFFF");
    QTest::newRow("black weekend") << "black" << "weekend" << QColor("#5B687E") << QColor("#629AF8");
    QTest::newRow("black weekday") << "black" << "weekday" << QColor("#485366") << QColor("#D9DFEA");
    QTest::newRow("black out of range") << "black" << "outside" << QColor("#7D8695") << QColor("#D9DFEA");
    QTest::newRow("black today") << "black" << "today" << QColor("aqua") << QColor("brown");
}

void TstDateTime::calendarCellColours()
{
    QFETCH(QString, skin);
    QFETCH(QString, which);
    QFETCH(QColor, fill);
    QFETCH(QColor, text);

    UxCore::instance()->setCurrentSkin(skin);
    CellPainter cal;
    const QDate today = QDate::currentDate();
    cal.setSelectedDate(today.addDays(-14));
    QDate date = cal.selectedDate();
    QDate weekday = today.addDays(-7);
    while (weekday.dayOfWeek() >= 6)
        weekday = weekday.addDays(-1);
    QDate weekend = today.addDays(-7);
    while (weekend.dayOfWeek() < 6)
        weekend = weekend.addDays(-1);
    if (which == QLatin1String("weekday"))
        date = weekday;
    else if (which == QLatin1String("weekend"))
        date = weekend;
    else if (which == QLatin1String("outside"))
        date = QDate(1899, 12, 20);
    else if (which == QLatin1String("today"))
        date = today;

    const QImage img = cal.cell(date);
    QCOMPARE(QColor(img.pixel(6, 5)), fill);
    bool textFound = false;
    for (int y = 0; y < img.height() && !textFound; ++y) {
        for (int x = 0; x < img.width() && !textFound; ++x)
            textFound = QColor(img.pixel(x, y)) == text;
    }
    QVERIFY2(textFound, qPrintable(text.name()));
    QCOMPARE(cal.selectColor(), skin == QLatin1String("black") ? QColor("#8FA4C9") : QColor("#0096ff"));
}

// --- edits --------------------------------------------------------------------------

void TstDateTime::calendarEditPickAndClear()
{
    const QWidgetList before = QApplication::topLevelWidgets();
    UxCalendarTimeEdit edit;
    QWidget* frame = newTopLevel(before, QStringLiteral("calendarFramWidget"));
    QVERIFY(frame);
    QVERIFY(!frame->isVisible());
    QCOMPARE(edit.text(), QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")));

    auto* cal = frame->findChild<UxCalendarTimeWidget*>();
    QVERIFY(cal);
    QVERIFY(cal->isDateYes());
    QSignalSpy spy(&edit, &UxCalendarTimeEdit::dateChanged);

    const QDate picked = QDate::currentDate().addDays(-5);
    cal->setSelectedDate(picked);
    cal->findChild<QPushButton*>(QStringLiteral("CalendarEnsureBtn"))->click();
    QCOMPARE(edit.text(), picked.toString(QStringLiteral("yyyy-MM-dd")));
    QCOMPARE(edit.date(), QDateTime(picked, QTime(0, 0)));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toDateTime(), QDateTime(picked, QTime(0, 0)));

    cal->findChild<QPushButton*>(QStringLiteral("CalendarClearBtn"))->click();
    QVERIFY(edit.text().isEmpty());
    QCOMPARE(edit.date(), QDateTime::fromSecsSinceEpoch(0xFFFFFFFF));
    QVERIFY(edit.date().isValid());
    QCOMPARE(spy.count(), 1);
}

void TstDateTime::calendarEditMinimum()
{
    UxCalendarTimeEdit edit;
    const QString shown = edit.text();
    const QDateTime value = edit.date();

    // Earlier than the stored minimum (now - 2 years): the edit keeps its value.
    edit.setCalendarMinDate(QDateTime::currentDateTime().addYears(-3));
    QCOMPARE(edit.text(), shown);
    QCOMPARE(edit.date(), value);

    // Later: the value and text move to it, whatever they were.
    const QDateTime raised(QDate::currentDate().addDays(3), QTime(8, 30, 0));
    edit.setCalendarMinDate(raised);
    QCOMPARE(edit.date(), raised);
    QCOMPARE(edit.text(), raised.toString(QStringLiteral("yyyy-MM-dd")));

    // Invalid input is ignored.
    edit.setCalendarMinDate(QDateTime());
    edit.setCalendarMaxDate(QDateTime());
    QCOMPARE(edit.date(), raised);

    // Back below it: nothing moves.
    edit.setCalendarMinDate(raised.addDays(-1));
    QCOMPARE(edit.date(), raised);
}

void TstDateTime::calendarFrameFocusLoss_data()
{
    QTest::addColumn<bool>("mouseInside");
    QTest::newRow("click elsewhere") << false;
    QTest::newRow("click inside") << true;
}

void TstDateTime::calendarFrameFocusLoss()
{
    QFETCH(bool, mouseInside);

    QWidget window;
    window.setGeometry(20, 20, 200, 40);
    const QWidgetList before = QApplication::topLevelWidgets();
    auto* edit = new UxCalendarTimeEdit(&window);
    edit->setGeometry(10, 5, 150, 24);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QWidget* frame = newTopLevel(before, QStringLiteral("calendarFramWidget"));
    QVERIFY(frame);
    QTest::mouseClick(edit, Qt::LeftButton);
    QApplication::setActiveWindow(frame);
    QTRY_VERIFY(frame->hasFocus());

    QCursor::setPos(mouseInside ? frame->geometry().center() : QPoint(700, 500));
    QWidget other;
    other.setGeometry(600, 450, 150, 50);
    other.show();
    QApplication::setActiveWindow(&other);
    QTRY_COMPARE(frame->isVisible(), mouseInside);
    QTest::qWait(20);
    QCOMPARE(frame->isVisible(), mouseInside);
}

void TstDateTime::calendarEditOpensBelowOrAbove_data()
{
    QTest::addColumn<bool>("nearBottom");
    QTest::newRow("room below") << false;
    QTest::newRow("near the screen's bottom") << true;
}

void TstDateTime::calendarEditOpensBelowOrAbove()
{
    QFETCH(bool, nearBottom);
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
    if (nearBottom)
        QCOMPARE(frame->y(), editTop.y() - cal->height());
    else
        QCOMPARE(frame->y(), editTop.y() + edit->height());
    QVERIFY(cal->height() > 200); // laid out before it was measured
}

void TstDateTime::dateTimeEditPickSignalsTwice()
{
    UxDateTimeEdit edit;
    edit.setDate(QDate(2020, 5, 5));
    auto* cal = qobject_cast<UxCalendarTimeWidget*>(edit.calendarWidget());
    QVERIFY(cal);
    QCOMPARE(cal->objectName(), QStringLiteral("CalendarPopWidget"));
    QSignalSpy spy(&edit, &UxDateTimeEdit::signalDateChanged);

    emit cal->signalSetCalendarTime(QDateTime(QDate(2021, 7, 8), QTime(0, 0)));
    QCOMPARE(spy.count(), 2);
    for (const QList<QVariant>& args : qAsConst(spy)) {
        QCOMPARE(args.at(0).toDate(), QDate(2020, 5, 5));
        QCOMPARE(args.at(1).toDate(), QDate(2021, 7, 8));
    }
    QCOMPARE(edit.date(), QDate(2021, 7, 8));
    QCOMPARE(cal->yearShown(), 2021);
    QCOMPARE(cal->monthShown(), 7);

    // The same date again: only the pick reports.
    spy.clear();
    emit cal->signalSetCalendarTime(QDateTime(QDate(2021, 7, 8), QTime(0, 0)));
    QCOMPARE(spy.count(), 1);
}

void TstDateTime::dateTimeEditTypedDate()
{
    UxDateTimeEdit edit;
    edit.setDate(QDate(2022, 2, 2));
    QSignalSpy spy(&edit, &UxDateTimeEdit::signalDateChanged);
    edit.setDate(QDate(2022, 2, 2));
    QCOMPARE(spy.count(), 0);
    edit.setDate(QDate(2023, 3, 4));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toDate(), QDate(2022, 2, 2));
    QCOMPARE(spy.at(0).at(1).toDate(), QDate(2023, 3, 4));
    QCOMPARE(edit.text(), QStringLiteral("2023-03-04"));
}

// --- mini clock -----------------------------------------------------------------------

void TstDateTime::clockZoneChoice_data()
{
    QTest::addColumn<int>("zone");
    QTest::addColumn<int>("hours");
    QTest::addColumn<QString>("name");
    QTest::newRow("美东") << -5 << -13 << QStringLiteral("美东");
    QTest::newRow("旧金山") << -8 << -16 << QStringLiteral("旧金山");
    QTest::newRow("汉城") << 9 << 1 << QStringLiteral("汉城");
    QTest::newRow("北京") << 8 << 0 << QStringLiteral("北京");
}

void TstDateTime::clockZoneChoice()
{
    QFETCH(int, zone);
    QFETCH(int, hours);
    QFETCH(QString, name);

    UxMiniClockPannel clock;
    auto* timeLabel = clock.findChild<QLabel*>(QStringLiteral("timeLabel"));
    auto* dateLabel = clock.findChild<QLabel*>(QStringLiteral("dateLabel"));
    QVERIFY(timeLabel && dateLabel);
    QVERIFY(clockDrift(timeLabel->text(), 0) <= 2); // shown at once

    QAction* action = zoneAction(clock, zone);
    QVERIFY(action);
    const QDateTime before = QDateTime::currentDateTime().addSecs(qint64(hours) * 3600);
    action->trigger();
    const QDateTime after = QDateTime::currentDateTime().addSecs(qint64(hours) * 3600);

    QVERIFY2(clockDrift(timeLabel->text(), hours) <= 2, qPrintable(timeLabel->text()));
    const QString fmt = QStringLiteral("yyyy/MM/dd");
    QVERIFY2(dateLabel->text() == name + QLatin1Char(' ') + before.toString(fmt)
                 || dateLabel->text() == name + QLatin1Char(' ') + after.toString(fmt),
             qPrintable(dateLabel->text()));
    for (QAction* a : zoneActions(clock))
        QCOMPARE(a->isChecked(), a == action);

    // The timer keeps it going.
    QTRY_VERIFY_WITH_TIMEOUT(clockDrift(timeLabel->text(), hours) <= 2, 5000);

    QMap<QString, QVariant> saved;
    clock.save(saved);
    QCOMPARE(saved.value(QStringLiteral("zone")).toInt(), zone);
}

void TstDateTime::clockRestore_data()
{
    QTest::addColumn<QVariantMap>("stored");
    QTest::addColumn<int>("baseZone");
    QTest::addColumn<int>("hours");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("checkedZone"); // 1000: none checked

    QTest::newRow("美东") << QVariantMap{{"zone", -5}} << 8 << -13 << QStringLiteral("美东") << -5;
    QTest::newRow("nothing stored") << QVariantMap() << 8 << 0 << QStringLiteral("北京") << 8;
    QTest::newRow("out of range takes the base zone") << QVariantMap{{"zone", 20}} << 8 << 8 << QString() << 1000;
    QTest::newRow("out of range, other base") << QVariantMap{{"zone", -11}} << 9 << 9 << QString() << 1000;
    QTest::newRow("largest int") << QVariantMap{{"zone", INT_MAX}} << 8 << 8 << QString() << 1000;
    QTest::newRow("not a number reads 0") << QVariantMap{{"zone", "abc"}} << 8 << -8 << QString() << 1000;
    QTest::newRow("other base zone") << QVariantMap{{"zone", 9}} << 9 << 0 << QStringLiteral("汉城") << 9;
}

void TstDateTime::clockRestore()
{
    QFETCH(QVariantMap, stored);
    QFETCH(int, baseZone);
    QFETCH(int, hours);
    QFETCH(QString, name);
    QFETCH(int, checkedZone);

    UxMiniClockPannel clock;
    clock.setBaseZone(baseZone);
    clock.restore(stored);
    auto* timeLabel = clock.findChild<QLabel*>(QStringLiteral("timeLabel"));
    auto* dateLabel = clock.findChild<QLabel*>(QStringLiteral("dateLabel"));
    QVERIFY2(clockDrift(timeLabel->text(), hours) <= 2, qPrintable(timeLabel->text()));
    QVERIFY2(dateLabel->text().startsWith(name + QLatin1Char(' ')), qPrintable(dateLabel->text()));
    for (QAction* a : zoneActions(clock))
        QCOMPARE(a->isChecked(), a->data().toInt() == checkedZone);
}

void TstDateTime::clockMapWithoutBaseZone()
{
    UxMiniClockPannel clock;
    QList<int> keys;
    for (QAction* a : zoneActions(clock))
        keys << a->data().toInt();
    QCOMPARE(keys, (QList<int>{8, -8, -5, 9})); // base zone first, then ascending

    clock.setTimeZoneMap({{1, QStringLiteral("Z1")}, {-3, QStringLiteral("Z-3")}});
    const QList<QAction*> actions = zoneActions(clock);
    keys.clear();
    for (QAction* a : actions)
        keys << a->data().toInt();
    QCOMPARE(keys, (QList<int>{8, -3, 1}));
    QVERIFY2(actions.first()->text().startsWith(QStringLiteral("Beijing ")), qPrintable(actions.first()->text()));
    QVERIFY(actions.first()->isChecked());
    QVERIFY(actions.first()->isCheckable());
    // "Z-3 <now - 11 h>"
    const QString expected = QStringLiteral("Z-3 ")
        + QDateTime::currentDateTime().addSecs(-11 * 3600).toString(QStringLiteral("yyyy-MM-dd hh"));
    QVERIFY2(actions.at(1)->text().startsWith(expected), qPrintable(actions.at(1)->text()));
    QCOMPARE(clock.findChildren<QMenu*>(QStringLiteral("zoneMenu")).size(), 1);

    // A zone missing from the map shows an empty name.
    clock.restore({{QStringLiteral("zone"), 9}});
    QVERIFY(clock.findChild<QLabel*>(QStringLiteral("dateLabel"))->text().startsWith(QLatin1Char(' ')));
}

void TstDateTime::clockParentDecidesChrome()
{
    UxMiniClockPannel top;
    QVERIFY(!top.findChild<QPushButton*>(QStringLiteral("closeBushButton"))->isHidden());
    QVERIFY(!top.findChild<UxFramelessHelper*>());
    QVERIFY(top.windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(top.objectName(), QStringLiteral("UxMiniClockPannel"));
    top.show();
    QVERIFY(QTest::qWaitForWindowExposed(&top));
    QTest::mouseClick(top.findChild<QPushButton*>(QStringLiteral("closeBushButton")), Qt::LeftButton);
    QVERIFY(!top.isVisible());

    QWidget host;
    auto* tile = new UxMiniClockPannel(&host);
    QVERIFY(tile->findChild<QPushButton*>(QStringLiteral("closeBushButton"))->isHidden());
    auto* helper = tile->findChild<UxFramelessHelper*>();
    QVERIFY(helper);
    QVERIFY(helper->isMovable());
    QVERIFY(!helper->isResizable());
    QVERIFY(!tile->isWindow());
}

UX_TEST_MAIN(TstDateTime)
#include "tst_datetime.moc"
