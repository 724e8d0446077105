#include "desktop/qt/event_journal.h"

#include "desktop/memory/memory_user_defaults.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace panewright {
namespace {

TEST(EventJournal, KeepsEventsOnlyWhereTheUserWantsIt) {
    const TemporaryFolder state;
    const auto folder = state.path() / "Panewright";
    const auto file = folder / "events.jsonl";
    const auto older = folder / "events.jsonl.1";
    MemoryUserDefaults defaults;
    EventJournal(folder, defaults).logCustomEvent("ShowSettings", {});
    EXPECT_FALSE(std::filesystem::exists(folder));

    defaults.setObject("KeepUsageEvents", std::string("yes")); // as people type it
    EventJournal journal(folder, defaults);
    journal.logCustomEvent("OpenMenu", {{"WasFlat", "1"}});
    journal.logCustomEvent("ApplyWindowState",
                           {{"IsDefault", 1}, {"WindowStateName", "\"a\"\n\xff\u2026"}});
    EXPECT_THAT(contentOf(file),
                testing::MatchesRegex(
                    R"(\{"attributes":\{"WasFlat":"1"\},"event":"OpenMenu","time":"[-0-9T:.]+Z"\})"
                    "\n"
                    R"(\{"attributes":\{"IsDefault":1,"WindowStateName":"\\"a\\"\\n...…"\},.*)"
                    "\n"));
    EXPECT_EQ(modeOf(file), 0600);

    const std::string name(100'000, 'x');
    for (int i = 0; i < 25; ++i) {
        journal.logCustomEvent(name, {});
    }
    EXPECT_LE(std::filesystem::file_size(file), 1U << 20);
    EXPECT_GT(std::filesystem::file_size(older), 900'000U);

    defaults.removeObjectForKey("KeepUsageEvents");
    const EventJournal next(folder, defaults);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    EventJournal(std::nullopt, defaults).logCustomEvent("ShowSettings", {});
}

} // namespace
} // namespace panewright
