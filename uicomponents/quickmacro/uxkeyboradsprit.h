#ifndef UXKEYBORADSPRIT_H
#define UXKEYBORADSPRIT_H

#include "iuxskin.h"
#include "quickmacroitem.h"
#include "uicomponents_export.h"

#include <QFrame>
#include <QList>
#include <QModelIndex>
#include <QSet>
#include <QStringList>
#include <QVector>

#include <memory>

class QLineEdit;
class QuickMacroView;
class UxQuickMacroMatcher;
template <typename T>
class UxWidgetSingleton;
namespace Ui {
class UxKeyBoradSprit;
}

/// The client's one keyboard wizard: a popup list that opens under whichever
/// line edit has focus, lists the dictionary records matching what is typed,
/// moves with Up/Down and writes the chosen code back on Enter.
///
/// Attach it with lineEdit->installEventFilter(UxKeyBoradSprit::initance()).
/// Set the line edit's property "needopen" to true to also get
/// signalStockSelected(url, type) when a hit is chosen. The popup's property
/// "root" holds the QLineEdit* it last opened under.
///
/// The popup becomes a child of the line edit's window while shown and leaves
/// it when that line edit is destroyed, so it outlives every client window.
/// Mouse clicks on the list choose nothing: choosing is by keyboard only.
///
/// Choices of our own, each where the plain rule would leave a dangling
/// pointer or read past a record:
/// - A line edit's text and destroy handlers are connected once, however often
///   it gains focus: connecting again at every focus-in would add one more
///   handler per focus change without bound, and one edit would run as many
///   searches.
/// - A focus-out with no hits drops the text handler but keeps watching the
///   line edit's destruction. The popup stays a child of that line edit's
///   window; without the watch, closing the window would destroy the shared
///   instance, which must live as long as the process, and leave every client
///   that kept the pointer from initance() with a dangling one.
/// - The popup also leaves the window it sits in when that window is
///   destroyed. A hidden popup has been lowered to the first of the window's
///   children, so it would die with the window before any line edit's
///   destroy handler could rescue it.
/// - Null pointers and records with fewer than four texts never show.
/// - A window too small for the 30-pixel gap gives the popup height 0, the
///   size Qt itself would clamp the negative height to.
class UICOMPONENTS_EXPORT UxKeyBoradSprit : public QFrame, public IUxSkin
{
    Q_OBJECT
    Q_INTERFACES(IUxSkin)
public:
    static UxKeyBoradSprit* initance();
    ~UxKeyBoradSprit() override;

    void setDictData(const QVector<quickMacroItem*>& items);
    void updateResult(const QString& text);

Q_SIGNALS:
    void signalStockSelected(QString strUrl, int nType);

public Q_SLOTS:
    void clear();
    void focusRowChanged(int nDirection);

public:
    Q_INVOKABLE QString dbClicked(QModelIndex index, bool needOpenPage = false);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit UxKeyBoradSprit(QWidget* parent = nullptr);
    friend class UxWidgetSingleton<UxKeyBoradSprit>;

    void initUi();
    void showWithParent(QWidget* lineEdit);
    void searchTextChanged(const QString& text);
    void attach(QLineEdit* lineEdit);
    void watchDestruction(QLineEdit* lineEdit);
    void onAttachedTextChanged(QLineEdit* lineEdit, const QString& text);
    void onAttachedDestroyed(QObject* lineEdit);

    Ui::UxKeyBoradSprit* ui = nullptr;
    QuickMacroView* m_view = nullptr;
    QVector<quickMacroItem*> m_dict;
    QVector<quickMacroItem*> m_result;
    QStringList m_groupNames;
    QList<QList<QStringList>> m_groups;
    int m_type = 0;

    std::unique_ptr<UxQuickMacroMatcher> m_matcher;
    QSet<QObject*> m_attached; ///< line edits whose text handler is connected
    QSet<QObject*> m_watched;  ///< line edits whose destruction is watched
    const QObject* m_root = nullptr; ///< identity of the "root" line edit, never dereferenced
    QMetaObject::Connection m_hostWatch; ///< the destroyed() of the window the popup sits in
};

#endif // UXKEYBORADSPRIT_H
