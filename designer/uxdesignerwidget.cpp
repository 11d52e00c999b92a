#include "uxdesignerwidget.h"

UxDesignerWidget::UxDesignerWidget(const Info& info, QObject* parent)
    : QObject(parent)
    , m_info(info)
{
}

QString UxDesignerWidget::name() const
{
    return m_info.name;
}

QString UxDesignerWidget::group() const
{
    return m_info.group;
}

QString UxDesignerWidget::toolTip() const
{
    return m_info.toolTip;
}

QString UxDesignerWidget::whatsThis() const
{
    return m_info.toolTip;
}

QString UxDesignerWidget::includeFile() const
{
    return m_info.includeFile;
}

QIcon UxDesignerWidget::icon() const
{
    // Both sizes explicitly: QIcon only looks for the @2x sibling of a file
    // when the application's own ratio asks for it at construction.
    QIcon icon;
    icon.addFile(m_info.iconPath + QStringLiteral(".png"));
    icon.addFile(m_info.iconPath + QStringLiteral("@2x.png"));
    return icon;
}

bool UxDesignerWidget::isContainer() const
{
    return m_info.container;
}

QWidget* UxDesignerWidget::createWidget(QWidget* parent)
{
    return m_info.factory ? m_info.factory(parent) : nullptr;
}

bool UxDesignerWidget::isInitialized() const
{
    return m_initialized;
}

void UxDesignerWidget::initialize(QDesignerFormEditorInterface*)
{
    m_initialized = true;
}

QString UxDesignerWidget::domXml() const
{
    return m_info.domXml;
}
