// The quote table's column files: reading, writing, the two lists, the
// multi-block form, and what bad files do.

#include "uxtestenv.h"

#include "uxmessagedefines.h"
#include "uxtabledatamanager.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

QByteArray table(const QByteArray& columns, const QByteArray& colors = QByteArray())
{
    const QByteArray c = colors.isEmpty()
        ? QByteArray("\"defaultColor\":\"#111111\",\"riseColor\":\"#ff0000\",\"fallColor\":\"#00ff00\","
                     "\"suspensionColor\":\"#888888\",\"defaultBgColor\":\"#ffffff\",\"riseBgColor\":\"#ffeeee\","
                     "\"fallBgColor\":\"#eeffee\",")
        : colors;
    return "{" + c + "\"horizontalHeader\":[" + columns + "]}";
}

QByteArray column(const char* text, const char* feild, const char* alignment = "AlignCenter")
{
    return QByteArray("{\"text\":\"") + text + "\",\"feild\":\"" + feild + "\",\"isShow\":true,"
        + "\"isChangeColor\":true,\"alignment\":\"" + alignment + "\",\"defaultValue\":\"--\"}";
}

_TableHHeaderData header(const QString& feild, Qt::Alignment alignment = Qt::AlignCenter)
{
    _TableHHeaderData h;
    h.text = feild + QStringLiteral("-caption");
    h.feild = feild;
    h.alignment = alignment;
    h.riseColor = QColor(QStringLiteral("#ff0000"));
    h.fallColor = QColor(QStringLiteral("#00ff00"));
    return h;
}

} // namespace

class TstTableConfig : public QObject
{
    Q_OBJECT

    UxTableDataManager* m = UxTableDataManager::getInstance();
    QString dir;

