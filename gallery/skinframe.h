#ifndef SKINFRAME_H
#define SKINFRAME_H

#include <uxcore/iuxskin.h>

#include <QFrame>

// A plain frame that takes one of the skin's sheets, so that a library
// widget placed inside it directly on a page looks as it does in its pop-up.
class SkinFrame : public QFrame, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    SkinFrame(const QString& cssPath, QWidget* parent = nullptr);
};

#endif // SKINFRAME_H
