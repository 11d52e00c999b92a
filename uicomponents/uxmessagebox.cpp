#include "uxmessagebox.h"
#include "uxscaledpixmap.h"
#include "ui_uxmessagebox.h"

#include "uxcore.h"

#include <QDialogButtonBox>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QStyle>

namespace {
// Added to the dialog's own flags (0x812): frameless, plus the sub-window
// bits the client's boxes have always carried.
const Qt::WindowFlags kExtraWindowFlags = Qt::FramelessWindowHint | Qt::SubWindow;

// The skin's shadow pieces, in painting order.
const char* const kShadowImages[] = {
    "bg/shadow_top_left.png", "bg/shadow_left.png",  "bg/shadow_bottom_left.png", "bg/shadow_top.png",
    "bg/shadow_bottom.png",   "bg/shadow_right.png", "bg/shadow_top_right.png",   "bg/shadow_bottom_right.png",
};

// The four one-call helpers differ in name only: no icon, default button or parent.
int runBox(const QString& title, const QString& text, QFlags<QMessageBox::StandardButton> buttons)
{
    UxMessageBox box(title, text, buttons, nullptr);
    return box.exec();
}
} // namespace

UxMessageBox::UxMessageBox(const QString& title, const QString& text, QFlags<QMessageBox::StandardButton> buttons,
                           QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::UxMessageBox)
{
    ui->setupUi(this);
    initView();
    createConnections();
    if (!m_buttonBox) {
        m_buttonBox = new QDialogButtonBox(this);
        m_buttonBox->setObjectName(QStringLiteral("BtnBox"));
    }
    m_buttonBox->setStandardButtons(QDialogButtonBox::StandardButtons(int(buttons)));
    setButtonsText();
    ui->titleLabel->setText(title);
    ui->contentsLabel->setText(text);
    placeButtonBox();
}

UxMessageBox::UxMessageBox(QWidget* parent)
    : QDialog(parent)
    , ui(new Ui::UxMessageBox)
{
    ui->setupUi(this);
    initView();
    m_buttonBox = new QDialogButtonBox(this);
    m_buttonBox->setObjectName(QStringLiteral("BtnBox"));
    setButtonsText();
    placeButtonBox();
    createConnections();
}

UxMessageBox::~UxMessageBox()
{
    delete ui;
    // The button that closed the box goes first, before Qt tears down the
    // remaining children: clients rely on that order.
    if (m_clickedButton)
        delete m_clickedButton.data();
    if (m_extraButton)
        delete m_extraButton.data();
}

int UxMessageBox::information(const QString& title, const QString& text, QFlags<QMessageBox::StandardButton> buttons)
{
    return runBox(title, text, buttons);
}

int UxMessageBox::warning(const QString& title, const QString& text, QFlags<QMessageBox::StandardButton> buttons)
{
    return runBox(title, text, buttons);
}

int UxMessageBox::critical(const QString& title, const QString& text, QFlags<QMessageBox::StandardButton> buttons)
{
    return runBox(title, text, buttons);
}

int UxMessageBox::question(const QString& title, const QString& text, QFlags<QMessageBox::StandardButton> buttons)
{
    return runBox(title, text, buttons);
}

int UxMessageBox::exec()
{
    return mapResult(QDialog::exec());
}

int UxMessageBox::mapResult(int result)
{
    if (result == -1)
        return QMessageBox::Cancel;
    return execReturnCode(m_clickedButton);
}

QPushButton* UxMessageBox::addButton(QMessageBox::StandardButton button)
{
    QPushButton* added = m_buttonBox->addButton(QDialogButtonBox::StandardButton(int(button)));
    setButtonText(added);
    return added;
}

QAbstractButton* UxMessageBox::clickedButton() const
{
    return m_clickedButton;
}

QMessageBox::StandardButton UxMessageBox::standardButton(QAbstractButton* button) const
{
    return QMessageBox::StandardButton(int(m_buttonBox->standardButton(button)));
}

int UxMessageBox::execReturnCode(QAbstractButton* button)
{
    return standardButton(button);
}

void UxMessageBox::setTitle(const QString& title)
{
    ui->titleLabel->setText(title);
}

void UxMessageBox::setText(const QString& text)
{
    ui->contentsLabel->setText(text);
}

void UxMessageBox::setTextStytle(const QString& name)
{
    ui->contentsLabel->setObjectName(name);
}

void UxMessageBox::setHLineVisible(bool visible)
{
    ui->hLine->setVisible(visible);
}

void UxMessageBox::setCheckBoxText(const QString& text)
{
    ui->checkBox->setText(text);
}

void UxMessageBox::setCheckBoxVisible(bool visible)
{
    if (visible != m_checkBoxVisible) {
        style()->unpolish(this);
        m_checkBoxVisible = visible;
        style()->polish(this);
        emit sigCheckBoxVisibleChanged(visible);
    }
    ui->checkBox->setVisible(visible);
}

bool UxMessageBox::checkBoxVisible()
{
    return m_checkBoxVisible;
}

bool UxMessageBox::checkBoxChecked()
{
    return ui->checkBox->checkState() == Qt::Checked;
}

