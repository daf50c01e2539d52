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
#include "support/PlainPointListModel.h"

#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/ZoGraphics.h>

#include <QGraphicsItem>
#include <cmath>

namespace
{
using Line = PointListModel::Line;

// One list edited by index: the polyline, the polygon and the multi-dot.
template <class Object>
struct SSingle
{
    Object* o;
    std::size_t Lines() const { return 1; }
    Line Get(std::size_t) const { return o->GetData(); }
    CVector3D Anchor() const { return o->GetAnchor(); }
};

// Lists of lists: the multi-line and the multi-polygon.
template <class Object>
struct SNested
{
    Object* o;
    std::size_t Lines() const;
    Line Get(std::size_t l) const;
    CVector3D Anchor() const { return o->GetAnchor(); }
};
template <>
std::size_t SNested<CZoMultiLineMapObject>::Lines() const
{
    return static_cast<std::size_t>(o->GetLineNumber());
}
template <>
Line SNested<CZoMultiLineMapObject>::Get(std::size_t l) const
{
    return o->GetLineData(static_cast<int>(l));
}
template <>
std::size_t SNested<CZoMultiPolygonMapObject>::Lines() const
{
    return static_cast<std::size_t>(o->GetPolygonNumber());
}
template <>
Line SNested<CZoMultiPolygonMapObject>::Get(std::size_t l) const
{
    return o->GetPolygonData(static_cast<int>(l));
}

CVector3D Point(CZoFuzzInput& in)
{
    // Mostly plain points; now and then a hostile one, which the whole edit
    // must refuse.
    if (in.Int(0, 15) == 0)
        return CVector3D{in.Double(), in.Double(), in.Double()};
    return CVector3D{in.Plain(-60, 60), in.Plain(-60, 60), in.Plain(-1, 1)};
}

bool Finite(const CVector3D& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

bool AllFinite(const Line& line)
{
    for (const CVector3D& p : line)
        if (!Finite(p))
            return false;
    return true;
}

Line RandomLine(CZoFuzzInput& in, int most)
{
    Line line(static_cast<std::size_t>(in.Int(0, most)));
    for (CVector3D& p : line)
        p = Point(in);
    return line;
}

class CCountingLog
{
public:
    CCountingLog()
        : m_previous(ZoSetLogSink([this](EZoLogLevel, const std::string& message) {
              // Points far off the map are kept but cannot be converted;
              // that warning is the host's conversion's, not the edit's.
              if (message.find("ConvertSceneToPixel失败") != std::string::npos)
                  return;
              // Kept points past +-180 or a pole are noted.
              if (message.find("经度超出±180") != std::string::npos ||
                  message.find("纬度超出±90") != std::string::npos)
                  return;
              ++m_count;
              m_last = message;
          }))
    {
    }
    ~CCountingLog() { ZoSetLogSink(m_previous); }
    CCountingLog(const CCountingLog&) = delete;
    CCountingLog& operator=(const CCountingLog&) = delete;
    int Take()
    {
        const int n = m_count;
        m_count = 0;
        return n;
    }

private:
    int m_count = 0;
    ZoLogSink m_previous;

public:
    std::string m_last;
};

template <class View>
void Compare(const View& view, const PointListModel& model, IZoGraphicsMapObject* object, IZoMapModule& map,
             const std::string& where)
{
    ZO_FUZZ_CHECK(view.Lines() == model.lines.size(), where);
    for (std::size_t l = 0; l < model.lines.size(); ++l)
        ZO_FUZZ_CHECK(view.Get(l) == model.lines[l], where + " line " + std::to_string(l));
    ZO_FUZZ_CHECK(view.Anchor() == model.anchor, where);
    const CAABB box = object->GetBoundingBox();
    const CAABB expected = model.Extent();
    ZO_FUZZ_CHECK(box.IsEmpty() == expected.IsEmpty(), where);
    if (!box.IsEmpty())
        ZO_FUZZ_CHECK(box.min == expected.min && box.max == expected.max, where);
    if (QGraphicsItem* item = object->GetQtItem(); item && model.Total() > 0)
    {
        int px = 0;
        int py = 0;
        if (map.ConvertSceneToPixel(&px, &py, ZoAntimeridian::Wrap(model.anchor.x), model.anchor.y))
            ZO_FUZZ_CHECK(item->pos() == QPointF(px, py), where + " item position");
        const QRectF bounds = item->boundingRect();
        ZO_FUZZ_CHECK(std::isfinite(bounds.x()) && std::isfinite(bounds.width()), where + " bounds");
    }
}

// The edits of a single list; returns whether the edit was faulty.
template <class Object>
bool EditSingle(Object* o, PointListModel& model, CZoFuzzInput& in)
{
    Line& line = model.lines.front();
    const int n = static_cast<int>(line.size());
    const int i = in.Int(-2, n + 2);
    const CVector3D p = Point(in);
    const bool finite = Finite(p);
    switch (in.Int(0, 8))
    {
    case 0: {
        const Line data = RandomLine(in, 6);
        o->SetData(data);
        if (AllFinite(data))
            model.SetAll({data});
        return !AllFinite(data);
    }
    case 1:
        o->PushBack(p);
        if (finite)
            model.Append(0, p);
        return !finite;
    case 2: {
        const CVector3D back = o->PopBack();
        ZO_FUZZ_CHECK(back == (n ? line.back() : CVector3D()), "PopBack");
        if (n)
            line.pop_back();
        return n == 0 && std::is_same<Object, CZoMultiDotMapObject>::value;
    }
    case 3:
        o->Insert(i, p);
        if (i < 0 || i > n || !finite)
            return true;
        line.insert(line.begin() + i, p);
        return false;
    case 4:
        o->Modify(i, p);
        if (i < 0 || i >= n || !finite)
            return true;
        line[static_cast<std::size_t>(i)] = p;
        return false;
    case 5:
        o->Remove(i);
        if (i < 0 || i >= n)
            return true;
        line.erase(line.begin() + i);
        return false;
    case 6:
        ZO_FUZZ_CHECK(o->At(i) == (i >= 0 && i < n ? line[static_cast<std::size_t>(i)] : CVector3D()), "At");
        return i < 0 || i >= n;
    case 7:
        o->Clear();
        line.clear();
        return false;
    default: {
        const int count = static_cast<int>(o->GetPointNumber());
        ZO_FUZZ_CHECK(count == n, "GetPointNumber");
        return false;
    }
    }
}

// The edits of lists of lists; returns whether the edit was faulty.
template <class Object, class Ops>
bool EditNested(Object* o, PointListModel& model, CZoFuzzInput& in)
{
    auto& lines = model.lines;
    const int n = static_cast<int>(lines.size());
    const int l = in.Int(-1, n);
    const bool lineOk = l >= 0 && l < n;
    const int points = lineOk ? static_cast<int>(lines[static_cast<std::size_t>(l)].size()) : 0;
    const int i = in.Int(-1, points + 1);
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
        if (ok)
            model.SetAll(data);
        return !ok;
    }
    case 1: {
        const Line line = RandomLine(in, 3);
        const int index = Ops::AppendLine(o, line);
        if (!AllFinite(line))
            return true;
        ZO_FUZZ_CHECK(index == (line.empty() ? -1 : n), "AppendLine");
        if (!line.empty())
            lines.push_back(line);
        return false;
    }
    case 2: {
        const Line line = RandomLine(in, 3);
        Ops::InsertLine(o, l, line);
        if (l < 0 || l > n || !AllFinite(line))
            return true;
        lines.insert(lines.begin() + l, line);
        return false;
    }
    case 3:
        Ops::RemoveLine(o, l);
        if (!lineOk)
            return true;
        lines.erase(lines.begin() + l);
        return false;
    case 4: {
        const Line line = RandomLine(in, 3);
        Ops::SetLine(o, l, line);
        if (!lineOk || !AllFinite(line))
            return true;
        lines[static_cast<std::size_t>(l)] = line;
        return false;
    }
    case 5:
        o->AppendPoint(l, p);
        if (!lineOk || !finite)
            return true;
        model.Append(static_cast<std::size_t>(l), p);
        return false;
    case 6:
        o->InsertPoint(l, i, p);
        if (!lineOk || i < 0 || i > points || !finite)
            return true;
        lines[static_cast<std::size_t>(l)].insert(lines[static_cast<std::size_t>(l)].begin() + i, p);
        return false;
    case 7:
        o->ModifyData(l, i, p);
        if (!lineOk || i < 0 || i >= points || !finite)
            return true;
        lines[static_cast<std::size_t>(l)][static_cast<std::size_t>(i)] = p;
        return false;
    case 8:
        o->RemovePoint(l, i);
        if (!lineOk || i < 0 || i >= points)
            return true;
        lines[static_cast<std::size_t>(l)].erase(lines[static_cast<std::size_t>(l)].begin() + i);
        return false;
    case 9: {
        const CVector3D back = o->PopPoint(l);
        ZO_FUZZ_CHECK(back == (lineOk && points ? lines[static_cast<std::size_t>(l)].back() : CVector3D()), "PopPoint");
        if (!lineOk || points == 0)
            return true;
        lines[static_cast<std::size_t>(l)].pop_back();
        return false;
    }
    case 10:
        o->Cleanup(l);
        if (!lineOk)
            return Ops::kCleanupLogs;
        lines[static_cast<std::size_t>(l)].clear();
        return false;
    case 11:
        Ops::PopLine(o);
        if (n)
            lines.pop_back();
        return false;
    default:
        o->Clear();
        lines.clear();
        return false;
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

template <class View, class Edit>
void Run(IZoGraphicsMapObject* object, const View& view, std::size_t lines, CZoFuzzInput& in, CZoMapModule& map,
         Edit edit)
{
    PointListModel model;
    model.lines.resize(lines);
    CCountingLog log;
    for (int step = 0; step < 300 && !in.Empty(); ++step)
    {
        const std::string where = "step " + std::to_string(step);
        if (in.Int(0, 15) == 0)
            map.SetZoomAround(in.Plain(0.0, 21.0), 0.0, 0.0);
        log.Take();
        const bool faulty = edit(model, in);
        model.Settle();
        const int messages = log.Take();
        // A faulty index and a point that is not finite may each be told.
        ZO_FUZZ_CHECK(faulty ? messages >= 1 : messages == 0,
                      where + ": " + std::to_string(messages) + " warnings, the last " + log.m_last);
        Compare(view, model, object, map, where);
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
    case 0: {
        auto* o = static_cast<CZoPolylineMapObject*>(module.CreatePolylineMapObject("line", layer));
        Run(o, SSingle<CZoPolylineMapObject>{o}, 1, in, map,
            [o](PointListModel& m, CZoFuzzInput& i) { return EditSingle(o, m, i); });
        break;
    }
    case 1: {
        auto* o = static_cast<CZoPolygonMapObject*>(module.CreatePolygonMapObject("ring", layer));
        Run(o, SSingle<CZoPolygonMapObject>{o}, 1, in, map,
            [o](PointListModel& m, CZoFuzzInput& i) { return EditSingle(o, m, i); });
        break;
    }
    case 2: {
        auto* o = static_cast<CZoMultiDotMapObject*>(module.CreateMultiDotMapObject("dots", layer));
        Run(o, SSingle<CZoMultiDotMapObject>{o}, 1, in, map,
            [o](PointListModel& m, CZoFuzzInput& i) { return EditSingle(o, m, i); });
        break;
    }
    case 3: {
        auto* o = static_cast<CZoMultiLineMapObject*>(module.CreateMultiLineMapObject("lines", layer));
        Run(o, SNested<CZoMultiLineMapObject>{o}, 0, in, map,
            [o](PointListModel& m, CZoFuzzInput& i) { return EditNested<CZoMultiLineMapObject, SLineOps>(o, m, i); });
        break;
    }
    default: {
        auto* o = static_cast<CZoMultiPolygonMapObject*>(module.CreateMultiPolygonMapObject("rings", layer));
        Run(o, SNested<CZoMultiPolygonMapObject>{o}, 0, in, map, [o](PointListModel& m, CZoFuzzInput& i) {
            return EditNested<CZoMultiPolygonMapObject, SRingOps>(o, m, i);
        });
        break;
    }
    }
    CZoQuietLog quiet;
    module.Unintialise();
    return 0;
}
