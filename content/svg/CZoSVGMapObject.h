#pragma once

#include "content/svg/CSVGItemQtImpl.h"
#include "object/TZoMapObjectBase.h"

#include <ZoGraphics/IZoSVGMapObject.h>

// An SVG picture centred on a geographic point at its natural pixel size,
// scalable per axis, rotatable, or stretched over an extent.
class CZoSVGMapObject final : public TZoMapObjectBase<IZoSVGMapObject, CZoSVGMapObject, CSVGItemQtImpl>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoSVGMapObject"};

    CZoSVGMapObject() = default;

    bool LoadSVGFile(const std::string& path, const CVector3D& center) override;
    std::string GetSVGFile() const override { return m_path; }
    CVector3D GetCenter() const override;
    QImage ConvertToImage() const override;
    void SetGeoExtent(const EXTENT& extent) override;
    EXTENT GetGeoExtent() const override { return m_extent; }
    void SetCenter(const CVector3D& center) override;
    void MoveBy(double dx, double dy) override;
    EXTENT CalculateGeoExtent() const override;
    double GetWidth() const override;
    double GetHeight() const override;
    void SetXYScale(double sx, double sy) override;
    void SetXScale(double sx) override;
    void SetYScale(double sy) override;
    double GetXScale() const override;
    double GetYScale() const override;
    void Rotate(double degrees) override;
    double GetRotation() const override { return m_rotation; }

    void UpdatePosition() override;

    CVector3D GetAnchor() const { return GetCenter(); }
    QPointF ConvertAnchorToPixel();

private:
    // The item, or null after logging "[CZoSVGMapObject::<method>] Qt-Item为空".
    CSVGItemQtImpl* ItemOrLog(const char* method) const;
    // Accumulates a scale onto the item's transform and refreshes the extent.
    void CombineScale(double sx, double sy);
    // Scales and centres the picture so that it covers the stored extent.
    void StretchOverExtent();

    std::string m_path;
    double m_rotation = 0.0;
    EXTENT m_extent;
    // Set by SetGeoExtent: the picture follows its extent when the view zooms.
    bool m_stretched = false;
};
