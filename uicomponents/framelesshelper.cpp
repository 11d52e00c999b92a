#include "framelesshelper.h"
#include "framelesshelper_p.h"
#include "uxqtcompat.h"

#include <QDebug>
#include <QHoverEvent>
#include <QMouseEvent>
#include <QRubberBand>
#include <QWidget>
#include <QWindow>

namespace {
// One value each for the whole process, whichever helper sets them.
uint g_borderWidth = 5;
uint g_titleHeight = 30;

// Larger than any screen; beyond 2^31 the values would turn negative where
// they meet signed geometry and break every drag.
const uint kMaxExtent = 16384;

uint clampedExtent(uint value, const char* function)
{
    if (value <= kMaxExtent)
        return value;
    qDebug() << function << "value too large!" << value;
    return kMaxExtent;
}
} // namespace

void FramelessEdgeHits::update(const QPoint& globalPos, const QRect& frame, int border)
{
    const int x = globalPos.x();
    const int y = globalPos.y();
    const bool left = x >= frame.x() && x <= frame.x() + border;
    const bool right = x >= frame.x() + frame.width() - border && x <= frame.x() + frame.width();
    const bool top = y >= frame.y() && y <= frame.y() + border;
    const bool bottom = y >= frame.y() + frame.height() - border && y <= frame.y() + frame.height();

    m_bits = 0;
    if (left)
        m_bits |= OnLeftEdge;
    if (right)
        m_bits |= OnRightEdge;
    if (top)
        m_bits |= OnTopEdge;
    if (bottom)
        m_bits |= OnBottomEdge;
    if (left || right || top || bottom)
        m_bits |= OnEdges;
    if (left && top)
        m_bits |= OnTopLeftCorner;
    if (left && bottom)
        m_bits |= OnBottomLeftCorner;
    if (right && top)
        m_bits |= OnTopRightCorner;
    if (right && bottom)
        m_bits |= OnBottomRightCorner;
}

FramelessTargetData::FramelessTargetData(FramelessHelperState* state, QWidget* widget, QWindow* window)
    : m_state(state)
    , m_widget(widget)
    , m_window(window)
{
    m_windowFlags = widget ? widget->windowFlags() : window->flags();
    if (widget) {
        widget->setAttribute(Qt::WA_MouseTracking);
        widget->setAttribute(Qt::WA_Hover);
    }
    updateRubberBandStatus();
}

FramelessTargetData::~FramelessTargetData()
{
    delete m_rubberBand;
}

void FramelessTargetData::updateRubberBandStatus()
{
    if (m_state->rubberBandOnMove || m_state->rubberBandOnResize) {
        if (!m_rubberBand)
            m_rubberBand = new QRubberBand(QRubberBand::Rectangle);
    } else {
        delete m_rubberBand;
        m_rubberBand = nullptr;
    }
}

QRect FramelessTargetData::frameGeometry() const
{
    return m_widget ? m_widget->frameGeometry() : m_window->frameGeometry();
}

void FramelessTargetData::setGeometry(const QRect& r)
{
    if (m_widget)
        m_widget->setGeometry(r);
    else
        m_window->setGeometry(r);
}

QSize FramelessTargetData::minimumSize() const
{
    return m_widget ? m_widget->minimumSize() : m_window->minimumSize();
}

void FramelessTargetData::setCursor(Qt::CursorShape shape)
{
    if (m_widget)
        m_widget->setCursor(shape);
    else
        m_window->setCursor(shape);
}

void FramelessTargetData::unsetCursor()
{
    if (m_widget)
        m_widget->unsetCursor();
    else
        m_window->unsetCursor();
}

void FramelessTargetData::handleEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        handleMousePress(static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseButtonRelease:
        handleMouseRelease(static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseMove:
        handleMouseMove(static_cast<QMouseEvent*>(event));
        break;
    case QEvent::Leave:
        handleLeave();
        break;
    case QEvent::HoverMove:
        handleHoverMove(static_cast<QHoverEvent*>(event));
        break;
    default:
        break;
    }
}

void FramelessTargetData::handleMousePress(QMouseEvent* e)
{
    if (e->button() != Qt::LeftButton)
        return;
    m_leftButtonPressed = true;
    m_leftButtonTitlePressed = e->pos().y() < int(g_titleHeight);

    const QRect frame = frameGeometry();
    m_pressedHits.update(UxQtCompat::globalPos(e), frame, int(g_borderWidth));
    m_dragPos = UxQtCompat::globalPos(e) - frame.topLeft();

    if (!m_rubberBand)
        return;
    const bool onEdges = m_pressedHits.onEdges();
    if ((onEdges && m_state->rubberBandOnResize) || (!onEdges && m_state->rubberBandOnMove)) {
        m_rubberBand->setGeometry(frame);
        m_rubberBand->show();
    }
}

