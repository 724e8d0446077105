// How long a key press takes to move a window while another program calls this one over the session
// bus as fast as it can. Times are in milliseconds.

#include "placement_bench.h"

#include <fmt/format.h>
#include <linux/input-event-codes.h>

#include <optional>

namespace panewright::test {
namespace {

constexpr int kPresses = 50;
constexpr std::chrono::milliseconds kFloodRises{300};

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

void run() {
    const std::vector<std::pair<std::string, std::string>> programs{
        {PANEWRIGHT_PROGRAM, "panewright: ready"}};
    PlacementBench bench(programs);
    bench.measure(KEY_2, false); // reads from disk
    const std::vector<std::vector<std::string>> floods{{},
                                                       {"ApplyWindowState", "No such state"},
                                                       {"ListWindowStates"},
                                                       {"MoveToNextDisplay"},
                                                       {"ApplyWindowState", "Centered Small"}};
    std::optional<double> idle;
    fmt::print("{:<42}{:>8}{:>9}{:>9}{:>18}\n", "", "presses", "median", "95 %", "without calls");
    for (const auto& call : floods) {
        std::vector<std::string> command{CALL_FLOOD};
        command.insert(command.end(), call.begin(), call.end());
        std::optional<ChildProcess> flood;
        if (!call.empty()) {
            flood.emplace(command, bench.environment());
            std::this_thread::sleep_for(kFloodRises);
        }
        const auto times = measure(bench);
        const double median = times.empty() ? 0 : percentile(times, 0.5);
        idle = idle.value_or(median);
        fmt::print("{:<42}{:>8}{:>9.2f}{:>9.2f}{:>12.2f} times\n",
                   call.empty() ? "no calls" : fmt::format("{}", fmt::join(call, " ")),
                   times.size(), median, times.empty() ? 0 : percentile(times, 0.95),
                   median / *idle);
    }
}

} // namespace
} // namespace panewright::test

int main() {
    using namespace panewright::test;
    return runBench("flood_bench", [] { run(); });
}
