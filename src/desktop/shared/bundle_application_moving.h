#pragma once

#include "platform/application_moving.h"
#include "platform/authorization.h"
#include "platform/bundles.h"
#include "platform/child_processes.h"

namespace panewright {

/// Moves a bundle, with the command-line tools of a system whose programs are bundles.
class BundleApplicationMoving : public ApplicationMoving {
public:
    /// All of it must outlive this object.
    BundleApplicationMoving(Bundles& bundles, ChildProcesses& processes,
                            Authorization& authorization)
        : bundles_(bundles), processes_(processes), authorization_(authorization) {}

    std::optional<std::filesystem::path> source() const override { return bundles_.mainBundle(); }
    std::vector<std::filesystem::path> applicationsFolders() const override {
        return bundles_.applicationsFolders(Bundles::Domain::kAll);
    }
    std::filesystem::path applicationsFolder() const override;
    std::vector<std::filesystem::path> downloadsFolders() const override {
        return bundles_.downloadsFolders();
    }
    std::optional<std::string> mediumOf(const std::filesystem::path& folder) const override;
    bool exists(const std::filesystem::path& path) const override { return bundles_.exists(path); }
    bool isWritable(const std::filesystem::path& path) const override {
        return bundles_.isWritable(path);
    }
    bool canAuthorize() const override { return true; }
    AuthorizedInstallation authorizedInstall(const std::filesystem::path& source,
                                             const std::filesystem::path& destination) override;
    bool isRunning(const std::filesystem::path& program) const override;
    void open(const std::filesystem::path& program) override;
    std::optional<MovingError> copy(const std::filesystem::path& from,
                                    const std::filesystem::path& to) override {
        return bundles_.copyItem(from, to);
    }
    std::optional<MovingError> remove(const std::filesystem::path& path) override {
        return bundles_.removeItem(path);
    }
    std::optional<MovingError> recycle(const std::filesystem::path& path) override {
        return bundles_.recycle(path.parent_path(), path.filename());
    }
    void openAfterEnd(const std::filesystem::path& program) override;
    void ejectLater(const std::string& medium) override;

private:
    bool isToolkitNewer() const;
    bool replace(const std::filesystem::path& source, const std::filesystem::path& destination);

    Bundles& bundles_;
    ChildProcesses& processes_;
    Authorization& authorization_;
};

} // namespace panewright
