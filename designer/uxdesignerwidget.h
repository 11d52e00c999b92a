#ifndef UXDESIGNERWIDGET_H
#define UXDESIGNERWIDGET_H

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <QIcon>
#include <QObject>
#include <QString>

#include <functional>

// One entry of the Designer widget box: everything Designer asks about a
// widget class, and the factory that makes it. The collection builds one per
// exported widget, so no class needs its own interface boilerplate.
class UxDesignerWidget : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)
public:
    using Factory = std::function<QWidget*(QWidget* parent)>;

    struct Info
    {
        QString name;        // class name, as written in a form
        QString group;       // widget box group
        QString iconPath;    // resource path of the box icon, without ".png" (an @2x sibling exists)
        QString includeFile; // what uic writes into the generated header
        QString toolTip;
        QString domXml;      // default properties (size) and, for containers, pages
        bool container = false;
        Factory factory;
    };

    UxDesignerWidget(const Info& info, QObject* parent = nullptr);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget* createWidget(QWidget* parent) override;
    bool isInitialized() const override;
    void initialize(QDesignerFormEditorInterface* core) override;
    QString domXml() const override;

private:
    Info m_info;
    bool m_initialized = false;
};

#endif // UXDESIGNERWIDGET_H
