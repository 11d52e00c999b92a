#ifndef UXMESSAGEBOX_H
#define UXMESSAGEBOX_H

#include "uicomponents_export.h"
#include "iuxskin.h"

#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <QString>

class QAbstractButton;
class QDialogButtonBox;
class QPaintEvent;
class QPushButton;

namespace Ui {
class UxMessageBox;
}

/// The client's skinned message box: a frameless, movable, translucent modal
/// dialog with its own title bar, a centred message, a centred row of standard
/// buttons and an optional check box under them. It paints an eight-piece
/// shadow from the skin ("bg/shadow_*.png", their "@2x" siblings above 100%)
/// and a white panel inside it; the sheet "controls/messagebox.css" styles the
/// rest.
///
/// exec() and the static helpers return the standard value of the button that
/// closed the box, QMessageBox::NoButton (0) when it was closed by its close
/// button or Escape, and QMessageBox::Cancel when the dialog loop reports -1.
/// Ok and Yes read "确定", No and Cancel read "取消": a question reads as
/// confirm/cancel. Button texts follow the installed translation, live.
///
/// Choices of our own:
/// - Defaults: buttons QMessageBox::Ok and no parent, for the constructor and
///   the helpers alike.
/// - The remembered clicked button is deleted first on destruction, as the
///   client relies on; it is tracked weakly, so a button the caller deleted
///   in the meantime is not deleted twice.
class UICOMPONENTS_EXPORT UxMessageBox : public QDialog, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
    Q_PROPERTY(bool checkBoxVisible READ checkBoxVisible WRITE setCheckBoxVisible NOTIFY sigCheckBoxVisibleChanged)

public:
    UxMessageBox(const QString& title, const QString& text,
                 QFlags<QMessageBox::StandardButton> buttons = QMessageBox::Ok, QWidget* parent = nullptr);
    explicit UxMessageBox(QWidget* parent = nullptr);
    ~UxMessageBox() override;

    static int information(const QString& title, const QString& text,
                           QFlags<QMessageBox::StandardButton> buttons = QMessageBox::Ok);
    static int warning(const QString& title, const QString& text,
                       QFlags<QMessageBox::StandardButton> buttons = QMessageBox::Ok);
    static int critical(const QString& title, const QString& text,
                        QFlags<QMessageBox::StandardButton> buttons = QMessageBox::Ok);
    static int question(const QString& title, const QString& text,
                        QFlags<QMessageBox::StandardButton> buttons = QMessageBox::Ok);

    QPushButton* addButton(QMessageBox::StandardButton button);
    QAbstractButton* clickedButton() const;
    QMessageBox::StandardButton standardButton(QAbstractButton* button) const;

    void setTitle(const QString& title);
    void setText(const QString& text);
    /// Renames the message label so that a sheet rule selected by NAME styles it.
    void setTextStytle(const QString& name);
    void setHLineVisible(bool visible);
    void setCheckBoxText(const QString& text);
    void setCheckBoxVisible(bool visible);
    bool checkBoxVisible();
    /// A partially checked box counts as not checked.
    bool checkBoxChecked();

    void initView();

    QWidget* widget() override;
    void loadSkin(const QVariant& style) override;

Q_SIGNALS:
    void sigCheckBoxVisibleChanged(bool visible);

public Q_SLOTS:
    int exec() override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private Q_SLOTS:
    void slotButtonClicked(QAbstractButton* button);

private:
    void createConnections();
    void placeButtonBox();
    void setButtonsText();
    void setButtonText(QAbstractButton* button);
    void retranslate();
    int execReturnCode(QAbstractButton* button);
    int mapResult(int result);

    Ui::UxMessageBox* ui;
    QDialogButtonBox* m_buttonBox = nullptr;
    QPointer<QAbstractButton> m_clickedButton;
    QPointer<QAbstractButton> m_extraButton; ///< never set: stays null
    bool m_checkBoxVisible = false;
    QString m_text;
    int m_shadowWidth = 4; ///< width of the painted shadow border
};

#endif // UXMESSAGEBOX_H
