// How long loading and saving the store takes, and how much memory, beside what gzip and libplist
// alone take for the same bytes; and how long a save holds the main thread. Each size is measured
// in a process of its own. Times are medians of several runs, in milliseconds.

#include "archive/plist_node.h"
#include "archive/reading_costs.h"
#include "desktop/memory/memory_services.h"
#include "desktop/memory/memory_standard_folders.h"
#include "desktop/memory/memory_user_defaults.h"
#include "model/gzip.h"
#include "model/model.h"
#include "model/store_lock.h"

#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <vector>

namespace panewright {
namespace {

constexpr int kSmallest = 9;

double medianOf(int runs, const std::function<void()>& body) {
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        const auto start = std::chrono::steady_clock::now();
        body();
        const std::chrono::duration<double, std::milli> time =
            std::chrono::steady_clock::now() - start;
        times.push_back(time.count());
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

/// Like a user's: each has its own frame and name, one in three a shortcut, 20 for an application.
WindowStates makeStates(int count) {
    WindowStates states;
    states["defaults"] = std::make_shared<WindowStateArray>();
    for (int index = 0; index < count; ++index) {
        const std::string app = fmt::format("org.example.Application{}", index / 20);
        auto state = WindowState::windowStateIsDefault(false, false);
        state->setAppBundleId(app);
        state->setAppName(fmt::format("Application {}", index / 20));
        state->setWindowStateName(fmt::format("Left of the screen, number {}", index));
        state->setOriginalWindowRect({index % 1900 + 0.5, 23, 640.0 + index % 7, 480});
        state->setOriginalQuartzDisplayBounds({0, 0, 1920, 1080});
        if (index % 3 == 0) {
            state->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(index % 128, 0x180000));
        }
        auto& array = states[app];
        array = array ? array : std::make_shared<WindowStateArray>();
        array->push_back(std::move(state));
    }
    return states;
}

struct PlistBytes {
    CPointer<char> bytes;
    std::uint32_t length = 0;
};

PlistBytes binaryOf(plist_t node) {
    char* bytes = nullptr;
    PlistBytes result;
    plist_to_bin(node, &bytes, &result.length);
    result.bytes.reset(bytes);
    return result;
}

double peakMegabytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void measure(int count) {
    const int runs = count <= 1000 ? 15 : 3;
    const WindowStates states = makeStates(count);
    const ArchiveValue snapshot = snapshotOf(states);
    const Bytes file = *archivedSnapshot(snapshot);
    const Bytes archive = *gunzippedData(file, kMaxArchiveSize);
    const auto parse = [](const Bytes& bytes) {
        plist_t node = nullptr;
        plist_from_bin(reinterpret_cast<const char*>(bytes.data()),
                       static_cast<std::uint32_t>(bytes.size()), &node);
        return PlistNode(node);
    };
    const PlistNode parsed = parse(archive);

    const double plainLoad = medianOf(runs, [&] { parse(*gunzippedData(file, kMaxArchiveSize)); });
    const double plainSave = medianOf(runs, [&] {
        const PlistBytes bytes = binaryOf(parsed.get());
        const Bytes data(bytes.bytes.get(), bytes.bytes.get() + bytes.length);
        if (gzippedData(data, kSmallest)->empty()) {
            std::abort();
        }
    });
    const double load = medianOf(runs, [&] {
        if (unarchivedWindowStates(file)->empty()) {
            std::abort();
        }
    });
    const double save = medianOf(runs, [&] {
        if (archivedSnapshot(snapshotOf(states))->empty()) {
            std::abort();
        }
    });
    fmt::print("{:>7} {:>9} {:>10} {:>9.2f} {:>9.2f} {:>6.2f} {:>9.2f} {:>9.2f} {:>6.2f}", count,
               file.size(), archive.size(), load, plainLoad, load / plainLoad, save, plainSave,
               save / plainSave);
}

/// What this thread has worked: the processor that other programs take meanwhile does not count.
double threadMilliseconds() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The longest that a call of save() held its thread while the writer was at work, and the median.
/// As in the program, the store is loaded and one state changes before each save.
void measureHold(int count) {
    std::string name = "/tmp/store-bench-XXXXXX";
    const std::filesystem::path folder(::mkdtemp(name.data()));
    {
        const MemoryStandardFolders folders(folder);
        MemoryUserDefaults defaults;
        StoreLock lock(folders, "");
        const MemoryBackgroundWork background;
        const Model::Services services{folders, defaults, lock, background};
        {
            Model before(services);
            before.setWindowStates(makeStates(count));
            before.save();
        }
        Model model(services);
        double longest = 0;
        const double median = medianOf(21, [&] {
            const auto& states = *model.windowStates();
            states.rbegin()->second->front()->setPrefersDisplay(true);
            const double start = threadMilliseconds();
            model.save();
            longest = std::max(longest, threadMilliseconds() - start);
        });
        fmt::print(" {:>8.2f} {:>8.2f}", median, longest);
    }
    std::filesystem::remove_all(folder);
}

void inProcessOfItsOwn(const std::function<void()>& body) {
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child == 0) {
        body();
        std::fflush(stdout);
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
}

} // namespace
} // namespace panewright

int main() {
    using namespace panewright;
    fmt::print("{:>7} {:>9} {:>10} {:>9} {:>9} {:>6} {:>9} {:>9} {:>6} {:>8} {:>8} {:>8}\n",
               "states", "file B", "archive B", "load ms", "plain ms", "ratio", "save ms",
               "plain ms", "ratio", "hold ms", "max ms", "peak MB");
    for (const int count : {10, 100, 1000, 3000, 10000}) {
        inProcessOfItsOwn([count] { measure(count); });
        inProcessOfItsOwn([count] { measureHold(count); });
        inProcessOfItsOwn([count] {
            const auto file = archivedSnapshot(snapshotOf(makeStates(count)));
            if (unarchivedWindowStates(*file)->empty()) {
                std::abort();
            }
            fmt::print(" {:>8.1f}\n", peakMegabytes());
        });
    }
    return 0;
}
