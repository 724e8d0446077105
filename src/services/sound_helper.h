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
    void glass() const { playSoundNamed(kGlass); }
    void glassAtVolume(float volume) const { playSoundNamed(kGlass, volume); }
    void pop() const { playSoundNamed(kPop); }
    void popAtVolume(float volume) const { playSoundNamed(kPop, volume); }

private:
    static constexpr float kDefaultVolume = 1;
    static constexpr std::string_view kGlass = "Glass";
    static constexpr std::string_view kPop = "Pop";

    Sounds& sounds_;
};

} // namespace panewright
