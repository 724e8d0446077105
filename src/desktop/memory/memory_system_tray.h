#pragma once

#include "base/observer_list.h"
#include "platform/main_loop.h"
#include "platform/system_tray.h"

namespace panewright {

/// A tray that a test puts up and takes away; of one brightness all over. There is none at first.
class MemorySystemTray : public SystemTray {
public:
    explicit MemorySystemTray(MainLoop& mainLoop) : mainLoop_(mainLoop) {}

    /// `brightness` as brightnessAt() answers it. One that is there already is replaced.
    void putUp(std::optional<double> brightness) {
        present_ = true;
        brightness_ = brightness;
        tell();
    }
    void takeAway() {
        present_ = false;
        brightness_.reset();
        tell();
    }

    bool isPresent() const override { return present_; }
    Registration onChange(std::function<void()> callback) override {
        return changed_.add(std::move(callback));
    }
    std::optional<double> brightnessAt(Point /*point*/) const override { return brightness_; }

private:
    void tell() {
        mainLoop_.post([this] { changed_.notify(); });
    }

    MainLoop& mainLoop_;
    bool present_ = false;
    std::optional<double> brightness_;
    ObserverList<> changed_;
};

} // namespace panewright
