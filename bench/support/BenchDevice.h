#pragma once
// The device the store benchmarks measure on: three users with ten years of daily records in all
// six logs, generated into a temporary folder, its object store mounted while the object lives.
// When KOVALIN_BENCH_DEVICE names a folder, the device is generated there once and reused by later
// runs (for profiling, where generating under the profiler would take most of the time). A device
// whose Misc groups rest is kept beside it, in the folder's name followed by "-misc-rest-N".

#include "DeviceGenerator.h"

#include <QTemporaryDir>

#include <memory>

class BenchDevice {
public:
    // miscRestYears: the Misc groups are not trained in the last that many years (see DeviceGenerator).
    explicit BenchDevice(int miscRestYears = 0);
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
    QString deviceFolder() const;
    bool mount();

    QTemporaryDir m_folder;
    QString m_reused;
    std::unique_ptr<DeviceGenerator> m_generator;
    QString m_error;
    bool m_mounted = false;
};
