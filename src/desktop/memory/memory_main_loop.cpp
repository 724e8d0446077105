#include "desktop/memory/memory_main_loop.h"

#include <poll.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace panewright {

void MemoryMainLoop::post(std::function<void()> task) {
    const std::scoped_lock lock(mutex_);
    tasks_.push_back(std::move(task));
}

Registration MemoryMainLoop::after(std::chrono::milliseconds delay, std::function<void()> task) {
    const auto id = nextId_++;
    timers_.emplace(id, Timer{now_ + delay, std::move(task)});
    return Registration([this, id] { timers_.erase(id); });
}

Registration MemoryMainLoop::whenReadable(int descriptor, std::function<void()> callback) {
    const auto id = nextId_++;
    watches_.emplace(id, Watch{descriptor, std::move(callback)});
    return Registration([this, id] { watches_.erase(id); });
}

int MemoryMainLoop::run() {
    while (!exitCode_) {
        runPending();
        if (exitCode_ || runNextTimer(Time::max())) {
            continue;
        }
        if (!pollDescriptors(true)) {
            break;
        }
    }
    return exitCode_.value_or(0);
}

void MemoryMainLoop::runPending() {
    do {
        while (const auto task = takeTask()) {
            task();
        }
    } while (runNextTimer(now_) || pollDescriptors(false));
}

void MemoryMainLoop::advance(std::chrono::milliseconds time) {
    const auto end = now_ + time;
    runPending();
    while (runNextTimer(end)) {
        runPending();
    }
    now_ = end;
}

std::function<void()> MemoryMainLoop::takeTask() {
    const std::scoped_lock lock(mutex_);
    if (tasks_.empty() || exitCode_) {
        return nullptr;
    }
    auto task = std::move(tasks_.front());
    tasks_.pop_front();
    return task;
}

bool MemoryMainLoop::runNextTimer(Time until) {
    const auto next = std::min_element(timers_.begin(), timers_.end(), [](auto& a, auto& b) {
        return a.second.due < b.second.due;
    });
    if (next == timers_.end() || next->second.due > until || exitCode_) {
        return false;
    }
    now_ = std::max(now_, next->second.due);
    const auto task = std::move(next->second.task);
    timers_.erase(next);
    task();
    return true;
}

bool MemoryMainLoop::pollDescriptors(bool wait) {
    if (watches_.empty() || exitCode_) {
        return false;
    }
    std::vector<pollfd> descriptors;
    std::vector<std::uint64_t> ids;
    for (const auto& [id, watch] : watches_) {
        descriptors.push_back({watch.descriptor, POLLIN, 0});
        ids.push_back(id);
    }
    if (poll(descriptors.data(), static_cast<nfds_t>(descriptors.size()), wait ? -1 : 0) <= 0) {
        return false;
    }
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const auto watch = watches_.find(ids[i]);
        if (descriptors[i].revents != 0 && watch != watches_.end()) {
            const auto callback = watch->second.callback;
            callback();
        }
    }
    return true;
}

} // namespace panewright
