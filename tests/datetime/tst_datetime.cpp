// Date and time widgets seen from outside. "Today" is read from the clock the widgets read.

#include "uxtestenv.h"
#include "rows.h"

#include "uxcalendartimeedit.h"
#include "uxcalendartimewidget.h"
#include "uxdatetimeedit.h"
#include "uxminiclockpannel.h"
#include "uxtimeeditpopedit.h"
#include "uxtimepopwidget.h"

#include <climits>
#include <QtWidgets>

namespace {

const QString kDay = QStringLiteral("yyyy-MM-dd");

using Rows::cell;

QString nameOf(QObject* o) { return o->objectName().isEmpty() ? QString(o->metaObject()->className()) : o->objectName(); }

// name[text] WxH, with the text if any and only the fixed dimensions.
QString annotated(QWidget* w)
{
    const QString text = w->property("text").toString();
    const QString size = (w->minimumWidth() == w->maximumWidth() ? QString::number(w->minimumWidth()) : QString()) + "x"
        + (w->minimumHeight() == w->maximumHeight() ? QString::number(w->minimumHeight()) : QString());
    return nameOf(w) + (text.isEmpty() ? QString() : "[" + text + "]") + (size == "x" ? QString() : " " + size);
}

// "" is ROOT itself, "=Class" the first descendant of that class, "name#n" the n-th of that name.
QObject* part(QObject* root, const QString& path)
{
    for (QObject* o : root->findChildren<QObject*>())
        if (path.startsWith('=') && o->inherits(qPrintable(path.mid(1))))
            return o;
    return path.isEmpty() ? root : root->findChildren<QObject*>(path.section('#', 0, 0)).value(path.section('#', 1).toInt());
}

// One fact about O as text ("a|b" gives both): a layout as margins/spacing/constraint:items, the
// class's own methods or properties, whether a text-form connection "2sig>1slot" to ROOT exists...
QString probe(QObject* root, QObject* o, const QString& what)
{
    QStringList list;
    for (const QString& part : what.split('|', Qt::SkipEmptyParts))
        list << (what.contains('|') ? probe(root, o, part) : QString());
    if (what.contains('|'))
        return list.join('|');
    list.clear();
    auto* w = qobject_cast<QWidget*>(o);
    const QMetaObject* mo = o->metaObject();
    QLayout* l = w ? w->layout() : nullptr;
    for (int i = 0; what == "layout" && i < l->count(); ++i) {
        const QSize hint = l->itemAt(i)->sizeHint();
        list << (l->itemAt(i)->widget() ? annotated(l->itemAt(i)->widget()) : l->itemAt(i)->layout() ? nameOf(l->itemAt(i)->layout())
                 : hint.isEmpty() ? QStringLiteral("~") : QStringLiteral("~%1x%2").arg(hint.width()).arg(hint.height()));
    }
    if (what == "layout") {
        const QMargins m = l->contentsMargins();
        return QStringLiteral("%1,%2,%3,%4/%5/%6:").arg(m.left()).arg(m.top()).arg(m.right()).arg(m.bottom()).arg(l->spacing()).arg(l->sizeConstraint())
            + list.join(',');
    }
    if (what == "size")
        return annotated(w).section(' ', 1);
    if (what == "flags")
        return QString::number(int(w->windowFlags()), 16) + (w->testAttribute(Qt::WA_TranslucentBackground) ? " translucent" : "");
    if (what == "rows")
        return QStringLiteral("%1/%2").arg(static_cast<QTableView*>(o)->verticalHeader()->defaultSectionSize()).arg(static_cast<QTableView*>(o)->verticalHeader()->sectionResizeMode(0));
    if (what == "items") // first..last/count
        return static_cast<QComboBox*>(o)->itemText(0) + ".." + static_cast<QComboBox*>(o)->itemText(static_cast<QComboBox*>(o)->count() - 1);
    for (int i = mo->methodOffset(); what == "methods" && i < mo->methodCount(); ++i)
        list << QString::fromLatin1(mo->method(i).methodSignature());
    for (int i = mo->propertyOffset(); what == "properties" && i < mo->propertyCount(); ++i)
        list << QString::fromLatin1(mo->property(i).name());
    if (what == "methods" || what == "properties")
        return list.join(',');
    if (what.contains('>')) {
        const QByteArray sig = what.section('>', 0, 0).toLatin1(), slot = what.section('>', 1).toLatin1();
        const bool found = QObject::disconnect(o, sig.constData(), root, slot.constData());
        QObject::connect(o, sig.constData(), root, slot.constData());
        return found ? "yes" : "no";
    }
    if (auto* t = qobject_cast<QTimer*>(o))
        return QStringLiteral("%1 %2 %3 %4").arg(t->interval()).arg(t->timerType()).arg(t->isSingleShot()).arg(t->isActive());
    const QVariant v = o->property(what.toLatin1().constData());
    return v.userType() >= QMetaType::User || v.userType() == QMetaType::Int ? QString::number(v.toInt()) : v.toString();
}

QStringList enabledTexts(QWidget* pop)
{
    QStringList out;
    for (QPushButton* b : pop->findChildren<QPushButton*>())
        out << (b->isEnabled() ? b->text() : QString());
    return out.filter(QRegularExpression("."));
}

QPushButton* button(QWidget* parent, const QString& text) { return Rows::child(parent, text); }

// The parentless window of NAME that was not there BEFORE; CLICKED first, if given, to open it.
QWidget* newTopLevel(const QWidgetList& before, const QString& name, QWidget* clicked = nullptr)
{
    if (clicked)
        QTest::mouseClick(clicked, Qt::LeftButton);
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == name && !before.contains(w))
            return w;
    return nullptr;
}
QWidget* openGrid(QWidget* field) { return newTopLevel(QApplication::topLevelWidgets(), QStringLiteral("TimePopWidget"), field); }

} // namespace

