#include "dialogspage.h"

#include <uicomponents/uxfiledialog.h>
#include <uicomponents/uxmessagebox.h>

#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMetaEnum>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QString buttonName(int code)
{
    const QMetaObject& mo = QMessageBox::staticMetaObject;
    const QMetaEnum e = mo.enumerator(mo.indexOfEnumerator("StandardButton"));
    const char* key = e.valueToKey(code);
    return key ? QString::fromLatin1(key) : QString::number(code);
}

} // namespace

DialogsPage::DialogsPage(QWidget* parent)
    : QWidget(parent)
    , m_result(new QLabel(QStringLiteral("点击按钮打开对话框"), this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->setSpacing(20);

    auto* boxes = new QGroupBox(QStringLiteral("消息框"), this);
    auto* grid = new QGridLayout(boxes);
    auto add = [this, grid](int row, int col, const QString& text, std::function<void()> open) {
        auto* b = new QPushButton(text, this);
        b->setMinimumWidth(180);
        connect(b, &QPushButton::clicked, this, std::move(open));
        grid->addWidget(b, row, col);
    };
    add(0, 0, QStringLiteral("提示 information"), [this] {
        report(QStringLiteral("information"),
               UxMessageBox::information(QStringLiteral("提示"), QStringLiteral("自选股已同步到云端.")));
    });
    add(0, 1, QStringLiteral("警告 warning"), [this] {
        report(QStringLiteral("warning"),
               UxMessageBox::warning(QStringLiteral("警告"), QStringLiteral("委托价格偏离最新价超过 5%, 是否继续?"),
                                     QMessageBox::Yes | QMessageBox::No));
    });
    add(1, 0, QStringLiteral("错误 critical"), [this] {
        report(QStringLiteral("critical"),
               UxMessageBox::critical(QStringLiteral("错误"), QStringLiteral("行情服务器连接中断, 正在重连."),
                                      QMessageBox::Retry | QMessageBox::Cancel));
    });
    add(1, 1, QStringLiteral("询问 question"), [this] {
        report(QStringLiteral("question"),
               UxMessageBox::question(QStringLiteral("询问"), QStringLiteral("确定删除选中的 3 只自选股吗?"),
                                      QMessageBox::Ok | QMessageBox::Cancel));
    });
    add(2, 0, QStringLiteral("带复选框"), [this] {
        UxMessageBox box(QStringLiteral("风险提示"), QStringLiteral("创业板股票价格波动较大, 请注意投资风险."),
                         QMessageBox::Ok | QMessageBox::Cancel, this);
        box.setCheckBoxText(QStringLiteral("今日不再提示"));
        box.setCheckBoxVisible(true);
        const int code = box.exec();
        report(QStringLiteral("check box ") + (box.checkBoxChecked() ? QStringLiteral("(已勾选)") : QStringLiteral("(未勾选)")),
               code);
    });
    layout->addWidget(boxes);

    auto* files = new QGroupBox(QStringLiteral("文件对话框"), this);
    auto* fileRow = new QGridLayout(files);
    auto addFile = [this, fileRow](int col, const QString& text, std::function<QString()> open) {
        auto* b = new QPushButton(text, this);
        b->setMinimumWidth(180);
        connect(b, &QPushButton::clicked, this, [this, text, open] {
            const QString path = open();
            m_result->setText(text + QStringLiteral(" → ") + (path.isEmpty() ? QStringLiteral("(取消)") : path));
        });
        fileRow->addWidget(b, 0, col);
    };
    addFile(0, QStringLiteral("导入自选股"), [this] {
        return UxFileDialog::getOpenFileName(this, QStringLiteral("导入自选股"), QDir::homePath(),
                                             QStringLiteral("自选股文件 (*.csv *.txt);;所有文件 (*)"));
    });
    addFile(1, QStringLiteral("导出行情"), [this] {
        return UxFileDialog::getSaveFileName(this, QStringLiteral("导出行情"), QDir::homePath(),
                                             QStringLiteral("表格 (*.csv)"));
    });
    addFile(2, QStringLiteral("选择数据目录"), [this] {
        return UxFileDialog::getExistingDirectory(this, QStringLiteral("选择数据目录"), QDir::homePath());
    });
    layout->addWidget(files);

    m_result->setObjectName(QStringLiteral("galleryLog"));
    layout->addWidget(m_result);
    layout->addStretch();
}

void DialogsPage::report(const QString& what, int code)
{
    m_result->setText(QStringLiteral("%1 返回 %2 (%3)").arg(what, buttonName(code)).arg(code));
}

UxMessageBox* DialogsPage::showSampleBox()
{
    auto* box = new UxMessageBox(QStringLiteral("风险提示"), QStringLiteral("创业板股票价格波动较大, 请注意投资风险."),
                                 QMessageBox::Ok | QMessageBox::Cancel, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setCheckBoxText(QStringLiteral("今日不再提示"));
    box->setCheckBoxVisible(true);
    box->show();
    return box;
}