void UxMessageBox::initView()
{
    setAttribute(Qt::WA_TranslucentBackground, true);
    ui->contentsLabel->setWordWrap(true);
    if (m_checkBoxVisible) {
        style()->unpolish(this);
        m_checkBoxVisible = false;
        style()->polish(this);
        emit sigCheckBoxVisibleChanged(false);
    }
    ui->checkBox->hide();
    setWindowFlags(windowFlags() | kExtraWindowFlags);

    auto* helper = new UxFramelessHelper(this);
    helper->activateOn(this);
    helper->setWidgetMovable(true, 0);
    helper->setWidgetResizable(false);

    UxCore::instance()->addStyle2View(this, QStringLiteral("controls/messagebox.css"));
}

QWidget* UxMessageBox::widget()
{
    return this;
}

void UxMessageBox::loadSkin(const QVariant& style)
{
    IUxSkin::loadSkin(style);
}

void UxMessageBox::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, true);

    const int s = m_shadowWidth;
    const int w = width();
    const int h = height();
    const QRect pieces[] = {
        QRect(0, 0, s, s),         QRect(0, s, s, h - 2 * s),     QRect(0, h - s, s, s),
        QRect(s, 0, w - 2 * s, s), QRect(s, h - s, w - 2 * s, s), QRect(w - s, s, s, h - 2 * s),
        QRect(w - s, 0, s, s),     QRect(w - s, h - s, s, s),
    };
    UxCore* core = UxCore::instance();
    const qreal ratio = painter.device()->devicePixelRatioF();
    for (int i = 0; i < 8; ++i) {
        // A piece the skin lacks is simply left out.
        const QPixmap piece =
            UxScaledPixmap::load(core->getCurrentSkinPath(QLatin1String(kShadowImages[i])), ratio);
        if (!piece.isNull())
            painter.drawPixmap(pieces[i], piece);
    }

    painter.setBrush(QColor(QStringLiteral("#ffffff")));
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(rect().adjusted(s, s, -s, -s), 1, 1, Qt::RelativeSize);
}

void UxMessageBox::slotButtonClicked(QAbstractButton* button)
{
    m_clickedButton = button;
    done(m_buttonBox->standardButton(button));
}

void UxMessageBox::placeButtonBox()
{
    // Stretches on both sides centre the buttons.
    ui->btnHLayout->addStretch();
    ui->btnHLayout->addWidget(m_buttonBox);
    ui->btnHLayout->addStretch();
    connect(m_buttonBox, SIGNAL(clicked(QAbstractButton*)), this, SLOT(slotButtonClicked(QAbstractButton*)));
}

void UxMessageBox::createConnections()
{
    connect(ui->closeBtn, &QPushButton::clicked, ui->closeBtn, [this]() { reject(); }, Qt::DirectConnection);
}

void UxMessageBox::setButtonsText()
{
    const QList<QAbstractButton*> buttons = m_buttonBox->buttons();
    for (QAbstractButton* button : buttons)
        setButtonText(button);
}

void UxMessageBox::setButtonText(QAbstractButton* button)
{
    if (!button)
        return;
    switch (m_buttonBox->standardButton(button)) {
    case QDialogButtonBox::Ok:
        button->setText(tr("确定"));
        break;
    case QDialogButtonBox::Save:
        button->setText(tr("Save"));
        break;
    case QDialogButtonBox::SaveAll:
        button->setText(tr("Save All"));
        break;
    case QDialogButtonBox::Open:
        button->setText(tr("Open"));
        break;
    case QDialogButtonBox::Yes:
        button->setText(tr("确定"));
        break;
    case QDialogButtonBox::YesToAll:
        button->setText(tr("Yes to All"));
        break;
    case QDialogButtonBox::No:
        button->setText(tr("取消"));
        break;
    case QDialogButtonBox::NoToAll:
        button->setText(tr("No to All"));
        break;
    case QDialogButtonBox::Abort:
        button->setText(tr("Abort"));
        break;
    case QDialogButtonBox::Retry:
        button->setText(tr("Retry"));
        break;
    case QDialogButtonBox::Ignore:
        button->setText(tr("Ignore"));
        break;
    case QDialogButtonBox::Close:
        button->setText(tr("Close"));
        break;
    case QDialogButtonBox::Cancel:
        button->setText(tr("取消"));
        break;
    case QDialogButtonBox::Discard:
        button->setText(tr("Discard"));
        break;
    case QDialogButtonBox::Help:
        button->setText(tr("Help"));
        break;
    case QDialogButtonBox::Apply:
        button->setText(tr("Apply"));
        break;
    case QDialogButtonBox::Reset:
        button->setText(tr("Reset"));
        break;
    case QDialogButtonBox::RestoreDefaults:
        button->setText(tr("Restore Defaults"));
        break;
    default:
        break;
    }
}

bool UxMessageBox::event(QEvent* event)
{
    // After the base class: the button box retranslates its standard buttons
    // to Qt's own texts when the event reaches it, and ours must win.
    const bool result = QDialog::event(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    return result;
}

void UxMessageBox::retranslate()
{
    // The form's texts are empty: keep what the client set.
    const QString title = ui->titleLabel->text();
    const QString text = ui->contentsLabel->text();
    const QString check = ui->checkBox->text();
    const QString windowName = windowTitle();
    ui->retranslateUi(this);
    ui->titleLabel->setText(title);
    ui->contentsLabel->setText(text);
    ui->checkBox->setText(check);
    setWindowTitle(windowName);
    setButtonsText();
}