class TstDateTime : public QObject
{
    Q_OBJECT
    QMap<QString, QObject*> m_roots;

private slots:
    void initTestCase()
    {
        // Keep clear of an hour change, so the day and hour read here hold for the whole run.
        const QTime now = QTime::currentTime();
        const int toHour = 3600000 - QTime(now.hour(), 0).msecsTo(now);
        QThread::msleep(toHour < 3000 ? toHour + 100 : 0);
        const QWidgetList before = QApplication::topLevelWidgets();
        m_roots["cal"] = new UxCalendarTimeWidget(nullptr, false, true);
        m_roots["edit"] = new UxCalendarTimeEdit;
        m_roots["dt"] = new UxDateTimeEdit;
        m_roots["pop0"] = new UxTimePopWidget(nullptr, 0);
        m_roots["pop1"] = new UxTimePopWidget(nullptr, 1);
        m_roots["clock"] = new UxMiniClockPannel;
        m_roots["frame"] = newTopLevel(before, QStringLiteral("calendarFramWidget")); // the edit's
    }
    void cleanupTestCase() { m_roots.remove("frame"), qDeleteAll(m_roots); }
    void cleanup() { UxCore::instance()->setCurrentSkin(QStringLiteral("light")); }

    // What clients and skins rely on: names, texts, layouts, signatures, defaults and the clock's tick.
    void contract_data()
    {
        const QDate today = QDate::currentDate();
        Rows::columns<QString>({"root", "paths", "what", "expected"});
        auto row = [](const char* root, const char* paths, const char* what, const QString& expected) {
            QTest::addRow("%s %s %s", root, paths, what) << root << paths << what << expected;
        };
        row("cal", "", "methods", "signalSetCalendarTime(QDateTime),signalClearDateTime(),onUpdateHMSmmTime(QDate),onHHTimeSelect(int),onMMTimeSelect(int),onSSTimeSelect(int)");
        row("cal", "", "properties|baseColor|lbColor|lineColor|bgColor|selectColor|weekendColor", "baseColor,lbColor,lineColor,bgColor,selectColor,weekendColor|#efefef|#000000|#4cc5ff|#ffffff|#0096ff|#ff4343");
        row("cal", "", "layout|navigationBarVisible|verticalHeaderFormat|horizontalHeaderFormat|minimumDate|maximumDate", "2,2,2,2/0/3:CalendarTopWidget x40,qt_calendar_navigationbar,qt_calendar_calendarview,CalendarTimeEidtWidget x44,CalendarBottomWidget x36|false|0|1|1900-01-01|" + today.addYears(5).toString(kDay));
        row("cal", "CalendarTopWidget", "layout", "5,0,5,0/2/0:CalendarLeftYearBtn,CalendarLeftMonthBtn,~,CalendarCbYear,CalendarDataLabel[年],CalendarCbMonth,CalendarDataLabel[月],~,CalendarRightMonthBtn,CalendarRightYearBtn");
        row("cal", "CalendarTimeEidtWidget", "layout", "12,0,12,0/0/0:CalendarTitleLabel[时间  ],hhTimeeditEdit 22x22,CalendarColon1Label[ ：],hhTimeeditEdit 22x22,CalendarColon2Label[ ：],mmTimeeditEdit 22x22,~");
        row("cal", "CalendarBottomWidget", "layout", "12,0,12,0/3/0:CalendarNowBtn[现在] 40x22,~,CalendarClearBtn[清空] 40x22,CalendarEnsureBtn[确定] 40x22");
        row("cal", "CalendarLeftYearBtn|CalendarNowBtn|hhTimeeditEdit", "focusPolicy|contextMenuPolicy", "11|1|11|1|11|0");
        row("cal", "hhTimeeditEdit#0|hhTimeeditEdit#1|mmTimeeditEdit", "2signalTimeSelect(int)>1onHHTimeSelect(int)|2signalTimeSelect(int)>1onMMTimeSelect(int)|2signalTimeSelect(int)>1onSSTimeSelect(int)", "yes|no|no|no|yes|no|no|no|yes");
        row("cal", "CalendarCbMonth|CalendarCbYear", "items|currentText", "1..12|" + QString::number(today.month()) + "|" + QString::number(today.year() + 4) + "..1900|" + QString::number(today.year())); // newest first, without the maximum's year
        row("edit", "", "methods|contextMenuPolicy|text", "dateChanged(QDateTime)|0|" + today.toString(kDay));
        row("edit", "=QAction", "checkable|checked", "true|false");
        row("frame", "", "flags|layout", "40813 translucent|8,8,8,8/0/0:UxCalendarTimeWidget");
        row("frame", "qt_calendar_calendarview", "rows", "27/2");
        row("frame", "=UxCalendarTimeWidget", "layout|minimumDate|maximumDate", "2,2,2,2/0/3:CalendarTopWidget x40,qt_calendar_navigationbar,qt_calendar_calendarview,CalendarBottomWidget x36|" + today.addYears(-2).toString(kDay) + "|" + today.addYears(2).toString(kDay));
        row("dt", "", "methods|calendarPopup|displayFormat", "signalDateChanged(QDate,QDate)|true|" + QDateTimeEdit().displayFormat());
        row("dt", "CalendarPopWidget", "layout", "2,2,2,2/0/3:CalendarTopWidget x40,qt_calendar_navigationbar,qt_calendar_calendarview");
        row("pop0", "", "methods|flags|size|layout", "signalTimeBtnClicked(QString),onBtnClicked()|40813 translucent|229x88|8,8,8,8/0/0:UxFlowLayout");
        row("pop0", "=QPushButton", "objectName|focusPolicy", "|11");
        row("pop1", "", "size", "229x148");
        row("clock", "", "methods|windowTitle|flags|layout", "slotUpdateDt(),on_closeBushButton_clicked(),updateMenusUiData()|Frame|801|0,0,0,0/0/0:topFrame x24,timeLabel[10:24:30],dateLabel x25");
        row("clock", "topFrame", "layout|frameShape|frameShadow", "4,0,0,0/10/0:iconLabel 16x16,label_2[小时钟],~244x19,settingPushButton 16x16,closeBushButton 16x16|6|32");
        row("clock", "timeLabel|dateLabel", "alignment|text", "132|10:24:30|132|"); // the form's text until the first tick
        row("clock", "=QTimer", "timer|2timeout()>1slotUpdateDt()", "900 0 0 1|yes");
    }
    void contract()
    {
        QStringList out;
        for (const QString& path : cell<QString>("paths").split('|'))
            out << probe(m_roots.value(cell<QString>("root")), part(m_roots.value(cell<QString>("root")), path), cell<QString>("what"));
        QTEST(out.join('|'), "expected");
    }

