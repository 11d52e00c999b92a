#include "uxscrollarea.h"

#include <QEvent>
#include <QScrollBar>

UxScrollArea::UxScrollArea(QWidget* parent)
    : QScrollArea(parent)
{
    setAttribute(Qt::WA_MouseTracking);
}

bool UxScrollArea::event(QEvent* e)
{
    if (e->type() == QEvent::Enter) {
        for (QScrollBar* bar : {verticalScrollBar(), horizontalScrollBar()}) {
            if (bar && !bar->isVisible())
                bar->show();
        }
    } else if (e->type() == QEvent::Leave) {
        for (QScrollBar* bar : {verticalScrollBar(), horizontalScrollBar()}) {
            if (bar && bar->isVisible())
                bar->hide();
        }
    }
    return QScrollArea::event(e);
}

void UxScrollArea::showEvent(QShowEvent* e)
{
    QScrollArea::showEvent(e);
    for (QScrollBar* bar : {verticalScrollBar(), horizontalScrollBar()}) {
        if (bar && bar->isVisible())
            bar->hide();
    }
}