    QString file(const QString& name, const QByteArray& content)
    {
        return UxTest::writeFile(dir + QLatin1Char('/') + name, content);
    }

private slots:
    void init()
    {
        dir = UxTest::rootDir() + QStringLiteral("/tableconfig-") + QString::fromLatin1(QTest::currentTestFunction());
        if (QTest::currentDataTag())
            dir += QLatin1Char('-') + QString::number(qHash(QByteArray(QTest::currentDataTag())));
        QDir(dir).removeRecursively();
        QDir().mkpath(dir);
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("fileName is Empty!")));
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("fileName is Empty!")));
        m->setFileName(QString());
        m->setUserFileName(QString());
    }

    void readsEveryField()
    {
        const QString f = file(QStringLiteral("t.json"),
                               table("{\"text\":\"最新\",\"feild\":\"Now\",\"isShow\":false,\"isChangeColor\":true,"
                                     "\"alignment\":\"AlignRight\",\"defaultValue\":\"-\"}"));
        m->setFileName(f);
        const QList<_TableHHeaderData> list = m->getTableHeaderData();
        QCOMPARE(list.size(), 1);
        const _TableHHeaderData& h = list.first();
        QCOMPARE(h.text, QStringLiteral("最新"));
        QCOMPARE(h.feild, QStringLiteral("Now"));
        QCOMPARE(h.isShow, false);
        QCOMPARE(h.isChangeColor, true);
        QCOMPARE(h.defaultValue, QStringLiteral("-"));
        QCOMPARE(h.alignment, Qt::Alignment(Qt::AlignRight));
        QCOMPARE(h.defaultColor, QColor(QStringLiteral("#111111")));
        QCOMPARE(h.riseColor, QColor(QStringLiteral("#ff0000")));
        QCOMPARE(h.fallColor, QColor(QStringLiteral("#00ff00")));
        QCOMPARE(h.suspensionColor, QColor(QStringLiteral("#888888")));
        QCOMPARE(h.defaultBgColor, QColor(QStringLiteral("#ffffff")));
        QCOMPARE(h.riseBgColor, QColor(QStringLiteral("#ffeeee")));
        QCOMPARE(h.fallBgColor, QColor(QStringLiteral("#eeffee")));
    }

    void missingKeysAndNonBoolFlags()
    {
        // No colour keys, no field keys: every overwritten field is empty or
        // false and the colours invalid; only the alignment keeps its default.
        // Flags that are no JSON booleans read as false.
        m->setFileName(file(QStringLiteral("t.json"),
                            "{\"horizontalHeader\":[{},{\"feild\":\"A\",\"isShow\":\"true\",\"isChangeColor\":1}]}"));
        const QList<_TableHHeaderData> list = m->getTableHeaderData();
        QCOMPARE(list.size(), 2);
        QVERIFY(list[0].text.isEmpty() && list[0].feild.isEmpty() && list[0].defaultValue.isEmpty());
        QVERIFY(!list[0].defaultColor.isValid() && !list[0].riseBgColor.isValid());
        QCOMPARE(list[0].alignment, Qt::Alignment(Qt::AlignCenter));
        for (const _TableHHeaderData& h : list)
            QVERIFY(!h.isShow && !h.isChangeColor);
    }

    void alignmentParsing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("expected");
        QTest::newRow("single") << "AlignLeft" << int(Qt::AlignLeft);
        QTest::newRow("padded single") << "  AlignBottom " << int(Qt::AlignBottom);
        QTest::newRow("bar with blanks") << "AlignRight | AlignVCenter" << int(Qt::AlignRight | Qt::AlignVCenter);
        QTest::newRow("unknown alone") << "Middle" << int(Qt::AlignCenter);
        QTest::newRow("empty") << "" << int(Qt::AlignCenter);
        QTest::newRow("unknown then valid") << "Middle|AlignLeft" << int(Qt::AlignLeft);
        QTest::newRow("valid, unknown, valid") << "AlignHCenter|x|AlignTop" << int(Qt::AlignHCenter | Qt::AlignTop);
        QTest::newRow("case matters") << "alignleft" << int(Qt::AlignCenter);
    }
    void alignmentParsing()
    {
        QFETCH(QString, text);
        QFETCH(int, expected);
        m->setFileName(file(QStringLiteral("t.json"), table(column("A", "Now", text.toUtf8().constData()))));
        QCOMPARE(int(m->getTableHeaderData().value(0).alignment), expected);
    }

    void volumeColumnsTakeRiseAndFallAsText_data()
    {
        QTest::addColumn<QString>("feild");
        QTest::addColumn<QColor>("expected");
        QTest::newRow("GreenVolume") << "GreenVolume" << QColor(QStringLiteral("#00ff00"));
        QTest::newRow("RedVolume") << "RedVolume" << QColor(QStringLiteral("#ff0000"));
        QTest::newRow("other") << "Volume" << QColor(QStringLiteral("#111111"));
    }
    void volumeColumnsTakeRiseAndFallAsText()
    {
        QFETCH(QString, feild);
        QFETCH(QColor, expected);
        m->setFileName(file(QStringLiteral("t.json"), table(column("V", feild.toUtf8().constData()))));
        const _TableHHeaderData h = m->getTableHeaderData().value(0);
        QCOMPARE(h.defaultColor, expected);
        QCOMPARE(h.riseColor, QColor(QStringLiteral("#ff0000")));
        QCOMPARE(h.fallColor, QColor(QStringLiteral("#00ff00")));
    }

    void nonObjectColumnsAreSkipped()
    {
        m->setFileName(file(QStringLiteral("t.json"), table(column("A", "A") + ",\"text\",42,null,[]," + column("B", "B"))));
        const QList<_TableHHeaderData> list = m->getTableHeaderData();
        QCOMPARE(list.size(), 2);
        QCOMPARE(list[0].feild, QStringLiteral("A"));
        QCOMPARE(list[1].feild, QStringLiteral("B"));
    }

    void roundTripThroughTheUserFile()
    {
        const QString user = dir + QStringLiteral("/user.json");
        m->setUserFileName(user);
        QList<_TableHHeaderData> list{header(QString()), header(QStringLiteral("Code"), Qt::AlignLeft),
                                      header(QStringLiteral("Now"), Qt::AlignVCenter)};
        list[2].isShow = false;
        list[2].defaultValue = QStringLiteral("0.00");
        list[1].text = QStringLiteral("代码");
        QVERIFY(m->saveUserConfig(list));
        m->setUserFileName(user); // reload from disk
        QCOMPARE(m->getTableHeaderData(), list);
        QVERIFY(UxTest::readFile(user).contains("代码"));
    }

    void combinedAlignmentIsWrittenEmptyAndReadCentred()
    {
        const QString user = dir + QStringLiteral("/user.json");
        m->setUserFileName(user);
        QVERIFY(m->saveUserConfig({header(QStringLiteral("Now"), Qt::AlignRight | Qt::AlignVCenter)}));
        const QJsonObject top = QJsonDocument::fromJson(UxTest::readFile(user)).object();
        QCOMPARE(top.value(QStringLiteral("horizontalHeader")).toArray().at(0).toObject().value(QStringLiteral("alignment")),
                 QJsonValue(QString()));
        m->setUserFileName(user);
        QCOMPARE(m->getTableHeaderData().value(0).alignment, Qt::Alignment(Qt::AlignCenter));
    }

    void tableColoursComeFromTheFirstColumn()
    {
        // A GreenVolume first column carries the fall colour as its text
        // colour, and that becomes the table's defaultColor when written.
        m->setFileName(file(QStringLiteral("t.json"), table(column("G", "GreenVolume") + "," + column("N", "Now"))));
        const QString user = dir + QStringLiteral("/user.json");
        m->setUserFileName(user);
        QVERIFY(m->saveUserConfig(m->getTableHeaderData()));
        const QJsonObject top = QJsonDocument::fromJson(UxTest::readFile(user)).object();
        QCOMPARE(top.value(QStringLiteral("defaultColor")).toString(), QStringLiteral("#00ff00"));
        m->setUserFileName(user);
        QCOMPARE(m->getTableHeaderData().value(1).defaultColor, QColor(QStringLiteral("#00ff00")));
    }

    void whichListIsRead()
    {
        m->setFileName(file(QStringLiteral("t.json"), table(column("A", "A") + "," + column("B", "B"))));
        // Reading another file leaves the manager's lists alone.
        QCOMPARE(m->getTableHeaderData(file(QStringLiteral("o.json"), table(column("O", "O")))).value(0).feild, QStringLiteral("O"));
        QCOMPARE(m->getTableHeaderData().size(), 2);
        // An empty user list falls back to the template; a non-empty one replaces it wholesale.
        m->setUserFileName(file(QStringLiteral("e.json"), table(QByteArray())));
        QCOMPARE(m->getTableHeaderData().size(), 2);
        m->setUserFileName(file(QStringLiteral("u.json"), table(column("C", "C"))));
        QCOMPARE(m->getTableHeaderData().size(), 1);
        QCOMPARE(m->getTableHeaderData().value(0).feild, QStringLiteral("C"));
    }

    void savingOddTargets()
    {
        const QByteArray original = table(column("U", "U"));
        const QString user = file(QStringLiteral("u.json"), original);
        m->setUserFileName(user);
        QCOMPARE(m->saveUserConfig({}), false); // an empty list writes nothing
        QCOMPARE(UxTest::readFile(user), original);
        QCOMPARE(m->getTableHeaderData().value(0).feild, QStringLiteral("U"));

        const QString deeper = dir + QStringLiteral("/new/deeper/user.json");
        m->setUserFileName(deeper);
        QVERIFY(m->saveUserConfig({header(QStringLiteral("Now"))}));
        QVERIFY(QFile::exists(deeper));

        // A directory in the file's place cannot be written: the list is kept
        // in memory, nothing is thrown, the answer is still true.
        const QString taken = dir + QStringLiteral("/taken.json");
        QDir().mkpath(taken);
        m->setUserFileName(taken);
        QVERIFY(m->saveUserConfig({header(QStringLiteral("Taken"))}));
        QCOMPARE(m->getTableHeaderData().value(0).feild, QStringLiteral("Taken"));
        QVERIFY(QFileInfo(taken).isDir());

        // A damaged file is kept aside before it is replaced.
        const QString damaged = file(QStringLiteral("d.json"), "{\"horizontalHeader\":[{\"feild\":");
        m->setUserFileName(damaged);
        QVERIFY(m->saveUserConfig({header(QStringLiteral("Now"))}));
        QCOMPARE(UxTest::readFile(damaged + QStringLiteral(".bad")), QByteArray("{\"horizontalHeader\":[{\"feild\":"));
        m->setUserFileName(damaged);
        QCOMPARE(m->getTableHeaderData().value(0).feild, QStringLiteral("Now"));
    }

    void badFiles_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("log");
        QTest::newRow("empty") << QByteArray() << "illegal value|garbage|unterminated";
        QTest::newRow("not json") << QByteArray("hello") << "illegal value";
        QTest::newRow("truncated") << table(column("A", "A")).left(40) << ".";
        QTest::newRow("binary") << QByteArray("\x00\x01\xff\xfe{", 5) << ".";
        QTest::newRow("array on top") << QByteArray("[1,2]") << QString();
        QTest::newRow("header not array") << QByteArray("{\"horizontalHeader\":{\"a\":1}}") << QString();
        QTest::newRow("deeply nested") << (QByteArray(5000, '[') + QByteArray(5000, ']')) << ".";
    }
    void badFiles()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, log);
        m->setFileName(file(QStringLiteral("good.json"), table(column("A", "A"))));
        const QString bad = file(QStringLiteral("bad.json"), content);
        if (!log.isEmpty())
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(log));
        QVERIFY(m->getTableHeaderData(bad).isEmpty());
        // The template list is reloaded (and emptied) only by setFileName.
        QCOMPARE(m->getTableHeaderData().size(), 1);
        if (!log.isEmpty())
            QTest::ignoreMessage(QtDebugMsg, QRegularExpression(log));
        m->setFileName(bad);
        QVERIFY(m->getTableHeaderData().isEmpty());
    }

    void missingFilesAreLogged()
    {
        const QString missing = dir + QStringLiteral("/nope.json");
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("file is not exists!.*nope\\.json")));
        QVERIFY(m->getTableHeaderData(missing).isEmpty());
        QTest::ignoreMessage(QtDebugMsg, QRegularExpression(QStringLiteral("fileName is Empty!")));
        QVERIFY(m->getTableHeaderData(QString()).isEmpty());
    }

    void largeFile()
    {
        QByteArray columns;
        for (int i = 0; i < 20000; ++i)
            columns += (i ? "," : "") + column("C", QByteArray::number(i).constData(), "AlignRight|AlignVCenter");
        m->setFileName(file(QStringLiteral("big.json"), table(columns)));
        const QList<_TableHHeaderData> list = m->getTableHeaderData();
        QCOMPARE(list.size(), 20000);
        QCOMPARE(list.last().feild, QStringLiteral("19999"));
    }

    void multiBlockRoundTrip()
    {
        QMap<QString, QList<_TableHHeaderData>> map;
        map.insert(QStringLiteral("b2"), {header(QStringLiteral("Now"))});
        map.insert(QStringLiteral("a1"), {header(QStringLiteral("Code"), Qt::AlignLeft), header(QStringLiteral("Name"))});
        const QByteArray json = m->mapToJson(map);
        const QJsonArray blocks = QJsonDocument::fromJson(json).object().value(QStringLiteral("blockData")).toArray();
        QCOMPARE(blocks.size(), 2);
        QCOMPARE(blocks.at(0).toObject().value(QStringLiteral("rootBlockId")).toString(), QStringLiteral("a1"));
        QCOMPARE(m->jsonToMap(json), map);

        // An empty list is written as an empty table.
        map.insert(QStringLiteral("e"), {});
        const QJsonObject block = QJsonDocument::fromJson(m->mapToJson(map))
                                      .object().value(QStringLiteral("blockData")).toArray().at(2).toObject();
        QCOMPARE(block.value(QStringLiteral("rootBlockId")).toString(), QStringLiteral("e"));
        QVERIFY(block.value(QStringLiteral("TableHHeaderData")).toObject().isEmpty());
    }

    void multiBlockOddities_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QStringList>("ids");
        QTest::addColumn<int>("firstCount");
        const QByteArray t1 = table(column("A", "A"));
        const QByteArray t2 = table(column("A", "A") + "," + column("B", "B"));
        QTest::newRow("syntax error") << QByteArray("{\"blockData\":[") << QStringList() << 0;
        QTest::newRow("not an object") << QByteArray("[]") << QStringList() << 0;
        QTest::newRow("no blocks") << QByteArray("{}") << QStringList() << 0;
        QTest::newRow("non-object block skipped")
            << "{\"blockData\":[1,{\"rootBlockId\":\"x\",\"TableHHeaderData\":" + t1 + "}]}" << QStringList{"x"} << 1;
        QTest::newRow("later id wins")
            << "{\"blockData\":[{\"rootBlockId\":\"x\",\"TableHHeaderData\":" + t1
                   + "},{\"rootBlockId\":\"x\",\"TableHHeaderData\":" + t2 + "}]}"
            << QStringList{"x"} << 2;
        QTest::newRow("missing table") << QByteArray("{\"blockData\":[{\"rootBlockId\":\"y\"}]}") << QStringList{"y"} << 0;
    }
    void multiBlockOddities()
    {
        QFETCH(QByteArray, json);
        QFETCH(QStringList, ids);
        QFETCH(int, firstCount);
        const auto map = m->jsonToMap(json);
        QCOMPARE(map.keys(), ids);
        if (!ids.isEmpty())
            QCOMPARE(map.first().size(), firstCount);
    }

    // A client comparing type names sees the short names; both spellings
    // find the type.
    void recordTypeNames_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("alias");
        QTest::newRow("column") << qMetaTypeId<_TableHHeaderData>() << QByteArray("TableHHeaderData")
                                << QByteArray("_TableHHeaderData");
        QTest::newRow("row") << qMetaTypeId<_TableData>() << QByteArray("TableData") << QByteArray("_TableData");
        QTest::newRow("request") << qMetaTypeId<_SubPageData>() << QByteArray("SubPageData")
                                 << QByteArray("_SubPageData");
        QTest::newRow("message") << qMetaTypeId<tagMessage>() << QByteArray("Message") << QByteArray("tagMessage");
    }
    void recordTypeNames()
    {
        QFETCH(int, id);
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, alias);
        QCOMPARE(QByteArray(QMetaType(id).name()), name);
        QCOMPARE(QMetaType::type(name.constData()), id);
        QCOMPARE(QMetaType::type(alias.constData()), id);
        const QVariant v = QVariant::fromValue(header(QStringLiteral("Now")));
        QCOMPARE(v.value<_TableHHeaderData>().feild, QStringLiteral("Now"));
    }
};

UX_TEST_MAIN(TstTableConfig)
#include "tst_tableconfig.moc"
