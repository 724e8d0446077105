#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace panewright {

/// Why a file could not be moved, copied or deleted, in words for the log.
struct MovingError {
    std::string message;
};

/// How an installation with an administrator's rights ended.
enum class AuthorizedInstallation { kDone, kCancelled, kFailed };

/// How the system installs a program that the user has only unpacked or opened: where installed
/// programs lie, and how one gets there. Paths are absolute. Main thread only, before there is
/// anything else of the program.
class ApplicationMoving {
public:
    virtual ~ApplicationMoving() = default;

    /// What would be moved: the file or folder that is this program. Nil where the system does not
    /// want it moved, whatever else holds.
    virtual std::optional<std::filesystem::path> source() const = 0;

    /// The folders of installed programs, of all users and of this one.
    virtual std::vector<std::filesystem::path> applicationsFolders() const = 0;
    /// The one that programs are moved to, without symbolic links. It may be missing.
    virtual std::filesystem::path applicationsFolder() const = 0;
    /// Where downloads are kept.
    virtual std::vector<std::filesystem::path> downloadsFolders() const = 0;

    /// The device of the disk image or medium that the folder is on; nil for one that stays.
    virtual std::optional<std::string> mediumOf(const std::filesystem::path& folder) const = 0;

    virtual bool exists(const std::filesystem::path& path) const = 0;
    /// Also true of a missing applications folder that can be made.
    virtual bool isWritable(const std::filesystem::path& path) const = 0;

    /// Whether the user can be asked for an administrator's rights at all.
    virtual bool canAuthorize() const = 0;
    /// Asks for them, and puts the source in the place of what there is at the destination.
    virtual AuthorizedInstallation authorizedInstall(const std::filesystem::path& source,
                                                     const std::filesystem::path& destination) = 0;

    /// Whether the program at the path runs, as another process than this one.
    virtual bool isRunning(const std::filesystem::path& program) const = 0;
    /// Opens the program at the path, or shows it where it runs. Returns when it has been asked to.
    virtual void open(const std::filesystem::path& program) = 0;

    // These give nothing when all went well.
    virtual std::optional<MovingError> copy(const std::filesystem::path& from,
                                            const std::filesystem::path& to) = 0;
    virtual std::optional<MovingError> remove(const std::filesystem::path& path) = 0;
    virtual std::optional<MovingError> recycle(const std::filesystem::path& path) = 0;

    /// Opens the program at the path once this process has ended.
    virtual void openAfterEnd(const std::filesystem::path& program) = 0;
    /// Ejects the medium when the program that was opened from it has surely ended.
    virtual void ejectLater(const std::string& medium) = 0;
};

} // namespace panewright
