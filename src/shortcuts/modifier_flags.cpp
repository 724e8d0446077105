#include "shortcuts/modifier_flags.h"

#include "platform/hot_keys.h"

namespace panewright {
namespace {

struct FlagPair {
    std::uint64_t application;
    std::uint64_t hotKey;
};

constexpr FlagPair kFlagPairs[] = {
    {kCommandFlag, kHotKeyCommand}, {kShiftFlag, kHotKeyShift},     {kOptionFlag, kHotKeyOption},
    {kControlFlag, kHotKeyControl}, {kFunctionFlag, kFunctionFlag},
};

} // namespace

std::uint64_t cocoaToCarbonModifierFlags(std::uint64_t flags) {
    std::uint64_t converted = 0;
    for (const auto& pair : kFlagPairs) {
        converted |= (flags & pair.application) ? pair.hotKey : 0;
    }
    return converted;
}

std::uint64_t carbonToCocoaModifierFlags(std::uint64_t flags) {
    std::uint64_t converted = 0;
    for (const auto& pair : kFlagPairs) {
        converted |= (flags & pair.hotKey) ? pair.application : 0;
    }
    return converted;
}

} // namespace panewright
