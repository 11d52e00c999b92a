// A minimal host: registers its main window and skins with the host core and
// lists the template file's columns. Replaced by the full gallery later.

#include <uxcore/uxcore.h>
#include <uicomponents/uicomponents.h>

#include <QCoreApplication>
#include <QHeaderView>
#include <QMainWindow>
#include <QStandardItemModel>
#include <QTableView>

int main(int argc, char** argv)
{
    UxApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("uicomponents-gallery"));

    UxCore::instance()->setSkinRoot(QCoreApplication::applicationDirPath() + QStringLiteral("/skins"));
    UxCore::instance()->setCurrentSkin(QStringLiteral("light"));

    QMainWindow window;
    UxCore::instance()->setMainWindow(&window);
    window.setWindowTitle(QStringLiteral("uicomponents gallery"));

    UxTableDataManager* manager = UxTableDataManager::getInstance();
    manager->setFileName(QCoreApplication::applicationDirPath() + QStringLiteral("/config/hsstocktemplatetable.json"));
    const QList<_TableHHeaderData> columns = manager->getTableHeaderData();

    auto* model = new QStandardItemModel(0, 4, &window);
    model->setHorizontalHeaderLabels({QStringLiteral("text"), QStringLiteral("feild"), QStringLiteral("isShow"),
                                      QStringLiteral("alignment")});
    for (const _TableHHeaderData& h : columns) {
        model->appendRow({new QStandardItem(h.text), new QStandardItem(h.feild),
                          new QStandardItem(h.isShow ? QStringLiteral("yes") : QStringLiteral("no")),
                          new QStandardItem(QString::number(int(h.alignment)))});
    }
    auto* view = new QTableView(&window);
    view->setModel(model);
    view->horizontalHeader()->setStretchLastSection(true);
    window.setCentralWidget(view);
    window.resize(640, 480);
    window.show();
    return app.exec();
}
