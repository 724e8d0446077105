// What every library of texts knows.

#include "desktop/memory/memory_services.h"
#include "desktop/qt/qt_text_services.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(TextServicesContract, UppercasesAndTrims) {
    const MemoryTextServices memory;
    const QtTextServices qt;
    for (const TextServices* services : std::initializer_list<const TextServices*>{&memory, &qt}) {
        EXPECT_EQ(services->upperCased("a1z`"), "A1Z`");
        EXPECT_EQ(services->trimmedOfWhitespace(" \t two words\n \t"), "two words\n");
        EXPECT_LT(services->localizedCaseInsensitiveCompare("alpha", "BETA"), 0);
        EXPECT_GT(services->localizedCaseInsensitiveCompare("beta", "ALPHA"), 0);
        EXPECT_EQ(services->localizedCaseInsensitiveCompare("Editor", "eDITOR"), 0);
        EXPECT_EQ(services->localized("no translation"), "no translation");
    }
    EXPECT_EQ(qt.upperCased("éß\xFF"), "ÉSS\uFFFD");
    EXPECT_EQ(qt.trimmedOfWhitespace("\u2003wide\u00A0"), "wide");
}

} // namespace
} // namespace panewright
