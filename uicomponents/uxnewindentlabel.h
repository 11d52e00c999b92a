#ifndef UXNEWINDENTLABEL_H
#define UXNEWINDENTLABEL_H

#include "uicomponents_export.h"

#include <QLabel>
#include <QScopedPointer>

class UxNewIndentLabelPrivate;

/// A multi-line label that paints its message with a first-line indent of a
/// number of spaces and breaks it into as many lines as the label's height
/// holds, each cut at the last character that fits (no word boundaries). A
/// message longer than the label ends in an elided last line with the link
/// label (a "more" link, say) at its right end; a message that fits shows the
/// link only after showLinkTextVisible(true).
///
/// setMsg(), setTextIndent() and showLinkTextVisible() only change state; call
/// update() to see the change at once.
///
/// The link label is a child that a client may delete: it is then forgotten,
/// and linkLabel() or setLink() makes a new one. An indent above 16384 spaces
/// (wider than any screen) is clamped to that and logged, rather than letting
/// the text allocation abort the process.
class UICOMPONENTS_EXPORT UxNewIndentLabel : public QLabel
{
    Q_OBJECT
public:
    explicit UxNewIndentLabel(QWidget* parent = nullptr);
    ~UxNewIndentLabel() override;

    void setMsg(const QString& msg);
    /// A negative indent counts as none.
    void setTextIndent(int n);
    void setLink(const QString& text);
    void showLinkTextVisible(bool visible);
    QLabel* linkLabel();

protected:
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;

private:
    QString getTextOfSpecifiedWidth(QString& text, int width);

    QScopedPointer<UxNewIndentLabelPrivate> d_ptr;
    Q_DECLARE_PRIVATE(UxNewIndentLabel)
};

#endif // UXNEWINDENTLABEL_H
