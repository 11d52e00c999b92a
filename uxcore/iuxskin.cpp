#include "iuxskin.h"

#include "uxcore.h"

#include <QWidget>

IUxSkin::IUxSkin() = default;

QWidget* IUxSkin::widget()
{
    // Every implementer is a QWidget first, so the cross-cast always succeeds
    // while the object is alive.
    return dynamic_cast<QWidget*>(this);
}

IUxSkin::~IUxSkin()
{
    UxCore::removeStyleView(this);
}

void IUxSkin::loadSkin(const QVariant& style)
{
    if (!style.isValid())
        return;
    if (QWidget* w = widget())
        w->setStyleSheet(style.toString());
}
