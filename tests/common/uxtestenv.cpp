#include "uxtestenv.h"

#include <QBuffer>
#include <QDir>
#include <QMouseEvent>
#include <QPainter>
#include <QFile>
#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>

namespace UxTest {

static QTemporaryDir& tempRoot()
{
    static QTemporaryDir dir;
    return dir;
}

QString rootDir()
{
    return tempRoot().path();
}

QString skinRoot()
{
    return rootDir() + QStringLiteral("/skins");
}

QString configDir()
{
    return rootDir() + QStringLiteral("/config");
}

QString writeFile(const QString& path, const QByteArray& content)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write %s", qPrintable(path));
    f.write(content);
    return path;
}

QByteArray readFile(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray();
    return f.readAll();
}

void writeSkin(const QString& id, const QMap<QString, QByteArray>& files)
{
    QDir().mkpath(skinRoot() + QLatin1Char('/') + id);
    for (auto it = files.constBegin(); it != files.constEnd(); ++it)
        writeFile(skinRoot() + QLatin1Char('/') + id + QLatin1Char('/') + it.key(), it.value());
}

void initEnvironment()
{
    if (!tempRoot().isValid())
        qFatal("no temporary directory");
    for (const char* id : {"light", "dark", "black"})
        writeSkin(QString::fromLatin1(id), {});
    QDir().mkpath(configDir());
    UxCore::instance()->setSkinRoot(skinRoot());
    UxCore::instance()->setCurrentSkin(QStringLiteral("light"));
    UxCfg::instance()->setPath(QString(), configDir());
}

void spin(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

bool spinUntil(const std::function<bool()>& cond, int ms)
{
    if (cond())
        return true;
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&]() {
        if (cond())
            loop.quit();
    });
    poll.start(5);
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
    return cond();
}

void sendMouse(QObject* target, QEvent::Type type, const QPoint& local, const QPoint& global,
               Qt::MouseButtons buttons)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton
        : buttons & Qt::RightButton                          ? Qt::RightButton
                                                             : Qt::LeftButton;
    if (type == QEvent::MouseButtonRelease)
        buttons = Qt::NoButton;
    QMouseEvent e(type, local, global, button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &e);
}

QStringList shadowPieces()
{
    return {QStringLiteral("top_left"), QStringLiteral("left"),      QStringLiteral("bottom_left"),
            QStringLiteral("top"),      QStringLiteral("bottom"),    QStringLiteral("right"),
            QStringLiteral("top_right"), QStringLiteral("bottom_right")};
}

QRgb shadowColour(int piece)
{
    static const QRgb colours[8] = {qRgb(255, 0, 0),   qRgb(0, 255, 0),   qRgb(0, 0, 255), qRgb(255, 255, 0),
                                    qRgb(0, 255, 255), qRgb(255, 0, 255), qRgb(128, 0, 0), qRgb(0, 128, 0)};
    return colours[piece];
}

void writeShadowSkin(const QString& id)
{
    QMap<QString, QByteArray> files;
    for (int i = 0; i < 8; ++i) {
        QImage image(4, 4, QImage::Format_RGB32);
        image.fill(shadowColour(i));
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        files.insert(QStringLiteral("bg/shadow_%1.png").arg(shadowPieces().at(i)), png);
    }
    writeSkin(id, files);
}

QImage shadowReference(const QSize& size, int b)
{
    const int w = size.width();
    const int h = size.height();
    const QRect rects[8] = {QRect(0, 0, b, b),         QRect(0, b, b, h - 2 * b),     QRect(0, h - b, b, b),
                            QRect(b, 0, w - 2 * b, b), QRect(b, h - b, w - 2 * b, b), QRect(w - b, b, b, h - 2 * b),
                            QRect(w - b, 0, b, b),     QRect(w - b, h - b, b, b)};
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    for (int i = 0; i < 8; ++i)
        p.fillRect(rects[i], QColor(shadowColour(i)));
    p.fillRect(QRect(0, 0, w, h).adjusted(b, b, -b, -b), Qt::white);
    return image;
}

QPoint shadowBandMismatch(const QImage& actual, int b)
{
    const QImage expected = shadowReference(actual.size(), b);
    const QRect body = QRect(QPoint(), actual.size()).adjusted(b, b, -b, -b);
    for (int y = 0; y < actual.height(); ++y)
        for (int x = 0; x < actual.width(); ++x)
            if (!body.contains(x, y) && actual.pixel(x, y) != expected.pixel(x, y))
                return QPoint(x, y);
    return QPoint(-1, -1);
}

} // namespace UxTest
