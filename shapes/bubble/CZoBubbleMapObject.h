#pragma once

#include "object/TZoMapObjectBase.h"
#include "shapes/bubble/CBubbleItemQtImpl.h"

#include <ZoGraphics/IZoBubbleMapObject.h>

#include <QPointer>
#include <QWidget>

// A callout showing a host widget in a rounded box whose tail points at a
// geographic position. The box keeps its pixel size at every zoom and lies
// beside its anchor, never over it.
class CZoBubbleMapObject final : public TZoMapObjectBase<IZoBubbleMapObject, CZoBubbleMapObject, CBubbleItemQtImpl>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoBubbleMapObject"};

    CZoBubbleMapObject() = default;

    void SetPosition(const CVector3D& position) override;
    CVector3D GetPosition() const override { return m_position; }
    // The widget stays the host's: the bubble hands it back when it lets it
    // go, and lets it go when the host deletes it.
    void SetWidget(QWidget* widget) override;
    QWidget* GetWidget() const override { return m_widget; }
    // Pixels, tail excluded; zero or less takes the widget's own size.
    void SetSize(int width, int height) override;
    int GetWidth() const override;
    int GetHeight() const override;
    // Directions outside the six are ignored.
    void SetTailDirection(EZoBubbleTailDirection direction) override;
    EZoBubbleTailDirection GetTailDirection() const override { return m_tailDirection; }

    // The size asked for; zero on an axis that follows the widget.
    QSize RequestedSize() const { return m_size; }

    CVector3D GetAnchor() const { return m_position; }
    QPointF ConvertAnchorToPixel();

private:
    CVector3D m_position;
    QPointer<QWidget> m_widget;
    QSize m_size{0, 0};
    EZoBubbleTailDirection m_tailDirection = E_BUBBLE_TAIL_BOTTOM;
};
