#pragma once

#include "base/registration.h"
#include "platform/alerts.h"
#include "platform/text_services.h"

#include <functional>
#include <string>

namespace panewright {

class Model;
struct StoreFailure;

/// What a person is told when the store could not be read or written, and can do then. It says
/// nothing by itself: a line stands where people look, and leads to a window.
class StoreTroubles {
public:
    /// All of it must outlive the object.
    struct Services {
        Alerts& alerts;
        Model& model;
        const TextServices& text;
        /// Called when there are states again.
        std::function<void()> startedAfresh;
    };

    explicit StoreTroubles(Services services) : services_(std::move(services)) {}

    /// The line, in the user's language; empty while there is nothing to tell.
    std::string line() const;

    /// Opens the window: which file, why, and what is to be done. Nothing while there is nothing to
    /// tell.
    void explain();

private:
    void explainUnreadable(const StoreFailure& failure);
    void explainUnwritten(const StoreFailure& failure);

    Services services_;
    /// The window, of which there is one at a time.
    Registration question_;
};

/// Why nothing can be saved, in the user's language; empty when it can.
std::string savingRefusal(const Model& model, const TextServices& text);

} // namespace panewright
