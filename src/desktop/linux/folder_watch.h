#pragma once

#include "platform/main_loop.h"

#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>

namespace panewright {

/// Tells when files and folders come, go or change in some folders (inotify(7)), though not which.
class FolderWatch {
public:
    /// Calls back once for the changes that have come together. Not called where the system has no
    /// more watches to give, which the log tells.
    FolderWatch(MainLoop& mainLoop, std::function<void()> callback);
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    /// Watches the folder, not those below it. Of one that is missing it watches that it comes.
    /// What is read after this call, and changes later, is told of. Adding one again changes
    /// nothing.
    void add(const std::filesystem::path& folder);

private:
    bool tryToAdd(const std::filesystem::path& folder, std::uint32_t events,
                  const std::string& name);
    void handleEvents();

    std::function<void()> callback_;
    int descriptor_ = -1;
    /// By watch, the names that count; an empty one stands for all.
    std::map<int, std::set<std::string>> names_;
    Registration readable_;
};

} // namespace panewright
