#include "desktop/linux/update_process.h"

#include "base/file.h"
#include "base/retried.h"
#include "desktop/linux/spawned_program.h"
#include "installation/program_places.h"
#include "platform/main_loop.h"
#include "platform/program_information.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <sstream>
#include <utility>

namespace panewright {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr const char* kProgram = "panewright-updates";
constexpr const char* kLastLookFile = "last-update-check";

/// The program limits itself to less.
constexpr auto kLongest = 60s;
constexpr std::size_t kMostOutput = 64 << 10;

FeedAnswer failure(FeedFailure::Cause cause, std::string message) {
    return FeedFailure{cause, std::move(message)};
}

} // namespace

/// A child that looks, and what it has printed. Ending it is always safe: it keeps nothing.
struct UpdateProcess::Look {
    Look() = default;
    ~Look() {
        readable.release();
        close(output);
        if (child) {
            kill(*child, SIGKILL);
            retried([&] { return waitpid(*child, nullptr, 0); });
        }
    }
    Look(const Look&) = delete;
    Look& operator=(const Look&) = delete;

    std::optional<pid_t> child;
    int output = -1;
    std::string printed;
    Registration readable;
    Registration timeLimit;
};

FeedAnswer feedAnswerIn(const std::string& output) {
    std::istringstream lines(output);
    std::string word;
    std::string text;
    std::string page;
    std::getline(lines, word);
    std::getline(lines, text);
    std::getline(lines, page);
    if (word == "newer" && !text.empty()) {
        return NewerVersion{text, page};
    }
    if (word == "none") {
        return NoNewerVersion{};
    }
    if (word == "forbidden") {
        return failure(FeedFailure::Cause::kForbidden, text);
    }
    if (word == "malformed") {
        return failure(FeedFailure::Cause::kMalformed, text);
    }
    return failure(FeedFailure::Cause::kUnreachable,
                   word == "unreachable" ? text : "panewright-updates has failed");
}

UpdateProcess::UpdateProcess(MainLoop& mainLoop, const ProgramInformation& program,
                             std::optional<fs::path> stateFolder)
    : mainLoop_(mainLoop), program_(program), stateFolder_(std::move(stateFolder)) {}

Registration UpdateProcess::look(const std::string& address,
                                 std::function<void(const FeedAnswer&)> answered) {
    noteLook();
    std::array<int, 2> ends{-1, -1};
    const auto file = ownExecutable().parent_path() / kProgram;
    const auto look = std::make_shared<Look>();
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) == 0) {
        look->output = ends[0];
        look->child =
            spawnProgram({file, address, program_.buildVersion()}, {.standardOutput = ends[1]});
        close(ends[1]);
    }
    const auto finish = [look, answered = std::move(answered)](const FeedAnswer& answer) {
        look->readable.release();
        look->timeLimit.release();
        answered(answer);
    };
    if (!look->child) {
        look->timeLimit = mainLoop_.after(0ms, [finish] { finish(feedAnswerIn("")); });
        return Registration([look] { look->timeLimit.release(); });
    }
    look->readable = mainLoop_.whenReadable(look->output, [look = look.get(), finish] {
        std::array<char, 4096> bytes{};
        const auto count = retried([&] { return read(look->output, bytes.data(), bytes.size()); });
        if (count > 0 && look->printed.size() < kMostOutput) {
            look->printed.append(bytes.data(), static_cast<std::size_t>(count));
        } else if (count >= 0 || errno != EAGAIN) {
            finish(feedAnswerIn(look->printed));
        }
    });
    look->timeLimit = mainLoop_.after(
        kLongest, [finish] { finish(feedAnswerIn("unreachable\nit takes too long\n")); });
    return Registration([look] {
        look->readable.release();
        look->timeLimit.release();
    });
}

std::optional<std::chrono::system_clock::time_point> UpdateProcess::lastLook() const {
    struct stat status {};
    if (!stateFolder_ || stat((*stateFolder_ / kLastLookFile).c_str(), &status) != 0) {
        return std::nullopt;
    }
    return std::chrono::system_clock::from_time_t(status.st_mtime);
}

void UpdateProcess::noteLook() const {
    if (stateFolder_ && !createFolders(*stateFolder_)) {
        std::ofstream(*stateFolder_ / kLastLookFile) << '\n';
    }
}

} // namespace panewright
