// Behaviour the widgets rely on where Qt 5 and Qt 6 differ underneath; the same rows must pass on both majors.
#include "uxtestenv.h"

#include "uxmessagebox.h"
#include "uxmessagedefines.h"
#include "uxqtcompat.h"
#include "uxtabledefines.h"
#include "uxtimepopwidget.h"

#include <QtWidgets>

#include <ctime>

// Local time is New York's whatever zone the suite runs in: the gap rows
// need a zone with a known spring-forward hour (2026-03-08 02:00-03:00).
static const bool s_zonePinned = (qputenv("TZ", "America/New_York"), tzset(), true);

class TstQtMajor : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void hourButtonsInsideTheGap_data()
    {
        QTest::addColumn<QTime>("minTime");
        QTest::addColumn<QTime>("maxTime");
        QTest::addColumn<QString>("enabled");
        // 02:30 does not exist that day: its button is off whenever a bound is set on its side;
        // an invalid bound admits no hour at all.
        QTest::newRow("both bounds") << QTime(1, 0) << QTime(5, 0) << "01 03 04";
        QTest::newRow("no minimum") << QTime() << QTime(3, 0) << "00 01 02";
        QTest::newRow("no maximum") << QTime(0, 0) << QTime() << "";
    }
    void hourButtonsInsideTheGap()
    {
        QFETCH(QTime, minTime);
        QFETCH(QTime, maxTime);
        QFETCH(QString, enabled);
        const QDate day(2026, 3, 8);
        UxTimePopWidget pop(nullptr, 0);
        pop.setDateTime(minTime.isValid() ? QDateTime(day, minTime) : QDateTime(),
                        maxTime.isValid() ? QDateTime(day, maxTime) : QDateTime(), QDateTime(day, QTime(1, 30)));
        QStringList on;
        for (QPushButton* b : pop.findChildren<QPushButton*>())
            if (b->isEnabled())
                on << b->text();
        on.sort();
        QCOMPARE(on.join(QLatin1Char(' ')), enabled);
    }

    void recordsAnswerToTheirShortNames()
    {
        const std::pair<const char*, int> ids[] = {{"TableData", qMetaTypeId<_TableData>()},
            {"SubPageData", qMetaTypeId<_SubPageData>()}, {"TableHHeaderData", qMetaTypeId<_TableHHeaderData>()},
            {"Message", qMetaTypeId<tagMessage>()}};
        for (const auto& [name, id] : ids)
            QVERIFY2(UxQtCompat::metaTypeId(name) == id, name);
    }

    // Unpolish, store, polish, then announce: a listener already sees the rule of the new state.
    void propertyRulesApplyBeforeTheSignal()
    {
        UxMessageBox box(QStringLiteral("t"), QStringLiteral("x"), QMessageBox::Ok);
        box.setStyleSheet(QStringLiteral("UxMessageBox[checkBoxVisible=\"true\"] { color: #ff0000; }"
                                         "UxMessageBox[checkBoxVisible=\"false\"] { color: #00ff00; }"));
        box.ensurePolished();
        QColor seen;
        connect(&box, &UxMessageBox::sigCheckBoxVisibleChanged, this,
                [&]() { seen = box.palette().color(QPalette::WindowText); });
        box.setCheckBoxVisible(true);
        QCOMPARE(seen, QColor(0xff, 0, 0));
    }

    void gbkRoundTrip()
    {
        if (!UxQtCompat::hasGbk())
            QSKIP("this Qt build has no GBK converter");
        UxMessageBox box(QString(), QString(), QMessageBox::Ok | QMessageBox::No);
        const QString cancel = box.findChild<QDialogButtonBox*>(QStringLiteral("BtnBox"))->button(QDialogButtonBox::No)->text();
        QCOMPARE(UxQtCompat::toGbk(cancel), QByteArray::fromHex("c8a1cffb"));
        QCOMPARE(UxQtCompat::fromGbk(QByteArray::fromHex("c8a1cffb")), cancel);
    }
};

UX_TEST_MAIN(TstQtMajor)
#include "tst_qtmajor.moc"
