#include "uxcalendartimewidget.h"

#include "qcustomstyle.h"
#include "uxcore.h"
#include "uxtimeeditpopedit.h"

#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QCoreApplication>
#include <QDebug>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <QTextCharFormat>

namespace {

// Shared by every calendar; built when the library is loaded.
const QStringList s_monthList = [] {
    QStringList months;
    for (int m = 1; m <= 12; ++m)
        months << QString::number(m);
    return months;
}();

bool isSkin(const char* id)
{
    return UxCore::instance()->getCurrentSkinId() == QLatin1String(id);
}

// The skin "black" has fixed colours; every other skin takes the property's.
QColor skinColor(const char* blackColor, const QColor& property)
{
    return isSkin("black") ? QColor(QLatin1String(blackColor)) : property;
}

QPushButton* navButton(const char* name, QWidget* parent)
{
    auto* btn = new QPushButton(parent);
    btn->setObjectName(QLatin1String(name));
    return btn;
}

QLabel* namedLabel(const QString& text, const char* name, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    return label;
}

// The locale's name is a text of its own, so a translation brings its locale
// along; untranslated it is the Chinese locale.
QLocale calendarLocale()
{
    const char* chinese = QT_TRANSLATE_NOOP("UxCalendarTimeWidget", "zh_CN");
    const QString name = QCoreApplication::translate("UxCalendarTimeWidget", chinese);
    return name == QLatin1String(chinese) ? QLocale(QLocale::Chinese, QLocale::AnyCountry) : QLocale(name);
}

} // namespace

UxCalendarTimeWidget::UxCalendarTimeWidget(QWidget* parent, bool isDateYes, bool showBottom)
    : QCalendarWidget(parent)
    , m_weekendColor(QStringLiteral("#ff4343"))
    , m_baseColor(QStringLiteral("#efefef"))
    , m_lbColor(QStringLiteral("black"))
    , m_lineColor(QStringLiteral("#4cc5ff"))
    , m_bgColor(QStringLiteral("white"))
    , m_selectColor(QStringLiteral("#0096ff"))
    , m_owner(parent)
    , m_minDateTime(QDateTime::currentDateTime().addYears(-1))
    , m_maxDateTime(QDateTime::currentDateTime().addYears(1))
    , m_isDateYes(isDateYes)
    , m_showBottom(showBottom)
{
    setDateRange(QDate(1900, 1, 1), QDate::currentDate().addYears(5));
    initControl();
    connect(UxCore::instance(), &UxCore::signalSkinChanged, this, [this] { updateStyle(); });
    updateStyle();
}

UxCalendarTimeWidget::UxCalendarTimeWidget()
    : QCalendarWidget(nullptr)
    , m_weekendColor(QStringLiteral("#ff4343"))
    , m_baseColor(QStringLiteral("#efefef"))
    , m_lbColor(QStringLiteral("black"))
    , m_lineColor(QStringLiteral("#4cc5ff"))
    , m_bgColor(QStringLiteral("white"))
    , m_selectColor(QStringLiteral("#0096ff"))
    , m_minDateTime(QDateTime::currentDateTime().addYears(-1))
    , m_maxDateTime(QDateTime::currentDateTime().addYears(1))
{
}

UxCalendarTimeWidget::~UxCalendarTimeWidget() = default;

bool UxCalendarTimeWidget::isDateYes()
{
    return m_isDateYes;
}

void UxCalendarTimeWidget::initControl()
{
    if (QLayout* l = layout()) {
        l->setSizeConstraint(QLayout::SetFixedSize);
        l->setContentsMargins(2, 2, 2, 2);
    }
    setLocale(calendarLocale());
    setNavigationBarVisible(false);
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    setStyle(new QCustomStyle(this));

    updateStyle();
    initTopWidget();
    if (!m_isDateYes)
        initTimeEditWidget();
    initBottomWidget();

    connect(this, &QCalendarWidget::currentPageChanged, this, &UxCalendarTimeWidget::setDataLabelTimeText);
    connect(this, &QCalendarWidget::clicked, this, &UxCalendarTimeWidget::onUpdateHMSmmTime);
}

