#include "module/TZoNameIndex.h"
#include "support/ModuleFixture.h"

#include <map>
#include <memory>
#include <random>

// Lookups by name answer from an index that renames and destroys keep
// current (the registry fuzzer holds the module's lookups against a model);
// here a layer renamed by Initialise, objects outliving their module, and the
// index's own table.
class NameIndex : public ModuleFixture
{
};

// Initialise is the only way a layer changes its name.
TEST_F(NameIndex, ALayerInitialisedAgainIsFoundUnderItsNewName)
{
    IZoGraphicsMapLayer* roads = module.CreateGraphicsLayer("roads");
    IZoGraphicsMapLayer* roads2 = module.CreateGraphicsLayer("roads");
    ASSERT_TRUE(roads->Initialise("rivers", &map, &module));
    EXPECT_EQ(module.LookupGraphicsLayer("rivers"), roads);
    EXPECT_EQ(module.LookupGraphicsLayer("roads"), roads2);
}

TEST_F(NameIndex, ObjectsOutlivingTheirModuleCanStillBeRenamed)
{
    auto graphics = std::make_unique<CZoGraphicsModule>();
    graphics->Initialise("short-lived", &map);
    IZoDotMapObject* dot = graphics->CreateDotMapObject("orphan", nullptr);
    IZoGraphicsMapLayer* layer = graphics->CreateGraphicsLayer("orphans");
    IZoGraphicsMapLayer* defaultLayer = graphics->GetDeafultGraphicsLayer();
    // The destructor leaves objects and layers alone; they must not report to it.
    graphics.reset();
    dot->SetName("renamed");
    ASSERT_TRUE(layer->Initialise("renamed", &map, nullptr));
    EXPECT_EQ(dot->GetName(), "renamed");
    dot->Unintialise();
    delete dot;
    for (IZoGraphicsMapLayer* left : {layer, defaultLayer})
    {
        left->Unintialise();
        delete left;
    }
}

// The index itself against a multimap, over many names so that the table
// grows, probes collide and erasures shift slots back.
TEST(NameIndexTable, AgreesWithAMapThroughGrowthAndErasure)
{
    TZoNameIndex<int> index;
    std::vector<std::unique_ptr<int>> values;
    std::map<std::string, std::map<int, int*>> model; // name -> id -> value, the smallest id first
    std::mt19937 random(11);
    std::uniform_int_distribution<int> pickName(0, 299);
    for (int step = 0; step < 20000; ++step)
    {
        const std::string name = "name-" + std::to_string(pickName(random));
        std::map<int, int*>& named = model[name];
        if (random() % 3 != 0 || named.empty())
        {
            values.push_back(std::make_unique<int>(step));
            index.Insert(name, step, values.back().get());
            named.emplace(step, values.back().get());
        }
        else
        {
            auto victim = std::next(named.begin(), static_cast<long>(random() % named.size()));
            index.Erase(name, victim->second);
            named.erase(victim);
        }
        const std::string probe = "name-" + std::to_string(pickName(random));
        const std::map<int, int*>& found = model[probe];
        ASSERT_EQ(index.FindFirst<int>(probe), found.empty() ? nullptr : found.begin()->second) << "step " << step;
    }
    std::size_t names = 0;
    for (const auto& entry : model)
        names += !entry.second.empty();
    EXPECT_EQ(index.NameCount(), names);
}
