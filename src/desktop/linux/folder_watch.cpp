#include "desktop/linux/folder_watch.h"

#include "base/log.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <utility>

namespace panewright {
namespace {

constexpr std::uint32_t kComing =
    IN_CREATE | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR | IN_MASK_ADD;
constexpr std::uint32_t kAnyChange =
    kComing | IN_CLOSE_WRITE | IN_ATTRIB | IN_MOVED_FROM | IN_DELETE;

} // namespace

FolderWatch::FolderWatch(MainLoop& mainLoop, std::function<void()> callback)
    : callback_(std::move(callback)), descriptor_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
    if (descriptor_ < 0) {
        logLine("no inotify instance is left: changes of folders are not noticed");
    } else {
        readable_ = mainLoop.whenReadable(descriptor_, [this] { handleEvents(); });
    }
}

FolderWatch::~FolderWatch() {
    readable_.release();
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

void FolderWatch::add(const std::filesystem::path& folder) {
    if (tryToAdd(folder, kAnyChange, "")) {
        return;
    }
    for (auto missing = folder; missing.has_relative_path(); missing = missing.parent_path()) {
        if (tryToAdd(missing.parent_path(), kComing, missing.filename())) {
            if (tryToAdd(missing, kComing, "")) {
                add(folder); // that one has come in between
            }
            return;
        }
    }
}

bool FolderWatch::tryToAdd(const std::filesystem::path& folder, std::uint32_t events,
                           const std::string& name) {
    const int watch = descriptor_ < 0 ? -1 : inotify_add_watch(descriptor_, folder.c_str(), events);
    if (watch >= 0) {
        names_[watch].insert(name);
    }
    return watch >= 0;
}

void FolderWatch::handleEvents() {
    alignas(inotify_event) std::array<char, 4096> buffer{};
    bool hasChanged = false;
    ssize_t count = 0;
    while ((count = read(descriptor_, buffer.data(), buffer.size())) > 0) {
        for (ssize_t at = 0; at < count;) {
            const auto& event = reinterpret_cast<const inotify_event&>(buffer[std::size_t(at)]);
            at += static_cast<ssize_t>(sizeof event + event.len);
            if ((event.mask & IN_IGNORED) != 0) {
                names_.erase(event.wd); // the folder is gone
                continue;
            }
            const auto& names = names_[event.wd];
            constexpr std::uint32_t kWhole = IN_Q_OVERFLOW | IN_DELETE_SELF | IN_MOVE_SELF;
            hasChanged = hasChanged || (event.mask & kWhole) != 0 || names.contains("") ||
                         (event.len > 0 && names.contains(event.name));
        }
    }
    if (hasChanged) {
        callback_();
    }
}

} // namespace panewright
