#include "services/launch_agent_startup_item.h"

#include "base/file.h"

#include <utility>

namespace panewright {
namespace {

std::filesystem::path besideAgents(const LoginItemFormat& format,
                                   const std::filesystem::path& file) {
    return format.folder() / file.filename();
}

bool fileExists(const std::filesystem::path& path) {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

void removeFile(const std::filesystem::path& path) {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
}

void createAgentsFolder(const LoginItemFormat& format) {
    if (!format.folder().empty()) {
        (void)createFolders(format.folder());
    }
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
    createAgentsFolder(format_);
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

void installStartupLaunchdItem(const LoginItemFormat& format, const std::filesystem::path& file) {
    createAgentsFolder(format);
    std::error_code ignored;
    std::filesystem::copy_file(file, besideAgents(format, file), ignored);
}

void uninstallStartupLaunchdItem(const LoginItemFormat& format, const std::filesystem::path& file) {
    removeFile(besideAgents(format, file));
}

bool isStartupItemInstalled(const LoginItemFormat& format, const std::filesystem::path& file) {
    return fileExists(besideAgents(format, file));
}

} // namespace panewright
