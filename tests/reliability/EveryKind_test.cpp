// Every kind of object made, furnished, shown, painted and left to the
// module's teardown: nothing may stay behind that LeakSanitizer can see (the
// asan preset runs this). Hostile values are the setters fuzzer's.
#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"
#include "support/RecordingEditableUser.h"
#include "fuzz/ZoFuzz.h"
#include <QGraphicsItem>
#include <QLabel>
#include <climits>
#include <limits>

namespace
{
// Sensible values and something to show, so that an object's lazy parts
// (label looks, paths, pictures, embedded widgets) are made.
void Furnish(IZoGraphicsMapObject* o, double x, double y, QWidget* widget)
{
    const CVector3D at(x, y, 0.0);
    const EXTENT box{x - 1, y - 1, x + 1, y + 0.5};
    const std::vector<CVector3D> points{at, {x + 1, y, 0}, {x + 1, y + 1, 0}};
    o->SetNameVisible(true);
    o->SetNameOutlineWidth(1.0);
    if (auto* d = dynamic_cast<IZoDotMapObject*>(o))
        d->SetPosition(at);
    else if (auto* c = dynamic_cast<IZoCircleMapObject*>(o))
        c->SetCenter(at), c->SetRadiusPoint(CVector3D(x + 1, y, 0));
    else if (auto* e = dynamic_cast<IZoEllipseMapObject*>(o))
        e->SetExtent(box), e->SetRotation(20.0);
    else if (auto* b = dynamic_cast<IZoBowMapObject*>(o))
        b->SetSpanAngle(120.0), b->SetExtent(box);
    else if (auto* r = dynamic_cast<IZoRectangleMapObject*>(o))
        r->SetExtent(box), r->SetRotation(20.0);
    else if (auto* bubble = dynamic_cast<IZoBubbleMapObject*>(o))
        bubble->SetWidget(widget), bubble->SetPosition(at);
    else if (auto* line = dynamic_cast<IZoPolylineMapObject*>(o))
        line->SetData(points);
    else if (auto* ring = dynamic_cast<IZoPolygonMapObject*>(o))
        ring->SetData(points);
    else if (auto* dots = dynamic_cast<IZoMultiDotMapObject*>(o))
        dots->SetData(points);
    else if (auto* lines = dynamic_cast<IZoMultiLineMapObject*>(o))
        lines->SetData({points, points});
    else if (auto* rings = dynamic_cast<IZoMultiPolygonMapObject*>(o))
        rings->SetData({points});
    else if (auto* t = dynamic_cast<IZoTextMapObject*>(o))
        t->SetText("text"), t->SetBorderWidth(1.0), t->SetPosition(at);
    else if (auto* pin = dynamic_cast<IZoMarkPointMapObject*>(o))
        pin->SetIconFile(ZO_SOURCE_DATA_DIR "/demo/pin.png"), pin->SetPosition(at);
    else if (auto* svg = dynamic_cast<IZoSVGMapObject*>(o))
        svg->LoadSVGFile(ZO_SOURCE_DATA_DIR "/demo/compass_rose.svg", at);
    else if (auto* w = dynamic_cast<IZoWidgetMapObject*>(o))
        w->SetWidget(widget), w->SetPosition(at);
    else if (auto* canvas = dynamic_cast<IZoLayerCanvasMapObject*>(o))
    {
        QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor(0, 0, 200, 100));
        canvas->SetImage(image);
        canvas->SetExtent(box);
    }
    o->Rebuild(1.0);
}

using GadgetMaker = IZoGraphicsEditObject* (IZoGraphicsModule::*)(IZoGraphicsMapLayer*);
const GadgetMaker kGadgets[] = {&IZoGraphicsModule::CreateTranslateEditObject, &IZoGraphicsModule::CreateScaleEditObject,
                                &IZoGraphicsModule::CreateRotationEditObject,
                                &IZoGraphicsModule::CreateKeyPointSetEditObject};

