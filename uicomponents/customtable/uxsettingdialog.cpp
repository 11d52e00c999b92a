#include "uxsettingdialog.h"

#include "ui_uxsettingdialog.h"
#include "uxtabledatamanager.h"
#include "uxviewscrollbarexpand.h"

#include <uxcore.h>

#include <QCoreApplication>
#include <QListWidgetItem>
#include <QScrollBar>
#include <QSignalBlocker>

namespace {
// The table keeps its first columns frozen; they are not the user's to change.
constexpr int kFixedColumns = 3;

_TableHHeaderData recordOf(const QListWidgetItem* item)
{
    const QVariant v = item->data(Qt::UserRole);
    if (!v.canConvert<_TableHHeaderData>())
        return _TableHHeaderData();
    return v.value<_TableHHeaderData>();
}

void fillItem(QListWidgetItem* item, const _TableHHeaderData& record)
{
    item->setText(record.text);
    item->setCheckState(record.isShow ? Qt::Checked : Qt::Unchecked);
    item->setData(Qt::UserRole, QVariant::fromValue(record));
}
} // namespace

UxSettingDialog::UxSettingDialog(QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::UxSettingDialog)
{
    ui->setupUi(this);
    m_formTitles = titleTexts();
    setWindowFlags(windowFlags() | Qt::WindowFlags(0x81B));
    setObjectName(QStringLiteral("PRICE_FRAME"));
    ui->listWidget->verticalScrollBar()->setObjectName(QStringLiteral("PRICE_LIST_WIDGET_V_SCROLLBAR"));
    ui->fmTop->hide();
    ui->fmBottom->hide();
    new UxViewScrollbarExpand(ui->listWidget, this);
    connectSignals();
    UxCore::instance()->addStyle2View(this, QStringLiteral("quote/settingdlg.css"));
}

UxSettingDialog::~UxSettingDialog()
{
    delete ui;
}

void UxSettingDialog::connectSignals()
{
    connect(ui->btnOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->btnCancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui->btnTop, &QPushButton::clicked, this, &UxSettingDialog::slotBtnTopClicked);
    connect(ui->btnUp, &QPushButton::clicked, this, &UxSettingDialog::slotBtnUpClicked);
    connect(ui->btnDown, &QPushButton::clicked, this, &UxSettingDialog::slotBtnDownClicked);
    connect(ui->listWidget, &QListWidget::itemChanged, this, &UxSettingDialog::slotItemChanged);
    connect(ui->btnClose, &QPushButton::clicked, this, [this]() {
        if (QWidget* p = parentWidget())
            p->close();
        else
            close();
    });
}

void UxSettingDialog::clearAllItems()
{
    m_fixedItems.clear();
    for (int row = ui->listWidget->count() - 1; row >= 0; --row)
        delete ui->listWidget->takeItem(row);
}

void UxSettingDialog::createItems(const QList<_TableHHeaderData>& list)
{
    clearAllItems();
    if (list.isEmpty())
        return;
    if (list.size() > kFixedColumns)
        m_fixedItems = list.mid(0, kFixedColumns);
    for (int i = kFixedColumns; i < list.size(); ++i) {
        auto* item = new QListWidgetItem;
        fillItem(item, list.at(i));
        ui->listWidget->addItem(item);
    }
}

void UxSettingDialog::createItems(const QString& fileName)
{
    const QString path = QCoreApplication::applicationDirPath() + QStringLiteral("/config/") + fileName;
    createItems(UxTableDataManager::getInstance()->getTableHeaderData(path));
}

QList<_TableHHeaderData> UxSettingDialog::getAllItems()
{
    QList<_TableHHeaderData> list = m_fixedItems;
    for (int row = 0; row < ui->listWidget->count(); ++row)
        list << recordOf(ui->listWidget->item(row));
    return list;
}

QList<_TableHHeaderData> UxSettingDialog::getAllSelectedItems()
{
    QList<_TableHHeaderData> list;
    for (int row = 0; row < ui->listWidget->count(); ++row) {
        const QListWidgetItem* item = ui->listWidget->item(row);
        if (item->checkState() == Qt::Checked)
            list << recordOf(item);
    }
    return list;
}

QWidget* UxSettingDialog::titleLabel(int index) const
{
    switch (index) {
    case 0:
        return ui->lbTitle0;
    case 1:
        return ui->lbTitle1;
    case 2:
        return ui->lbTitle2;
    case 3:
        return ui->lbTitle3;
    default:
        return nullptr;
    }
}