    void timePopRange_data()
    {
        const QDate day(2024, 1, 1);
        const QDateTime min(day, QTime(10, 30, 0)), max(day, QTime(12, 0, 0)), none;
        const QStringList all60 = enabledTexts(static_cast<QWidget*>(m_roots["pop1"]));
        Rows::columns<QVariant>({"kind", "min", "max", "current", "enabled"});
        auto row = [&](const char* tag, int kind, const QDateTime& lo, const QDateTime& hi, const QTime& t, const QStringList& enabled) {
            QTest::newRow(tag) << QVariant(kind) << QVariant(lo) << QVariant(hi) << QVariant(t.isValid() ? QDateTime(day, t) : none) << QVariant(enabled);
        };
        row("hours around 11:15:20", 0, min, max, QTime(11, 15, 20), {"11"});
        row("minutes at 10", 1, min, max, QTime(10, 15, 20), all60.mid(30));
        row("seconds at 10:30, bound included", 2, min, max, QTime(10, 30, 5), all60);
        row("seconds at 12:00", 2, min, max, QTime(12, 0, 20), {"00"});
        row("minimum after maximum", 0, max, min, QTime(11, 0, 0), {});
        row("no current value", 1, min, max, QTime(), {});
        row("no maximum", 2, min, none, QTime(11, 0, 0), {});
    }
    void timePopRange()
    {
        UxTimePopWidget pop(nullptr, cell<QVariant>("kind").toInt());
        pop.layout()->activate();
        const QList<QPushButton*> buttons = pop.findChildren<QPushButton*>();
        QCOMPARE(buttons.size(), cell<QVariant>("kind").toInt() ? 60 : 24);
        for (int i = 0; i < buttons.size(); ++i) // 229 - 2 x 8 - 2 x 6 leaves room for ten 20 px buttons a row
            QCOMPARE(buttons[i]->geometry(), QRect(14 + 20 * (i % 10), 14 + 20 * (i / 10), 20, 20));
        pop.setDateTime(cell<QVariant>("min").toDateTime(), cell<QVariant>("max").toDateTime(), cell<QVariant>("current").toDateTime());
        QCOMPARE(enabledTexts(&pop), cell<QVariant>("enabled").toStringList());
    }

