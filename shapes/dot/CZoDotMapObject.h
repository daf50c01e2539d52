#pragma once

#include "object/TZoStyledMapObject.h"
#include "shapes/dot/CDotItemQtImpl.h"

#include <ZoGraphics/IZoDotMapObject.h>

// A filled circle of a fixed on-screen radius at one geographic point.
class CZoDotMapObject final : public TZoSurfaceStyleObject<IZoDotMapObject, CZoDotMapObject, CDotItemQtImpl>
{
public:
    // The dot's Initialise text names the text object, and both LOD setters
    // name SetMinLodLevel; hosts match on these texts.
    static constexpr SZoObjectLogNames kLogNames{"CZoDotMapObject", "CZoTextMapObject", "SetMinLodLevel"};
    static constexpr SZoSurfaceRefresh kSurfaceRefresh{false, true};
    static constexpr bool kShapeFollowsPixelScaleOnly = true;

    CZoDotMapObject() = default;

    void SetPosition(const CVector3D& position) override;
    CVector3D GetPosition() const override { return m_position; }
    void SetRadius(double radius) override;
    double GetRadius() const override { return m_radius; }
    void SetOffset(const CVector3D& offset) override;
    CVector3D GetOffset() const override { return m_offset; }
    void SetRotation(double degrees) override;
    double GetRotation() const override { return m_offset.z; }

    CVector3D GetAnchor() const { return m_position; }
    QPointF ConvertAnchorToPixel();

private:
    double m_radius = 6.0;
    CVector3D m_position;
    CVector3D m_offset; // z is the rotation angle in degrees
};
