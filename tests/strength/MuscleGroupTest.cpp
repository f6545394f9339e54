#include "MuscleGroup.h"
#include "PullSettings.h"

#include <gtest/gtest.h>

TEST(MuscleGroup, CodesNameTheGroupItsDatabaseAndItsPropertyBlock) {
    const auto back = MuscleGroup::fromCode(1103);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->name(), "Back");
    EXPECT_EQ(back->database(), UserDatabase::UpperB);
    EXPECT_EQ(back->setNumber(11), 361);
    EXPECT_TRUE(back->ownsNumber(365));
    EXPECT_FALSE(back->ownsNumber(366));
    EXPECT_FALSE(back->ownsNumber(305));
    const auto hamstrings = MuscleGroup::fromCode(1202);
    ASSERT_TRUE(hamstrings);
    EXPECT_EQ(hamstrings->name(), "Hamstrings");
    EXPECT_EQ(hamstrings->database(), UserDatabase::LowerA);
    EXPECT_EQ(hamstrings->setNumber(3), 221);
    EXPECT_EQ(MuscleGroup::fromCode(1206)->name(), "Misc 2");
    EXPECT_EQ(MuscleGroup(BodyRegion::Lower, 4).code(), 1205);
    EXPECT_EQ(MuscleGroup::fromCode(1107), std::nullopt);
    EXPECT_EQ(MuscleGroup::fromCode(1200), std::nullopt);
}

TEST(PullSettings, StoredValuesCountAsOnExactlyWhenOneExceptTheInvertedPullLast) {
    const PullSettings absent = PullSettings::fromStored(0, 0, 0);
    EXPECT_TRUE(absent.pullLast && !absent.pullWeights && !absent.fillIn);
    EXPECT_FALSE(PullSettings::fromStored(1, 0, 0).pullLast);
    EXPECT_TRUE(PullSettings::fromStored(2, 0, 0).pullLast);
    EXPECT_FALSE(PullSettings::fromStored(0, 2, 1).pullWeights || PullSettings::fromStored(0, 2, 1).fillIn);
    EXPECT_TRUE(PullSettings::fromStored(0, 1, 1).fillIn);
}