void FramelessTargetData::handleMouseRelease(QMouseEvent* e)
{
    if (e->button() != Qt::LeftButton)
        return;
    m_leftButtonPressed = false;
    m_leftButtonTitlePressed = false;
    m_pressedHits.reset();
    if (m_rubberBand && m_rubberBand->isVisible()) {
        m_rubberBand->hide();
        setGeometry(m_rubberBand->geometry());
    }
}

void FramelessTargetData::handleMouseMove(QMouseEvent* e)
{
    if (m_leftButtonPressed) {
        if (m_state->widgetResizable && m_pressedHits.onEdges())
            resizeTo(UxQtCompat::globalPos(e));
        else if (m_state->widgetMovable && m_leftButtonTitlePressed)
            moveTo(UxQtCompat::globalPos(e));
    } else if (m_state->widgetResizable) {
        updateCursorShape(UxQtCompat::globalPos(e));
    }
}

void FramelessTargetData::handleLeave()
{
    if (!m_leftButtonPressed)
        unsetCursor();
}

void FramelessTargetData::handleHoverMove(QHoverEvent* e)
{
    if (!m_state->widgetResizable)
        return;
    updateCursorShape(m_widget ? m_widget->mapToGlobal(UxQtCompat::pos(e)) : m_window->mapToGlobal(UxQtCompat::pos(e)));
}

void FramelessTargetData::moveTo(const QPoint& globalPos)
{
    const QPoint pos = globalPos - m_dragPos;
    if (m_state->rubberBandOnMove && m_rubberBand)
        m_rubberBand->move(pos);
    else if (m_widget)
        m_widget->move(pos);
    else
        m_window->setPosition(pos);
}

void FramelessTargetData::resizeTo(const QPoint& globalPos)
{
    const bool onBand = m_state->rubberBandOnResize && m_rubberBand;
    // The band's own geometry, not its frame: the band is placed by geometry,
    // and a platform that frames tool windows would otherwise grow it each move.
    const QRect origin = onBand ? m_rubberBand->geometry() : frameGeometry();
    int left = origin.left();
    int top = origin.top();
    int right = origin.right();
    int bottom = origin.bottom();
    const int gx = globalPos.x();
    const int gy = globalPos.y();

    if (m_pressedHits.test(FramelessEdgeHits::OnTopLeftCorner)) {
        left = gx;
        top = gy;
    } else if (m_pressedHits.test(FramelessEdgeHits::OnBottomLeftCorner)) {
        left = gx;
        bottom = gy;
    } else if (m_pressedHits.test(FramelessEdgeHits::OnTopRightCorner)) {
        right = gx;
        top = gy;
    } else if (m_pressedHits.test(FramelessEdgeHits::OnBottomRightCorner)) {
        right = gx;
        bottom = gy;
    } else if (m_pressedHits.test(FramelessEdgeHits::OnLeftEdge)) {
        left = gx;
    } else if (m_pressedHits.test(FramelessEdgeHits::OnRightEdge)) {
        right = gx;
    } else if (m_pressedHits.test(FramelessEdgeHits::OnTopEdge)) {
        top = gy;
    } else if (m_pressedHits.test(FramelessEdgeHits::OnBottomEdge)) {
        bottom = gy;
    }

    QRect r(QPoint(left, top), QPoint(right, bottom));
    if (!r.isValid())
        return;

    // Below the minimum the resize is refused along that axis, not clamped.
    const QSize minimum = minimumSize();
    if (minimum.width() > r.width()) {
        if (left == origin.left())
            r.setRight(origin.right());
        else
            r.setLeft(origin.left());
    }
    if (minimum.height() > r.height()) {
        if (top == origin.top())
            r.setBottom(origin.bottom());
        else
            r.setTop(origin.top());
    }

    if (onBand)
        m_rubberBand->setGeometry(r);
    else
        setGeometry(r);
}

void FramelessTargetData::updateCursorShape(const QPoint& globalPos)
{
    if (m_widget && (m_widget->isFullScreen() || m_widget->isMaximized())) {
        if (m_cursorShapeChanged)
            unsetCursor();
        return;
    }

    m_moveHits.update(globalPos, frameGeometry(), int(g_borderWidth));
    if (m_moveHits.test(FramelessEdgeHits::OnTopLeftCorner) || m_moveHits.test(FramelessEdgeHits::OnBottomRightCorner)) {
        setCursor(Qt::SizeFDiagCursor);
        m_cursorShapeChanged = true;
    } else if (m_moveHits.test(FramelessEdgeHits::OnBottomLeftCorner)
               || m_moveHits.test(FramelessEdgeHits::OnTopRightCorner)) {
        setCursor(Qt::SizeBDiagCursor);
        m_cursorShapeChanged = true;
    } else if (m_moveHits.test(FramelessEdgeHits::OnLeftEdge) || m_moveHits.test(FramelessEdgeHits::OnRightEdge)) {
        setCursor(Qt::SizeHorCursor);
        m_cursorShapeChanged = true;
    } else if (m_moveHits.test(FramelessEdgeHits::OnTopEdge) || m_moveHits.test(FramelessEdgeHits::OnBottomEdge)) {
        setCursor(Qt::SizeVerCursor);
        m_cursorShapeChanged = true;
    } else if (m_cursorShapeChanged) {
        unsetCursor();
        m_cursorShapeChanged = false;
    }
}