void UxCalendarTimeWidget::initTopWidget()
{
    auto* top = new QWidget(this);
    top->setObjectName(QStringLiteral("CalendarTopWidget"));
    top->setFixedHeight(40);
    top->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    m_leftYearBtn = navButton("CalendarLeftYearBtn", top);
    m_leftMonthBtn = navButton("CalendarLeftMonthBtn", top);
    m_rightYearBtn = navButton("CalendarRightYearBtn", top);
    m_rightMonthBtn = navButton("CalendarRightMonthBtn", top);
    m_yearLabel = namedLabel(QCoreApplication::translate("UxCalendarTimeWidget", "年"), "CalendarDataLabel", top);
    m_monthLabel = namedLabel(QCoreApplication::translate("UxCalendarTimeWidget", "月"), "CalendarDataLabel", top);
    m_yearCombo = new QComboBox(top);
    m_yearCombo->setObjectName(QStringLiteral("CalendarCbYear"));
    m_monthCombo = new QComboBox(top);
    m_monthCombo->setObjectName(QStringLiteral("CalendarCbMonth"));
    m_monthCombo->addItems(s_monthList);
    updateYearsCombox();

    auto* row = new QHBoxLayout(top);
    row->setContentsMargins(5, 0, 5, 0);
    row->setSpacing(2);
    row->addWidget(m_leftYearBtn);
    row->addWidget(m_leftMonthBtn);
    row->addStretch();
    row->addWidget(m_yearCombo);
    row->addWidget(m_yearLabel);
    row->addWidget(m_monthCombo);
    row->addWidget(m_monthLabel);
    row->addStretch();
    row->addWidget(m_rightMonthBtn);
    row->addWidget(m_rightYearBtn);

    if (auto* box = qobject_cast<QBoxLayout*>(layout()))
        box->insertWidget(0, top);

    connect(m_leftYearBtn, &QPushButton::clicked, this, &UxCalendarTimeWidget::onPrevYear);
    connect(m_leftMonthBtn, &QPushButton::clicked, this, &UxCalendarTimeWidget::onPrevMonth);
    connect(m_rightYearBtn, &QPushButton::clicked, this, &UxCalendarTimeWidget::onNextYear);
    connect(m_rightMonthBtn, &QPushButton::clicked, this, &UxCalendarTimeWidget::onNextMonth);

    // Filled and set before listening, so building the lists never turns the page.
    setDataLabelTimeText(selectedDate().year(), selectedDate().month());
    connect(m_yearCombo, &QComboBox::currentTextChanged, this, &UxCalendarTimeWidget::onYearTextChanged);
    connect(m_monthCombo, &QComboBox::currentTextChanged, this, &UxCalendarTimeWidget::onMonthTextChanged);
}

void UxCalendarTimeWidget::initTimeEditWidget()
{
    auto* row = new QWidget(this);
    row->setObjectName(QStringLiteral("CalendarTimeEidtWidget"));
    row->setFixedHeight(44);
    row->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* hl = new QHBoxLayout(row);
    hl->setContentsMargins(12, 0, 12, 0);
    hl->setSpacing(0);

    auto makeField = [&](int kind, const char* name) {
        auto* edit = new UxTimeEditPopEdit(row, kind);
        edit->setFixedSize(22, 22);
        edit->setObjectName(QLatin1String(name));
        edit->setCalendarPopWidget(m_owner);
        return edit;
    };
    hl->addWidget(namedLabel(QCoreApplication::translate("UxCalendarTimeWidget", "时间  "), "CalendarTitleLabel", row));
    m_hhEdit = makeField(0, "hhTimeeditEdit");
    hl->addWidget(m_hhEdit);
    hl->addWidget(namedLabel(QCoreApplication::translate("UxCalendarTimeWidget", " ："), "CalendarColon1Label", row));
    // The minute field shares the hour field's name and the second field is
    // "mm...": the skins select on these names.
    m_mmEdit = makeField(1, "hhTimeeditEdit");
    hl->addWidget(m_mmEdit);
    hl->addWidget(namedLabel(QCoreApplication::translate("UxCalendarTimeWidget", " ："), "CalendarColon2Label", row));
    m_ssEdit = makeField(2, "mmTimeeditEdit");
    hl->addWidget(m_ssEdit);
    hl->addStretch();

    connect(m_hhEdit, SIGNAL(signalTimeSelect(int)), this, SLOT(onHHTimeSelect(int)));
    connect(m_mmEdit, SIGNAL(signalTimeSelect(int)), this, SLOT(onMMTimeSelect(int)));
    connect(m_ssEdit, SIGNAL(signalTimeSelect(int)), this, SLOT(onSSTimeSelect(int)));

    if (auto* box = qobject_cast<QBoxLayout*>(layout()))
        box->addWidget(row);
}

