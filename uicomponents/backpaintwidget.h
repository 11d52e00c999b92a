#ifndef BACKPAINTWIDGET_H
#define BACKPAINTWIDGET_H

#include "iuxskin.h"

#include <QPointer>
#include <QWidget>

class UxCalendarTimeWidget;

// The borderless frame that carries a drop-down calendar. It paints its style
// sheet's background and border, and hides itself when the focus leaves it
// with the mouse outside (a click elsewhere); clicks on its own controls keep
// it open.
class BackPaintWidget : public QWidget, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    explicit BackPaintWidget(QWidget* parent = nullptr);
    ~BackPaintWidget() override;

    QWidget* widget() override;
    void loadSkin(const QVariant& style) override;

    void setCalendar(UxCalendarTimeWidget* calendar);
    UxCalendarTimeWidget* calendar() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    QPointer<UxCalendarTimeWidget> m_calendar;
};

#endif // BACKPAINTWIDGET_H
