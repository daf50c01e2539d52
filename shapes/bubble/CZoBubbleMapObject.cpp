#include "shapes/bubble/CZoBubbleMapObject.h"

#include "object/ZoAnchoredShape.h"

#include <algorithm>

void CZoBubbleMapObject::SetPosition(const CVector3D& position)
{
    m_position = position;
    Core().UpdatePosition();
}

void CZoBubbleMapObject::SetWidget(QWidget* widget)
{
    if (widget == m_widget)
        return;
    m_widget = widget;
    if (CBubbleItemQtImpl* item = GetItem())
        item->Embed(widget);
    Core().RebuildAndRepaint(true);
}

void CZoBubbleMapObject::SetSize(int width, int height)
{
    m_size = QSize(std::max(width, 0), std::max(height, 0));
    Core().RebuildAndRepaint(true);
}

int CZoBubbleMapObject::GetWidth() const
{
    const CBubbleItemQtImpl* item = GetItem();
    return item ? item->BoxSize().width() : m_size.width();
}

int CZoBubbleMapObject::GetHeight() const
{
    const CBubbleItemQtImpl* item = GetItem();
    return item ? item->BoxSize().height() : m_size.height();
}

void CZoBubbleMapObject::SetTailDirection(EZoBubbleTailDirection direction)
{
    if (direction < E_BUBBLE_TAIL_LEFT_TOP || direction > E_BUBBLE_TAIL_BOTTOM)
        return;
    m_tailDirection = direction;
    Core().RebuildAndRepaint(true);
}

QPointF CZoBubbleMapObject::ConvertAnchorToPixel()
{
    return ZoAnchorToScenePixel(Core(), m_position);
}
