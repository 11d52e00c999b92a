// An outside client: both umbrella headers, the host core and one exported
// class of the library, linked from the installed package.
#include <uicomponents/uicomponents.h>
#include <uxcore/uxcore.h>
#include <uxcore/uxqtcompat.h>

#include <QMetaType>
#include <QWidget>
#include <cstdio>

int main(int argc, char** argv)
{
    UxApplication app(argc, argv);
    QWidget window;
    UxCore::instance()->setMainWindow(&window);
    const bool typesRegistered = UxQtCompat::metaTypeId("TableData") == qMetaTypeId<_TableData>();
    const bool managerWorks = UxTableDataManager::getInstance()->getTableHeaderData().isEmpty();
    const bool hostWorks = UxApplication::uxmainWindow() == &window;
    UxMiniClockPannel clock(&window);
    const bool widgetWorks = clock.findChild<QObject*>(QStringLiteral("zoneMenu")) != nullptr;
    if (!typesRegistered || !managerWorks || !hostWorks || !widgetWorks) {
        std::printf("consumer: failed %d %d %d %d\n", typesRegistered, managerWorks, hostWorks, widgetWorks);
        return 1;
    }
    std::printf("consumer: ok\n");
    return 0;
}
