#include "content/widget/CWidgetItemQtImpl.h"

#include "content/widget/CZoWidgetMapObject.h"
#include "object/CZoEmbeddedWidgetProxy.h"

#include <QPainter>
#include <QVBoxLayout>
#include <QWidget>

CWidgetItemQtImpl::CWidgetItemQtImpl(CZoWidgetMapObject* owner) : TZoGraphicsItem(owner), m_frame(new QWidget)
{
    // Widgets keep their pixel size: the view's zoom does not reach them.
    setFlag(QGraphicsItem::ItemIgnoresTransformations);
    m_frame->setAttribute(Qt::WA_TranslucentBackground);
    auto* layout = new QVBoxLayout(m_frame);
    layout->setContentsMargins(0, 0, 0, 0);
    setWidget(m_frame);
}

CWidgetItemQtImpl::~CWidgetItemQtImpl()
{
    Release();
}

void CWidgetItemQtImpl::Embed(QWidget* widget)
{
    if (widget == m_embedded)
        return;
    Release();
    m_embedded = widget;
    if (!widget)
        return;
    widget->setParent(m_frame);
    m_frame->layout()->addWidget(widget);
    widget->show();
}

void CWidgetItemQtImpl::Release()
{
    if (!m_embedded)
        return;
    m_frame->layout()->removeWidget(m_embedded);
    m_embedded->hide();
    m_embedded->setParent(nullptr);
    m_embedded = nullptr;
}

void CWidgetItemQtImpl::RebuildShape(bool)
{
    m_owner->Core().UpdatePosition();
}

void CWidgetItemQtImpl::PaintOnCanvas(QPainter* painter, int)
{
    QWidget* embedded = m_embedded ? m_embedded.data() : m_owner->GetWidget();
    if (!embedded)
        return;
    const CVector3D anchor = m_owner->GetAnchor();
    painter->save();
    painter->translate(-anchor.x, -anchor.y);
    embedded->render(painter, QPoint(), QRegion(), QWidget::DrawChildren);
    painter->restore();
}

// Every event reaches the widget as well as the host's lists.
void CWidgetItemQtImpl::hoverEnterEvent(QGraphicsSceneHoverEvent* event)
{
    Record(ZoGraphicsConstantNS::STR_SCENE_HOVER_ENTER);
    QGraphicsProxyWidget::hoverEnterEvent(event);
}

void CWidgetItemQtImpl::hoverMoveEvent(QGraphicsSceneHoverEvent* event)
{
    Record(ZoGraphicsConstantNS::STR_SCENE_HOVER_MOVE);
    QGraphicsProxyWidget::hoverMoveEvent(event);
}

void CWidgetItemQtImpl::hoverLeaveEvent(QGraphicsSceneHoverEvent* event)
{
    Record(ZoGraphicsConstantNS::STR_SCENE_HOVER_LEAVE);
    QGraphicsProxyWidget::hoverLeaveEvent(event);
}

void CWidgetItemQtImpl::mousePressEvent(QGraphicsSceneMouseEvent* event)
{
    ZoRecordGrabbedPress(m_owner);
    QGraphicsProxyWidget::mousePressEvent(event);
}

void CWidgetItemQtImpl::mouseReleaseEvent(QGraphicsSceneMouseEvent* event)
{
    Record(ZoGraphicsConstantNS::STR_SCENE_MOUSE_RELEASE);
    QGraphicsProxyWidget::mouseReleaseEvent(event);
}

void CWidgetItemQtImpl::mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event)
{
    Record(ZoGraphicsConstantNS::STR_SCENE_MOUSE_DOUBLE_CLICKED);
    QGraphicsProxyWidget::mouseDoubleClickEvent(event);
}

void CWidgetItemQtImpl::wheelEvent(QGraphicsSceneWheelEvent* event)
{
    ZoRecordGrabbedWheel(m_owner);
    QGraphicsProxyWidget::wheelEvent(event);
}
