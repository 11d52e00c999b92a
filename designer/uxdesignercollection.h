#ifndef UXDESIGNERCOLLECTION_H
#define UXDESIGNERCOLLECTION_H

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QList>
#include <QObject>

// The Designer plugin of uicomponents: every exported widget a client places
// in a form, grouped by family ("uicomponents: Quote table", ...).
//
// The animated stack and the scroll area are containers through Designer's
// own stacked-widget and scroll-area extensions, which apply to subclasses;
// their default forms bring two pages, resp. the scrolled contents widget.
// The shadow frame is a plain container. The keyboard wizard and the search
// overlay are process-wide singletons and the completer is not a widget, so
// none of them is offered.
class UxDesignerCollection : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)
public:
    explicit UxDesignerCollection(QObject* parent = nullptr);

    QList<QDesignerCustomWidgetInterface*> customWidgets() const override;

private:
    QList<QDesignerCustomWidgetInterface*> m_widgets;
};

#endif // UXDESIGNERCOLLECTION_H