class Teardown : public ModuleFixture
{
protected:
    void Paint() { ZoFuzzPaint(map.Scene(), QRectF(-50, -300, 400, 300), true); }
    void FurnishAll(IZoGraphicsModule& m, const std::string& prefix, const std::vector<IZoGraphicsMapLayer*>& layers)
    {
        for (std::size_t k = 0; k < makers.size(); ++k)
            Furnish(makers[k](m, prefix + std::to_string(k), layers[k % layers.size()]), k * 0.5, 1.0, &widget);
    }
    QLabel widget{"embedded"};
    RecordingEditableUser user;
    const std::vector<MapObjectMaker> makers = EveryKindMaker();
};
} // namespace

// A host may tear the module down with everything still on it, its gadgets
// given back before or after; nothing may stay allocated, and a module can
// start afresh on the same map.
TEST_F(Teardown, UnintialiseAndTheDestructorFreeWhatIsStillAlive)
{
    for (const bool gadgetsFirst : {true, false})
    {
        auto other = std::make_unique<CZoGraphicsModule>();
        ASSERT_TRUE(other->Initialise("teardown", &map));
        IZoGraphicsMapLayer* one = other->CreateGraphicsLayer("one");
        FurnishAll(*other, "left ", {nullptr, one});
        std::vector<IZoGraphicsEditObject*> gadgets;
        for (GadgetMaker make : kGadgets)
        {
            gadgets.push_back((other.get()->*make)(one));
            gadgets.back()->AttachEditableUser(&user);
            gadgets.back()->SetVisible(true);
            gadgets.back()->UpdateEditor(0);
            gadgets.back()->AddKeyPoint(true, CVector3D(1, 1, 0));
        }
        Paint();
        if (!gadgetsFirst)
            other->Unintialise();
        for (IZoGraphicsEditObject* gadget : gadgets)
            other->DestroyGraphicsEditObject(gadget);
        other->Unintialise();
        if (gadgetsFirst)
        {
            // The second life is a whole one.
            ASSERT_TRUE(other->Initialise("again", &map));
            IZoGraphicsMapLayer* again = other->CreateGraphicsLayer("one");
            EXPECT_EQ(other->LookupGraphicsLayer("one"), again);
            FurnishAll(*other, "again ", {again});
            EXPECT_EQ(again->GetMapObjectCount(), static_cast<int>(makers.size()));
            EXPECT_NE(other->LookupGraphicObject("again 0"), nullptr);
            EXPECT_EQ(other->LookupGraphicObject("left 0"), nullptr);
            Paint();
            other->Unintialise();
        }
        other.reset();
        EXPECT_TRUE(map.Scene()->items().isEmpty()) << map.Scene()->items().size() << " items left in the scene";
    }
}

