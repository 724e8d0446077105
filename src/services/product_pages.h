#pragma once

#include "platform/beeper.h"
#include "platform/program_information.h"
#include "platform/text_services.h"
#include "platform/workspace.h"

namespace panewright {

/// The pages about the product, opened in the user's browser: those of its website, or the help
/// page that is installed with a program that has no site. What the browser cannot open is ignored.
class ProductPages {
public:
    /// All of it must outlive the object.
    ProductPages(Workspace& workspace, const ProgramInformation& program, const TextServices& text,
                 Beeper& beeper)
        : workspace_(workspace), program_(program), text_(text), beeper_(beeper) {}

    /// Without one there is neither a website nor a feedback page to open.
    bool hasWebsite() const { return !program_.website().empty(); }

    void openWebsite() const;
    void openFeedback() const;
    /// The site's, else the help page in the user's language, or in English. Beeps if none is
    /// there.
    void openFAQ() const;

private:
    Workspace& workspace_;
    const ProgramInformation& program_;
    const TextServices& text_;
    Beeper& beeper_;
};

} // namespace panewright
