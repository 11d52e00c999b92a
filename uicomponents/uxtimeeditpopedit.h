#ifndef UXTIMEEDITPOPEDIT_H
#define UXTIMEEDITPOPEDIT_H

#include "uicomponents_export.h"

#include <QDateTime>
#include <QLineEdit>
#include <QPointer>

class UxTimePopWidget;

/// One time field of the calendar's time row (kind 0 hours, 1 minutes,
/// 2 seconds). A left click opens a button grid above the field; a pick writes
/// the two digits into the field and reports them as an integer.
class UICOMPONENTS_EXPORT UxTimeEditPopEdit : public QLineEdit
{
    Q_OBJECT
public:
    UxTimeEditPopEdit(QWidget* parent, int kind);
    ~UxTimeEditPopEdit() override;

    void setCalendarPopWidget(QWidget* owner);
    void setDateTime(const QDateTime& min, const QDateTime& max, const QDateTime& current);

Q_SIGNALS:
    void signalTimeSelect(int value);

private Q_SLOTS:
    void onSignalTimeBtnClicked(const QString& text);

private:
    void mousePressEvent(QMouseEvent* event) override;
    void popTimeWidget();
    void initControl();
    void hideTimeWidget();

    QPointer<QWidget> m_owner;
    UxTimePopWidget* m_popWidget = nullptr;
    int m_kind;
    QDateTime m_min;
    QDateTime m_max;
    QDateTime m_current;
};

#endif // UXTIMEEDITPOPEDIT_H