// An object that went through hostile values (a number, a level and a text
// at once) behaves as new once given sensible ones again.
namespace
{
struct Hostile
{
    double d;
    int i;
    std::string text;
};
const Hostile kHostile[] = {{std::numeric_limits<double>::quiet_NaN(), INT_MIN, "\xff\xff\xff"},
                            {-std::numeric_limits<double>::infinity(), INT_MAX, std::string("\x81\x30", 2)},
                            {1e300, -100, std::string(1, '\0')},
                            {0.0, 0, std::string(4096, 'W')}};

// What Qt sees of an item and its children, rounded.
std::string Geometry(const QGraphicsItem* item)
{
    if (!item)
        return "none";
    const QRectF r = item->sceneBoundingRect();
    const QTransform t = item->transform();
    std::string out = QString::asprintf("[%.6g,%.6g %.6g,%.6g %.6gx%.6g %g,%g,%g,%g %d", item->pos().x(),
                                        item->pos().y(), r.x(), r.y(), r.width(), r.height(), t.m11(), t.m12(),
                                        t.m21(), t.m22(), item->isVisible()).toStdString();
    for (const QGraphicsItem* child : item->childItems())
        out += Geometry(child);
    return out + "]";
}

using G = IZoGraphicsMapObject;
using Setter = bool (*)(G*, FakeMapModule&, const Hostile&);
#define ZO_SET(I, body) [](G* g, FakeMapModule& map, const Hostile& v) \
    { I* o = dynamic_cast<I*>(g); (void)map, (void)v; return o && ([&] { body; }(), true); }
CVector3D All(const Hostile& v) { return CVector3D(v.d, v.d, v.d); }
CVector3D OnlyY(const Hostile& v) { return CVector3D(10.0, v.d, 0.0); }
EXTENT Box(const Hostile& v) { return EXTENT{9.0, v.d, v.d, 11.0}; }
std::vector<CVector3D> Line(const Hostile& v) { return {CVector3D(10, 10, 0), All(v), OnlyY(v)}; }

const Setter kSetters[] = {
    ZO_SET(G, map.ChangeViewScale(v.d)), ZO_SET(G, map.ChangeLod(v.i)), ZO_SET(G, map.nanConversions = true; o->Rebuild(1.0)),
    ZO_SET(G, o->SetName(v.text); o->SetNameOutlineWidth(v.d); o->SetNameOffset(static_cast<float>(v.d))),
    ZO_SET(G, o->SetNameMinLodLevel(v.i); o->SetNameMaxLodLevel(v.i); o->UpdateVisibility(v.i)),
    ZO_SET(G, o->SetMinLodLevel(v.i); o->SetMaxLodLevel(v.i); o->SetZValue(v.i)),
    ZO_SET(G, o->SetRebuildThreshold(v.d); o->SetEditAngle(v.d); o->SetResolution(v.d); o->Rebuild(v.d)),
    ZO_SET(IZoDotMapObject, o->SetPosition(All(v)); o->SetRadius(v.d); o->SetOffset(All(v)); o->SetRotation(v.d)),
    ZO_SET(IZoCircleMapObject, o->SetCenter(OnlyY(v)); o->SetRadiusPoint(OnlyY(v)); o->SetAuxPoint(All(v))),
    ZO_SET(IZoEllipseMapObject, o->SetExtent(Box(v)); o->SetRotation(v.d); o->SetCenter(All(v)); o->SetAuxPoint(All(v))),
    ZO_SET(IZoBowMapObject, o->SetStartAngle(v.d); o->SetSpanAngle(v.d); o->SetExtent(Box(v)); o->SetCenter(All(v))),
    ZO_SET(IZoRectangleMapObject, o->SetExtent(Box(v)); o->SetRotation(v.d); o->SetCenter(All(v))),
    ZO_SET(IZoBubbleMapObject, o->SetPosition(All(v)); o->SetSize(v.i, v.i)),
    ZO_SET(IZoPolylineMapObject, o->SetData(Line(v)); o->SetPosition(All(v)); o->Insert(1, OnlyY(v))),
    ZO_SET(IZoPolygonMapObject, o->SetData(Line(v)); o->SetPosition(All(v))),
    ZO_SET(IZoMultiDotMapObject, o->SetData(Line(v)); o->SetDotSize(v.d)),
    ZO_SET(IZoMultiLineMapObject, o->SetData({Line(v), {OnlyY(v), CVector3D(11, 9, 0)}})),
    ZO_SET(IZoMultiPolygonMapObject, o->SetData({Line(v)}); o->SetPosition(All(v))),
    ZO_SET(IZoTextMapObject, o->SetPosition(All(v)); o->SetRotateAngle(v.d); o->SetText(v.text); o->SetPadding(v.d)),
    ZO_SET(IZoTextMapObject, o->SetHtml(v.text); o->SetBorderWidth(v.d); o->SetOutlineWidth(v.d)),
    ZO_SET(IZoMarkPointMapObject, o->SetPosition(All(v)); o->SetIconAnchor(All(v)); o->SetIconSize(10.0, v.d)),
    ZO_SET(IZoMarkPointMapObject, o->SetIconFile(v.text); o->SetIconSize(v.d, v.d)),
    ZO_SET(IZoSVGMapObject, o->SetGeoExtent(Box(v)); o->SetCenter(All(v)); o->Rotate(v.d)),
    ZO_SET(IZoWidgetMapObject, o->SetPosition(All(v)); o->SetSize(v.i, v.i); o->SetAnchor(All(v))),
    ZO_SET(IZoLayerCanvasMapObject, o->SetExtent(Box(v))),
};

// Sensible values for everything the setters above touch that Furnish leaves.
void Restore(G* o, QWidget* widget)
{
    o->SetName("valid"), o->SetNameOffset(2.0f), o->SetNameMinLodLevel(1), o->SetNameMaxLodLevel(20);
    o->SetMinLodLevel(1), o->SetMaxLodLevel(20), o->SetZValue(3), o->SetRebuildThreshold(1.0), o->SetEditAngle(30.0);
    o->SetResolution(1.0);
    if (auto* d = dynamic_cast<IZoDotMapObject*>(o))
        d->SetRadius(5.0), d->SetOffset(CVector3D(1, 2, 0)), d->SetRotation(30.0);
    else if (auto* c = dynamic_cast<IZoCircleMapObject*>(o))
        c->SetCenter(CVector3D(10, 10, 0)), c->SetAuxPoint(CVector3D(10.5, 10, 0));
    else if (auto* e = dynamic_cast<IZoEllipseMapObject*>(o))
        e->SetAuxPoint(CVector3D(10, 10, 0)), e->SetRotation(20.0);
    else if (auto* b = dynamic_cast<IZoBowMapObject*>(o))
        b->SetStartAngle(30.0), b->SetRotation(20.0), b->SetAuxPoint(CVector3D(10, 10, 0));
    else if (auto* r = dynamic_cast<IZoRectangleMapObject*>(o))
        r->SetAuxPoint(CVector3D(10, 10, 0));
    else if (auto* bubble = dynamic_cast<IZoBubbleMapObject*>(o))
        bubble->SetSize(60, 30);
    else if (auto* dots = dynamic_cast<IZoMultiDotMapObject*>(o))
        dots->SetDotSize(4.0);
    else if (auto* t = dynamic_cast<IZoTextMapObject*>(o))
        t->SetScaleWithMap(false), t->SetPadding(2.0), t->SetRotationVector(CVector3D()), t->SetRotateAngle(15.0);
    else if (auto* pin = dynamic_cast<IZoMarkPointMapObject*>(o))
        pin->SetIconSize(16.0, 16.0), pin->SetIconAnchor(CVector3D(8, 16, 0)), pin->SetRotateAngle(15.0);
    else if (auto* w = dynamic_cast<IZoWidgetMapObject*>(o))
        w->SetSize(60, 30), w->SetAnchor(CVector3D(30, 15, 0));
    Furnish(o, 10.0, 10.0, widget);
    if (auto* svg = dynamic_cast<IZoSVGMapObject*>(o))
        svg->SetGeoExtent(EXTENT{9, 9, 11, 10.5}), svg->Rotate(0.0), svg->SetCenter(CVector3D(10, 10, 0));
}

using Restoring = ModuleFixture;
} // namespace

