// From the start of the process to installed hot keys, and the memory held then, beside a minimal
// Qt program with a tray icon and a bus name, in turn in one run. Needs a session bus.

#include "support/desktop.h"

#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace panewright::test {
namespace {

constexpr int kRounds = 41;

/// Memory is looked at when everything that is put off at the start has been done.
constexpr std::chrono::milliseconds kSettling{300};

struct Series {
    std::string program;
    std::string readyLine;
    std::vector<double> milliseconds;
    std::vector<double> residentMebibytes;
    std::vector<double> proportionalMebibytes;
};

/// A field of /proc/PID/smaps_rollup (proc(5)), in MiB.
double memoryField(pid_t pid, const std::string& field) {
    std::ifstream rollup("/proc/" + std::to_string(pid) + "/smaps_rollup");
    for (std::string line; std::getline(rollup, line);) {
        if (line.starts_with(field + ":")) {
            return std::stod(line.substr(field.size() + 1)) / 1024;
        }
    }
    return 0;
}

void startOnce(Series& series, const Environment& environment) {
    const auto start = std::chrono::steady_clock::now();
    ChildProcess process({series.program}, environment);
    // The rig looks every millisecond.
    if (!process.waitForErrorLine(series.readyLine)) {
        fmt::print(stderr, "{} is not ready: {}\n", series.program, process.standardError());
        std::exit(1);
    }
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    series.milliseconds.push_back(taken.count());
    std::this_thread::sleep_for(kSettling);
    series.residentMebibytes.push_back(memoryField(process.pid(), "Rss"));
    series.proportionalMebibytes.push_back(memoryField(process.pid(), "Pss"));
    process.sendSignal(SIGTERM);
    process.waitForEnd();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int run() {
    const Desktop desktop;
    const TestClient window(desktop.display());
    window.activate();
    Environment environment = desktop.environment();
    if (const char* bus = std::getenv("DBUS_SESSION_BUS_ADDRESS")) {
        environment["DBUS_SESSION_BUS_ADDRESS"] = bus;
    }
    Series ours{PANEWRIGHT_PROGRAM, "panewright: ready"};
    Series minimal{MINIMAL_PROGRAM, "minimal: ready"};
    for (int round = 0; round < kRounds; ++round) {
        startOnce(ours, environment);
        startOnce(minimal, environment);
    }
    fmt::print("medians of {}          ours    minimal   ratio\n", kRounds);
    const auto row = [](const char* what, const std::vector<double>& a,
                        const std::vector<double>& b) {
        fmt::print("{:22} {:7.1f}    {:7.1f}   {:5.2f}\n", what, median(a), median(b),
                   median(a) / median(b));
    };
    row("start to ready, ms", ours.milliseconds, minimal.milliseconds);
    row("resident, MiB", ours.residentMebibytes, minimal.residentMebibytes);
    row("proportional, MiB", ours.proportionalMebibytes, minimal.proportionalMebibytes);
    return 0;
}

} // namespace
} // namespace panewright::test

int main() {
    return panewright::test::run();
}
