#include "support/captured_log.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(Log, KeepsTheNewestLinesForWhoTellsOfACrash) {
    const CapturedLog log;
    for (std::size_t i = 0; i < 2 * kKeptLogLines; ++i) {
        logLine(std::to_string(i));
    }
    logLine(std::string(5000, 'x'));
    EXPECT_EQ(keptLogLine(0), std::string(240, 'x'));
    EXPECT_EQ(keptLogLine(1), std::to_string(2 * kKeptLogLines - 1));
    EXPECT_EQ(keptLogLine(kKeptLogLines - 1), std::to_string(kKeptLogLines + 1));
    EXPECT_EQ(keptLogLine(kKeptLogLines), "");
}

} // namespace
} // namespace panewright
