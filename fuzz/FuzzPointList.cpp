// Each point-list kind edited by index, valid and faulty, against the plain
// model of its lists, anchor and extent; a faulty edit logs one warning and
// changes nothing.
#include "fuzz/ZoFuzz.h"
#include "object/ZoAntimeridian.h"
#include "shapes/multidot/CZoMultiDotMapObject.h"
#include "shapes/multiline/CZoMultiLineMapObject.h"
#include "shapes/multipolygon/CZoMultiPolygonMapObject.h"
#include "shapes/polygon/CZoPolygonMapObject.h"
#include "shapes/polyline/CZoPolylineMapObject.h"
#include <ZoGraphics/CZoMapModule.h>
#include <QGraphicsItem>
#include <algorithm>
#include <cmath>

namespace
{
// A plain model of the point-list rules, for differential tests: lines of
// points, the anchor, and what the extent and the item's offsets must be.
struct PointListModel
{
    using Line = std::vector<CVector3D>;
    std::vector<Line> lines;
    CVector3D anchor;
    std::size_t Total() const
    {
        std::size_t n = 0;
        for (const Line& line : lines)
            n += line.size();
        return n;
    }
    void SetAll(std::vector<Line> all)
    {
        lines = std::move(all);
        anchor = CVector3D();
        for (const Line& line : lines)
            if (!line.empty())
            {
                anchor = line.front();
                break;
            }
    }
    void Append(std::size_t l, const CVector3D& p)
    {
        if (Total() == 0)
            anchor = p;
        lines[l].push_back(p);
    }
    // After removals: an object without points has its anchor at the origin.
    void Settle()
    {
        if (Total() == 0)
            anchor = CVector3D();
    }
    CAABB Extent() const
    {
        CAABB box;
        for (const Line& line : lines)
            for (const CVector3D& p : line)
            {
                box.Extend(CVector3D(p.x, p.y, -1.0));
                box.Extend(CVector3D(p.x, p.y, 1.0));
            }
        return box;
    }
};
using Line = PointListModel::Line;

// A line as the kind's own getter gives it.
template <class Object>
Line LineOf(const Object* o, std::size_t) { return o->GetData(); }
Line LineOf(const CZoMultiLineMapObject* o, std::size_t l) { return o->GetLineData(static_cast<int>(l)); }
Line LineOf(const CZoMultiPolygonMapObject* o, std::size_t l) { return o->GetPolygonData(static_cast<int>(l)); }

// Mostly plain points; now and then a hostile one, which the whole edit
// must refuse.
CVector3D Point(CZoFuzzInput& in)
{
    if (in.Int(0, 15) == 0)
        return CVector3D{in.Double(), in.Double(), in.Double()};
    return CVector3D{in.Plain(-60, 60), in.Plain(-60, 60), in.Plain(-1, 1)};
}
bool Finite(const CVector3D& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }
bool AllFinite(const Line& line) { return std::all_of(line.begin(), line.end(), Finite); }

Line RandomLine(CZoFuzzInput& in, int most)
{
    Line line(static_cast<std::size_t>(in.Int(0, most)));
    for (CVector3D& p : line)
        p = Point(in);
    return line;
}

// A point far off the map is kept but cannot be converted, and one past
// +-180 or a pole is noted: those warnings are the host's conversion's and
// the notes', not the edit's.
bool EditWarning(const std::string& message)
{
    for (const char* other : {"ConvertSceneToPixel失败", "经度超出±180", "纬度超出±90"})
        if (message.find(other) != std::string::npos)
            return false;
    return true;
}

template <class Object>
void Compare(const Object* o, const PointListModel& model, IZoMapModule& map, const std::string& where)
{
    ZO_FUZZ_CHECK(o->Lines().size() == model.lines.size(), where);
    for (std::size_t l = 0; l < model.lines.size() && l < o->Lines().size(); ++l)
        ZO_FUZZ_CHECK(LineOf(o, l) == model.lines[l], where + " line " + std::to_string(l));
    ZO_FUZZ_CHECK(o->GetAnchor() == model.anchor, where);
    const CAABB box = o->GetBoundingBox();
    const CAABB expected = model.Extent();
    ZO_FUZZ_CHECK(box.IsEmpty() == expected.IsEmpty(), where);
    if (!box.IsEmpty())
        ZO_FUZZ_CHECK(box.min == expected.min && box.max == expected.max, where);
    if (QGraphicsItem* item = o->GetQtItem(); item && model.Total() > 0)
    {
        int px = 0, py = 0;
        if (map.ConvertSceneToPixel(&px, &py, ZoAntimeridian::Wrap(model.anchor.x), model.anchor.y))
            ZO_FUZZ_CHECK(item->pos() == QPointF(px, py), where + " item position");
        const QRectF bounds = item->boundingRect();
        ZO_FUZZ_CHECK(std::isfinite(bounds.x()) && std::isfinite(bounds.width()), where + " bounds");
    }
}

// The edits of a single list.
template <class Object>
bool EditSingle(Object* o, PointListModel& model, CZoFuzzInput& in)
{
    Line& line = model.lines.front();
    const int n = static_cast<int>(line.size());
    const int i = in.Int(-2, n + 2);
    const bool inside = i >= 0 && i < n;
    const CVector3D p = Point(in);
    const bool finite = Finite(p);
    const auto at = line.begin() + (inside || i == n ? i : 0);
    switch (in.Int(0, 8))
    {
    // Each edit returns whether it was faulty, changing the model only when
    // it was not.
    case 0: {
        const Line data = RandomLine(in, 6);
        o->SetData(data);
        return !AllFinite(data) || (model.SetAll({data}), false);
    }
    case 1: o->PushBack(p); return !finite || (model.Append(0, p), false);
    case 2:
        ZO_FUZZ_CHECK(o->PopBack() == (n ? line.back() : CVector3D()), "PopBack");
        return n ? (line.pop_back(), false) : std::is_same<Object, CZoMultiDotMapObject>::value;
    case 3: o->Insert(i, p); return i < 0 || i > n || !finite || (line.insert(at, p), false);
    case 4: o->Modify(i, p); return !inside || !finite || (*at = p, false);
    case 5: o->Remove(i); return !inside || (line.erase(at), false);
    case 6: ZO_FUZZ_CHECK(o->At(i) == (inside ? *at : CVector3D()), "At"); return !inside;
    case 7: o->Clear(); line.clear(); return false;
    default:
        ZO_FUZZ_CHECK(o->GetPointNumber() == n, "GetPointNumber");
        return false;
    }
}

// The edits of lists of lists.
template <class Object, class Ops>
bool EditNested(Object* o, PointListModel& model, CZoFuzzInput& in)
{
    auto& lines = model.lines;
    const int n = static_cast<int>(lines.size());
    const int l = in.Int(-1, n);
    const bool lineOk = l >= 0 && l < n;
    Line none;
    Line& line = lineOk ? lines[static_cast<std::size_t>(l)] : none;
    const int points = static_cast<int>(line.size());
    const int i = in.Int(-1, points + 1);
    const bool pointOk = lineOk && i >= 0 && i < points;
    const auto at = line.begin() + (pointOk || i == points ? i : 0);
    const CVector3D p = Point(in);
    const bool finite = Finite(p);
    switch (in.Int(0, 12))
    {
    case 0: {
        std::vector<Line> data(static_cast<std::size_t>(in.Int(0, 3)));
        bool ok = true;
        for (Line& d : data)
            ok &= AllFinite(d = RandomLine(in, 4));
        o->SetData(data);
        return !ok || (model.SetAll(data), false);
    }
    case 1: {
        const Line added = RandomLine(in, 3);
        const int index = Ops::AppendLine(o, added);
        if (!AllFinite(added))
            return true;
        ZO_FUZZ_CHECK(index == (added.empty() ? -1 : n), "AppendLine");
        if (!added.empty())
            lines.push_back(added);
        return false;
    }
    case 2: {
        const Line added = RandomLine(in, 3);
        Ops::InsertLine(o, l, added);
        return l < 0 || l > n || !AllFinite(added) || (lines.insert(lines.begin() + l, added), false);
    }
    case 3: Ops::RemoveLine(o, l); return !lineOk || (lines.erase(lines.begin() + l), false);
    case 4: {
        const Line replacement = RandomLine(in, 3);
        Ops::SetLine(o, l, replacement);
        return !lineOk || !AllFinite(replacement) || (line = replacement, false);
    }
    case 5: o->AppendPoint(l, p); return !lineOk || !finite || (model.Append(static_cast<std::size_t>(l), p), false);
    case 6:
        o->InsertPoint(l, i, p);
        return !lineOk || i < 0 || i > points || !finite || (line.insert(at, p), false);
    case 7: o->ModifyData(l, i, p); return !pointOk || !finite || (*at = p, false);
    case 8: o->RemovePoint(l, i); return !pointOk || (line.erase(at), false);
    case 9:
        ZO_FUZZ_CHECK(o->PopPoint(l) == (points ? line.back() : CVector3D()), "PopPoint");
        return points == 0 || (line.pop_back(), false);
    case 10: o->Cleanup(l); return lineOk ? (line.clear(), false) : Ops::kCleanupLogs;
    case 11: Ops::PopLine(o); return n && (lines.pop_back(), false);
    default: o->Clear(); lines.clear(); return false;
    }
}

struct SLineOps
{
    static constexpr bool kCleanupLogs = false;
    static int AppendLine(CZoMultiLineMapObject* o, const Line& l) { return o->AppendLine(l); }
    static void InsertLine(CZoMultiLineMapObject* o, int i, const Line& l) { o->InsertLine(i, l); }
    static void RemoveLine(CZoMultiLineMapObject* o, int i) { o->RemoveLine(i); }
    static void SetLine(CZoMultiLineMapObject* o, int i, const Line& l) { o->SetLineData(i, l); }
    static void PopLine(CZoMultiLineMapObject* o) { o->PopLine(); }
};

struct SRingOps
{
    static constexpr bool kCleanupLogs = true;
    static int AppendLine(CZoMultiPolygonMapObject* o, const Line& l) { return o->AppendPolygon(l); }
    static void InsertLine(CZoMultiPolygonMapObject* o, int i, const Line& l) { o->InsertPolygon(i, l); }
    static void RemoveLine(CZoMultiPolygonMapObject* o, int i) { o->RemovePolygon(i); }
    static void SetLine(CZoMultiPolygonMapObject* o, int i, const Line& l) { o->SetPolygonData(i, l); }
    static void PopLine(CZoMultiPolygonMapObject* o) { o->PopPolygon(); }
};

template <class Object>
void Run(IZoGraphicsMapObject* made, CZoFuzzInput& in, CZoMapModule& map,
         bool (*edit)(Object*, PointListModel&, CZoFuzzInput&))
{
    auto* o = static_cast<Object*>(made);
    PointListModel model;
    model.lines.resize(o->Lines().size());
    int warnings = 0;
    std::string last;
    CZoQuietLog log([&](const std::string& message) {
        if (EditWarning(message))
            ++warnings, last = message;
    });
    for (int step = 0; step < 300 && !in.Empty(); ++step)
    {
        const std::string where = "step " + std::to_string(step);
        if (in.Int(0, 15) == 0)
            map.SetZoomAround(in.Plain(0.0, 21.0), 0.0, 0.0);
        warnings = 0;
        const bool faulty = edit(o, model, in);
        model.Settle();
        // A faulty index and a point that is not finite may each be told.
        ZO_FUZZ_CHECK(faulty ? warnings >= 1 : warnings == 0, where + ": " + std::to_string(warnings) + " warnings, the last " + last);
        Compare(o, model, map, where);
    }
}
} // namespace

