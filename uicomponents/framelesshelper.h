#ifndef FRAMELESSHELPER_H
#define FRAMELESSHELPER_H

#include "uicomponents_export.h"

#include <QObject>

class QWidget;
class QWindow;
class FramelessHelperState;

/// Gives borderless top-level widgets (and QWindows) what a native frame
/// gives: dragging by the title area and resizing from any edge or corner,
/// with resize cursors while hovering. It works purely as an event filter on
/// each activated target. Optionally a rubber band shows the new geometry
/// during a move or a resize and the target follows on release.
///
/// The border width (grab band, default 5) and title height (default 30) are
/// one value each for the whole process, shared by every helper. They are
/// clamped to 16384 pixels: a larger unsigned value would wrap negative in the
/// signed geometry and break dragging.
///
/// Events of a widget target are consumed by the filter; events of a window
/// target are handled and passed on. Making the target frameless is the
/// caller's business; removal restores the window flags saved at activation.
/// Remove a target before deleting it to get its flags back; a target deleted
/// while still activated is merely forgotten.
class UICOMPONENTS_EXPORT FramelessHelper : public QObject
{
    Q_OBJECT
public:
    explicit FramelessHelper(QObject* parent = nullptr);
    ~FramelessHelper() override;

    void activateOn(QWidget* w);
    void activateOnQmlWidget(QWindow* w);
    void removeFrom(QWidget* w);
    void removeQmlWidgetFrom(QWindow* w);

    void setWidgetMovable(bool movable);
    bool widgetMovable();
    void setWidgetResizable(bool resizable);
    bool widgetResizable();
    void setRubberBandOnMove(bool on);
    bool rubberBandOnMove();
    void setRubberBandOnResize(bool on);
    bool rubberBandOnResisze();

    /// Process-wide; 0 leaves the value unchanged, values above 16384 (more
    /// than a screen shows) are clamped to it and logged.
    void setBorderWidth(uint width);
    uint borderWidth();
    void setTitleHeight(uint height);
    uint titleHeight();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void updateRubberBands();

    FramelessHelperState* d;
};

#endif // FRAMELESSHELPER_H
