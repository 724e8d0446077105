// How long a key press takes to move a window while another program calls this one over the session
// bus as fast as it can. Times are in milliseconds.

#include "placement_bench.h"

#include <fmt/format.h>
#include <linux/input-event-codes.h>

#include <optional>

namespace panewright::test {
namespace {

constexpr int kPresses = 50;
constexpr std::chrono::milliseconds kLoadRises{300};

/// The presses of which nobody saw the frame, as a call placed the window at once, are left out.
std::vector<double> measure(PlacementBench& bench) {
    std::vector<double> times;
    for (int press = 0; press < kPresses; ++press) {
        try {
            times.push_back(bench.measure(KEY_2, false));
        } catch (const std::runtime_error&) {
        }
    }
    return times;
}

struct Load {
    const char* name;
    std::vector<std::vector<std::string>> processes;
};

std::vector<std::string> flood(const char* destination, std::vector<std::string> call) {
    call.insert(call.begin(), {CALL_FLOOD, destination});
    return call;
}

/// The first is without load. Then what the machine and the bus cost alone, without Panewright.
std::vector<Load> loads() {
    constexpr const char* kUs = "com.quillfen.Panewright";
    constexpr const char* kOther = "org.example.CallSink";
    const std::vector<std::string> busy{"/bin/sh", "-c", "while :; do :; done"};
    return {
        {"nothing else", {}},
        {"two busy processes", {busy, busy}},
        {"calls of a program that drops them",
         {{CALL_SINK, kOther}, flood(kOther, {"ApplyWindowState", "No such state"})}},
        {"ApplyWindowState, no such state", {flood(kUs, {"ApplyWindowState", "No such state"})}},
        {"ListWindowStates", {flood(kUs, {"ListWindowStates"})}},
        {"MoveToNextDisplay", {flood(kUs, {"MoveToNextDisplay"})}},
        {"ApplyWindowState, which moves the window",
         {flood(kUs, {"ApplyWindowState", "Centered Small"})}}};
}

void run() {
    const std::vector<std::pair<std::string, std::string>> programs{
        {PANEWRIGHT_PROGRAM, "panewright: ready"}};
    PlacementBench bench(programs);
    bench.measure(KEY_2, false); // reads from disk
    std::optional<double> idle;
    fmt::print("{:<42}{:>8}{:>9}{:>9}{:>15}\n", "", "presses", "median", "95 %", "without load");
    for (const auto& [name, processes] : loads()) {
        std::vector<std::unique_ptr<ChildProcess>> started;
        for (const auto& command : processes) {
            started.push_back(std::make_unique<ChildProcess>(command, bench.environment()));
            std::this_thread::sleep_for(kLoadRises);
        }
        const auto times = measure(bench);
        const double median = times.empty() ? 0 : percentile(times, 0.5);
        idle = idle.value_or(median);
        fmt::print("{:<42}{:>8}{:>9.2f}{:>9.2f}{:>9.2f} times\n", name, times.size(), median,
                   times.empty() ? 0 : percentile(times, 0.95), median / *idle);
    }
}

} // namespace
} // namespace panewright::test

int main() {
    using namespace panewright::test;
    return runBench("flood_bench", [] { run(); });
}