    // Paging stops forward at today (the page's 15th plus a month), backward at the minimum's year.
    // Confirm reports the selected day with the row's time; now and clear select today first.
    void calendarClicks_data()
    {
        const QDate today = QDate::currentDate(), page(today.year(), today.month(), 1), none;
        const QString day = today.toString(kDay), picked = today.addDays(-3).toString(kDay);
        Rows::columns<QDate>({"page", "shown"}); // the page set and the one shown after the click, if given
        Rows::columns<QString>({"button", "fields", "seen"}); // fields: the time row, none for a date-only calendar
        QTest::newRow("next month, this month") << page << page << "CalendarRightMonthBtn" << "" << "";
        QTest::newRow("next year, this year") << page << page << "CalendarRightYearBtn" << "" << "";
        QTest::newRow("next month, last month") << page.addMonths(-1) << page.addMonths(today.day() >= 15 ? 0 : -1) << "CalendarRightMonthBtn" << "" << "";
        QTest::newRow("next month, two months back") << page.addMonths(-2) << page.addMonths(-1) << "CalendarRightMonthBtn" << "" << "";
        QTest::newRow("next year, last year") << QDate(today.year() - 1, 6, 1) << QDate(today.year(), 6, 1) << "CalendarRightYearBtn" << "" << "";
        QTest::newRow("previous month, January 1900") << QDate(1900, 1, 1) << QDate(1900, 1, 1) << "CalendarLeftMonthBtn" << "" << "";
        QTest::newRow("previous year, 1900") << QDate(1900, 7, 1) << QDate(1900, 7, 1) << "CalendarLeftYearBtn" << "" << "";
        QTest::newRow("previous month, February 1900") << QDate(1900, 2, 1) << QDate(1900, 1, 1) << "CalendarLeftMonthBtn" << "" << "";
        QTest::newRow("previous year, 1901") << QDate(1901, 5, 1) << QDate(1900, 5, 1) << "CalendarLeftYearBtn" << "" << "";
        QTest::newRow("month box to January") << QDate(1950, 6, 1) << QDate(1950, 1, 1) << "CalendarCbMonth=1" << "" << "";
        QTest::newRow("month box to December") << QDate(1950, 6, 1) << QDate(1950, 12, 1) << "CalendarCbMonth=12" << "" << "";
        QTest::newRow("year box to 1900") << QDate(1950, 6, 1) << QDate(1900, 6, 1) << "CalendarCbYear=1900" << "" << "";
        QTest::newRow("confirm") << none << none << "确定" << "090807" << picked + " " + picked + "T09:08:07.000";
        QTest::newRow("confirm, hour not a number") << none << none << "确定" << "ab0807" << picked + " " + picked + "T00:08:07.000";
        QTest::newRow("confirm, date only") << none << none << "确定" << "" << picked + " " + picked + "T00:00:00.000";
        QTest::newRow("clear") << none << none << "清空" << "000000" << day + " cleared";
        QTest::newRow("now") << none << none << "现在" << "" << day + " now";
    }
    void calendarClicks()
    {
        UxCalendarTimeWidget cal(nullptr, cell<QString>("fields").isEmpty(), true);
        const QList<UxTimeEditPopEdit*> edits = cal.findChildren<UxTimeEditPopEdit*>();
        for (int i = 0; i < edits.size(); ++i)
            edits[i]->setText(cell<QString>("fields").mid(2 * i, 2));
        cal.setSelectedDate(QDate::currentDate().addDays(-3));
        if (cell<QDate>("page").isValid()) // the boxes follow the page
            cal.setCurrentPage(cell<QDate>("page").year(), cell<QDate>("page").month());
        QString seen;
        connect(&cal, &UxCalendarTimeWidget::signalSetCalendarTime, &cal, [&](const QDateTime& dt) { // "now" within a second
            seen += cal.selectedDate().toString(kDay) + " " + (qAbs(dt.msecsTo(QDateTime::currentDateTime())) < 1000 ? "now" : dt.toString(Qt::ISODateWithMs));
        });
        connect(&cal, &UxCalendarTimeWidget::signalClearDateTime, &cal, [&] { seen += cal.selectedDate().toString(kDay) + " cleared"; });
        const QStringList target = cell<QString>("button").split('='); // a button, or a box and its new text
        target.size() > 1 ? Rows::child<QComboBox>(&cal, target[0])->setCurrentText(target[1]) : button(&cal, target[0])->click();
        QTEST(seen, "seen");
        if (cell<QDate>("shown").isValid())
            QCOMPARE(QDate(cal.yearShown(), cal.monthShown(), 1), cell<QDate>("shown"));
        cal.setLbColor(Qt::red); // the header takes its colours at construction and on a skin change only
        cal.setStyleSheet(QStringLiteral("QWidget { }"));
        QCOMPARE(cal.headerTextFormat().foreground().color(), QColor(Qt::black));
        UxCore::instance()->setCurrentSkin(QStringLiteral("dark"));
        QCOMPARE(cal.headerTextFormat().foreground().color(), QColor(Qt::red));
    }

