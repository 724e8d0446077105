#pragma once

#include "desktop/shared/colour_scheme.h"

namespace panewright {

/// Gives the program's windows dark colours while the user wants them, unless a theme of the
/// desktop has given the toolkit colours of its own. Popovers stay light.
class ThemeColours {
public:
    /// The scheme must outlive it. Needs the toolkit's application object.
    explicit ThemeColours(ColourScheme& scheme);

private:
    void apply() const;

    ColourScheme& scheme_;
    Registration changes_;
};

} // namespace panewright
