#include "uxminiclockpannel.h"

#include "ui_uxminiclockpannel.h"
#include "uxcore.h"

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

namespace {
const int kTickMs = 900;
const char kZoneKey[] = "zone";
const char kMenuTimeFormat[] = "yyyy-MM-dd hh:mm:ss";

// The default zone names in the current language.
QMap<int, QString> defaultZoneNames()
{
    static const struct {
        int zone;
        const char* name;
    } names[] = {{-8, QT_TRANSLATE_NOOP("UxMiniClockPannel", "旧金山")},
                 {-5, QT_TRANSLATE_NOOP("UxMiniClockPannel", "美东")},
                 {8, QT_TRANSLATE_NOOP("UxMiniClockPannel", "北京")},
                 {9, QT_TRANSLATE_NOOP("UxMiniClockPannel", "汉城")}};
    QMap<int, QString> zones;
    for (const auto& n : names)
        zones.insert(n.zone, QCoreApplication::translate("UxMiniClockPannel", n.name));
    return zones;
}
} // namespace

UxMiniClockPannel::UxMiniClockPannel(QWidget* parent)
    : QFrame(parent)
    , ui(new Ui::UxMiniClockPannel)
{
    ui->setupUi(this);
    UxCore::instance()->addStyle2View(this, QStringLiteral("controls/clock.css"));
    m_referenceTime = QDateTime::currentDateTime();

    const QMap<int, QString> zones = defaultZoneNames();
    setTimeZoneMap(zones);
    m_defaultZoneNames = true;

    m_timer = new QTimer(this);
    connect(m_timer, SIGNAL(timeout()), this, SLOT(slotUpdateDt()));
    m_timer->setTimerType(Qt::PreciseTimer);
    m_timer->start(kTickMs);

    setWindowFlags(Qt::FramelessWindowHint);
    if (parentWidget()) {
        auto* helper = new UxFramelessHelper(this);
        helper->activateOn(this);
        helper->setWidgetMovable(true, 0);
        helper->setWidgetResizable(false);
        ui->closeBushButton->hide();
    }
}

UxMiniClockPannel::~UxMiniClockPannel()
{
    if (m_timer && m_timer->isActive())
        m_timer->stop();
    delete ui;
}

QMenu* UxMiniClockPannel::zoneMenu() const
{
    return findChild<QMenu*>(QStringLiteral("zoneMenu"), Qt::FindDirectChildrenOnly);
}

void UxMiniClockPannel::setTimeZoneMap(const QMap<int, QString>& map)
{
    m_zoneMap = map;
    m_defaultZoneNames = false;
    QMenu* menu = zoneMenu();
    if (menu)
        menu->clear();
    if (!m_zoneMap.contains(m_baseZone))
        m_zoneMap.insert(m_baseZone, QStringLiteral("Beijing"));
    if (menu)
        createActions(menu);
    else
        createMenu();
}

void UxMiniClockPannel::setBaseZone(int zone)
{
    m_baseZone = zone;
}

void UxMiniClockPannel::slotUpdateDt()
{
    updateTime(m_offset);
    updateDate(m_offset);
}

void UxMiniClockPannel::save(QMap<QString, QVariant>& m)
{
    m[QLatin1String(kZoneKey)] = m_zone;
}

void UxMiniClockPannel::restore(const QMap<QString, QVariant>& m)
{
    // A value that is not a number reads as zone 0.
    m_zone = m.value(QLatin1String(kZoneKey), 8).toInt();
    m_referenceTime = QDateTime::currentDateTime();
    m_offset = offsetForZone(m_zone);
    m_timer->start(kTickMs);
    updateTime(m_offset);
    updateDate(m_offset);
    updateActionsCheckedByZone(m_zone);
}

