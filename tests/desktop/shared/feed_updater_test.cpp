#include "desktop/shared/feed_updater.h"

#include "desktop/memory/memory_desktop.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// Answers when a test says so.
class AnsweredFeed : public UpdateFeed {
public:
    Registration look(const std::string& address,
                      std::function<void(const FeedAnswer&)> answered) override {
        addresses.push_back(address);
        last = std::chrono::system_clock::now();
        answer = std::move(answered);
        return Registration([this] { answer = nullptr; });
    }
    std::optional<std::chrono::system_clock::time_point> lastLook() const override { return last; }

    std::vector<std::string> addresses;
    std::function<void(const FeedAnswer&)> answer;
    std::optional<std::chrono::system_clock::time_point> last;
};

class FeedUpdaterTest : public testing::Test {
protected:
    FeedUpdaterTest() {
        desktop_.program.feed = "https://example.org/feed";
        updater_.setWillShowHandler([this] { ++timesTold_; });
    }
    /// What the window says, both texts; empty without one.
    std::string shown() const {
        const auto& alert = desktop_.alerts.open;
        return alert ? alert->messageText + " " + alert->informativeText : "";
    }
    void answer(const FeedAnswer& known) {
        const auto answered = feed_.answer;
        answered(known);
    }

    MemoryDesktop desktop_;
    AnsweredFeed feed_;
    FeedUpdater updater_{{feed_, desktop_.alerts, desktop_.mainLoop, desktop_.program,
                          desktop_.text, desktop_.userDefaults, desktop_.workspace}};
    int timesTold_ = 0;
};

TEST_F(FeedUpdaterTest, AlwaysAnswersWhoAsks) {
    using Cause = FeedFailure::Cause;
    const std::string isThere = "Panewright 9.0 is there. You have version 1.2.8.";
    const std::string unknown = "Nobody knows whether there is a newer version. ";
    const std::pair<FeedAnswer, std::string> cases[] = {
        {NewerVersion{"9.0", "https://x"}, isThere},
        {NewerVersion{"9.0", ""}, isThere},
        {NoNewerVersion{}, "You have the newest version of Panewright. It is version 1.2.8."},
        {FeedFailure{Cause::kUnreachable, "%@ no"},
         unknown + "The list of versions could not be fetched: %@ no"},
        {FeedFailure{Cause::kForbidden, "ftp:x"},
         unknown + "New versions are looked for over HTTPS only, not at ftp:x."},
        {FeedFailure{Cause::kMalformed, "x"},
         unknown + "What the server sent is no list of versions: x"},
    };
    for (const auto& [known, text] : cases) {
        const bool isShownUnasked = text == isThere;
        for (const bool isAsked : {true, false}) {
            timesTold_ = 0;
            updater_.checkForUpdatesInBackground();
            if (isAsked) {
                updater_.checkForUpdates(); // joins the one that is on its way
            }
            answer(known);
            EXPECT_EQ(shown(), isAsked || isShownUnasked ? text : "");
            EXPECT_EQ(timesTold_, isAsked || isShownUnasked ? 1 : 0);
            if (desktop_.alerts.open) {
                desktop_.alerts.press(0);
            }
        }
    }
    EXPECT_EQ(feed_.addresses.size(), 2 * std::size(cases));
    EXPECT_THAT(desktop_.workspace.openedUrls, testing::ElementsAre("https://x", "https://x"));
}

TEST_F(FeedUpdaterTest, SaysHowVersionsComeWhereThereIsNoFeed) {
    desktop_.program.feed = "";
    updater_.checkForUpdatesInBackground();
    EXPECT_EQ(shown(), "");
    updater_.checkForUpdates();
    EXPECT_THAT(shown(), testing::HasSubstr("with the packages of your system"));
    EXPECT_EQ(timesTold_, 1);
    desktop_.userDefaults.setObject("UpdateFeed", std::string("https://mine"));
    updater_.checkForUpdates();
    EXPECT_THAT(feed_.addresses, testing::ElementsAre("https://mine"));
}

TEST_F(FeedUpdaterTest, LooksOnceADayOnlyWhereThatIsWanted) {
    const auto start = [this] {
        return FeedUpdater({feed_, desktop_.alerts, desktop_.mainLoop, desktop_.program,
                            desktop_.text, desktop_.userDefaults, desktop_.workspace});
    };
    {
        const auto updater = start();
        desktop_.mainLoop.advance(48h);
        EXPECT_THAT(feed_.addresses, testing::IsEmpty());
    }
    desktop_.userDefaults.setObject("CheckForUpdatesDaily", true);
    {
        const auto updater = start();
        desktop_.mainLoop.advance(59s);
        EXPECT_THAT(feed_.addresses, testing::IsEmpty());
        desktop_.mainLoop.advance(1s);
        EXPECT_THAT(feed_.addresses, testing::SizeIs(1));
    }
    feed_.last = std::chrono::system_clock::now() - 23h;
    const auto updater = start();
    desktop_.mainLoop.advance(59min);
    EXPECT_THAT(feed_.addresses, testing::SizeIs(1)) << "somebody looked less than a day ago";
    feed_.last = std::chrono::system_clock::now() - 25h;
    desktop_.mainLoop.advance(3min);
    EXPECT_THAT(feed_.addresses, testing::SizeIs(2));
}

} // namespace
} // namespace panewright
