#ifndef SOAKDRIVER_H
#define SOAKDRIVER_H

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class GalleryWindow;

// Runs the gallery like a long trading day, compressed: a thousand price
// ticks a second into the quote table with tinting on, a scroll to another
// page every few seconds, a sort every few seconds, a skin switch every
// minute. Prints the resident memory after the first minute and at the end.
class SoakDriver : public QObject
{
    Q_OBJECT
public:
    SoakDriver(GalleryWindow* window, int seconds, QObject* parent = nullptr);

    void start();
    static qint64 residentBytes();

signals:
    void finished(bool memoryStable);

private:
    void tick();
    void scrollSomewhere();
    void sortSomehow();
    void switchSkin();
    void report();

    GalleryWindow* m_window;
    int m_seconds;
    QTimer m_tick;
    QTimer m_scroll;
    QTimer m_sort;
    QTimer m_skin;
    QTimer m_report;
    QElapsedTimer m_clock;
    qint64 m_baseline = 0; // after the first minute
    qint64 m_start = 0;
    quint64 m_ticks = 0;
    int m_step = 0;
};

#endif // SOAKDRIVER_H
