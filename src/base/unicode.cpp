#include "base/unicode.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace panewright {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD"; // U+FFFD

/// The length of the well-formed sequence at the start of the text, 0 if there is none.
std::size_t sequenceLength(std::string_view text) {
    struct Form {
        unsigned char firstLead, lastLead, firstSecond, lastSecond;
        std::size_t length;
    };
    // The second byte's range leaves out overlong forms, surrogates and what lies past U+10FFFF.
    static constexpr std::array<Form, 8> kForms{{{0xC2, 0xDF, 0x80, 0xBF, 2},
                                                 {0xE0, 0xE0, 0xA0, 0xBF, 3},
                                                 {0xE1, 0xEC, 0x80, 0xBF, 3},
                                                 {0xED, 0xED, 0x80, 0x9F, 3},
                                                 {0xEE, 0xEF, 0x80, 0xBF, 3},
                                                 {0xF0, 0xF0, 0x90, 0xBF, 4},
                                                 {0xF1, 0xF3, 0x80, 0xBF, 4},
                                                 {0xF4, 0xF4, 0x80, 0x8F, 4}}};
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    if (byte(0) < 0x80) {
        return 1;
    }
    for (const Form& form : kForms) {
        if (byte(0) < form.firstLead || byte(0) > form.lastLead || text.size() < form.length ||
            byte(1) < form.firstSecond || byte(1) > form.lastSecond) {
            continue;
        }
        for (std::size_t index = 2; index < form.length; ++index) {
            if (byte(index) < 0x80 || byte(index) > 0xBF) {
                return 0;
            }
        }
        return form.length;
    }
    return 0;
}

/// Zs of the Unicode Character Database, and the tab.
constexpr std::array<std::string_view, 18> kWhitespace{
    "\t",     " ",      "\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004",
    "\u2005", "\u2006", "\u2007", "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000"};

/// How much of the start of the text is well-formed.
std::size_t wellFormedLength(std::string_view text) {
    const char* const end = text.data() + text.size();
    const char* at = text.data();
    for (std::size_t length = 1; length > 0 && at != end;) {
        while (at != end && static_cast<signed char>(*at) >= 0) {
            ++at; // ASCII, which most texts are
        }
        length = at == end ? 0 : sequenceLength({at, static_cast<std::size_t>(end - at)});
        at += length;
    }
    return static_cast<std::size_t>(at - text.data());
}

/// Calls back with the parts that the mended text consists of.
template <class Take>
void mend(std::string_view text, Take take) {
    while (!text.empty()) {
        const std::size_t length = wellFormedLength(text);
        take(text.substr(0, length));
        text.remove_prefix(length);
        if (!text.empty()) {
            take(kReplacement);
            text.remove_prefix(1);
        }
    }
}

} // namespace

std::string wellFormedUtf8(std::string_view text) {
    std::string mended;
    mended.reserve(wellFormedUtf8Size(text));
    mend(text, [&](std::string_view part) { mended += part; });
    return mended;
}

bool isBlank(std::string_view text) {
    while (!text.empty()) {
        const auto* const space = std::ranges::find_if(
            kWhitespace, [&](std::string_view each) { return text.starts_with(each); });
        if (space == kWhitespace.end()) {
            return false;
        }
        text.remove_prefix(space->size());
    }
    return true;
}

std::size_t wellFormedUtf8Size(std::string_view text) {
    std::size_t size = 0;
    mend(text, [&](std::string_view part) { size += part.size(); });
    return size;
}

} // namespace panewright
