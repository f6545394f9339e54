#include "BenchDevice.h"

#include "DevicePaths.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <cstdio>

namespace {
// A fixed last day, so that every run measures the same content.
const QDate kLastDay(2024, 6, 30);
constexpr int kUsers = 3;
constexpr int kYears = 10;
} // namespace

BenchDevice::BenchDevice(int miscRestYears) : m_reused(qEnvironmentVariable("KOVALIN_BENCH_DEVICE")) {
    if (!m_reused.isEmpty() && miscRestYears > 0) {
        m_reused += QStringLiteral("-misc-rest-%1").arg(miscRestYears);
    }
    DeviceGenerator::Options options;
    options.device = deviceFolder();
    options.users = kUsers;
    options.years = kYears;
    options.end = kLastDay;
    options.miscRestYears = miscRestYears;
    m_generator = std::make_unique<DeviceGenerator>(options);
}

BenchDevice::~BenchDevice() {
    if (m_mounted) {
        CeUnmountObjectStore();
    }
}

QString BenchDevice::deviceFolder() const {
    return m_reused.isEmpty() ? m_folder.path() + QStringLiteral("/device") : m_reused;
}

QString BenchDevice::objectStorePath() const {
    return DevicePaths(deviceFolder()).objectStore();
}

QStringList BenchDevice::logNames() const {
    QStringList names;
    for (const QString& user : m_generator->userNames()) {
        for (const QString& name : DatabaseCatalogue::userDatabaseNames(user)) {
            names.append(name);
        }
    }
    return names;
}

bool BenchDevice::create() {
    if (m_reused.isEmpty() && !m_folder.isValid()) {
        m_error = QStringLiteral("Cannot create a temporary folder.");
        return false;
    }
    if (!m_reused.isEmpty() && QFileInfo::exists(objectStorePath())) {
        std::printf("reusing the device %s\n", qPrintable(m_reused));
        return mount();
    }
    QElapsedTimer timer;
    timer.start();
    if (!m_generator->generate()) {
        m_error = m_generator->errorText();
        return false;
    }
    std::printf("generated %lld records, %lld properties in %.1f s\n",
                static_cast<long long>(m_generator->recordsWritten()),
                static_cast<long long>(m_generator->propertiesWritten()), timer.elapsed() / 1000.0);
    return mount();
}

bool BenchDevice::mount() {
    m_mounted = CeMountObjectStore(objectStorePath()) != FALSE;
    if (!m_mounted) {
        m_error = QStringLiteral("Cannot mount the generated object store (error %1).").arg(GetLastError());
    }
    return m_mounted;
}
