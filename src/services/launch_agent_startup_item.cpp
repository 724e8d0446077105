#include "services/launch_agent_startup_item.h"

#include "base/file.h"

#include <utility>

namespace panewright {
namespace {

bool fileExists(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

void removeFile(const std::filesystem::path& path) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
}

} // namespace

LaunchAgentStartupItem::LaunchAgentStartupItem(const LoginItemFormat& format,
                                               std::string executablePath, std::string fileName,
                                               std::string label)
    : format_(format), executablePath_(std::move(executablePath)), fileName_(std::move(fileName)),
      label_(std::move(label)) {
    createAgentPath();
}

std::optional<std::filesystem::path> LaunchAgentStartupItem::installedAgentPath() const {
    const auto folder = launchAgentsPath();
    return fileName_.empty() || folder.empty()
               ? std::nullopt
               : std::optional(folder / format_.fileName(fileName_));
}

void LaunchAgentStartupItem::createAgentPath() const {
    if (const auto folder = launchAgentsPath(); !folder.empty()) {
        static_cast<void>(createFolders(folder)); // for the user alone
    }
}

void LaunchAgentStartupItem::install() const {
    if (const auto path = installedAgentPath()) {
        const auto content = format_.encode({label_, executablePath_, programArguments_});
        (void)writeFileAtomically(*path, Bytes(content.begin(), content.end()));
    }
}

void LaunchAgentStartupItem::uninstall() const {
    if (const auto path = installedAgentPath()) {
        removeFile(*path);
    }
}

bool LaunchAgentStartupItem::isInstalled() const {
    const auto path = installedAgentPath();
    if (!path || !fileExists(*path)) {
        return false;
    }
    const auto content = installedContent();
    return !content || !format_.isSwitchedOff(*content);
}

void LaunchAgentStartupItem::updateExecutablePath() const {
    const auto content = installedContent();
    const auto program = content ? format_.programIn(*content) : std::nullopt;
    if (program && (*program != executablePath_ || format_.isOutdated(*content)) &&
        !format_.isSwitchedOff(*content)) {
        uninstall();
        install();
    }
}

std::optional<std::string> LaunchAgentStartupItem::installedContent() const {
    const auto path = installedAgentPath();
    const auto bytes = path ? readFile(*path) : FileError{};
    return bytes ? std::optional(std::string(bytes.value().begin(), bytes.value().end()))
                 : std::nullopt;
}

} // namespace panewright
