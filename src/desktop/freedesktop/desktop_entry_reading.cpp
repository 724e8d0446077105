#include "desktop/freedesktop/desktop_entry_reading.h"

#include "base/file.h"

#include <algorithm>
#include <system_error>

namespace panewright {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxDepth = 3;

// Of one file, and of all folders together. The largest of a full system are a tenth of these.
constexpr std::size_t kMaxFileBytes = std::size_t{256} << 10U;
constexpr std::size_t kMaxBytes = std::size_t{16} << 20U;
constexpr std::size_t kMaxEntries = 5000;
constexpr std::size_t kMaxItems = 20'000;
constexpr std::size_t kMaxSubfolders = 250;

// Of one step: the first that is reached ends it.
constexpr std::size_t kStepItems = 32;
constexpr std::size_t kStepBytes = std::size_t{64} << 10U;

} // namespace

bool DesktopEntryReading::readSome() {
    const auto firstItem = items_;
    const auto firstByte = bytes_;
    while (items_ - firstItem < kStepItems && bytes_ - firstByte < kStepBytes) {
        if (walk_ == fs::recursive_directory_iterator()) {
            if (!openNextFolder()) {
                return false;
            }
            continue;
        }
        if (items_ == kMaxItems || bytes_ >= kMaxBytes || entries_.size() == kMaxEntries) {
            isComplete_ = false;
            return false;
        }
        ++items_;
        take(*walk_);
        std::error_code ignored;
        walk_.increment(ignored);
    }
    return true;
}

bool DesktopEntryReading::openNextFolder() {
    if (next_ == folders_.size()) {
        return false;
    }
    const auto& folder = folders_[next_++];
    watch_.add(folder);
    std::error_code ignored;
    walk_ = fs::recursive_directory_iterator(folder, fs::directory_options::skip_permission_denied,
                                             ignored);
    return true;
}

void DesktopEntryReading::take(const fs::directory_entry& item) {
    std::error_code ignored;
    if (item.symlink_status(ignored).type() != fs::file_type::directory) {
        if (item.path().extension() == kDesktopEntryExtension) {
            takeFile(item.path());
        }
    } else if (walk_.depth() >= kMaxDepth || subfolders_ == kMaxSubfolders) {
        isComplete_ = isComplete_ && subfolders_ < kMaxSubfolders;
        walk_.disable_recursion_pending();
    } else {
        ++subfolders_;
        watch_.add(item.path());
    }
}

void DesktopEntryReading::takeFile(const fs::path& file) {
    auto id = file.lexically_relative(folders_[next_ - 1]).string();
    id.resize(id.size() - kDesktopEntryExtension.size());
    std::replace(id.begin(), id.end(), '/', '-');
    if (entries_.contains(id)) {
        return;
    }
    const auto content = readFile(file, kMaxFileBytes);
    if (!content) {
        return;
    }
    const auto& bytes = content.value();
    bytes_ += bytes.size();
    auto entry = parseDesktopEntry(std::string(bytes.begin(), bytes.end()), locales_);
    if (entry) {
        entry->id = id;
    }
    entries_.emplace(std::move(id), std::move(entry));
}

} // namespace panewright
