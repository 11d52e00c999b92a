#ifndef UXANIMATIONSTACKEDWIDGET_H
#define UXANIMATIONSTACKEDWIDGET_H

#include "uicomponents_export.h"

#include <QEasingCurve>
#include <QStackedWidget>
#include <QVariant>

class QPropertyAnimation;
class QPainter;
class QTransform;

/// A stacked widget that changes pages with a slide: while the animation runs
/// it paints snapshots of the new and the old page moving together, and only
/// when it finishes does the current page really change and
/// signalFrameIndexChanged() report it.
///
/// setLength() sets the travel; a resize sets it from the new width, for the
/// vertical directions too. The direction is RightToLeft until setLength()
/// chooses another. A paused widget refuses new transitions, and after stop()
/// every start() is refused until resetNum(). start() with an index that names
/// no page is refused as well (and logged): there is no page to place and slide
/// in, and reporting that index would hand clients a page that does not exist.
class UICOMPONENTS_EXPORT UxAnimationStackedWidget : public QStackedWidget
{
    Q_OBJECT
public:
    enum AnimationType
    {
        BottomToTop = 0,
        TopToBottom = 1,
        LeftToRight = 2,
        RightToLeft = 3
    };
    Q_ENUM(AnimationType)

    explicit UxAnimationStackedWidget(QWidget* parent = nullptr);
    ~UxAnimationStackedWidget() override;

    void setLength(int length, AnimationType type);
    void stop();
    void setDuration(int ms);
    int getDuration() const;
    void setEasingCurve(const QEasingCurve& curve);

Q_SIGNALS:
    void signalFrameIndexChanged(int index);

public Q_SLOTS:
    void resetNum();
    void slotControlAni(bool paused);
    void start(int index);

private Q_SLOTS:
    void valueChanged(const QVariant& value);
    void animationFinished();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void renderCurrentWidget(QPainter& painter, QTransform& transform);
    void renderPreviousWidget(QPainter& painter, QTransform& transform);

private:
    QPoint entryPoint() const;

    bool m_isAnimating;
    double m_offset;
    bool m_paused;
    int m_currentIndex;
    int m_previousIndex;
    AnimationType m_type;
    QPropertyAnimation* m_animation;
};

#endif // UXANIMATIONSTACKEDWIDGET_H
