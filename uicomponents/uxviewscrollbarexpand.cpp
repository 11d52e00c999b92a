#include "uxviewscrollbarexpand.h"

#include "uxqtcompat.h"
#include "uxscheduler.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTableView>
#include <QTreeView>
#include <QWheelEvent>

namespace {
constexpr int kBarThickness = 8;
constexpr int kWheelStep = 20;
// Upper bound of the wheel test; deliberately fixed rather than the maximum.
constexpr int kWheelBound = 101;
constexpr uint kHideTaskId = 0;
} // namespace

UxViewScrollbarExpand::UxViewScrollbarExpand(QAbstractItemView* view, QObject* parent)
    : QObject(parent)
    , m_pView(view)
    , m_scrollbarStyle(QStringLiteral(
          "QScrollBar:vertical{background:rgba(126,154,248,0.2);}QScrollBar::handle:vertical{background:#C1C1C1;}"
          "QScrollBar:horizontal {            background:rgba(126,154,248,0.2);}                                  "
          "QScrollBar::handle:horizontal {    background:#C1C1C1;}"))
    , m_pScheduler(new UxScheduler(this))
    , m_stayTime(2000)
{
    if (!view)
        return;
    InitView();
    view->setAttribute(Qt::WA_MouseTracking);
    view->installEventFilter(this);
}

UxViewScrollbarExpand::~UxViewScrollbarExpand()
{
    m_pScheduler->CancelAll();
}

void UxViewScrollbarExpand::InitView()
{
    if (!m_pView)
        return;
    m_pView->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    m_pView->verticalScrollBar()->setSingleStep(28);
    m_pView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pView->setHorizontalScrollMode(QAbstractItemView::ScrollPerItem);
    if (!m_pVScrollBar) {
        // Only once: InitView may be called again.
        connect(m_pView.data(), &QAbstractItemView::clicked, this, [this]() {
            ShowScrollbar();
            UpdateScrollbarState();
        });
    }
    initVScrollbar();
    initHScrollbar();
}

void UxViewScrollbarExpand::HideScrollBar()
{
    if (m_pVScrollBar)
        m_pVScrollBar->hide();
    if (m_pHScrollBar)
        m_pHScrollBar->hide();
}

void UxViewScrollbarExpand::setScollbarStyle(const QString& style)
{
    m_scrollbarStyle = style;
}

QString UxViewScrollbarExpand::scollbarStyle() const
{
    return m_scrollbarStyle;
}

void UxViewScrollbarExpand::setScrollbarStayTime(unsigned int ms)
{
    m_stayTime = ms;
}

void UxViewScrollbarExpand::ShowScrollbar()
{
    if (!m_pView)
        return;
    if (m_pVScrollBar && m_pView->verticalScrollBar()->maximum() > 0)
        m_pVScrollBar->show();
    if (m_pHScrollBar && m_pView->horizontalScrollBar()->maximum() >= 1)
        m_pHScrollBar->show();
}

void UxViewScrollbarExpand::UpdateScrollbarState()
{
    // Every activity starts the stay time afresh.
    m_pScheduler->CancelAll();
    m_pScheduler->Schedule([this]() { HideScrollBar(); }, m_stayTime, kHideTaskId);
}

void UxViewScrollbarExpand::initScrollbar()
{
    initVScrollbar();
    initHScrollbar();
}

int UxViewScrollbarExpand::headerHeight() const
{
    QHeaderView* header = nullptr;
    if (auto* table = qobject_cast<QTableView*>(m_pView.data()))
        header = table->horizontalHeader();
    else if (auto* tree = qobject_cast<QTreeView*>(m_pView.data()))
        header = tree->header();
    if (!header)
        return 0;
    return header->height();
}

QScrollBar* UxViewScrollbarExpand::makeOverlay(Qt::Orientation orientation, QScrollBar* own, const char* slot)
{
    auto* bar = new QScrollBar(orientation, m_pView);
    if (orientation == Qt::Vertical) {
        bar->setObjectName(QStringLiteral("UxViewScrollbarExpandV"));
        bar->setFixedWidth(kBarThickness);
    } else {
        bar->setObjectName(QStringLiteral("UxViewScrollbarExpandH"));
        bar->setFixedHeight(kBarThickness);
    }
    bar->setTracking(false);
    bar->setRange(own->minimum(), own->maximum());
    bar->setValue(own->value());
    connect(bar, SIGNAL(sliderMoved(int)), this, slot);
    connect(bar, SIGNAL(valueChanged(int)), this, slot);
    connect(bar, &QScrollBar::sliderPressed, this, [this]() {
        ShowScrollbar();
        UpdateScrollbarState();
    });
    connect(own, &QScrollBar::valueChanged, bar, &QScrollBar::setValue);
    connect(own, &QScrollBar::rangeChanged, bar, &QScrollBar::setRange);
    bar->hide();
    return bar;
}

