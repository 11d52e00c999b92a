#ifndef ROWS_H
#define ROWS_H

// Row and lookup helpers shared by the suites.

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

// The (actual, expected) rows most contract tests are made of.
inline void actualExpected() { columns<QVariant>({"actual", "expected"}); }
inline void row(const QString& tag, const QVariant& actual, const QVariant& expected) { QTest::newRow(qPrintable(tag)) << actual << expected; }
// Types first, then as string lists, so a failure shows the values and not just two QVariants.
inline void compareActual()
{
    const QVariant actual = cell<QVariant>("actual"), expected = cell<QVariant>("expected");
    QCOMPARE(actual.userType(), expected.userType());
    QCOMPARE(actual.toStringList(), expected.toStringList());
    QCOMPARE(actual, expected);
}

// The descendant of W of type T whose object name, or text, is NAME.
template <typename T = QPushButton> T* child(const QObject* w, const QString& name)
{
    for (T* c : w->findChildren<T*>())
        if (c->objectName() == name || c->property("text").toString() == name)
            return c;
    return nullptr;
}

} // namespace Rows

#endif // ROWS_H