    // Day cells by skin: fill and number colours; only today fills the whole cell.
    void calendarCells_data()
    {
        Rows::columns<QString>({"which", "fill", "text"});
        QTest::newRow("light out of range") << "outside" << "#efefef" << "#000000";
        QTest::newRow("dark weekend") << "weekend" << "#1f294d" << "#ff4343";
        QTest::newRow("black selected") << "selected" << "#8fa4c9" << "#ffffff";
        QTest::newRow("black out of range") << "outside" << "#7d8695" << "#d9dfea";
        QTest::newRow("black minimum, a Monday") << "minimum" << "#485366" << "#d9dfea";
        QTest::newRow("black today") << "today" << "#00ffff" << "#a52a2a";
    }
    void calendarCells()
    {
        struct Cells : UxCalendarTimeWidget { Cells() : UxCalendarTimeWidget(nullptr, true, false) {} using UxCalendarTimeWidget::paintCell; } cal;
        const QString which = cell<QString>("which");
        const QDate today = QDate::currentDate();
        UxCore::instance()->setCurrentSkin(QString::fromLatin1(QTest::currentDataTag()).section(' ', 0, 0));
        cal.setSelectedDate(today.addDays(-14));
        QDate date = which == "selected" ? cal.selectedDate() : which == "outside" ? QDate(1899, 12, 20) : which == "minimum" ? cal.minimumDate() : which == "today" ? today : today.addDays(-7);
        // Weekday and weekend cells come from the shown month, whatever today is.
        if (which.startsWith("week"))
            for (date = cal.selectedDate().addDays(1 - cal.selectedDate().day());
                 date == cal.selectedDate() || (date.dayOfWeek() >= 6) != (which == "weekend");)
                date = date.addDays(1);
        QImage img(40, 30, QImage::Format_RGB32);
        img.fill(Qt::magenta);
        QPainter p(&img);
        cal.paintCell(&p, img.rect(), date);
        auto at = [&](int x, int y) { return QColor(img.pixel(x, y)).name(); };
        QCOMPARE(at(1, 10) + at(20, 2) + at(38, 15) + at(20, 27), cell<QString>("fill").repeated(4)); // the cell less 1 and 2 px a side
        QCOMPARE(at(0, 10) + at(20, 1) + at(39, 15) + at(20, 28), (which == "today" ? cell<QString>("fill") : "#ff00ff").repeated(4));
        // The day number is drawn in the text colour: some pixel comes close to
        // it (antialiasing leaves thin digits without a pixel of the exact colour).
        const QColor text(cell<QString>("text"));
        int nearest = INT_MAX;
        for (int i = 0; i < img.width() * img.height(); ++i) {
            const QColor c(img.pixel(i % img.width(), i / img.width()));
            nearest = qMin(nearest, qAbs(c.red() - text.red()) + qAbs(c.green() - text.green()) + qAbs(c.blue() - text.blue()));
        }
        QVERIFY2(nearest < 48, qPrintable(QString::number(nearest)));
    }

