#include "desktop/linux/linux_application_moving.h"

#include "desktop/linux/command_line.h"
#include "desktop/linux/spawned_program.h"
#include "desktop/linux/unpacked_program.h"

#include <mntent.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <system_error>

namespace panewright {
namespace {

namespace fs = std::filesystem;

const std::array<fs::path, 2> kTemporaryFolders{"/tmp", "/var/tmp"}; // hier(7)

/// Where desktops and people mount media (udisks(8), hier(7)).
const std::array<fs::path, 3> kMediaFolders{"/media", "/run/media", "/mnt"};

fs::path resolved(const fs::path& path) {
    std::error_code error;
    auto real = fs::weakly_canonical(path, error);
    return error ? path : real;
}

bool isBelow(const fs::path& path, const fs::path& folder) {
    return !folder.empty() && path != folder &&
           std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
               folder.end();
}

template <class Folders>
bool isBelowAny(const fs::path& path, const Folders& folders) {
    return std::ranges::any_of(folders, [&](const auto& folder) { return isBelow(path, folder); });
}

std::optional<MovingError> errorOf(const std::optional<std::string>& message) {
    return message ? std::optional(MovingError{*message}) : std::nullopt;
}

} // namespace

std::optional<fs::path> LinuxApplicationMoving::source() const {
    const bool mayAsk = mayAsk_ && places_.home.is_absolute();
    const auto folder = mayAsk ? unpackedFolderOf(places_.executable) : std::nullopt;
    if (!folder) {
        return std::nullopt;
    }
    std::error_code error;
    const auto temporary = fs::temp_directory_path(error);
    const bool staysNotLong =
        isBelow(*folder, resolved(places_.downloads)) || isBelow(*folder, resolved(temporary)) ||
        isBelowAny(*folder, kTemporaryFolders) || mediumOf(folder->parent_path());
    return staysNotLong ? folder : std::nullopt;
}

fs::path LinuxApplicationMoving::applicationsFolder() const {
    return resolved(places_.home / "Applications");
}

std::vector<fs::path> LinuxApplicationMoving::downloadsFolders() const {
    return {resolved(places_.downloads)};
}

/// The deepest place of the table of mounts that the folder is in or below. getmntent(3) decodes
/// the spaces in a place.
std::optional<std::string> LinuxApplicationMoving::mediumOf(const fs::path& folder) const {
    const std::unique_ptr<FILE, int (*)(FILE*)> table(setmntent(places_.mounts.c_str(), "re"),
                                                      endmntent);
    fs::path mountedAt;
    std::string device;
    while (const auto* const mount = table ? getmntent(table.get()) : nullptr) {
        const fs::path place = mount->mnt_dir;
        // Of two at one place, the later one covers the other.
        if ((folder == place || isBelow(folder, place)) &&
            place.native().size() >= mountedAt.native().size()) {
            mountedAt = place;
            device = mount->mnt_fsname;
        }
    }
    return isBelowAny(mountedAt, kMediaFolders) ? std::optional(device) : std::nullopt;
}

bool LinuxApplicationMoving::exists(const fs::path& path) const {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

bool LinuxApplicationMoving::isWritable(const fs::path& path) const {
    const bool canBeMade = path == applicationsFolder() && !exists(path);
    return access((canBeMade ? path.parent_path() : path).c_str(), W_OK | X_OK) == 0;
}

std::optional<MovingError> LinuxApplicationMoving::copy(const fs::path& from, const fs::path& to) {
    return errorOf(copyFolder(from, to));
}

std::optional<MovingError> LinuxApplicationMoving::remove(const fs::path& path) {
    return errorOf(removeUnpackedFolder(path));
}

std::optional<MovingError> LinuxApplicationMoving::recycle(const fs::path& path) {
    return places_.moveToTrash(path) ? std::nullopt
                                     : std::optional(MovingError{"there is no trash for it"});
}

void LinuxApplicationMoving::openAfterEnd(const fs::path& program) {
    // A process that works on a medium keeps it from being unmounted.
    spawnProgram({program / "bin" / "panewright", std::string(kRelaunchedOption)},
                 {.inSessionOfItsOwn = true, .workingFolder = places_.home});
}

} // namespace panewright
