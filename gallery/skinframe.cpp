#include "skinframe.h"

#include <uxcore/uxcore.h>

SkinFrame::SkinFrame(const QString& cssPath, QWidget* parent)
    : QFrame(parent)
{
    UxCore::instance()->addStyle2View(this, cssPath);
}
