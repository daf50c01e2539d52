#pragma once

#include "object/CZoGeoPixels.h"
#include "object/ZoPixelValues.h"
#include "shapes/pointlist/CZoPointOffsets.h"
#include "shapes/pointlist/ZoPointListRules.h"

#include <ZoGraphics/IZoMapModule.h>

#include <QGraphicsItem>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

// The point-list rules every point-list kind shares, written once: the
// geographic lines, the anchor, the extent and how the item's offsets follow
// each edit. A single-list kind keeps exactly one line. StyleBase is the
// kind's TZoSurfaceStyleObject or TZoLineStyleObject; Derived supplies
//   static constexpr SZoObjectLogNames kLogNames;
//   static constexpr bool kEditsRefreshItem;  false: edits only hand over offsets
// and its Item has CZoPointOffsets& Offsets().
//
// Anchor: the first point after SetData, or the point that goes into an
// object without points; (0,0,0) once the object holds no point. The item
// sits at the anchor's pixel position and its offsets are relative to where
// it sits.
template <class StyleBase, class Derived>
class TZoPointListObject : public StyleBase
{
public:
    using Line = ZoPointList::Line;

    CVector3D GetAnchor() const { return m_anchor; }
    QPointF ConvertAnchorToPixel()
    {
        return this->Core().ConvertGeoToScenePixel(m_anchor, Derived::kLogNames.anchorConvertMethod);
    }
    CAABB GetBoundingBox() const override { return m_extent; }

    const std::vector<Line>& Lines() const { return m_lines; }

    // Fills the item's offsets from the geographic points when they belong to
    // another map level (or to none yet), and puts the item at the anchor.
    void SyncOffsets(CZoPointOffsets& offsets, QGraphicsItem* item)
    {
        const CZoMapObjectCore& core = this->Core();
        const int level = core.CurrentLod();
        if (offsets.level == level && offsets.lines.size() == m_lines.size())
            return;
        const CZoGeoPixels geo(core.GetMapModule());
        const QPointF origin = ConvertAnchorToPixel();
        offsets.lines.clear();
        offsets.lines.reserve(m_lines.size());
        offsets.partsNearX = std::numeric_limits<double>::quiet_NaN();
        for (const Line& line : m_lines)
        {
            offsets.lines.push_back(geo.Offsets(line, origin, offsets.partsNearX));
            const QPolygonF& drawn = offsets.lines.back();
            if (!std::isfinite(offsets.partsNearX) && !drawn.isEmpty())
                offsets.partsNearX = drawn.boundingRect().center().x();
        }
        offsets.worldWidth = geo.WorldWidth();
        offsets.northEdge = geo.PoleY(true) - origin.y();
        offsets.southEdge = geo.PoleY(false) - origin.y();
        offsets.level = level;
        if (item)
            item->setPos(origin);
    }

protected:
    TZoPointListObject() : m_lines(Derived::kSingleList ? 1 : 0) {}

    std::size_t TotalPoints() const
    {
        std::size_t count = 0;
        for (const Line& line : m_lines)
            count += line.size();
        return count;
    }

    // Points with NaN or infinite coordinates are refused whole: they would
    // poison the extent and the item's geometry.
    bool Accept(const Line& line, const char* method) const { return Accept(line.data(), line.size(), method); }
    bool Accept(const CVector3D& point, const char* method) const { return Accept(&point, 1, method); }
    bool Accept(const CVector3D* points, std::size_t count, const char* method) const
    {
        if (!std::all_of(points, points + count, [](const CVector3D& p) { return ZoPointList::IsFinite(p); }))
        {
            ZoLogWarnAt(Derived::kLogNames.className, method) << kInvalidCoordinates;
            return false;
        }
        CZoGeoPixels::NoteOutOfRange(points, count, Derived::kLogNames.className, method);
        return true;
    }

    void EditReplaceAll(std::vector<Line> lines)
    {
        if (Derived::kSingleList && lines.empty())
            lines.emplace_back();
        m_lines = std::move(lines);
        m_anchor = CVector3D();
        for (const Line& line : m_lines)
        {
            if (!line.empty())
            {
                m_anchor = line.front();
                break;
            }
        }
        m_extent = ZoPointList::ExtentOf(m_lines);
        if (CZoPointOffsets* offsets = ItemOffsets())
        {
            offsets->level = CZoPointOffsets::kNotFilled;
            SyncOffsets(*offsets, this->GetQtItem());
        }
        Refresh();
    }

