#ifndef SEARCHPAGE_H
#define SEARCHPAGE_H

#include <QVector>
#include <QWidget>

struct quickMacroItem;
class QLabel;
class QLineEdit;

// The keyboard search in its three client-side forms: a plain line edit with
// the keyboard wizard, the code-entry line edit with suggestions, and the
// keyboard line edit with its own completer list.
class SearchPage : public QWidget
{
    Q_OBJECT
public:
    SearchPage(const QVector<quickMacroItem*>& dictionary, QWidget* parent = nullptr);

    // Types TEXT into the wizard's line edit (used by the screenshots).
    void typeInWizard(const QString& text);

private:
    QLineEdit* m_wizardEdit;
    QLabel* m_log;
};

#endif // SEARCHPAGE_H
