#ifndef UXCALENDARTIMEEDIT_H
#define UXCALENDARTIMEEDIT_H

#include "uicomponents_export.h"
#include "iuxskin.h"

#include <QDateTime>
#include <QLineEdit>

class BackPaintWidget;
class QAction;
class UxCalendarTimeWidget;

/// A line edit with a calendar icon that shows the chosen date ("yyyy-MM-dd")
/// or date and time ("yyyy-MM-dd hh:mm:ss") and drops a calendar frame under
/// itself (above itself when the screen's bottom is near). "清空" leaves an
/// empty text and the cleared marker value (seconds since the epoch
/// 0xFFFFFFFF), not a null date-time.
///
/// The minimum can only be raised through setCalendarMinDate, and raising it
/// moves the value to the new minimum. Text typed by hand is not parsed back.
/// The icon is taken from the skin in force at construction.
class UICOMPONENTS_EXPORT UxCalendarTimeEdit : public QLineEdit, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    explicit UxCalendarTimeEdit(QWidget* parent = nullptr);
    ~UxCalendarTimeEdit() override;

    void initControlcalendar(bool isDateYes);
    QDateTime date();
    void setCalendarMinDate(const QDateTime& dt);
    void setCalendarMaxDate(const QDateTime& dt);

Q_SIGNALS:
    void dateChanged(const QDateTime& date);

private:
    void mousePressEvent(QMouseEvent* event) override;
    void popCalendarTimeWidget();
    QString formatted(const QDateTime& dt) const;
    void onCalendarTime(const QDateTime& dt);
    void onCalendarCleared();

    UxCalendarTimeWidget* m_calendar = nullptr;
    BackPaintWidget* m_frame = nullptr;
    QDateTime m_minDateTime;
    QDateTime m_maxDateTime;
    QDateTime m_value;
    QAction* m_iconAction = nullptr;
};

#endif // UXCALENDARTIMEEDIT_H
