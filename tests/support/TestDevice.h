#pragma once
// A fresh, empty device in a temporary folder, with its object store mounted, for one test.
// Unmounts and removes everything when it goes.

#include "DevicePaths.h"

#include <QTemporaryDir>

class TestDevice {
public:
    TestDevice();
    ~TestDevice();
    TestDevice(const TestDevice&) = delete;
    TestDevice& operator=(const TestDevice&) = delete;

    const DevicePaths& paths() const { return m_paths; }
    QString root() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
    DevicePaths m_paths;
};
