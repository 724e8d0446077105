#include "installation/program_places.h"

#include <array>
#include <system_error>

namespace panewright {
namespace {

namespace fs = std::filesystem;

const fs::path kProgramFolder = "libexec/panewright";
constexpr const char* kFileName = "panewright";

std::optional<fs::path> firstFile(const std::array<fs::path, 2>& candidates) {
    for (const auto& candidate : candidates) {
        std::error_code ignored;
        if (fs::is_regular_file(candidate, ignored)) {
            return candidate;
        }
    }
    return std::nullopt;
}

} // namespace

fs::path ownExecutable() {
    std::error_code ignored;
    return fs::read_symlink("/proc/self/exe", ignored);
}

std::optional<fs::path> programOfCommand(const fs::path& command) {
    const auto folder = command.parent_path();
    return firstFile(
        {folder / kProgramFolder / kFileName, folder.parent_path() / kProgramFolder / kFileName});
}

std::optional<fs::path> commandOfProgram(const fs::path& program) {
    const auto folder = program.parent_path();
    if (!folder.string().ends_with("/" + kProgramFolder.string())) {
        return std::nullopt;
    }
    const auto prefix = folder.parent_path().parent_path();
    return firstFile({prefix / "bin" / kFileName, prefix / kFileName});
}

} // namespace panewright
