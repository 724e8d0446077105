#include "model/store_lock.h"

#include "base/log.h"
#include "model/application_folders.h"
#include "model/store_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <fmt/format.h>

#include <cerrno>
#include <system_error>

namespace panewright {

StoreLock::StoreLock(const StandardFolders& folders) {
    const auto folder = applicationSupportDirectoryURLWithDirName(folders, kStoreFolderName);
    if (!folder) {
        return; // which has been logged
    }
    const std::filesystem::path file = *folder / (std::string(kStoreFileName) + ".lock");
    descriptor_ = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    // A lock of the open file, not of the process: those are lost as soon as any part of the
    // process closes the file.
    if (descriptor_ >= 0 && ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0) {
        outcome_ = Outcome::kHeld;
    } else if (descriptor_ >= 0 && errno == EWOULDBLOCK) {
        outcome_ = Outcome::kHeldByAnother;
    } else {
        logLine(fmt::format("Error locking {}: {}", file.string(),
                            std::generic_category().message(errno)));
    }
}

StoreLock::~StoreLock() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

} // namespace panewright
