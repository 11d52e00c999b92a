// Saving the user column file must never lose it: a process killed at any
// moment of a save leaves either the old file or the new one, complete, and
// a damaged file is kept aside as ".bad" before a save replaces it.
//
// The test starts its own executable as a child ("--save-loop <file>") that
// saves two large column lists in turn as fast as it can, then SIGKILLs it
// after a random delay and reads what is on disk.

#include "uxtestenv.h"

#include "uxtabledatamanager.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>

#include <cstdio>

namespace {

// Two lists that survive a write and a read exactly (valid colours, one
// alignment enumerator each), told apart by size and content.
QList<_TableHHeaderData> bigList(int columns, const QString& tag)
{
    QList<_TableHHeaderData> list;
    for (int i = 0; i < columns; ++i) {
        _TableHHeaderData h;
        h.text = QStringLiteral("%1 列 %2").arg(tag).arg(i);
        h.feild = QStringLiteral("%1Field%2").arg(tag).arg(i);
        h.isShow = i % 3 != 0;
        h.isChangeColor = i % 2 == 0;
        h.riseColor = QColor(QStringLiteral("#e53935"));
        h.fallColor = QColor(QStringLiteral("#1e9e50"));
        h.alignment = i % 2 ? Qt::AlignRight : Qt::AlignLeft;
        list.append(h);
    }
    return list;
}

const QList<_TableHHeaderData>& listA()
{
    static const QList<_TableHHeaderData> list = bigList(6000, QStringLiteral("A"));
    return list;
}

const QList<_TableHHeaderData>& listB()
{
    static const QList<_TableHHeaderData> list = bigList(4000, QStringLiteral("B"));
    return list;
}

void quiet(QtMsgType, const QMessageLogContext&, const QString&) {}

// The child: saves A and B in turn until it is killed.
int saveLoop(const QString& file)
{
    qInstallMessageHandler(quiet);
    UxTableDataManager* m = UxTableDataManager::getInstance();
    m->setUserFileName(file);
    std::puts("ready");
    std::fflush(stdout);
    for (unsigned n = 0;; ++n)
        m->saveUserConfig(n % 2 ? listB() : listA());
}

} // namespace

class TstLostData : public QObject
{
    Q_OBJECT

    QString dir;
    quint32 seed = 0;
    QRandomGenerator rng;

    QString userFile() const { return dir + QStringLiteral("/userhsstocktable.json"); }

    // Starts the child on FILE, waits until it saves, kills it after a
    // random delay of up to MAXMS.
    void runAndKill(const QString& file, int maxMs)
    {
        QProcess child;
        child.setProgram(QCoreApplication::applicationFilePath());
        child.setArguments({QStringLiteral("--save-loop"), file});
        child.setProcessChannelMode(QProcess::SeparateChannels);
        child.start();
        QVERIFY2(child.waitForStarted(30000), qPrintable(child.errorString()));
        QVERIFY(child.waitForReadyRead(60000));
        QVERIFY(child.readAllStandardOutput().startsWith("ready"));
        QTest::qSleep(int(rng.bounded(quint32(maxMs))) + 1);
        child.kill();
        QVERIFY(child.waitForFinished(30000));
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
    }

    // Which of the two lists FILE holds: 'A', 'B', or 0 for anything else.
    char whichList(const QString& file)
    {
        const QList<_TableHHeaderData> read = UxTableDataManager::getInstance()->getTableHeaderData(file);
        if (read == listA())
            return 'A';
        if (read == listB())
            return 'B';
        return 0;
    }

private slots:
    void initTestCase()
    {
        seed = qEnvironmentVariableIsSet("UX_LOSTDATA_SEED") ? quint32(qEnvironmentVariableIntValue("UX_LOSTDATA_SEED"))
                                                             : QRandomGenerator::global()->generate();
        rng.seed(seed);
        qInfo("random seed %u (set UX_LOSTDATA_SEED to repeat)", seed);
    }

    void init()
    {
        dir = UxTest::rootDir() + QStringLiteral("/lostdata-") + QString::fromLatin1(QTest::currentTestFunction());
        QDir(dir).removeRecursively();
        QDir().mkpath(dir);
    }

    void killedWhileSaving()
    {
        // The file exists before the first kill, so "old" is always a list.
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("file is not exists!")));
        UxTableDataManager::getInstance()->setUserFileName(userFile());
        QVERIFY(UxTableDataManager::getInstance()->saveUserConfig(listB()));
        int seenA = 0;
        int seenB = 0;
        for (int round = 0; round < 40; ++round) {
            runAndKill(userFile(), 400);
            if (QTest::currentTestFailed())
                return;
            const char which = whichList(userFile());
            QVERIFY2(which, qPrintable(QStringLiteral("round %1 (seed %2): the user file is neither list, %3 bytes")
                                           .arg(round)
                                           .arg(seed)
                                           .arg(QFileInfo(userFile()).size())));
            which == 'A' ? ++seenA : ++seenB;
        }
        qInfo("after 40 kills: %d times the first list, %d times the second", seenA, seenB);
        // An intact file is never kept aside, and the next save removes the
        // temporaries the killed saves left (and only those).
        QVERIFY(!QFile::exists(userFile() + QStringLiteral(".bad")));
        UxTest::writeFile(userFile() + QStringLiteral(".Ab12Cd"), "left by a killed save");
        UxTest::writeFile(dir + QStringLiteral("/other.json.Ab12Cd"), "not ours");
        QVERIFY(UxTableDataManager::getInstance()->saveUserConfig(listA()));
        QCOMPARE(QDir(dir).entryList(QDir::Files),
                 QStringList({QStringLiteral("other.json.Ab12Cd"), QStringLiteral("userhsstocktable.json")}));
    }

    void killedWhileReplacingADamagedFile()
    {
        // A damaged file is kept as ".bad" before the first save. Whenever the
        // kill comes, the damaged bytes are still somewhere: in the user file
        // (nothing saved yet) or in ".bad", and the user file is either the
        // damaged one, absent for an instant, or a complete list.
        const QByteArray damaged = "{\"horizontalHeader\":[{\"feild\":\"Now\",\"te";
        for (int round = 0; round < 15; ++round) {
            QFile::remove(userFile() + QStringLiteral(".bad"));
            UxTest::writeFile(userFile(), damaged);
            runAndKill(userFile(), 150);
            if (QTest::currentTestFailed())
                return;
            const QByteArray now = UxTest::readFile(userFile());
            const QByteArray aside = UxTest::readFile(userFile() + QStringLiteral(".bad"));
            if (now == damaged) {
                QVERIFY(!QFile::exists(userFile() + QStringLiteral(".bad")));
                continue;
            }
            QCOMPARE(aside, damaged);
            if (QFile::exists(userFile()))
                QVERIFY2(whichList(userFile()), qPrintable(QStringLiteral("round %1 (seed %2)").arg(round).arg(seed)));
        }
    }
};

int main(int argc, char* argv[])
{
    // The child mode runs before any test set-up: it only needs the manager.
    if (argc == 3 && qstrcmp(argv[1], "--save-loop") == 0) {
        QCoreApplication app(argc, argv);
        return saveLoop(QString::fromLocal8Bit(argv[2]));
    }
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? QByteArray("offscreen")
                                                                     : qgetenv("QT_QPA_PLATFORM"));
    UxApplication app(argc, argv);
    app.setAttribute(Qt::AA_Use96Dpi, true);
    UxTest::initEnvironment();
    TstLostData tc;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&tc, argc, argv);
}

#include "tst_lostdata.moc"
