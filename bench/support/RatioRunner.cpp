#include "RatioRunner.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>

namespace {
bool hasFlag(const std::vector<std::string>& arguments, const std::string& prefix) {
    return std::any_of(arguments.begin(), arguments.end(),
                       [&prefix](const std::string& argument) { return argument.rfind(prefix, 0) == 0; });
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

// The console output, plus every repetition's real time per iteration (seconds) by case name.
class CollectingReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) {
                continue;
            }
            if (run.error_occurred) {
                m_failed.push_back(run.run_name.function_name + ": " + run.error_message);
            } else if (run.iterations > 0) {
                m_seconds[run.run_name.function_name].push_back(run.real_accumulated_time /
                                                                static_cast<double>(run.iterations));
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    const std::map<std::string, std::vector<double>>& seconds() const { return m_seconds; }
    const std::vector<std::string>& failed() const { return m_failed; }

private:
    std::map<std::string, std::vector<double>> m_seconds;
    std::vector<std::string> m_failed;
};
} // namespace

RatioRunner::RatioRunner(int argc, char** argv) {
    for (int i = 0; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--check") {
            m_check = true;
        } else {
            m_arguments.push_back(argument);
        }
    }
    if (!hasFlag(m_arguments, "--benchmark_repetitions")) {
        m_arguments.emplace_back("--benchmark_repetitions=5");
    }
    if (!hasFlag(m_arguments, "--benchmark_enable_random_interleaving")) {
        m_arguments.emplace_back("--benchmark_enable_random_interleaving=true");
    }
    if (!hasFlag(m_arguments, "--benchmark_report_aggregates_only")) {
        m_arguments.emplace_back("--benchmark_report_aggregates_only=true");
    }
}

void RatioRunner::addRatio(const std::string& name, const std::string& storeCase, const std::string& baselineCase,
                           double limit) {
    m_ratios.push_back({name, storeCase, baselineCase, limit});
}

int RatioRunner::run() {
    std::vector<char*> argv;
    for (std::string& argument : m_arguments) {
        argv.push_back(argument.data());
    }
    int argc = static_cast<int>(argv.size());
    argv.push_back(nullptr);
    benchmark::Initialize(&argc, argv.data());
    if (benchmark::ReportUnrecognizedArguments(argc, argv.data())) {
        return 2;
    }
    CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    int status = 0;
    for (const std::string& failure : reporter.failed()) {
        std::printf("failed %s\n", failure.c_str());
        status = 1;
    }
    const auto& seconds = reporter.seconds();
    for (const Ratio& ratio : m_ratios) {
        const auto store = seconds.find(ratio.storeCase);
        const auto baseline = seconds.find(ratio.baselineCase);
        if (store == seconds.end() || baseline == seconds.end()) {
            continue; // filtered out, or failed (reported above)
        }
        const double value = median(store->second) / median(baseline->second);
        std::printf("ratio %s: %.2f (limit %.1f)\n", ratio.name.c_str(), value, ratio.limit);
        if (m_check && value > ratio.limit) {
            status = 1;
        }
    }
    std::fflush(stdout);
    return status;
}
