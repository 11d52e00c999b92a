// Prints the local date, time and zone a test process sees. The clock pass of
// scripts/run-tests.sh sets UX_CLOCK_EXPECT to the "yyyy-MM-dd hh:mm t" it
// asked faketime for; a mismatch fails, so a pass whose fake clock never
// reached the suites cannot go green.

#include <QDateTime>
#include <QString>

#include <cstdio>

int main()
{
    const QString now = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm t"));
    std::printf("clock_probe: %s\n", qPrintable(now));
    const QString expected = qEnvironmentVariable("UX_CLOCK_EXPECT");
    if (expected.isEmpty() || now == expected)
        return 0;
    std::printf("clock_probe: expected %s\n", qPrintable(expected));
    return 1;
}
