#include "support/ModuleFixture.h"
#include "support/MapObjectKinds.h"

#include <ZoGraphics/ZoGraphics.h>

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QLabel>
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <sstream>

// Every setter of every kind given values a careless or broken host may pass:
// NaN, infinities, huge, negative and denormal numbers, levels out of range,
// byte strings that are not GB18030. The setters fuzzer checks that nothing
// non-finite reaches Qt; here the object must behave as new once it is given
// sensible values again.
namespace
{
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// One row: a number, a level and a text, all hostile, used together.
struct Hostile
{
    const char* label;
    double d;
    int i;
    std::string text;
};

const std::vector<Hostile>& HostileValues()
{
    static const std::vector<Hostile> values{
        {"NaN", kNaN, std::numeric_limits<int>::min(), std::string("\xff\xff\xff", 3)},
        {"+inf", kInf, std::numeric_limits<int>::max(), std::string("\x81", 1)},
        {"-inf", -kInf, -1, std::string("\x81\x30", 2)},
        {"1e300", 1e300, 0, ""},
        {"-1e300", -1e300, -100, std::string("\x81\x30\x81", 3)},
        {"-5", -5.0, -5, std::string(1, '\0')},
        {"0", 0.0, 0, ""},
        {"denormal", std::numeric_limits<double>::denorm_min(), 1, std::string("\xfe\x39\xfe\x39", 4)},
        {"max", std::numeric_limits<double>::max(), 1000, std::string(4096, 'W')},
        {"2^31", 2147483648.0, 22, "\xd6\xd0"},
    };
    return values;
}

// The geometry Qt sees of an item and its children, for comparing an object
// that went through hostile values with a fresh one.
struct Geometry
{
    QPointF pos;
    QRectF rect;
    QRectF sceneRect;
    QTransform transform;
    bool visible;
};

void Collect(const QGraphicsItem* item, std::vector<Geometry>& out)
{
    if (!item)
        return;
    out.push_back({item->pos(), item->boundingRect(), item->sceneBoundingRect(), item->transform(), item->isVisible()});
    for (const QGraphicsItem* child : item->childItems())
        Collect(child, out);
}

bool Near(double a, double b)
{
    return std::abs(a - b) <= 1e-6 * std::max(1.0, std::max(std::abs(a), std::abs(b)));
}
bool Near(const QRectF& a, const QRectF& b)
{
    return Near(a.x(), b.x()) && Near(a.y(), b.y()) && Near(a.width(), b.width()) && Near(a.height(), b.height());
}
bool Near(const Geometry& a, const Geometry& b)
{
    return Near(a.pos.x(), b.pos.x()) && Near(a.pos.y(), b.pos.y()) && Near(a.rect, b.rect) &&
           Near(a.sceneRect, b.sceneRect) && a.transform == b.transform &&
           a.visible == b.visible;
}

std::string Mismatch(const std::vector<Geometry>& a, const std::vector<Geometry>& b)
{
    if (a.size() != b.size())
        return "items " + std::to_string(a.size()) + " against " + std::to_string(b.size());
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!Near(a[i], b[i]))
        {
            std::ostringstream out;
            out << "item " << i << ": rect " << a[i].sceneRect.x() << "," << a[i].sceneRect.y() << " "
                << a[i].sceneRect.width() << "x" << a[i].sceneRect.height() << " against " << b[i].sceneRect.x() << ","
                << b[i].sceneRect.y() << " " << b[i].sceneRect.width() << "x" << b[i].sceneRect.height()
                << (a[i].visible != b[i].visible ? " (visibility differs)" : "");
            return out.str();
        }
    return "";
}

// A setter that applies to the kinds with interface I and does nothing (and
// answers false) for the others.
using Setter = std::function<bool(IZoGraphicsMapObject*, FakeMapModule&, const Hostile&)>;
template <class I, class F>
Setter On(F f)
{
    return [f](IZoGraphicsMapObject* o, FakeMapModule& map, const Hostile& v) {
        auto* typed = dynamic_cast<I*>(o);
        if (!typed)
            return false;
        f(typed, map, v);
        return true;
    };
}
#define ZO_SET(I, body) {#I ": " #body, On<I>([](I* o, FakeMapModule & map, const Hostile& v) { (void)o; (void)map; (void)v; body; })}