    // A bound moves the time row to it when now lies outside. A field's grid opens above it and
    // offers what keeps the selected day's time inside the bounds; a pick narrows the other grids.
    void calendarTimeRow_data()
    {
        const QDate today = QDate::currentDate();
        Rows::columns<QDateTime>({"bound"});
        QTest::newRow("minimum ahead") << QDateTime(today.addDays(2), QTime(13, 14, 15));
        QTest::newRow("maximum behind") << QDateTime(today.addDays(-2), QTime(1, 2, 3));
    }
    void calendarTimeRow()
    {
        const QDateTime bound = cell<QDateTime>("bound");
        UxCalendarTimeWidget cal(nullptr, false, true);
        const QList<UxTimeEditPopEdit*> edits = cal.findChildren<UxTimeEditPopEdit*>();
        bound.date() > QDate::currentDate() ? cal.setCalendarMinDate(bound) : cal.setCalendarMaxDate(bound);
        QCOMPARE(edits[0]->text() + edits[1]->text() + edits[2]->text(), bound.toString("hhmmss"));
        cal.setCalendarMinDate(QDateTime(bound.date(), QTime(10, 30, 0)));
        cal.setCalendarMaxDate(QDateTime(bound.date(), QTime(12, 0, 0)));
        cal.setSelectedDate(bound.date());
        edits[1]->setText(QStringLiteral("45"));
        emit cal.clicked(QDate(1990, 1, 1)); // the selected day counts, not the clicked one
        cal.show();
        QPointer<QWidget> hours = openGrid(edits[0]);
        QCOMPARE(hours->pos(), edits[0]->mapToGlobal(QPoint(-28, -hours->height()))); // 28 px to the left
        QCOMPARE(enabledTexts(hours), (QStringList{"10", "11"}));
        QTest::mouseClick(button(hours, QStringLiteral("10")), Qt::LeftButton);
        QTest::mouseClick(edits[1], Qt::RightButton); // opens nothing
        QCOMPARE(edits[0]->text() + QString::number(hours->isVisible()) + enabledTexts(openGrid(edits[1])).join(""),
                 "100" + enabledTexts(static_cast<QWidget*>(m_roots["pop1"])).mid(30).join(""));
        delete edits[0]; // the grid goes with its field
        QVERIFY(!hours);
    }

