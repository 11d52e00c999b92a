#ifndef UXBOTTOMLABEL_H
#define UXBOTTOMLABEL_H

#include "uicomponents_export.h"
#include "uxmessagedefines.h"
#include "uxqtcompat.h"

#include <QColor>
#include <QLabel>

/// One line of the message ticker: date, time and text of a message in one
/// colour, elided at the right to half the main window's width (half the
/// parent's width when the client has no main window; shown whole when there
/// is neither). The tooltip shows the whole line. A click reports the message;
/// entering and leaving report the hover.
///
/// The click is reported last: a receiver may delete the line (with the whole
/// status bar) from inside it.
class UICOMPONENTS_EXPORT UxBottomLabel : public QLabel
{
    Q_OBJECT
public:
    explicit UxBottomLabel(const tagMessage& msg, QWidget* parent = nullptr);
    ~UxBottomLabel() override;

    void setMsgColor(const QColor& color);

Q_SIGNALS:
    void signalClicked(Message msg);
    void signalHovered(bool hover);

public Q_SLOTS:
    void setLabelData(const Message& msg);

protected:
    bool event(QEvent* e) override;
    void enterEvent(UxEnterEvent* e) override;
    void leaveEvent(QEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;

private:
    QColor m_msgColor;
    QString m_fullText;
    tagMessage m_msg;
    bool m_pressed;
};

#endif // UXBOTTOMLABEL_H
