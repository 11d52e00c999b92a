#include "uxframelesshelper.h"
#include "uxqtcompat.h"

#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace {
const int kBorder = 5;
}

UxFramelessHelper::UxFramelessHelper(QObject* parent)
    : QObject(parent)
{
}

UxFramelessHelper::~UxFramelessHelper()
{
    if (m_widget)
        m_widget->removeEventFilter(this);
}

void UxFramelessHelper::activateOn(QWidget* w)
{
    if (!w || w == m_widget)
        return;
    if (m_widget)
        m_widget->removeEventFilter(this);
    m_widget = w;
    w->setMouseTracking(true);
    w->installEventFilter(this);
}

void UxFramelessHelper::setWidgetMovable(bool movable, int titleHeight)
{
    m_movable = movable;
    m_titleHeight = qMax(0, titleHeight);
}

void UxFramelessHelper::setWidgetResizable(bool resizable)
{
    m_resizable = resizable;
    if (!resizable && m_widget)
        m_widget->unsetCursor();
}

Qt::Edges UxFramelessHelper::edgesAt(const QPoint& pos) const
{
    Qt::Edges edges;
    if (!m_resizable || !m_widget)
        return edges;
    const QRect r = m_widget->rect();
    if (pos.x() < kBorder)
        edges |= Qt::LeftEdge;
    else if (pos.x() >= r.width() - kBorder)
        edges |= Qt::RightEdge;
    if (pos.y() < kBorder)
        edges |= Qt::TopEdge;
    else if (pos.y() >= r.height() - kBorder)
        edges |= Qt::BottomEdge;
    return edges;
}

void UxFramelessHelper::updateCursor(Qt::Edges edges)
{
    if (!m_widget)
        return;
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
        m_widget->setCursor(Qt::SizeFDiagCursor);
    else if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
        m_widget->setCursor(Qt::SizeBDiagCursor);
    else if (edges & (Qt::LeftEdge | Qt::RightEdge))
        m_widget->setCursor(Qt::SizeHorCursor);
    else if (edges & (Qt::TopEdge | Qt::BottomEdge))
        m_widget->setCursor(Qt::SizeVerCursor);
    else
        m_widget->unsetCursor();
}

bool UxFramelessHelper::handlePress(QMouseEvent* e)
{
    if (e->button() != Qt::LeftButton)
        return false;
    m_resizeEdges = edgesAt(e->pos());
    const bool inTitle = m_titleHeight == 0 || e->pos().y() < m_titleHeight;
    if (!m_resizeEdges && !(m_movable && inTitle))
        return false;
    m_pressGlobal = UxQtCompat::globalPos(e);
    m_pressGeometry = m_widget->geometry();
    m_dragging = true;
    return true;
}

bool UxFramelessHelper::handleMove(QMouseEvent* e)
{
    if (!m_dragging) {
        updateCursor(edgesAt(e->pos()));
        return false;
    }
    const QPoint delta = UxQtCompat::globalPos(e) - m_pressGlobal;
    if (!m_resizeEdges) {
        QWindow* handle = m_widget->window()->windowHandle();
        if (handle && handle->startSystemMove()) {
            // The platform now owns the drag and swallows the release.
            m_dragging = false;
            return true;
        }
        m_widget->move(m_pressGeometry.topLeft() + delta);
        return true;
    }
    QRect g = m_pressGeometry;
    const QSize minimum = m_widget->minimumSize();
    if (m_resizeEdges & Qt::LeftEdge)
        g.setLeft(qMin(g.left() + delta.x(), g.right() - minimum.width() + 1));
    if (m_resizeEdges & Qt::RightEdge)
        g.setRight(qMax(g.right() + delta.x(), g.left() + minimum.width() - 1));
    if (m_resizeEdges & Qt::TopEdge)
        g.setTop(qMin(g.top() + delta.y(), g.bottom() - minimum.height() + 1));
    if (m_resizeEdges & Qt::BottomEdge)
        g.setBottom(qMax(g.bottom() + delta.y(), g.top() + minimum.height() - 1));
    m_widget->setGeometry(g);
    return true;
}

bool UxFramelessHelper::eventFilter(QObject* obj, QEvent* event)
{
    if (obj != m_widget || !m_widget->isWindow())
        return QObject::eventFilter(obj, event);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (handlePress(static_cast<QMouseEvent*>(event)))
            return true;
        break;
    case QEvent::MouseMove:
        if (handleMove(static_cast<QMouseEvent*>(event)))
            return true;
        break;
    case QEvent::MouseButtonRelease:
        if (m_dragging) {
            m_dragging = false;
            m_resizeEdges = Qt::Edges();
            return true;
        }
        break;
    case QEvent::Leave:
        if (!m_dragging && m_resizable)
            m_widget->unsetCursor();
        break;
    default:
        break;
    }
    return QObject::eventFilter(obj, event);
}
