#ifndef UXFRAMELESSHELPER_H
#define UXFRAMELESSHELPER_H

#include "uxcore_export.h"

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QRect>

class QWidget;
class QMouseEvent;

/// Makes a frameless window movable (dragging anywhere that does not take the
/// mouse itself) and resizable from a 5-pixel edge band, both from activateOn()
/// on; setWidgetMovable(false, ...) and setWidgetResizable(false) turn them off. A drag
/// prefers the platform's own move (QWindow::startSystemMove) and falls back to
/// moving the geometry by hand where the platform has none.
/// setWidgetMovable's integer: the height of the drag area from the top; 0 (what
/// the library passes) means the whole widget.
class UXCORE_EXPORT UxFramelessHelper : public QObject
{
    Q_OBJECT
public:
    explicit UxFramelessHelper(QObject* parent = nullptr);
    ~UxFramelessHelper() override;

    void activateOn(QWidget* w);
    void setWidgetMovable(bool movable, int titleHeight);
    void setWidgetResizable(bool resizable);

    bool isMovable() const { return m_movable; }
    bool isResizable() const { return m_resizable; }

protected:
    bool eventFilter(QObject* obj, QEvent* event) override;

private:
    Qt::Edges edgesAt(const QPoint& pos) const;
    void updateCursor(Qt::Edges edges);
    bool handlePress(QMouseEvent* e);
    bool handleMove(QMouseEvent* e);

    QPointer<QWidget> m_widget;
    bool m_movable = true;
    bool m_resizable = true;
    int m_titleHeight = 0;
    bool m_dragging = false;
    Qt::Edges m_resizeEdges;
    QPoint m_pressGlobal;
    QRect m_pressGeometry;
};

#endif // UXFRAMELESSHELPER_H