CVector3D All(const Hostile& v)
{
    return CVector3D(v.d, v.d, v.d);
}
CVector3D OnlyY(const Hostile& v)
{
    return CVector3D(10.0, v.d, 0.0);
}
EXTENT Box(const Hostile& v)
{
    return EXTENT{9.0, v.d, v.d, 11.0};
}

using G = IZoGraphicsMapObject;
using S = IZoSurfaceStyleGraphicsMapObject;
using L = IZoLineStyleGraphicsMapObject;

const std::vector<std::pair<std::string, Setter>>& Setters()
{
    static const std::vector<std::pair<std::string, Setter>> setters{
        // The host's map gone wrong.
        ZO_SET(G, map.ChangeViewScale(v.d)),
        ZO_SET(G, map.ChangeLod(v.i)),
        ZO_SET(G, map.nanConversions = true; o->Rebuild(1.0)),
        // What every object shares.
        ZO_SET(G, o->SetName(v.text)),
        ZO_SET(G, o->SetNameOutlineWidth(v.d)),
        ZO_SET(G, o->SetNameOffset(static_cast<float>(v.d))),
        ZO_SET(G, o->SetNameMinLodLevel(v.i)),
        ZO_SET(G, o->SetNameMaxLodLevel(v.i)),
        ZO_SET(G, o->SetMinLodLevel(v.i)),
        ZO_SET(G, o->SetMaxLodLevel(v.i)),
        ZO_SET(G, o->SetZValue(v.i)),
        ZO_SET(G, o->SetRebuildThreshold(v.d)),
        ZO_SET(G, o->SetEditAngle(v.d)),
        ZO_SET(G, o->SetResolution(v.d)),
        ZO_SET(G, o->Rebuild(v.d)),
        ZO_SET(G, o->UpdateVisibility(v.i)),
        ZO_SET(S, o->SetPenWidth(static_cast<float>(v.d))),
        ZO_SET(L, o->SetPenWidth(static_cast<float>(v.d))),
        // Each kind's own.
        ZO_SET(IZoDotMapObject, o->SetPosition(All(v))),
        ZO_SET(IZoDotMapObject, o->SetPosition(OnlyY(v))),
        ZO_SET(IZoDotMapObject, o->SetRadius(v.d)),
        ZO_SET(IZoDotMapObject, o->SetOffset(All(v))),
        ZO_SET(IZoDotMapObject, o->SetRotation(v.d)),
        ZO_SET(IZoCircleMapObject, o->SetCenter(All(v))),
        ZO_SET(IZoCircleMapObject, o->SetCenter(OnlyY(v))),
        ZO_SET(IZoCircleMapObject, o->SetRadiusPoint(All(v))),
        ZO_SET(IZoCircleMapObject, o->SetRadiusPoint(OnlyY(v))),
        ZO_SET(IZoCircleMapObject, o->SetAuxPoint(All(v))),
        ZO_SET(IZoEllipseMapObject, o->SetExtent(Box(v))),
        ZO_SET(IZoEllipseMapObject, o->SetCenter(All(v))),
        ZO_SET(IZoEllipseMapObject, o->SetRotation(v.d)),
        ZO_SET(IZoEllipseMapObject, o->SetAuxPoint(All(v))),
        ZO_SET(IZoBowMapObject, o->SetStartAngle(v.d)),
        ZO_SET(IZoBowMapObject, o->SetSpanAngle(v.d)),
        ZO_SET(IZoBowMapObject, o->SetExtent(Box(v))),
        ZO_SET(IZoBowMapObject, o->SetCenter(All(v))),
        ZO_SET(IZoBowMapObject, o->SetRotation(v.d)),
        ZO_SET(IZoBowMapObject, o->SetAuxPoint(All(v))),
        ZO_SET(IZoRectangleMapObject, o->SetExtent(Box(v))),
        ZO_SET(IZoRectangleMapObject, o->SetCenter(All(v))),
        ZO_SET(IZoRectangleMapObject, o->SetRotation(v.d)),
        ZO_SET(IZoRectangleMapObject, o->SetAuxPoint(All(v))),
        ZO_SET(IZoBubbleMapObject, o->SetPosition(All(v))),
        ZO_SET(IZoBubbleMapObject, o->SetSize(v.i, v.i)),
        ZO_SET(IZoPolylineMapObject, o->SetData({CVector3D(10, 10, 0), All(v), OnlyY(v)})),
        ZO_SET(IZoPolylineMapObject, o->SetPosition(All(v))),
        ZO_SET(IZoPolylineMapObject, o->Insert(1, OnlyY(v))),
        ZO_SET(IZoPolygonMapObject, o->SetData({CVector3D(10, 10, 0), All(v), OnlyY(v)})),
        ZO_SET(IZoPolygonMapObject, o->SetPosition(All(v))),
        ZO_SET(IZoMultiDotMapObject, o->SetData({CVector3D(10, 10, 0), All(v), OnlyY(v)})),
        ZO_SET(IZoMultiDotMapObject, o->SetDotSize(v.d)),
        ZO_SET(IZoMultiDotMapObject, o->SetPosition(All(v))),
        ZO_SET(IZoMultiLineMapObject, o->SetData({{CVector3D(10, 10, 0), All(v)}, {OnlyY(v), CVector3D(11, 9, 0)}})),
        ZO_SET(IZoMultiLineMapObject, o->SetPosition(All(v))),
        ZO_SET(IZoMultiPolygonMapObject, o->SetData({{CVector3D(10, 10, 0), All(v), OnlyY(v)}})),
        ZO_SET(IZoMultiPolygonMapObject, o->SetPosition(All(v))),
        ZO_SET(IZoTextMapObject, o->SetPosition(All(v))),
        ZO_SET(IZoTextMapObject, o->SetRotateAngle(v.d)),
        ZO_SET(IZoTextMapObject, o->SetRotationVector(All(v))),
        ZO_SET(IZoTextMapObject, o->SetText(v.text)),
        ZO_SET(IZoTextMapObject, o->SetHtml(v.text)),
        ZO_SET(IZoTextMapObject, o->SetOutlineWidth(v.d)),
        ZO_SET(IZoTextMapObject, o->SetPadding(v.d)),
        ZO_SET(IZoTextMapObject, o->SetBorderWidth(v.d)),
        ZO_SET(IZoTextMapObject, o->SetScaleWithMap(true)),
        ZO_SET(IZoMarkPointMapObject, o->SetPosition(All(v))),
        ZO_SET(IZoMarkPointMapObject, o->SetRotateAngle(v.d)),
        ZO_SET(IZoMarkPointMapObject, o->SetIconSize(v.d, v.d)),
        ZO_SET(IZoMarkPointMapObject, o->SetIconSize(10.0, v.d)),
        ZO_SET(IZoMarkPointMapObject, o->SetIconAnchor(All(v))),
        ZO_SET(IZoMarkPointMapObject, o->SetIconFile(v.text)),
        ZO_SET(IZoSVGMapObject, o->SetGeoExtent(Box(v))),
        ZO_SET(IZoSVGMapObject, o->SetCenter(All(v))),
        ZO_SET(IZoSVGMapObject, o->SetXYScale(v.d, v.d)),
        ZO_SET(IZoSVGMapObject, o->SetXScale(v.d)),
        ZO_SET(IZoSVGMapObject, o->SetYScale(v.d)),
        ZO_SET(IZoSVGMapObject, o->MoveBy(v.d, v.d)),
        ZO_SET(IZoSVGMapObject, o->Rotate(v.d)),
        ZO_SET(IZoWidgetMapObject, o->SetPosition(All(v))),
        ZO_SET(IZoWidgetMapObject, o->SetSize(v.i, v.i)),
        ZO_SET(IZoWidgetMapObject, o->SetAnchor(All(v))),
        ZO_SET(IZoLayerCanvasMapObject, o->SetExtent(Box(v))),
    };
    return setters;
}