void UxCalendarTimeWidget::initBottomWidget()
{
    if (!m_showBottom)
        return;
    auto* bottom = new QWidget(this);
    bottom->setObjectName(QStringLiteral("CalendarBottomWidget"));
    bottom->setFixedHeight(36);
    bottom->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* hl = new QHBoxLayout(bottom);
    hl->setContentsMargins(12, 0, 12, 0);
    hl->setSpacing(3);

    auto makeButton = [&](const QString& text, const char* name) {
        auto* btn = new QPushButton(text, bottom);
        btn->setObjectName(QLatin1String(name));
        btn->setFixedSize(40, 22);
        return btn;
    };
    QPushButton* now = makeButton(QCoreApplication::translate("UxCalendarTimeWidget", "现在"), "CalendarNowBtn");
    QPushButton* clear = makeButton(QCoreApplication::translate("UxCalendarTimeWidget", "清空"), "CalendarClearBtn");
    QPushButton* ensure = makeButton(QCoreApplication::translate("UxCalendarTimeWidget", "确定"), "CalendarEnsureBtn");
    hl->addWidget(now);
    hl->addStretch();
    hl->addWidget(clear);
    hl->addWidget(ensure);

    connect(now, &QPushButton::clicked, this, &UxCalendarTimeWidget::onNowClicked);
    connect(clear, &QPushButton::clicked, this, &UxCalendarTimeWidget::onClearClicked);
    connect(ensure, &QPushButton::clicked, this, &UxCalendarTimeWidget::onEnsureClicked);

    if (auto* box = qobject_cast<QBoxLayout*>(layout()))
        box->addWidget(bottom);
}

// --- navigation ---------------------------------------------------------------

int UxCalendarTimeWidget::comboYear() const
{
    return m_yearCombo ? m_yearCombo->currentText().toInt() : 0;
}

int UxCalendarTimeWidget::comboMonth() const
{
    return m_monthCombo ? m_monthCombo->currentText().toInt() : 0;
}

void UxCalendarTimeWidget::onPrevYear()
{
    if (comboYear() - 1 >= minimumDate().year())
        showPreviousYear();
}

void UxCalendarTimeWidget::onPrevMonth()
{
    const QDate d(comboYear(), comboMonth(), 15);
    if (d.addMonths(-1) >= QDate(minimumDate().year(), 1, 1))
        showPreviousMonth();
}

void UxCalendarTimeWidget::onNextYear()
{
    const int year = comboYear();
    if (year > 0 && year + 1 <= QDate::currentDate().year())
        showNextYear();
}

void UxCalendarTimeWidget::onNextMonth()
{
    const QDate d(comboYear(), comboMonth(), 15);
    if (d.isValid() && d.addMonths(1) <= QDate::currentDate())
        showNextMonth();
}

void UxCalendarTimeWidget::onYearTextChanged(const QString& text)
{
    const int year = text.toInt();
    if (year >= minimumDate().year() && year <= maximumDate().year())
        setCurrentPage(year, comboMonth());
}

void UxCalendarTimeWidget::onMonthTextChanged(const QString& text)
{
    const int month = text.toInt();
    if (month >= 1 && month <= 12)
        setCurrentPage(comboYear(), month);
}

void UxCalendarTimeWidget::setDataLabelTimeText(int year, int month)
{
    if (m_yearCombo)
        m_yearCombo->setCurrentText(QString::number(year));
    if (m_monthCombo)
        m_monthCombo->setCurrentText(QString::number(month));
}

QStringList UxCalendarTimeWidget::getYears()
{
    const int yMax = maximumDate().year();
    const int yMin = minimumDate().year();
    QStringList years;
    if (yMax > yMin) {
        // Newest first; the maximum year itself is not offered.
        for (int y = yMax - 1; y >= yMin; --y)
            years << QString::number(y);
    } else {
        years << QString::number(yMax);
    }
    return years;
}

void UxCalendarTimeWidget::updateYearsCombox()
{
    if (!m_yearCombo)
        return;
    const QString current = m_yearCombo->currentText();
    if (m_yearCombo->count() > 0)
        m_yearCombo->clear();
    m_yearCombo->addItems(getYears());
    m_yearCombo->setCurrentText(current);
}

// --- range and time row -----------------------------------------------------------

void UxCalendarTimeWidget::setCalendarMinDate(const QDateTime& dt)
{
    if (!dt.isValid()) {
        qDebug() << Q_FUNC_INFO << "invalid minimum date-time!" << dt;
        return;
    }
    m_minDateTime = dt;
    setMinimumDate(dt.date());
    updateTimeEditTimer();
}

