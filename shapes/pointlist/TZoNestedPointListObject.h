#pragma once

#include "shapes/pointlist/TZoPointListObject.h"

// The index texts of a list-of-lists kind. Several name another class or
// method on purpose; a null cls checks silently.
struct SZoNestedTexts
{
    SZoIndexText setLine, insertLine, removeLine, getLine, cleanup, pointCount;
    SZoIndexText modifyLine, modifyPoint, atLine, atPoint, appendPoint;
    SZoIndexText insertPointLine, insertPointPoint, removePointLine, removePointPoint, popPointLine;
    SZoIndexText popEmpty; // the line holds no point: logged without an index
};

// The list-of-lists editing of the multi-line and the multi-polygon, by
// role; each kind names the operations as its interface does. Derived states
//   static constexpr SZoNestedTexts kNestedTexts;
template <class StyleBase, class Derived>
class TZoNestedPointListObject : public TZoPointListObject<StyleBase, Derived>
{
    using Base = TZoPointListObject<StyleBase, Derived>;

public:
    static constexpr bool kSingleList = false;
    using typename Base::Line;

    void SetPosition(const CVector3D& anchor) override
    {
        if (this->Accept(anchor, "SetPosition"))
            this->EditMoveBy(anchor, this->m_anchor);
    }
    void Clear() override { this->EditEraseAll(); }

protected:
    static const SZoNestedTexts& T() { return Derived::kNestedTexts; }

    void SetAll(const std::vector<Line>& lines)
    {
        if (&lines == &this->m_lines)
            return;
        for (const Line& line : lines)
            if (!this->Accept(line, "SetData"))
                return;
        this->EditReplaceAll(lines);
    }
    std::int64_t LineCount() const { return static_cast<std::int64_t>(this->m_lines.size()); }
    bool SetLine(int l, const Line& line)
    {
        if (!Check(T().setLine, l) || !this->Accept(line, T().setLine.method))
            return false;
        this->EditReplaceLine(static_cast<std::size_t>(l), line);
        return true;
    }
    // An empty line is refused: -1.
    int AppendLine(const Line& line, const char* method)
    {
        if (line.empty() || !this->Accept(line, method))
            return -1;
        this->EditInsertLineAt(this->m_lines.size(), line);
        return static_cast<int>(this->m_lines.size()) - 1;
    }
    void InsertLine(int l, const Line& line)
    {
        if (Check(T().insertLine, l, true) && this->Accept(line, T().insertLine.method))
            this->EditInsertLineAt(static_cast<std::size_t>(l), line);
    }
    void RemoveLine(int l)
    {
        if (Check(T().removeLine, l))
            this->EditEraseLine(static_cast<std::size_t>(l));
    }
    void PopLine()
    {
        if (!this->m_lines.empty())
            this->EditEraseLine(this->m_lines.size() - 1);
    }
    Line GetLine(int l) const { return Check(T().getLine, l) ? this->m_lines[static_cast<std::size_t>(l)] : Line(); }
    void Cleanup(int l)
    {
        if (Check(T().cleanup, l))
            this->EditEmptyLine(static_cast<std::size_t>(l));
    }
    std::int64_t PointCount(int l) const
    {
        return Check(T().pointCount, l) ? static_cast<std::int64_t>(this->m_lines[static_cast<std::size_t>(l)].size()) : 0;
    }
    void Modify(int l, int i, const CVector3D& point)
    {
        if (CheckPoint(T().modifyLine, T().modifyPoint, l, i, false) && this->Accept(point, T().modifyLine.method))
            this->EditModifyPoint(static_cast<std::size_t>(l), static_cast<std::size_t>(i), point);
    }
    CVector3D PointAt(int l, int i) const
    {
        if (!CheckPoint(T().atLine, T().atPoint, l, i, false))
            return CVector3D();
        return this->m_lines[static_cast<std::size_t>(l)][static_cast<std::size_t>(i)];
    }
    void AppendPointTo(int l, const CVector3D& point, const char* method)
    {
        if (Check(T().appendPoint, l) && this->Accept(point, method))
            this->EditAppendPoint(static_cast<std::size_t>(l), point);
    }
    void InsertPointAt(int l, int i, const CVector3D& point, const char* method)
    {
        if (CheckPoint(T().insertPointLine, T().insertPointPoint, l, i, true) && this->Accept(point, method))
            this->EditInsertPoint(static_cast<std::size_t>(l), static_cast<std::size_t>(i), point);
    }
    void RemovePointAt(int l, int i)
    {
        if (CheckPoint(T().removePointLine, T().removePointPoint, l, i, false))
            this->EditErasePoint(static_cast<std::size_t>(l), static_cast<std::size_t>(i));
    }
    CVector3D PopPointFrom(int l)
    {
        if (!Check(T().popPointLine, l))
            return CVector3D();
        if (this->m_lines[static_cast<std::size_t>(l)].empty())
        {
            ZoLogWarnAt(T().popEmpty.cls, T().popEmpty.method) << T().popEmpty.reason;
            return CVector3D();
        }
        return this->EditPopPoint(static_cast<std::size_t>(l));
    }

private:
    bool Check(const SZoIndexText& text, int l, bool endAllowed = false) const
    {
        if (!text.cls)
            return ZoPointList::IndexValid(l, this->m_lines.size(), endAllowed);
        return ZoPointList::CheckIndex(text, l, this->m_lines.size(), endAllowed);
    }
    // The line first, then the point within it; the failing index is logged.
    bool CheckPoint(const SZoIndexText& lineText, const SZoIndexText& pointText, int l, int i, bool endAllowed) const
    {
        return Check(lineText, l) &&
               ZoPointList::CheckIndex(pointText, i, this->m_lines[static_cast<std::size_t>(l)].size(), endAllowed);
    }
};
