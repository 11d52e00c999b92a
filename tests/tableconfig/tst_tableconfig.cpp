// The quote table's column files: reading, writing, the two lists, blocks, bad and damaged files.

#include "uxtestenv.h"

#include "uxtabledatamanager.h"


namespace {

const QByteArray kColors = "\"defaultColor\":\"#111111\",\"riseColor\":\"#ff0000\",\"fallColor\":\"#00ff00\","
                           "\"suspensionColor\":\"#888888\",\"defaultBgColor\":\"#ffffff\",\"riseBgColor\":\"#ffeeee\","
                           "\"fallBgColor\":\"#eeffee\",";

QByteArray table(const QByteArray& columns, const QByteArray& colors = kColors)
{ return "{" + colors + "\"horizontalHeader\":[" + columns + "]}"; }

QByteArray column(const char* feild, const char* alignment = "AlignCenter")
{
    return QByteArray("{\"text\":\"") + feild + " 列\",\"feild\":\"" + feild + "\",\"isShow\":true,"
        + "\"isChangeColor\":true,\"alignment\":\"" + alignment + "\",\"defaultValue\":\"--\"}";
}

// The record column(FEILD, ...) reads as with the colours of kColors.
_TableHHeaderData record(const QString& feild, Qt::Alignment alignment = Qt::AlignCenter)
{
    return {feild + QStringLiteral(" 列"), feild, true, true, QColor(0x111111), QColor(0xff0000), QColor(0x00ff00),
            QColor(0x888888), QColor(0xffeeee), QColor(0xeeffee), QColor(0xffffff), QStringLiteral("--"), alignment};
}

using Columns = QList<_TableHHeaderData>;

} // namespace

class TstTableConfig : public QObject
{
    Q_OBJECT

    UxTableDataManager* m = UxTableDataManager::getInstance();
    QScopedPointer<QTemporaryDir> dir;

