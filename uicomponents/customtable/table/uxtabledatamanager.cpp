#include "uxtabledatamanager.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QSaveFile>

namespace {

const char* const kColorKeys[] = {"defaultColor", "riseColor", "fallColor", "suspensionColor",
                                  "defaultBgColor", "riseBgColor", "fallBgColor"};

QMetaEnum alignmentEnum()
{
    // Qt's own "Alignment" enumerator (the flags type of Qt::AlignmentFlag).
    return QMetaEnum::fromType<Qt::Alignment>();
}

// One enumerator name, or several joined by "|": the first piece that names
// an enumerator replaces the default, later valid pieces are OR-ed in.
Qt::Alignment parseAlignment(const QString& text)
{
    const QMetaEnum e = alignmentEnum();
    Qt::Alignment result = Qt::AlignCenter;
    if (!text.contains(QLatin1Char('|'))) {
        bool ok = false;
        const int v = e.keyToValue(text.trimmed().toLatin1().constData(), &ok);
        if (ok)
            result = Qt::Alignment(v);
        return result;
    }
    bool first = true;
    const QStringList pieces = text.split(QLatin1Char('|'));
    for (const QString& piece : pieces) {
        bool ok = false;
        const int v = e.keyToValue(piece.trimmed().toLatin1().constData(), &ok);
        if (!ok)
            continue;
        if (first) {
            result = Qt::Alignment(v);
            first = false;
        } else {
            result |= Qt::Alignment(v);
        }
    }
    return result;
}

QColor* colorField(_TableHHeaderData& h, int i)
{
    QColor* fields[] = {&h.defaultColor, &h.riseColor, &h.fallColor, &h.suspensionColor,
                        &h.defaultBgColor, &h.riseBgColor, &h.fallBgColor};
    return fields[i];
}

} // namespace

UxTableDataManager* UxTableDataManager::getInstance()
{
    static UxTableDataManager instance;
    return &instance;
}

UxTableDataManager::UxTableDataManager() = default;
UxTableDataManager::~UxTableDataManager() = default;

void UxTableDataManager::setFileName(const QString& fileName)
{
    m_fileName = fileName;
    loadConfig(m_fileName, m_templateList);
}

void UxTableDataManager::setUserFileName(const QString& fileName)
{
    m_userFileName = fileName;
    loadConfig(m_userFileName, m_userList);
    // Remember a damaged file so that the next save keeps it aside first.
    m_userFileDamaged = false;
    if (m_userList.isEmpty() && !fileName.isEmpty() && QFileInfo(fileName).isFile()) {
        QFile f(fileName);
        if (f.open(QIODevice::ReadOnly)) {
            QJsonParseError error;
            const QJsonDocument doc = QJsonDocument::fromJson(f.readAll(), &error);
            m_userFileDamaged = error.error != QJsonParseError::NoError || !doc.isObject();
        } else {
            m_userFileDamaged = true;
        }
    }
}

QList<_TableHHeaderData> UxTableDataManager::getTableHeaderData() const
{
    return m_userList.isEmpty() ? m_templateList : m_userList;
}

QList<_TableHHeaderData> UxTableDataManager::getTableHeaderData(const QString& fileName)
{
    QList<_TableHHeaderData> list;
    loadConfig(fileName, list);
    return list;
}

bool UxTableDataManager::saveUserConfig(const QList<_TableHHeaderData>& list)
{
    if (list.isEmpty())
        return false;
    m_userList = list;
    if (m_userFileName.isEmpty())
        return true;

    const QFileInfo info(m_userFileName);
    if (!QDir().mkpath(info.absolutePath())) {
        qDebug() << Q_FUNC_INFO << "cannot create directory" << info.absolutePath();
        return true;
    }
    if (m_userFileDamaged)
        keepDamagedUserFile();
    removeSaveLeftovers();

    QSaveFile file(m_userFileName);
    if (!file.open(QIODevice::WriteOnly)) {
        qDebug() << Q_FUNC_INFO << "cannot open" << m_userFileName << file.errorString();
        return true;
    }
    file.write(QJsonDocument(listToJson(list)).toJson());
    if (!file.commit())
        qDebug() << Q_FUNC_INFO << "cannot write" << m_userFileName << file.errorString();
    return true;
}

void UxTableDataManager::removeSaveLeftovers()
{
    // A save that was killed leaves its temporary beside the user file, named
    // after it with a dot and six letters or digits.
    const QFileInfo info(m_userFileName);
    const QRegularExpression pattern(QStringLiteral("^%1\\.[A-Za-z0-9]{6}$")
                                         .arg(QRegularExpression::escape(info.fileName())));
    const QDir dir = info.absoluteDir();
    const QStringList names = dir.entryList({info.fileName() + QStringLiteral(".??????")}, QDir::Files | QDir::Hidden);
    for (const QString& name : names) {
        if (pattern.match(name).hasMatch())
            QFile::remove(dir.filePath(name));
    }
}

