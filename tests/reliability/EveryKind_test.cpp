// Every kind of object, over and over: made, given sensible and hostile
// values, shown, painted and destroyed, or left to the module's teardown. An
// object that went through hostile values must behave as new once given
// sensible ones again, and nothing may stay behind that LeakSanitizer can see
// (the asan preset runs this).
#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"
#include "support/RecordingEditableUser.h"

#include <QGraphicsItem>
#include <QLabel>
#include <QPainter>
#include <cmath>
#include <functional>
#include <limits>

namespace
{
using S = IZoSurfaceStyleGraphicsMapObject;
using L = IZoLineStyleGraphicsMapObject;

template <class Shape>
void ExtentShape(Shape* shape, const EXTENT& box, const CVector3D& aux)
{
    shape->SetExtent(box);
    shape->SetRotation(20.0);
    shape->SetAuxPoint(aux);
}

// Gives an object of any kind sensible values for everything the hostile
// setters below touch, and something to show, so that its lazy parts (label
// looks, paths, pictures, embedded widgets) are made.
void Furnish(IZoGraphicsMapObject* o, double x, double y, QWidget* widget)
{
    const CVector3D at(x, y, 0.0);
    const EXTENT box{x - 1, y - 1, x + 1, y + 0.5};
    const std::vector<CVector3D> points{at, {x + 1, y, 0}, {x + 1, y + 1, 0}};
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
        c->SetRadiusPoint(CVector3D(x + 1, y, 0));
        c->SetAuxPoint(CVector3D(x + 0.5, y, 0));
    }
    else if (auto* e = dynamic_cast<IZoEllipseMapObject*>(o))
        ExtentShape(e, box, at);
    else if (auto* b = dynamic_cast<IZoBowMapObject*>(o))
    {
        b->SetStartAngle(30.0);
        b->SetSpanAngle(120.0);
        ExtentShape(b, box, at);
    }
    else if (auto* r = dynamic_cast<IZoRectangleMapObject*>(o))
        ExtentShape(r, box, at);
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
        pin->SetIconFile(ZO_SOURCE_DATA_DIR "/demo/pin.png");
        pin->SetIconSize(16.0, 16.0);
        pin->SetIconAnchor(CVector3D(8.0, 16.0, 0.0));
        pin->SetRotateAngle(15.0);
        pin->SetPosition(at);
    }
    else if (auto* svg = dynamic_cast<IZoSVGMapObject*>(o))
    {
        svg->LoadSVGFile(ZO_SOURCE_DATA_DIR "/demo/compass_rose.svg", at);
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
    {
        QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor(0, 0, 200, 100));
        canvas->SetImage(image);
        canvas->SetExtent(box);
    }
    o->Rebuild(1.0);
}

// --- hostile values ---------------------------------------------------------

// One row: a number, a level and a text, all hostile, used together. The
// setters fuzzer checks that nothing non-finite reaches Qt.
struct Hostile
{
    const char* label;
    double d;
    int i;
    std::string text;
};

const std::vector<Hostile> kHostile{
    {"NaN", std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<int>::min(), "\xff\xff\xff"},
    {"-inf", -std::numeric_limits<double>::infinity(), std::numeric_limits<int>::max(), std::string("\x81\x30", 2)},
    {"1e300", 1e300, -100, std::string(1, '\0')},
    {"0", 0.0, 0, std::string(4096, 'W')},
};

// The geometry Qt sees of an item and its children, rounded, for comparing
// an object that went through hostile values with a fresh one.
std::string Geometry(const QGraphicsItem* item)
{
    if (!item)
        return "none";
    const QRectF r = item->sceneBoundingRect();
    const QTransform t = item->transform();
    QString out = QString::asprintf("[%.6g,%.6g %.6g,%.6g %.6gx%.6g %g,%g,%g,%g %d", item->pos().x(), item->pos().y(),
                                    r.x(), r.y(), r.width(), r.height(), t.m11(), t.m12(), t.m21(), t.m22(),
                                    item->isVisible());
    for (const QGraphicsItem* child : item->childItems())
        out += QString::fromStdString(Geometry(child));
    return (out + "]").toStdString();
}

