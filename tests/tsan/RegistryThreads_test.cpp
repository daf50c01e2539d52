#include "layer/CZoGraphicsMapLayer.h"
#include "support/FakeMapModule.h"
#include "support/MapObjectKinds.h"

#include <ZoGraphics/ZoGraphics.h>

#include <QImage>
#include <QPainter>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <thread>

// Objects and layers are created, renamed and destroyed on the GUI thread
// while other threads look them up by name and id; the registries' locks must
// order every access, the name index's included.
TEST(RegistryThreads, LookupsRaceCreationAndDestruction)
{
    FakeMapModule map;
    CZoGraphicsModule module;
    module.Initialise("threads", &map);

    std::atomic<bool> done{false};
    std::atomic<int> found{0};
    std::vector<std::thread> readers;
    for (int t = 0; t < 3; ++t)
    {
        readers.emplace_back([&, t] {
            while (!done.load())
            {
                if (module.LookupGraphicObject("dot-" + std::to_string(t)))
                    ++found;
                // Only the GUI thread may use what a lookup returns.
                found += module.LookupDotMapObject("dot-9") != nullptr;
                module.LookupGraphicsLayer("layer-" + std::to_string(t));
                module.LookupGraphicObject(t + 3);
                module.GetRegisteredObjectCount();
            }
        });
    }
    for (int round = 0; round < 5; ++round)
    {
        IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("layer-" + std::to_string(round % 3));
        std::vector<IZoDotMapObject*> dots;
        for (int i = 0; i < 100; ++i)
            dots.push_back(module.CreateDotMapObject("dot-" + std::to_string(i % 10), layer));
        // Renames move objects between names of the index while readers look.
        for (size_t i = 1; i < dots.size(); i += 3)
            dots[i]->SetName("dot-" + std::to_string((i + round) % 10));
        for (size_t i = 0; i < dots.size(); i += 3)
            module.DestroyGraphicsMapObject(dots[i]);
        layer->DestroyAllMapObjects();
        module.DestroyGraphicsLayer(layer);
    }
    done = true;
    for (std::thread& reader : readers)
        reader.join();
    module.Unintialise();
    EXPECT_EQ(module.GetRegisteredObjectCount(), 0);
}

// A layer's object map is read from other threads (how many objects, whether
// one is on it) while the GUI thread attaches, detaches, paints and destroys.
// Readers compare pointers only: what an object is belongs to the GUI thread.
TEST(RegistryThreads, LayerMapsReadWhileTheGuiThreadChangesAndPaints)
{
    FakeMapModule map;
    CZoGraphicsModule module;
    module.Initialise("threads", &map);
    IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("busy");
    IZoGraphicsMapLayer* other = module.CreateGraphicsLayer("other");
    IZoDotMapObject* resident = module.CreateDotMapObject("resident", layer);

    std::atomic<bool> done{false};
    std::atomic<long> reads{0};
    std::vector<std::thread> readers;
    for (int t = 0; t < 2; ++t)
        readers.emplace_back([&] {
            while (!done.load())
            {
                reads += layer->GetMapObjectCount() >= 1;
                reads += layer->ContainsMapObject(resident);
                reads += other->GetMapObjectCount();
                reads += module.LookupGraphicsLayer("busy") == layer;
                // The walk the layer caches for its paints is rebuilt under
                // its lock, whoever asks first.
                if (auto* found = dynamic_cast<CZoGraphicsMapLayer*>(module.LookupGraphicsLayer("other")))
                    reads += static_cast<long>(found->GetMapObjects().size());
            }
        });
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    for (int round = 0; round < 20; ++round)
    {
        std::vector<IZoGraphicsMapObject*> made;
        for (int i = 0; i < 30; ++i)
            made.push_back(module.CreateDotMapObject("d" + std::to_string(i), layer));
        for (std::size_t i = 0; i < made.size(); i += 2)
        {
            layer->DetachMapObject(made[i]);
            other->AttachMapObject(made[i]);
        }
        image.fill(Qt::white);
        {
            QPainter painter(&image);
            map.Scene()->render(&painter);
        }
        other->DestroyAllMapObjects();
        for (std::size_t i = 1; i < made.size(); i += 2)
            module.DestroyGraphicsMapObject(made[i]);
    }
    done = true;
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_GT(reads.load(), 0);
    EXPECT_EQ(layer->GetMapObjectCount(), 1);
    module.Unintialise();
}

// Every typed lookup, and lookups by id, from workers while the GUI thread
// makes every kind, renames, paints and destroys, and at last tears the
// module down under them: the name index must never hand out a name whose
// object or layer is already deleted.
TEST(RegistryThreads, TypedLookupsRaceEveryKindAndTheTeardown)
{
    FakeMapModule map;
    CZoGraphicsModule module;
    module.Initialise("threads", &map);
    const std::vector<std::function<bool(const std::string&)>> lookups{
        [&](const std::string& n) { return module.LookupTextMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupWidgetMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupBubbleMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupSVGMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupDotMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupCircleMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupEllipseMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupRectangleMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupPolygonMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupLabelMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupPolylineMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupBowMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupMultiDotMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupMultiPolygonMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupMultiLineMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupLayerCanvasMapObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupGraphicObject(n) != nullptr; },
        [&](const std::string& n) { return module.LookupGraphicsLayer(n) != nullptr; }};

    std::atomic<bool> done{false};
    std::atomic<long> found{0};
    std::vector<std::thread> readers;
    for (int t = 0; t < 2; ++t)
        readers.emplace_back([&, t] {
            for (long i = t; !done.load(); ++i)
            {
                const std::string name = "k" + std::to_string(i % 5);
                found += lookups[static_cast<std::size_t>(i) % lookups.size()](name);
                found += module.LookupGraphicObject(static_cast<int>(i % 400)) != nullptr;
            }
        });

    const std::vector<MapObjectMaker> makers = EveryKindMaker();
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    for (int round = 0; round < 12; ++round)
    {
        IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("k" + std::to_string(round % 5));
        std::vector<IZoGraphicsMapObject*> made;
        for (std::size_t k = 0; k < makers.size(); ++k)
            made.push_back(makers[k](module, "k" + std::to_string(k % 5), k % 2 ? layer : nullptr));
        for (std::size_t k = 0; k < made.size(); k += 2)
            made[k]->SetName("k" + std::to_string((k + 1) % 5));
        image.fill(Qt::white);
        {
            QPainter painter(&image);
            map.Scene()->render(&painter);
        }
        for (std::size_t k = 0; k < made.size(); k += 3)
            module.DestroyGraphicsMapObject(made[k]);
        // The rest stays for the teardown, some on layers and some without.
        if (round % 2)
            module.DestroyGraphicsLayer(layer);
    }
    module.Unintialise();
    done = true;
    for (std::thread& reader : readers)
        reader.join();
    EXPECT_GT(found.load(), 0);
    EXPECT_EQ(module.LookupGraphicObject("k1"), nullptr);
}
