#include "uxfiledialog.h"
#include "ui_uxfiledialog.h"

#include "nofocusdelegate.h"
#include "uxcore.h"

#include <QComboBox>
#include <QDebug>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <QTreeView>
#include <QUrl>

namespace {
const QSize kActionButtonSize(68, 24);
const int kInputHeight = 24;

void restyle(QPushButton* button, const QString& name, const QString& sheet)
{
    if (!button)
        return;
    button->setObjectName(name);
    button->setStyleSheet(sheet);
    button->setFixedSize(kActionButtonSize);
}
} // namespace

UxFileDialog::UxFileDialog(QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::UxFileDialog)
{
    ui->setupUi(this);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowFlags(Qt::FramelessWindowHint);
    auto* helper = new UxFramelessHelper(this);
    helper->activateOn(this);
    initFileDlg();
    UxCore::instance()->addStyle2View(this, QStringLiteral("controls/filedlg.css"));
}

UxFileDialog::~UxFileDialog()
{
    qDebug() << Q_FUNC_INFO;
    delete ui;
}

QString UxFileDialog::getSaveFileName(QWidget* parent, const QString& caption, const QString& dir,
                                      const QString& filter, QString* selectedFilter)
{
    // The parent is accepted and not used: the dialog is a window of its own.
    Q_UNUSED(parent)
    UxFileDialog dlg;
    dlg.prepare(QFileDialog::AcceptSave, QFileDialog::AnyFile, caption);
    QFileDialog* fileDlg = dlg.getFileDlg();
    fileDlg->setDirectory(dir);
    // A full path given as the folder comes up as the file to save.
    fileDlg->selectFile(dir);
    fileDlg->setNameFilter(filter);
    fileDlg->setSupportedSchemes(QStringList() << QStringLiteral("file"));
    if (selectedFilter && !selectedFilter->isEmpty())
        fileDlg->selectNameFilter(*selectedFilter);
    if (dlg.exec() != QDialog::Accepted)
        return QString();
    if (selectedFilter)
        *selectedFilter = fileDlg->selectedNameFilter();
    qDebug() << Q_FUNC_INFO << fileDlg->selectedNameFilter();
    return dlg.firstSelectedPath();
}

QString UxFileDialog::getOpenFileName(QWidget* parent, const QString& caption, const QString& dir,
                                      const QString& filter, QString* selectedFilter, QFileDialog::Options options)
{
    // As for saving, the parent is not used.
    Q_UNUSED(parent)
    UxFileDialog dlg;
    dlg.prepare(QFileDialog::AcceptOpen, QFileDialog::ExistingFile, caption);
    QFileDialog* fileDlg = dlg.getFileDlg();
    fileDlg->setOptions(options);
    fileDlg->setDirectory(dir);
    fileDlg->setNameFilter(filter);
    if (selectedFilter && !selectedFilter->isEmpty())
        fileDlg->selectNameFilter(*selectedFilter);
    if (dlg.exec() != QDialog::Accepted)
        return QString();
    if (selectedFilter)
        *selectedFilter = fileDlg->selectedNameFilter();
    return dlg.firstSelectedPath();
}

QString UxFileDialog::getExistingDirectory(QWidget* parent, const QString& caption, const QString& dir,
                                           QFileDialog::Options options)
{
    Q_UNUSED(parent)
    UxFileDialog dlg;
    // Directory with ShowDirsOnly is the one spelling of "folders only" that
    // Qt 5 and Qt 6 share; the caller's options then replace the flag.
    dlg.prepare(QFileDialog::AcceptOpen, QFileDialog::Directory, caption);
    QFileDialog* fileDlg = dlg.getFileDlg();
    fileDlg->setOption(QFileDialog::ShowDirsOnly, true);
    fileDlg->setOptions(options);
    fileDlg->setDirectory(dir);
    if (dlg.exec() != QDialog::Accepted)
        return QString();
    return dlg.firstSelectedPath();
}

