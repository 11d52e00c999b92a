#ifndef UXDATETIMEEDIT_H
#define UXDATETIMEEDIT_H

#include "uicomponents_export.h"
#include "iuxskin.h"

#include <QDate>
#include <QDateTimeEdit>

class UxCalendarTimeWidget;

/// A date-time edit whose drop-down is the library's date-only calendar. Every
/// change of date is reported as an (old, new) pair; a pick in the calendar
/// reports twice, once for the pick and once for the edit's own date change.
/// The display format is QDateTimeEdit's own until the client sets one.
class UICOMPONENTS_EXPORT UxDateTimeEdit : public QDateTimeEdit, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    explicit UxDateTimeEdit(QWidget* parent = nullptr);
    ~UxDateTimeEdit() override;

Q_SIGNALS:
    void signalDateChanged(const QDate& oldDate, const QDate& newDate);

private:
    void onCalendarTime(const QDateTime& dt);
    void onDateChanged(const QDate& newDate);

    UxCalendarTimeWidget* m_calendar = nullptr;
    QDate m_lastDate;
};

#endif // UXDATETIMEEDIT_H
