#include "SingleInstance.h"

#include "ShellTestSupport.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(SingleInstanceTest, ASecondStartOnTheSameDeviceIsRefusedAndBringsTheFirstToTheFront) {
    QTemporaryDir device;
    QTemporaryDir otherDevice;
    auto first = std::make_unique<SingleInstance>(device.path());
    ASSERT_TRUE(first->acquire());
    EXPECT_TRUE(QFile::exists(SingleInstance::lockPath(device.path())));
    int activations = 0;
    QObject::connect(first.get(), &SingleInstance::activationRequested, [&activations] { ++activations; });

    SingleInstance second(device.path());
    EXPECT_FALSE(second.acquire());
    EXPECT_TRUE(second.activateRunning());
    EXPECT_TRUE(waitUntil([&activations] { return activations == 1; }));

    SingleInstance elsewhere(otherDevice.path());
    EXPECT_TRUE(elsewhere.acquire());
    EXPECT_NE(SingleInstance::serverName(device.path()), SingleInstance::serverName(otherDevice.path()));

    // Once the first has gone, the device is free again, and nothing answers for it any more.
    first.reset();
    SingleInstance third(device.path());
    EXPECT_FALSE(third.activateRunning());
    EXPECT_TRUE(third.acquire());
}
