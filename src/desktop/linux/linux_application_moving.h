#pragma once

#include "platform/application_moving.h"

#include <functional>

namespace panewright {

/// Moves the folder that the program was unpacked into to "Applications" in the home folder, from
/// where nothing stays for long: a folder of downloads, a temporary folder or a medium.
class LinuxApplicationMoving : public ApplicationMoving {
public:
    struct Places {
        std::filesystem::path executable;
        std::filesystem::path home; // nobody is asked without an absolute one
        std::filesystem::path downloads;
        /// False where it fails.
        std::function<bool(const std::filesystem::path&)> moveToTrash;
        std::filesystem::path mounts = "/proc/self/mounts"; // a table as fstab(5) describes it
    };

    /// Nobody is asked at a start that the user does not see.
    LinuxApplicationMoving(Places places, bool mayAsk)
        : places_(std::move(places)), mayAsk_(mayAsk) {}

    std::optional<std::filesystem::path> source() const override;
    std::vector<std::filesystem::path> applicationsFolders() const override {
        return {applicationsFolder()};
    }
    std::filesystem::path applicationsFolder() const override;
    std::vector<std::filesystem::path> downloadsFolders() const override;
    std::optional<std::string> mediumOf(const std::filesystem::path& folder) const override;
    bool exists(const std::filesystem::path& path) const override;
    bool isWritable(const std::filesystem::path& path) const override;

    bool canAuthorize() const override { return false; }
    AuthorizedInstallation
    authorizedInstall(const std::filesystem::path& /*source*/,
                      const std::filesystem::path& /*destination*/) override {
        return AuthorizedInstallation::kFailed;
    }

    /// One that runs has been shown before, instead of this process.
    bool isRunning(const std::filesystem::path& /*program*/) const override { return false; }
    void open(const std::filesystem::path& program) override { openAfterEnd(program); }

    std::optional<MovingError> copy(const std::filesystem::path& from,
                                    const std::filesystem::path& to) override;
    std::optional<MovingError> remove(const std::filesystem::path& path) override;
    std::optional<MovingError> recycle(const std::filesystem::path& path) override;

    /// In a session of its own and in the home folder. It waits for the end of this process
    /// itself (main.cpp).
    void openAfterEnd(const std::filesystem::path& program) override;
    /// The user does that.
    void ejectLater(const std::string& /*medium*/) override {}

private:
    Places places_;
    bool mayAsk_;
};

} // namespace panewright
