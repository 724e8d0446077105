#include "desktop/freedesktop/theme_sounds.h"

#include <canberra.h>
#include <fmt/format.h>

#include <cmath>
#include <string>

namespace panewright {
namespace {

constexpr std::uint32_t kSoundId = 1; // later ones need not be told apart

std::string themeNameOf(std::string_view name) {
    if (name == "Glass") {
        return "complete";
    }
    return name == "Pop" ? "message" : std::string(name);
}

} // namespace

void ThemeSounds::ContextDeleter::operator()(ca_context* context) const {
    ca_context_destroy(context);
}

void ThemeSounds::beep() {
    if (!playEvent("bell", 1)) {
        bell_.beep();
    }
}

void ThemeSounds::play(std::string_view name, float volume) {
    playEvent(themeNameOf(name).c_str(), volume);
}

bool ThemeSounds::playEvent(const char* event, float volume) {
    if (!context_) {
        ca_context* context = nullptr;
        if (ca_context_create(&context) != CA_SUCCESS) {
            return false;
        }
        context_.reset(context);
        ca_context_change_props(context, CA_PROP_APPLICATION_NAME, "Panewright", nullptr);
    }
    // libcanberra wants decibels relative to the sound's own volume.
    const float decibels = volume > 0 ? 20 * std::log10(volume) : -100;
    return ca_context_play(context_.get(), kSoundId, CA_PROP_EVENT_ID, event,
                           CA_PROP_CANBERRA_VOLUME, fmt::format("{}", decibels).c_str(),
                           nullptr) == CA_SUCCESS;
}

} // namespace panewright
