#include "desktop/freedesktop/xdg_folders.h"

#include "base/file.h"
#include "desktop/linux/environment.h"

namespace panewright {
namespace {

/// Only absolute paths count.
std::optional<std::filesystem::path> pathInEnvironment(const char* variable) {
    std::filesystem::path path(environment(variable));
    return path.is_absolute() ? std::optional(std::move(path)) : std::nullopt;
}

std::optional<std::filesystem::path> baseFolder(const char* variable, const char* belowHome) {
    if (auto path = pathInEnvironment(variable)) {
        return path;
    }
    const auto home = pathInEnvironment("HOME");
    return home ? std::optional(*home / belowHome) : std::nullopt;
}

} // namespace

std::optional<std::filesystem::path> xdgDataHome() {
    return baseFolder("XDG_DATA_HOME", ".local/share");
}

std::optional<std::filesystem::path> xdgConfigHome() {
    return baseFolder("XDG_CONFIG_HOME", ".config");
}

std::optional<std::filesystem::path> stateFolder() {
    const auto home = baseFolder("XDG_STATE_HOME", ".local/state");
    return home ? std::optional(*home / kOwnFolderName) : std::nullopt;
}

Result<std::filesystem::path, FolderError> XdgFolders::applicationSupportDirectory() const {
    if (!dataHome_) {
        return FolderError{"neither XDG_DATA_HOME nor HOME is an absolute path"};
    }
    if (const auto error = createDirectory(*dataHome_)) {
        return *error;
    }
    return *dataHome_;
}

std::optional<FolderError>
XdgFolders::createDirectory(const std::filesystem::path& directory) const {
    if (const auto error = createFolders(directory)) {
        return FolderError{error->message};
    }
    return std::nullopt;
}

} // namespace panewright
