#ifndef CHROMEPAGE_H
#define CHROMEPAGE_H

#include <QWidget>

class QLabel;
class UxAnimationStackedWidget;

// Window chrome and labels: a frameless shadowed pop-up moved by the frameless
// helper, the animated stacked widget in four directions, the indent label,
// the filter tool button and a flow layout of tags.
class ChromePage : public QWidget
{
    Q_OBJECT
public:
    explicit ChromePage(QWidget* parent = nullptr);

    // Opens the frameless pop-up (also used by the screenshots).
    void openPopup();
    void closePopup();

private:
    QWidget* buildSlides();
    QWidget* buildLabels();
    QWidget* buildTags();

    UxAnimationStackedWidget* m_slides = nullptr;
    QLabel* m_status = nullptr;
    QWidget* m_popup = nullptr;
};

#endif // CHROMEPAGE_H
