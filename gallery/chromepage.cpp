#include "chromepage.h"

#include <uicomponents/framelesshelper.h>
#include <uicomponents/uxanimationstackedwidget.h>
#include <uicomponents/uxbaseshadowwidget.h>
#include <uicomponents/uxcustomtoolbutton.h>
#include <uicomponents/uxflowlayout.h>
#include <uicomponents/uxnewindentlabel.h>

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// The frameless pop-up: the shadow frame with a title row to drag it by.
class ShadowPopup : public UxBaseShadowWidget
{
public:
    explicit ShadowPopup(QWidget* parent)
        : UxBaseShadowWidget(parent)
    {
        setObjectName(QStringLiteral("galleryShadowPopup"));
        setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
        setAttribute(Qt::WA_TranslucentBackground);
        resize(360, 220);
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(22, 18, 22, 22);
        auto* title = new QLabel(QStringLiteral("可拖动的无边框窗口"), this);
        title->setObjectName(QStringLiteral("popupTitle"));
        layout->addWidget(title);
        auto* body = new QLabel(QStringLiteral("拖动标题区域移动窗口, 拖动边缘改变大小.\n阴影由八张图片拼成."), this);
        body->setObjectName(QStringLiteral("popupBody"));
        body->setWordWrap(true);
        layout->addWidget(body, 1);
        auto* close = new QPushButton(QStringLiteral("关闭"), this);
        connect(close, &QPushButton::clicked, this, &QWidget::hide);
        layout->addWidget(close, 0, Qt::AlignRight);

        auto* helper = new FramelessHelper(this);
        helper->activateOn(this);
        helper->setTitleHeight(40);
        helper->setWidgetMovable(true);
        helper->setWidgetResizable(true);
        setMinimumSize(240, 160);
    }
};

QLabel* slide(const QString& text, const QString& name)
{
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

} // namespace

ChromePage::ChromePage(QWidget* parent)
    : QWidget(parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(24, 24, 24, 24);
    grid->setSpacing(20);
    grid->addWidget(buildSlides(), 0, 0);
    grid->addWidget(buildLabels(), 0, 1);
    grid->addWidget(buildTags(), 1, 0, 1, 2);
    grid->setRowStretch(2, 1);
}

QWidget* ChromePage::buildSlides()
{
    auto* box = new QGroupBox(QStringLiteral("动画切换"), this);
    auto* layout = new QVBoxLayout(box);
    m_slides = new UxAnimationStackedWidget(box);
    m_slides->setObjectName(QStringLiteral("gallerySlides"));
    m_slides->setFixedHeight(140);
    m_slides->addWidget(slide(QStringLiteral("第一页: 沪深 A 股"), QStringLiteral("slideA")));
    m_slides->addWidget(slide(QStringLiteral("第二页: 创业板"), QStringLiteral("slideB")));
    m_slides->addWidget(slide(QStringLiteral("第三页: 自选股"), QStringLiteral("slideC")));
    m_slides->setDuration(450);
    layout->addWidget(m_slides);

    auto* buttons = new QHBoxLayout;
    const struct
    {
        const char* text;
        UxAnimationStackedWidget::AnimationType type;
    } directions[] = {{"↑ 自下而上", UxAnimationStackedWidget::BottomToTop},
                      {"↓ 自上而下", UxAnimationStackedWidget::TopToBottom},
                      {"→ 自左向右", UxAnimationStackedWidget::LeftToRight},
                      {"← 自右向左", UxAnimationStackedWidget::RightToLeft}};
    for (const auto& d : directions) {
        auto* b = new QPushButton(QString::fromUtf8(d.text), box);
        const auto type = d.type;
        connect(b, &QPushButton::clicked, this, [this, type] {
            const bool vertical = type == UxAnimationStackedWidget::BottomToTop
                || type == UxAnimationStackedWidget::TopToBottom;
            m_slides->setLength(vertical ? m_slides->height() : m_slides->width(), type);
            m_slides->start((m_slides->currentIndex() + 1) % m_slides->count());
        });
        buttons->addWidget(b);
    }
    layout->addLayout(buttons);
    connect(m_slides, &UxAnimationStackedWidget::signalFrameIndexChanged, this,
            [this](int index) { m_status->setText(QStringLiteral("当前页: %1").arg(index + 1)); });
    m_status = new QLabel(QStringLiteral("当前页: 1"), box);
    layout->addWidget(m_status);

    auto* popup = new QPushButton(QStringLiteral("打开无边框阴影窗口"), box);
    connect(popup, &QPushButton::clicked, this, &ChromePage::openPopup);
    layout->addWidget(popup);
    return box;
}

QWidget* ChromePage::buildLabels()
{
    auto* box = new QGroupBox(QStringLiteral("标签与按钮"), this);
    auto* layout = new QVBoxLayout(box);

    auto* indent = new UxNewIndentLabel(box);
    indent->setObjectName(QStringLiteral("galleryIndentLabel"));
    indent->setTextIndent(2);
    indent->setMsg(QStringLiteral("公告: 本公司董事会于今日审议通过了年度利润分配预案, 拟向全体股东每十股派发现金红利"
                                  "三元(含税), 同时以资本公积金向全体股东每十股转增四股. 该预案尚需提交股东大会审议, "
                                  "敬请广大投资者注意投资风险."));
    indent->setLink(QStringLiteral("更多"));
    indent->showLinkTextVisible(true);
    indent->setMinimumHeight(90);
    layout->addWidget(indent);

    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(QStringLiteral("筛选:"), box));
    auto* filter = new UxCustomToolButton(box);
    for (const char* text : {"全部", "沪市", "深市", "创业板", "科创板"})
        filter->addActionToMenu(QString::fromUtf8(text));
    filter->setDefaultActionChecked(QStringLiteral("全部"));
    row->addWidget(filter);
    auto* chosen = new QLabel(box);
    row->addWidget(chosen, 1);
    connect(filter, &UxCustomToolButton::clicked, this, [filter, chosen] {
        chosen->setText(QStringLiteral("已选: ") + filter->text());
    });
    layout->addLayout(row);
    layout->addStretch();
    return box;
}

QWidget* ChromePage::buildTags()
{
    auto* box = new QGroupBox(QStringLiteral("流式布局"), this);
    auto* flow = new UxFlowLayout(box, 10, 8, 8);
    for (const char* tag : {"新能源", "半导体", "人工智能", "白酒", "银行", "券商", "光伏", "储能", "医药生物",
                            "军工", "汽车整车", "消费电子", "数字经济", "高股息", "一带一路", "央企改革"}) {
        auto* b = new QPushButton(QString::fromUtf8(tag), box);
        b->setObjectName(QStringLiteral("galleryTag"));
        b->setCheckable(true);
        flow->addWidget(b);
    }
    return box;
}

void ChromePage::openPopup()
{
    if (!m_popup)
        m_popup = new ShadowPopup(this);
    m_popup->move(mapToGlobal(QPoint(width() / 2 - 180, height() - 280)));
    m_popup->show();
    m_popup->raise();
}

void ChromePage::closePopup()
{
    if (m_popup)
        m_popup->hide();
}
