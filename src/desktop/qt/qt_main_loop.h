#pragma once

#include "platform/main_loop.h"

#include <memory>

namespace panewright {

/// The main loop on Qt's event loop, under whichever application object the program has made
/// (QCoreApplication or one of its heirs), which must exist first.
class QtMainLoop : public MainLoop {
public:
    QtMainLoop();
    ~QtMainLoop() override;

    void post(std::function<void()> task) override;
    Registration after(std::chrono::milliseconds delay, std::function<void()> task) override;
    Registration whenReadable(int descriptor, std::function<void()> callback) override;
    int run() override;
    void quit(int exitCode) override;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace panewright
