// Feeds arbitrary bytes to the multi-block loader (jsonToMap).
// Checks beyond "no crash":
// - bytes that are not a JSON object give an empty map;
// - every block id of the document is in the map, and nothing else is;
// - writing the map and reading it back reaches a fixed point after one
//   round, with the same ids and the same number of columns per block.

#include "fuzzcommon.h"
#include "uxtabledatamanager.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QSet>

#include <cstdint>

using Blocks = QMap<QString, QList<_TableHHeaderData>>;

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    UxFuzz::init(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), int(size));
    UxTableDataManager* manager = UxTableDataManager::getInstance();
    const Blocks map = manager->jsonToMap(bytes);

    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject()) {
        UxFuzz::check(map.isEmpty(), "blocks from bytes that are not a JSON object");
        return 0;
    }

    QSet<QString> ids;
    const QJsonArray blocks = doc.object().value(QStringLiteral("blockData")).toArray();
    for (const QJsonValue& b : blocks) {
        if (b.isObject())
            ids.insert(b.toObject().value(QStringLiteral("rootBlockId")).toString());
    }
    const QList<QString> keys = map.keys();
    UxFuzz::check(QSet<QString>(keys.begin(), keys.end()) == ids, "block ids differ from the document's");

    const Blocks first = manager->jsonToMap(manager->mapToJson(map));
    UxFuzz::check(first.keys() == map.keys(), "write/read changed the block ids");
    for (auto it = map.constBegin(); it != map.constEnd(); ++it)
        UxFuzz::check(first.value(it.key()).size() == it.value().size(), "write/read lost columns", it.key());
    const Blocks second = manager->jsonToMap(manager->mapToJson(first));
    UxFuzz::check(first == second, "write/read does not settle after one round");
    return 0;
}
