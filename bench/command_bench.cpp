// How long the command takes to put the window into a state, from its start to its end and to the
// window's new frame, beside xdotool that does the same move; in turn, on one plain window. Times
// are in milliseconds.

#include "placement_bench.h"

#include <fmt/format.h>

#include <string>
#include <string_view>

namespace panewright::test {
namespace {

constexpr int kRuns = 100;

struct Command {
    std::string_view name;
    std::vector<std::string> arguments;
    bool sizesClient = false;
    std::vector<double> toEnd{};
    std::vector<double> toFrame{};
};

void run() {
    const std::vector<std::pair<std::string, std::string>> programs{
        {PANEWRIGHT_PROGRAM, "panewright: ready"}};
    PlacementBench bench(programs);
    Command commands[] = {
        {"panewright apply", {PANEWRIGHT_PROGRAM, "apply", "Centered Large"}},
        {"xdotool windowmove windowsize",
         {"xdotool", "getactivewindow", "windowmove", "80", "45", "windowsize", "1438", "785"},
         true}};
    for (int i = -1; i < kRuns; ++i) {
        for (auto& command : commands) {
            const double end = bench.measureToEnd(command.arguments);
            const double frame = bench.measureToFrame(command.arguments, command.sizesClient);
            if (i >= 0) { // the first reads from disk
                command.toEnd.push_back(end);
                command.toFrame.push_back(frame);
            }
        }
    }
    fmt::print("{} runs each, milliseconds, medians\n{:<32}{:>9}{:>9}\n", kRuns, "", "to end",
               "to frame");
    for (const auto& command : commands) {
        fmt::print("{:<32}{:>9.2f}{:>9.2f}\n", command.name, percentile(command.toEnd, 0.5),
                   percentile(command.toFrame, 0.5));
    }
    fmt::print("{:<32}{:>9.2f}{:>9.2f}\n", "panewright is, times",
               percentile(commands[0].toEnd, 0.5) / percentile(commands[1].toEnd, 0.5),
               percentile(commands[0].toFrame, 0.5) / percentile(commands[1].toFrame, 0.5));
}

} // namespace
} // namespace panewright::test

int main() {
    using namespace panewright::test;
    return runBench("command_bench", [] { run(); });
}
