#include "uxanimationstackedwidget.h"

#include <QDebug>
#include <QPainter>
#include <QPixmap>
#include <QPropertyAnimation>
#include <QResizeEvent>
#include <QTransform>

namespace {

QPixmap snapshot(QWidget* page)
{
    if (page->size().isEmpty())
        return QPixmap();
    QPixmap pixmap(page->size());
    pixmap.fill(Qt::transparent);
    page->render(&pixmap, QPoint(0, 0), QRegion(),
                 QWidget::RenderFlags(QWidget::DrawWindowBackground | QWidget::DrawChildren));
    return pixmap;
}

} // namespace

UxAnimationStackedWidget::UxAnimationStackedWidget(QWidget* parent)
    : QStackedWidget(parent)
    , m_isAnimating(false)
    , m_offset(0)
    , m_paused(false)
    , m_currentIndex(0)
    , m_previousIndex(-1)
    , m_type(RightToLeft)
    , m_animation(new QPropertyAnimation(this, QByteArray(), this))
{
    m_animation->setDuration(2000);
    m_animation->setEasingCurve(QEasingCurve::OutQuint);
    m_animation->setStartValue(0);
    m_animation->setEndValue(0);
    connect(m_animation, SIGNAL(valueChanged(QVariant)), this, SLOT(valueChanged(QVariant)));
    connect(m_animation, SIGNAL(finished()), this, SLOT(animationFinished()));
}

UxAnimationStackedWidget::~UxAnimationStackedWidget() = default;

void UxAnimationStackedWidget::setLength(int length, AnimationType type)
{
    m_type = type;
    const int half = length / 2;
    switch (type) {
    case TopToBottom:
    case LeftToRight:
        m_animation->setStartValue(-half);
        m_animation->setEndValue(half);
        break;
    case BottomToTop:
    case RightToLeft:
        m_animation->setStartValue(half);
        m_animation->setEndValue(-half);
        break;
    }
}

void UxAnimationStackedWidget::start(int index)
{
    if (index == -1 || m_isAnimating || m_paused)
        return;
    QWidget* page = widget(index);
    if (!page) {
        qDebug() << Q_FUNC_INFO << "no page at index" << index;
        return;
    }
    m_previousIndex = m_currentIndex;
    m_currentIndex = index;
    const QRect frame = frameRect();
    page->setGeometry(0, 0, frame.width(), frame.height());
    if (QWidget* visible = currentWidget())
        visible->hide();
    m_isAnimating = true;
    m_animation->start();
}

void UxAnimationStackedWidget::stop()
{
    // Deliberately leaves the animating flag set: resetNum() un-sticks it.
    m_animation->stop();
}

void UxAnimationStackedWidget::resetNum()
{
    m_isAnimating = false;
    m_offset = 0;
    m_currentIndex = 0;
    m_paused = false;
}

void UxAnimationStackedWidget::slotControlAni(bool paused)
{
    m_paused = paused;
}

void UxAnimationStackedWidget::setDuration(int ms)
{
    if (ms < 0) {
        qDebug() << Q_FUNC_INFO << "negative duration!" << ms;
        return;
    }
    m_animation->setDuration(ms);
}

int UxAnimationStackedWidget::getDuration() const
{
    return m_animation->duration();
}

void UxAnimationStackedWidget::setEasingCurve(const QEasingCurve& curve)
{
    m_animation->setEasingCurve(curve);
}

void UxAnimationStackedWidget::valueChanged(const QVariant& value)
{
    m_offset = value.toReal();
    update();
}

void UxAnimationStackedWidget::animationFinished()
{
    m_isAnimating = false;
    m_offset = 0;
    if (QWidget* page = widget(m_currentIndex)) {
        page->show();
        page->raise();
        setCurrentWidget(page);
    }
    update();
    emit signalFrameIndexChanged(m_currentIndex);
}

void UxAnimationStackedWidget::paintEvent(QPaintEvent* event)
{
    if (!m_isAnimating) {
        QWidget::paintEvent(event);
        return;
    }
    QPainter painter(this);
    QTransform transform;
    renderCurrentWidget(painter, transform);
    // Drawn last, so the old page lies over the new one.
    renderPreviousWidget(painter, transform);
}

void UxAnimationStackedWidget::resizeEvent(QResizeEvent* event)
{
    QStackedWidget::resizeEvent(event);
    // The width also for the vertical directions: their slide travels it.
    if (event->size().isValid())
        setLength(event->size().width(), m_type);
}

// Where the new page is drawn before the offset moves it: half the widget away
// on the side it enters from. The old page sits at the opposite point.
QPoint UxAnimationStackedWidget::entryPoint() const
{
    const int w = width();
    const int h = height();
    switch (m_type) {
    case BottomToTop:
        return QPoint(0, h / 2);
    case TopToBottom:
        return QPoint(0, -h / 2);
    case LeftToRight:
        return QPoint(-w / 2, 0);
    case RightToLeft:
        return QPoint(w / 2, 0);
    }
    return QPoint();
}

void UxAnimationStackedWidget::renderCurrentWidget(QPainter& painter, QTransform& transform)
{
    QWidget* page = widget(m_currentIndex);
    if (!page)
        return;
    if (m_type == BottomToTop || m_type == TopToBottom)
        transform.translate(0, m_offset);
    else
        transform.translate(m_offset, 0);
    painter.setTransform(transform);
    painter.drawPixmap(entryPoint(), snapshot(page));
}

void UxAnimationStackedWidget::renderPreviousWidget(QPainter& painter, QTransform& transform)
{
    // Drawn with the transform the current page left on the painter.
    Q_UNUSED(transform)
    QWidget* page = widget(m_previousIndex);
    if (!page)
        return;
    painter.drawPixmap(-entryPoint(), snapshot(page));
}
