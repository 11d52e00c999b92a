#include "uxtestenv.h"

#include <QtGui>

namespace UxTest {

QString rootDir()
{
    static QTemporaryDir dir;
    if (!dir.isValid())
        qFatal("no temporary directory");
    return dir.path();
}
QString skinRoot() { return rootDir() + QStringLiteral("/skins"); }
QString configDir() { return rootDir() + QStringLiteral("/config"); }

QString writeFile(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

QByteArray readFile(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void writeSkin(const QString& id, const QMap<QString, QByteArray>& files)
{
    QDir().mkpath(skinRoot() + QLatin1Char('/') + id);
    for (auto it = files.constBegin(); it != files.constEnd(); ++it)
        writeFile(skinRoot() + QLatin1Char('/') + id + QLatin1Char('/') + it.key(), it.value());
}

void initEnvironment()
{
    for (const char* id : {"light", "dark", "black"})
        writeSkin(QString::fromLatin1(id), {});
    QDir().mkpath(configDir());
    UxCore::instance()->setSkinRoot(skinRoot());
    UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
    UxCfg::instance()->setPath(QString(), configDir());
    // Qt 6 sends Enter to a window shown under the pointer; keep the pointer
    // off every test window so hover starts only when a test sends it.
    QCursor::setPos(-10000, -10000);
}

void spin(int ms)
{
    spinUntil([] { return false; }, ms);
}

bool spinUntil(const std::function<bool()>& cond, int ms)
{
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&]() {
        if (cond())
            loop.quit();
    });
    poll.start(5);
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    if (!cond())
        loop.exec();
    return cond();
}

void sendMouse(QObject* target, QEvent::Type type, const QPoint& local, const QPoint& global, Qt::MouseButtons buttons)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton
        : buttons & Qt::RightButton                          ? Qt::RightButton
                                                             : Qt::LeftButton;
    QMouseEvent e(type, local, global, button, type == QEvent::MouseButtonRelease ? Qt::NoButton : buttons,
                  Qt::NoModifier);
    QCoreApplication::sendEvent(target, &e);
}

} // namespace UxTest
