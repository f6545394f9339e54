#include "StringTable.h"
#include "ToolBarResource.h"

#include <gtest/gtest.h>

// The commands of each bar are checked where the command bar shows them (MainDialogTest); how each button
// (a separator takes no slice of the strip: the set grid's bar), tab picture, the program's icon at both its
// sizes and the other bitmaps are drawn and masked shows in the screen pictures (the navigation bar, About).
TEST(ResourcesTest, EveryToolBarButtonHasATip) {
    for (int id : {178, 151, 157, 162}) {
        const auto bar = ToolBarResource::load(id);
        ASSERT_TRUE(bar.has_value()) << id;
        for (int command : bar->commands()) {
            EXPECT_FALSE(StringTable::load(command).isEmpty()) << "no tip for " << command;
        }
    }
    EXPECT_FALSE(ToolBarResource::load(129).has_value());
}
