// A switch of user on the ten-year device (three users: Default, Ann, Bob), every page reloaded,
// against the same page loads done directly. Both sides cycle through the three users on the
// device's last day, whose records are all there, with the Today page the one page shown:
//   user_switch_store   the main window's switch: the user made current (its six database names
//                       built, LastUser written), every page reloaded, the Today page repainted
//   user_switch_direct  the program's seven pages on a bare host that only names the user's
//                       databases, each told to reload
// The ratio store / direct, on CPU time, must stay at most 1.5. CPU time, because the one wait the
// switch adds is the durable commit of LastUser, which every switch must make and whose length is
// the disk's; the real-time ratio is printed beside it.

#include "BenchDevice.h"
#include "BenchPageHost.h"
#include "Clock.h"
#include "DatabaseCatalogue.h"
#include "DeviceScreen.h"
#include "MainDialog.h"
#include "RatioRunner.h"
#include "RegistryHelper.h"
#include "ScriptedMessageBoxes.h"
#include "Settings.h"
#include "ShellPageFactory.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

namespace {
constexpr double kLimit = 1.5;

bool waitForLoad(MainDialog& main) {
    QElapsedTimer waited;
    waited.start();
    while (!main.isLoaded() && waited.elapsed() < 120000) {
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    return main.isLoaded();
}
} // namespace

int main(int argc, char** argv) {
    QTemporaryDir runtime;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit().constData(), 1);
    QApplication app(argc, argv);

    BenchDevice device;
    if (!device.create()) {
        std::fprintf(stderr, "cannot make the device: %s\n", qPrintable(device.errorText()));
        return 1;
    }
    const QStringList users = device.generator().userNames();
    Clock::setFixed(QDateTime(device.generator().lastDay(), QTime(9, 41)));
    // No start-up notice waits for an answer; a message shown during a switch is an error.
    RegistryHelper::SetDword(HKEY_CURRENT_USER, Settings::kKey, Settings::kDontShow, 1);
    ScriptedMessageBoxes boxes;

    ShellPageFactory factory;
    DeviceScreen screen(factory);
    screen.show();
    screen.start();
    MainDialog& main = screen.mainDialog();
    if (!waitForLoad(main)) {
        std::fprintf(stderr, "the program did not finish loading\n");
        return 1;
    }

    BenchPageHost host;
    host.setUser(QString());
    QWidget pageParent;
    pageParent.resize(Page::kWidth, Page::kHeight);
    std::vector<std::unique_ptr<Page>> pages;
    for (PageKind kind : {PageKind::Reports, PageKind::Food, PageKind::Aerobic, PageKind::LowerBody,
                          PageKind::UpperBody, PageKind::Calendar, PageKind::Today}) {
        pages.push_back(factory.create(kind, host, &pageParent));
        pages.back()->initDialog();
        pages.back()->setVisible(kind == PageKind::Today);
    }
    pageParent.show();

    const auto checkQuiet = [&boxes](benchmark::State& state) {
        if (!boxes.texts().isEmpty()) {
            state.SkipWithError(("message shown: " + boxes.texts().first().toStdString()).c_str());
        }
    };
    benchmark::RegisterBenchmark("user_switch_store",
                                 [&](benchmark::State& state) {
                                     int next = 0;
                                     for (auto _ : state) {
                                         main.SetCurrentUser(users[next++ % users.size()]);
                                         main.ReloadForUser();
                                         main.RepaintToday();
                                     }
                                     checkQuiet(state);
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RegisterBenchmark("user_switch_direct",
                                 [&](benchmark::State& state) {
                                     int next = 0;
                                     for (auto _ : state) {
                                         host.setUser(users[next++ % users.size()]);
                                         for (const std::unique_ptr<Page>& page : pages) {
                                             page->reload();
                                         }
                                     }
                                     checkQuiet(state);
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();

    RatioRunner runner(argc, argv);
    runner.addRatio("user_switch", "user_switch_store", "user_switch_direct", RatioRunner::Clock::Cpu, kLimit);
    const int code = runner.run();
    Clock::setFixed(std::nullopt);
    return code;
}
