#include "uxcustomtablewidget.h"

#include "ui_uxcustomtablewidget.h"
#include "uxsettingdialog.h"
#include "uxtabledatamanager.h"
#include "uxtablemodel.h"
#include "uxtableview.h"

#include <uxcfg.h>
#include <uxcore.h>

#include <QCoreApplication>

namespace {
QString userDir()
{
    return UxCfg::instance()->path(QString());
}

QString templateDir()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/config/");
}
} // namespace

UxCustomTableWidget::UxCustomTableWidget(QWidget* parent)
    : QFrame(parent)
    , ui(new Ui::UxCustomTableWidget)
{
    ui->setupUi(this);
    ui->settingBtn->hide();
    if (!m_pSettingDialog)
        m_pSettingDialog = new UxSettingDialog(nullptr);
    connectSignals();
    initTable();
    UxCore::instance()->addStyle2View(this, QStringLiteral("quote/customtable.css"));
}

UxCustomTableWidget::~UxCustomTableWidget()
{
    if (m_pSettingDialog)
        m_pSettingDialog->deleteLater();
    delete ui;
}

void UxCustomTableWidget::connectSignals()
{
    connect(ui->settingBtn, &QPushButton::clicked, this, &UxCustomTableWidget::slotSettingBtnClicked);
    // The two overloads go by signature, as the records' registered names.
    connect(ui->tableView, SIGNAL(sigSubPages(const QStringList&)), this, SIGNAL(sigSubPages(const QStringList&)));
    connect(ui->tableView, SIGNAL(sigSubPages(const SubPageData&)), this, SIGNAL(sigSubPages(const SubPageData&)));
    connect(ui->tableView, &UxTableView::sigTableViewClicked, this, &UxCustomTableWidget::sigTableViewClicked);
    connect(ui->tableView, &UxTableView::sigTableViewDoubleClicked, this,
            &UxCustomTableWidget::sigTableViewDoubleClicked);
    connect(ui->tableView, &UxTableView::sigSortTableData, this, &UxCustomTableWidget::sigSortTableData);
    connect(ui->tableView, &UxTableView::sigCustomContextMenuRequested, this,
            &UxCustomTableWidget::sigCustomContextMenuRequested);
    if (m_pSettingDialog)
        connect(m_pSettingDialog.data(), &UxSettingDialog::sigItemChanged, this,
                &UxCustomTableWidget::slotHeadersChanged);
}

void UxCustomTableWidget::useColumnFiles(const QString& userPath, const QString& templatePath)
{
    UxTableDataManager* manager = UxTableDataManager::getInstance();
    manager->setFileName(templatePath);
    manager->setUserFileName(userPath);
    ui->tableView->setHHeaderData(manager->getTableHeaderData());
}

void UxCustomTableWidget::initTable()
{
    useColumnFiles(userDir() + QStringLiteral("/userhsstocktable.json"),
                   templateDir() + QStringLiteral("hsstocktemplatetable.json"));
}

void UxCustomTableWidget::setHHeaderData(const QString& userFile, const QString& templateFile)
{
    useColumnFiles(userDir() + QLatin1Char('/') + userFile, templateDir() + templateFile);
}

void UxCustomTableWidget::setHHeaderData(const QString& fileName)
{
    ui->tableView->setHHeaderData(UxTableDataManager::getInstance()->getTableHeaderData(templateDir() + fileName));
}

void UxCustomTableWidget::setHHeaderData(const QList<_TableHHeaderData>& list)
{
    ui->tableView->setHHeaderData(list);
}

void UxCustomTableWidget::slotSettingBtnClicked()
{
    if (!m_pSettingDialog)
        return;
    QPushButton* btn = ui->settingBtn;
    QPoint p(0, btn->height());
    // Own coordinates against global ones: keeps the dialog's right edge on
    // the button's whenever the widget is not far to the left of the screen.
    if (rect().right() < m_pSettingDialog->width() + btn->mapToGlobal(p).x())
        p.setX(btn->width() - m_pSettingDialog->width());
    m_pSettingDialog->move(btn->mapToGlobal(p));

    UxTableDataManager* manager = UxTableDataManager::getInstance();
    m_pSettingDialog->createItems(manager->getTableHeaderData());

    const QPointer<UxCustomTableWidget> self(this);
    const int result = m_pSettingDialog->exec();
    if (!self || !m_pSettingDialog)
        return;
    if (result == QDialog::Accepted)
        manager->saveUserConfig(m_pSettingDialog->getAllItems());
}

void UxCustomTableWidget::slotHeadersChanged()
{
    if (!m_pSettingDialog)
        return;
    const QList<_TableHHeaderData> list = m_pSettingDialog->getAllItems();
    ui->tableView->setHHeaderData(list);
    UxTableDataManager::getInstance()->saveUserConfig(list);
}

