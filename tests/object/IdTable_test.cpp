#include "object/TZoIdTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

// The layer's id table against a tree doing the same: ids in runs and
// scattered, erased in random order (which moves probe runs back), inserted
// again, with the walk in ascending id order after every round.
TEST(IdTable, AgreesWithAnOrderedMap)
{
    std::mt19937 random(7);
    std::vector<int> values(4000);
    TZoIdTable<int> table;
    std::map<int, int*> reference;
    std::vector<int> ids;
    for (int i = 0; i < 2000; ++i)
        ids.push_back(i + 1);
    for (int i = 0; i < 2000; ++i)
        ids.push_back(static_cast<int>(random() % 1000000) + 5000);
    for (int round = 0; round < 3; ++round)
    {
        std::shuffle(ids.begin(), ids.end(), random);
        for (std::size_t i = 0; i < ids.size(); ++i)
        {
            int* value = &values[i];
            const bool inserted = reference.emplace(ids[i], value).second;
            EXPECT_EQ(table.Insert(ids[i], value), inserted);
        }
        std::shuffle(ids.begin(), ids.end(), random);
        for (std::size_t i = 0; i < ids.size() / 2; ++i)
            EXPECT_EQ(table.Erase(ids[i]), reference.erase(ids[i]) == 1);
        ASSERT_EQ(table.Size(), reference.size());
        for (int id : ids)
            EXPECT_EQ(table.Contains(id), reference.count(id) == 1) << id;
        std::vector<int*> walk;
        for (const auto& entry : reference)
            walk.push_back(entry.second);
        EXPECT_EQ(table.Sorted(), walk);
    }
    EXPECT_FALSE(table.Insert(5, nullptr));
}
