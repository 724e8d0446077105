#include "services/product_pages.h"

namespace panewright {

void ProductPages::openWebsite() const {
    workspace_.openUrl(program_.website() + "/panewright");
}

void ProductPages::openFeedback() const {
    workspace_.openUrl(program_.website() + "/panewright/disqus.html");
}

void ProductPages::openFAQ() const {
    if (hasWebsite()) {
        workspace_.openUrl(program_.website() + "/panewright#faq");
        return;
    }
    for (const auto& language : {text_.language(), std::string(kSourceLanguage)}) {
        if (const auto page = program_.helpPage(language)) {
            workspace_.openFile(*page);
            return;
        }
    }
    beeper_.beep();
}

} // namespace panewright
