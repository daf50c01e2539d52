#pragma once

#include "object/TZoStyledMapObject.h"
#include "shapes/multipolygon/CMultiPolygonItemQtImpl.h"
#include "shapes/pointlist/TZoNestedPointListObject.h"

#include <ZoGraphics/IZoMultiPolygonMapObject.h>

// Several filled rings with one surface style; rings inside rings are holes.
class CZoMultiPolygonMapObject final
    : public TZoNestedPointListObject<
          TZoSurfaceStyleObject<IZoMultiPolygonMapObject, CZoMultiPolygonMapObject, CMultiPolygonItemQtImpl>,
          CZoMultiPolygonMapObject>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoMultiPolygonMapObject"};
    static constexpr SZoSurfaceRefresh kSurfaceRefresh{false, true};
    static constexpr bool kEditsRefreshItem = true;
    // Hosts match on these texts, which name the polygon (all but
    // SetPolygonData) and report a bad point of ModifyData as a bad polygon.
    static constexpr const char* kClass = "CZoPolygonMapObject";
    static constexpr SZoNestedTexts kNestedTexts{
        {"CZoMultiPolygonMapObject", "SetPolygonData", "Index越界: "},
        {kClass, "InsertPolygon", "Index越界: "},
        {kClass, "RemovePolygon", "Index越界: "},
        {kClass, "GetPolygonData", "Index越界: "},
        {kClass, "Cleanup", "nPolygonIndex越界: "},
        {kClass, "GetPointNumber", "Index越界: "},
        {kClass, "ModifyData", "nPolygonIndex越界: "},
        {kClass, "ModifyData", "nPolygonIndex越界: "},
        {kClass, "At", "nPolygonIndex越界: "},
        {kClass, "At", "nPointIndex越界: "},
        {kClass, "AppendPoint", "nPolygonIndex越界: "},
        {kClass, "InsertPoint", "nPolygonIndex越界: "},
        {kClass, "InsertPoint", "nPointIndex越界: "},
        {kClass, "RemovePoint", "nPolygonIndex越界: "},
        {kClass, "RemovePoint", "nPointIndex越界: "},
        {kClass, "PopPoint", "nPolygonIndex越界: "},
        {kClass, "PopPoint", "nPolygonIndex对应点集为空"}};

    CZoMultiPolygonMapObject() = default;

    void SetData(const std::vector<std::vector<CVector3D>>& rings) override { SetAll(rings); }
    std::int64_t GetPolygonNumber() const override { return LineCount(); }
    void SetPolygonData(int g, const std::vector<CVector3D>& ring) override { SetLine(g, ring); }
    int AppendPolygon(const std::vector<CVector3D>& ring) override { return AppendLine(ring, "AppendPolygon"); }
    void InsertPolygon(int g, const std::vector<CVector3D>& ring) override { InsertLine(g, ring); }
    void RemovePolygon(int g) override { RemoveLine(g); }
    void PopPolygon() override { PopLine(); }
    std::vector<CVector3D> GetPolygonData(int g) const override { return GetLine(g); }
    void Cleanup(int g) override { TZoNestedPointListObject::Cleanup(g); }
    std::int64_t GetPointNumber(int g) const override { return PointCount(g); }
    void ModifyData(int g, int i, const CVector3D& point) override { Modify(g, i, point); }
    CVector3D At(int g, int i) const override { return PointAt(g, i); }
    void AppendPoint(int g, const CVector3D& point) override { AppendPointTo(g, point, "AppendPoint"); }
    void InsertPoint(int g, int i, const CVector3D& point) override { InsertPointAt(g, i, point, "InsertPoint"); }
    void RemovePoint(int g, int i) override { RemovePointAt(g, i); }
    CVector3D PopPoint(int g) override { return PopPointFrom(g); }
    void SetExtraPoint(const CVector3D& point) override { m_extraPoint = point; }
    CVector3D GetExtraPoint() const override { return m_extraPoint; }

private:
    CVector3D m_extraPoint;
};