void UxTableDataManager::keepDamagedUserFile()
{
    const QString aside = m_userFileName + QStringLiteral(".bad");
    QFile::remove(aside);
    if (QFile::rename(m_userFileName, aside))
        qDebug() << Q_FUNC_INFO << "damaged user file kept as" << aside;
    else
        qDebug() << Q_FUNC_INFO << "cannot keep damaged user file" << m_userFileName;
    m_userFileDamaged = false;
}

QMap<QString, QList<_TableHHeaderData>> UxTableDataManager::jsonToMap(const QByteArray& json)
{
    QMap<QString, QList<_TableHHeaderData>> map;
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject())
        return map;
    const QJsonArray blocks = doc.object().value(QStringLiteral("blockData")).toArray();
    for (const QJsonValue& block : blocks) {
        if (!block.isObject())
            continue;
        const QJsonObject o = block.toObject();
        map.insert(o.value(QStringLiteral("rootBlockId")).toString(),
                   jsonToList(o.value(QStringLiteral("TableHHeaderData")).toObject()));
    }
    return map;
}

QByteArray UxTableDataManager::mapToJson(const QMap<QString, QList<_TableHHeaderData>>& map)
{
    QJsonArray blocks;
    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        QJsonObject o;
        o.insert(QStringLiteral("rootBlockId"), it.key());
        o.insert(QStringLiteral("TableHHeaderData"), listToJson(it.value()));
        blocks.append(o);
    }
    QJsonObject top;
    top.insert(QStringLiteral("blockData"), blocks);
    return QJsonDocument(top).toJson();
}

void UxTableDataManager::loadConfig(const QString& fileName, QList<_TableHHeaderData>& list)
{
    list.clear();
    if (fileName.isEmpty()) {
        qDebug() << Q_FUNC_INFO << "fileName is Empty!";
        return;
    }
    QFile file(fileName);
    if (!file.exists()) {
        qDebug() << Q_FUNC_INFO << "file is not exists!" << fileName;
        return;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        qDebug() << Q_FUNC_INFO << "cannot open" << fileName << file.errorString();
        return;
    }
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(file.readAll(), &error);
    file.close();
    if (error.error != QJsonParseError::NoError) {
        qDebug() << Q_FUNC_INFO << error.errorString();
        return;
    }
    if (!doc.isObject())
        return;
    list = jsonToList(doc.object());
}

QList<_TableHHeaderData> UxTableDataManager::jsonToList(const QJsonObject& table)
{
    QList<_TableHHeaderData> list;
    if (table.isEmpty())
        return list;

    QColor colors[7];
    for (int i = 0; i < 7; ++i)
        colors[i] = QColor(table.value(QLatin1String(kColorKeys[i])).toString());
    const QColor& fileDefault = colors[0];
    const QColor& fileRise = colors[1];
    const QColor& fileFall = colors[2];

    const QJsonArray columns = table.value(QStringLiteral("horizontalHeader")).toArray();
    list.reserve(columns.size());
    for (const QJsonValue& value : columns) {
        if (!value.isObject())
            continue;
        const QJsonObject o = value.toObject();
        _TableHHeaderData h;
        h.text = o.value(QStringLiteral("text")).toString();
        h.feild = o.value(QStringLiteral("feild")).toString();
        h.isShow = o.value(QStringLiteral("isShow")).toBool(false);
        h.isChangeColor = o.value(QStringLiteral("isChangeColor")).toBool(false);
        h.defaultValue = o.value(QStringLiteral("defaultValue")).toString();
        h.alignment = parseAlignment(o.value(QStringLiteral("alignment")).toString());

        for (int i = 0; i < 7; ++i)
            *colorField(h, i) = colors[i];
        // Inner and outer volume are always painted in the fall and rise colours.
        if (h.feild == QLatin1String("GreenVolume"))
            h.defaultColor = fileFall;
        else if (h.feild == QLatin1String("RedVolume"))
            h.defaultColor = fileRise;
        else
            h.defaultColor = fileDefault;
        list.append(h);
    }
    return list;
}

QJsonObject UxTableDataManager::listToJson(const QList<_TableHHeaderData>& list)
{
    QJsonObject table;
    if (list.isEmpty())
        return table;

    // The table-level colours come from the first column, substituted volume
    // colour included.
    _TableHHeaderData first = list.first();
    for (int i = 0; i < 7; ++i)
        table.insert(QLatin1String(kColorKeys[i]), colorField(first, i)->name());

    const QMetaEnum e = alignmentEnum();
    QJsonArray columns;
    for (const _TableHHeaderData& h : list) {
        QJsonObject o;
        o.insert(QStringLiteral("text"), h.text);
        o.insert(QStringLiteral("feild"), h.feild);
        o.insert(QStringLiteral("isShow"), h.isShow);
        o.insert(QStringLiteral("isChangeColor"), h.isChangeColor);
        o.insert(QStringLiteral("alignment"), QString::fromLatin1(e.valueToKey(int(h.alignment))));
        o.insert(QStringLiteral("defaultValue"), h.defaultValue);
        columns.append(o);
    }
    table.insert(QStringLiteral("horizontalHeader"), columns);
    return table;
}
