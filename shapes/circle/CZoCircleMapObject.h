#pragma once

#include "object/TZoStyledMapObject.h"
#include "shapes/circle/CCircleItemQtImpl.h"

#include <ZoGraphics/IZoCircleMapObject.h>

#include <vector>

// A circle given by a geographic centre and a rim point kept due east of it,
// so that its on-screen radius is a whole number of pixels of the current view.
class CZoCircleMapObject final
    : public TZoSurfaceStyleObject<IZoCircleMapObject, CZoCircleMapObject, CCircleItemQtImpl>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoCircleMapObject", nullptr, "SetMaxLodLevel",
                                                 "ConvertCenterToPixel"};
    static constexpr SZoSurfaceRefresh kSurfaceRefresh{false, true};

    CZoCircleMapObject() = default;

    void SetCenter(const CVector3D& center) override;
    CVector3D GetCenter() const override { return m_center; }
    void SetRadiusPoint(const CVector3D& point) override;
    void GetOutlinePoints(std::vector<CVector3D>& out, int level) const override;
    double GetRadius() const override;
    void SetAuxPoint(const CVector3D& point) override { m_auxPoint = point; }
    CVector3D GetAuxPoint() const override { return m_auxPoint; }

    CVector3D GetRimPoint() const { return m_rimPoint; }
    // The centre and the four rim handles for editing: the centre with z -1,
    // then east, west, north and south with z 1.
    void GetCharacteristicPoints(std::vector<CVector3D>& out) const;

    CVector3D GetAnchor() const { return m_center; }
    QPointF ConvertAnchorToPixel();
    // The square around the circle, in scene pixels around the centre: its
    // half side is the whole pixels between centre and rim.
    bool SceneOutline(QRectF* outline) const;
    bool CanvasOutline(const CZoCanvasProjection& canvas, QRectF* outline) const;

private:
    CVector3D m_center;
    CVector3D m_rimPoint;
    CVector3D m_auxPoint;
};
