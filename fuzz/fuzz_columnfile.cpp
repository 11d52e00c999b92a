// Feeds arbitrary bytes to the single-table column file loader through the
// public getTableHeaderData(fileName) on a temporary file.
// Checks beyond "no crash":
// - a file that is not a JSON object gives no columns;
// - the same table object read through the multi-block loader gives the
//   same columns (both paths share one reading rule);
// - writing the columns and reading them back reaches a fixed point after
//   one round (whatever the writer normalises, it normalises once).

#include "fuzzcommon.h"
#include "uxtabledatamanager.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

#include <cstdint>

namespace {

QString scratchFile()
{
    static const QString path = QDir::tempPath() + QStringLiteral("/uxfuzz-columnfile-%1.json")
                                                       .arg(QCoreApplication::applicationPid());
    return path;
}

using Columns = QList<_TableHHeaderData>;
using Blocks = QMap<QString, Columns>;

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    UxFuzz::init(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), int(size));
    {
        QFile f(scratchFile());
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
            UxFuzz::fail("cannot write the scratch file", scratchFile());
        f.write(bytes);
    }

    UxTableDataManager* manager = UxTableDataManager::getInstance();
    const Columns columns = manager->getTableHeaderData(scratchFile());
    QFile::remove(scratchFile());

    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject()) {
        UxFuzz::check(columns.isEmpty(), "columns from a file that is not a JSON object");
        return 0;
    }

    QJsonObject block;
    block.insert(QStringLiteral("rootBlockId"), QStringLiteral("b"));
    block.insert(QStringLiteral("TableHHeaderData"), doc.object());
    QJsonObject top;
    top.insert(QStringLiteral("blockData"), QJsonArray{block});
    const Blocks viaBlocks = manager->jsonToMap(QJsonDocument(top).toJson());
    UxFuzz::check(viaBlocks.value(QStringLiteral("b")) == columns,
                  "single-table and multi-block readers disagree");

    Blocks once;
    once.insert(QStringLiteral("b"), columns);
    const Blocks first = manager->jsonToMap(manager->mapToJson(once));
    const Blocks second = manager->jsonToMap(manager->mapToJson(first));
    UxFuzz::check(first == second, "write/read does not settle after one round");
    UxFuzz::check(first.value(QStringLiteral("b")).size() == columns.size(), "write/read lost columns");
    return 0;
}
