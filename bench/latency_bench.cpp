// How long it takes from a key press to the window's new outer frame, as another X client sees it:
// for Panewright, and beside it on a desktop of their own, where no Panewright runs, for a client
// that does the least that is needed, for openbox's own key binding that does the same, and for
// sxhkd with xdotool; in turn, each on one plain window. Times are in milliseconds. An argument
// names another Panewright than the one that was built.

#include "placement_bench.h"

#include <fmt/format.h>
#include <linux/input-event-codes.h>

#include <array>
#include <string_view>
#include <vector>

namespace panewright::test {
namespace {

constexpr int kPresses = 100;

struct Method {
    std::string_view name;
    PlacementBench& bench;
    std::uint16_t key;
    bool sizesClient = false;
    std::vector<double> times{};
};

void run(const std::string& program) {
    PlacementBench bench({{program, "panewright: ready"}});
    PlacementBench others({{MINIMAL_PROGRAM, "minimal: ready"}, {"sxhkd", ""}});
    std::array<Method, 4> methods{{{"Panewright", bench, KEY_2},
                                   {"the least that is needed", others, KEY_F7},
                                   {"openbox, its own key binding", others, KEY_F5},
                                   {"sxhkd with xdotool", others, KEY_F6, true}}};
    for (auto& method : methods) {
        method.bench.measure(method.key, method.sizesClient); // the first reads from disk
    }
    for (int press = 0; press < kPresses; ++press) {
        for (auto& method : methods) {
            method.times.push_back(method.bench.measure(method.key, method.sizesClient));
        }
    }
    const double ours = percentile(methods.front().times, 0.5);
    fmt::print("{} presses each, milliseconds from key press to new frame\n", kPresses);
    fmt::print("{:<30}{:>9}{:>9}{:>20}\n", "", "median", "95 %", "Panewright is");
    for (const auto& method : methods) {
        const double median = percentile(method.times, 0.5);
        fmt::print("{:<30}{:>9.2f}{:>9.2f}{:>14.2f} times\n", method.name, median,
                   percentile(method.times, 0.95), ours / median);
    }
}

} // namespace
} // namespace panewright::test

int main(int argc, char* argv[]) {
    using namespace panewright::test;
    return runBench("latency_bench", [&] { run(argc > 1 ? argv[1] : PANEWRIGHT_PROGRAM); });
}