TEST_F(Restoring, SensibleValuesAfterHostileOnesLeaveEveryKindAsNew)
{
    QLabel subjectWidget("widget"), freshWidget("widget"); // same text: its width bounds the frame
    // A new object of the kind with sensible values, the map as it was.
    const auto valid = [this](const SZoFuzzKind& kind, const char* name, QWidget* widget) {
        map.nanConversions = false, map.ChangeViewScale(1.0), map.ChangeLod(10);
        G* o = kind.make(module, name, nullptr);
        Restore(o, widget);
        return o;
    };
    for (const SZoFuzzKind& kind : kZoFuzzKinds)
        for (std::size_t s = 0; s < std::size(kSetters); ++s)
            for (const Hostile& value : kHostile)
            {
                G* subject = valid(kind, "subject", &subjectWidget);
                if (!kSetters[s](subject, map, value))
                {
                    module.DestroyGraphicsMapObject(subject);
                    break; // not this kind's setter
                }
                G* fresh = valid(kind, "fresh", &freshWidget);
                Restore(subject, &subjectWidget);
                EXPECT_EQ(Geometry(subject->GetQtItem()), Geometry(fresh->GetQtItem()))
                    << kind.lookup << " setter " << s << " " << value.d;
                module.DestroyGraphicsMapObject(fresh);
                module.DestroyGraphicsMapObject(subject);
            }
}