    // The frame opens below the edit, or above it near the screen's bottom. A pick shows the day,
    // clear leaves the 0xFFFFFFFF marker, and only a later minimum moves the value.
    void calendarEdit()
    {
        const QRect avail = QGuiApplication::primaryScreen()->availableGeometry();
        QWidget window(nullptr, Qt::FramelessWindowHint);
        window.setGeometry(avail.x() + 50, avail.y() + 20, 200, 40);
        const QWidgetList before = QApplication::topLevelWidgets();
        auto* edit = new UxCalendarTimeEdit(&window);
        edit->setGeometry(10, 5, 150, 24);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QWidget* frame = newTopLevel(before, QStringLiteral("calendarFramWidget"), edit);
        auto* cal = frame->findChild<UxCalendarTimeWidget*>();
        QCOMPARE(frame->pos(), edit->mapToGlobal(QPoint(-8, edit->height())));
        for (int past : {0, 1, avail.height()}) { // the calendar ending on, one pixel past the available height, off every screen
            window.move(window.x(), window.y() + avail.height() + past - cal->height() - edit->mapToGlobal(QPoint(0, edit->height())).y());
            QTest::mouseClick(edit, Qt::LeftButton);
            QCOMPARE(frame->pos(), edit->mapToGlobal(QPoint(-8, past ? -cal->height() : edit->height())));
        }
        const qint64 icon = edit->findChild<QAction*>()->icon().cacheKey();
        UxCore::instance()->setCurrentSkin(QStringLiteral("dark")); // the icon stays the one of construction
        QCOMPARE(edit->findChild<QAction*>()->icon().cacheKey(), icon);
        QSignalSpy spy(edit, &UxCalendarTimeEdit::dateChanged);
        const QDateTime picked(QDate::currentDate().addDays(-5), QTime(0, 0)), raised(QDate::currentDate().addDays(3), QTime(8, 30));
        cal->setSelectedDate(picked.date());
        button(cal, QStringLiteral("确定"))->click();
        QCOMPARE(edit->text() + QString::number(frame->isVisible()) + spy.value(0).value(0).toDateTime().toString(), picked.toString(kDay) + "0" + picked.toString());
        QCOMPARE(edit->date(), picked);
        frame->show();
        button(cal, QStringLiteral("清空"))->click();
        edit->setCalendarMinDate(QDateTime::currentDateTime().addYears(-3)); // not later: the value stays
        QCOMPARE(edit->text() + QString::number(frame->isVisible() + spy.count()) + " " + QString::number(edit->date().toSecsSinceEpoch(), 16), "1 ffffffff");
        edit->setCalendarMinDate(raised);
        edit->setCalendarMinDate(raised.addDays(-1));
        QCOMPARE(edit->text() + " " + cal->minimumDate().toString(kDay), raised.toString(kDay) + " " + raised.addDays(-1).toString(kDay));
        QCOMPARE(edit->date(), raised);
        cal->setSelectedDate(raised.date().addDays(1));
        button(cal, QStringLiteral("确定"))->click();
        edit->setCalendarMinDate(raised); // no later than the stored minimum: the pick stays
        QCOMPARE(edit->date(), QDateTime(raised.date().addDays(1), QTime(0, 0)));
    }

    // A pick reports twice, the edit's own change once and only when the day changes.
    void dateTimeEditSignals()
    {
        const QDate a(2020, 5, 5), b(2021, 7, 8), c(2023, 3, 4);
        UxDateTimeEdit edit;
        edit.setDate(a);
        auto* cal = static_cast<UxCalendarTimeWidget*>(edit.calendarWidget());
        QSignalSpy spy(&edit, &UxDateTimeEdit::signalDateChanged);
        emit cal->signalSetCalendarTime(QDateTime(b, QTime(0, 0)));
        emit cal->signalSetCalendarTime(QDateTime(b, QTime(0, 0)));
        edit.setDate(b);
        edit.setDate(c);
        QCOMPARE(spy, (QList<QVariantList>{{a, b}, {a, b}, {b, b}, {b, c}})); // old and new day
        QCOMPARE(QDate(cal->yearShown(), cal->monthShown(), 1), QDate(2023, 3, 1));
    }

