// The gallery client: a small but real host of the library.
//   uicomponents-gallery                    opens the window
//   uicomponents-gallery --screenshots DIR  writes DIR/<page>-<skin>.png and exits
//   uicomponents-gallery --language en      starts with the English translation

#include "gallerywindow.h"
#include "soakdriver.h"

#include <uxcore/uxcore.h>

#include <QCommandLineParser>
#include <QDebug>
#include <QDir>
#include <QFileInfo>

int main(int argc, char** argv)
{
    UxApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("uicomponents"));
    QCoreApplication::setApplicationName(QStringLiteral("uicomponents-gallery"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Every widget of uicomponents in a real host."));
    parser.addHelpOption();
    const QCommandLineOption shots(QStringLiteral("screenshots"),
                                   QStringLiteral("Render every page in every skin into <dir> and exit."),
                                   QStringLiteral("dir"));
    const QCommandLineOption skin(QStringLiteral("skin"), QStringLiteral("Skin to start with."), QStringLiteral("id"),
                                  QStringLiteral("light"));
    const QCommandLineOption soak(QStringLiteral("soak"),
                                  QStringLiteral("Run a compressed trading day for <seconds> and report memory."),
                                  QStringLiteral("seconds"));
    const QCommandLineOption language(QStringLiteral("language"),
                                      QStringLiteral("Language of the library's widgets: zh (default) or en."),
                                      QStringLiteral("code"), QStringLiteral("zh"));
    parser.addOption(shots);
    parser.addOption(language);
    parser.addOption(soak);
    parser.addOption(skin);
    parser.process(app);

    // The skins ship beside the executable; UXCORE_SKIN_ROOT wins when set.
    UxCore* core = UxCore::instance();
    if (qEnvironmentVariableIsEmpty("UXCORE_SKIN_ROOT")) {
        // Beside the executable in the build tree, under share/ once installed.
        const QString dir = QCoreApplication::applicationDirPath();
        const QString installed = dir + QStringLiteral("/../share/uicomponents/skins");
        core->setSkinRoot(QFileInfo(dir + QStringLiteral("/skins")).isDir() || !QFileInfo(installed).isDir()
                              ? dir + QStringLiteral("/skins")
                              : installed);
    }
    if (!QFileInfo(core->skinRoot() + QLatin1Char('/') + parser.value(skin)).isDir())
        qDebug() << "skin" << parser.value(skin) << "not found under" << core->skinRoot()
                 << "- falling back to the library's built-in styles";
    core->setCurrentSkin(parser.value(skin));

    GalleryWindow window;
    if (parser.value(language) != QLatin1String("zh"))
        window.switchLanguage(parser.value(language));
    window.show();
    if (parser.isSet(shots))
        return window.writeScreenshots(parser.value(shots)) ? 0 : 1;
    if (parser.isSet(soak)) {
        auto* driver = new SoakDriver(&window, qMax(10, parser.value(soak).toInt()), &window);
        QObject::connect(driver, &SoakDriver::finished, &app, [](bool stable) { QCoreApplication::exit(stable ? 0 : 1); });
        driver->start();
    }
    return app.exec();
}
