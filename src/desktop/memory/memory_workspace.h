#pragma once

#include "desktop/memory/memory_windows.h"
#include "platform/workspace.h"

#include <string>
#include <vector>

namespace panewright {

/// The programs of MemoryWindows.
class MemoryWorkspace : public Workspace {
public:
    MemoryWorkspace(MemoryWindows& windows, ProcessId ownPid)
        : windows_(windows), ownPid_(ownPid) {}

    std::optional<RunningApplication> frontmostApplication() const override {
        return windows_.frontmost();
    }
    Registration onApplicationActivated(std::function<void()> callback) override {
        return windows_.onActivation(std::move(callback));
    }
    void bringThisApplicationToFront() override { windows_.activateApplication(ownPid_); }
    void hideThisApplication() override { windows_.activateApplicationBefore(ownPid_); }
    void openUrl(const std::string& url) override { openedUrls.push_back(url); }
    void openFile(const std::filesystem::path& file) override { openedFiles.push_back(file); }
    void launchApplication(const std::string& bundlePath) override {
        launched.push_back(bundlePath);
    }

    std::vector<std::string> openedUrls;
    std::vector<std::filesystem::path> openedFiles;
    std::vector<std::string> launched;

private:
    MemoryWindows& windows_;
    ProcessId ownPid_;
};

} // namespace panewright