int ZoFuzzPointList(const std::uint8_t* data, std::size_t size)
{
    ZoFuzzEnsureApplication();
    CZoFuzzInput in(data, size);
    CZoMapModule map;
    map.SetZoomAround(4.0, 0.0, 0.0);
    CZoGraphicsModule module;
    {
        CZoQuietLog quiet;
        module.Initialise("fuzz", &map);
    }
    IZoGraphicsMapLayer* layer = module.GetDeafultGraphicsLayer();
    switch (in.Int(0, 4))
    {
    case 0: Run(module.CreatePolylineMapObject("line", layer), in, map, EditSingle<CZoPolylineMapObject>); break;
    case 1: Run(module.CreatePolygonMapObject("ring", layer), in, map, EditSingle<CZoPolygonMapObject>); break;
    case 2: Run(module.CreateMultiDotMapObject("dots", layer), in, map, EditSingle<CZoMultiDotMapObject>); break;
    case 3: Run(module.CreateMultiLineMapObject("lines", layer), in, map, EditNested<CZoMultiLineMapObject, SLineOps>); break;
    default: Run(module.CreateMultiPolygonMapObject("rings", layer), in, map, EditNested<CZoMultiPolygonMapObject, SRingOps>);
    }
    CZoQuietLog quiet;
    module.Unintialise();
    return 0;
}