void UxSettingDialog::setTitle(int index, const QString& text)
{
    if (auto* label = qobject_cast<QLabel*>(titleLabel(index)))
        label->setText(text);
}

void UxSettingDialog::setTitleVisible(int index, bool visible)
{
    if (QWidget* label = titleLabel(index))
        label->setVisible(visible);
}

void UxSettingDialog::setTopVisible(bool visible)
{
    ui->fmTop->setVisible(visible);
}

void UxSettingDialog::setMidTipsVisible(bool visible)
{
    ui->wMidTips->setVisible(visible);
}

void UxSettingDialog::setBottomVisible(bool visible)
{
    ui->fmBottom->setVisible(visible);
}

void UxSettingDialog::slotItemChanged(QListWidgetItem* item)
{
    if (!item)
        return;
    _TableHHeaderData record = recordOf(item);
    record.isShow = item->checkState() == Qt::Checked;
    {
        const QSignalBlocker blocker(ui->listWidget);
        item->setData(Qt::UserRole, QVariant::fromValue(record));
    }
    emit sigItemChanged();
}

QListWidgetItem* UxSettingDialog::movableItem() const
{
    const QList<QListWidgetItem*> selected = ui->listWidget->selectedItems();
    if (selected.isEmpty())
        return nullptr;
    QListWidgetItem* item = selected.first();
    return item->checkState() == Qt::Checked ? item : nullptr;
}

void UxSettingDialog::swapItems(QListWidgetItem* a, QListWidgetItem* b)
{
    // The setters run with the list's signals live, so each changed item also
    // passes through slotItemChanged; the record goes in last so that its
    // visibility ends up matching the item's check box.
    const QString textA = a->text();
    const Qt::CheckState checkA = a->checkState();
    const QVariant dataA = a->data(Qt::UserRole);
    const QString textB = b->text();
    const Qt::CheckState checkB = b->checkState();
    const QVariant dataB = b->data(Qt::UserRole);

    a->setText(textB);
    a->setCheckState(checkB);
    a->setData(Qt::UserRole, dataB);
    b->setText(textA);
    b->setCheckState(checkA);
    b->setData(Qt::UserRole, dataA);
}

void UxSettingDialog::slotBtnTopClicked()
{
    QListWidgetItem* item = movableItem();
    if (!item)
        return;
    const int row = ui->listWidget->row(item);
    if (row == 0)
        return;
    QListWidgetItem* old = ui->listWidget->takeItem(row);
    auto* moved = new QListWidgetItem;
    fillItem(moved, recordOf(old));
    ui->listWidget->insertItem(0, moved);
    ui->listWidget->scrollToItem(moved);
    ui->listWidget->setCurrentItem(moved);
    delete old;
    emit sigItemChanged();
}

void UxSettingDialog::slotBtnUpClicked()
{
    moveSelectedBy(-1);
}

void UxSettingDialog::slotBtnDownClicked()
{
    moveSelectedBy(1);
}

void UxSettingDialog::moveSelectedBy(int step)
{
    QListWidgetItem* item = movableItem();
    if (!item)
        return;
    const int row = ui->listWidget->row(item);
    const int target = row + step;
    if (row < 0 || target < 0 || target >= ui->listWidget->count())
        return;
    QListWidgetItem* other = ui->listWidget->item(target);
    swapItems(item, other);
    ui->listWidget->setCurrentItem(other);
    ui->listWidget->scrollToItem(other);
    emit sigItemChanged();
}

void UxSettingDialog::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

QStringList UxSettingDialog::titleTexts() const
{
    QStringList texts;
    for (int i = 0; i < 4; ++i) {
        auto* label = qobject_cast<QLabel*>(titleLabel(i));
        texts << (label ? label->text() : QString());
    }
    return texts;
}

void UxSettingDialog::retranslate()
{
    // Titles the client set through setTitle() stay; the form's own follow.
    const QStringList titles = titleTexts();
    const QString windowName = windowTitle();
    ui->retranslateUi(this);
    setWindowTitle(windowName);
    const QStringList formTitles = titleTexts();
    for (int i = 0; i < 4; ++i) {
        if (titles.at(i) != m_formTitles.value(i))
            setTitle(i, titles.at(i));
    }
    m_formTitles = formTitles;
}
