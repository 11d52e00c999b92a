#include "uxtimepopwidget.h"

#include "uxcore.h"
#include "uxflowlayout.h"

#include <QCursor>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>

UxTimePopWidget::UxTimePopWidget(QWidget* parent, int kind)
    : QWidget(parent)
    , m_kind(kind)
    , m_btnCounts({{0, 24}, {1, 60}, {2, 60}})
{
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowFlags(Qt::SubWindow | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    setObjectName(QStringLiteral("TimePopWidget"));
    setupUi();
    UxCore::instance()->addStyle2View(this, QStringLiteral("controls/uicomponents.css"));
}

UxTimePopWidget::~UxTimePopWidget() = default;

void UxTimePopWidget::setupUi()
{
    auto* outer = new QHBoxLayout(this);
    outer->setContentsMargins(8, 8, 8, 8);
    outer->setSpacing(0);
    auto* flow = new UxFlowLayout(6, 0, 0);

    const int n = m_btnCounts.value(m_kind, 0);
    setFixedSize(229, m_kind == 0 ? 88 : 148);
    for (int i = 0; i < n; ++i) {
        auto* btn = new QPushButton(QStringLiteral("%1").arg(i, 2, 10, QLatin1Char('0')), this);
        btn->setFixedSize(20, 20);
        m_buttons.append(btn);
        flow->addWidget(btn);
        connect(btn, &QPushButton::clicked, this, &UxTimePopWidget::onBtnClicked);
    }
    outer->addLayout(flow);
    adjustSize();
}

void UxTimePopWidget::setCalendarPopWidget(QWidget* owner)
{
    m_owner = owner;
}

void UxTimePopWidget::setDateTime(const QDateTime& min, const QDateTime& max, const QDateTime& current)
{
    if (m_kind < 0 || m_kind > 2)
        return;
    const QTime now = current.time();
    for (QPushButton* btn : qAsConst(m_buttons)) {
        const int v = btn->text().toInt();
        QTime t;
        if (m_kind == 0)
            t = QTime(v, now.minute(), now.second());
        else if (m_kind == 1)
            t = QTime(now.hour(), v, now.second());
        else
            t = QTime(now.hour(), now.minute(), v);
        QDateTime candidate = current;
        candidate.setTime(t);
        btn->setEnabled(min <= candidate && candidate <= max);
    }
}

void UxTimePopWidget::onBtnClicked()
{
    auto* btn = qobject_cast<QPushButton*>(sender());
    if (!btn)
        return;
    emit signalTimeBtnClicked(btn->text());
}

void UxTimePopWidget::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    QStyleOption opt;
    opt.initFrom(this);
    QPainter p(this);
    style()->drawPrimitive(QStyle::PE_Widget, &opt, &p, this);
}

void UxTimePopWidget::showEvent(QShowEvent* event)
{
    setFocus(Qt::OtherFocusReason);
    QWidget::showEvent(event);
}

void UxTimePopWidget::focusOutEvent(QFocusEvent* event)
{
    if (containsPopWidget(this)) {
        setFocus(Qt::OtherFocusReason);
    } else {
        hide();
        // A click outside both the grid and the calendar frame closes both.
        if (m_owner && m_owner->isVisible()) {
            if (containsPopWidget(m_owner))
                m_owner->setFocus(Qt::OtherFocusReason);
            else
                m_owner->hide();
        }
    }
    QWidget::focusOutEvent(event);
}

bool UxTimePopWidget::containsPopWidget(QWidget* w) const
{
    if (!w)
        return false;
    const QRect global(w->mapToGlobal(QPoint(0, 0)), w->size());
    return global.contains(QCursor::pos());
}
