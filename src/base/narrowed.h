#pragma once

namespace panewright {

/// The nearest 32-bit float; every step that is to be computed in 32 bits goes through here.
/// Written to memory, since GCC 12 drops a mere conversion to 32 bits and back where it uses AVX.
inline float narrowed(double value) {
    volatile auto rounded = static_cast<float>(value);
    return rounded;
}

} // namespace panewright
