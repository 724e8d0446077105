#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace panewright {

/// Who we are: the facts of the program's main bundle, which stay the same while it runs. Callable
/// from any thread.
class ProgramInformation {
public:
    virtual ~ProgramInformation() = default;

    virtual std::string bundleIdentifier() const = 0;

    /// What people call the version, such as "1.2.8", and the number of the build.
    virtual std::string shortVersion() const = 0;
    virtual std::string buildVersion() const = 0;

    /// The address of the site that the product's pages are on, such as "https://example.org";
    /// empty if it has none.
    virtual std::string website() const = 0;

    /// The address of the feed that names newer versions; empty if there is none.
    virtual std::string updateFeed() const = 0;

    /// The help page that is installed with the program, in that language (ISO 639-1), as an HTML
    /// file; nil if it is missing.
    virtual std::optional<std::filesystem::path> helpPage(std::string_view language) const = 0;

    /// The file name of the program.
    virtual std::string executableName() const = 0;

    /// Absolute path of what starts this program, for those who start it later.
    virtual std::string executablePath() const = 0;
};

} // namespace panewright
