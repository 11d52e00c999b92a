#ifndef GALLERYWINDOW_H
#define GALLERYWINDOW_H

#include <uxcore/iuxskin.h>

#include <QMainWindow>
#include <QVector>

#include <functional>
#include <vector>

#include <uicomponents/quickmacroitem.h>

class QActionGroup;
class QLabel;
class QListWidget;
class QStackedWidget;
class MarketSimulator;
class QTimer;
class QTranslator;
class UxLoopLabels;

// The demo client's main window: registered with the host core, a skin menu
// that switches live, one page per widget family, and openStringUrl() for
// the pages the library asks the host to open.
class GalleryWindow : public QMainWindow, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    explicit GalleryWindow(QWidget* parent = nullptr);
    ~GalleryWindow() override;

    struct Page
    {
        QString id;      // file-name friendly
        QString caption; // shown in the navigation list
        QWidget* widget;
        // Opens the page's pop-ups before its screenshot and closes them after.
        std::function<void()> beforeShot;
        std::function<void()> afterShot;
    };
    const QVector<Page>& pages() const { return m_pages; }
    void showPage(int index);
    MarketSimulator* market() const { return m_market; }
    UxLoopLabels* ticker() const { return m_ticker; }

    // Renders every page in every skin to DIR/<page>-<skin>.png.
    bool writeScreenshots(const QString& dir);

    Q_INVOKABLE void openStringUrl(const QString& url);
    QString lastOpenedUrl() const { return m_lastUrl; }

public slots:
    void switchSkin(const QString& id);
    // "en" installs the library's English translation, anything else removes it.
    void switchLanguage(const QString& language);

private:
    void addPage(const QString& id, const QString& caption, QWidget* page,
                 std::function<void()> beforeShot = {}, std::function<void()> afterShot = {});
    QPixmap grabWithPopups();
    void buildMenus();
    void buildTicker();
    void postNextMessage();

    void buildDictionary();

    MarketSimulator* m_market = nullptr;
    std::vector<quickMacroItem> m_dictionaryItems;
    QVector<quickMacroItem*> m_dictionary;
    QListWidget* m_nav = nullptr;
    QStackedWidget* m_stack = nullptr;
    QLabel* m_urlLabel = nullptr;
    QActionGroup* m_skinGroup = nullptr;
    QActionGroup* m_languageGroup = nullptr;
    QTranslator* m_translator = nullptr;
    UxLoopLabels* m_ticker = nullptr;
    QTimer* m_newsTimer = nullptr;
    int m_nextMessage = 0;
    QVector<Page> m_pages;
    QString m_lastUrl;
};

#endif // GALLERYWINDOW_H
