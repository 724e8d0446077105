#include "base/unicode.h"

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(Unicode, CountsSpaceSeparatorsAndTheTabAsWhiteSpace) {
    for (const char* blank : {"", " ", "\t \t", "\u00A0", "\u2003 \u3000\u205F\u1680"}) {
        EXPECT_TRUE(isBlank(blank)) << blank;
    }
    for (const char* text : {"a", " a ", "\n", " \r", "\u200B", "\u2028", "\xC2", "\xFF"}) {
        EXPECT_FALSE(isBlank(text)) << text;
    }
}

} // namespace
} // namespace panewright
