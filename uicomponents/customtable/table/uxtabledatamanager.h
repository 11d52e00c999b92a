#ifndef UXTABLEDATAMANAGER_H
#define UXTABLEDATAMANAGER_H

#include "uicomponents_export.h"
#include "uxtabledefines.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>

/// Reads and writes the quote table's column files and holds two column
/// lists: the template list (read-only file shipped with the client) and the
/// user list (the user's own file). getTableHeaderData() gives the user list
/// when it holds anything, the template list otherwise.
///
/// Choices of our own:
/// - The user file is written atomically (QSaveFile) rather than truncated in
///   place: a truncating write that is cut short (crash, kill, full disk) loses
///   the user's columns. A kill leaves either the old file or the new one, and
///   the temporary a killed save leaves behind is removed by the next save.
/// - A user file that exists but cannot be parsed is renamed with a ".bad"
///   suffix before the next save replaces it, so a damaged file (the user's
///   data, perhaps hand-edited) is never silently overwritten.
/// - A missing user configuration directory is created before writing.
/// saveUserConfig() still returns true for any non-empty list; a failed write
/// is logged ("cannot open", "cannot write") and leaves the old file whole.
class UICOMPONENTS_EXPORT UxTableDataManager : public QObject
{
    Q_OBJECT
public:
    static UxTableDataManager* getInstance();

    void setFileName(const QString& fileName);
    void setUserFileName(const QString& fileName);

    QList<_TableHHeaderData> getTableHeaderData() const;
    QList<_TableHHeaderData> getTableHeaderData(const QString& fileName);

    bool saveUserConfig(const QList<_TableHHeaderData>& list);

    QMap<QString, QList<_TableHHeaderData>> jsonToMap(const QByteArray& json);
    QByteArray mapToJson(const QMap<QString, QList<_TableHHeaderData>>& map);

private:
    UxTableDataManager();
    ~UxTableDataManager() override;

    void loadConfig(const QString& fileName, QList<_TableHHeaderData>& list);
    QList<_TableHHeaderData> jsonToList(const QJsonObject& table);
    QJsonObject listToJson(const QList<_TableHHeaderData>& list);
    void keepDamagedUserFile();
    void removeSaveLeftovers();

    QList<_TableHHeaderData> m_templateList;
    QList<_TableHHeaderData> m_userList;
    QString m_fileName;
    QString m_userFileName;
    bool m_userFileDamaged = false;
};

#endif // UXTABLEDATAMANAGER_H
