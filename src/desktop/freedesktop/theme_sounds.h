#pragma once

#include "platform/beeper.h"
#include "platform/sounds.h"

#include <memory>

struct ca_context;

namespace panewright {

/// Sounds of the desktop's sound theme (freedesktop.org, "Sound Theme Specification"), through
/// libcanberra, which is loaded when something is to be heard.
class ThemeSounds : public Beeper, public Sounds {
public:
    /// `bell` is heard where there is no theme, no libcanberra or nothing to play it with.
    explicit ThemeSounds(Beeper& bell) : bell_(bell) {}

    void beep() override;

    /// "Glass" and "Pop" stand for the theme's sounds of completion and of a message; other names
    /// are the theme's own.
    void play(std::string_view name, float volume) override;

private:
    bool playEvent(const char* event, float volume);

    struct ContextDeleter {
        void operator()(ca_context* context) const;
    };

    Beeper& bell_;
    std::unique_ptr<ca_context, ContextDeleter> context_;
};

} // namespace panewright
