#pragma once

#include "platform/text_services.h"

namespace panewright {

/// Text through Qt's Unicode tables.
class QtTextServices : public TextServices {
public:
    std::string upperCased(std::string_view text) const override;
};

} // namespace panewright
