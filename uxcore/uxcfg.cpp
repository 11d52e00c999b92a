#include "uxcfg.h"

#include <QDir>
#include <QStandardPaths>

UxCfg* UxCfg::instance()
{
    static UxCfg cfg;
    return &cfg;
}

static QString withoutTrailingSeparator(const QString& dir)
{
    QString clean = QDir::cleanPath(dir);
    while (clean.size() > 1 && clean.endsWith(QLatin1Char('/')))
        clean.chop(1);
    return clean;
}

QString UxCfg::path(const QString& key)
{
    const auto it = m_paths.constFind(key);
    if (it != m_paths.constEnd())
        return it.value();
    if (key.isEmpty()) {
        const QString env = qEnvironmentVariable("UXCORE_CONFIG_DIR");
        if (!env.isEmpty())
            return withoutTrailingSeparator(env);
        return withoutTrailingSeparator(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    }
    return path(QString()) + QLatin1Char('/') + key;
}

void UxCfg::setPath(const QString& key, const QString& dir)
{
    if (dir.isEmpty())
        m_paths.remove(key);
    else
        m_paths.insert(key, withoutTrailingSeparator(dir));
}
