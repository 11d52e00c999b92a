#include "uxcalendartimeedit.h"

#include "backpaintwidget.h"
#include "uxcalendartimewidget.h"
#include "uxcore.h"

#include <QAction>
#include <QDebug>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScreen>
#include <QTableView>

namespace {
const char kDateFormat[] = "yyyy-MM-dd";
const char kDateTimeFormat[] = "yyyy-MM-dd hh:mm:ss";
// What "清空" leaves as the value.
const qint64 kClearedSecs = 0xFFFFFFFF;
} // namespace

UxCalendarTimeEdit::UxCalendarTimeEdit(QWidget* parent)
    : QLineEdit(parent)
    , m_minDateTime(QDateTime::currentDateTime().addYears(-2))
    , m_maxDateTime(QDate::currentDate().addYears(2), QTime(23, 59, 59))
    , m_value(QDateTime::currentDateTime())
{
    setContextMenuPolicy(Qt::NoContextMenu);
    m_iconAction = addAction(QIcon(UxCore::instance()->getCurrentSkinPath(QStringLiteral("subject_date.png"))),
                             QLineEdit::TrailingPosition);
    m_iconAction->setCheckable(true);
    m_iconAction->setChecked(false);
    connect(m_iconAction, &QAction::triggered, this, [this] { popCalendarTimeWidget(); });
    setObjectName(QStringLiteral("UxCalendarTimeEdit"));
    UxCore::instance()->addStyle2View(this, QStringLiteral("controls/uicomponents.css"));
    initControlcalendar(true);
}

UxCalendarTimeEdit::~UxCalendarTimeEdit()
{
    delete m_frame;
}

QString UxCalendarTimeEdit::formatted(const QDateTime& dt) const
{
    const bool dateOnly = !m_calendar || m_calendar->isDateYes();
    return dt.toString(QLatin1String(dateOnly ? kDateFormat : kDateTimeFormat));
}

void UxCalendarTimeEdit::initControlcalendar(bool isDateYes)
{
    if (m_calendar)
        return;
    setText(isDateYes ? QDate::currentDate().toString(QLatin1String(kDateFormat))
                      : QDateTime::currentDateTime().toString(QLatin1String(kDateTimeFormat)));

    m_frame = new BackPaintWidget(nullptr);
    m_frame->setObjectName(QStringLiteral("calendarFramWidget"));
    m_frame->setWindowFlags(Qt::SubWindow | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);

    auto* layout = new QHBoxLayout(m_frame);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(0);
    m_calendar = new UxCalendarTimeWidget(m_frame, isDateYes, true);
    layout->addWidget(m_calendar);
    m_frame->setCalendar(m_calendar);

    m_calendar->setCalendarMinDate(m_minDateTime);
    m_calendar->setCalendarMaxDate(m_maxDateTime);

    if (auto* grid = m_calendar->findChild<QTableView*>()) {
        grid->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        grid->verticalHeader()->setDefaultSectionSize(27);
    }

    connect(m_calendar, &UxCalendarTimeWidget::signalSetCalendarTime, this, &UxCalendarTimeEdit::onCalendarTime);
    connect(m_calendar, &UxCalendarTimeWidget::signalClearDateTime, this, &UxCalendarTimeEdit::onCalendarCleared);
    m_frame->hide();
}

void UxCalendarTimeEdit::onCalendarTime(const QDateTime& dt)
{
    setText(dt.toString(QLatin1String(kDateFormat)));
    m_value = dt;
    if (!m_calendar->isDateYes())
        setText(dt.toString(QLatin1String(kDateTimeFormat)));
    emit dateChanged(dt);
    m_frame->hide();
}

void UxCalendarTimeEdit::onCalendarCleared()
{
    clear();
    m_value.setSecsSinceEpoch(kClearedSecs);
    m_frame->hide();
}

QDateTime UxCalendarTimeEdit::date()
{
    return m_value;
}

void UxCalendarTimeEdit::setCalendarMinDate(const QDateTime& dt)
{
    if (!dt.isValid()) {
        qDebug() << Q_FUNC_INFO << "invalid minimum date-time!" << dt;
        return;
    }
    if (m_calendar)
        m_calendar->setCalendarMinDate(dt);
    if (m_minDateTime < dt) {
        m_minDateTime = dt;
        m_value = dt;
        setText(formatted(dt));
    }
}

void UxCalendarTimeEdit::setCalendarMaxDate(const QDateTime& dt)
{
    if (!dt.isValid()) {
        qDebug() << Q_FUNC_INFO << "invalid maximum date-time!" << dt;
        return;
    }
    m_maxDateTime = dt;
    if (m_calendar)
        m_calendar->setCalendarMaxDate(dt);
}

void UxCalendarTimeEdit::mousePressEvent(QMouseEvent* event)
{
    QLineEdit::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        popCalendarTimeWidget();
}

void UxCalendarTimeEdit::popCalendarTimeWidget()
{
    if (!m_calendar)
        initControlcalendar(true);
    // Lay the frame out before measuring: it has not been shown yet the first time.
    m_frame->ensurePolished();
    if (QLayout* inner = m_calendar->layout())
        inner->activate();
    if (QLayout* outer = m_frame->layout())
        outer->activate();
    m_frame->adjustSize();

    QPoint pos = mapToGlobal(QPoint(-8, height()));
    QScreen* screen = QGuiApplication::screenAt(window()->pos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (screen) {
        const QRect available = screen->availableGeometry();
        // Compared with the height, not the bottom: the frame opens above the
        // edit when it would run past the screen's lower part.
        if (pos.y() + m_calendar->height() > available.height())
            pos.ry() -= height() + m_calendar->height();
    }
    m_frame->move(pos);
    m_frame->show();
}
