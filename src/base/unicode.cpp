#include "base/unicode.h"

#include <array>
#include <cstddef>
#include <string_view>

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

} // namespace

std::string wellFormedUtf8(std::string text) {
    std::size_t done = 0;
    while (done < text.size()) {
        const std::size_t length = sequenceLength(std::string_view(text).substr(done));
        if (length == 0) {
            text.replace(done, 1, kReplacement);
        }
        done += length == 0 ? kReplacement.size() : length;
    }
    return text;
}

} // namespace panewright