// Sensible values for everything the setters above touch, in one fixed order,
// so that an object that went through hostile values and a fresh one end up
// given the same.
void GiveValidValues(IZoGraphicsMapObject* o, FakeMapModule& map, QWidget* widget)
{
    map.nanConversions = false;
    map.ChangeViewScale(1.0);
    map.ChangeLod(10);
    const CVector3D at(10.0, 10.0, 0.0);
    const EXTENT box{9.0, 9.0, 11.0, 10.5};
    const std::vector<CVector3D> points{at, CVector3D(11, 10, 0), CVector3D(11, 11, 0)};
    o->SetName("valid");
    o->SetNameVisible(true);
    o->SetNameOutlineWidth(1.0);
    o->SetNameOffset(2.0f);
    o->SetNameMinLodLevel(1);
    o->SetNameMaxLodLevel(20);
    o->SetMinLodLevel(1);
    o->SetMaxLodLevel(20);
    o->SetZValue(3);
    o->SetRebuildThreshold(1.0);
    o->SetEditAngle(30.0);
    o->SetResolution(1.0);
    if (auto* s = dynamic_cast<S*>(o))
        s->SetPenWidth(2.0f);
    if (auto* l = dynamic_cast<L*>(o))
        l->SetPenWidth(2.0f);
    if (auto* d = dynamic_cast<IZoDotMapObject*>(o))
    {
        d->SetRadius(5.0);
        d->SetOffset(CVector3D(1.0, 2.0, 0.0));
        d->SetRotation(30.0);
        d->SetPosition(at);
    }
    else if (auto* c = dynamic_cast<IZoCircleMapObject*>(o))
    {
        c->SetCenter(at);
        c->SetRadiusPoint(CVector3D(11.0, 10.0, 0.0));
        c->SetAuxPoint(CVector3D(10.5, 10.0, 0.0));
    }
    else if (auto* e = dynamic_cast<IZoEllipseMapObject*>(o))
    {
        e->SetExtent(box);
        e->SetRotation(20.0);
        e->SetAuxPoint(at);
    }
    else if (auto* b = dynamic_cast<IZoBowMapObject*>(o))
    {
        b->SetExtent(box);
        b->SetStartAngle(30.0);
        b->SetSpanAngle(120.0);
        b->SetRotation(20.0);
        b->SetAuxPoint(at);
    }
    else if (auto* r = dynamic_cast<IZoRectangleMapObject*>(o))
    {
        r->SetExtent(box);
        r->SetRotation(20.0);
        r->SetAuxPoint(at);
    }
    else if (auto* bubble = dynamic_cast<IZoBubbleMapObject*>(o))
    {
        bubble->SetWidget(widget);
        bubble->SetSize(60, 30);
        bubble->SetPosition(at);
    }
    else if (auto* line = dynamic_cast<IZoPolylineMapObject*>(o))
        line->SetData(points);
    else if (auto* ring = dynamic_cast<IZoPolygonMapObject*>(o))
        ring->SetData(points);
    else if (auto* dots = dynamic_cast<IZoMultiDotMapObject*>(o))
    {
        dots->SetDotSize(4.0);
        dots->SetData(points);
    }
    else if (auto* lines = dynamic_cast<IZoMultiLineMapObject*>(o))
        lines->SetData({points, points});
    else if (auto* rings = dynamic_cast<IZoMultiPolygonMapObject*>(o))
        rings->SetData({points});
    else if (auto* t = dynamic_cast<IZoTextMapObject*>(o))
    {
        t->SetScaleWithMap(false);
        t->SetText("text");
        t->SetOutlineWidth(1.0);
        t->SetPadding(2.0);
        t->SetBorderWidth(1.0);
        t->SetRotationVector(CVector3D());
        t->SetRotateAngle(15.0);
        t->SetPosition(at);
    }
    else if (auto* pin = dynamic_cast<IZoMarkPointMapObject*>(o))
    {
        pin->SetIconFile("");
        pin->SetIconSize(16.0, 16.0);
        pin->SetIconAnchor(CVector3D(8.0, 16.0, 0.0));
        pin->SetRotateAngle(15.0);
        pin->SetPosition(at);
    }
    else if (auto* svg = dynamic_cast<IZoSVGMapObject*>(o))
    {
        svg->SetGeoExtent(box);
        svg->Rotate(0.0);
        svg->SetCenter(at);
    }
    else if (auto* w = dynamic_cast<IZoWidgetMapObject*>(o))
    {
        w->SetWidget(widget);
        w->SetSize(60, 30);
        w->SetAnchor(CVector3D(30.0, 15.0, 0.0));
        w->SetPosition(at);
    }
    else if (auto* canvas = dynamic_cast<IZoLayerCanvasMapObject*>(o))
        canvas->SetExtent(box);
    o->Rebuild(1.0);
}

