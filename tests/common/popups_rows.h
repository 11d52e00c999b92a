#ifndef POPUPS_ROWS_H
#define POPUPS_ROWS_H

// Row and lookup helpers shared by the pop-up suites (date and time, quick macro, dialogs).

#include <QPushButton>
#include <QtTest>

#include <initializer_list>

namespace Rows {

// Declares one column of type T per name.
template <typename T> void columns(std::initializer_list<const char*> names)
{
    for (const char* name : names)
        QTest::addColumn<T>(name);
}

// The current row's value of column NAME, like QFETCH but inside an expression.
template <typename T> T cell(const char* name) { return *static_cast<T*>(QTest::qData(name, qMetaTypeId<T>())); }

// The descendant of W of type T whose object name, or text, is NAME.
template <typename T = QPushButton> T* child(const QObject* w, const QString& name)
{
    for (T* c : w->findChildren<T*>())
        if (c->objectName() == name || c->property("text").toString() == name)
            return c;
    return nullptr;
}

} // namespace Rows

#endif // POPUPS_ROWS_H
