#include "app/move_to_applications_folder.h"

#include "base/log.h"
#include "platform/alerts.h"
#include "platform/application_moving.h"
#include "platform/text_services.h"
#include "services/defaults.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panewright {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSuppressKey = "moveToApplicationsFolderAlertSuppress";
constexpr std::string_view kApplications = "Applications";

/// One move, as far as it is known before anybody is asked.
struct Move {
    fs::path source;
    fs::path destination;
    /// Nil where the source goes away with the move.
    std::optional<std::string> medium;
    bool needsAuthorization = false;
};

bool startsWithAny(const fs::path& path, const std::vector<fs::path>& folders) {
    return std::ranges::any_of(folders, [&](const fs::path& folder) {
        return path.native().starts_with(folder.native());
    });
}

/// Nil where nobody is to be asked.
std::optional<Move> neededMove(const MovingServices& services) {
    const auto& moving = services.moving;
    const auto source =
        Defaults(services.defaults).boolForKey(kSuppressKey) ? std::nullopt : moving.source();
    if (!source || startsWithAny(*source, moving.applicationsFolders()) ||
        std::ranges::find(*source, fs::path(kApplications)) != source->end()) {
        return std::nullopt;
    }
    const auto folder = moving.applicationsFolder();
    Move move{*source, folder / source->filename(), moving.mediumOf(source->parent_path())};
    move.needsAuthorization = !moving.isWritable(folder) || (moving.exists(move.destination) &&
                                                             !moving.isWritable(move.destination));
    return move.needsAuthorization && !moving.canAuthorize() ? std::nullopt : std::optional(move);
}

std::string informativeText(const Move& move, const MovingServices& services) {
    const auto& text = services.text;
    auto shown = text.localized("I can move myself to the Applications folder if you'd like.");
    if (move.needsAuthorization) {
        shown += ' ' + text.localized("Note that this will require an administrator password.");
    } else if (startsWithAny(move.source, services.moving.downloadsFolders())) {
        shown += ' ' + text.localized("This will keep your Downloads folder uncluttered.");
    }
    return shown;
}

/// Nil when the program ends while the question is open.
std::optional<bool> isWanted(const Move& move, const MovingServices& services) {
    const auto& text = services.text;
    const auto answer = services.alerts.runModal(
        {.messageText = text.localized("Move to Applications folder?"),
         .informativeText = informativeText(move, services),
         .buttons = {text.localized("Move to Applications Folder"), text.localized("Do Not Move")},
         .showsSuppressionButton = true});
    if (!answer) {
        return std::nullopt;
    }
    const bool isAccepted = answer->response == kAlertFirstButtonReturn;
    if (!isAccepted && answer->isSuppressed) {
        services.defaults.setObject(kSuppressKey, true);
    }
    return isAccepted;
}

enum class Copying { kDone, kSwitched, kCancelled, kFailed };

Copying copyWithAuthorization(const Move& move, ApplicationMoving& moving) {
    switch (moving.authorizedInstall(move.source, move.destination)) {
    case AuthorizedInstallation::kDone:
        return Copying::kDone;
    case AuthorizedInstallation::kCancelled:
        logLine("INFO -- Not moving because user canceled authorization");
        return Copying::kCancelled;
    case AuthorizedInstallation::kFailed:
        break;
    }
    logLine("ERROR -- Could not copy myself to /Applications with authorization");
    return Copying::kFailed;
}

Copying copyPlainly(const Move& move, ApplicationMoving& moving) {
    const auto destination = move.destination.string();
    if (moving.exists(move.destination)) {
        if (moving.isRunning(move.destination)) {
            logLine("INFO -- Switching to an already running version");
            moving.open(move.destination);
            return Copying::kSwitched;
        }
        if (!Trash(moving, move.destination)) {
            return Copying::kFailed;
        }
    }
    if (const auto error = moving.copy(move.source, move.destination)) {
        logLine(fmt::format("ERROR -- Could not copy '{}' to '{}' ({})", move.source.string(),
                            destination, error->message));
        logLine("ERROR -- Could not copy myself to " + destination);
        return Copying::kFailed;
    }
    return Copying::kDone;
}

void removeSource(const fs::path& source, ApplicationMoving& moving) {
    const auto error = moving.remove(source);
    if (!error) {
        return;
    }
    logLine(fmt::format("WARNING -- Could not delete '{}': {}", source.string(), error->message));
    if (!Trash(moving, source)) {
        logLine("WARNING -- Could not delete application after moving it to Applications folder");
    }
}

void handOver(const Move& move, ApplicationMoving& moving) {
    if (!move.medium) {
        removeSource(move.source, moving);
    }
    moving.openAfterEnd(move.destination);
    if (move.medium) {
        moving.ejectLater(*move.medium);
    }
}

AfterMoving showFailure(const MovingServices& services) {
    const auto& text = services.text;
    const auto answer = services.alerts.runModal(
        {.messageText = text.localized("Could not move to Applications folder"),
         .buttons = {text.localized("OK")}});
    return answer ? AfterMoving::kGoOn : AfterMoving::kEnd;
}

AfterMoving doMove(const Move& move, const MovingServices& services) {
    logLine("INFO -- Moving myself to the Applications folder");
    switch (move.needsAuthorization ? copyWithAuthorization(move, services.moving)
                                    : copyPlainly(move, services.moving)) {
    case Copying::kDone:
        handOver(move, services.moving);
        return AfterMoving::kEnd;
    case Copying::kSwitched:
        return AfterMoving::kEnd;
    case Copying::kCancelled:
        return AfterMoving::kGoOn;
    case Copying::kFailed:
        break;
    }
    return showFailure(services);
}

} // namespace

bool Trash(ApplicationMoving& moving, const fs::path& path) {
    if (moving.recycle(path)) {
        logLine(fmt::format("ERROR -- Could not trash '{}'", path.string()));
        return false;
    }
    return true;
}

AfterMoving PFMoveToApplicationsFolderIfNecessary(const MovingServices& services) {
    const auto move = neededMove(services);
    if (!move) {
        return AfterMoving::kGoOn;
    }
    const auto wanted = isWanted(*move, services);
    if (!wanted) {
        return AfterMoving::kEnd;
    }
    return *wanted ? doMove(*move, services) : AfterMoving::kGoOn;
}

} // namespace panewright
