#include "StringTable.h"
#include "ToolBarResource.h"

#include <QtEndian>

#include <gtest/gtest.h>

namespace {
QByteArray words(std::initializer_list<quint16> values) {
    QByteArray bytes;
    for (quint16 value : values) {
        char two[2];
        qToLittleEndian(value, two);
        bytes.append(two, 2);
    }
    return bytes;
}
} // namespace

// The commands of each bar are checked where the command bar shows them (MainDialogTest); how each
// button, tab picture, the program's icon at both its sizes and the other bitmaps are drawn and
// masked shows in the screen pictures (the navigation bar and About).
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

TEST(ResourcesTest, TheToolBarFormatIsReadWordByWordAndMalformedOnesAreRefused) {
    const auto bar = ToolBarResource::parse(words({1, 16, 15, 3, 32793, 0, 32794}), 151);
    ASSERT_TRUE(bar.has_value());
    EXPECT_EQ(bar->commands(), (std::vector<int>{32793, 0, 32794}));
    // A separator takes no image: the second button uses the second slice of the strip.
    EXPECT_EQ(bar->buttonImage(1).toImage(), ToolBarResource::load(151)->buttonImage(1).toImage());

    EXPECT_FALSE(ToolBarResource::parse(words({2, 16, 15, 1, 32832})).has_value());
    EXPECT_FALSE(ToolBarResource::parse(words({1, 16, 15, 2, 32832})).has_value());
    EXPECT_FALSE(ToolBarResource::parse(words({1, 16, 15, 1, 32832, 5})).has_value());
    EXPECT_FALSE(ToolBarResource::parse(words({1, 16, 15})).has_value());
    EXPECT_FALSE(ToolBarResource::parse(QByteArray("\x01\x00\x10\x00\x0f\x00\x01\x00\x40", 9)).has_value());
}
