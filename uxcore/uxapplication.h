#ifndef UXAPPLICATION_H
#define UXAPPLICATION_H

#include "uxcore_export.h"

#include <QApplication>

/// The client's application class. uxmainWindow() is static so that library
/// code can ask for the main window whatever QApplication the client runs.
class UXCORE_EXPORT UxApplication : public QApplication
{
    Q_OBJECT
public:
    UxApplication(int& argc, char** argv);
    ~UxApplication() override;

    /// The main window registered with UxCore, or null when there is none.
    static QWidget* uxmainWindow();
};

#endif // UXAPPLICATION_H
