#pragma once

#include "base/registration.h"
#include "desktop/shared/update_feed.h"
#include "platform/software_updater.h"

#include <functional>
#include <string>

namespace panewright {

class Alerts;
class MainLoop;
class ProgramInformation;
class TextServices;
class UserDefaults;
class Workspace;

/// Tells the user of newer versions that a feed names, and shows the page about them; nothing is
/// downloaded. For desktops whose system does not update programs. The user defaults, which are
/// only read: "UpdateFeed", the feed's address, in the place of the program's own; and
/// "CheckForUpdatesDaily", whether to look without being asked, once a day at most.
class FeedUpdater : public SoftwareUpdater {
public:
    /// All of it must outlive the updater.
    struct Services {
        UpdateFeed& feed;
        Alerts& alerts;
        MainLoop& mainLoop;
        const ProgramInformation& program;
        const TextServices& text;
        UserDefaults& defaults;
        Workspace& workspace;
    };

    explicit FeedUpdater(const Services& services);

    void setWillShowHandler(std::function<void()> handler) override {
        willShow_ = std::move(handler);
    }
    void checkForUpdates() override;
    void checkForUpdatesInBackground() override;

private:
    std::string address() const;
    void check();
    void checkLater(std::chrono::milliseconds delay);
    void checkIfDue();
    void answered(const FeedAnswer& answer);
    void show(const NewerVersion& newer);
    void show(const NoNewerVersion& none);
    void show(const FeedFailure& failure);
    void say(const std::string& message, const std::string& informative);

    Services services_;
    std::function<void()> willShow_;
    bool wasAsked_ = false; // by the user, who is to be told in any case
    Registration look_;     // while somebody looks
    Registration question_;
    Registration nextCheck_;
};

} // namespace panewright
