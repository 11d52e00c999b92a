#ifndef UXCALENDARTIMEWIDGET_H
#define UXCALENDARTIMEWIDGET_H

#include "uicomponents_export.h"
#include "uxqtcompat.h"

#include <QCalendarWidget>
#include <QColor>
#include <QDateTime>
#include <QPointer>

class QComboBox;
class QLabel;
class QPushButton;
class UxTimeEditPopEdit;

/// The month calendar of the date edits: its own top bar (year and month
/// buttons and combo boxes), an optional time row (hour, minute and second
/// fields with pop-up grids) and an optional bottom bar ("现在", "清空",
/// "确定"). Day cells are painted here, in colours that follow the host's skin.
/// The chosen value leaves only through signalSetCalendarTime and
/// signalClearDateTime.
///
/// Navigation forward stops at today; backward at the minimum date's year. The
/// year list leaves out the maximum year when the range spans several years.
///
/// The time row stays empty until a bound is set, a day is clicked or a value
/// is picked. The header formats take the colours in force at construction and
/// at each skin change.
///
/// Bad input: a combo text that is not a number reads as 0, and the forward
/// buttons also need that year and month to make a valid date, so such a text
/// never turns the page by button. An invalid bound passed to
/// setCalendarMinDate/setCalendarMaxDate is logged and ignored.
///
/// The texts follow the installed translation, live; the calendar's locale is
/// the translation of the text "zh_CN" in this class's context (the English
/// translation gives "en_US"); with no translation it is the Chinese locale.
class UICOMPONENTS_EXPORT UxCalendarTimeWidget : public QCalendarWidget
{
    Q_OBJECT
    // Style properties: the sheet sets them once (qproperty-...) and nothing
    // watches them, so they carry no NOTIFY signal.
    Q_PROPERTY(QColor baseColor READ baseColor WRITE setBaseColor) // clazy:exclude=qproperty-without-notify
    Q_PROPERTY(QColor lbColor READ lbColor WRITE setLbColor) // clazy:exclude=qproperty-without-notify
    Q_PROPERTY(QColor lineColor READ lineColor WRITE setLineColor) // clazy:exclude=qproperty-without-notify
    Q_PROPERTY(QColor bgColor READ bgColor WRITE setBgColor) // clazy:exclude=qproperty-without-notify
    Q_PROPERTY(QColor selectColor READ selectColor WRITE setSelectColor) // clazy:exclude=qproperty-without-notify
    Q_PROPERTY(QColor weekendColor READ weekendColor WRITE setWeekendColor) // clazy:exclude=qproperty-without-notify
public:
    /// The defaults (date and time, with the bottom bar) let a form, or
    /// Designer, make it from a parent alone.
    explicit UxCalendarTimeWidget(QWidget* parent, bool isDateYes = false, bool showBottom = true);
    /// Bare calendar: no controls, no date range; both flags set.
    UxCalendarTimeWidget();
    ~UxCalendarTimeWidget() override;

    bool isDateYes();
    void setCalendarMinDate(const QDateTime& dt);
    void setCalendarMaxDate(const QDateTime& dt);
    void updateTimeEditTimer();

    QColor baseColor() const;
    void setBaseColor(const QColor& color);
    QColor lbColor() const;
    void setLbColor(const QColor& color);
    QColor lineColor() const;
    void setLineColor(const QColor& color);
    QColor bgColor() const;
    void setBgColor(const QColor& color);
    QColor selectColor() const;
    void setSelectColor(const QColor& color);
    QColor weekendColor() const;
    void setWeekendColor(const QColor& color);

Q_SIGNALS:
    void signalSetCalendarTime(const QDateTime& data);
    void signalClearDateTime();

protected:
    void changeEvent(QEvent* event) override;
    void paintCell(QPainter* painter, const QRect& rect, UxCellDate date) const override;
    void paintEvent(QPaintEvent* event) override;

private Q_SLOTS:
    void onUpdateHMSmmTime(const QDate& date);
    void onHHTimeSelect(int hour);
    void onMMTimeSelect(int minute);
    void onSSTimeSelect(int second);

private:
    void initControl();
    void initTopWidget();
    void initTimeEditWidget();
    void initBottomWidget();
    void updateStyle();
    void updateYearsCombox();
    QStringList getYears();
    void setDataLabelTimeText(int year, int month);
    void retranslate();

    void onPrevYear();
    void onPrevMonth();
    void onNextYear();
    void onNextMonth();
    void onYearTextChanged(const QString& text);
    void onMonthTextChanged(const QString& text);
    void onNowClicked();
    void onClearClicked();
    void onEnsureClicked();
    void composeTime(int hour, int minute, int second);
    int comboYear() const;
    int comboMonth() const;

    QColor m_weekendColor;
    QColor m_baseColor;
    QColor m_lbColor;
    QColor m_lineColor;
    QColor m_bgColor;
    QColor m_selectColor;
    QPushButton* m_leftYearBtn = nullptr;
    QPushButton* m_leftMonthBtn = nullptr;
    QPushButton* m_rightYearBtn = nullptr;
    QPushButton* m_rightMonthBtn = nullptr;
    QLabel* m_yearLabel = nullptr;
    QLabel* m_monthLabel = nullptr;
    QComboBox* m_yearCombo = nullptr;
    QComboBox* m_monthCombo = nullptr;
    UxTimeEditPopEdit* m_hhEdit = nullptr;
    UxTimeEditPopEdit* m_mmEdit = nullptr;
    UxTimeEditPopEdit* m_ssEdit = nullptr;
    QPointer<QWidget> m_owner;
    QDateTime m_minDateTime;
    QDateTime m_maxDateTime;
    bool m_isDateYes = true;
    bool m_showBottom = true;
};

#endif // UXCALENDARTIMEWIDGET_H
