#pragma once

namespace panewright {

// Pages of the product's website.
constexpr const char* kWebsiteUrl = "http://quillfen.com/panewright";
constexpr const char* kFeedbackUrl = "http://quillfen.com/panewright/disqus.html";
constexpr const char* kFAQUrl = "http://quillfen.com/panewright#faq";

} // namespace panewright
