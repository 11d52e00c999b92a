#ifndef UXLOOPLABELS_H
#define UXLOOPLABELS_H

#include "uicomponents_export.h"
#include "uxmessagedefines.h"

#include <QColor>
#include <QList>
#include <QWidget>

class QEasingCurve;
class UxAnimationStackedWidget;
class UxBottomLabel;

/// The status bar's message ticker: keeps the latest few messages and rolls
/// one line into view every interval (4000 ms, a 1000 ms slide). Hovering a
/// line pauses the roll; clicking it emits sigClickedMsg(), which the client
/// connects to slotClickedMsg() to open the message's attention page through
/// the main window's openStringUrl(QString).
///
/// The first setMaxLoopLabels() messages are kept in arrival order; after that
/// the newest goes in front and the last kept one is dropped. Clicks on lines
/// that arrive while the ticker is full are not forwarded (their connection is
/// refused by design). A message with the same time and content as a kept one
/// is dropped. The level colours come from the properties below, set from the
/// client's style sheet (qproperty-normalColor...); other levels are grey.
/// Negative intervals and durations are ignored (and logged). Lines dropped
/// when the ticker is full and lines cleared by updateBarMsgNumOrTime() are
/// deleted, not just taken out of the stack, so that a ticker fed all day does
/// not grow without bound.
class UICOMPONENTS_EXPORT UxLoopLabels : public QWidget
{
    Q_OBJECT
    // Style properties: the sheet sets them once (qproperty-...) and nothing
    // watches them, so they carry no NOTIFY signal.
    Q_PROPERTY(QColor normalColor READ normalColor WRITE setNormalColor) // clazy:exclude=qproperty-without-notify
    Q_PROPERTY(QColor importColor READ importColor WRITE setImportColor) // clazy:exclude=qproperty-without-notify
    Q_PROPERTY(QColor urgencyColor READ urgencyColor WRITE setUrgencyColor) // clazy:exclude=qproperty-without-notify
public:
    explicit UxLoopLabels(QWidget* parent = nullptr);
    ~UxLoopLabels() override;

    void addMessages(const tagMessage& msg);
    void addMsgContents(const QString& content);
    Q_INVOKABLE bool isRepeatMsg(const Message& oldMsg);

    void barMsgEnable(const bool& enable);
    void setTimerStatus(bool on);
    void setIntervalTime(int ms);
    void setDurationTime(int ms);
    void setMaxLoopLabels(int n);
    void setEasingCurve(const QEasingCurve& curve);

    QColor normalColor() const;
    void setNormalColor(const QColor& color);
    QColor importColor() const;
    void setImportColor(const QColor& color);
    QColor urgencyColor() const;
    void setUrgencyColor(const QColor& color);

Q_SIGNALS:
    void sigClickedMsg(Message clickedMsg);

public Q_SLOTS:
    void slotClickedMsg(const Message& msg);
    void updateBarMsgNumOrTime();

protected:
    void showEvent(QShowEvent* e) override;
    void hideEvent(QHideEvent* e) override;
    void timerEvent(QTimerEvent* e) override;

private:
    void createWidgets();
    void createLayouts();
    void createConnects();
    QColor getMsgColor(int level) const;
    UxBottomLabel* createLabel(const tagMessage& msg);
    void startTimerOp(int ms);
    void killTimerOp();
    void rollTo(int index);

    UxAnimationStackedWidget* m_stack;
    int m_timerId;
    int m_contentLevel;
    int m_maxLoopLabels;
    int m_intervalTime;
    int m_durationTime;
    QList<tagMessage*> m_msgList;
    QColor m_normalColor;
    QColor m_importColor;
    QColor m_urgencyColor;
};

#endif // UXLOOPLABELS_H
