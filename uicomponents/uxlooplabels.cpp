#include "uxlooplabels.h"

#include "invokerbase.h"
#include "uxanimationstackedwidget.h"
#include "uxbottomlabel.h"
#include "uxcore.h"

#include <QDateTime>
#include <QDebug>
#include <QEasingCurve>
#include <QHBoxLayout>
#include <QTimerEvent>

UxLoopLabels::UxLoopLabels(QWidget* parent)
    : QWidget(parent)
    , m_stack(nullptr)
    , m_timerId(0)
    , m_contentLevel(0)
    , m_maxLoopLabels(5)
    , m_intervalTime(4000)
    , m_durationTime(1000)
{
    m_msgList.clear();
    m_contentLevel = 0;
    setObjectName(QStringLiteral("UxLoopLabels"));
    createWidgets();
    createLayouts();
    createConnects();
    startTimerOp(m_intervalTime);
}

UxLoopLabels::~UxLoopLabels()
{
    qDeleteAll(m_msgList);
}

void UxLoopLabels::createWidgets()
{
    m_stack = new UxAnimationStackedWidget(this);
    m_stack->setObjectName(QStringLiteral("loopLabelsStack"));
    m_stack->setMinimumWidth(200);
    m_stack->installEventFilter(this);
    if (!m_msgList.isEmpty())
        m_stack->addWidget(createLabel(*m_msgList.first()));
    m_stack->setEasingCurve(QEasingCurve::Linear);
    m_stack->setDuration(m_durationTime);
}

void UxLoopLabels::createLayouts()
{
    auto* layout = new QHBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_stack);
}

void UxLoopLabels::createConnects()
{
}

UxBottomLabel* UxLoopLabels::createLabel(const tagMessage& msg)
{
    auto* label = new UxBottomLabel(msg);
    label->setObjectName(QStringLiteral("UxBottomLabel"));
    return label;
}

QColor UxLoopLabels::getMsgColor(int level) const
{
    switch (level) {
    case 0:
        return m_normalColor;
    case 1:
        return m_importColor;
    case 4:
        return m_urgencyColor;
    default:
        return QColor(QStringLiteral("#878787"));
    }
}

void UxLoopLabels::rollTo(int index)
{
    // The ticker slides vertically, the new line coming in from above.
    m_stack->setLength(m_stack->height(), UxAnimationStackedWidget::TopToBottom);
    m_stack->start(index);
}

void UxLoopLabels::addMessages(const tagMessage& msg)
{
    if (isRepeatMsg(msg))
        return;

    if (m_msgList.size() < m_maxLoopLabels) {
        m_msgList.append(new tagMessage(msg));
        UxBottomLabel* label = createLabel(msg);
        connect(label, SIGNAL(signalClicked(Message)), this, SIGNAL(sigClickedMsg(Message)));
        connect(label, SIGNAL(signalHovered(bool)), m_stack, SLOT(slotControlAni(bool)));
        m_stack->addWidget(label);
        label->setMsgColor(getMsgColor(msg.level));
        label->setLabelData(msg);
        if (m_msgList.size() < 2)
            return;
        rollTo(m_msgList.size() - 1);
        return;
    }

    // Full: the newest goes in front, the last kept one is dropped. The click
    // connection below names the signal as a slot, which Qt refuses, so lines
    // added from now on do not forward clicks. Required behaviour: keep it.
    m_msgList.prepend(new tagMessage(msg));
    UxBottomLabel* label = createLabel(msg);
    connect(label, SIGNAL(signalClicked(Message)), this, "1sigClickedMsg(Message)");
    connect(label, SIGNAL(signalHovered(bool)), m_stack, SLOT(slotControlAni(bool)));
    m_stack->insertWidget(0, label);
    label->setMsgColor(getMsgColor(msg.level));
    if (m_stack->count() > 0) {
        // removeWidget() only hides the line: delete it, or a ticker fed all
        // day keeps every line it ever showed.
        QWidget* dropped = m_stack->widget(m_stack->count() - 1);
        m_stack->removeWidget(dropped);
        dropped->deleteLater();
    }
    delete m_msgList.takeLast();
    rollTo(0);
}

void UxLoopLabels::addMsgContents(const QString& content)
{
    tagMessage msg;
    msg.msgType = QStringLiteral("1");
    if (m_contentLevel >= 2) {
        msg.levelText = QStringLiteral("1");
        msg.level = 1;
    } else {
        msg.levelText = QStringLiteral("0");
        msg.level = 0;
    }
    msg.time = QDateTime::currentDateTime().toString(QStringLiteral("yyyy/MM/dd hh:mm:ss"));
    msg.content = content;
    addMessages(msg);
}

