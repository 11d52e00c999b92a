#ifndef FUZZCOMMON_H
#define FUZZCOMMON_H

// Shared set-up of the fuzz targets: an offscreen application created once,
// the library's debug chatter silenced (it would dominate the run time), and
// a check that aborts with a readable message, so libFuzzer saves the input.

#include <QApplication>
#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <cstdio>
#include <cstdlib>

namespace UxFuzz {

inline void quietHandler(QtMsgType type, const QMessageLogContext&, const QString& msg)
{
    // Debug and info lines are the library's documented logging of bad input.
    if (type == QtDebugMsg || type == QtInfoMsg)
        return;
    std::fprintf(stderr, "qt: %s\n", qPrintable(msg));
    if (type == QtFatalMsg)
        std::abort();
}

// Creates the application once; widgets need it, the parsers need only the
// meta-types it registers.
inline void init(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(quietHandler);
    static QApplication* app = new QApplication(*argc, *argv);
    Q_UNUSED(app);
}

[[noreturn]] inline void fail(const char* what, const QString& detail = QString())
{
    std::fprintf(stderr, "fuzz check failed: %s %s\n", what, qPrintable(detail));
    std::abort();
}

inline void check(bool ok, const char* what, const QString& detail = QString())
{
    if (!ok)
        fail(what, detail);
}

} // namespace UxFuzz

#endif // FUZZCOMMON_H
