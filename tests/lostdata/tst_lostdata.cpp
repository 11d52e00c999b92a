// Saving the user column file must never lose it: a child of this executable ("--save-loop <file>")
// saves two large lists in turn until it is SIGKILLed after a random delay; then the disk is read.

#include "uxtestenv.h"

#include "uxtabledatamanager.h"


#include <cstdio>

namespace {

// Two lists that survive a write and a read exactly, told apart by size and content.
QList<_TableHHeaderData> bigList(int columns, const QString& tag)
{
    QList<_TableHHeaderData> list;
    for (int i = 0; i < columns; ++i)
        list.append({QStringLiteral("%1 列 %2").arg(tag).arg(i), QStringLiteral("%1Field%2").arg(tag).arg(i), i % 3 != 0});
    return list;
}

const QList<_TableHHeaderData> kA = bigList(6000, QStringLiteral("A"));
const QList<_TableHHeaderData> kB = bigList(4000, QStringLiteral("B"));

} // namespace

class TstLostData : public QObject
{
    Q_OBJECT

    QString dir;
    quint32 seed = 0;
    QRandomGenerator rng;

    QString userFile() const { return dir + QStringLiteral("/userhsstocktable.json"); }

private slots:
    void initTestCase()
    {
        seed = qEnvironmentVariableIsSet("UX_LOSTDATA_SEED") ? quint32(qEnvironmentVariableIntValue("UX_LOSTDATA_SEED"))
                                                             : QRandomGenerator::global()->generate();
        rng.seed(seed);
        qInfo("random seed %u (set UX_LOSTDATA_SEED to repeat)", seed);
    }

    // An intact file is always one list or the other, complete, never kept aside. A damaged one is still
    // in the user file (nothing saved yet) or in ".bad", the user file then absent or complete.
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
        m->setUserFileName(userFile()); // not there yet
        QVERIFY(m->saveUserConfig(kB));
        for (int round = 0; round < rounds; ++round) {
            const QString at = QStringLiteral("round %1 (seed %2)").arg(round).arg(seed);
            if (!damaged.isEmpty()) {
                QFile::remove(aside);
                UxTest::writeFile(userFile(), damaged);
            }
            QProcess child; // killed once it saves, after a random delay of up to maxMs
            child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--save-loop"), userFile()});
            QVERIFY2(child.waitForStarted(30000), qPrintable(child.errorString()));
            QVERIFY(child.waitForReadyRead(60000) && child.readAllStandardOutput().startsWith("ready"));
            QTest::qSleep(int(rng.bounded(quint32(maxMs))) + 1);
            child.kill();
            QVERIFY(child.waitForFinished(30000) && child.exitStatus() == QProcess::CrashExit);
            if (!damaged.isEmpty() && UxTest::readFile(userFile()) == damaged) {
                QVERIFY2(!QFile::exists(aside), qPrintable(at));
                continue;
            }
            QCOMPARE(UxTest::readFile(aside), damaged);
            const QList<_TableHHeaderData> read = m->getTableHeaderData(userFile());
            QVERIFY2(read == kA || read == kB || (damaged.size() && !QFile::exists(userFile())), qPrintable(at));
        }
        if (!damaged.isEmpty())
            return;
        // The next save removes the temporaries the killed saves left, and only those.
        UxTest::writeFile(userFile() + QStringLiteral(".Ab12Cd"), "left by a killed save");
        UxTest::writeFile(dir + QStringLiteral("/other.json.Ab12Cd"), "not ours");
        QVERIFY(m->saveUserConfig(kA));
        QCOMPARE(QDir(dir).entryList(QDir::Files), QStringList({"other.json.Ab12Cd", "userhsstocktable.json"}));
    }
};

int main(int argc, char* argv[])
{
    // The child mode runs before any test set-up: it saves A and B in turn until it is killed.
    if (argc == 3 && qstrcmp(argv[1], "--save-loop") == 0) {
        QCoreApplication app(argc, argv);
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        UxTableDataManager* m = UxTableDataManager::getInstance();
        m->setUserFileName(QString::fromLocal8Bit(argv[2]));
        std::puts("ready");
        std::fflush(stdout);
        for (unsigned n = 0;; ++n)
            m->saveUserConfig(n % 2 ? kB : kA);
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    UxApplication app(argc, argv);
    app.setAttribute(Qt::AA_Use96Dpi, true);
    UxTest::initEnvironment();
    TstLostData tc;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&tc, argc, argv);
}

#include "tst_lostdata.moc"
