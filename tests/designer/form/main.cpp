// A client window laid out in Designer with the library's widgets.
#include "ui_clientform.h"

#include <QApplication>
#include <QPushButton>
#include <cstdio>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QWidget window;
    Ui::ClientForm ui;
    ui.setupUi(&window);
    window.show();
    app.processEvents();
    const bool pages = ui.animationStackedWidget->count() == 2 && ui.animationStackedWidget->widget(1) == ui.page_2;
    const bool scrolled = ui.scrollArea->widget() == ui.scrollAreaWidgetContents
        && ui.settingsLabel->parentWidget() == ui.scrollAreaWidgetContents;
    const bool calendarBottom = ui.calendarTimeWidget->findChildren<QPushButton*>().size() > 4;
    const bool sized = ui.customTableWidget->width() > ui.miniClockPannel->width();
    if (!pages || !scrolled || !calendarBottom || !sized) {
        std::printf("form: failed %d %d %d %d\n", pages, scrolled, calendarBottom, sized);
        return 1;
    }
    std::printf("form: ok\n");
    return 0;
}
