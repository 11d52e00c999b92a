#ifndef UXBASESHADOWWIDGET_H
#define UXBASESHADOWWIDGET_H

#include "uicomponents_export.h"

#include <QFrame>

class QPainter;
class QPaintEvent;

/// A frameless, translucent top-level frame whose outer band is a soft drop
/// shadow made of eight stretched images and whose inner area is plain white.
/// Derive pop-ups from it, or call drawFrame() from your own painting.
///
/// The images are read from ":/bg/shadow_top_left.png" ... ":/bg/shadow_bottom_right.png",
/// which the host application registers; a missing image leaves its piece out.
/// On a device above 100% each piece's "@2x" sibling is used where it exists.
///
/// paintEvent() paints the same thing as drawFrame() without calling it, so
/// overriding drawFrame() changes only what its callers get, never the widget's
/// own look.
///
/// The border width is kept within +-16384 pixels (more than a screen shows):
/// beyond that the rectangles' arithmetic overflows. Larger values are clamped
/// and logged.
class UICOMPONENTS_EXPORT UxBaseShadowWidget : public QFrame
{
    Q_OBJECT
public:
    explicit UxBaseShadowWidget(QWidget* parent = nullptr);
    ~UxBaseShadowWidget() override;

    /// Thickness of the shadow band and inset of the white body; repaints only
    /// when the value changes. Nothing is clamped: a band wider than half the
    /// widget gives negative-sized edge pieces, which simply draw nothing.
    void setWindowBorderWidth(int width);

    /// Paints the shadow and the body into PAINTER, which the caller has begun
    /// on this widget or on a device of the same size.
    virtual void drawFrame(QPainter* painter);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_windowBorderWidth;
};

#endif // UXBASESHADOWWIDGET_H
