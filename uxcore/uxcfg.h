#ifndef UXCFG_H
#define UXCFG_H

#include "uxcore_export.h"

#include <QHash>
#include <QString>

/// Resolves configuration directories. The empty key is the user's own
/// configuration directory: $UXCORE_CONFIG_DIR when set, else Qt's
/// AppConfigLocation; setPath() overrides any key. An unknown non-empty key is
/// a sub-folder of the user directory. Paths carry no trailing separator.
class UXCORE_EXPORT UxCfg
{
public:
    static UxCfg* instance();

    QString path(const QString& key);
    void setPath(const QString& key, const QString& dir);

private:
    UxCfg() = default;
    Q_DISABLE_COPY(UxCfg)

    QHash<QString, QString> m_paths;
};

#endif // UXCFG_H
