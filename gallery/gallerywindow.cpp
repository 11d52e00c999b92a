#include "gallerywindow.h"

#include "chromepage.h"
#include "datetimepage.h"
#include "dialogspage.h"

#include <uicomponents/uxmessagebox.h>
#include "marketsimulator.h"
#include "quotespage.h"
#include "searchpage.h"

#include <uicomponents/uxkeyboradsprit.h>

#include <uicomponents/uxlooplabels.h>
#include <uxcore/uxcore.h>

#include <QActionGroup>
#include <iterator>
#include <memory>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QApplication>
#include <QDebug>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPointer>
#include <QMenuBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QThread>
#include <QTimer>
#include <QTranslator>

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

    buildDictionary();
    auto* quotes = new QuotesPage(m_market, statusBar(), m_stack);
    quotes->enableQuickSearch(m_dictionary);
    connect(quotes, &QuotesPage::openRequested, this, &GalleryWindow::openStringUrl);
    addPage(QStringLiteral("quotes"), QStringLiteral("行情报价"), quotes, [quotes] { quotes->typeOnTable(QStringLiteral("6")); },
            [quotes] { quotes->typeOnTable(QString()); });
    auto* search = new SearchPage(m_dictionary, m_stack);
    connect(UxKeyBoradSprit::initance(), &UxKeyBoradSprit::signalStockSelected, this,
            [this](const QString& url, int) { openStringUrl(url); });
    addPage(QStringLiteral("search"), QStringLiteral("快捷搜索"), search,
            [search] { search->typeInWizard(QStringLiteral("60")); }, [search] { search->typeInWizard(QString()); });
    addPage(QStringLiteral("datetime"), QStringLiteral("日期时间"), new DateTimePage(m_stack));
    auto* dialogs = new DialogsPage(m_stack);
    auto sampleBox = std::make_shared<QPointer<QWidget>>();
    addPage(QStringLiteral("dialogs"), QStringLiteral("对话框"), dialogs,
            [dialogs, sampleBox] { *sampleBox = dialogs->showSampleBox(); },
            [sampleBox] { if (*sampleBox) (*sampleBox)->close(); });
    auto* chrome = new ChromePage(m_stack);
    addPage(QStringLiteral("chrome"), QStringLiteral("窗口与标签"), chrome, [chrome] { chrome->openPopup(); },
            [chrome] { chrome->closePopup(); });

    connect(m_nav, &QListWidget::currentRowChanged, m_stack, &QStackedWidget::setCurrentIndex);
    m_nav->setCurrentRow(0);
    buildMenus();
    buildTicker();
    resize(1360, 820);
    UxCore::instance()->addStyle2View(this, QStringLiteral("gallery/gallery.css"));
}

void GalleryWindow::buildDictionary()
{
    // One record per instrument plus a few commands; the wizard, the overlay
    // and the line edits all search the same records, which we own.
    const int n = m_market->count();
    m_dictionaryItems.reserve(n + 3);
    for (int i = 0; i < n; ++i) {
        const MarketSimulator::Instrument& in = m_market->instrument(i);
        const QString kind = in.code.startsWith(QLatin1Char('3')) ? QStringLiteral("创业板")
            : in.market == 1                                    ? QStringLiteral("沪A")
                                                                 : QStringLiteral("深A");
        m_dictionaryItems.push_back({{kind, in.code, in.name, in.pinyin}, QStringLiteral("view://stock?code=") + in.code});
    }
    m_dictionaryItems.push_back({{QStringLiteral("功能"), QStringLiteral("60"), QStringLiteral("涨幅排名"), QStringLiteral("ZFPM")},
                                 QStringLiteral("view://rank?type=60")});
    m_dictionaryItems.push_back({{QStringLiteral("功能"), QStringLiteral("03"), QStringLiteral("上证指数"), QStringLiteral("SZZS")},
                                 QStringLiteral("view://index?code=000001")});
    m_dictionary.reserve(int(m_dictionaryItems.size()));
    for (quickMacroItem& item : m_dictionaryItems)
        m_dictionary.append(&item);
}

void GalleryWindow::buildTicker()
{
    m_ticker = new UxLoopLabels(this);
    m_ticker->setObjectName(QStringLiteral("galleryTicker"));
    m_ticker->setFixedHeight(24);
    m_ticker->setMinimumWidth(420);
    statusBar()->addWidget(m_ticker, 1);
    connect(m_ticker, &UxLoopLabels::sigClickedMsg, m_ticker, &UxLoopLabels::slotClickedMsg);
    // Notices keep arriving while the client runs.
    m_newsTimer = new QTimer(this);
    m_newsTimer->setInterval(6000);
    connect(m_newsTimer, &QTimer::timeout, this, &GalleryWindow::postNextMessage);
    for (int i = 0; i < 3; ++i)
        postNextMessage();
    m_newsTimer->start();
}

