#include "CommandLine.h"

#include <gtest/gtest.h>

namespace {
CommandLine parse(std::initializer_list<const char*> arguments) {
    QStringList list{QStringLiteral("kovalin")};
    for (const char* argument : arguments) {
        list.append(QString::fromLatin1(argument));
    }
    return CommandLine::parse(list);
}
} // namespace

TEST(CommandLineTest, ScaleAndDeviceAreReadAndNonsenseIsRefused) {
    const CommandLine plain = parse({});
    EXPECT_TRUE(plain.error.isEmpty());
    EXPECT_EQ(plain.scale, 3);
    EXPECT_FALSE(plain.scaleGiven);
    EXPECT_TRUE(plain.device.isEmpty());

    const CommandLine given = parse({"--scale", "2", "--device", "/tmp/d"});
    EXPECT_TRUE(given.error.isEmpty());
    EXPECT_EQ(given.scale, 2);
    EXPECT_TRUE(given.scaleGiven);
    EXPECT_EQ(given.device, QStringLiteral("/tmp/d"));
    EXPECT_TRUE(parse({"--scale=8"}).error.isEmpty());

    for (const char* scale : {"0", "9", "2.5", "big", "-1"}) {
        EXPECT_FALSE(parse({"--scale", scale}).error.isEmpty()) << scale;
    }
    EXPECT_FALSE(parse({"--colour", "red"}).error.isEmpty());
    EXPECT_FALSE(parse({"extra"}).error.isEmpty());
    EXPECT_FALSE(parse({"--device"}).error.isEmpty());
    EXPECT_TRUE(parse({"--help"}).help);
    EXPECT_TRUE(parse({}).helpText.contains(QStringLiteral("--scale")));
}
