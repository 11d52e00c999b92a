#include "uxkeyboradsprit.h"
#include "ui_uxkeyboradsprit.h"

#include "quickmacroview.h"
#include "uxcore.h"
#include "uxquickmacromatcher.h"
#include "uxwidgetsingleton_p.h"

#include <QDebug>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

UxKeyBoradSprit* UxKeyBoradSprit::initance()
{
    static UxWidgetSingleton<UxKeyBoradSprit> instance;
    return instance.get();
}

UxKeyBoradSprit::UxKeyBoradSprit(QWidget* parent)
    : QFrame(parent)
    , ui(new Ui::UxKeyBoradSprit)
    , m_matcher(new UxQuickMacroMatcher)
{
    m_type = 0;
    ui->setupUi(this);
    initUi();
    UxCore::instance()->addStyle2View(this, QStringLiteral("controls/quickmacro.css"));
}

UxKeyBoradSprit::~UxKeyBoradSprit()
{
    delete ui;
}

void UxKeyBoradSprit::initUi()
{
    m_dict.clear();
    m_result.clear();
    m_groupNames.clear();
    m_groups.clear();

    m_view = new QuickMacroView(this);
    m_view->setFixedHeight(362);

    auto* layout = new QVBoxLayout(this);
    layout->setObjectName(QStringLiteral("keyboardLayout"));
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setLayout(layout);
}

void UxKeyBoradSprit::setDictData(const QVector<quickMacroItem*>& items)
{
    m_dict = items;
    m_matcher->setDictionary(m_dict);
    m_result = m_matcher->search(QString());
    m_view->setTableData(m_result, m_groupNames, m_groups, false);
}

void UxKeyBoradSprit::updateResult(const QString& text)
{
    if (text.isEmpty()) {
        lower();
        hide();
        return;
    }
    searchTextChanged(text);
}

QString UxKeyBoradSprit::dbClicked(QModelIndex index, bool needOpenPage)
{
    const quickMacroItem* hit = UxQuickMacroMatcher::hitAt(m_result, index);
    if (!hit)
        return QString();
    if (needOpenPage)
        emit signalStockSelected(hit->url, m_type);
    return hit->texts.at(1);
}

void UxKeyBoradSprit::focusRowChanged(int nDirection)
{
    const QModelIndex index = QuickMacroView::stepCurrentRow(m_view, nDirection, QAbstractItemView::PositionAtTop);
    qDebug() << Q_FUNC_INFO << index;
}

void UxKeyBoradSprit::clear()
{
}

bool UxKeyBoradSprit::eventFilter(QObject* watched, QEvent* event)
{
    auto* lineEdit = qobject_cast<QLineEdit*>(watched);
    if (!lineEdit || !event)
        return QFrame::eventFilter(watched, event);

    switch (event->type()) {
    case QEvent::FocusIn: {
        qDebug() << Q_FUNC_INFO << lineEdit << " event " << event->type();
        attach(lineEdit);
        const QString text = lineEdit->text();
        if (text.isEmpty())
            return false;
        showWithParent(lineEdit);
        searchTextChanged(text);
        break;
    }
    case QEvent::FocusOut:
        if (!m_result.isEmpty())
            break;
        qDebug() << Q_FUNC_INFO << lineEdit << " event " << event->type();
        disconnect(lineEdit, nullptr, this, nullptr);
        m_attached.remove(lineEdit);
        m_watched.remove(lineEdit);
        // Keep the rescue from a closing window even while detached.
        watchDestruction(lineEdit);
        lower();
        hide();
        break;
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up) {
            focusRowChanged(0);
        } else if (key == Qt::Key_Down) {
            focusRowChanged(1);
        } else if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            const bool needOpen = lineEdit->property("needopen").toBool();
            const QString code = dbClicked(m_view->currentIndex(), needOpen);
            lineEdit->setText(code);
            lower();
            hide();
            return true;
        }
        break;
    }
    default:
        break;
    }
    return QFrame::eventFilter(watched, event);
}

void UxKeyBoradSprit::attach(QLineEdit* lineEdit)
{
    watchDestruction(lineEdit);
    if (m_attached.contains(lineEdit))
        return;
    m_attached.insert(lineEdit);
    connect(lineEdit, &QLineEdit::textChanged, this,
            [this, lineEdit](const QString& text) { onAttachedTextChanged(lineEdit, text); });
}

void UxKeyBoradSprit::watchDestruction(QLineEdit* lineEdit)
{
    if (m_watched.contains(lineEdit))
        return;
    m_watched.insert(lineEdit);
    connect(lineEdit, &QObject::destroyed, this, &UxKeyBoradSprit::onAttachedDestroyed);
}

void UxKeyBoradSprit::onAttachedTextChanged(QLineEdit* lineEdit, const QString& text)
{
    qDebug() << Q_FUNC_INFO << text;
    showWithParent(lineEdit);
    if (text.isEmpty()) {
        lower();
        hide();
    } else {
        searchTextChanged(text);
    }
}

void UxKeyBoradSprit::onAttachedDestroyed(QObject* lineEdit)
{
    m_attached.remove(lineEdit);
    m_watched.remove(lineEdit);
    if (lineEdit == m_root) {
        m_root = nullptr;
        setProperty("root", QVariant::fromValue<QLineEdit*>(nullptr));
    }
    setParent(nullptr);
}

void UxKeyBoradSprit::showWithParent(QWidget* lineEdit)
{
    if (!lineEdit || isVisible())
        return;

    m_root = lineEdit;
    setProperty("root", QVariant::fromValue(qobject_cast<QLineEdit*>(lineEdit)));
    QWidget* window = lineEdit->window();
    if (parentWidget() != window) {
        disconnect(m_hostWatch);
        setParent(window);
        // A widget announces its destruction before it deletes its children.
        m_hostWatch = connect(window, &QObject::destroyed, this, [this]() { setParent(nullptr); });
    }

    QPoint position;
    QSize size;
    if (lineEdit->parentWidget() == window) {
        const QRect g = lineEdit->geometry();
        position = QPoint(g.x(), g.y() + g.height());
        size = QSize(g.width(), qMin(window->height() - (g.y() + g.height()) - 30, 400));
    } else {
        const QPoint p = lineEdit->mapToGlobal(QPoint(0, 0)) - window->mapToGlobal(QPoint(0, 0));
        position = QPoint(p.x(), p.y() + lineEdit->height());
        size = QSize(lineEdit->width(), qMin(window->height() - 30 - p.y(), 400));
    }
    size = size.expandedTo(QSize(0, 0));
    qDebug() << Q_FUNC_INFO << "thisSize:" << size << "thisPostion: " << position;

    m_view->setFixedSize(size);
    setFixedSize(size);
    move(position);
    raise();
    show();
}

void UxKeyBoradSprit::searchTextChanged(const QString& text)
{
    qDebug() << Q_FUNC_INFO << text;
    m_result = m_matcher->search(text);
    m_view->setTableData(m_result, m_groupNames, m_groups, width() >= 300);
    const QModelIndex first = m_view->model()->index(0, 0, m_view->rootIndex());
    if (first.isValid()) {
        m_view->setCurrentIndex(first);
        m_view->scrollTo(first, QAbstractItemView::EnsureVisible);
    }
}
