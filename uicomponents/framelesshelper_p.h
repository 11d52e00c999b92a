#ifndef FRAMELESSHELPER_P_H
#define FRAMELESSHELPER_P_H

// Internal records of FramelessHelper: the per-helper state, one record per
// activated target and the edge hits of a point.

#include <QHash>
#include <QPoint>
#include <QRect>
#include <QtGlobal>

class QEvent;
class QHoverEvent;
class QMouseEvent;
class QRubberBand;
class QWidget;
class QWindow;
class FramelessTargetData;

// Which grab bands of a frame a global point lies in. Every comparison is
// inclusive, so the right and bottom bands reach one pixel past right() and
// bottom().
class FramelessEdgeHits
{
public:
    enum Bit
    {
        OnEdges = 0x001,
        OnLeftEdge = 0x002,
        OnRightEdge = 0x004,
        OnTopEdge = 0x008,
        OnBottomEdge = 0x010,
        OnTopLeftCorner = 0x020,
        OnBottomLeftCorner = 0x040,
        OnTopRightCorner = 0x080,
        OnBottomRightCorner = 0x100
    };

    void update(const QPoint& globalPos, const QRect& frame, int border);
    void reset() { m_bits = 0; }
    bool test(Bit bit) const { return (m_bits & bit) != 0; }
    bool onEdges() const { return test(OnEdges); }

private:
    quint16 m_bits = 0;
};

class FramelessHelperState
{
public:
    QHash<QWidget*, FramelessTargetData*> widgets;
    QHash<QWindow*, FramelessTargetData*> windows;
    bool widgetMovable = true;
    bool widgetResizable = true;
    bool rubberBandOnResize = false;
    bool rubberBandOnMove = false;
};

// One activated target: a widget or a window, never both.
class FramelessTargetData
{
public:
    FramelessTargetData(FramelessHelperState* state, QWidget* widget, QWindow* window);
    ~FramelessTargetData();

    void handleEvent(QEvent* event);
    void updateRubberBandStatus();

    FramelessHelperState* m_state;
    QRubberBand* m_rubberBand = nullptr;
    QWidget* m_widget;
    QWindow* m_window;
    QPoint m_dragPos;
    FramelessEdgeHits m_pressedHits;
    FramelessEdgeHits m_moveHits;
    bool m_leftButtonPressed = false;
    bool m_cursorShapeChanged = false;
    bool m_leftButtonTitlePressed = false;
    Qt::WindowFlags m_windowFlags;

private:
    void handleMousePress(QMouseEvent* e);
    void handleMouseRelease(QMouseEvent* e);
    void handleMouseMove(QMouseEvent* e);
    void handleLeave();
    void handleHoverMove(QHoverEvent* e);
    void resizeTo(const QPoint& globalPos);
    void moveTo(const QPoint& globalPos);
    void updateCursorShape(const QPoint& globalPos);

    QRect frameGeometry() const;
    void setGeometry(const QRect& r);
    QSize minimumSize() const;
    void setCursor(Qt::CursorShape shape);
    void unsetCursor();
};

#endif // FRAMELESSHELPER_P_H
