#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace panewright::test {

using Environment = std::map<std::string, std::string>;

/// A folder that goes with its object, and the environment of a user who has nothing but it.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path write(std::string_view name, std::string_view content) const;

    /// PATH, a plain locale, and HOME and the XDG folders inside this folder.
    Environment environment() const;

private:
    std::filesystem::path path_;
};

} // namespace panewright::test
