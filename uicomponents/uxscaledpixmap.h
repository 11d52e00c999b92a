#ifndef UXSCALEDPIXMAP_H
#define UXSCALEDPIXMAP_H

#include <QPixmap>
#include <QString>

// Loads a bitmap for a paint device of a given pixel ratio. Above 1 it
// prefers the "name@2x.ext" sibling and marks it as a ratio-2 pixmap, so a
// shadow drawn on a 200% screen keeps its detail; without a sibling (or at
// 100%) the plain file is used exactly as before. QPixmap's file constructor
// does no such lookup of its own (only QIcon does).
class UxScaledPixmap
{
public:
    static QPixmap load(const QString& path, qreal devicePixelRatio);
    static QString highResolutionPath(const QString& path);
};

#endif // UXSCALEDPIXMAP_H
