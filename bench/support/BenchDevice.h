#pragma once
// The device the store benchmarks measure on: three users with ten years of daily records in all
// six logs, generated into a temporary folder, its object store mounted while the object lives.

#include "DeviceGenerator.h"

#include <QTemporaryDir>

#include <memory>

class BenchDevice {
public:
    BenchDevice();
    ~BenchDevice();
    BenchDevice(const BenchDevice&) = delete;
    BenchDevice& operator=(const BenchDevice&) = delete;

    // Generates the device and mounts its object store; false, with errorText(), on failure.
    bool create();
    QString errorText() const { return m_error; }

    const DeviceGenerator& generator() const { return *m_generator; }
    QString objectStorePath() const;
    // The eighteen logs of the three users.
    QStringList logNames() const;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<DeviceGenerator> m_generator;
    QString m_error;
    bool m_mounted = false;
};