void UxFileDialog::setAcceptMode(QFileDialog::AcceptMode mode)
{
    m_fileDlg->setAcceptMode(mode);
    if (m_fileDlg->acceptMode() != QFileDialog::AcceptSave) {
        setTitleName(m_modeTitle = tr("文件选择框"));
    } else {
        // Saving always takes any file name.
        m_fileDlg->setFileMode(QFileDialog::AnyFile);
        setTitleName(m_modeTitle = tr("文件保存框"));
    }
}

void UxFileDialog::setFileMode(QFileDialog::FileMode mode)
{
    // Saving always takes any file name.
    if (m_fileDlg->acceptMode() == QFileDialog::AcceptOpen)
        m_fileDlg->setFileMode(mode);

    auto* buttonBox = m_fileDlg->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    if (m_fileDlg->fileMode() == QFileDialog::ExistingFiles) {
        if (auto* list = m_fileDlg->findChild<QListView*>(QStringLiteral("listView"))) {
            list->setSelectionMode(QAbstractItemView::ExtendedSelection);
            list->setItemDelegate(new NoFocusDelegate(list));
        }
        if (auto* tree = m_fileDlg->findChild<QTreeView*>(QStringLiteral("treeView"))) {
            tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
            tree->setItemDelegate(new NoFocusDelegate(tree));
            tree->header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        }
        // The buttons end this dialog directly.
        if (buttonBox) {
            disconnect(buttonBox, nullptr, nullptr, nullptr);
            connect(buttonBox, &QDialogButtonBox::accepted, this, &UxFileDialog::onAccepted);
            connect(buttonBox, &QDialogButtonBox::rejected, this, &UxFileDialog::onRejected);
        }
    }
    updateButtons();
}

QStringList UxFileDialog::selectedFiles() const
{
    if (m_fileDlg->acceptMode() != QFileDialog::AcceptSave)
        return m_fileDlg->selectedFiles();
    QString path = firstSelectedPath();
    // With no name typed the chooser reports the folder it shows.
    if (QFileInfo(path).isDir())
        path.clear();
    return QStringList() << path;
}

