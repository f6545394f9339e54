#include "SingleInstance.h"

#include "ShellTestSupport.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

TEST(SingleInstanceTest, ASecondStartOnTheSameDeviceIsRefusedAndBringsTheFirstToTheFront) {
    QTemporaryDir device;
    QTemporaryDir otherDevice;
    auto first = std::make_unique<SingleInstance>(device.path());
    ASSERT_TRUE(first->acquire());
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

TEST(SingleInstanceTest, OnlyAnotherKovalinHoldingTheDeviceIsTakenForOneRunning) {
    QTemporaryDir temp;
    // The lock a killed Kovalin left is no one's.
    QFile(SingleInstance::lockPath(temp.path())).open(QIODevice::WriteOnly);
    const mode_t umask = ::umask(0);
    SingleInstance first(temp.path());
    ASSERT_TRUE(first.acquire());
    ::umask(umask);
    struct stat lock {};
    ASSERT_EQ(::stat(QFile::encodeName(SingleInstance::lockPath(temp.path())).constData(), &lock), 0);
    EXPECT_EQ(lock.st_mode & 0777, 0600u);
    SingleInstance second(temp.path());
    EXPECT_FALSE(second.acquire());
    EXPECT_EQ(second.error(), ERROR_SHARING_VIOLATION);

    // A lock that cannot be made is not someone else's: the folder cannot be written.
    SingleInstance nowhere(temp.path() + "/missing");
    EXPECT_FALSE(nowhere.acquire());
    EXPECT_EQ(nowhere.error(), ERROR_ACCESS_DENIED);
}
