#ifndef UXTIMEPOPWIDGET_H
#define UXTIMEPOPWIDGET_H

#include "uicomponents_export.h"
#include "iuxskin.h"

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QPointer>
#include <QWidget>

class QPushButton;

/// The borderless grid of two-digit buttons behind a time field: "00".."23" for
/// hours (kind 0), "00".."59" for minutes (1) and seconds (2). Buttons whose
/// value would take the time outside [min, max] are disabled; an invalid
/// current value or bound compares as Qt compares invalid date-times.
class UICOMPONENTS_EXPORT UxTimePopWidget : public QWidget, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    UxTimePopWidget(QWidget* parent, int kind);
    ~UxTimePopWidget() override;

    void setCalendarPopWidget(QWidget* owner);
    void setDateTime(const QDateTime& min, const QDateTime& max, const QDateTime& current);

Q_SIGNALS:
    void signalTimeBtnClicked(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private Q_SLOTS:
    void onBtnClicked();

private:
    void setupUi();
    bool containsPopWidget(QWidget* w) const;

    int m_kind;
    QPointer<QWidget> m_owner;
    QMap<int, int> m_btnCounts;
    QList<QPushButton*> m_buttons;
};

#endif // UXTIMEPOPWIDGET_H
