// Saving the user column file must never lose it: a process killed at any
// moment of a save leaves either the old file or the new one, complete, and
// a damaged file is kept aside as ".bad" before a save replaces it.
//
// The test starts its own executable as a child ("--save-loop <file>") that
// saves two large column lists in turn as fast as it can, then SIGKILLs it
// after a random delay and reads what is on disk.

#include "uxtestenv.h"

#include "uxtabledatamanager.h"


#include <cstdio>

namespace {

// Two lists that survive a write and a read exactly, told apart by size and content.
QList<_TableHHeaderData> bigList(int columns, const QString& tag)
{
    QList<_TableHHeaderData> list;
    for (int i = 0; i < columns; ++i) {
        list.append(_TableHHeaderData());
        list.last().text = QStringLiteral("%1 列 %2").arg(tag).arg(i);
        list.last().feild = QStringLiteral("%1Field%2").arg(tag).arg(i);
        list.last().isShow = i % 3;
    }
    return list;
}

const QList<_TableHHeaderData> kListA = bigList(6000, QStringLiteral("A"));
const QList<_TableHHeaderData> kListB = bigList(4000, QStringLiteral("B"));

void quiet(QtMsgType, const QMessageLogContext&, const QString&) {}

} // namespace

class TstLostData : public QObject
{
    Q_OBJECT

    QString dir;
    quint32 seed = 0;
    QRandomGenerator rng;

    QString userFile() const { return dir + QStringLiteral("/userhsstocktable.json"); }

    // Starts the child on the user file, waits until it saves, kills it after
    // a random delay of up to MAXMS.
    void runAndKill(int maxMs)
    {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--save-loop"), userFile()});
        QVERIFY2(child.waitForStarted(30000), qPrintable(child.errorString()));
        QVERIFY(child.waitForReadyRead(60000));
        QVERIFY(child.readAllStandardOutput().startsWith("ready"));
        QTest::qSleep(int(rng.bounded(quint32(maxMs))) + 1);
        child.kill();
        QVERIFY(child.waitForFinished(30000));
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
    }

    bool holdsAList() // one of the two, complete
    {
        const QList<_TableHHeaderData> read = UxTableDataManager::getInstance()->getTableHeaderData(userFile());
        return read == kListA || read == kListB;
    }

private slots:
    void initTestCase()
    {
        seed = qEnvironmentVariableIsSet("UX_LOSTDATA_SEED") ? quint32(qEnvironmentVariableIntValue("UX_LOSTDATA_SEED"))
                                                             : QRandomGenerator::global()->generate();
        rng.seed(seed);
        qInfo("random seed %u (set UX_LOSTDATA_SEED to repeat)", seed);
    }

    // Intact: the file exists before the first kill, so "old" is always a
    // list, and it is never kept aside. Damaged: whenever the kill comes, the
    // damaged bytes are still somewhere, in the user file (nothing saved yet)
    // or in ".bad", and the user file is the damaged one, absent for an
    // instant, or a complete list.
    void killedWhileSaving_data()
    {
        QTest::addColumn<QByteArray>("damaged"); // empty: an intact file
        QTest::addColumn<int>("rounds");
        QTest::addColumn<int>("maxMs");
        QTest::newRow("intact file") << QByteArray() << 40 << 400;
        QTest::newRow("damaged file") << QByteArray("{\"horizontalHeader\":[{\"feild\":\"Now\",\"te") << 15 << 150;
    }
    void killedWhileSaving()
    {
        QFETCH(QByteArray, damaged);
        QFETCH(int, rounds);
        QFETCH(int, maxMs);
        dir = UxTest::rootDir() + QStringLiteral("/lostdata-") + QString::number(rounds);
        QDir(dir).removeRecursively();
        QDir().mkpath(dir);
        const QString aside = userFile() + QStringLiteral(".bad");
        UxTableDataManager* m = UxTableDataManager::getInstance();
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("file is not exists!")));
        m->setUserFileName(userFile());
        QVERIFY(m->saveUserConfig(kListB));
        for (int round = 0; round < rounds; ++round) {
            const QString where = QStringLiteral("round %1 (seed %2)").arg(round).arg(seed);
            if (!damaged.isEmpty()) {
                QFile::remove(aside);
                UxTest::writeFile(userFile(), damaged);
            }
            runAndKill(maxMs);
            if (QTest::currentTestFailed())
                return;
            if (!damaged.isEmpty() && UxTest::readFile(userFile()) == damaged) {
                QVERIFY2(!QFile::exists(aside), qPrintable(where));
                continue;
            }
            QCOMPARE(UxTest::readFile(aside), damaged);
            QVERIFY2(holdsAList() || (!damaged.isEmpty() && !QFile::exists(userFile())), qPrintable(where));
        }
        if (!damaged.isEmpty())
            return;
        // The next save removes the temporaries the killed saves left, and only those.
        UxTest::writeFile(userFile() + QStringLiteral(".Ab12Cd"), "left by a killed save");
        UxTest::writeFile(dir + QStringLiteral("/other.json.Ab12Cd"), "not ours");
        QVERIFY(m->saveUserConfig(kListA));
        QCOMPARE(QDir(dir).entryList(QDir::Files), QStringList({"other.json.Ab12Cd", "userhsstocktable.json"}));
    }
};

int main(int argc, char* argv[])
{
    // The child mode runs before any test set-up: it saves A and B in turn until it is killed.
    if (argc == 3 && qstrcmp(argv[1], "--save-loop") == 0) {
        QCoreApplication app(argc, argv);
        qInstallMessageHandler(quiet);
        UxTableDataManager* m = UxTableDataManager::getInstance();
        m->setUserFileName(QString::fromLocal8Bit(argv[2]));
        std::puts("ready");
        std::fflush(stdout);
        for (unsigned n = 0;; ++n)
            m->saveUserConfig(n % 2 ? kListB : kListA);
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
