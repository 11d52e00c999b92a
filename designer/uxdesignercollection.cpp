#include "uxdesignercollection.h"

#include "uxdesignerwidget.h"

#include <uicomponents/uxanimationstackedwidget.h>
#include <uicomponents/uxbaseshadowwidget.h>
#include <uicomponents/uxcalendartimeedit.h>
#include <uicomponents/uxcalendartimewidget.h>
#include <uicomponents/uxcustomtablewidget.h>
#include <uicomponents/uxcustomtoolbutton.h>
#include <uicomponents/uxdatetimeedit.h>
#include <uicomponents/uxkeyboradlineedit.h>
#include <uicomponents/uxlooplabels.h>
#include <uicomponents/uxminiclockpannel.h>
#include <uicomponents/uxnewindentlabel.h>
#include <uicomponents/uxnewsearchlineedit.h>
#include <uicomponents/uxscrollarea.h>

namespace {

// Default form of a widget dragged from the box: its geometry, and for
// containers the children Designer expects to find (pages, contents).
QString domXml(const QString& className, const QString& objectName, int width, int height,
               const QString& extra = QString())
{
    return QStringLiteral("<ui language=\"c++\">\n"
                          " <widget class=\"%1\" name=\"%2\">\n"
                          "  <property name=\"geometry\">\n"
                          "   <rect><x>0</x><y>0</y><width>%3</width><height>%4</height></rect>\n"
                          "  </property>\n"
                          "%5"
                          " </widget>\n"
                          "</ui>\n")
        .arg(className, objectName)
        .arg(width)
        .arg(height)
        .arg(extra);
}

template <class W>
UxDesignerWidget::Factory factory()
{
    return [](QWidget* parent) -> QWidget* { return new W(parent); };
}

} // namespace

UxDesignerCollection::UxDesignerCollection(QObject* parent)
    : QObject(parent)
{
    const QString table = QStringLiteral("uicomponents: Quote table");
    const QString dateTime = QStringLiteral("uicomponents: Date and time");
    const QString quickMacro = QStringLiteral("uicomponents: Quick macro");
    const QString labels = QStringLiteral("uicomponents: Labels and buttons");
    const QString chrome = QStringLiteral("uicomponents: Window chrome");

    const QString stackPages = QStringLiteral("  <widget class=\"QWidget\" name=\"page\"/>\n"
                                              "  <widget class=\"QWidget\" name=\"page_2\"/>\n");
    const QString scrollContents = QStringLiteral("  <property name=\"widgetResizable\">\n"
                                                  "   <bool>true</bool>\n"
                                                  "  </property>\n"
                                                  "  <widget class=\"QWidget\" name=\"scrollAreaWidgetContents\"/>\n");

    struct Entry
    {
        const char* name;
        const char* objectName;
        QString group;
        const char* toolTip;
        int width;
        int height;
        UxDesignerWidget::Factory factory;
        bool container;
        QString extra;
    };
    const Entry entries[] = {
        {"UxCustomTableWidget", "customTableWidget", table, "Quote table with frozen columns and paged rows", 782,
         442, factory<UxCustomTableWidget>(), false, QString()},
        {"UxCalendarTimeWidget", "calendarTimeWidget", dateTime, "Month calendar with a time row", 280, 300,
         factory<UxCalendarTimeWidget>(), false, QString()},
        {"UxCalendarTimeEdit", "calendarTimeEdit", dateTime, "Date line edit with a drop-down calendar", 160, 32,
         factory<UxCalendarTimeEdit>(), false, QString()},
        {"UxDateTimeEdit", "dateTimeEdit", dateTime, "Date-time edit with the library's calendar pop-up", 210, 32,
         factory<UxDateTimeEdit>(), false, QString()},
        {"UxMiniClockPannel", "miniClockPannel", dateTime, "Mini clock with a time-zone menu", 360, 140,
         factory<UxMiniClockPannel>(), false, QString()},
        {"UxKeyBoradLineEdit", "keyBoradLineEdit", quickMacro, "Line edit with its own quick-macro list", 160, 32,
         factory<UxKeyBoradLineEdit>(), false, QString()},
        {"UxNewSearchLineEdit", "newSearchLineEdit", quickMacro, "Code entry with suggestions", 120, 32,
         factory<UxNewSearchLineEdit>(), false, QString()},
        {"UxLoopLabels", "loopLabels", labels, "Scrolling message ticker", 300, 30, factory<UxLoopLabels>(), false,
         QString()},
        {"UxNewIndentLabel", "newIndentLabel", labels, "Label with an indented first line", 200, 40,
         factory<UxNewIndentLabel>(), false, QString()},
        {"UxCustomToolButton", "customToolButton", labels, "One-of-many menu tool button", 90, 26,
         factory<UxCustomToolButton>(), false, QString()},
        {"UxAnimationStackedWidget", "animationStackedWidget", chrome, "Stacked widget that slides between pages",
         300, 200, factory<UxAnimationStackedWidget>(), true, stackPages},
        {"UxBaseShadowWidget", "baseShadowWidget", chrome, "Frame with a drop shadow around a white body", 300, 200,
         factory<UxBaseShadowWidget>(), true, QString()},
        {"UxScrollArea", "scrollArea", chrome, "Scroll area whose bars show while hovered", 300, 200,
         factory<UxScrollArea>(), true, scrollContents},
    };

    for (const Entry& e : entries) {
        const QString name = QString::fromLatin1(e.name);
        UxDesignerWidget::Info info;
        info.name = name;
        info.group = e.group;
        info.iconPath = QStringLiteral(":/uxdesigner/%1").arg(name.toLower());
        info.includeFile = QStringLiteral("<uicomponents/%1.h>").arg(name.toLower());
        info.toolTip = QString::fromLatin1(e.toolTip);
        info.domXml = domXml(name, QString::fromLatin1(e.objectName), e.width, e.height, e.extra);
        info.container = e.container;
        info.factory = e.factory;
        m_widgets.append(new UxDesignerWidget(info, this));
    }
}

QList<QDesignerCustomWidgetInterface*> UxDesignerCollection::customWidgets() const
{
    return m_widgets;
}
