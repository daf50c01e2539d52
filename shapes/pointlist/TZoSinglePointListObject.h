#pragma once

#include "shapes/pointlist/TZoPointListObject.h"

// The one-list editing interface of the polyline, the polygon and the
// multi-dot. Their index texts all read "[<class>::<method>] Index越界: ";
// Derived also states
//   static constexpr const char* kPopEmptyReason;  logged by PopBack on an
//   empty list, or null to return (0,0,0) silently.
template <class StyleBase, class Derived>
class TZoSinglePointListObject : public TZoPointListObject<StyleBase, Derived>
{
    using Base = TZoPointListObject<StyleBase, Derived>;

public:
    static constexpr bool kSingleList = true;
    using typename Base::Line;

    void SetData(const std::vector<CVector3D>& points) override
    {
        if (&points == &this->m_lines.front() || !this->Accept(points, "SetData"))
            return;
        this->EditReplaceAll({points});
    }
    void PushBack(const CVector3D& point) override
    {
        if (this->Accept(point, "PushBack"))
            this->EditAppendPoint(0, point);
    }
    CVector3D PopBack() override
    {
        if (Points().empty())
        {
            if (Derived::kPopEmptyReason)
                ZoLogWarnAt(Derived::kLogNames.className, "PopBack") << Derived::kPopEmptyReason;
            return CVector3D();
        }
        return this->EditPopPoint(0);
    }
    CVector3D At(int index) const override
    {
        if (!ZoPointList::CheckIndex(Text("At"), index, Points().size()))
            return CVector3D();
        return Points()[static_cast<std::size_t>(index)];
    }
    void Modify(int index, const CVector3D& point) override
    {
        if (ZoPointList::CheckIndex(Text("Modify"), index, Points().size()) && this->Accept(point, "Modify"))
            this->EditModifyPoint(0, static_cast<std::size_t>(index), point);
    }
    void Insert(int index, const CVector3D& point) override
    {
        if (ZoPointList::CheckIndex(Text("Insert"), index, Points().size(), true) && this->Accept(point, "Insert"))
            this->EditInsertPoint(0, static_cast<std::size_t>(index), point);
    }
    void Remove(int index) override
    {
        if (ZoPointList::CheckIndex(Text("Remove"), index, Points().size()))
            this->EditErasePoint(0, static_cast<std::size_t>(index));
    }
    void Clear() override { this->EditEraseAll(); }
    std::int64_t GetPointNumber() const override { return static_cast<std::int64_t>(Points().size()); }
    std::vector<CVector3D> GetData() const override { return Points(); }

    // Not every single-list interface has these; where it does they override.
    CVector3D GetPosition() const { return this->m_anchor; }
    const std::vector<CVector3D>& GetDataRef() const { return Points(); }
    void GetAllControlPoint(std::vector<CVector3D>& out) const
    {
        this->AppendControlPoints(out, "GetAllControlPoint");
    }
    void SetPosition(const CVector3D& anchor) override
    {
        if (this->Accept(anchor, "SetPosition"))
            this->EditMoveBy(anchor, this->m_anchor);
    }

protected:
    const Line& Points() const { return this->m_lines.front(); }

private:
    static SZoIndexText Text(const char* method)
    {
        return SZoIndexText{Derived::kLogNames.className, method, ZoLogReason::kIndexOutOfRange};
    }
};
