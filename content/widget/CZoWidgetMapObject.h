#pragma once

#include "content/widget/CWidgetItemQtImpl.h"
#include "object/TZoMapObjectBase.h"

#include <ZoGraphics/IZoWidgetMapObject.h>

#include <QPointer>
#include <QWidget>

// A host widget embedded at a geographic position; the anchor pixel of the
// widget stands on the position.
class CZoWidgetMapObject final : public TZoMapObjectBase<IZoWidgetMapObject, CZoWidgetMapObject, CWidgetItemQtImpl>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoWidgetMapObject"};

    CZoWidgetMapObject() = default;

    void SetPosition(const CVector3D& position) override;
    CVector3D GetPosition() const override { return m_position; }
    void SetSize(int width, int height) override;
    int GetWidth() const override { return m_width; }
    int GetHeight() const override { return m_height; }
    void SetAnchor(const CVector3D& anchor) override;
    CVector3D GetAnchor() const override { return m_anchor; }
    void SetWidget(QWidget* widget) override;
    QWidget* GetWidget() const override { return m_widget; }

    void Dirty() override;

    // GetAnchor is the widget's pixel anchor here; the geographic one is:
    CVector3D GetGeoAnchor() const { return m_position; }
    QPointF ConvertAnchorToPixel();

private:
    // A widget deleted by its owner reads as null here.
    QPointer<QWidget> m_widget;
    int m_width = 0;
    int m_height = 0;
    CVector3D m_anchor;
    CVector3D m_position;
};
