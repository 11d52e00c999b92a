#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QFile>
#include <QPluginLoader>
#include <QPointer>
#include <QXmlStreamReader>
#include <QtTest>

namespace {
QStringList g_warnings;
void collectWarnings(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        g_warnings << text;
}
} // namespace

class TstDesigner : public QObject
{
    Q_OBJECT
    QPluginLoader m_loader{QStringLiteral(UX_DESIGNER_PLUGIN)};
    QHash<QString, QDesignerCustomWidgetInterface*> m_widgets;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
        auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(m_loader.instance());
        QVERIFY(collection);
        for (QDesignerCustomWidgetInterface* w : collection->customWidgets())
            m_widgets.insert(w->name(), w);
    }

    void widget_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<bool>("container");
        const char* table = "uicomponents: Quote table";
        const char* dateTime = "uicomponents: Date and time";
        const char* macro = "uicomponents: Quick macro";
        const char* labels = "uicomponents: Labels and buttons";
        const char* chrome = "uicomponents: Window chrome";
        QTest::newRow("UxCustomTableWidget") << table << false;
        QTest::newRow("UxCalendarTimeWidget") << dateTime << false;
        QTest::newRow("UxCalendarTimeEdit") << dateTime << false;
        QTest::newRow("UxDateTimeEdit") << dateTime << false;
        QTest::newRow("UxMiniClockPannel") << dateTime << false;
        QTest::newRow("UxKeyBoradLineEdit") << macro << false;
        QTest::newRow("UxNewSearchLineEdit") << macro << false;
        QTest::newRow("UxLoopLabels") << labels << false;
        QTest::newRow("UxNewIndentLabel") << labels << false;
        QTest::newRow("UxCustomToolButton") << labels << false;
        QTest::newRow("UxAnimationStackedWidget") << chrome << true;
        QTest::newRow("UxBaseShadowWidget") << chrome << true;
        QTest::newRow("UxScrollArea") << chrome << true;
    }

    // What Designer shows and writes for each widget, and the widget itself
    // made as Designer makes it: from a parent alone, with no host skin.
    void widget()
    {
        QFETCH(QString, group);
        QFETCH(bool, container);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        QDesignerCustomWidgetInterface* w = m_widgets.value(name);
        QVERIFY2(w, qPrintable(name));
        QCOMPARE(w->group(), group);
        QCOMPARE(w->isContainer(), container);
        QVERIFY(!w->icon().isNull());
        QVERIFY(!w->toolTip().isEmpty());

        const QString header = QStringLiteral("uicomponents/%1.h").arg(name.toLower());
        QCOMPARE(w->includeFile(), QStringLiteral("<%1>").arg(header));
        QVERIFY2(QFile::exists(QStringLiteral(UX_INCLUDE_DIR "/") + header), qPrintable(header));

        QXmlStreamReader xml(w->domXml());
        QString className;
        int width = 0, height = 0;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == QLatin1String("widget") && className.isEmpty())
                className = xml.attributes().value(QLatin1String("class")).toString();
            else if (xml.name() == QLatin1String("width"))
                width = xml.readElementText().toInt();
            else if (xml.name() == QLatin1String("height"))
                height = xml.readElementText().toInt();
        }
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        QCOMPARE(className, name);
        QVERIFY(width >= 80 && height >= 20);

        QWidget form;
        g_warnings.clear();
        const QtMessageHandler previous = qInstallMessageHandler(collectWarnings);
        QPointer<QWidget> made = w->createWidget(&form);
        if (made) {
            made->resize(width, height);
            form.show();
            QCoreApplication::processEvents();
        }
        qInstallMessageHandler(previous);
        QVERIFY(made);
        QCOMPARE(made->metaObject()->className(), name.toLatin1().constData());
        QCOMPARE(made->parentWidget(), &form);
        QVERIFY2(g_warnings.isEmpty(), qPrintable(g_warnings.join(QLatin1Char('\n'))));
    }

    void offersNothingElse()
    {
        QCOMPARE(m_widgets.size(), 13);
    }
};

QTEST_MAIN(TstDesigner)
#include "tst_designer.moc"