void GalleryWindow::postNextMessage()
{
    static const struct
    {
        const char* type;
        int level;
        const char* text;
    } news[] = {
        {"1", 0, "中华科技: 关于召开年度股东大会的通知"},
        {"2", 1, "价格预警: 东方能源 突破 12.50 元"},
        {"3", 4, "紧急公告: 南北银行 临时停牌"},
        {"4", 0, "研报: 光伏行业景气度持续回升"},
        {"1", 1, "异动: 金江证券 五分钟涨速超过 3%"},
        {"2", 0, "新股申购: 明德医药 今日申购"},
        {"3", 4, "风险提示: 康宁汽车 收到监管问询函"},
    };
    const auto& n = news[m_nextMessage % int(std::size(news))];
    tagMessage msg;
    msg.msgId = QString::number(m_nextMessage);
    msg.msgType = QString::fromLatin1(n.type);
    msg.level = n.level;
    msg.levelText = QString::number(n.level);
    msg.time = QDateTime::currentDateTime().addSecs(m_nextMessage).toString(QStringLiteral("yyyy/MM/dd hh:mm:ss"));
    msg.content = QString::fromUtf8(n.text);
    m_ticker->addMessages(msg);
    ++m_nextMessage;
}

GalleryWindow::~GalleryWindow()
{
    if (UxCore::instance()->mainWindow() == this)
        UxCore::instance()->setMainWindow(nullptr);
}

void GalleryWindow::addPage(const QString& id, const QString& caption, QWidget* page,
                            std::function<void()> beforeShot, std::function<void()> afterShot)
{
    page->setObjectName(id + QStringLiteral("Page"));
    m_pages.append({id, caption, page, std::move(beforeShot), std::move(afterShot)});
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
    QMenu* languages = menuBar()->addMenu(QStringLiteral("语言 Language(&L)"));
    m_languageGroup = new QActionGroup(this);
    const struct {
        const char* id;
        QString caption;
    } choices[] = {{"zh", QStringLiteral("中文")}, {"en", QStringLiteral("English")}};
    for (const auto& choice : choices) {
        QAction* a = languages->addAction(choice.caption);
        a->setCheckable(true);
        a->setChecked(QLatin1String(choice.id) == QLatin1String("zh"));
        a->setData(QLatin1String(choice.id));
        m_languageGroup->addAction(a);
        const QString id = QLatin1String(choice.id);
        connect(a, &QAction::triggered, this, [this, id] { switchLanguage(id); });
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

void GalleryWindow::switchLanguage(const QString& language)
{
    if (m_translator) {
        QCoreApplication::removeTranslator(m_translator);
        delete m_translator;
        m_translator = nullptr;
    }
    if (language == QLatin1String("en")) {
        // Beside the executable in the build tree, under share/ once installed.
        const QString dir = QCoreApplication::applicationDirPath();
        auto* translator = new QTranslator(this);
        for (const QString& folder : {dir + QStringLiteral("/translations"),
                                      dir + QStringLiteral("/../share/uicomponents/translations")}) {
            if (translator->load(QStringLiteral("uicomponents_en"), folder))
                break;
        }
        if (translator->isEmpty()) {
            qDebug() << Q_FUNC_INFO << "uicomponents_en.qm not found beside" << dir;
            delete translator;
        } else {
            m_translator = translator;
            QCoreApplication::installTranslator(m_translator);
        }
    }
    const QList<QAction*> actions = m_languageGroup ? m_languageGroup->actions() : QList<QAction*>();
    const QString shown = m_translator ? QStringLiteral("en") : QStringLiteral("zh");
    for (QAction* a : actions)
        a->setChecked(a->data().toString() == shown);
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
    // Without a window manager nothing activates the window, and focus-driven
    // widgets (the keyboard wizard) would never see their line edit focused.
    QApplication::setActiveWindow(this);
    // A still ticker: a roll caught half-way shows two lines on top of each other.
    m_ticker->barMsgEnable(false);
    m_newsTimer->stop();
    const QDeadlineTimer settle(1200);
    while (!settle.hasExpired())
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    bool ok = true;
    QStringList skins = UxCore::instance()->skinIds();
    if (skins.isEmpty())
        skins << startSkin; // no skin folder: the library's defaults only
    for (const QString& skin : qAsConst(skins)) {
        switchSkin(skin);
        for (int i = 0; i < m_pages.size(); ++i) {
            showPage(i);
            if (m_pages[i].beforeShot)
                m_pages[i].beforeShot();
            // Let timers, animations and pending layouts settle before grabbing.
            for (int n = 0; n < 10; ++n) {
                QApplication::processEvents();
                QThread::msleep(40);
            }
            const QString file = dir + QLatin1Char('/') + m_pages[i].id + QLatin1Char('-') + skin + QStringLiteral(".png");
            const QPixmap shot = grabWithPopups();
            if (m_pages[i].afterShot)
                m_pages[i].afterShot();
            if (!shot.save(file)) {
                qDebug() << Q_FUNC_INFO << "cannot write" << file;
                ok = false;
            }
        }
    }
    switchSkin(startSkin);
    return ok;
}

QPixmap GalleryWindow::grabWithPopups()
{
    // The window, with the pop-ups and dialogs that float over it painted in
    // where the user sees them.
    QPixmap shot = grab();
    QPainter painter(&shot);
    const QPoint origin = mapToGlobal(QPoint(0, 0));
    const QWidgetList tops = QApplication::topLevelWidgets();
    for (QWidget* w : tops) {
        if (w == this || !w->isVisible() || w->width() <= 1)
            continue;
        painter.drawPixmap(w->mapToGlobal(QPoint(0, 0)) - origin, w->grab());
    }
    return shot;
}
