#include "desktop/freedesktop/desktop_entries.h"

#include "base/unicode.h"
#include "desktop/freedesktop/desktop_entry_text.h"
#include "desktop/freedesktop/xdg_folders.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <system_error>

namespace panewright {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kExtension = ".desktop";
/// The largest on a full system are a tenth of this.
constexpr std::size_t kMaxFileSize = std::size_t{256} << 10U;
constexpr std::size_t kMaxEntries = 5000;
constexpr int kMaxDepth = 3;

std::string shownText(std::string_view value) {
    return wellFormedUtf8(unescaped(value));
}

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

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string messagesLocale() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (auto value = environment(name); !value.empty()) {
            return value;
        }
    }
    return {};
}

std::string contentOf(const fs::path& file) {
    std::error_code error;
    const auto size = fs::file_size(file, error); // fails for what could make the reader wait
    if (error) {
        return {};
    }
    std::ifstream stream(file, std::ios::binary);
    std::string text(std::min<std::uintmax_t>(size, kMaxFileSize), '\0');
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return text;
}

} // namespace

std::vector<std::string> localeNames(std::string_view locale) {
    const auto modifierAt = std::min(locale.find('@'), locale.size());
    const std::string modifier(locale.substr(modifierAt));
    locale = locale.substr(0, modifierAt);
    const std::string withCountry(locale.substr(0, locale.find('.')));
    const std::string language = withCountry.substr(0, withCountry.find('_'));
    std::vector<std::string> names;
    for (const auto& name : {withCountry + modifier, withCountry, language + modifier, language}) {
        if (!language.empty() && std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
        }
    }
    return names;
}

std::optional<DesktopEntry> parseDesktopEntry(std::string_view text,
                                              const std::vector<std::string>& locales) {
    const auto keys = desktopEntryKeys(text);
    const auto valueOf = [&](std::string_view key) {
        const auto found = keys.find(key);
        return found == keys.end() ? std::string_view() : found->second;
    };
    if (valueOf("Type") != "Application" || valueOf("Hidden") == "true") {
        return std::nullopt;
    }
    DesktopEntry entry;
    entry.name = shownText(valueOf("Name"));
    for (const auto& locale : locales) {
        if (const auto localized = valueOf("Name[" + locale + "]"); !localized.empty()) {
            entry.name = shownText(localized);
            break;
        }
    }
    entry.icon = shownText(valueOf("Icon"));
    entry.startupClass = shownText(valueOf("StartupWMClass"));
    entry.isShown = valueOf("NoDisplay") != "true";
    return entry;
}

DesktopEntries::DesktopEntries(const std::vector<fs::path>& dataFolders, std::string_view locale)
    : locales_(localeNames(locale)) {
    for (const auto& folder : dataFolders) {
        folders_.push_back(folder / "applications");
    }
}

DesktopEntries DesktopEntries::ofSession() {
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
    return {folders, messagesLocale()};
}

const DesktopEntry* DesktopEntries::withId(std::string_view id) {
    refresh();
    if (const auto slash = id.rfind('/'); slash != std::string_view::npos) {
        id.remove_prefix(slash + 1);
    }
    if (id.ends_with(kExtension)) {
        id.remove_suffix(kExtension.size());
    }
    const auto found = entries_.find(id);
    return found == entries_.end() || !found->second ? nullptr : &*found->second;
}

const DesktopEntry* DesktopEntries::ofWindowClass(std::string_view instance,
                                                  std::string_view windowClass) {
    refresh();
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

void DesktopEntries::refresh() {
    if (!folderTimes_.empty() && !hasChanged()) {
        return;
    }
    entries_.clear();
    folderTimes_.clear();
    for (const auto& folder : folders_) {
        readFolder(folder);
    }
}

bool DesktopEntries::hasChanged() const {
    return std::any_of(folderTimes_.begin(), folderTimes_.end(), [](const auto& known) {
        std::error_code error;
        return fs::last_write_time(known.first, error) != known.second;
    });
}

void DesktopEntries::readFolder(const fs::path& folder) {
    std::error_code error;
    // A folder that is missing has the smallest time, until it comes.
    folderTimes_[folder] = fs::last_write_time(folder, error);
    fs::recursive_directory_iterator file(folder, error);
    for (; !error && file != fs::recursive_directory_iterator() && entries_.size() < kMaxEntries;
         file.increment(error)) {
        if (std::error_code ignored; file->is_directory(ignored)) {
            folderTimes_[file->path()] = fs::last_write_time(file->path(), ignored);
            if (file.depth() >= kMaxDepth) {
                file.disable_recursion_pending();
            }
        } else if (file->path().extension() == kExtension) {
            auto id = file->path().lexically_relative(folder).string();
            id.resize(id.size() - kExtension.size());
            std::replace(id.begin(), id.end(), '/', '-');
            if (!entries_.contains(id)) {
                auto entry = parseDesktopEntry(contentOf(file->path()), locales_);
                if (entry) {
                    entry->id = id;
                }
                entries_.emplace(std::move(id), std::move(entry));
            }
        }
    }
}

} // namespace panewright
