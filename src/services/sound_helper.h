#pragma once

#include "platform/sounds.h"

#include <string_view>

namespace panewright {

/// Plays the system's sounds. Volumes go from 0 to 1.
class SoundHelper {
public:
    explicit SoundHelper(Sounds& sounds) : sounds_(sounds) {}

    void playSoundNamed(std::string_view name) const { playSoundNamed(name, kDefaultVolume); }
    void playSoundNamed(std::string_view name, float atVolume) const {
        sounds_.play(name, atVolume);
    }
    void glass() const { playSoundNamed(kGlassSound); }
    void glassAtVolume(float volume) const { playSoundNamed(kGlassSound, volume); }
    void pop() const { playSoundNamed(kPopSound); }
    void popAtVolume(float volume) const { playSoundNamed(kPopSound, volume); }

private:
    static constexpr float kDefaultVolume = 1;

    Sounds& sounds_;
};

} // namespace panewright
