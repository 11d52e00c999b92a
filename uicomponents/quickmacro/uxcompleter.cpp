#include "uxcompleter.h"

#include "uxnewsearchlineedit.h"
#include "uxquickmacromatcher.h"

#include <QDebug>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QTreeWidget>

namespace {
const int MaxVisibleRows = 7;
}

UxCompleter::UxCompleter(QLineEdit* parent)
    : QObject(parent)
    , m_editor(parent)
{
    m_popup = new QTreeWidget(parent);
    m_popup->setObjectName(QStringLiteral("completerPopup"));
    m_popup->setWindowFlags(Qt::Popup);
    m_popup->setFocusPolicy(Qt::NoFocus);
    m_popup->setAttribute(Qt::WA_MouseTracking);
    m_popup->setColumnCount(2);
    m_popup->setUniformRowHeights(true);
    m_popup->setRootIsDecorated(false);
    m_popup->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_popup->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_popup->setFrameStyle(QFrame::Box | QFrame::Plain);
    m_popup->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_popup->header()->hide();
    m_popup->installEventFilter(this);
    connect(m_popup, SIGNAL(itemClicked(QTreeWidgetItem*,int)), this, SLOT(doneCompletion()));

    m_timer = new QTimer(this);
    m_timer->setObjectName(QStringLiteral("suggestTimer"));
    m_timer->setSingleShot(true);
    m_timer->setInterval(400);
    connect(m_timer, SIGNAL(timeout()), this, SLOT(autoSuggest()));
    if (m_editor)
        connect(m_editor, SIGNAL(textEdited(QString)), m_timer, SLOT(start()));
}

UxCompleter::~UxCompleter()
{
    // Without an editor nothing else owns the popup.
    if (!m_popup->parent())
        delete m_popup;
}

void UxCompleter::doneCompletion()
{
    m_timer->stop();
    m_popup->hide();
    QTreeWidgetItem* item = m_popup->currentItem();
    if (item && m_editor)
        m_editor->setText(item->text(0));
    m_timer->stop();
}

void UxCompleter::preventSuggest()
{
    m_timer->stop();
}

void UxCompleter::autoSuggest()
{
    if (m_editor && !m_editor->text().isEmpty())
        slotRspCodeSearchs();
}

void UxCompleter::slotRspCodeSearchs()
{
    auto* editor = qobject_cast<UxNewSearchLineEdit*>(m_editor);
    if (!editor)
        return;
    const QVector<quickMacroItem*> dict = editor->getDictData();
    if (dict.isEmpty())
        return;
    const QString text = editor->text().trimmed();

    QStringList codes;
    QStringList names;
    for (const quickMacroItem* item : dict) {
        if (!UxQuickMacroMatcher::isUsable(item))
            continue;
        const QStringList& texts = item->texts;
        if (texts.at(1).contains(text, Qt::CaseInsensitive) || texts.at(3).contains(text, Qt::CaseInsensitive)) {
            codes.append(texts.at(1));
            names.append(texts.at(2));
        }
    }
    if (!codes.isEmpty())
        showSuggestions(codes, names);
}

void UxCompleter::showSuggestions(const QStringList& codes, const QStringList& names)
{
    if (!m_editor) {
        qDebug() << Q_FUNC_INFO << "no line edit to suggest for!";
        return;
    }
    if (codes.isEmpty() || codes.size() != names.size())
        return;

    m_popup->setUpdatesEnabled(false);
    m_popup->clear();
    QList<QTreeWidgetItem*> items;
    items.reserve(codes.size());
    for (int i = 0; i < codes.size(); ++i) {
        auto* item = new QTreeWidgetItem(QStringList{codes.at(i), names.at(i)});
        item->setTextAlignment(1, Qt::AlignLeft | Qt::AlignVCenter);
        items.append(item);
    }
    m_popup->addTopLevelItems(items);
    m_popup->setCurrentItem(m_popup->topLevelItem(0));
    m_popup->setFixedWidth(m_editor->width());
    m_popup->setColumnWidth(0, m_popup->width() / 2);
    m_popup->setColumnWidth(1, m_popup->width() / 2);
    m_popup->adjustSize();
    m_popup->setUpdatesEnabled(true);

    const int rows = qMin(m_popup->topLevelItemCount(), MaxVisibleRows);
    m_popup->resize(m_popup->width(), m_popup->sizeHintForRow(0) * rows + 3);
    m_popup->move(m_editor->mapToGlobal(QPoint(0, m_editor->height())));
    m_popup->setFocus();
    m_popup->show();
}

bool UxCompleter::eventFilter(QObject* obj, QEvent* ev)
{
    if (obj != m_popup || !ev || !m_editor)
        return QObject::eventFilter(obj, ev);

    if (ev->type() == QEvent::MouseButtonPress) {
        m_popup->hide();
        m_editor->setFocus(Qt::OtherFocusReason);
        return true;
    }
    if (ev->type() != QEvent::KeyPress)
        return false;

    switch (static_cast<QKeyEvent*>(ev)->key()) {
    case Qt::Key_Escape:
        m_editor->setFocus(Qt::OtherFocusReason);
        m_popup->hide();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_timer->stop();
        m_popup->hide();
        if (QTreeWidgetItem* item = m_popup->currentItem())
            m_editor->setText(item->text(0));
        m_timer->stop();
        m_editor->setFocus(Qt::OtherFocusReason);
        m_popup->hide();
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return false;
    default:
        m_editor->setFocus(Qt::OtherFocusReason);
        m_editor->event(ev);
        m_popup->hide();
        return false;
    }
}
