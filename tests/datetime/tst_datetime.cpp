// Date and time widgets seen from outside: time pop-ups, the calendar, the two
// edits and the mini clock. "Today" is read from the same clock the widgets read.

#include "uxtestenv.h"

#include "uxcalendartimeedit.h"
#include "uxcalendartimewidget.h"
#include "uxdatetimeedit.h"
#include "uxminiclockpannel.h"
#include "uxtimeeditpopedit.h"
#include "uxtimepopwidget.h"

#include <QAction>
#include <QDateTimeEdit>
#include <QHeaderView>
#include <QLayout>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QThread>

namespace {

const QString kDay = QStringLiteral("yyyy-MM-dd");

QString nameOf(QObject* o) { return o->objectName().isEmpty() ? QString(o->metaObject()->className()) : o->objectName(); }

// "" is ROOT itself, "=Class" the first descendant of that class, "name#n" the n-th of that name.
QObject* part(QObject* root, const QString& path)
{
    if (path.isEmpty())
        return root;
    for (QObject* o : root->findChildren<QObject*>())
        if (path.startsWith(QLatin1Char('=')) && o->inherits(qPrintable(path.mid(1))))
            return o;
    const QList<QObject*> named = root->findChildren<QObject*>(path.section(QLatin1Char('#'), 0, 0));
    return named.value(path.section(QLatin1Char('#'), 1).toInt());
}

// One fact about O as text; "a|b" gives both, "@skin:a" reads under that skin.
QString probe(QObject* root, QObject* o, const QString& what)
{
    if (what.startsWith(QLatin1Char('@'))) {
        UxCore::instance()->setCurrentSkin(what.mid(1).section(QLatin1Char(':'), 0, 0));
        const QString out = probe(root, o, what.section(QLatin1Char(':'), 1));
        UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
        return out;
    }
    if (what.contains(QLatin1Char('|'))) {
        QStringList out;
        for (const QString& w : what.split(QLatin1Char('|')))
            out << probe(root, o, w);
        return out.join(QLatin1Char('|'));
    }
    auto* w = qobject_cast<QWidget*>(o);
    const QMetaObject* mo = o->metaObject();
    QStringList list;
    if (what == QLatin1String("layout")) {
        QLayout* l = w->layout();
        for (int i = 0; i < l->count(); ++i) {
            QLayoutItem* it = l->itemAt(i);
            const QSize hint = it->sizeHint();
            list << (it->widget() ? nameOf(it->widget()) : it->layout() ? nameOf(it->layout())
                     : hint.isEmpty() ? QStringLiteral("~") : QStringLiteral("~%1x%2").arg(hint.width()).arg(hint.height()));
        }
        const QMargins m = l->contentsMargins();
        return QStringLiteral("%1,%2,%3,%4/%5/%6:").arg(m.left()).arg(m.top()).arg(m.right()).arg(m.bottom()).arg(l->spacing())
                   .arg(l->sizeConstraint()) + list.join(QLatin1Char(','));
    }
    if (what == QLatin1String("size"))
        return QStringLiteral("%1x%2-%3x%4").arg(w->minimumWidth()).arg(w->minimumHeight()).arg(w->maximumWidth()).arg(w->maximumHeight());
    if (what == QLatin1String("policy"))
        return QStringLiteral("%1,%2").arg(w->sizePolicy().horizontalPolicy()).arg(w->sizePolicy().verticalPolicy());
    if (what == QLatin1String("flags"))
        return QString::number(int(w->windowFlags()), 16);
    if (what == QLatin1String("translucent"))
        return QString::number(w->testAttribute(Qt::WA_TranslucentBackground));
    if (what == QLatin1String("language"))
        return QLocale::languageToString(w->locale().language());
    if (what == QLatin1String("rows")) {
        QHeaderView* h = static_cast<QTableView*>(o)->verticalHeader();
        return QStringLiteral("%1/%2").arg(h->defaultSectionSize()).arg(h->sectionResizeMode(0));
    }
    if (auto* t = qobject_cast<QTimer*>(o); t && what == QLatin1String("timer"))
        return QStringLiteral("%1 %2 %3 %4").arg(t->interval()).arg(t->timerType()).arg(t->isSingleShot()).arg(t->isActive());
    if (what == QLatin1String("actions")) {
        for (QAction* a : static_cast<QMenu*>(o)->actions())
            list << a->data().toString() + (a->isChecked() ? QStringLiteral("*") : QString());
        return list.join(QLatin1Char(','));
    }
    if (what == QLatin1String("methods")) {
        for (int i = mo->methodOffset(); i < mo->methodCount(); ++i)
            list << QString::fromLatin1(mo->method(i).methodSignature());
        return list.join(QLatin1Char(','));
    }
    if (what == QLatin1String("properties")) {
        for (int i = mo->propertyOffset(); i < mo->propertyCount(); ++i)
            list << QString::fromLatin1(mo->property(i).name());
        return list.join(QLatin1Char(','));
    }
    if (what.contains(QLatin1Char('>'))) { // a text-form connection from O to ROOT
        const QByteArray sig = what.section(QLatin1Char('>'), 0, 0).toLatin1(), slot = what.section(QLatin1Char('>'), 1).toLatin1();
        const bool found = QObject::disconnect(o, sig.constData(), root, slot.constData());
        QObject::connect(o, sig.constData(), root, slot.constData());
        return found ? QStringLiteral("yes") : QStringLiteral("no");
    }
    const QVariant v = o->property(what.toLatin1().constData());
    return v.userType() >= QMetaType::User || v.userType() == QMetaType::Int ? QString::number(v.toInt()) : v.toString();
}

QStringList enabledTexts(QWidget* pop)
{
    QStringList out;
    for (QPushButton* b : pop->findChildren<QPushButton*>())
        if (b->isEnabled())
            out << b->text();
    return out;
}

QPushButton* button(QWidget* parent, const QString& textOrName)
{
    for (QPushButton* b : parent->findChildren<QPushButton*>())
        if (b->text() == textOrName || b->objectName() == textOrName)
            return b;
    return nullptr;
}

// The parentless window of NAME that appeared since BEFORE was taken.
QWidget* newTopLevel(const QWidgetList& before, const QString& name)
{
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == name && !before.contains(w))
            return w;
    return nullptr;
}

