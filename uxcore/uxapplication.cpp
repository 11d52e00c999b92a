#include "uxapplication.h"

#include "uxcore.h"

UxApplication::UxApplication(int& argc, char** argv)
    : QApplication(argc, argv)
{
}

UxApplication::~UxApplication() = default;

QWidget* UxApplication::uxmainWindow()
{
    return UxCore::instance()->mainWindow();
}