    void EditReplaceLine(std::size_t l, Line line)
    {
        m_lines[l] = std::move(line);
        AfterLineChange(l, [&](QPolygonF& offsets) { offsets = LineOffsets(m_lines[l]); });
    }

    void EditInsertLineAt(std::size_t l, Line line)
    {
        m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(l), std::move(line));
        if (CZoPointOffsets* offsets = ItemOffsets())
            offsets->lines.insert(offsets->lines.begin() + static_cast<std::ptrdiff_t>(l), LineOffsets(m_lines[l]));
        AfterEdit();
    }

    void EditEraseLine(std::size_t l)
    {
        m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(l));
        if (CZoPointOffsets* offsets = ItemOffsets())
            offsets->lines.erase(offsets->lines.begin() + static_cast<std::ptrdiff_t>(l));
        AfterEdit();
    }

    // PushBack: the first point of an object without points becomes the
    // anchor and places the item; later points are offsets from the item.
    void EditAppendPoint(std::size_t l, const CVector3D& point)
    {
        const bool first = TotalPoints() == 0;
        if (first)
            m_anchor = point;
        m_lines[l].push_back(point);
        ZoPointList::ExtendExtent(m_extent, point);
        if (CZoPointOffsets* offsets = ItemOffsets())
        {
            if (first)
                this->Core().UpdatePosition();
            QPolygonF& drawn = offsets->lines[l];
            drawn.append(first ? QPointF(0.0, 0.0) : OffsetOf(point, drawn, drawn.size() - 1));
        }
        Refresh();
    }

    CVector3D EditPopPoint(std::size_t l)
    {
        const CVector3D last = m_lines[l].back();
        m_lines[l].pop_back();
        AfterLineChange(l, [](QPolygonF& offsets) {
            if (!offsets.isEmpty())
                offsets.removeLast();
        });
        return last;
    }

    void EditInsertPoint(std::size_t l, std::size_t i, const CVector3D& point)
    {
        Line& line = m_lines[l];
        line.insert(line.begin() + static_cast<std::ptrdiff_t>(i), point);
        AfterLineChange(l, [&](QPolygonF& offsets) {
            const int at = static_cast<int>(i);
            if (at > offsets.size())
                return;
            offsets.insert(at, OffsetOf(point, offsets, at > 0 ? at - 1 : at));
            KeepShortAround(l, offsets, at);
        });
    }

    // The anchor stays where it is, also for the first point.
    void EditModifyPoint(std::size_t l, std::size_t i, const CVector3D& point)
    {
        m_lines[l][i] = point;
        AfterLineChange(l, [&](QPolygonF& offsets) {
            const int at = static_cast<int>(i);
            if (at >= offsets.size())
                return;
            offsets[at] = OffsetOf(point, offsets, at > 0 ? at - 1 : at + 1);
            KeepShortAround(l, offsets, at);
        });
    }

    void EditErasePoint(std::size_t l, std::size_t i)
    {
        Line& line = m_lines[l];
        line.erase(line.begin() + static_cast<std::ptrdiff_t>(i));
        AfterLineChange(l, [&](QPolygonF& offsets) {
            const int at = static_cast<int>(i);
            if (at >= offsets.size())
                return;
            offsets.remove(at);
            KeepShortAround(l, offsets, at);
        });
    }

    void EditEmptyLine(std::size_t l)
    {
        m_lines[l].clear();
        AfterLineChange(l, [](QPolygonF& offsets) { offsets.clear(); });
    }

    void EditEraseAll() { EditReplaceAll({}); }

    // Moves every point by the difference between target and reference; the
    // item moves with the anchor and keeps its offsets.
    void EditMoveBy(const CVector3D& target, const CVector3D& reference)
    {
        const CVector3D delta = target - reference;
        m_anchor = m_anchor + delta;
        m_extent.Reset();
        for (Line& line : m_lines)
        {
            for (CVector3D& point : line)
            {
                point = point + delta;
                ZoPointList::ExtendExtent(m_extent, point);
            }
        }
        if (ItemOffsets())
            this->Core().UpdatePosition();
        Refresh();
    }

    // The item's offsets converted back to geographic points, as drawn.
    void AppendControlPoints(std::vector<CVector3D>& out, const char* method) const
    {
        const CZoMapObjectCore& core = this->Core();
        IZoMapModule* map = core.GetMapModule();
        if (!map)
        {
            ZoLogWarnAt(Derived::kLogNames.className, method) << ZoLogReason::kMapModuleNull;
            return;
        }
        const auto* item = this->GetItem();
        if (!item)
        {
            ZoLogWarnAt(Derived::kLogNames.className, method) << ZoLogReason::kItemNull;
            return;
        }
        const QPointF origin = this->GetQtItem()->pos();
        for (const QPolygonF& line : item->Offsets().lines)
        {
            for (const QPointF& offset : line)
            {
                const QPointF pixel = offset + origin;
                double x = 0.0;
                double y = 0.0;
                map->ConvertPixelToScene(&x, &y, ZoPixelInt(pixel.x()), ZoPixelInt(pixel.y()));
                out.emplace_back(x, y, 0.0);
            }
        }
    }

    std::vector<Line> m_lines;
    CVector3D m_anchor;
    CAABB m_extent;

