#pragma once

#include "platform/standard_folders.h"

namespace panewright {

/// `$XDG_DATA_HOME` or, when that is unset, empty or relative, `~/.local/share`. Nothing without a
/// home. The same for configuration, `~/.config`.
std::optional<std::filesystem::path> xdgDataHome();
std::optional<std::filesystem::path> xdgConfigHome();

/// The program's own folder in those of configuration and state. The store names its own.
inline constexpr const char* kOwnFolderName = "Panewright";

/// Where the program keeps what tells of its own runs: its folder in `$XDG_STATE_HOME`, or
/// `~/.local/state`. Nothing without a home. It may be missing.
std::optional<std::filesystem::path> stateFolder();

/// The folders of the XDG base directory conventions, as the environment has them when it is made.
class XdgFolders : public StandardFolders {
public:
    XdgFolders() : dataHome_(xdgDataHome()) {}

    Result<std::filesystem::path, FolderError> applicationSupportDirectory() const override;
    std::optional<FolderError>
    createDirectory(const std::filesystem::path& directory) const override;

private:
    std::optional<std::filesystem::path> dataHome_;
};

} // namespace panewright
