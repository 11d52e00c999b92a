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
    const bool scrolled = ui.scrollArea->widget() == ui.scrollAreaWidgetContents;
    // A calendar from a parent alone has its bottom bar below the four arrows.
    const bool calendar = ui.calendarTimeWidget->findChildren<QPushButton*>().size() > 4;
    std::printf("form: %s %d %d %d\n", pages && scrolled && calendar ? "ok" : "failed", pages, scrolled, calendar);
    return pages && scrolled && calendar ? 0 : 1;
}
