#include "desktop/freedesktop/ini_user_defaults.h"

#include "base/file.h"
#include "base/log.h"
#include "desktop/freedesktop/ini_value.h"
#include "desktop/freedesktop/xdg_folders.h"

#include <sys/stat.h>

#include <fmt/format.h>

namespace panewright {
namespace {

constexpr std::string_view kSection = "General";
/// In bytes. A larger file is left alone, and the settings last as long as the program.
constexpr std::size_t kMaxSize = std::size_t{1} << 20;

std::int64_t nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

} // namespace

std::filesystem::path IniUserDefaults::defaultFile() {
    const auto folder = xdgConfigHome();
    return folder ? *folder / kOwnFolderName / "Panewright.conf" : std::filesystem::path();
}

std::optional<DefaultsValue> IniUserDefaults::objectForKey(std::string_view key) const {
    readIfChanged();
    const auto text = document_.value(kSection, iniKeyOf(key));
    return text ? std::optional(iniValueOf(*text)) : std::nullopt;
}

void IniUserDefaults::setObject(std::string_view key, const DefaultsValue& value) {
    readIfChanged();
    const auto text = iniTextOf(value);
    if (!isDirty_ && document_.value(kSection, iniKeyOf(key)) == text) {
        return; // every start sets a key, which is no reason to wait for the disk
    }
    document_.setValue(kSection, iniKeyOf(key), text);
    write();
}

void IniUserDefaults::removeObjectForKey(std::string_view key) {
    readIfChanged();
    document_.removeValue(kSection, iniKeyOf(key));
    write();
}

void IniUserDefaults::synchronize() {
    if (isDirty_) {
        write();
    }
}

IniUserDefaults::Stamp IniUserDefaults::currentStamp() const {
    struct stat status {};
    if (::stat(file_.c_str(), &status) != 0) {
        return {};
    }
    return {static_cast<std::int64_t>(status.st_dev), static_cast<std::int64_t>(status.st_ino),
            status.st_size, nanoseconds(status.st_mtim), nanoseconds(status.st_ctim)};
}

void IniUserDefaults::readIfChanged() const {
    const Stamp stamp = currentStamp();
    if (file_.empty() || stamp == stamp_) {
        return;
    }
    const auto content = readFile(file_, kMaxSize);
    mayWrite_ = content || content.error().isNoSuchFile;
    if (content) {
        document_ = IniDocument(std::string(content.value().begin(), content.value().end()));
    } else if (mayWrite_) {
        document_ = IniDocument();
    } else {
        logOnce("Error reading settings: " + content.error().message);
    }
    stamp_ = stamp;
}

void IniUserDefaults::write() {
    if (file_.empty() || !mayWrite_) {
        return;
    }
    const std::string text = document_.text();
    auto error = createFolders(linkTarget(file_).parent_path());
    if (!error) {
        const auto written = writeFileAtomically(file_, Bytes(text.begin(), text.end()));
        error = written ? std::nullopt : std::optional(written.error());
    }
    isDirty_ = error.has_value();
    if (error) {
        logOnce("Error saving settings: " + error->message);
    } else {
        lastLogged_.clear();
        stamp_ = currentStamp();
    }
}

void IniUserDefaults::logOnce(const std::string& message) const {
    if (message != lastLogged_) {
        logLine(message);
        lastLogged_ = message;
    }
}

} // namespace panewright