    // A zone chosen from the menu or restored: the shifted time, the date line from the moment of
    // the choice, the checked action and the saved zone.
    void clockZone_data()
    {
        Rows::columns<QVariant>({"menu", "stored", "hours", "name", "checked"}); // with the base zone 8
        auto row = [](const char* tag, bool menu, const QVariant& zone, int hours, const QString& name, const QString& checked) {
            QTest::newRow(tag) << QVariant(menu) << QVariant(zone.isValid() ? QVariantMap{{"zone", zone}} : QVariantMap()) << QVariant(hours) << QVariant(name)
                               << QVariant(checked);
        };
        row("choose 旧金山", true, -8, -16, "旧金山", "-8");
        row("choose 汉城", true, 9, 1, "汉城", "9");
        row("choose the checked 北京 again", true, 8, 0, "北京", "");
        row("restore 美东", false, -5, -13, "美东", "-5");
        row("nothing stored", false, QVariant(), 0, "北京", "8");
        row("edge of range", false, 12, 4, "", "");
        row("out of range, largest int: base zone as offset", false, INT_MAX, 8, "", "");
        row("not a number reads 0", false, "abc", -8, "", "");
    }
    void clockZone()
    {
        const QVariantMap stored = cell<QVariant>("stored").toMap();
        UxMiniClockPannel clock;
        clock.setBaseZone(8);
        const QList<QAction*> actions = clock.findChild<QPushButton*>(QStringLiteral("settingPushButton"))->menu()->actions();
        for (QAction* a : actions)
            if (cell<QVariant>("menu").toBool() && a->data() == stored.value("zone"))
                a->trigger();
        cell<QVariant>("menu").toBool() ? void() : clock.restore(stored);
        const QDateTime shifted = QDateTime::currentDateTime().addSecs(cell<QVariant>("hours").toInt() * 3600);
        const int drift = qAbs(QTime::fromString(clock.findChild<QLabel*>("timeLabel")->text(), "hh:mm:ss").secsTo(shifted.time()));
        QVERIFY2(qMin(drift, 86400 - drift) <= 1, qPrintable(clock.findChild<QLabel*>("timeLabel")->text()));
        QCOMPARE(clock.findChild<QLabel*>("dateLabel")->text(), cell<QVariant>("name").toString() + " " + shifted.toString("yyyy/MM/dd"));
        QStringList checked;
        for (QAction* a : actions)
            checked << (a->isChecked() ? a->data().toString() : QString());
        QCOMPARE(checked.filter(QRegularExpression(".")).join(','), cell<QVariant>("checked").toString());
        QMap<QString, QVariant> saved;
        clock.save(saved);
        QCOMPARE(saved, (QMap<QString, QVariant>{{"zone", stored.value("zone", 8).toInt()}}));
    }

    // Menu texts: the base zone first, then ascending keys, each with its zone's time, recomputed on showing.
    void clockZoneMenu()
    {
        UxMiniClockPannel clock;
        clock.setTimeZoneMap({{1, "Z1"}, {-3, "Z-3"}}); // the base zone 8 is missing: it comes back as "Beijing"
        QMenu* menu = clock.findChild<QPushButton*>(QStringLiteral("settingPushButton"))->menu();
        for (int base : {8, 9}) {
            clock.setBaseZone(base);
            emit menu->aboutToShow();
            QStringList texts;
            for (QAction* a : menu->actions()) // zone, name, hours from now
                texts << QStringLiteral("%1 %2 %3").arg(a->data().toInt()).arg(a->text().section(' ', 0, 0)).arg(QDateTime::currentDateTime().secsTo(QDateTime::fromString(a->text().section(' ', 1), "yyyy-MM-dd hh:mm:ss")) / 3600.0);
            QCOMPARE(texts, QStringList({"8 Beijing " + QString::number(8 - base), "-3 Z-3 " + QString::number(-3 - base), "1 Z1 " + QString::number(1 - base)}));
        }
        QVERIFY(menu->actions().first()->isChecked());
    }

};

UX_TEST_MAIN(TstDateTime)
#include "tst_datetime.moc"
