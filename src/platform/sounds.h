#pragma once

#include <string_view>

namespace panewright {

// The sounds that the program asks for by name.
inline constexpr std::string_view kGlassSound = "Glass";
inline constexpr std::string_view kPopSound = "Pop";

/// The system's named sounds. Main thread only.
class Sounds {
public:
    virtual ~Sounds() = default;

    /// Starts the sound and returns; `volume` from 0 to 1. A name that the system does not know
    /// plays nothing.
    virtual void play(std::string_view name, float volume) = 0;
};

} // namespace panewright