// Seconds between a shown "hh:mm:ss" and the local time shifted by HOURS, folded into a day.
int clockDrift(const QString& shown, int hours)
{
    const QTime t = QTime::fromString(shown, QStringLiteral("hh:mm:ss"));
    const int d = t.isValid() ? qAbs(QDateTime::currentDateTime().addSecs(hours * 3600).time().secsTo(t)) : 99999;
    return qMin(d, 86400 - d);
}

QString labelText(QWidget* w, const char* name) { return w->findChild<QLabel*>(QLatin1String(name))->text(); }

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

} // namespace

class TstDateTime : public QObject
{
    Q_OBJECT
    QMap<QString, QObject*> m_roots;

private slots:
    void initTestCase()
    {
        // Keep clear of an hour change, so the day and hour read here hold for the whole run.
        const QTime t = QTime::currentTime();
        const int toHour = 3600000 - (t.minute() * 60000 + t.second() * 1000 + t.msec());
        if (toHour < 3000)
            QThread::msleep(toHour + 100);
        const QWidgetList before = QApplication::topLevelWidgets();
        m_roots["cal"] = new UxCalendarTimeWidget(nullptr, false, true);
        m_roots["edit"] = new UxCalendarTimeEdit;
        m_roots["frame"] = newTopLevel(before, QStringLiteral("calendarFramWidget"));
        m_roots["dt"] = new UxDateTimeEdit;
        m_roots["pop0"] = new UxTimePopWidget(nullptr, 0);
        m_roots["pop1"] = new UxTimePopWidget(nullptr, 1);
        m_roots["clock"] = new UxMiniClockPannel;
    }
    void cleanupTestCase()
    {
        m_roots.remove("frame"); // the edit's
        qDeleteAll(m_roots);
    }
    void cleanup() { UxCore::instance()->setCurrentSkin(QStringLiteral("light")); }

