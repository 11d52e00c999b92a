#ifndef UXMINICLOCKPANNEL_H
#define UXMINICLOCKPANNEL_H

#include "uicomponents_export.h"
#include "iuxmemory.h"
#include "iuxskin.h"

#include <QDateTime>
#include <QFrame>
#include <QMap>
#include <QString>

class QAction;
class QMenu;
class QTimer;

namespace Ui {
class UxMiniClockPannel;
}

/// A small clock for one time zone picked from a menu of whole-hour UTC
/// offsets. The local clock is taken to run in the base zone (8 unless set);
/// the shown time is the local time plus the zone's difference from it. The
/// date line is taken from the moment the zone was chosen or restored, so it
/// does not roll over at midnight by itself. A zone outside -10..12 shifts the
/// clock by the base zone itself. The chosen zone is kept under "zone".
///
/// With a parent the panel is a draggable, closeless tile; without one it is a
/// frameless window with a close button.
/// The form's placeholder time shows until the first tick, 900 ms after
/// construction.
///
/// The caption and the default zone names follow the installed translation,
/// live (names the host set through setTimeZoneMap stay as given).
class UICOMPONENTS_EXPORT UxMiniClockPannel : public QFrame, public IUxSkin, public IUxMemory
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin IUxMemory)
public:
    explicit UxMiniClockPannel(QWidget* parent = nullptr);
    ~UxMiniClockPannel() override;

    void setTimeZoneMap(const QMap<int, QString>& map);
    void setBaseZone(int zone);

    void save(QMap<QString, QVariant>& m) override;
    void restore(const QMap<QString, QVariant>& m) override;

public Q_SLOTS:
    void slotUpdateDt();

protected:
    void changeEvent(QEvent* event) override;

private Q_SLOTS:
    void on_closeBushButton_clicked(); // clazy:exclude=connect-by-name (the form connects it by name)
    void updateMenusUiData();

private:
    void createMenu();
    void createActions(QMenu* menu);
    void updateTime(const int& offset);
    void updateDate(const int& offset);
    void updateActionsCheckedByZone(int zone);
    void updateActionsExcurise(QAction* keep);
    void onZoneTriggered(QAction* action);
    int offsetForZone(int zone) const;
    QString actionText(int zone) const;
    QMenu* zoneMenu() const;
    void retranslate();

    Ui::UxMiniClockPannel* ui;
    QMap<int, QString> m_zoneMap;
    bool m_defaultZoneNames = false; ///< the zone map is still the default one
    int m_zone = 8;
    int m_offset = 0;
    int m_baseZone = 8;
    QDateTime m_referenceTime;
    QTimer* m_timer = nullptr;
};

#endif // UXMINICLOCKPANNEL_H