QString UxCustomTableWidget::blockId() const
{
    QMap<QString, QVariant> m;
    ui->tableView->save(m);
    return m.value(QStringLiteral("blockId")).toString();
}

void UxCustomTableWidget::setBlockId(const QString& blockId)
{
    ui->tableView->setBlockId(blockId);
}

QList<_TableHHeaderData> UxCustomTableWidget::getHHeaderData() const
{
    return ui->tableView->getHHeaderData();
}

QList<_TableData> UxCustomTableWidget::getTableDatas() const
{
    return ui->tableView->getTableDatas();
}

int UxCustomTableWidget::rowCount() const
{
    return ui->tableView->rowCount();
}

int UxCustomTableWidget::columnCount() const
{
    return ui->tableView->model() ? ui->tableView->model()->columnCount() : 0;
}

QColor UxCustomTableWidget::backgroundColorAt(int row, int column) const
{
    const UxTableModel* model = ui->tableView->tableModel();
    return model ? model->backgroundColorAt(model->index(row, column)) : QColor();
}

void UxCustomTableWidget::save(QMap<QString, QVariant>& m)
{
    ui->tableView->save(m);
}

void UxCustomTableWidget::restore(const QMap<QString, QVariant>& m)
{
    ui->tableView->restore(m);
}

void UxCustomTableWidget::setBackgroundColorChangedEnable(bool enable)
{
    ui->tableView->setBackgroundColorChangedEnable(enable);
}

void UxCustomTableWidget::setDefaultSortFeildAndMode(const QString& feild, UxHeaderSort mode)
{
    ui->tableView->setDefaultSortFeildAndMode(feild, mode);
}

void UxCustomTableWidget::setColumnHidden(int column, bool hide)
{
    if (column < 0 || column >= columnCount())
        return;
    ui->tableView->setColumnHidden(column, hide);
}

void UxCustomTableWidget::setFrozenViewColumnHidden(int column, bool hide)
{
    ui->tableView->setFrozenViewColumnHidden(column, hide);
}

void UxCustomTableWidget::setHHeaderResizeMode(QHeaderView::ResizeMode mode)
{
    ui->tableView->horizontalHeader()->setSectionResizeMode(mode);
}

void UxCustomTableWidget::setFrozenViewHHeaderResizeMode(QHeaderView::ResizeMode mode)
{
    ui->tableView->setFrozenViewHHeaderResizeMode(mode);
}

void UxCustomTableWidget::setHHeaderSortEnable(bool on)
{
    ui->tableView->setHHeaderSortEnable(on);
}

void UxCustomTableWidget::setIsIndexSelected(bool b)
{
    ui->tableView->setIsIndexSelected(b);
}

void UxCustomTableWidget::setIsPageChanged(bool b)
{
    ui->tableView->setIsPageChanged(b);
}

void UxCustomTableWidget::setRowSelected(int row)
{
    ui->tableView->setRowSelected(row);
}

void UxCustomTableWidget::setTableViewCustomContexrtMenuEnable(bool on)
{
    ui->tableView->setTableViewCustomContexrtMenuEnable(on);
}

void UxCustomTableWidget::setSettingBtnVisible(bool visible)
{
    ui->settingBtn->setVisible(visible);
}

void UxCustomTableWidget::slotCreateTableData(const QList<TableData>& lstTableData)
{
    ui->tableView->slotCreateTableData(lstTableData);
}

void UxCustomTableWidget::slotUpdateTable(const QList<TableData>& lstTableData)
{
    ui->tableView->slotUpdateTable(lstTableData);
}

void UxCustomTableWidget::slotUpdateAllTable(const QList<TableData>& lstTableData)
{
    ui->tableView->slotUpdateAllTable(lstTableData);
}

void UxCustomTableWidget::slotSubFirstPage()
{
    ui->tableView->slotSubFirstPage();
}

void UxCustomTableWidget::moveUp(const TableData& oData, int iRow, bool bMoveTop)
{
    ui->tableView->moveUp(oData, iRow, bMoveTop);
}

void UxCustomTableWidget::moveDown(const TableData& oData, int iRow, bool bMoveDown)
{
    ui->tableView->moveDown(oData, iRow, bMoveDown);
}

void UxCustomTableWidget::remove(const TableData& oData)
{
    ui->tableView->remove(oData);
}

void UxCustomTableWidget::add(const TableData& oData)
{
    ui->tableView->add(oData);
}

void UxCustomTableWidget::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void UxCustomTableWidget::retranslate()
{
    // The form's only text is the window title, which a client may have set.
    const QString windowName = windowTitle();
    ui->retranslateUi(this);
    setWindowTitle(windowName);
}
