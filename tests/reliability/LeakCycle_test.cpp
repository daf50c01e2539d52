#include "support/FakeMapModule.h"
#include "support/MapObjectKinds.h"
#include "support/RecordingEditableUser.h"

#include <ZoGraphics/ZoGraphics.h>

#include <QImage>
#include <QLabel>
#include <QPainter>

// Making, showing, painting and destroying every kind and every edit gadget
// over and over must leave nothing behind that LeakSanitizer can see (the
// asan preset runs this).
namespace
{
using GadgetMaker = IZoGraphicsEditObject* (IZoGraphicsModule::*)(IZoGraphicsMapLayer*);
const GadgetMaker kGadgets[] = {&IZoGraphicsModule::CreateTranslateEditObject, &IZoGraphicsModule::CreateScaleEditObject,
                                &IZoGraphicsModule::CreateRotationEditObject,
                                &IZoGraphicsModule::CreateKeyPointSetEditObject};

// Gives an object of any kind something to show, so that its lazy parts
// (label looks, paths, pictures, embedded widgets) are made.
void Furnish(IZoGraphicsMapObject* o, int n, QWidget* widget)
{
    const double x = (n % 40) * 0.5;
    const double y = (n % 23) * 0.5;
    const std::vector<CVector3D> points{{x, y, 0}, {x + 1, y, 0}, {x + 1, y + 1, 0}};
    o->SetNameVisible(true);
    if (auto* d = dynamic_cast<IZoDotMapObject*>(o))
        d->SetPosition(CVector3D(x, y, 0));
    else if (auto* c = dynamic_cast<IZoCircleMapObject*>(o))
    {
        c->SetCenter(CVector3D(x, y, 0));
        c->SetRadiusPoint(CVector3D(x + 1, y, 0));
    }
    else if (auto* e = dynamic_cast<IZoEllipseMapObject*>(o))
        e->SetExtent(EXTENT{x, y, x + 2, y + 1});
    else if (auto* b = dynamic_cast<IZoBowMapObject*>(o))
        b->SetExtent(EXTENT{x, y, x + 2, y + 2});
    else if (auto* r = dynamic_cast<IZoRectangleMapObject*>(o))
        r->SetExtent(EXTENT{x, y, x + 2, y + 1});
    else if (auto* line = dynamic_cast<IZoPolylineMapObject*>(o))
        line->SetData(points);
    else if (auto* ring = dynamic_cast<IZoPolygonMapObject*>(o))
        ring->SetData(points);
    else if (auto* dots = dynamic_cast<IZoMultiDotMapObject*>(o))
        dots->SetData(points);
    else if (auto* lines = dynamic_cast<IZoMultiLineMapObject*>(o))
        lines->SetData({points, points});
    else if (auto* rings = dynamic_cast<IZoMultiPolygonMapObject*>(o))
        rings->SetData({points, points});
    else if (auto* t = dynamic_cast<IZoTextMapObject*>(o))
    {
        t->SetPosition(CVector3D(x, y, 0));
        t->SetText("text " + std::to_string(n % 97));
    }
    else if (auto* pin = dynamic_cast<IZoMarkPointMapObject*>(o))
    {
        pin->SetPosition(CVector3D(x, y, 0));
        pin->SetIconFile(ZO_SOURCE_DATA_DIR "/demo/pin.png");
    }
    else if (auto* svg = dynamic_cast<IZoSVGMapObject*>(o))
        svg->LoadSVGFile(ZO_SOURCE_DATA_DIR "/demo/compass_rose.svg", CVector3D(x, y, 0));
    else if (auto* w = dynamic_cast<IZoWidgetMapObject*>(o))
    {
        w->SetPosition(CVector3D(x, y, 0));
        w->SetWidget(widget);
    }
    else if (auto* bubble = dynamic_cast<IZoBubbleMapObject*>(o))
        bubble->SetPosition(CVector3D(x, y, 0));
    else if (auto* canvas = dynamic_cast<IZoLayerCanvasMapObject*>(o))
    {
        QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor(0, 0, 200, 100));
        canvas->SetImage(image);
        canvas->SetExtent(EXTENT{x, y, x + 3, y + 3});
    }
}

class LeakCycle : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_previous = ZoSetLogSink([](EZoLogLevel, const std::string&) {});
        ASSERT_TRUE(module.Initialise("leaks", &map));
        layer = module.CreateGraphicsLayer("cycle");
    }
    void TearDown() override
    {
        module.Unintialise();
        ZoSetLogSink(m_previous);
    }
    void Paint()
    {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        map.Scene()->render(&painter, QRectF(image.rect()), QRectF(-50, -300, 400, 300));
    }

    FakeMapModule map;
    CZoGraphicsModule module;
    IZoGraphicsMapLayer* layer = nullptr;
    QImage image{80, 60, QImage::Format_ARGB32_Premultiplied};

