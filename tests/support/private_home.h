#pragma once

#include "support/temporary_folder.h"

#include <map>
#include <string>
#include <string_view>

namespace panewright::test {

using Environment = std::map<std::string, std::string>;

/// A user who has nothing but an empty folder, which goes with this object.
class PrivateHome {
public:
    PrivateHome();

    std::filesystem::path write(std::string_view name, const std::string& content) const;

    /// PATH, a plain locale, and HOME and the XDG folders inside the folder.
    Environment environment() const;

private:
    TemporaryFolder folder_;
};

} // namespace panewright::test
