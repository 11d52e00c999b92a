#include "gallerywindow.h"

#include "marketsimulator.h"
#include "quotespage.h"

#include <uxcore/uxcore.h>

#include <QActionGroup>
#include <QApplication>
#include <QDebug>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QThread>

GalleryWindow::GalleryWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_market(new MarketSimulator(3000, 20261121, this))
{
    setObjectName(QStringLiteral("GalleryWindow"));
    setWindowTitle(QStringLiteral("uicomponents 组件库"));
    UxCore::instance()->setMainWindow(this);

    auto* central = new QWidget(this);
    central->setObjectName(QStringLiteral("galleryCentral"));
    auto* layout = new QHBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_nav = new QListWidget(central);
    m_nav->setObjectName(QStringLiteral("galleryNav"));
    m_nav->setFixedWidth(150);
    m_stack = new QStackedWidget(central);
    m_stack->setObjectName(QStringLiteral("galleryPages"));
    layout->addWidget(m_nav);
    layout->addWidget(m_stack, 1);
    setCentralWidget(central);

    m_urlLabel = new QLabel(this);
    m_urlLabel->setObjectName(QStringLiteral("galleryUrlLabel"));
    statusBar()->addPermanentWidget(m_urlLabel);

    addPage(QStringLiteral("quotes"), QStringLiteral("行情报价"), new QuotesPage(m_market, statusBar(), m_stack));

    connect(m_nav, &QListWidget::currentRowChanged, m_stack, &QStackedWidget::setCurrentIndex);
    m_nav->setCurrentRow(0);
    buildMenus();
    resize(1360, 820);
}

GalleryWindow::~GalleryWindow()
{
    if (UxCore::instance()->mainWindow() == this)
        UxCore::instance()->setMainWindow(nullptr);
}

void GalleryWindow::addPage(const QString& id, const QString& caption, QWidget* page)
{
    page->setObjectName(id + QStringLiteral("Page"));
    m_pages.append({id, caption, page});
    m_stack->addWidget(page);
    m_nav->addItem(caption);
}

void GalleryWindow::showPage(int index)
{
    m_nav->setCurrentRow(index);
}

void GalleryWindow::buildMenus()
{
    QMenu* skins = menuBar()->addMenu(QStringLiteral("皮肤(&S)"));
    m_skinGroup = new QActionGroup(this);
    const QStringList ids = UxCore::instance()->skinIds();
    const QString current = UxCore::instance()->getCurrentSkinId();
    for (const QString& id : ids) {
        QAction* a = skins->addAction(id);
        a->setCheckable(true);
        a->setChecked(id == current);
        m_skinGroup->addAction(a);
        connect(a, &QAction::triggered, this, [this, id] { switchSkin(id); });
    }
    QMenu* help = menuBar()->addMenu(QStringLiteral("帮助(&H)"));
    help->addAction(QStringLiteral("关于"), this, [this] {
        openStringUrl(QStringLiteral("view://about"));
    });
}

void GalleryWindow::switchSkin(const QString& id)
{
    UxCore::instance()->setCurrentSkin(id);
    const QList<QAction*> actions = m_skinGroup ? m_skinGroup->actions() : QList<QAction*>();
    for (QAction* a : actions)
        a->setChecked(a->text() == id);
}

void GalleryWindow::openStringUrl(const QString& url)
{
    m_lastUrl = url;
    m_urlLabel->setText(QStringLiteral("打开: ") + url);
    statusBar()->showMessage(QStringLiteral("openStringUrl ") + url, 5000);
}

bool GalleryWindow::writeScreenshots(const QString& dir)
{
    if (!QDir().mkpath(dir)) {
        qDebug() << Q_FUNC_INFO << "cannot create" << dir;
        return false;
    }
    const QString startSkin = UxCore::instance()->getCurrentSkinId();
    bool ok = true;
    QStringList skins = UxCore::instance()->skinIds();
    if (skins.isEmpty())
        skins << startSkin; // no skin folder: the library's defaults only
    for (const QString& skin : qAsConst(skins)) {
        switchSkin(skin);
        for (int i = 0; i < m_pages.size(); ++i) {
            showPage(i);
            // Let timers, animations and pending layouts settle before grabbing.
            for (int n = 0; n < 8; ++n) {
                QApplication::processEvents();
                QThread::msleep(40);
            }
            const QString file = dir + QLatin1Char('/') + m_pages[i].id + QLatin1Char('-') + skin + QStringLiteral(".png");
            if (!grab().save(file)) {
                qDebug() << Q_FUNC_INFO << "cannot write" << file;
                ok = false;
            }
        }
    }
    switchSkin(startSkin);
    return ok;
}
