#pragma once

#include "desktop/freedesktop/ini_document.h"
#include "platform/user_defaults.h"

#include <array>
#include <cstdint>
#include <filesystem>

namespace panewright {

/// The settings in the section [General] of an INI file, which the user may edit while the program
/// runs: it is read again when it has changed, and everything else in it is kept. Each change is
/// written at once.
class IniUserDefaults : public UserDefaults {
public:
    /// The file need not exist; with an empty path the settings last as long as the object.
    explicit IniUserDefaults(std::filesystem::path file) : file_(std::move(file)) {}

    /// "Panewright/Panewright.conf" in the user's configuration folder.
    static std::filesystem::path defaultFile();

    std::optional<DefaultsValue> objectForKey(std::string_view key) const override;
    void setObject(std::string_view key, const DefaultsValue& value) override;
    void removeObjectForKey(std::string_view key) override;
    void synchronize() override;

private:
    /// Tells one version of the file from another: device, inode, size, times in ns. All zero
    /// without a file.
    using Stamp = std::array<std::int64_t, 5>;

    Stamp currentStamp() const;
    void readIfChanged() const;
    void write();
    void logOnce(const std::string& message) const;

    std::filesystem::path file_;
    // Reading is a look at the file, so it brings these up to date.
    mutable IniDocument document_;
    mutable Stamp stamp_{};
    mutable bool mayWrite_ = true; // false while the file is there but cannot be read
    mutable std::string lastLogged_;
    bool isDirty_ = false;
};

} // namespace panewright
