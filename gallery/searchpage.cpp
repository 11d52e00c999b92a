#include "searchpage.h"

#include <uicomponents/quickmacroitem.h>
#include <uicomponents/uxkeyboradlineedit.h>
#include <uicomponents/uxkeyboradsprit.h>
#include <uicomponents/uxnewsearchlineedit.h>

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

SearchPage::SearchPage(const QVector<quickMacroItem*>& dictionary, QWidget* parent)
    : QWidget(parent)
    , m_wizardEdit(new QLineEdit)
    , m_log(new QLabel(QStringLiteral("输入代码、名称或拼音首字母, 例如 600 或 ZGKJ")))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    auto* box = new QGroupBox(QStringLiteral("键盘精灵"), this);
    auto* form = new QFormLayout(box);
    form->setVerticalSpacing(16);

    // Any line edit of the client gets the wizard by installing it as filter.
    m_wizardEdit->setPlaceholderText(QStringLiteral("代码 / 名称 / 拼音"));
    m_wizardEdit->setFixedWidth(260);
    m_wizardEdit->setProperty("needopen", true);
    UxKeyBoradSprit* wizard = UxKeyBoradSprit::initance();
    wizard->setDictData(dictionary);
    m_wizardEdit->installEventFilter(wizard);
    connect(wizard, &UxKeyBoradSprit::signalStockSelected, this, [this](const QString& url, int) {
        m_log->setText(QStringLiteral("键盘精灵选择: ") + url);
    });
    form->addRow(QStringLiteral("键盘精灵"), m_wizardEdit);

    auto* codeEdit = new UxNewSearchLineEdit(box);
    codeEdit->setDictData(dictionary);
    codeEdit->setFixedWidth(260);
    codeEdit->setPlaceholderText(QStringLiteral("代码联想 (400 毫秒后提示)"));
    form->addRow(QStringLiteral("代码输入"), codeEdit);

    auto* keyboardEdit = new UxKeyBoradLineEdit(box);
    keyboardEdit->setDictData(dictionary);
    keyboardEdit->setFixedWidth(260);
    keyboardEdit->setPlaceholderText(QStringLiteral("带下拉列表的搜索框"));
    connect(keyboardEdit, &UxKeyBoradLineEdit::signalStockSelected, this, [this](const QString& url, int) {
        m_log->setText(QStringLiteral("搜索框选择: ") + url);
    });
    form->addRow(QStringLiteral("搜索框"), keyboardEdit);

    m_log->setObjectName(QStringLiteral("galleryLog"));
    form->addRow(QStringLiteral("结果"), m_log);
    layout->addWidget(box, 0, Qt::AlignTop | Qt::AlignLeft);
    auto* hint = new QLabel(QStringLiteral("提示: 在行情报价页的表格上直接输入字母或数字, 右下角弹出快捷搜索."), this);
    hint->setObjectName(QStringLiteral("galleryHint"));
    layout->addWidget(hint);
    layout->addStretch();
}

void SearchPage::typeInWizard(const QString& text)
{
    m_wizardEdit->setFocus(Qt::OtherFocusReason);
    m_wizardEdit->setText(text);
}
