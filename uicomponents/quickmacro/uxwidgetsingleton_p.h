#ifndef UXWIDGETSINGLETON_P_H
#define UXWIDGETSINGLETON_P_H

#include <QCoreApplication>
#include <QPointer>

// Keeps the one process-wide instance of a shared popup widget. Held in a
// function-local static: built on first use, deleted at process exit.
//
// The widget is made on the heap and watched through a QPointer, because a
// shared popup spends its life as a child of whatever window it last served:
// should that window ever delete it, the next call builds a fresh one rather
// than handing out a dangling pointer. At exit the widget is deleted only
// while the application object still exists (a widget cannot be torn down
// without it); afterwards the process is going away and the memory with it.
template <typename T>
class UxWidgetSingleton
{
public:
    UxWidgetSingleton() = default;
    ~UxWidgetSingleton()
    {
        if (m_widget && QCoreApplication::instance())
            delete m_widget.data();
    }

    T* get()
    {
        if (!m_widget)
            m_widget = new T(nullptr);
        return m_widget.data();
    }

private:
    Q_DISABLE_COPY(UxWidgetSingleton)
    QPointer<T> m_widget;
};

#endif // UXWIDGETSINGLETON_P_H
