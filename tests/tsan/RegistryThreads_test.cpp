#include "support/FakeMapModule.h"

#include <ZoGraphics/ZoGraphics.h>

#include <QImage>
#include <QPainter>
#include <atomic>
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
