#ifndef UXCORE_H
#define UXCORE_H

// <uxcore/uxcore.h> is also the host core's umbrella header: including it
// brings every class of the host core.
#include "uxcore_export.h"
#include "iuxskin.h"
#include "iuxmemory.h"
#include "uxcfg.h"
#include "uxapplication.h"
#include "uxcustommenu.h"
#include "uxframelesshelper.h"
#include "invokerbase.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

/// The skin manager and keeper of the client's main window.
///
/// A skin is a folder `<skin root>/<skin id>/` holding style sheets and images at
/// the relative paths widgets ask for. A style sheet or image missing from the
/// current skin falls back to the library's compiled-in defaults under
/// ":/uicomponents/", then to nothing. Relative url(...) references inside a
/// sheet are resolved against the folder the sheet came from, so skins work
/// whatever the working directory.
///
/// The skin root defaults to $UXCORE_SKIN_ROOT, else `<application dir>/skins`;
/// the current skin defaults to "light".
class UXCORE_EXPORT UxCore : public QObject
{
    Q_OBJECT
public:
    static UxCore* instance();

    QWidget* mainWindow();
    void setMainWindow(QWidget* w);

    QString skinRoot() const;
    void setSkinRoot(const QString& dir);
    /// Sub-folders of the skin root, sorted.
    QStringList skinIds() const;

    QString getCurrentSkinId();
    /// Switches skin, re-applies every registered view's sheet, then emits
    /// signalSkinChanged(id).
    void setCurrentSkin(const QString& id);

    /// Path of NAME in the current skin; the compiled-in default when the skin
    /// lacks it; the (missing) skin path when neither has it.
    QString getCurrentSkinPath(const QString& name);

    /// Registers VIEW under CSSPATH and applies the sheet now.
    void addStyle2View(IUxSkin* view, const QString& cssPath);
    /// The sheet text the current skin gives CSSPATH, urls resolved; empty when
    /// neither the skin nor the defaults have it.
    QString styleSheet(const QString& cssPath);
    int registeredViewCount() const;

    /// Called by IUxSkin's destructor; never creates the singleton.
    static void removeStyleView(IUxSkin* view);

Q_SIGNALS:
    void signalSkinChanged(const QString& skinId);

private:
    UxCore();
    ~UxCore() override;
    QString resolveFile(const QString& name, QString* baseDir) const;
    void applyStyle(IUxSkin* view, const QString& cssPath);

    QPointer<QWidget> m_mainWindow;
    QString m_skinRoot;
    QString m_skinId;
    QHash<IUxSkin*, QString> m_views;
    QHash<QString, QString> m_styleCache; ///< "skin\npath" -> resolved sheet
};

#endif // UXCORE_H
