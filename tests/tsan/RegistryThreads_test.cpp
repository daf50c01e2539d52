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

namespace
{
using Finder = std::function<bool(const IZoGraphicsModule&, const std::string&)>;

template <class... Kinds>
std::vector<Finder> FindersOf(::testing::Types<Kinds...>)
{
    return {[](const IZoGraphicsModule& m, const std::string& name) { return Kinds::Find(m, name) != nullptr; }...};
}
} // namespace

// Workers look objects and layers up by name (every typed lookup) and by id,
// and read two layers' object maps, while the GUI thread makes every kind,
// renames, moves objects between layers, paints and destroys, and at last
// tears the module down under the lookups. The registries' locks must order
// every access, the name index's included, and no lookup may hand out a name
// whose object or layer is already deleted. Readers compare pointers only:
// what an object is belongs to the GUI thread.
TEST(RegistryThreads, LookupsAndLayerReadsRaceEveryChangeAndTheTeardown)
{
    FakeMapModule map;
    CZoGraphicsModule module;
    module.Initialise("threads", &map);
    IZoGraphicsMapLayer* busy = module.CreateGraphicsLayer("busy");
    IZoGraphicsMapLayer* other = module.CreateGraphicsLayer("other");
    IZoDotMapObject* resident = module.CreateDotMapObject("resident", busy);
    std::vector<Finder> finders = FindersOf(MapObjectKindList());
    finders.push_back([](const IZoGraphicsModule& m, const std::string& n) { return m.LookupGraphicObject(n); });
    finders.push_back([](const IZoGraphicsModule& m, const std::string& n) { return m.LookupGraphicsLayer(n); });

    std::atomic<bool> layersDone{false};
    std::atomic<bool> lookupsDone{false};
    std::atomic<long> found{0};
    std::vector<std::thread> threads;
    threads.emplace_back([&] {
        while (!layersDone.load())
        {
            found += busy->GetMapObjectCount() >= 1;
            found += busy->ContainsMapObject(resident);
            found += other->GetMapObjectCount();
            // The walk the layer caches for its paints is rebuilt under its
            // lock, whoever asks first.
            if (auto* layer = dynamic_cast<CZoGraphicsMapLayer*>(module.LookupGraphicsLayer("other")))
                found += static_cast<long>(layer->GetMapObjects().size());
        }
    });
    for (int t = 0; t < 2; ++t)
        threads.emplace_back([&, t] {
            for (long i = t; !lookupsDone.load(); ++i)
            {
                found += finders[static_cast<std::size_t>(i) % finders.size()](module, "k" + std::to_string(i % 5));
                found += module.LookupGraphicObject(static_cast<int>(i % 400)) != nullptr;
                module.GetRegisteredObjectCount();
            }
        });

    const std::vector<MapObjectMaker> makers = EveryKindMaker();
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    for (int round = 0; round < 12; ++round)
    {
        IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("k" + std::to_string(round % 5));
        std::vector<IZoGraphicsMapObject*> made;
        for (std::size_t k = 0; k < makers.size(); ++k)
            made.push_back(makers[k](module, "k" + std::to_string(k % 5), k % 2 ? layer : busy));
        // Renames move objects between names of the index while readers look.
        for (std::size_t k = 0; k < made.size(); k += 2)
            made[k]->SetName("k" + std::to_string((k + 1) % 5));
        for (std::size_t k = 0; k < made.size(); k += 4)
        {
            made[k]->GetGraphicsMapLayer()->DetachMapObject(made[k]);
            other->AttachMapObject(made[k]);
        }
        image.fill(Qt::white);
        {
            QPainter painter(&image);
            map.Scene()->render(&painter);
        }
        other->DestroyAllMapObjects();
        for (std::size_t k = 1; k < made.size(); k += 4)
            module.DestroyGraphicsMapObject(made[k]);
        // The rest stays for the teardown, some on layers and some without.
        if (round % 2)
            module.DestroyGraphicsLayer(layer);
    }
    layersDone = true;
    threads.front().join();
    module.Unintialise();
    lookupsDone = true;
    for (std::size_t t = 1; t < threads.size(); ++t)
        threads[t].join();
    EXPECT_GT(found.load(), 0);
    EXPECT_EQ(module.LookupGraphicObject("k1"), nullptr);
}
