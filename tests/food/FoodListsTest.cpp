#include "FoodLists.h"
#include "SqlReader.h"
#include "TestDevice.h"

#include <gtest/gtest.h>

TEST(FoodLists, AreCreatedWithTheirDefaultsInOrderAndListedByName) {
    TestDevice device;
    const std::optional<QStringList> protein = FoodLists::load(FoodKind::Protein);
    const std::optional<QStringList> carbohydrate = FoodLists::load(FoodKind::Carbohydrate);
    const std::optional<QStringList> vegetable = FoodLists::load(FoodKind::Vegetable);
    ASSERT_TRUE(protein && carbohydrate && vegetable);
    EXPECT_EQ(protein->size(), 12);
    EXPECT_EQ(protein->first(), "Chicken");
    EXPECT_EQ(protein->last(), "Turkey");
    EXPECT_FALSE(protein->contains("Yogurt"));
    EXPECT_EQ(vegetable->size(), 13);
    EXPECT_EQ(vegetable->last(), "Zucchini");
    EXPECT_EQ(FoodLists::load(FoodKind::Other), QStringList());

    SqlReader sql(device.paths().objectStore());
    // Added in their fixed order, one record each.
    EXPECT_EQ(sql.value("SELECT group_concat(value, '|') FROM (SELECT p.value FROM records r JOIN databases d ON "
                        "r.db = d.oid JOIN props p ON p.record = r.oid AND p.propid = 52494367 WHERE d.name = "
                        "'KovCarbList' ORDER BY r.oid)")
                  .toString(),
              "Potato|Yogurt|Wheat Bread|Brown Rice|Wild Rice|Pasta|Oatmeal|Beans|Corn|Strawberries|Melon|Apple|"
              "Orange");
}
