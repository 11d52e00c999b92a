#include "datetimepage.h"

#include "skinframe.h"

#include <uicomponents/uxcalendartimeedit.h>
#include <uicomponents/uxcalendartimewidget.h>
#include <uicomponents/uxdatetimeedit.h>
#include <uicomponents/uxminiclockpannel.h>
#include <uxcore/uxcore.h>

#include <QDataStream>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSaveFile>
#include <QVBoxLayout>

DateTimePage::DateTimePage(QWidget* parent)
    : QWidget(parent)
    , m_log(new QLabel(this))
    , m_clock(nullptr)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->setSpacing(24);

    auto* inputs = new QGroupBox(QStringLiteral("日期输入"), this);
    auto* form = new QFormLayout(inputs);
    form->setVerticalSpacing(14);

    auto* dateEdit = new UxCalendarTimeEdit(inputs);
    dateEdit->setFixedWidth(180);
    dateEdit->setCalendarMinDate(QDateTime(QDate(2015, 1, 1), QTime(0, 0)));
    form->addRow(QStringLiteral("交易日期"), dateEdit);
    connect(dateEdit, &UxCalendarTimeEdit::dateChanged, this, [this](const QDateTime& dt) {
        m_log->setText(QStringLiteral("交易日期: ") + (dt.isValid() ? dt.toString(QStringLiteral("yyyy-MM-dd")) : QStringLiteral("(已清除)")));
    });

    auto* dateTimeEdit = new UxDateTimeEdit(inputs);
    dateTimeEdit->setFixedWidth(180);
    dateTimeEdit->setDate(QDate::currentDate());
    form->addRow(QStringLiteral("起始日期"), dateTimeEdit);
    connect(dateTimeEdit, &UxDateTimeEdit::signalDateChanged, this, [this](const QDate& from, const QDate& to) {
        m_log->setText(QStringLiteral("起始日期: %1 → %2").arg(from.toString(Qt::ISODate), to.toString(Qt::ISODate)));
    });

    // A calendar with its time row, open on the page, as a pop-up would show it.
    auto* calendarFrame = new SkinFrame(QStringLiteral("controls/uicomponents.css"), inputs);
    calendarFrame->setObjectName(QStringLiteral("CalendarPopWidget"));
    auto* calendarLayout = new QVBoxLayout(calendarFrame);
    calendarLayout->setContentsMargins(0, 0, 0, 0);
    auto* calendar = new UxCalendarTimeWidget(calendarFrame, false, true);
    calendarLayout->addWidget(calendar);
    calendarFrame->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    form->addRow(QStringLiteral("日期时间"), calendarFrame);
    connect(calendar, &UxCalendarTimeWidget::signalSetCalendarTime, this, [this](const QDateTime& dt) {
        m_log->setText(QStringLiteral("选择了 ") + dt.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")));
    });
    connect(calendar, &UxCalendarTimeWidget::signalClearDateTime, this,
            [this] { m_log->setText(QStringLiteral("清空")); });

    m_log->setObjectName(QStringLiteral("galleryLog"));
    form->addRow(QStringLiteral("结果"), m_log);
    layout->addWidget(inputs, 0, Qt::AlignTop);

    auto* clockBox = new QGroupBox(QStringLiteral("世界时钟"), this);
    auto* clockLayout = new QVBoxLayout(clockBox);
    m_clock = new UxMiniClockPannel(clockBox);
    clockLayout->addWidget(m_clock);
    clockLayout->addWidget(new QLabel(QStringLiteral("点击右上角选择时区; 退出时保存, 下次启动恢复."), clockBox));
    clockLayout->addStretch();
    layout->addWidget(clockBox, 0, Qt::AlignTop);
    layout->addStretch();

    // The host's memory service: a small file in the user's configuration folder.
    QFile f(clockStateFile());
    if (f.open(QIODevice::ReadOnly)) {
        QMap<QString, QVariant> state;
        QDataStream in(&f);
        in >> state;
        m_clock->restore(state);
    }
}

DateTimePage::~DateTimePage()
{
    QMap<QString, QVariant> state;
    m_clock->save(state);
    QDir().mkpath(QFileInfo(clockStateFile()).absolutePath());
    QSaveFile f(clockStateFile());
    if (f.open(QIODevice::WriteOnly)) {
        QDataStream out(&f);
        out << state;
        f.commit();
    }
}

QString DateTimePage::clockStateFile() const
{
    return UxCfg::instance()->path(QString()) + QStringLiteral("/miniclock.dat");
}
