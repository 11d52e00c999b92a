// Behaviour the widgets rely on where Qt 5 and Qt 6 differ underneath; the same rows must pass on both majors.
#include "uxtestenv.h"

#include "uxmessagebox.h"
#include "uxmessagedefines.h"
#include "uxminiclockpannel.h"
#include "uxqtcompat.h"
#include "uxtabledefines.h"
#include "uxtablemodel.h"
#include "uxtimepopwidget.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTimer>

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

    void sortKeyTypes_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("key"); // type and value
        QTest::newRow("wan") << QString::fromUtf8("1.50万") << "qulonglong 15000";
        QTest::newRow("yi") << QString::fromUtf8("2.5亿") << "qulonglong 250000000";
        QTest::newRow("wan without point") << QString::fromUtf8("12万") << "double 0";
        QTest::newRow("percent") << "-3.5%" << "double -3.5";
        QTest::newRow("unit before the number") << QString::fromUtf8("万1.5万") << "qulonglong 15000";
        QTest::newRow("empty") << QString() << "double 0";
    }
    void sortKeyTypes()
    {
        QFETCH(QString, text);
        QFETCH(QString, key);
        const QVariant number = UxTableModel::toNumber(text);
        QCOMPARE(QString::fromLatin1(number.typeName()) + ' ' + number.toString(), key);
    }

    // Qt 6 no longer calls a variant holding an empty string or an invalid time null; such rows still sort last.
    void emptyKeysSortLast_data()
    {
        QTest::addColumn<QString>("feild");
        QTest::addColumn<int>("order");
        QTest::addColumn<QString>("codes");
        QTest::newRow("time up") << "Time" << int(Qt::AscendingOrder) << "b a - c";
        QTest::newRow("time down") << "Time" << int(Qt::DescendingOrder) << "- a b c";
        QTest::newRow("code up") << "Code" << int(Qt::AscendingOrder) << "a b c -";
        QTest::newRow("code down") << "Code" << int(Qt::DescendingOrder) << "c b a -";
    }
    void emptyKeysSortLast()
    {
        QFETCH(QString, feild);
        QFETCH(int, order);
        QFETCH(QString, codes);
        QList<_TableData> rows;
        for (const auto& [code, time] : {std::pair{"a", "10:00:00"}, {"b", "09:00:00"}, {"", "11:00:00"}, {"c", "x"}})
            rows << _TableData{0, {}, code, {}, 0, -1, {{QStringLiteral("Time"), time}}};
        UxTableModel model;
        model.setHeaderDatas({_TableHHeaderData{QString(), feild}});
        model.setTableData(rows);
        model.sort(0, Qt::SortOrder(order));
        QStringList got;
        for (const _TableData& r : model.tableDatas())
            got << (r.code.isEmpty() ? QStringLiteral("-") : r.code);
        QCOMPARE(got.join(QLatin1Char(' ')), codes);
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
        box.setCheckBoxVisible(false);
        QCOMPARE(seen, QColor(0, 0xff, 0));
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

    void textFormConnectionsAndNames()
    {
        UxMiniClockPannel clock;
        for (const char* name : {"settingPushButton", "closeBushButton", "timeLabel", "dateLabel", "zoneMenu"})
            QVERIFY2(clock.findChild<QObject*>(QLatin1String(name)), name);
        // Disconnecting by the same text succeeds only where that connection exists.
        int connected = 0;
        for (QTimer* timer : clock.findChildren<QTimer*>())
            connected += QObject::disconnect(timer, "2timeout()", &clock, "1slotUpdateDt()") ? 1 : 0;
        QCOMPARE(connected, 1);
    }
};

UX_TEST_MAIN(TstQtMajor)
#include "tst_qtmajor.moc"