private:
    static constexpr const char* kInvalidCoordinates = "坐标无效";

    // Offsets of a filled item; null while there is no item or it waits for
    // its first fill (which reads the points anyway).
    CZoPointOffsets* ItemOffsets()
    {
        auto* item = this->GetItem();
        if (!item || !item->Offsets().IsFilled())
            return nullptr;
        return &item->Offsets();
    }

    // A point's offset beside a neighbour among the drawn offsets: the short
    // way across the antimeridian, as a whole line is drawn.
    QPointF OffsetOf(const CVector3D& point, const QPolygonF& offsets, int neighbour)
    {
        const CZoGeoPixels geo(this->Core().GetMapModule());
        const QPointF origin = this->GetQtItem()->pos();
        QPointF pixel;
        if (!geo.Point(point, &pixel))
            return -origin;
        QPointF offset = pixel - origin;
        if (neighbour >= 0 && neighbour < offsets.size())
            offset.setX(geo.Near(offset.x(), offsets[neighbour].x()));
        return offset;
    }
    QPolygonF LineOffsets(const Line& line)
    {
        const CZoPointOffsets* offsets = ItemOffsets();
        return offsets ? CZoGeoPixels(this->Core().GetMapModule())
                             .Offsets(line, this->GetQtItem()->pos(), offsets->partsNearX)
                       : QPolygonF();
    }
    // After a one-point edit at index at: where the line now jumps by more
    // than half a world around it, the rest of the line lies a turn away and
    // the whole line is drawn again.
    void KeepShortAround(std::size_t l, QPolygonF& offsets, int at)
    {
        const double half = ItemOffsets() ? ItemOffsets()->worldWidth * 0.5 : 0.0;
        if (half <= 0.0)
            return;
        for (int k = std::max(at, 1); k <= std::min<int>(at + 1, int(offsets.size()) - 1); ++k)
        {
            if (std::fabs(offsets[k].x() - offsets[k - 1].x()) > half)
            {
                offsets = LineOffsets(m_lines[l]);
                return;
            }
        }
    }

    template <class EditOffsets>
    void AfterLineChange(std::size_t l, EditOffsets edit)
    {
        if (CZoPointOffsets* offsets = ItemOffsets())
            edit(offsets->lines[l]);
        AfterEdit();
    }

    void AfterEdit()
    {
        m_extent = ZoPointList::ExtentOf(m_lines);
        if (TotalPoints() == 0 && !(m_anchor == CVector3D()))
        {
            m_anchor = CVector3D();
            if (ItemOffsets())
                this->Core().UpdatePosition();
        }
        Refresh();
    }

    void Refresh()
    {
        if (Derived::kEditsRefreshItem)
            this->Core().RebuildAndRepaint(false);
    }
};
