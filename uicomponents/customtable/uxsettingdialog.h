#ifndef UXSETTINGDIALOG_H
#define UXSETTINGDIALOG_H

#include "uicomponents_export.h"
#include "uxtabledefines.h"

#include <iuxskin.h>

#include <QDialog>
#include <QList>
#include <QString>
#include <QStringList>

class QListWidgetItem;

namespace Ui {
class UxSettingDialog;
}

/// Lets the user choose which columns of the quote table are shown and in
/// what order. The first three columns of the list (the table's frozen ones)
/// are kept aside: they are never listed, hidden or moved, and they come back
/// first from getAllItems(). Only checked columns can be moved. Every change
/// emits sigItemChanged(), so an owner can apply it before the dialog closes
/// (a single move emits it more than once).
///
/// exec() returns QDialog::Accepted for OK and Rejected for Cancel, Escape and
/// the close button. The close button closes the dialog's parent widget when
/// it has one. Styled by the skin's "quote/settingdlg.css". Its captions follow
/// the installed translation, live; titles set through setTitle() stay.
class UICOMPONENTS_EXPORT UxSettingDialog : public QDialog, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    explicit UxSettingDialog(QWidget* parent = nullptr);
    ~UxSettingDialog() override;

    void createItems(const QList<_TableHHeaderData>& list);
    /// Reads "<application dir>/config/<fileName>".
    void createItems(const QString& fileName);

    QList<_TableHHeaderData> getAllItems();
    QList<_TableHHeaderData> getAllSelectedItems();

    /// index 0..3 address the four title labels; other indexes do nothing.
    void setTitle(int index, const QString& text);
    void setTitleVisible(int index, bool visible);
    void setTopVisible(bool visible);
    void setMidTipsVisible(bool visible);
    void setBottomVisible(bool visible);

Q_SIGNALS:
    void sigItemChanged();

protected:
    void changeEvent(QEvent* event) override;

private Q_SLOTS:
    void slotBtnTopClicked();
    void slotBtnUpClicked();
    void slotBtnDownClicked();
    void slotItemChanged(QListWidgetItem* item);

private:
    void connectSignals();
    void clearAllItems();
    QListWidgetItem* movableItem() const;
    void swapItems(QListWidgetItem* a, QListWidgetItem* b);
    /// Exchanges the selected checked item with its neighbour STEP rows away.
    void moveSelectedBy(int step);
    QWidget* titleLabel(int index) const;
    QStringList titleTexts() const;
    void retranslate();

    Ui::UxSettingDialog* ui;
    QList<_TableHHeaderData> m_fixedItems;
    QStringList m_formTitles; ///< the form's own titles, as last translated
};

#endif // UXSETTINGDIALOG_H
