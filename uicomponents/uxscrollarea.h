#ifndef UXSCROLLAREA_H
#define UXSCROLLAREA_H

#include "uicomponents_export.h"

#include <QScrollArea>

// A scroll area whose scroll bars stay hidden until the mouse is over it.
// The bars' own shown/hidden state is what counts, not whether their
// container happens to be on screen, so a bar that becomes needed while the
// mouse is away stays hidden.
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
