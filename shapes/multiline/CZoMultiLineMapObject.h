#pragma once

#include "object/TZoStyledMapObject.h"
#include "shapes/multiline/CMultiLineItemQtImpl.h"
#include "shapes/pointlist/TZoNestedPointListObject.h"

#include <ZoGraphics/IZoMultiLineMapObject.h>

// Several lines with one line style.
class CZoMultiLineMapObject final
    : public TZoNestedPointListObject<
          TZoLineStyleObject<IZoMultiLineMapObject, CZoMultiLineMapObject, CMultiLineItemQtImpl>, CZoMultiLineMapObject>
{
public:
    static constexpr SZoObjectLogNames kLogNames{"CZoMultiLineMapObject"};
    static constexpr bool kEditsRefreshItem = true;
    // Hosts match on these texts, which name the multi-polygon and, for the
    // point operations, At.
    static constexpr const char* kClass = "CZoMultiPolygonMapObject";
    static constexpr SZoNestedTexts kNestedTexts{
        {kClass, "SetLineData", "Index越界: "},     {kClass, "InsertLine", "Index越界: "},
        {kClass, "RemoveLine", "Index越界: "},      {kClass, "GetLineData", "Index越界: "},
        {nullptr, "Cleanup", nullptr},               {kClass, "GetPointNumber", "Index越界: "},
        {kClass, "ModifyData", "nLineIndex越界: "}, {kClass, "ModifyData", "nPointIndex越界: "},
        {kClass, "At", "nLineIndex越界: "},         {kClass, "At", "nPointIndex越界: "},
        {kClass, "At", "nLineIndex越界: "},         {kClass, "At", "InsertPoint越界: "},
        {kClass, "At", "nPointIndex越界: "},        {kClass, "RemovePoint", "nLineIndex越界: "},
        {kClass, "RemovePoint", "nPointIndex越界: "}, {kClass, "PopPoint", "nLineIndex越界: "},
        {"RemovePoint", "PopPoint", "nLineIndex对应点集为空"}};

    CZoMultiLineMapObject() = default;

    void SetClosed(bool closed) override;
    bool IsClosed() const override { return m_closed; }
    void SetData(const std::vector<std::vector<CVector3D>>& lines) override { SetAll(lines); }
    std::int64_t GetLineNumber() const override { return LineCount(); }
    bool SetLineData(int l, const std::vector<CVector3D>& line) override { return SetLine(l, line); }
    int AppendLine(const std::vector<CVector3D>& line) override { return TZoNestedPointListObject::AppendLine(line, "AppendLine"); }
    void InsertLine(int l, const std::vector<CVector3D>& line) override { TZoNestedPointListObject::InsertLine(l, line); }
    void RemoveLine(int l) override { TZoNestedPointListObject::RemoveLine(l); }
    void PopLine() override { TZoNestedPointListObject::PopLine(); }
    std::vector<CVector3D> GetLineData(int l) const override { return GetLine(l); }
    void Cleanup(int l) override { TZoNestedPointListObject::Cleanup(l); }
    std::int64_t GetPointNumber(int l) const override { return PointCount(l); }
    void ModifyData(int l, int i, const CVector3D& point) override { Modify(l, i, point); }
    CVector3D At(int l, int i) const override { return PointAt(l, i); }
    void AppendPoint(int l, const CVector3D& point) override { AppendPointTo(l, point, "AppendPoint"); }
    void InsertPoint(int l, int i, const CVector3D& point) override { InsertPointAt(l, i, point, "InsertPoint"); }
    void RemovePoint(int l, int i) override { RemovePointAt(l, i); }
    CVector3D PopPoint(int l) override { return PopPointFrom(l); }

private:
    bool m_closed = false;
};