void UxCalendarTimeWidget::setCalendarMaxDate(const QDateTime& dt)
{
    if (!dt.isValid()) {
        qDebug() << Q_FUNC_INFO << "invalid maximum date-time!" << dt;
        return;
    }
    m_maxDateTime = dt;
    setMaximumDate(dt.date());
    updateTimeEditTimer();
}

void UxCalendarTimeWidget::updateTimeEditTimer()
{
    if (m_isDateYes || !m_hhEdit || !m_mmEdit || !m_ssEdit)
        return;
    const QDateTime now = QDateTime::currentDateTime();
    QDateTime shown = now;
    if (now < m_minDateTime)
        shown = m_minDateTime;
    else if (m_maxDateTime < now)
        shown = m_maxDateTime;
    m_hhEdit->setText(shown.toString(QStringLiteral("hh")));
    m_mmEdit->setText(shown.toString(QStringLiteral("mm")));
    m_ssEdit->setText(shown.toString(QStringLiteral("ss")));
    onUpdateHMSmmTime(QDate());
}

void UxCalendarTimeWidget::composeTime(int hour, int minute, int second)
{
    if (m_isDateYes || !m_hhEdit || !m_mmEdit || !m_ssEdit)
        return;
    const QDateTime current(selectedDate(), QTime(hour, minute, second));
    m_hhEdit->setDateTime(m_minDateTime, m_maxDateTime, current);
    m_mmEdit->setDateTime(m_minDateTime, m_maxDateTime, current);
    m_ssEdit->setDateTime(m_minDateTime, m_maxDateTime, current);
}

void UxCalendarTimeWidget::onUpdateHMSmmTime(const QDate& date)
{
    Q_UNUSED(date) // the selected date is what counts, not the clicked one
    if (m_isDateYes || !m_hhEdit || !m_mmEdit || !m_ssEdit)
        return;
    composeTime(m_hhEdit->text().toInt(), m_mmEdit->text().toInt(), m_ssEdit->text().toInt());
}

void UxCalendarTimeWidget::onHHTimeSelect(int hour)
{
    if (m_isDateYes || !m_mmEdit || !m_ssEdit)
        return;
    composeTime(hour, m_mmEdit->text().toInt(), m_ssEdit->text().toInt());
}

void UxCalendarTimeWidget::onMMTimeSelect(int minute)
{
    if (m_isDateYes || !m_hhEdit || !m_ssEdit)
        return;
    composeTime(m_hhEdit->text().toInt(), minute, m_ssEdit->text().toInt());
}

void UxCalendarTimeWidget::onSSTimeSelect(int second)
{
    if (m_isDateYes || !m_hhEdit || !m_mmEdit)
        return;
    composeTime(m_hhEdit->text().toInt(), m_mmEdit->text().toInt(), second);
}

// --- bottom bar -------------------------------------------------------------------

void UxCalendarTimeWidget::onNowClicked()
{
    setSelectedDate(QDate::currentDate());
    emit signalSetCalendarTime(QDateTime::currentDateTime());
}

void UxCalendarTimeWidget::onClearClicked()
{
    setSelectedDate(QDate::currentDate());
    emit signalClearDateTime();
}

void UxCalendarTimeWidget::onEnsureClicked()
{
    QDateTime dt;
    if (!m_isDateYes && m_hhEdit && m_mmEdit && m_ssEdit)
        dt.setTime(QTime(m_hhEdit->text().toInt(), m_mmEdit->text().toInt(), m_ssEdit->text().toInt(), 0));
    dt.setDate(selectedDate());
    emit signalSetCalendarTime(dt);
}

// --- colours ----------------------------------------------------------------------

void UxCalendarTimeWidget::updateStyle()
{
    QTextCharFormat format;
    format.setForeground(QBrush(lbColor()));
    format.setBackground(QBrush(Qt::transparent));
    format.setFontPointSize(10.0);
    setHeaderTextFormat(format);
    for (Qt::DayOfWeek day : {Qt::Monday, Qt::Tuesday, Qt::Wednesday, Qt::Thursday, Qt::Friday})
        setWeekdayTextFormat(day, format);
    format.setForeground(QBrush(weekendColor()));
    setWeekdayTextFormat(Qt::Saturday, format);
    setWeekdayTextFormat(Qt::Sunday, format);
}

QColor UxCalendarTimeWidget::baseColor() const
{
    return skinColor("chocolate", m_baseColor);
}

void UxCalendarTimeWidget::setBaseColor(const QColor& color)
{
    m_baseColor = color;
}