    QString file(const QString& name, const QByteArray& c) { return UxTest::writeFile(dir->filePath(name), c); }

private slots:
    void init()
    {
        dir.reset(new QTemporaryDir(UxTest::rootDir() + QStringLiteral("/tableconfig-XXXXXX")));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("loadConfig.*fileName is Empty!")));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("loadConfig.*fileName is Empty!")));
        m->setFileName(QString());
        m->setUserFileName(QString());
    }

    // How a column file reads through either door; bad files give an empty list and the parser's message.
    void reading_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<Columns>("expected");
        QTest::addColumn<QString>("log");
        QTest::newRow("empty") << QByteArray() << Columns{} << "loadConfig.*(illegal value|garbage|unterminated)";
        QTest::newRow("array on top") << QByteArray("[1,2]") << Columns{} << QString();

        // Missing keys overwrite the defaults but the alignment; flags that are no JSON booleans read as false.
        const _TableHHeaderData bare{{}, {}, false, false, {}, {}, {}, {}, {}, {}, {}, {}, Qt::AlignCenter};
        const _TableHHeaderData odd{{}, "A", false, false, {}, {}, {}, {}, {}, {}, {}, {}, Qt::AlignCenter};
        QTest::newRow("missing keys, odd flags")
            << QByteArray("{\"horizontalHeader\":[{},{\"feild\":\"A\",\"isShow\":\"true\",\"isChangeColor\":1}]}")
            << Columns{bare, odd} << QString();
        QTest::newRow("non-objects skipped silently")
            << table(column("A") + ",\"text\",42,null,[]," + column("B")) << Columns{record("A"), record("B")} << "";

        const struct { const char* tag; const char* text; Qt::Alignment expected; } alignments[] = {
            {"single", "AlignLeft", Qt::AlignLeft},
            {"padded single", "  AlignBottom ", Qt::AlignBottom},
            {"bar with blanks", "AlignRight | AlignVCenter", Qt::AlignRight | Qt::AlignVCenter},
            {"case matters", "alignleft", Qt::AlignCenter},
            {"unknown then valid", "Middle|AlignLeft", Qt::AlignLeft},
            {"valid, unknown, valid", "AlignHCenter|x|AlignTop", Qt::AlignHCenter | Qt::AlignTop}};
        for (const auto& a : alignments)
            QTest::newRow(a.tag) << table(column("A", a.text)) << Columns{record("A", a.expected)} << QString();

        // Inner and outer volume take the fall and rise colours as text colour.
        _TableHHeaderData green = record("GreenVolume"), red = record("RedVolume");
        green.defaultColor = Qt::green;
        red.defaultColor = Qt::red;
        QTest::newRow("volume") << table(column("GreenVolume") + "," + column("RedVolume") + "," + column("Volume"))
                                        << Columns{green, red, record("Volume")} << QString();
    }
    void reading()
    {
        QFETCH(QByteArray, content);
        QFETCH(Columns, expected);
        QFETCH(QString, log);
        const QString path = file(QStringLiteral("t.json"), content);
        for (int i = 0; i < 2 && !log.isEmpty(); ++i)
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(log));
        QCOMPARE(m->getTableHeaderData(path), expected);
        m->setFileName(path);
        QCOMPARE(m->getTableHeaderData(), expected);
    }

    // Without a user file a save still takes, in memory, over the template. An empty user list falls back to
    // the template (reading's second door); a non-empty one replaces it (the widget's suite).
    void whichListIsRead()
    {
        m->setFileName(file(QStringLiteral("t.json"), table(column("A") + "," + column("B"))));
        QVERIFY(m->saveUserConfig({record("M")}));
        QCOMPARE(m->getTableHeaderData(), Columns{record("M")});
    }

    // What a save writes over whatever was there and how it reads back: an empty list writes nothing,
    // a damaged file goes aside as ".bad" exactly once, an intact one never; missing folders are made.
    void saving_data()
    {
        QTest::addColumn<QByteArray>("before"); // empty: no file
        QTest::addColumn<Columns>("saved");
        QTest::addColumn<Columns>("readBack");
        QTest::addColumn<bool>("keptAside");

        Columns plain{record(QString()), record("Code", Qt::AlignLeft), record("Now", Qt::AlignVCenter)};
        plain[2].isShow = false;
        plain[2].defaultValue = QStringLiteral("0.00");
        QTest::newRow("round trip") << QByteArray() << plain << plain << false;
        // valueToKey names single enumerators only: a combination goes out as "".
        QTest::newRow("combined alignment") << QByteArray() << Columns{record("Now", Qt::AlignRight | Qt::AlignVCenter)}
                                            << Columns{record("Now")} << false;
        // The table colours come from the first column, substituted colour included.
        _TableHHeaderData green = record("GreenVolume"), now = record("Now");
        green.defaultColor = now.defaultColor = Qt::green;
        QTest::newRow("first column sets the colours") << QByteArray() << Columns{green, record("Now")}
                                                       << Columns{green, now} << false;
        QTest::newRow("empty list") << table(column("U")) << Columns{} << Columns{record("U")} << false;
        QTest::newRow("over an empty table") << table("") << plain << plain << false;
        QTest::newRow("damaged") << QByteArray("{\"horizontalHeader\":[{\"feild\":") << plain << plain << true;
        QTest::newRow("array on top") << QByteArray("[1,2]") << plain << plain << true;
    }
    void saving()
    {
        QFETCH(QByteArray, before);
        QFETCH(Columns, saved);
        QFETCH(Columns, readBack);
        QFETCH(bool, keptAside);
        const QString user = dir->filePath("new/u.json");
        if (!before.isEmpty())
            UxTest::writeFile(user, before);
        m->setUserFileName(user);
        if (keptAside)
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("damaged user file kept as .*\\.bad")));
        QCOMPARE(m->saveUserConfig(saved), !saved.isEmpty());
        QCOMPARE(m->getTableHeaderData(), saved.isEmpty() ? readBack : saved); // in memory as given
        QCOMPARE(m->getTableHeaderData(user), readBack);
        QVERIFY(saved.isEmpty() ? UxTest::readFile(user) == before : UxTest::readFile(user).contains("\n    \""));
        QCOMPARE(QFile::exists(user + QStringLiteral(".bad")), keptAside);
        if (!keptAside)
            return;
        QCOMPARE(UxTest::readFile(user + QStringLiteral(".bad")), before);
        // The next save replaces the good file in place and leaves ".bad" alone.
        QVERIFY(m->saveUserConfig({record("Next")}));
        QCOMPARE(m->getTableHeaderData(user), Columns{record("Next")});
        QCOMPARE(UxTest::readFile(user + QStringLiteral(".bad")), before);
    }

    // Blocks round-trip in key order; non-objects are skipped, a later same id wins.
    void multiBlock()
    {
        const QMap<QString, Columns> map{{QStringLiteral("b2"), {record("Now")}}, {QStringLiteral("e"), {}},
                                         {QStringLiteral("a1"), {record("Code", Qt::AlignLeft), record("Name")}}};
        const QByteArray json = m->mapToJson(map);
        QVERIFY(json.indexOf("\"a1\"") < json.indexOf("\"b2\""));
        QCOMPARE(m->jsonToMap(json), map);
        const QByteArray twice = "{\"blockData\":[1,{\"rootBlockId\":\"x\",\"TableHHeaderData\":" + table(column("A"))
            + "},{\"rootBlockId\":\"x\",\"TableHHeaderData\":" + table(column("B")) + "}]}";
        QCOMPARE(m->jsonToMap(twice), (QMap<QString, Columns>{{QStringLiteral("x"), {record("B")}}}));
    }
};

UX_TEST_MAIN(TstTableConfig)
#include "tst_tableconfig.moc"
