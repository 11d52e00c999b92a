#ifndef DIALOGSPAGE_H
#define DIALOGSPAGE_H

#include <QWidget>

class QLabel;
class UxMessageBox;

// Buttons that open every kind of message box (one with the check box) and
// each file dialog helper, showing what came back.
class DialogsPage : public QWidget
{
    Q_OBJECT
public:
    explicit DialogsPage(QWidget* parent = nullptr);

    // A message box shown without blocking, for the screenshots.
    UxMessageBox* showSampleBox();

private:
    void report(const QString& what, int code);
    QLabel* m_result;
};

#endif // DIALOGSPAGE_H
