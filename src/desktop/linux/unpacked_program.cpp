#include "desktop/linux/unpacked_program.h"

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <set>
#include <system_error>

namespace panewright {
namespace {

namespace fs = std::filesystem;

/// Names the files of the folder, itself too, one path in the folder a line.
constexpr const char* kFileList = "panewright-files.txt";

/// The files that the list names, and the folders that they are in, as paths in the folder.
std::set<fs::path> listedIn(const fs::path& folder) {
    std::set<fs::path> listed;
    std::ifstream list(folder / kFileList);
    for (std::string line; std::getline(list, line);) {
        // What is not in the folder matches nothing there.
        for (auto path = fs::path(line).relative_path(); !path.empty(); path = path.parent_path()) {
            listed.insert(path);
        }
    }
    return listed;
}

/// The first that the list does not name; nil if there is none, an error if that is not known.
std::optional<fs::path> foreignIn(const fs::path& folder, std::error_code& error) {
    const auto listed = listedIn(folder);
    fs::recursive_directory_iterator entries(folder, error);
    for (const fs::recursive_directory_iterator end; !error && entries != end;
         entries.increment(error)) {
        if (!listed.contains(entries->path().lexically_relative(folder))) {
            return entries->path();
        }
    }
    return std::nullopt;
}

/// The user can write to the copies of folders. On a CD the folders themselves allow nobody to.
void copyInto(const fs::path& to, const fs::path& from, std::error_code& error) {
    fs::create_directory(to, error);
    if (error) {
        return;
    }
    const fs::recursive_directory_iterator end;
    for (fs::recursive_directory_iterator entries(from, error); !error && entries != end;
         entries.increment(error)) {
        const auto copy = to / entries->path().lexically_relative(from);
        const auto status = entries->symlink_status();
        if (status.type() != fs::file_type::directory) {
            fs::copy(entries->path(), copy, fs::copy_options::copy_symlinks, error);
        } else if (fs::create_directory(copy, error)) {
            fs::permissions(copy, status.permissions() | fs::perms::owner_all, error);
        }
        if (error) {
            return; // before the increment clears it
        }
    }
}

/// Else a crash of the machine could leave files of no content under the new name.
void writeOut(const fs::path& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        syncfs(descriptor);
        close(descriptor);
    }
}

std::optional<std::string> textOf(const std::error_code& error) {
    return error ? std::optional(error.message()) : std::nullopt;
}

} // namespace

std::optional<fs::path> unpackedFolderOf(const fs::path& executable) {
    const auto folder = executable.parent_path().parent_path().parent_path();
    std::error_code ignored;
    return fs::is_regular_file(folder / kFileList, ignored) ? std::optional(folder) : std::nullopt;
}

std::optional<std::string> copyFolder(const fs::path& from, const fs::path& to) {
    const auto unfinished =
        to.parent_path() / ("." + to.filename().string() + "." + std::to_string(getpid()));
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    if (!error) {
        copyInto(unfinished, from, error);
    }
    if (!error) {
        writeOut(unfinished);
        fs::rename(unfinished, to, error);
    }
    if (error) {
        std::error_code ignored;
        fs::remove_all(unfinished, ignored);
    }
    return textOf(error);
}

std::optional<std::string> removeUnpackedFolder(const fs::path& folder) {
    std::error_code error;
    if (const auto foreign = foreignIn(folder, error)) {
        return foreign->string() + " is no file of Panewright's";
    }
    if (!error) {
        fs::remove_all(folder, error);
    }
    return textOf(error);
}

} // namespace panewright
