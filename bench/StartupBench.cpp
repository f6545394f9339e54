// Start-up of the program on the ten-year device against a minimal Qt Widgets window of the same
// size: each case starts its program as a new process (offscreen, the same environment, the same
// scale), which ends itself as soon as its first picture is painted - the Today page for Kovalin
// (--quit-after-start), the window for the baseline - and waits for it to exit. Real time, from
// the process's start to its exit; the ratio kovalin / window must stay at most 3.
//   startup_kovalin          the ten-year device (three users, ten years of every log)
//   startup_kovalin_new      a new, empty device: the shell's own share of the start

#include "BenchDevice.h"
#include "CeDatabase.h"
#include "DevicePaths.h"
#include "RatioRunner.h"
#include "Registry.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <spawn.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

extern char** environ;

namespace {
constexpr double kLimit = 3.0;

// Runs program with arguments and waits for it; its exit status, or -1 when it could not start or
// did not exit normally.
int runProgram(std::vector<std::string> arguments) {
    std::vector<char*> argv;
    for (std::string& argument : arguments) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    pid_t pid = 0;
    if (posix_spawn(&pid, argv[0], nullptr, nullptr, argv.data(), environ) != 0) {
        return -1;
    }
    int status = 0;
    if (waitpid(pid, &status, 0) != pid || !WIFEXITED(status)) {
        return -1;
    }
    return WEXITSTATUS(status);
}

void startProgram(benchmark::State& state, const std::vector<std::string>& command) {
    for (auto _ : state) {
        const int status = runProgram(command);
        if (status != 0) {
            state.SkipWithError(("exit status " + std::to_string(status) + " of " + command.front()).c_str());
            break;
        }
    }
}

// A device that has never seen Kovalin shows the release notes, which wait for an answer.
bool switchOffStartupNotices() {
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, QStringLiteral("Software\\Orn\\Kovalin"), &key) != ERROR_SUCCESS) {
        return false;
    }
    const BYTE one[4] = {1, 0, 0, 0};
    const bool written = RegSetValueExW(key, QStringLiteral("DontShow"), REG_DWORD, one, 4) == ERROR_SUCCESS;
    RegCloseKey(key);
    return written;
}
} // namespace

int main(int argc, char** argv) {
    QTemporaryDir runtime;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit().constData(), 1);
    unsetenv("QT_SCALE_FACTOR");

    // The new device first: the process holds one object store at a time.
    QTemporaryDir newDevice;
    const DevicePaths newPaths(newDevice.path() + QStringLiteral("/device"));
    if (!newPaths.ensureCreated() || !CeMountObjectStore(newPaths.objectStore()) || !switchOffStartupNotices()) {
        std::fprintf(stderr, "cannot make the new device\n");
        return 1;
    }
    CeUnmountObjectStore();

    BenchDevice device;
    if (!device.create() || !switchOffStartupNotices()) {
        std::fprintf(stderr, "cannot make the device: %s\n", qPrintable(device.errorText()));
        return 1;
    }
    const std::string folder = QFileInfo(device.objectStorePath()).absolutePath().toStdString();

    benchmark::RegisterBenchmark("startup_kovalin", startProgram,
                                 std::vector<std::string>{KOVALIN_PROGRAM, "--device", folder, "--quit-after-start"})
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(
        "startup_kovalin_new", startProgram,
        std::vector<std::string>{KOVALIN_PROGRAM, "--device", newPaths.root().toStdString(), "--quit-after-start"})
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("startup_qt_window", startProgram, std::vector<std::string>{BASELINE_PROGRAM})
        ->UseRealTime()
        ->Unit(benchmark::kMillisecond);

    RatioRunner runner(argc, argv);
    runner.addRatio("startup", "startup_kovalin", "startup_qt_window", RatioRunner::Clock::Real, kLimit);
    runner.addRatio("startup_new_device", "startup_kovalin_new", "startup_qt_window", RatioRunner::Clock::Real, kLimit);
    return runner.run();
}
