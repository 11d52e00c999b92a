#include "uxdatetimeedit.h"

#include "uxcalendartimewidget.h"
#include "uxcore.h"

#include <QDebug>

UxDateTimeEdit::UxDateTimeEdit(QWidget* parent)
    : QDateTimeEdit(parent)
{
    m_calendar = new UxCalendarTimeWidget(this, true, false);
    setCalendarPopup(true);
    setCalendarWidget(m_calendar);
    m_calendar->setObjectName(QStringLiteral("CalendarPopWidget"));
    UxCore::instance()->addStyle2View(this, QStringLiteral("controls/uicomponents.css"));
    connect(m_calendar, &UxCalendarTimeWidget::signalSetCalendarTime, this, &UxDateTimeEdit::onCalendarTime);
    connect(this, &QDateTimeEdit::dateChanged, this, &UxDateTimeEdit::onDateChanged);
    m_lastDate = date();
}

UxDateTimeEdit::~UxDateTimeEdit() = default;

void UxDateTimeEdit::onCalendarTime(const QDateTime& dt)
{
    emit signalDateChanged(date(), dt.date());
    setDateTime(dt);
}

void UxDateTimeEdit::onDateChanged(const QDate& newDate)
{
    if (newDate == m_lastDate)
        return;
    qDebug() << "date changed,old date:" << m_lastDate << " new date:" << newDate;
    emit signalDateChanged(m_lastDate, newDate);
    m_lastDate = newDate;
    if (m_calendar)
        m_calendar->setCurrentPage(newDate.year(), newDate.month());
}