FramelessHelper::FramelessHelper(QObject* parent)
    : QObject(parent)
    , d(new FramelessHelperState)
{
}

FramelessHelper::~FramelessHelper()
{
    const QList<QWidget*> widgets = d->widgets.keys();
    for (QWidget* w : widgets)
        removeFrom(w);
    // Windows keep the flags they have now; only the records go.
    qDeleteAll(d->windows);
    delete d;
}

void FramelessHelper::activateOn(QWidget* w)
{
    if (!w) {
        qDebug() << Q_FUNC_INFO << "widget is null!";
        return;
    }
    if (d->widgets.contains(w))
        return;
    d->widgets.insert(w, new FramelessTargetData(d, w, nullptr));
    w->installEventFilter(this);
    // A target deleted without removeFrom() must not leave a dangling record.
    connect(w, &QObject::destroyed, this, [this, w] { delete d->widgets.take(w); });
}

void FramelessHelper::activateOnQmlWidget(QWindow* w)
{
    if (!w) {
        qDebug() << Q_FUNC_INFO << "window is null!";
        return;
    }
    if (d->windows.contains(w))
        return;
    d->windows.insert(w, new FramelessTargetData(d, nullptr, w));
    w->installEventFilter(this);
    connect(w, &QObject::destroyed, this, [this, w] { delete d->windows.take(w); });
}

void FramelessHelper::removeFrom(QWidget* w)
{
    FramelessTargetData* data = d->widgets.take(w);
    if (!data)
        return;
    disconnect(w, &QObject::destroyed, this, nullptr);
    w->removeEventFilter(this);
    w->setAttribute(Qt::WA_MouseTracking, false);
    w->setWindowFlags(data->m_windowFlags);
    w->setAttribute(Qt::WA_Hover, false);
    delete data;
}

void FramelessHelper::removeQmlWidgetFrom(QWindow* w)
{
    FramelessTargetData* data = d->windows.take(w);
    if (!data)
        return;
    disconnect(w, &QObject::destroyed, this, nullptr);
    w->removeEventFilter(this);
    w->setFlags(data->m_windowFlags);
    delete data;
}

void FramelessHelper::setWidgetMovable(bool movable)
{
    d->widgetMovable = movable;
}

bool FramelessHelper::widgetMovable()
{
    return d->widgetMovable;
}

void FramelessHelper::setWidgetResizable(bool resizable)
{
    d->widgetResizable = resizable;
}

bool FramelessHelper::widgetResizable()
{
    return d->widgetResizable;
}

void FramelessHelper::setRubberBandOnMove(bool on)
{
    d->rubberBandOnMove = on;
    updateRubberBands();
}

bool FramelessHelper::rubberBandOnMove()
{
    return d->rubberBandOnMove;
}

void FramelessHelper::setRubberBandOnResize(bool on)
{
    d->rubberBandOnResize = on;
    updateRubberBands();
}

bool FramelessHelper::rubberBandOnResisze()
{
    return d->rubberBandOnResize;
}

void FramelessHelper::updateRubberBands()
{
    // Windows keep the rubber band they got at activation.
    for (FramelessTargetData* data : qAsConst(d->widgets))
        data->updateRubberBandStatus();
}

void FramelessHelper::setBorderWidth(uint width)
{
    if (width > 0)
        g_borderWidth = clampedExtent(width, Q_FUNC_INFO);
}

uint FramelessHelper::borderWidth()
{
    return g_borderWidth;
}

void FramelessHelper::setTitleHeight(uint height)
{
    if (height > 0)
        g_titleHeight = clampedExtent(height, Q_FUNC_INFO);
}

uint FramelessHelper::titleHeight()
{
    return g_titleHeight;
}

bool FramelessHelper::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::Leave:
    case QEvent::HoverMove:
        break;
    default:
        return QObject::eventFilter(watched, event);
    }

    // Widget events are consumed; window events go on to the window.
    FramelessTargetData* data = watched->isWidgetType() ? d->widgets.value(static_cast<QWidget*>(watched)) : nullptr;
    if (data) {
        data->handleEvent(event);
        return true;
    }
    data = watched->isWindowType() ? d->windows.value(static_cast<QWindow*>(watched)) : nullptr;
    if (data) {
        data->handleEvent(event);
        return false;
    }
    return QObject::eventFilter(watched, event);
}
