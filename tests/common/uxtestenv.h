#ifndef UXTESTENV_H
#define UXTESTENV_H

// Shared set-up for the test suites: a UxApplication, a temporary skin root
// and configuration folder, and small file helpers. Tests never touch the
// source tree or the user's real configuration.

#include <uxcore/uxcore.h>

#include <QtTest>

#include <functional>

namespace UxTest {

// The temporary root that holds "skins/" and "config/" for this process.
QString rootDir();
QString skinRoot();
QString configDir();

// Writes FILES (relative path -> content) into skin ID under the skin root.
void writeSkin(const QString& id, const QMap<QString, QByteArray>& files);
// Writes CONTENT to PATH, creating folders; returns PATH.
QString writeFile(const QString& path, const QByteArray& content);
QByteArray readFile(const QString& path);

// Called by UX_TEST_MAIN before the tests run: points UxCore and UxCfg at
// fresh temporary folders with three empty skins "light", "dark", "black".
void initEnvironment();
// Runs a real event loop for MS milliseconds. QTest::qWait sleeps between
// batches of events, which starves 1 ms timers such as the scheduler's.
void spin(int ms);
// Runs the event loop until COND holds or MS pass; returns COND's last value.
bool spinUntil(const std::function<bool()>& cond, int ms);

// Sends one synthetic mouse event with explicit local and global positions
// (a move carries the left button as held while BUTTONS says so).
void sendMouse(QObject* target, QEvent::Type type, const QPoint& local, const QPoint& global,
               Qt::MouseButtons buttons = Qt::LeftButton);

} // namespace UxTest

#define UX_TEST_MAIN(TestObject)                                                                                 \
    int main(int argc, char* argv[])                                                                             \
    {                                                                                                            \
        qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen")              \
                                                                           : qgetenv("QT_QPA_PLATFORM"));       \
        UxApplication app(argc, argv);                                                                           \
        app.setAttribute(Qt::AA_Use96Dpi, true);                                                                 \
        UxTest::initEnvironment();                                                                               \
        TestObject tc;                                                                                           \
        QTEST_SET_MAIN_SOURCE_PATH                                                                               \
        return QTest::qExec(&tc, argc, argv);                                                                    \
    }

#endif // UXTESTENV_H