    // What clients and skins rely on: names, texts, layouts, signatures, defaults and the clock's tick.
    void contract_data()
    {
        const QDate today = QDate::currentDate();
        QTest::addColumn<QString>("root");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("expected");
        auto row = [](const char* root, const char* path, const char* what, const QString& expected) {
            QTest::addRow("%s %s %s", root, path, what) << root << path << what << expected;
        };
        row("cal", "", "methods", "signalSetCalendarTime(QDateTime),signalClearDateTime(),onUpdateHMSmmTime(QDate),onHHTimeSelect(int),onMMTimeSelect(int),onSSTimeSelect(int)");
        row("cal", "", "properties", "baseColor,lbColor,lineColor,bgColor,selectColor,weekendColor");
        row("cal", "", "layout|language|navigationBarVisible|verticalHeaderFormat|horizontalHeaderFormat|minimumDate|maximumDate",
            "2,2,2,2/0/3:CalendarTopWidget,qt_calendar_navigationbar,qt_calendar_calendarview,CalendarTimeEidtWidget,CalendarBottomWidget|Chinese|false|0|1|1900-01-01|"
                + today.addYears(5).toString(kDay));
        row("cal", "CalendarTopWidget", "layout|size|policy",
            "5,0,5,0/2/0:CalendarLeftYearBtn,CalendarLeftMonthBtn,~,CalendarCbYear,CalendarDataLabel,CalendarCbMonth,CalendarDataLabel,~,CalendarRightMonthBtn,CalendarRightYearBtn|0x40-16777215x40|5,0");
        row("cal", "CalendarDataLabel#0", "text", "年");
        row("cal", "CalendarDataLabel#1", "text", "月");
        row("cal", "CalendarLeftYearBtn", "text|focusPolicy", "|11");
        row("cal", "CalendarCbMonth", "count|currentText", "12|" + QString::number(today.month()));
        row("cal", "CalendarTimeEidtWidget", "layout|size|policy",
            "12,0,12,0/0/0:CalendarTitleLabel,hhTimeeditEdit,CalendarColon1Label,hhTimeeditEdit,CalendarColon2Label,mmTimeeditEdit,~|0x44-16777215x44|5,0");
        row("cal", "CalendarTitleLabel", "text", "时间  ");
        row("cal", "CalendarColon1Label", "text", " ：");
        row("cal", "CalendarColon2Label", "text", " ：");
        row("cal", "hhTimeeditEdit#0", "text|size|contextMenuPolicy|2signalTimeSelect(int)>1onHHTimeSelect(int)", "|22x22-22x22|0|yes");
        row("cal", "hhTimeeditEdit#1", "text|size|2signalTimeSelect(int)>1onMMTimeSelect(int)", "|22x22-22x22|yes");
        row("cal", "mmTimeeditEdit", "text|size|2signalTimeSelect(int)>1onSSTimeSelect(int)", "|22x22-22x22|yes");
        row("cal", "CalendarBottomWidget", "layout|size|policy", "12,0,12,0/3/0:CalendarNowBtn,~,CalendarClearBtn,CalendarEnsureBtn|0x36-16777215x36|5,0");
        row("cal", "CalendarNowBtn", "text|size|focusPolicy", "现在|40x22-40x22|11");
        row("cal", "CalendarClearBtn", "text|size", "清空|40x22-40x22");
        row("cal", "CalendarEnsureBtn", "text|size", "确定|40x22-40x22");
        const char* colours = "baseColor|lbColor|lineColor|bgColor|selectColor|weekendColor";
        row("cal", "", colours, "#efefef|#000000|#4cc5ff|#ffffff|#0096ff|#ff4343");
        row("cal", "", qPrintable(QStringLiteral("@dark:") + colours), "#efefef|#000000|#4cc5ff|#ffffff|#0096ff|#ff4343");
        row("cal", "", qPrintable(QStringLiteral("@black:") + colours), "#d2691e|#d9dfea|#a52a2a|#ffffff|#8fa4c9|#629af8");
        row("edit", "", "methods|contextMenuPolicy|text", "dateChanged(QDateTime)|0|" + today.toString(kDay));
        row("edit", "=QAction", "checkable|checked", "true|false");
        row("frame", "", "flags|translucent|layout", "40813|1|8,8,8,8/0/0:UxCalendarTimeWidget");
        row("frame", "qt_calendar_calendarview", "rows", "27/2");
        row("frame", "=UxCalendarTimeWidget", "layout|minimumDate|maximumDate",
            "2,2,2,2/0/3:CalendarTopWidget,qt_calendar_navigationbar,qt_calendar_calendarview,CalendarBottomWidget|"
                + today.addYears(-2).toString(kDay) + "|" + today.addYears(2).toString(kDay));
        row("dt", "", "methods|calendarPopup|displayFormat", "signalDateChanged(QDate,QDate)|true|" + QDateTimeEdit().displayFormat());
        row("dt", "CalendarPopWidget", "layout", "2,2,2,2/0/3:CalendarTopWidget,qt_calendar_navigationbar,qt_calendar_calendarview");
        row("pop0", "", "methods|flags|translucent|size|layout",
            "signalTimeBtnClicked(QString),onBtnClicked()|40813|1|229x88-229x88|8,8,8,8/0/0:UxFlowLayout");
        row("pop0", "=QPushButton", "objectName|focusPolicy", "|11");
        row("pop1", "", "size", "229x148-229x148");
        row("clock", "", "methods|windowTitle|flags|layout",
            "slotUpdateDt(),on_closeBushButton_clicked(),updateMenusUiData()|Frame|801|0,0,0,0/0/0:topFrame,timeLabel,dateLabel");
        row("clock", "topFrame", "layout|size|frameShape|frameShadow",
            "4,0,0,0/10/0:iconLabel,label_2,~244x19,settingPushButton,closeBushButton|0x24-16777215x24|6|32");
        row("clock", "iconLabel", "size|text", "16x16-16x16|");
        row("clock", "label_2", "text", "小时钟");
        row("clock", "settingPushButton", "size|text", "16x16-16x16|");
        row("clock", "closeBushButton", "size|text", "16x16-16x16|");
        row("clock", "timeLabel", "text|alignment", "10:24:30|132"); // until the first tick
        row("clock", "dateLabel", "text|size|alignment", "|0x25-16777215x25|132");
        row("clock", "=QTimer", "timer|2timeout()>1slotUpdateDt()", "900 0 0 1|yes");
        row("clock", "zoneMenu", "actions", "8*,-8,-5,9");
    }
    void contract()
    {
        QFETCH(QString, root);
        QFETCH(QString, path);
        QFETCH(QString, what);
        QObject* o = part(m_roots.value(root), path);
        QVERIFY2(o, qPrintable(path));
        QTEST(probe(m_roots.value(root), o, what), "expected");
    }
};

UX_TEST_MAIN(TstDateTime)
#include "tst_datetime.moc"
