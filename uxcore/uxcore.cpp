#include "uxcore.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {
const char kDefaultsPrefix[] = ":/uicomponents/";
const char kDefaultSkin[] = "light";

UxCore* s_instance = nullptr;

// url(x) with a relative x becomes url(<base>/x); absolute paths, resource
// paths and schemes are left as written.
QString resolveUrls(const QString& sheet, const QString& baseDir)
{
    static const QRegularExpression re(QStringLiteral("url\\(\\s*([\"']?)([^\"')]+)\\1\\s*\\)"));
    QString out;
    out.reserve(sheet.size() + 64);
    int last = 0;
    auto it = re.globalMatch(sheet);
    while (it.hasNext()) {
        const QRegularExpressionMatch m = it.next();
        const QString target = m.captured(2).trimmed();
        out += QStringView(sheet).mid(last, m.capturedStart() - last);
        const bool absolute = target.startsWith(QLatin1Char('/')) || target.startsWith(QLatin1Char(':'))
            || target.contains(QLatin1String("://"));
        if (absolute)
            out += m.captured(0);
        else
            out += QStringLiteral("url(") + baseDir + QLatin1Char('/') + target + QLatin1Char(')');
        last = m.capturedEnd();
    }
    out += QStringView(sheet).mid(last);
    return out;
}
} // namespace

UxCore* UxCore::instance()
{
    // Lives until the process ends: widgets may unregister during static
    // destruction, and the host never deletes it.
    if (!s_instance)
        s_instance = new UxCore;
    return s_instance;
}

UxCore::UxCore()
    : m_skinId(QLatin1String(kDefaultSkin))
{
    const QString env = qEnvironmentVariable("UXCORE_SKIN_ROOT");
    if (!env.isEmpty())
        m_skinRoot = QDir::cleanPath(env);
    else if (QCoreApplication::instance())
        m_skinRoot = QCoreApplication::applicationDirPath() + QStringLiteral("/skins");
}

UxCore::~UxCore() = default;

QWidget* UxCore::mainWindow()
{
    return m_mainWindow.data();
}

void UxCore::setMainWindow(QWidget* w)
{
    m_mainWindow = w;
}

QString UxCore::skinRoot() const
{
    return m_skinRoot;
}

void UxCore::setSkinRoot(const QString& dir)
{
    m_skinRoot = QDir::cleanPath(dir);
    m_styleCache.clear();
}

QStringList UxCore::skinIds() const
{
    if (m_skinRoot.isEmpty())
        return {};
    return QDir(m_skinRoot).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

QString UxCore::getCurrentSkinId()
{
    return m_skinId;
}

void UxCore::setCurrentSkin(const QString& id)
{
    m_skinId = id;
    // Copy first: a loadSkin() may create or destroy other skinned widgets.
    const QList<IUxSkin*> views = m_views.keys();
    for (IUxSkin* view : views) {
        const auto it = m_views.constFind(view);
        if (it != m_views.constEnd())
            applyStyle(view, it.value());
    }
    emit signalSkinChanged(id);
}

QString UxCore::resolveFile(const QString& name, QString* baseDir) const
{
    if (!m_skinRoot.isEmpty()) {
        const QString skinDir = m_skinRoot + QLatin1Char('/') + m_skinId;
        const QString inSkin = skinDir + QLatin1Char('/') + name;
        if (QFileInfo::exists(inSkin)) {
            if (baseDir)
                *baseDir = skinDir;
            return inSkin;
        }
    }
    const QString builtIn = QLatin1String(kDefaultsPrefix) + name;
    if (QFileInfo::exists(builtIn)) {
        if (baseDir)
            *baseDir = QStringLiteral(":/uicomponents");
        return builtIn;
    }
    return QString();
}

QString UxCore::getCurrentSkinPath(const QString& name)
{
    const QString found = resolveFile(name, nullptr);
    if (!found.isEmpty())
        return found;
    return m_skinRoot + QLatin1Char('/') + m_skinId + QLatin1Char('/') + name;
}

QString UxCore::styleSheet(const QString& cssPath)
{
    const QString cacheKey = m_skinRoot + QLatin1Char('\n') + m_skinId + QLatin1Char('\n') + cssPath;
    const auto cached = m_styleCache.constFind(cacheKey);
    if (cached != m_styleCache.constEnd())
        return cached.value();

    QString sheet;
    QString baseDir;
    const QString file = resolveFile(cssPath, &baseDir);
    if (!file.isEmpty()) {
        QFile f(file);
        if (f.open(QIODevice::ReadOnly))
            sheet = resolveUrls(QString::fromUtf8(f.readAll()), baseDir);
    }
    m_styleCache.insert(cacheKey, sheet);
    return sheet;
}

void UxCore::applyStyle(IUxSkin* view, const QString& cssPath)
{
    // A skin without the sheet (and no default) leaves the widget unstyled
    // rather than keeping the previous skin's look.
    view->loadSkin(QVariant(styleSheet(cssPath)));
}

void UxCore::addStyle2View(IUxSkin* view, const QString& cssPath)
{
    if (!view)
        return;
    m_views.insert(view, cssPath);
    applyStyle(view, cssPath);
}

int UxCore::registeredViewCount() const
{
    return m_views.size();
}

void UxCore::removeStyleView(IUxSkin* view)
{
    if (s_instance)
        s_instance->m_views.remove(view);
}
