// Every kind of object made, furnished, shown, painted and left to the
// module's teardown: nothing may stay behind that LeakSanitizer can see (the
// asan preset runs this). Hostile values are the setters fuzzer's.
#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"
#include "support/RecordingEditableUser.h"
#include "fuzz/ZoFuzz.h"
#include <QLabel>

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
