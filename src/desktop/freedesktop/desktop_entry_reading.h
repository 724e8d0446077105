#pragma once

#include "desktop/freedesktop/desktop_entry.h"
#include "desktop/linux/folder_watch.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// One reading of the desktop entries of some folders, which may hold anything and be changing:
/// only regular files count, links to folders are not followed, and there are bounds for
/// everything.
class DesktopEntryReading {
public:
    /// An earlier folder goes before a later one. Has the watch watch whatever folder is read.
    DesktopEntryReading(std::vector<std::filesystem::path> folders,
                        std::vector<std::string> locales, FolderWatch& watch)
        : folders_(std::move(folders)), locales_(std::move(locales)), watch_(watch) {}

    /// Reads for a few milliseconds at most; false when that was the last of it.
    bool readSome();

    /// False when a bound has kept it from reading all.
    bool isComplete() const { return isComplete_; }

    DesktopEntryMap& entries() { return entries_; }

private:
    bool openNextFolder();
    void take(const std::filesystem::directory_entry& item);
    void takeFile(const std::filesystem::path& file);

    std::vector<std::filesystem::path> folders_;
    std::vector<std::string> locales_;
    FolderWatch& watch_;
    std::size_t next_ = 0;
    std::filesystem::recursive_directory_iterator walk_;
    DesktopEntryMap entries_;
    std::size_t items_ = 0;
    std::size_t subfolders_ = 0;
    std::size_t bytes_ = 0;
    bool isComplete_ = true;
};

} // namespace panewright
