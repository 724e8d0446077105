#include "desktop/shared/feed_updater.h"

#include "base/text_with.h"
#include "platform/alerts.h"
#include "platform/main_loop.h"
#include "platform/program_information.h"
#include "platform/text_services.h"
#include "platform/workspace.h"
#include "services/defaults.h"

#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kFeedKey = "UpdateFeed";
constexpr std::string_view kDailyKey = "CheckForUpdatesDaily";

/// The start has other things to do.
constexpr auto kFirstCheck = 60s;
constexpr auto kBetweenChecks = 24h;

} // namespace

FeedUpdater::FeedUpdater(const Services& services) : services_(services) {
    checkLater(kFirstCheck);
}

/// Without the setting no timer wakes the program up.
void FeedUpdater::checkLater(std::chrono::milliseconds delay) {
    if (Defaults(services_.defaults).boolForKey(kDailyKey)) {
        nextCheck_ = services_.mainLoop.after(delay, [this] { checkIfDue(); });
    }
}

void FeedUpdater::checkIfDue() {
    const auto last = services_.feed.lastLook();
    const auto now = std::chrono::system_clock::now();
    const bool isDue = !last || *last > now || now - *last >= kBetweenChecks;
    if (isDue) {
        checkForUpdatesInBackground();
    }
    checkLater(isDue ? kBetweenChecks
                     : std::chrono::duration_cast<std::chrono::milliseconds>(kBetweenChecks -
                                                                             (now - *last)));
}

std::string FeedUpdater::address() const {
    const auto value = services_.defaults.objectForKey(kFeedKey);
    const auto* const feed = value ? std::get_if<std::string>(&*value) : nullptr;
    return feed ? *feed : services_.program.updateFeed();
}

void FeedUpdater::checkForUpdates() {
    if (address().empty()) {
        const auto& text = services_.text;
        say(text.localized("Panewright does not look for new versions by itself."),
            text.localized("A new version comes the way this one did: with the packages of your "
                           "system, or as a tarball."));
        return;
    }
    wasAsked_ = true;
    check();
}

void FeedUpdater::checkForUpdatesInBackground() {
    if (!address().empty()) {
        check();
    }
}

void FeedUpdater::check() {
    if (!look_) {
        look_ =
            services_.feed.look(address(), [this](const FeedAnswer& answer) { answered(answer); });
    }
}

void FeedUpdater::answered(const FeedAnswer& answer) {
    look_.release();
    if (std::exchange(wasAsked_, false) || std::holds_alternative<NewerVersion>(answer)) {
        std::visit([this](const auto& known) { show(known); }, answer);
    }
}

void FeedUpdater::show(const NewerVersion& newer) {
    const auto& text = services_.text;
    const auto message = textWith(text.localized("Panewright %@ is there."), newer.version);
    const auto ours =
        textWith(text.localized("You have version %@."), services_.program.shortVersion());
    if (newer.page.empty()) {
        say(message, ours);
        return;
    }
    if (willShow_) {
        willShow_();
    }
    question_ = services_.alerts.ask(
        {.messageText = message,
         .informativeText = ours,
         .style = AlertStyle::kInformational,
         .buttons = {text.localized("Show in Browser"), text.localized("Not Now")}},
        [this, page = newer.page](int response) {
            if (response == kAlertFirstButtonReturn) {
                services_.workspace.openUrl(page);
            }
        });
}

void FeedUpdater::show(const NoNewerVersion& /*none*/) {
    const auto& text = services_.text;
    say(text.localized("You have the newest version of Panewright."),
        textWith(text.localized("It is version %@."), services_.program.shortVersion()));
}

void FeedUpdater::show(const FeedFailure& failure) {
    const auto& text = services_.text;
    const auto why = [&] {
        switch (failure.cause) {
        case FeedFailure::Cause::kForbidden:
            return text.localized("New versions are looked for over HTTPS only, not at %@.");
        case FeedFailure::Cause::kMalformed:
            return text.localized("What the server sent is no list of versions: %@");
        case FeedFailure::Cause::kUnreachable:
            break;
        }
        return text.localized("The list of versions could not be fetched: %@");
    }();
    say(text.localized("Nobody knows whether there is a newer version."),
        textWith(why, failure.message));
}

void FeedUpdater::say(const std::string& message, const std::string& informative) {
    if (willShow_) {
        willShow_();
    }
    question_ = services_.alerts.ask({.messageText = message,
                                      .informativeText = informative,
                                      .style = AlertStyle::kInformational,
                                      .buttons = {services_.text.localized("OK")}},
                                     [](int /*response*/) {});
}

} // namespace panewright
