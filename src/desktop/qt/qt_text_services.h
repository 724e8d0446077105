#pragma once

#include "platform/text_services.h"

namespace panewright {

/// Text through Qt's Unicode tables and its translations (context "panewright").
class QtTextServices : public TextServices {
public:
    std::string upperCased(std::string_view text) const override;
    std::string localized(const char* text) const override;
    int localizedCaseInsensitiveCompare(std::string_view a, std::string_view b) const override;
    std::string trimmedOfWhitespace(std::string_view text) const override;
};

} // namespace panewright
