#include "desktop/shared/bundle_application_moving.h"

#include "archive/xml_property_list.h"
#include "desktop/shared/bundle_moving_commands.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace panewright {
namespace {

namespace fs = std::filesystem;

/// Newer toolkits know the programs that run, and their systems the images that are mounted.
constexpr double kLastOldToolkit = 949.0;

constexpr const char* kAdministratorRight = "system.privilege.admin";
/// Interaction allowed, extend rights, pre-authorize.
constexpr std::uint32_t kAuthorizationFlags = 19;
constexpr int kAuthorizationCancelled = -60006;

/// Null when the value is no dictionary, or has no such entry.
const ArchiveValue* entryOf(const ArchiveValue& value, std::string_view key) {
    const auto* const dictionary = value.dictionary();
    if (!dictionary) {
        return nullptr;
    }
    const auto found = std::ranges::find_if(*dictionary, [&](const ArchiveEntry& entry) {
        const auto* const text = entry.key.string();
        return text && *text == key;
    });
    return found == dictionary->end() ? nullptr : &found->value;
}

/// Null when the value is no dictionary, or the entry no array.
const ArchiveArray* arrayIn(const ArchiveValue& value, std::string_view key) {
    const auto* const entry = entryOf(value, key);
    return entry ? entry->array() : nullptr;
}

/// Whether the list of mounted images has the device; false for a list of another form.
bool hasDevice(const ArchiveValue& list, std::string_view device) {
    const auto* const images = arrayIn(list, "images");
    if (!images) {
        return false;
    }
    for (const auto& image : *images) {
        const auto* const entities = arrayIn(image, "system-entities");
        if (!entities) {
            return false;
        }
        for (const auto& entity : *entities) {
            const auto* const entry = entryOf(entity, "dev-entry");
            const auto* const name = entry ? entry->string() : nullptr;
            if (!name) {
                return false;
            }
            if (*name == device) {
                return true;
            }
        }
    }
    return false;
}

std::string trimmed(const fs::path& path) {
    constexpr const char* kSpace = " \t\n\v\f\r";
    const auto& text = path.native();
    const auto first = text.find_first_not_of(kSpace);
    return first == std::string::npos
               ? ""
               : text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

} // namespace

bool BundleApplicationMoving::isToolkitNewer() const {
    return std::floor(bundles_.toolkitVersion()) > kLastOldToolkit;
}

fs::path BundleApplicationMoving::applicationsFolder() const {
    const auto folders = bundles_.applicationsFolders(Bundles::Domain::kLocal);
    return folders.empty() ? fs::path() : bundles_.resolved(folders.back());
}

std::optional<std::string> BundleApplicationMoving::mediumOf(const fs::path& folder) const {
    const auto system = bundles_.fileSystemOf(folder);
    if (!system || system->isRoot) {
        return std::nullopt;
    }
    const auto tool = processes_.run(listImagesCommand());
    const auto list =
        tool && isToolkitNewer() ? valueOfXmlPropertyList(tool->standardOutput) : std::nullopt;
    return list && hasDevice(*list, system->mountedFrom) ? std::optional(system->mountedFrom)
                                                         : std::nullopt;
}

AuthorizedInstallation BundleApplicationMoving::authorizedInstall(const fs::path& source,
                                                                  const fs::path& destination) {
    if (trimmed(source).empty() || trimmed(destination).empty() ||
        !destination.native().ends_with(".app") || authorization_.create() != 0) {
        return AuthorizedInstallation::kFailed;
    }
    const int status = authorization_.copyRights(kAdministratorRight, kAuthorizationFlags);
    const bool isDone = status == 0 && authorization_.canExecute() && replace(source, destination);
    authorization_.free();
    if (status == kAuthorizationCancelled) {
        return AuthorizedInstallation::kCancelled;
    }
    return isDone ? AuthorizedInstallation::kDone : AuthorizedInstallation::kFailed;
}

bool BundleApplicationMoving::replace(const fs::path& source, const fs::path& destination) {
    const auto removed = authorization_.execute(removeCommand(destination));
    if (!removed || !removed->exitStatus) {
        return false;
    }
    const auto copied = authorization_.execute(copyCommand(source, destination));
    return copied && copied->exitStatus == 0;
}

bool BundleApplicationMoving::isRunning(const fs::path& program) const {
    if (!isToolkitNewer()) {
        const auto found = processes_.run(isRunningCommand(program));
        return found && found->exitStatus == 0;
    }
    return std::ranges::any_of(bundles_.runningExecutables(), [&](const fs::path& executable) {
        return executable.native().starts_with(program.native());
    });
}

void BundleApplicationMoving::open(const fs::path& program) {
    processes_.run(openCommand(program));
}

void BundleApplicationMoving::openAfterEnd(const fs::path& program) {
    processes_.start(openAfterEndCommand(bundles_.processIdentifier(), program, isToolkitNewer()));
}

void BundleApplicationMoving::ejectLater(const std::string& medium) {
    processes_.start(ejectCommand(medium));
}

} // namespace panewright