void UxFileDialog::initFileDlg()
{
    // Embedded in the body rather than a window of its own, and non-native so
    // that its children can be found and restyled.
    m_fileDlg = new QFileDialog(this, Qt::SubWindow | Qt::FramelessWindowHint);
    m_fileDlg->setAttribute(Qt::WA_TranslucentBackground);
    m_fileDlg->setOption(QFileDialog::DontUseNativeDialog);
    ui->bodylayout->addWidget(m_fileDlg);
    qDebug() << Q_FUNC_INFO << m_fileDlg;

    if (auto* lookIn = m_fileDlg->findChild<QLabel*>(QStringLiteral("lookInLabel")))
        lookIn->setText(tr("文件目录："));
    for (const char* name : {"fileTypeCombo", "lookInCombo"}) {
        if (auto* combo = m_fileDlg->findChild<QComboBox*>(QLatin1String(name)))
            combo->setMinimumHeight(kInputHeight);
    }
    if (auto* edit = m_fileDlg->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        edit->setMinimumHeight(kInputHeight);

    updateButtons();
    if (m_fileDlg->fileMode() != QFileDialog::ExistingFiles)
        connect(m_fileDlg, &QDialog::finished, this, &UxFileDialog::onFileDialogFinished);
    connect(ui->sysMin, &QPushButton::clicked, this, &UxFileDialog::onShowMin);
    connect(ui->sysClose, &QPushButton::clicked, this, &UxFileDialog::onShowClose);
}

void UxFileDialog::prepare(QFileDialog::AcceptMode acceptMode, QFileDialog::FileMode fileMode,
                           const QString& caption)
{
    setAcceptMode(acceptMode);
    setFileMode(fileMode);
    // The caption replaces the mode's own title, even when empty.
    setTitleName(caption);
}

namespace {
// The action buttons keep the client's own colours in every skin.
const char kAcceptSheet[] =
    "#%1{border:none;background-color: qlineargradient(x1: 0, y1: 0, x2: 1, y2: 0,stop: 0 #00BAFF, stop: 1 #00A1FF);"
    "font-size: 12px;color: #FFFFFF;border-radius:2px;}"
    "#%1:hover{background: #00C1FF;font-size: 12px;color: #FFFFFF;border-radius:2px;}"
    "#%1:disabled{background: #F0F0F0;border: 1px solid #DDDDDD;font-size: 12px;color: #BBBBBB;border-radius:2px;}";
const char kCancelSheet[] =
    "#cancelButton{border: 1px solid #DDDDDD;font-size: 12px;color: #666666;border-radius:2px;}"
    "#cancelButton:hover{font-size: 12px;color: #00A1FF;border: 1px solid #00A1FF;border-radius:2px;}"
    "#cancelButton:disabled{background: #F0F0F0;border: 1px solid #DDDDDD;font-size: 12px;color: #BBBBBB;"
    "border-radius:2px;}";
} // namespace

QString UxFileDialog::firstSelectedPath() const
{
    const QList<QUrl> urls = m_fileDlg->selectedUrls();
    return urls.isEmpty() ? QString() : urls.first().toLocalFile();
}

QFileDialog* UxFileDialog::getFileDlg() const
{
    return m_fileDlg;
}

void UxFileDialog::updateButtons()
{
    auto* buttonBox = m_fileDlg->findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    if (!buttonBox)
        return;
    const QString accept = QLatin1String(kAcceptSheet);
    restyle(buttonBox->button(QDialogButtonBox::Open), QStringLiteral("openButton"),
            accept.arg(QLatin1String("openButton")));
    restyle(buttonBox->button(QDialogButtonBox::Save), QStringLiteral("saveButton"),
            accept.arg(QLatin1String("saveButton")));
    QPushButton* cancel = buttonBox->button(QDialogButtonBox::Cancel);
    restyle(cancel, QStringLiteral("cancelButton"), QLatin1String(kCancelSheet));
    if (cancel)
        cancel->setText(tr("取消"));
}

void UxFileDialog::setTitleName(const QString& title)
{
    ui->titleLabel->setText(title);
    setWindowTitle(title);
}

QWidget* UxFileDialog::widget()
{
    return this;
}

void UxFileDialog::loadSkin(const QVariant& style)
{
    IUxSkin::loadSkin(style);
}

void UxFileDialog::paintEvent(QPaintEvent* event)
{
    // Lets the sheet paint this dialog's background.
    QStyleOption option;
    option.initFrom(this);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
    QDialog::paintEvent(event);
}

void UxFileDialog::mousePressEvent(QMouseEvent* event)
{
    QWidget::mousePressEvent(event);
}

void UxFileDialog::onFileDialogFinished(int result)
{
    if (result == QDialog::Accepted)
        accept();
    else
        reject();
}

void UxFileDialog::onAccepted()
{
    accept();
}

void UxFileDialog::onRejected()
{
    reject();
}

void UxFileDialog::onShowMin(bool checked)
{
    Q_UNUSED(checked)
    showMinimized();
}

void UxFileDialog::onShowClose(bool checked)
{
    Q_UNUSED(checked)
    close();
}

bool UxFileDialog::event(QEvent* event)
{
    // After the base class: the embedded chooser resets its own texts when the
    // event reaches it, and ours must win.
    const bool result = QDialog::event(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        // The chooser may see the change after us and reset its buttons.
        QMetaObject::invokeMethod(this, [this] { updateButtons(); }, Qt::QueuedConnection);
    }
    return result;
}

void UxFileDialog::retranslate()
{
    const QString title = ui->titleLabel->text();
    ui->retranslateUi(this);
    // A caption the client gave stays; the mode's own title follows the language.
    if (!m_modeTitle.isEmpty() && title == m_modeTitle)
        setTitleName(m_modeTitle = m_fileDlg->acceptMode() == QFileDialog::AcceptSave ? tr("文件保存框")
                                                                                     : tr("文件选择框"));
    else
        setTitleName(title);
    if (auto* lookIn = m_fileDlg->findChild<QLabel*>(QStringLiteral("lookInLabel")))
        lookIn->setText(tr("文件目录："));
    updateButtons();
}