QColor UxCalendarTimeWidget::lbColor() const
{
    return skinColor("#D9DFEA", m_lbColor);
}

void UxCalendarTimeWidget::setLbColor(const QColor& color)
{
    m_lbColor = color;
}

QColor UxCalendarTimeWidget::lineColor() const
{
    return skinColor("brown", m_lineColor);
}

void UxCalendarTimeWidget::setLineColor(const QColor& color)
{
    m_lineColor = color;
}

QColor UxCalendarTimeWidget::bgColor() const
{
    return skinColor("#FFFFFF", m_bgColor);
}

void UxCalendarTimeWidget::setBgColor(const QColor& color)
{
    m_bgColor = color;
}

QColor UxCalendarTimeWidget::selectColor() const
{
    return skinColor("#8FA4C9", m_selectColor);
}

void UxCalendarTimeWidget::setSelectColor(const QColor& color)
{
    m_selectColor = color;
}

QColor UxCalendarTimeWidget::weekendColor() const
{
    return skinColor("#629AF8", m_weekendColor);
}

void UxCalendarTimeWidget::setWeekendColor(const QColor& color)
{
    m_weekendColor = color;
}

// --- painting ---------------------------------------------------------------------

void UxCalendarTimeWidget::changeEvent(QEvent* event)
{
    QCalendarWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void UxCalendarTimeWidget::retranslate()
{
    // The bare calendar has no controls and keeps Qt's own locale.
    if (!m_yearLabel)
        return;
    setLocale(calendarLocale());
    m_yearLabel->setText(QCoreApplication::translate("UxCalendarTimeWidget", "年"));
    m_monthLabel->setText(QCoreApplication::translate("UxCalendarTimeWidget", "月"));
    const struct {
        const char* name;
        const char* text;
    } texts[] = {{"CalendarTitleLabel", "时间  "}, {"CalendarColon1Label", " ："}, {"CalendarColon2Label", " ："},
                 {"CalendarNowBtn", "现在"},      {"CalendarClearBtn", "清空"},   {"CalendarEnsureBtn", "确定"}};
    for (const auto& t : texts) {
        const QString text = QCoreApplication::translate("UxCalendarTimeWidget", t.text);
        if (auto* label = findChild<QLabel*>(QLatin1String(t.name)))
            label->setText(text);
        else if (auto* button = findChild<QPushButton*>(QLatin1String(t.name)))
            button->setText(text);
    }
}

// --- day cells ---------------------------------------------------------------------

void UxCalendarTimeWidget::paintCell(QPainter* painter, const QRect& rect, UxCellDate date) const
{
    QFont font = QApplication::font();
    font.setPixelSize(12);
    const QRect r(rect.x() + 1, rect.y() + 2, rect.width() - 2, rect.height() - 4);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QBrush(bgColor()));

    const int mode = isSkin("dark") ? 1 : (isSkin("black") ? 2 : 0);
    const QColor dark(QStringLiteral("#1F294D"));
    auto fill = [&](const char* blackFill) {
        if (mode == 1)
            painter->setBrush(QBrush(dark));
        else if (mode == 2)
            painter->setBrush(QBrush(QColor(QLatin1String(blackFill))));
    };

    QColor textColor;
    if (date == selectedDate()) {
        painter->setBrush(QBrush(selectColor()));
        painter->drawRoundedRect(QRectF(r), 4.0, 4.0, Qt::AbsoluteSize);
        textColor = bgColor();
    } else if (date >= minimumDate() && date <= maximumDate()) {
        if (date == QDate::currentDate()) {
            fill("aqua");
            font.setPixelSize(14);
            painter->drawRect(rect);
            textColor = lineColor();
        } else if (date.dayOfWeek() >= Qt::Saturday) {
            fill("#5B687E");
            painter->drawRect(r);
            textColor = weekendColor();
        } else {
            fill("#485366");
            painter->drawRect(r);
            textColor = lbColor();
        }
    } else {
        painter->setBrush(QBrush(baseColor()));
        fill("#7D8695");
        painter->drawRect(r);
        textColor = lbColor();
    }

    painter->setFont(font);
    painter->setPen(textColor);
    painter->drawText(rect, Qt::AlignCenter, QString::number(date.day()));
    painter->restore();
}

void UxCalendarTimeWidget::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    // Only the style sheet's background: the children paint themselves.
    QStyleOption opt;
    opt.initFrom(this);
    QPainter p(this);
    style()->drawPrimitive(QStyle::PE_Widget, &opt, &p, this);
}