private:
    ZoLogSink m_previous;
};
} // namespace

TEST_F(LeakCycle, EveryKindAndGadgetMadeShownPaintedAndDestroyedOverAndOver)
{
    const std::vector<MapObjectMaker> makers = EveryKindMaker();
    QLabel widget("embedded");
    RecordingEditableUser user;
    for (int round = 0; round < 48; ++round)
    {
        for (std::size_t k = 0; k < makers.size(); ++k)
        {
            IZoGraphicsMapObject* o = makers[k](module, "object " + std::to_string(round % 1000), layer);
            ASSERT_NE(o, nullptr) << "kind " << k;
            Furnish(o, round, &widget);
            if (round % 16 == 0)
                Paint();
            module.DestroyGraphicsMapObject(o);
        }
        for (GadgetMaker make : kGadgets)
        {
            IZoGraphicsEditObject* gadget = (module.*make)(layer);
            ASSERT_NE(gadget, nullptr);
            user.position = CVector3D(round % 30, round % 20, 0);
            gadget->AttachEditableUser(&user);
            gadget->SetVisible(true);
            gadget->UpdateEditor(0);
            gadget->AddKeyPoint(true, CVector3D(1, 1, 0));
            if (round % 16 == 0)
                Paint();
            module.DestroyGraphicsEditObject(gadget);
        }
    }
    EXPECT_EQ(layer->GetMapObjectCount(), 0);
}

// A host may tear the module down with everything still on it; nothing may
// stay allocated, and a module can start afresh on the same map.
TEST_F(LeakCycle, UnintialiseAndTheDestructorFreeWhatIsStillAlive)
{
    QLabel widget("embedded");
    RecordingEditableUser user;
    const std::vector<MapObjectMaker> makers = EveryKindMaker();
    for (int pass = 0; pass < 3; ++pass)
    {
        auto other = std::make_unique<CZoGraphicsModule>();
        ASSERT_TRUE(other->Initialise("teardown", &map));
        std::vector<IZoGraphicsMapLayer*> layers{nullptr, other->CreateGraphicsLayer("one"),
                                                 other->CreateGraphicsLayer("two")};
        std::vector<IZoGraphicsEditObject*> gadgets;
        for (std::size_t k = 0; k < makers.size(); ++k)
            Furnish(makers[k](*other, "left " + std::to_string(k), layers[k % layers.size()]), static_cast<int>(k),
                    &widget);
        for (GadgetMaker make : kGadgets)
        {
            IZoGraphicsEditObject* gadget = (other.get()->*make)(layers[1]);
            gadget->AttachEditableUser(&user);
            gadget->UpdateEditor(0);
            gadgets.push_back(gadget);
        }
        Paint();
        if (pass == 0)
        {
            // Gadgets given back first, then the module torn down.
            for (IZoGraphicsEditObject* gadget : gadgets)
                other->DestroyGraphicsEditObject(gadget);
            other->Unintialise();
        }
        else if (pass == 1)
        {
            // The module torn down under its gadgets, which are given back after.
            other->Unintialise();
            for (IZoGraphicsEditObject* gadget : gadgets)
                other->DestroyGraphicsEditObject(gadget);
        }
        else
        {
            // Torn down and started again: the second life is a whole one.
            for (IZoGraphicsEditObject* gadget : gadgets)
                other->DestroyGraphicsEditObject(gadget);
            other->Unintialise();
            ASSERT_TRUE(other->Initialise("again", &map));
            ASSERT_NE(other->GetDeafultGraphicsLayer(), nullptr);
            IZoGraphicsMapLayer* again = other->CreateGraphicsLayer("one");
            EXPECT_EQ(other->LookupGraphicsLayer("one"), again);
            for (std::size_t k = 0; k < makers.size(); ++k)
                Furnish(makers[k](*other, "again " + std::to_string(k), again), static_cast<int>(k), &widget);
            EXPECT_EQ(again->GetMapObjectCount(), static_cast<int>(makers.size()));
            EXPECT_NE(other->LookupGraphicObject("again 0"), nullptr);
            EXPECT_EQ(other->LookupGraphicObject("left 0"), nullptr);
            IZoGraphicsEditObject* gadget = other->CreateScaleEditObject(again);
            gadget->AttachEditableUser(&user);
            gadget->UpdateEditor(0);
            Paint();
            other->DestroyGraphicsEditObject(gadget);
            other->Unintialise();
        }
        other.reset();
        EXPECT_TRUE(map.Scene()->items().isEmpty()) << map.Scene()->items().size() << " items left in the scene";
    }
}
