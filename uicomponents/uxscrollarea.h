#ifndef UXSCROLLAREA_H
#define UXSCROLLAREA_H

#include "uicomponents_export.h"

#include <QScrollArea>

/// A scroll area whose scroll bars stay hidden until the mouse is over it:
/// Enter shows each bar that is not visible, Leave hides each that is, and
/// showing the area hides the visible ones.
class UICOMPONENTS_EXPORT UxScrollArea : public QScrollArea
{
    Q_OBJECT
public:
    explicit UxScrollArea(QWidget* parent = nullptr);

protected:
    bool event(QEvent* e) override;
    void showEvent(QShowEvent* e) override;
};

#endif // UXSCROLLAREA_H