void UxViewScrollbarExpand::initVScrollbar()
{
    if (!m_pView)
        return;
    if (!m_pVScrollBar) {
        QScrollBar* own = m_pView->verticalScrollBar();
        m_pVScrollBar = makeOverlay(Qt::Vertical, own, SLOT(slotValueChanged(int)));
        // Owners listening to the view's own slider still see drags.
        connect(m_pVScrollBar, &QScrollBar::sliderPressed, own, &QScrollBar::sliderPressed);
        connect(m_pVScrollBar, &QScrollBar::sliderReleased, own, &QScrollBar::sliderReleased);
    }
    const int h = headerHeight();
    m_pVScrollBar->resize(m_pVScrollBar->width(), m_pView->height() - h);
    m_pVScrollBar->move(m_pView->width() - m_pVScrollBar->width(), h);
}

void UxViewScrollbarExpand::initHScrollbar()
{
    if (!m_pView)
        return;
    if (!m_pHScrollBar) {
        m_pView->horizontalScrollBar()->hide();
        m_pHScrollBar = makeOverlay(Qt::Horizontal, m_pView->horizontalScrollBar(),
                                    SLOT(slotHorizentalValueChanged(int)));
    }
    const int vWidth = m_pVScrollBar ? m_pVScrollBar->width() : 0;
    m_pHScrollBar->resize(m_pView->width() - vWidth, m_pHScrollBar->height());
    m_pHScrollBar->move(0, m_pView->height() - m_pHScrollBar->height());
}

void UxViewScrollbarExpand::slotValueChanged(int value)
{
    if (!m_pView)
        return;
    m_pView->verticalScrollBar()->setSliderPosition(value);
    UpdateScrollbarState();
}

void UxViewScrollbarExpand::slotHorizentalValueChanged(int value)
{
    if (!m_pView)
        return;
    m_pView->horizontalScrollBar()->setSliderPosition(value);
    UpdateScrollbarState();
}

bool UxViewScrollbarExpand::eventFilter(QObject* watched, QEvent* event)
{
    // Look at the type first: while the view is being destroyed its children
    // still send events through this filter, and by then the object is no
    // longer an item view, so the view pointer must not even be converted.
    switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::Wheel:
    case QEvent::Resize:
        break;
    default:
        return false;
    }
    if (!m_pView || watched != m_pView)
        return false;
    switch (event->type()) {
    case QEvent::MouseMove:
        tableMouseMoveEvent(static_cast<QMouseEvent*>(event));
        break;
    case QEvent::Enter:
        tableEnterEvent(event);
        break;
    case QEvent::Leave:
        tableLeaveEvent(event);
        break;
    case QEvent::Wheel:
        tableWheelEvent(static_cast<QWheelEvent*>(event));
        break;
    case QEvent::Resize:
        tableResizeEvent(static_cast<QResizeEvent*>(event));
        break;
    default:
        break;
    }
    return false;
}

void UxViewScrollbarExpand::tableEnterEvent(QEvent*)
{
    ShowScrollbar();
    UpdateScrollbarState();
}

void UxViewScrollbarExpand::tableLeaveEvent(QEvent*)
{
    UpdateScrollbarState();
}

void UxViewScrollbarExpand::tableMouseMoveEvent(QMouseEvent* e)
{
    const QPoint pos = e->pos();
    if (m_pVScrollBar && m_pVScrollBar->geometry().contains(pos))
        ShowScrollbar();
    else if (m_pHScrollBar && m_pHScrollBar->geometry().contains(pos))
        ShowScrollbar();
}

void UxViewScrollbarExpand::tableWheelEvent(QWheelEvent* e)
{
    if (!m_pView || !m_pVScrollBar || !m_pHScrollBar) {
        e->accept();
        return;
    }
    ShowScrollbar();
    QScrollBar* own = m_pView->verticalScrollBar();
    const int v = own->value();
    int value = v;
    if (e->angleDelta().y() < 0)
        value = (m_pVScrollBar->value() + kWheelStep >= kWheelBound) ? own->maximum() : v + kWheelStep;
    else if (e->angleDelta().y() > 0)
        value = (m_pVScrollBar->value() - kWheelStep < 0) ? own->minimum() : v - kWheelStep;
    m_pVScrollBar->setValue(value);
    UpdateScrollbarState();
    e->accept();
}

void UxViewScrollbarExpand::tableResizeEvent(QResizeEvent*)
{
    initScrollbar();
}
