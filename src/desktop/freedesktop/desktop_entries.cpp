#include "desktop/freedesktop/desktop_entries.h"

#include "base/log.h"
#include "desktop/freedesktop/desktop_entry_reading.h"
#include "desktop/freedesktop/xdg_folders.h"
#include "desktop/linux/environment.h"

#include <algorithm>
#include <chrono>

namespace panewright {
namespace {

namespace fs = std::filesystem;

/// How long the changes of one installation are waited for.
constexpr std::chrono::seconds kTogether{1};

bool equalsWithoutCase(std::string_view a, std::string_view b) {
    const auto lower = [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char first, char second) { return lower(first) == lower(second); });
}

bool hasStartupClass(const DesktopEntry& entry, std::string_view text) {
    return entry.startupClass == text;
}

bool hasIdInAnyCase(const DesktopEntry& entry, std::string_view text) {
    return equalsWithoutCase(entry.id, text);
}

std::string messagesLocale() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (auto value = environment(name); !value.empty()) {
            return value;
        }
    }
    return {};
}

} // namespace

DesktopEntries::DesktopEntries(MainLoop& mainLoop, const std::vector<fs::path>& dataFolders,
                               std::string_view locale)
    : mainLoop_(mainLoop), locales_(localeNames(locale)),
      watch_(mainLoop, [this] { noteChange(); }) {
    for (const auto& folder : dataFolders) {
        folders_.push_back(folder / "applications");
    }
    nextStep_ = mainLoop.after(std::chrono::milliseconds(0), [this] { read(); });
}

DesktopEntries::~DesktopEntries() = default;

DesktopEntries DesktopEntries::ofSession(MainLoop& mainLoop) {
    std::vector<fs::path> folders;
    if (auto home = xdgDataHome()) {
        folders.push_back(std::move(*home));
    }
    auto list = environment("XDG_DATA_DIRS");
    if (list.empty()) {
        list = "/usr/local/share:/usr/share";
    }
    for (std::string_view rest = list; !rest.empty();) {
        const auto end = std::min(rest.find(':'), rest.size());
        if (fs::path folder(rest.substr(0, end)); folder.is_absolute()) {
            folders.push_back(std::move(folder));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return {mainLoop, folders, messagesLocale()};
}

const DesktopEntry* DesktopEntries::withId(std::string_view id) const {
    if (const auto slash = id.rfind('/'); slash != std::string_view::npos) {
        id.remove_prefix(slash + 1);
    }
    if (id.ends_with(kDesktopEntryExtension)) {
        id.remove_suffix(kDesktopEntryExtension.size());
    }
    const auto found = entries_.find(id);
    return found == entries_.end() || !found->second ? nullptr : &*found->second;
}

const DesktopEntry* DesktopEntries::ofWindowClass(std::string_view instance,
                                                  std::string_view windowClass) const {
    for (const auto matches : {hasStartupClass, hasIdInAnyCase}) {
        for (const auto text : {windowClass, instance}) {
            if (const auto* entry = text.empty() ? nullptr : find(matches, text)) {
                return entry;
            }
        }
    }
    return nullptr;
}

const DesktopEntry* DesktopEntries::find(bool (*matches)(const DesktopEntry&, std::string_view),
                                         std::string_view text) const {
    const DesktopEntry* best = nullptr;
    for (const auto& [id, entry] : entries_) {
        if (entry && matches(*entry, text) && (!best || (entry->isShown && !best->isShown))) {
            best = &*entry;
        }
    }
    return best;
}

void DesktopEntries::read() {
    reading_ = std::make_unique<DesktopEntryReading>(folders_, locales_, watch_);
    readOn();
}

void DesktopEntries::readOn() {
    if (reading_->readSome()) {
        nextStep_ = mainLoop_.after(std::chrono::milliseconds(0), [this] { readOn(); });
        return;
    }
    const auto reading = std::move(reading_);
    if (!reading->isComplete()) {
        logLine("there is too much in the folders of desktop entries: the rest is not read");
    }
    if (reading->entries() != entries_) {
        entries_ = std::move(reading->entries());
        changed_.notify();
    }
}

void DesktopEntries::noteChange() {
    if (!pendingChange_) {
        pendingChange_ = mainLoop_.after(kTogether, [this] {
            pendingChange_.release();
            reading_ ? noteChange() : read();
        });
    }
}

} // namespace panewright