int UxMiniClockPannel::offsetForZone(int zone) const
{
    // Outside -10..12 the clock is shifted by the base zone itself.
    // Unsigned before adding: a restored INT_MAX must not overflow.
    if (static_cast<unsigned>(zone) + 10u > 22u)
        return m_baseZone;
    return zone - m_baseZone;
}

QString UxMiniClockPannel::actionText(int zone) const
{
    const QDateTime at = QDateTime::currentDateTime().addSecs(qint64(zone - m_baseZone) * 3600);
    return QStringLiteral("%1 %2").arg(m_zoneMap.value(zone), at.toString(QLatin1String(kMenuTimeFormat)));
}

void UxMiniClockPannel::createMenu()
{
    auto* menu = new UxCustomMenu(this);
    menu->setObjectName(QStringLiteral("zoneMenu"));
    connect(menu, &QMenu::triggered, this, &UxMiniClockPannel::onZoneTriggered);
    createActions(menu);
    connect(menu, &QMenu::aboutToShow, this, &UxMiniClockPannel::updateMenusUiData);
    ui->settingPushButton->setMenu(menu);
}

void UxMiniClockPannel::createActions(QMenu* menu)
{
    auto add = [&](int zone) {
        QAction* action = menu->addAction(actionText(zone));
        action->setCheckable(true);
        action->setData(zone);
    };
    add(m_baseZone);
    for (auto it = m_zoneMap.constBegin(); it != m_zoneMap.constEnd(); ++it) {
        if (it.key() != m_baseZone)
            add(it.key());
    }
    const QList<QAction*> actions = menu->actions();
    if (!actions.isEmpty())
        actions.first()->setChecked(true);
}

void UxMiniClockPannel::updateMenusUiData()
{
    QMenu* menu = zoneMenu();
    if (!menu)
        return;
    const QList<QAction*> actions = menu->actions();
    for (QAction* action : actions)
        action->setText(actionText(action->data().toInt()));
}

void UxMiniClockPannel::onZoneTriggered(QAction* action)
{
    if (!action)
        return;
    m_referenceTime = QDateTime::currentDateTime();
    m_zone = action->data().toInt();
    m_offset = offsetForZone(m_zone);
    m_timer->start(kTickMs);
    updateTime(m_offset);
    updateDate(m_offset);
    // Qt has already toggled the action: a second click on the chosen zone
    // leaves no zone checked.
    updateActionsExcurise(action);
}

void UxMiniClockPannel::updateTime(const int& offset)
{
    const QDateTime now = QDateTime::currentDateTime().addSecs(qint64(offset) * 3600);
    ui->timeLabel->setText(now.toString(QStringLiteral("hh:mm:ss")));
}

void UxMiniClockPannel::updateDate(const int& offset)
{
    const QDateTime day = m_referenceTime.addSecs(qint64(offset) * 3600);
    ui->dateLabel->setText(
        QStringLiteral("%1 %2").arg(m_zoneMap.value(m_zone), day.toString(QStringLiteral("yyyy/MM/dd"))));
}

void UxMiniClockPannel::updateActionsCheckedByZone(int zone)
{
    QMenu* menu = zoneMenu();
    if (!menu)
        return;
    const QList<QAction*> actions = menu->actions();
    for (QAction* action : actions)
        action->setChecked(action->data().toInt() == zone);
}

void UxMiniClockPannel::updateActionsExcurise(QAction* keep)
{
    QMenu* menu = zoneMenu();
    if (!menu)
        return;
    const QList<QAction*> actions = menu->actions();
    for (QAction* action : actions) {
        if (action != keep)
            action->setChecked(false);
    }
}

void UxMiniClockPannel::on_closeBushButton_clicked()
{
    close();
}

void UxMiniClockPannel::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void UxMiniClockPannel::retranslate()
{
    ui->retranslateUi(this);
    // Only the default names follow the language; names the host set stay.
    if (m_defaultZoneNames)
        m_zoneMap = defaultZoneNames();
    updateMenusUiData();
    slotUpdateDt();
}