// Hostile calls that apply to the kinds with interface I; false for others.
using Setter = std::function<bool(IZoGraphicsMapObject*, FakeMapModule&, const Hostile&)>;
template <class I, class F>
Setter On(F f)
{
    return [f](IZoGraphicsMapObject* o, FakeMapModule& map, const Hostile& v) {
        auto* typed = dynamic_cast<I*>(o);
        if (typed)
            f(typed, map, v);
        return typed != nullptr;
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

const std::vector<std::pair<std::string, Setter>>& Setters()
{
    static const std::vector<std::pair<std::string, Setter>> setters{
        // The host's map gone wrong.
        ZO_SET(G, map.ChangeViewScale(v.d)),
        ZO_SET(G, map.ChangeLod(v.i)),
        ZO_SET(G, map.nanConversions = true; o->Rebuild(1.0)),
        // What every object shares.
        ZO_SET(G, o->SetName(v.text); o->SetNameOutlineWidth(v.d); o->SetNameOffset(static_cast<float>(v.d))),
        ZO_SET(G, o->SetNameMinLodLevel(v.i); o->SetNameMaxLodLevel(v.i); o->UpdateVisibility(v.i)),
        ZO_SET(G, o->SetMinLodLevel(v.i); o->SetMaxLodLevel(v.i); o->SetZValue(v.i)),
        ZO_SET(G, o->SetRebuildThreshold(v.d); o->SetEditAngle(v.d)),
        ZO_SET(G, o->SetResolution(v.d); o->Rebuild(v.d)),
        ZO_SET(S, o->SetPenWidth(static_cast<float>(v.d))),
        ZO_SET(L, o->SetPenWidth(static_cast<float>(v.d))),
        // Each kind's own.
        ZO_SET(IZoDotMapObject, o->SetPosition(All(v)); o->SetPosition(OnlyY(v))),
        ZO_SET(IZoDotMapObject, o->SetRadius(v.d); o->SetOffset(All(v)); o->SetRotation(v.d)),
        ZO_SET(IZoCircleMapObject, o->SetCenter(All(v)); o->SetCenter(OnlyY(v))),
        ZO_SET(IZoCircleMapObject, o->SetRadiusPoint(OnlyY(v)); o->SetAuxPoint(All(v))),
        ZO_SET(IZoEllipseMapObject, o->SetExtent(Box(v)); o->SetRotation(v.d); o->SetCenter(All(v)); o->SetAuxPoint(All(v))),
        ZO_SET(IZoBowMapObject, o->SetStartAngle(v.d); o->SetSpanAngle(v.d); o->SetRotation(v.d)),
        ZO_SET(IZoBowMapObject, o->SetExtent(Box(v)); o->SetCenter(All(v)); o->SetAuxPoint(All(v))),
        ZO_SET(IZoRectangleMapObject, o->SetExtent(Box(v)); o->SetRotation(v.d); o->SetCenter(All(v)); o->SetAuxPoint(All(v))),
        ZO_SET(IZoBubbleMapObject, o->SetPosition(All(v)); o->SetSize(v.i, v.i)),
        ZO_SET(IZoPolylineMapObject, o->SetData({CVector3D(10, 10, 0), All(v), OnlyY(v)})),
        ZO_SET(IZoPolylineMapObject, o->SetPosition(All(v)); o->Insert(1, OnlyY(v))),
        ZO_SET(IZoPolygonMapObject, o->SetData({CVector3D(10, 10, 0), All(v), OnlyY(v)}); o->SetPosition(All(v))),
        ZO_SET(IZoMultiDotMapObject, o->SetData({CVector3D(10, 10, 0), All(v), OnlyY(v)}); o->SetDotSize(v.d)),
        ZO_SET(IZoMultiLineMapObject, o->SetData({{CVector3D(10, 10, 0), All(v)}, {OnlyY(v), CVector3D(11, 9, 0)}})),
        ZO_SET(IZoMultiPolygonMapObject, o->SetData({{CVector3D(10, 10, 0), All(v), OnlyY(v)}}); o->SetPosition(All(v))),
        ZO_SET(IZoTextMapObject, o->SetPosition(All(v)); o->SetRotateAngle(v.d); o->SetRotationVector(All(v))),
        ZO_SET(IZoTextMapObject, o->SetText(v.text); o->SetOutlineWidth(v.d); o->SetPadding(v.d)),
        ZO_SET(IZoTextMapObject, o->SetHtml(v.text); o->SetBorderWidth(v.d); o->SetScaleWithMap(true)),
        ZO_SET(IZoMarkPointMapObject, o->SetPosition(All(v)); o->SetRotateAngle(v.d); o->SetIconAnchor(All(v))),
        ZO_SET(IZoMarkPointMapObject, o->SetIconSize(v.d, v.d); o->SetIconSize(10.0, v.d)),
        ZO_SET(IZoMarkPointMapObject, o->SetIconFile(v.text)),
        ZO_SET(IZoSVGMapObject, o->SetGeoExtent(Box(v)); o->SetCenter(All(v)); o->Rotate(v.d)),
        ZO_SET(IZoSVGMapObject, o->SetXYScale(v.d, v.d); o->SetXScale(v.d); o->SetYScale(v.d); o->MoveBy(v.d, v.d)),
        ZO_SET(IZoWidgetMapObject, o->SetPosition(All(v)); o->SetSize(v.i, v.i); o->SetAnchor(All(v))),
        ZO_SET(IZoLayerCanvasMapObject, o->SetExtent(Box(v))),
    };
    return setters;
}

void GiveValidValues(IZoGraphicsMapObject* o, FakeMapModule& map, QWidget* widget)
{
    map.nanConversions = false;
    map.ChangeViewScale(1.0);
    map.ChangeLod(10);
    o->SetName("valid");
    Furnish(o, 10.0, 10.0, widget);
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

TYPED_TEST(HostileValuesTest, ValidValuesRestoreTheObjectAfterAnyHostileOne)
{
    // The same text: a label's minimum width bounds the embedding frame.
    QLabel subjectWidget("widget"), freshWidget("widget");
    int applied = 0;
    for (const auto& [name, setter] : Setters())
        for (const Hostile& value : kHostile)
        {
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
            GiveValidValues(fresh, this->map, &freshWidget);
            // Scales and moves of a picture add up: only refused ones (not
            // finite, or flattening) must leave it as new.
            if (name.find("SetXYScale") == std::string::npos || !std::isfinite(value.d) || value.d == 0.0)
                EXPECT_EQ(Geometry(subject->GetQtItem()), Geometry(fresh->GetQtItem())) << name << " with " << value.label;
            this->module.DestroyGraphicsMapObject(fresh);
            this->module.DestroyGraphicsMapObject(subject);
        }
    EXPECT_GT(applied, 0);
}

// --- teardown -------------------------------------------------------------------

using GadgetMaker = IZoGraphicsEditObject* (IZoGraphicsModule::*)(IZoGraphicsMapLayer*);
const GadgetMaker kGadgets[] = {&IZoGraphicsModule::CreateTranslateEditObject, &IZoGraphicsModule::CreateScaleEditObject,
                                &IZoGraphicsModule::CreateRotationEditObject,
                                &IZoGraphicsModule::CreateKeyPointSetEditObject};

class Teardown : public ModuleFixture
{
protected:
    void Paint()
    {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        map.Scene()->render(&painter, QRectF(image.rect()), QRectF(-50, -300, 400, 300));
    }
    QImage image{80, 60, QImage::Format_ARGB32_Premultiplied};
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
        std::vector<IZoGraphicsMapLayer*> layers{nullptr, other->CreateGraphicsLayer("one")};
        for (std::size_t k = 0; k < makers.size(); ++k)
            Furnish(makers[k](*other, "left " + std::to_string(k), layers[k % 2]), k * 0.5, 1.0, &widget);
        std::vector<IZoGraphicsEditObject*> gadgets;
        for (GadgetMaker make : kGadgets)
        {
            gadgets.push_back((other.get()->*make)(layers[1]));
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
            for (std::size_t k = 0; k < makers.size(); ++k)
                Furnish(makers[k](*other, "again " + std::to_string(k), again), k * 0.5, 1.0, &widget);
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