bool UxLoopLabels::isRepeatMsg(const Message& oldMsg)
{
    for (const tagMessage* kept : qAsConst(m_msgList)) {
        if (kept->time == oldMsg.time && kept->content == oldMsg.content)
            return true;
    }
    return false;
}

void UxLoopLabels::slotClickedMsg(const Message& msg)
{
    qDebug() << Q_FUNC_INFO << msg.content << " msgType " << msg.msgType;
    const int type = msg.msgType.toInt();
    const int id = (type >= 1 && type <= 4) ? type - 1 : 0;
    QString url = QStringLiteral("view://attentionpage?rootid=0&id=%1&attentionid=1").arg(id);
    InvokerBase invoker;
    invoker.addArgument(&url, "QString");
    invoker.invoke(UxCore::instance()->mainWindow(), "openStringUrl");
}

void UxLoopLabels::updateBarMsgNumOrTime()
{
    m_maxLoopLabels = 5;
    m_intervalTime = 3000;
    // Ends stopped: showEvent() or barMsgEnable(true) starts it again.
    startTimerOp(m_intervalTime);
    killTimerOp();
    qDeleteAll(m_msgList);
    m_msgList.clear();
    // Deleted, not merely removed: a ticker reset every day would otherwise
    // keep every line it ever showed.
    while (m_stack->count() > 0) {
        QWidget* line = m_stack->widget(0);
        m_stack->removeWidget(line);
        line->deleteLater();
    }
    m_stack->resetNum();
}

void UxLoopLabels::barMsgEnable(const bool& enable)
{
    if (!enable)
        killTimerOp();
    else if (m_timerId == 0)
        startTimerOp(m_intervalTime);
}

void UxLoopLabels::setTimerStatus(bool on)
{
    if (!on) {
        killTimerOp();
        return;
    }
    m_intervalTime = 3000;
    startTimerOp(m_intervalTime);
}

void UxLoopLabels::setIntervalTime(int ms)
{
    if (ms < 0) {
        qDebug() << Q_FUNC_INFO << "negative interval!" << ms;
        return;
    }
    m_intervalTime = ms;
    startTimerOp(ms);
}

void UxLoopLabels::setDurationTime(int ms)
{
    if (ms < 0) {
        qDebug() << Q_FUNC_INFO << "negative duration!" << ms;
        return;
    }
    const int value = ms == 0 ? 3000 : ms;
    if (value == m_durationTime)
        return;
    m_durationTime = value;
    m_intervalTime = value;
    startTimerOp(value);
}

void UxLoopLabels::setMaxLoopLabels(int n)
{
    m_maxLoopLabels = n;
}

void UxLoopLabels::setEasingCurve(const QEasingCurve& curve)
{
    if (m_stack)
        m_stack->setEasingCurve(curve);
}

QColor UxLoopLabels::normalColor() const
{
    return m_normalColor;
}

void UxLoopLabels::setNormalColor(const QColor& color)
{
    if (color != m_normalColor)
        m_normalColor = color;
}

QColor UxLoopLabels::importColor() const
{
    return m_importColor;
}

void UxLoopLabels::setImportColor(const QColor& color)
{
    if (color != m_importColor)
        m_importColor = color;
}

QColor UxLoopLabels::urgencyColor() const
{
    return m_urgencyColor;
}

void UxLoopLabels::setUrgencyColor(const QColor& color)
{
    if (color != m_urgencyColor)
        m_urgencyColor = color;
}

void UxLoopLabels::showEvent(QShowEvent* e)
{
    QWidget::showEvent(e);
    if (m_timerId == 0)
        startTimerOp(m_intervalTime);
}

void UxLoopLabels::hideEvent(QHideEvent* e)
{
    QWidget::hideEvent(e);
    killTimerOp();
}

void UxLoopLabels::timerEvent(QTimerEvent* e)
{
    const int n = m_msgList.size();
    if (n < 2 || e->timerId() != m_timerId)
        return;
    const int c = m_stack->currentIndex();
    rollTo(c == n - 1 ? 0 : c + 1);
}

// Restarts the roll timer with MS.
void UxLoopLabels::startTimerOp(int ms)
{
    killTimerOp();
    m_timerId = startTimer(ms, Qt::CoarseTimer);
}

void UxLoopLabels::killTimerOp()
{
    if (m_timerId != 0) {
        killTimer(m_timerId);
        m_timerId = 0;
    }
}
