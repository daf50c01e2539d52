#pragma once

#include "object/TZoExtentShapeObject.h"
#include "shapes/bow/CBowItemQtImpl.h"

#include <ZoGraphics/IZoBowMapObject.h>

#include <cstdint>
#include <vector>

// Which part of the ellipse a bow draws; fixed by the creator.
enum class EZoBowKind : std::uint32_t
{
    Pie = 0,
    Arc = 1,
    Chord = 2,
};

// A pie, arc or chord of the ellipse inscribed in a geographic extent.
class CZoBowMapObject final : public TZoExtentShapeObject<IZoBowMapObject, CZoBowMapObject, CBowItemQtImpl>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoBowMapObject", nullptr, "SetMaxLodLevel", "ConvertCenterToPixel"};
    static constexpr SZoSurfaceRefresh kSurfaceRefresh{true, false};
    static constexpr SZoExtentTexts kExtentTexts{nullptr, ZoLogReason::kMapModuleNull};

    CZoBowMapObject() = default;

    bool IsRotatable() const override { return true; }

    void SetStartAngle(double degrees) override;
    double GetStartAngle() const override { return m_startAngle; }
    void SetSpanAngle(double degrees) override;
    double GetSpanAngle() const override { return m_spanAngle; }
    void GetOutlinePoints(std::vector<CVector3D>& out) const override;

    // Set once by the creator, before the bow is attached to its layer.
    void SetKind(EZoBowKind kind);
    EZoBowKind GetKind() const { return m_kind; }

private:
    double m_startAngle = 0.0;
    double m_spanAngle = 0.0;
    EZoBowKind m_kind = EZoBowKind::Pie;
};
