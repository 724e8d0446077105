#pragma once

#include "base/observer_list.h"
#include "desktop/freedesktop/desktop_entry.h"
#include "desktop/linux/folder_watch.h"
#include "platform/main_loop.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace panewright {

class DesktopEntryReading;

/// The desktop entries of some folders, an earlier one going before a later one. They are read
/// between the main loop's events, a few at a time, once at its start and again after a change, so
/// asking for one never touches the disk. Until they have been read there are none. Pointers are
/// valid until the next event.
class DesktopEntries {
public:
    DesktopEntries(MainLoop& mainLoop, const std::vector<std::filesystem::path>& dataFolders,
                   std::string_view locale);
    ~DesktopEntries();
    DesktopEntries(const DesktopEntries&) = delete;
    DesktopEntries& operator=(const DesktopEntries&) = delete;

    /// Those of the user and the system, as the environment names them.
    static DesktopEntries ofSession(MainLoop& mainLoop);

    /// By identifier or file, with or without ".desktop"; null if there is none.
    const DesktopEntry* withId(std::string_view id) const;

    /// The one whose startup class is the class or the instance, else the one with that identifier
    /// in any case; null if there is none.
    const DesktopEntry* ofWindowClass(std::string_view instance,
                                      std::string_view windowClass) const;

    /// Called after other entries have been read than were known.
    Registration onChange(std::function<void()> callback) {
        return changed_.add(std::move(callback));
    }

private:
    void read();
    void readOn();
    void noteChange();
    const DesktopEntry* find(bool (*matches)(const DesktopEntry&, std::string_view),
                             std::string_view text) const;

    MainLoop& mainLoop_;
    std::vector<std::filesystem::path> folders_;
    std::vector<std::string> locales_;
    DesktopEntryMap entries_;
    ObserverList<> changed_;
    FolderWatch watch_;
    std::unique_ptr<DesktopEntryReading> reading_;
    Registration nextStep_;
    /// While more changes may come together with the first one.
    Registration pendingChange_;
};

} // namespace panewright
