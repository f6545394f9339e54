#include "TestDevice.h"

#include "CeDatabase.h"

#include <gtest/gtest.h>

TestDevice::TestDevice() : m_paths(m_dir.path() + QStringLiteral("/device")) {
    EXPECT_TRUE(m_dir.isValid());
    EXPECT_TRUE(m_paths.ensureCreated());
    DevicePaths::setCurrent(m_paths);
    EXPECT_TRUE(CeMountObjectStore(m_paths.objectStore()));
}

TestDevice::~TestDevice() {
    CeUnmountObjectStore();
}
