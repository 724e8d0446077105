#include "ui/store_troubles.h"

#include "base/text_with.h"
#include "model/model.h"

namespace panewright {
namespace {

/// With places for the file and the system's words.
std::string whyUnreadable(StoreFailureCause cause, const TextServices& text) {
    switch (cause) {
    case StoreFailureCause::kDamaged:
        return text.localized("The file %@ is damaged, or it is not from Panewright.");
    case StoreFailureCause::kNotPermitted:
        return text.localized("Panewright may not read the file %@.");
    default:
        return text.localized("The file %@ could not be read. The system says: %@");
    }
}

std::string whyUnwritten(StoreFailureCause cause, const TextServices& text) {
    switch (cause) {
    case StoreFailureCause::kDiskFull:
        return text.localized("The disk of the file %@ is full.");
    case StoreFailureCause::kNotPermitted:
        return text.localized("Panewright may not write the file %@.");
    case StoreFailureCause::kHeldByAnother:
        return text.localized("Another Panewright works on the file %@.");
    case StoreFailureCause::kTooLarge:
        return text.localized("The states are too many for the file %@.");
    case StoreFailureCause::kNoFolder:
        return text.localized("The folder for them is missing and cannot be made.");
    default:
        return text.localized("The file %@ could not be written. The system says: %@");
    }
}

std::string filledIn(const std::string& text, const Model& model, const StoreFailure& failure) {
    return textWith(textWith(text, model.file().string()), failure.message);
}

} // namespace

std::string StoreTroubles::line() const {
    if (services_.model.readFailure()) {
        return services_.text.localized("The saved states could not be read…");
    }
    return services_.model.writeFailure()
               ? services_.text.localized("The saved states could not be written…")
               : "";
}

void StoreTroubles::explain() {
    if (const auto& unreadable = services_.model.readFailure()) {
        explainUnreadable(*unreadable);
    } else if (const auto unwritten = services_.model.writeFailure()) {
        explainUnwritten(*unwritten);
    }
}

void StoreTroubles::explainUnreadable(const StoreFailure& failure) {
    const auto& text = services_.text;
    question_ = services_.alerts.ask(
        {.messageText = text.localized("The saved states could not be read."),
         .informativeText =
             filledIn(whyUnreadable(failure.cause, text), services_.model, failure) + "\n\n" +
             text.localized("Nothing was changed. To start afresh, Panewright sets the file aside "
                            "in its folder and begins with the built-in states."),
         .buttons = {text.localized("Start Afresh"), text.localized("Leave It")}},
        [this](int response) {
            if (response == kAlertFirstButtonReturn && services_.model.readFailure()) {
                services_.model.startAfresh();
                services_.startedAfresh();
            }
        });
}

void StoreTroubles::explainUnwritten(const StoreFailure& failure) {
    const auto& text = services_.text;
    question_ = services_.alerts.ask(
        {.messageText = text.localized("The saved states could not be written."),
         .informativeText =
             filledIn(whyUnwritten(failure.cause, text), services_.model, failure) + "\n\n" +
             text.localized("All states are there as long as Panewright runs. It writes them with "
                            "the next change, and when it ends."),
         .buttons = {text.localized("Try Again"), text.localized("Close")}},
        [this](int response) {
            if (response == kAlertFirstButtonReturn) {
                services_.model.save();
            }
        });
}

std::string savingRefusal(const Model& model, const TextServices& text) {
    return model.windowStates()
               ? ""
               : text.localized("Nothing can be saved: the saved states could not be read.");
}

} // namespace panewright
