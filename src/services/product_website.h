#pragma once

#include "platform/program_information.h"

#include <string>

namespace panewright {

// Pages of the product's website, of a program that has one.

inline std::string websiteUrl(const ProgramInformation& program) {
    return program.website() + "/panewright";
}

inline std::string feedbackUrl(const ProgramInformation& program) {
    return program.website() + "/panewright/disqus.html";
}

inline std::string faqUrl(const ProgramInformation& program) {
    return program.website() + "/panewright#faq";
}

} // namespace panewright
