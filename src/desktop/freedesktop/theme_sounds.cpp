#include "desktop/freedesktop/theme_sounds.h"

#include <canberra.h>
#include <fmt/format.h>

#include <cmath>
#include <dlfcn.h>
#include <string>

namespace panewright {
namespace {

constexpr std::uint32_t kSoundId = 1; // later ones need not be told apart

/// The functions of libcanberra that we call. Linked in the usual way, the library and the six that
/// it depends on would be mapped at each start, and a system without it could not start us.
struct Canberra {
    Canberra() {
        void* const library = dlopen("libcanberra.so.0", RTLD_LAZY | RTLD_LOCAL);
        if (!library) {
            return;
        }
        create = reinterpret_cast<decltype(create)>(dlsym(library, "ca_context_create"));
        destroy = reinterpret_cast<decltype(destroy)>(dlsym(library, "ca_context_destroy"));
        change = reinterpret_cast<decltype(change)>(dlsym(library, "ca_context_change_props"));
        play = reinterpret_cast<decltype(play)>(dlsym(library, "ca_context_play"));
        isThere = create && destroy && change && play;
    }

    decltype(&ca_context_create) create = nullptr;
    decltype(&ca_context_destroy) destroy = nullptr;
    decltype(&ca_context_change_props) change = nullptr;
    decltype(&ca_context_play) play = nullptr;
    bool isThere = false;
};

const Canberra& canberra() {
    static const Canberra kLoaded;
    return kLoaded;
}

std::string themeNameOf(std::string_view name) {
    if (name == kGlassSound) {
        return "complete";
    }
    return name == kPopSound ? "message" : std::string(name);
}

} // namespace

void ThemeSounds::ContextDeleter::operator()(ca_context* context) const {
    canberra().destroy(context);
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
        if (!canberra().isThere || canberra().create(&context) != CA_SUCCESS) {
            return false;
        }
        context_.reset(context);
        canberra().change(context, CA_PROP_APPLICATION_NAME, "Panewright", nullptr);
    }
    // libcanberra wants decibels relative to the sound's own volume.
    const float decibels = volume > 0 ? 20 * std::log10(volume) : -100;
    return canberra().play(context_.get(), kSoundId, CA_PROP_EVENT_ID, event,
                           CA_PROP_CANBERRA_VOLUME, fmt::format("{}", decibels).c_str(),
                           nullptr) == CA_SUCCESS;
}

} // namespace panewright
