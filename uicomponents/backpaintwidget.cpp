#include "backpaintwidget.h"

#include "uxcalendartimewidget.h"
#include "uxcore.h"

#include <QCursor>
#include <QPainter>
#include <QStyleOption>

BackPaintWidget::BackPaintWidget(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("BackPaintWidget"));
    setAttribute(Qt::WA_TranslucentBackground);
    UxCore::instance()->addStyle2View(this, QStringLiteral("controls/uicomponents.css"));
}

BackPaintWidget::~BackPaintWidget() = default;

QWidget* BackPaintWidget::widget()
{
    return this;
}

void BackPaintWidget::loadSkin(const QVariant& style)
{
    if (style.isValid())
        setStyleSheet(style.toString());
}

void BackPaintWidget::setCalendar(UxCalendarTimeWidget* calendar)
{
    m_calendar = calendar;
}

UxCalendarTimeWidget* BackPaintWidget::calendar() const
{
    return m_calendar;
}

void BackPaintWidget::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    QStyleOption opt;
    opt.initFrom(this);
    QPainter p(this);
    style()->drawPrimitive(QStyle::PE_Widget, &opt, &p, this);
}

void BackPaintWidget::showEvent(QShowEvent* event)
{
    setFocus(Qt::OtherFocusReason);
    QWidget::showEvent(event);
}

void BackPaintWidget::focusOutEvent(QFocusEvent* event)
{
    const QRect global(mapToGlobal(QPoint(0, 0)), size());
    if (global.contains(QCursor::pos()))
        setFocus(Qt::OtherFocusReason);
    else
        hide();
    QWidget::focusOutEvent(event);
}
