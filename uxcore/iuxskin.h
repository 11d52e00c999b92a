#ifndef IUXSKIN_H
#define IUXSKIN_H

#include "uxcore_export.h"

#include <QtPlugin>
#include <QVariant>

class QWidget;

/// The skinning interface of every styled widget. A widget derives from its Qt
/// class first and from IUxSkin second, then registers itself with
/// UxCore::addStyle2View() at the end of its constructor; the destructor here
/// takes it off the registry so a destroyed widget is never styled again.
class UXCORE_EXPORT IUxSkin
{
public:
    IUxSkin();
    virtual QWidget* widget();
    virtual ~IUxSkin();
    /// A valid variant becomes the widget's style sheet; an invalid one changes nothing.
    virtual void loadSkin(const QVariant& style);

private:
    Q_DISABLE_COPY(IUxSkin)
};

#define IUxSkin_iid "com.uicomponents.uxcore.IUxSkin/1.0"
Q_DECLARE_INTERFACE(IUxSkin, IUxSkin_iid)

#endif // IUXSKIN_H