// Reported once per kind or gadget, with the first few failures spelled out,
// so that a regression in a shared path does not bury the output under
// thousands.
void ExpectNoFailures(const std::vector<std::string>& failures)
{
    std::string report;
    for (std::size_t i = 0; i < failures.size() && i < 15; ++i)
        report += "\n  " + failures[i];
    EXPECT_TRUE(failures.empty()) << failures.size() << " failures, the first:" << report;
}

template <class Kind>
class HostileValuesTest : public ModuleFixture
{
};
// Every kind, and the tile, which is a rectangle laid out in other units.
using HostileKindList = ::testing::Types<DotKind, TextKind, CircleKind, PieKind, ArcKind, ChordKind, EllipseKind,
                                         RectangleKind, TileKind, BubbleKind, MarkPointKind, LayerCanvasKind, SVGKind,
                                         PolylineKind, PolygonKind, MultiDotKind, MultiLineKind, MultiPolygonKind,
                                         WidgetKind>;
TYPED_TEST_SUITE(HostileValuesTest, HostileKindList);

TYPED_TEST(HostileValuesTest, NothingNonFiniteReachesQtAndValidValuesRestoreTheObject)
{
    this->log.Clear();
    // The same text: a label's minimum width bounds the embedding frame.
    QLabel subjectWidget("widget"), freshWidget("widget");
    std::vector<std::string> failures;
    int applied = 0;
    for (const auto& [name, setter] : Setters())
        for (const Hostile& value : HostileValues())
        {
            const std::string where = name + " with " + value.label + ": ";
            IZoGraphicsMapObject* subject = TypeParam::Create(this->module, "subject", nullptr);
            ASSERT_NE(subject, nullptr);
            GiveValidValues(subject, this->map, &subjectWidget);
            if (!setter(subject, this->map, value))
            {
                this->module.DestroyGraphicsMapObject(subject);
                break; // not this kind's setter: no value will apply either
            }
            ++applied;

            GiveValidValues(subject, this->map, &subjectWidget);
            IZoGraphicsMapObject* fresh = TypeParam::Create(this->module, "fresh", nullptr);
            ASSERT_NE(fresh, nullptr);
            GiveValidValues(fresh, this->map, &freshWidget);
            std::vector<Geometry> was, now;
            Collect(subject->GetQtItem(), was);
            Collect(fresh->GetQtItem(), now);
            // Scales and moves of a picture add up, so only one refused
            // (non-finite or flattening) must leave it as new.
            const bool adds = name.find("SetXYScale") != std::string::npos || name.find("SetXScale") != std::string::npos ||
                              name.find("SetYScale") != std::string::npos || name.find("MoveBy") != std::string::npos;
            const bool refused = !std::isfinite(value.d) || std::abs(value.d) < 1e-12;
            if (const std::string differs = Mismatch(was, now); (!adds || refused) && !differs.empty())
                failures.push_back(where + "not as a fresh object: " + differs);
            this->module.DestroyGraphicsMapObject(fresh);
            this->module.DestroyGraphicsMapObject(subject);
        }
    EXPECT_GT(applied, 0);
    ExpectNoFailures(failures);
}

} // namespace
