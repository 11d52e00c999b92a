#include "uxtimeeditpopedit.h"

#include "uxtimepopwidget.h"

#include <QMouseEvent>

UxTimeEditPopEdit::UxTimeEditPopEdit(QWidget* parent, int kind)
    : QLineEdit(parent)
    , m_kind(kind)
{
    setContextMenuPolicy(Qt::NoContextMenu);
}

UxTimeEditPopEdit::~UxTimeEditPopEdit()
{
    // The grid is a parentless window: it goes with its field.
    delete m_popWidget;
}

void UxTimeEditPopEdit::setCalendarPopWidget(QWidget* owner)
{
    // Handed to the grid when it is first built.
    m_owner = owner;
}

void UxTimeEditPopEdit::setDateTime(const QDateTime& min, const QDateTime& max, const QDateTime& current)
{
    m_min = min;
    m_max = max;
    m_current = current;
    if (m_popWidget)
        m_popWidget->setDateTime(min, max, current);
}

void UxTimeEditPopEdit::mousePressEvent(QMouseEvent* event)
{
    QLineEdit::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        popTimeWidget();
}

void UxTimeEditPopEdit::popTimeWidget()
{
    if (!m_popWidget)
        initControl();
    // Always above the field, 28 px to its left, whatever the screen edge.
    QPoint pos = mapToGlobal(QPoint(-28, height()));
    pos.ry() -= height() + m_popWidget->height();
    m_popWidget->move(pos);
    m_popWidget->show();
}

void UxTimeEditPopEdit::initControl()
{
    m_popWidget = new UxTimePopWidget(nullptr, m_kind);
    m_popWidget->setDateTime(m_min, m_max, m_current);
    m_popWidget->setCalendarPopWidget(m_owner);
    connect(m_popWidget, &UxTimePopWidget::signalTimeBtnClicked, this, &UxTimeEditPopEdit::onSignalTimeBtnClicked);
    m_popWidget->hide();
}

void UxTimeEditPopEdit::onSignalTimeBtnClicked(const QString& text)
{
    setText(text);
    hideTimeWidget();
    emit signalTimeSelect(text.toInt());
}

void UxTimeEditPopEdit::hideTimeWidget()
{
    if (m_popWidget)
        m_popWidget->hide();
}
