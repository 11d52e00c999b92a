#ifndef UXVIEWSCROLLBAREXPAND_H
#define UXVIEWSCROLLBAREXPAND_H

#include "uicomponents_export.h"

#include <QObject>
#include <QPointer>
#include <QString>

class QAbstractItemView;
class QEvent;
class QMouseEvent;
class QResizeEvent;
class QScrollBar;
class QWheelEvent;
class UxScheduler;

/// Replaces an item view's own scroll bars by two thin overlay bars drawn over
/// its right and bottom edges. The overlays show up when the mouse enters the
/// view, moves over them, wheels or drags, and hide again a fixed time
/// (2000 ms by default) after the last activity.
///
/// A wheel step moves the view by 20 (items, as the view scrolls per item);
/// a step down from an overlay value of 81 or more jumps to the end.
///
/// Our choices:
/// - setScollbarStyle() only keeps the text: the owner's skin styles the
///   overlays (they are plain QScrollBars, children of the view), and a caller
///   that has no skin can apply scollbarStyle() to them itself.
/// - The view, the overlays and pending hides are guarded: the view may be
///   destroyed before this object.
class UICOMPONENTS_EXPORT UxViewScrollbarExpand : public QObject
{
    Q_OBJECT
public:
    explicit UxViewScrollbarExpand(QAbstractItemView* view, QObject* parent = nullptr);
    ~UxViewScrollbarExpand() override;

    void InitView();
    void HideScrollBar();
    void setScollbarStyle(const QString& style);
    QString scollbarStyle() const;
    void setScrollbarStayTime(unsigned int ms);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void tableEnterEvent(QEvent* e);
    void tableLeaveEvent(QEvent* e);
    void tableMouseMoveEvent(QMouseEvent* e);
    void tableWheelEvent(QWheelEvent* e);
    void tableResizeEvent(QResizeEvent* e);

private:
    void ShowScrollbar();
    void UpdateScrollbarState();
    void initScrollbar();
    void initVScrollbar();
    void initHScrollbar();
    int headerHeight() const;
    QScrollBar* makeOverlay(Qt::Orientation orientation, QScrollBar* own, const char* slot);

private Q_SLOTS:
    void slotValueChanged(int value);
    void slotHorizentalValueChanged(int value);

private:
    QPointer<QAbstractItemView> m_pView;
    QPointer<QScrollBar> m_pVScrollBar;
    QPointer<QScrollBar> m_pHScrollBar;
    QString m_scrollbarStyle;
    UxScheduler* m_pScheduler = nullptr;
    unsigned int m_stayTime = 2000;
};

#endif // UXVIEWSCROLLBAREXPAND_H
