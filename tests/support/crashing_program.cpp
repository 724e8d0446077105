// crashing_program FOLDER WAY: crashes in that way, as the program does: with facts in the folder.

#include "base/log.h"
#include "desktop/linux/crash_handler.h"
#include "desktop/linux/linux_background_work.h"

#include <cstdlib>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

using namespace panewright;

[[gnu::noinline]] int useBadPointer(volatile int* pointer) {
    return *pointer + 1;
}

// NOLINTNEXTLINE(misc-no-recursion)
[[gnu::noinline]] int fillStack(int depth) {
    volatile char frame[512] = {};
    frame[0] = static_cast<char>(depth);
    return depth < 0 ? 0 : fillStack(depth + 1 - frame[1]) + frame[0];
}

void crashInThread(const std::function<void()>& crash) {
    std::thread([&] {
        LinuxBackgroundWork().beginThread();
        crash();
    }).join();
}

} // namespace

int main(int argc, char** argv) {
    const std::map<std::string, std::function<void()>> ways{
        {"bad pointer", [] { useBadPointer(reinterpret_cast<int*>(0x10)); }},
        {"bad function", [] { reinterpret_cast<void (*)()>(0x10)(); }},
        {"full stack", [] { fillStack(0); }},
        {"full stack in a thread", [] { crashInThread([] { fillStack(0); }); }},
        {"abort", [] { std::abort(); }},
        {"exception", [] { throw std::runtime_error("what it says"); }},
        {"exception in a thread", [] { crashInThread([] { throw 1; }); }},
        {"two threads",
         [] {
             const std::thread other([] { useBadPointer(reinterpret_cast<int*>(0x10)); });
             useBadPointer(reinterpret_cast<int*>(0x10));
         }},
    };
    if (argc != 3 || !keepFactsOfCrashes(argv[1], "Crashing 1.0")) {
        return 1;
    }
    logLine("it will crash");
    ways.at(argv[2])();
}
