#include "module/TZoNameIndex.h"
#include "support/ModuleFixture.h"

#include <climits>
#include <map>
#include <memory>
#include <random>
#include <set>

// Lookups by name answer from an index that renames and destroys keep
// current; these tests hold it against the plain rule: among the live objects
// carrying the name (after its round trip through the code page), the one
// with the smallest id.
class NameIndex : public ModuleFixture
{
};

TEST_F(NameIndex, RenamesTakeEffectAtOnceAndDestroyedObjectsAreGone)
{
    IZoDotMapObject* a = module.CreateDotMapObject("a", nullptr);
    IZoDotMapObject* b = module.CreateDotMapObject("b", nullptr);
    a->SetName("b");
    EXPECT_EQ(module.LookupGraphicObject("a"), nullptr);
    // a is older than b: it wins the name it has just taken.
    EXPECT_EQ(module.LookupGraphicObject("b"), a);
    EXPECT_EQ(module.LookupDotMapObject("b"), a);
    a->SetName("b"); // the same name again changes nothing
    EXPECT_EQ(module.LookupGraphicObject("b"), a);
    module.DestroyGraphicsMapObject(a);
    EXPECT_EQ(module.LookupGraphicObject("b"), b);
    b->SetName("");
    EXPECT_EQ(module.LookupGraphicObject("b"), nullptr);
    EXPECT_EQ(module.LookupGraphicObject(""), b);
    EXPECT_EQ(module.LookupCircleMapObject(""), nullptr);
}

TEST_F(NameIndex, NamesAreFoundUnderWhatGetNameAnswers)
{
    // Bytes that are not GB18030 come back changed from the round trip; the
    // object is found under the name it reports.
    IZoDotMapObject* dot = module.CreateDotMapObject("ok", nullptr);
    dot->SetName(std::string("\x81\x20\xff", 3));
    const std::string reported = dot->GetName();
    EXPECT_EQ(module.LookupGraphicObject(reported), dot);
    EXPECT_EQ(module.LookupGraphicObject("ok"), nullptr);
}

TEST_F(NameIndex, LayersAreFoundByNameUntilDestroyed)
{
    IZoGraphicsMapLayer* roads = module.CreateGraphicsLayer("roads");
    IZoGraphicsMapLayer* roads2 = module.CreateGraphicsLayer("roads");
    EXPECT_EQ(module.LookupGraphicsLayer("roads"), roads);
    // Initialise is the only way a layer changes its name.
    ASSERT_TRUE(roads->Initialise("rivers", &map, &module));
    EXPECT_EQ(module.LookupGraphicsLayer("rivers"), roads);
    EXPECT_EQ(module.LookupGraphicsLayer("roads"), roads2);
    module.DestroyGraphicsLayer(roads2);
    EXPECT_EQ(module.LookupGraphicsLayer("roads"), nullptr);
    module.DestroyGraphicsLayer(roads);
    EXPECT_EQ(module.LookupGraphicsLayer("rivers"), nullptr);
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
TEST(NameIndexTable, AgreesWithAMultimapThroughGrowthAndErasure)
{
    TZoNameIndex<int> index;
    std::vector<std::unique_ptr<int>> values;
    std::multimap<std::string, std::pair<int, int*>> model; // name -> (id, value)
    std::mt19937 random(11);
    std::uniform_int_distribution<int> pickName(0, 299);
    for (int step = 0; step < 20000; ++step)
    {
        const std::string name = "name-" + std::to_string(pickName(random));
        if (random() % 3 != 0 || model.empty())
        {
            values.push_back(std::make_unique<int>(step));
            index.Insert(name, step, values.back().get());
            model.emplace(name, std::make_pair(step, values.back().get()));
        }
        else
        {
            auto range = model.equal_range(name);
            if (range.first != range.second)
            {
                auto victim = range.first;
                std::advance(victim, random() % std::distance(range.first, range.second));
                index.Erase(name, victim->second.second);
                model.erase(victim);
            }
        }
        const std::string probe = "name-" + std::to_string(pickName(random));
        int* expected = nullptr;
        int smallest = INT32_MAX;
        auto range = model.equal_range(probe);
        for (auto it = range.first; it != range.second; ++it)
        {
            if (it->second.first < smallest)
            {
                smallest = it->second.first;
                expected = it->second.second;
            }
        }
        ASSERT_EQ(index.FindFirst<int>(probe), expected) << "step " << step;
    }
    std::set<std::string> names;
    for (const auto& entry : model)
        names.insert(entry.first);
    EXPECT_EQ(index.NameCount(), names.size());
}
