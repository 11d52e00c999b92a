#ifndef DATETIMEPAGE_H
#define DATETIMEPAGE_H

#include <QWidget>

class QLabel;
class UxMiniClockPannel;

// Calendar edits (date only and with time), a date-time edit, and the mini
// clock whose zone is saved and restored across runs.
class DateTimePage : public QWidget
{
    Q_OBJECT
public:
    explicit DateTimePage(QWidget* parent = nullptr);
    ~DateTimePage() override;

private:
    QString clockStateFile() const;

    QLabel* m_log;
    UxMiniClockPannel* m_clock;
};

#endif // DATETIMEPAGE_H
