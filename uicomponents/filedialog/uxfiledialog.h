#ifndef UXFILEDIALOG_H
#define UXFILEDIALOG_H

#include "uicomponents_export.h"
#include "iuxskin.h"

#include <QDialog>
#include <QFileDialog>
#include <QString>
#include <QStringList>

class QMouseEvent;
class QPaintEvent;

namespace Ui {
class UxFileDialog;
}

/// The skinned file chooser: a frameless, translucent dialog with its own
/// title bar (title, minimise, close) around an embedded, non-native
/// QFileDialog. Its look comes from "controls/filedlg.css"; the Open, Save and
/// Cancel buttons of the chooser carry fixed sheets of their own.
///
/// In save mode setFileMode() is ignored: saving always takes any file name.
/// In ExistingFiles mode the chooser's button box ends the dialog directly.
/// The static helpers return an empty string for anything but acceptance; their
/// parent argument is accepted and not used (the dialog is always top-level).
///
/// In save mode selectedFiles() holds one entry, and it is empty while no
/// file name is chosen: the chooser itself reports the folder it shows in
/// that case, which is not a file to save to.
///
/// The Chinese texts are stored as UTF-8 and translated through tr(), so they
/// show whatever the local 8-bit codec is.
///
/// Our texts follow the installed translation, live; a caption the client
/// gave stays as given.
class UICOMPONENTS_EXPORT UxFileDialog : public QDialog, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)

public:
    explicit UxFileDialog(QWidget* parent = nullptr);
    ~UxFileDialog() override;

    static QString getOpenFileName(QWidget* parent = nullptr, const QString& caption = QString(),
                                   const QString& dir = QString(), const QString& filter = QString(),
                                   QString* selectedFilter = nullptr,
                                   QFileDialog::Options options = QFileDialog::Options());
    static QString getSaveFileName(QWidget* parent = nullptr, const QString& caption = QString(),
                                   const QString& dir = QString(), const QString& filter = QString(),
                                   QString* selectedFilter = nullptr);
    static QString getExistingDirectory(QWidget* parent = nullptr, const QString& caption = QString(),
                                        const QString& dir = QString(),
                                        QFileDialog::Options options = QFileDialog::ShowDirsOnly);

    void setAcceptMode(QFileDialog::AcceptMode mode);
    void setFileMode(QFileDialog::FileMode mode);
    QStringList selectedFiles() const;

    QWidget* widget() override;
    void loadSkin(const QVariant& style) override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private Q_SLOTS:
    void onFileDialogFinished(int result);
    void onAccepted();
    void onRejected();
    void onShowMin(bool checked);
    void onShowClose(bool checked);

private:
    void initFileDlg();
    /// The helpers' common start: modes in this order, then the title.
    void prepare(QFileDialog::AcceptMode acceptMode, QFileDialog::FileMode fileMode, const QString& caption);
    void updateButtons();
    void setTitleName(const QString& title);
    QFileDialog* getFileDlg() const;
    QString firstSelectedPath() const;
    void retranslate();

    Ui::UxFileDialog* ui;
    QFileDialog* m_fileDlg = nullptr;
    QString m_modeTitle; ///< the mode's own title, as last translated
};

#endif // UXFILEDIALOG_H
