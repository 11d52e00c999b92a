#include "uxscaledpixmap.h"

QString UxScaledPixmap::highResolutionPath(const QString& path)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    if (dot <= slash + 1)
        return path + QLatin1String("@2x");
    return path.left(dot) + QLatin1String("@2x") + path.mid(dot);
}

QPixmap UxScaledPixmap::load(const QString& path, qreal devicePixelRatio)
{
    if (devicePixelRatio > 1.0) {
        QPixmap sharp(highResolutionPath(path));
        if (!sharp.isNull()) {
            sharp.setDevicePixelRatio(2.0);
            return sharp;
        }
    }
    return QPixmap(path);
}
