#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QtTest>

static QStringList g_warnings;
static void collectWarnings(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        g_warnings << text;
}

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
        QCOMPARE(m_widgets.size(), 13);
    }

    void widget_data()
    {
        QTest::addColumn<QString>("group");
        QTest::addColumn<bool>("container");
        const QString g = QStringLiteral("uicomponents: ");
        for (const char* name : {"UxCalendarTimeWidget", "UxCalendarTimeEdit", "UxDateTimeEdit", "UxMiniClockPannel"})
            QTest::newRow(name) << g + "Date and time" << false;
        for (const char* name : {"UxKeyBoradLineEdit", "UxNewSearchLineEdit"})
            QTest::newRow(name) << g + "Quick macro" << false;
        for (const char* name : {"UxLoopLabels", "UxNewIndentLabel", "UxCustomToolButton"})
            QTest::newRow(name) << g + "Labels and buttons" << false;
        for (const char* name : {"UxAnimationStackedWidget", "UxBaseShadowWidget", "UxScrollArea"})
            QTest::newRow(name) << g + "Window chrome" << true;
        QTest::newRow("UxCustomTableWidget") << g + "Quote table" << false;
    }

    // What Designer shows and writes for each widget, and the widget made as Designer makes it: parent only, no skin.
    void widget()
    {
        QFETCH(QString, group);
        QFETCH(bool, container);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        QDesignerCustomWidgetInterface* w = m_widgets.value(name);
        QVERIFY2(w, qPrintable(name));
        QCOMPARE(w->group(), group);
        QCOMPARE(w->isContainer(), container);
        const QList<QSize> iconSizes = w->icon().availableSizes();
        QVERIFY(iconSizes.contains(QSize(22, 22)) && iconSizes.contains(QSize(44, 44)));
        const QString header = QStringLiteral("uicomponents/%1.h").arg(name.toLower());
        QCOMPARE(w->includeFile(), QStringLiteral("<%1>").arg(header));
        QVERIFY2(QFile::exists(QStringLiteral(UX_INCLUDE_DIR "/") + header), qPrintable(header));

        QXmlStreamReader xml(w->domXml()); // well-formed, its first widget of the class itself, with a usable size
        while (!xml.atEnd())
            xml.readNext();
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        const QRegularExpressionMatch dom = QRegularExpression(QStringLiteral(
            "<widget class=\"(\\w+)\"[^>]*>.*?<width>(\\d+)</width>\\s*<height>(\\d+)</height>"),
            QRegularExpression::DotMatchesEverythingOption).match(w->domXml());
        QVERIFY2(dom.hasMatch(), qPrintable(w->domXml()));
        QCOMPARE(dom.captured(1), name);
        const QSize size(dom.captured(2).toInt(), dom.captured(3).toInt());
        QVERIFY(size.width() >= 80 && size.height() >= 20);

        QWidget form;
        g_warnings.clear();
        const QtMessageHandler previous = qInstallMessageHandler(collectWarnings);
        QPointer<QWidget> made = w->createWidget(&form);
        if (made) {
            made->resize(size);
            form.show();
            QCoreApplication::processEvents();
        }
        qInstallMessageHandler(previous);
        QVERIFY(made);
        QCOMPARE(made->metaObject()->className(), name.toLatin1().constData());
        QCOMPARE(made->parentWidget(), &form);
        // The default size never squeezes the widget below what it needs.
        QCOMPARE(size.expandedTo(made->minimumSizeHint()), size);
        QVERIFY2(g_warnings.isEmpty(), qPrintable(g_warnings.join(QLatin1Char('\n'))));
    }
};

QTEST_MAIN(TstDesigner)
#include "tst_designer.moc"
