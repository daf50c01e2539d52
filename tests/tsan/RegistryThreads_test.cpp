#include "support/FakeMapModule.h"

#include <ZoGraphics/ZoGraphics.h>

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
