#include "contract/foreign_program.h"

#include <csignal>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace panewright {

ForeignProgram::ForeignProgram(const std::string& display, const std::string& windowClass) {
    int requests[2];
    int answers[2];
    if (pipe(requests) != 0 || pipe(answers) != 0 || (pid_ = fork()) < 0) {
        throw std::runtime_error("cannot start another program");
    }
    if (pid_ > 0) {
        close(requests[0]);
        close(answers[1]);
        requests_ = requests[1];
        answers_ = answers[0];
        return;
    }
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    Windows windows;
    WindowRequest request;
    while (read(requests[0], &request, sizeof request) == sizeof request) {
        const auto window = answer(windows, display, windowClass, request);
        if (write(answers[1], &window, sizeof window) != sizeof window) {
            break;
        }
    }
    _exit(0);
}

ForeignProgram::~ForeignProgram() {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
    close(requests_);
    close(answers_);
}

xcb_window_t ForeignProgram::ask(const WindowRequest& request) const {
    xcb_window_t window = XCB_WINDOW_NONE;
    if (write(requests_, &request, sizeof request) != sizeof request ||
        read(answers_, &window, sizeof window) != sizeof window) {
        throw std::runtime_error("the other program does not answer");
    }
    return window;
}

xcb_window_t ForeignProgram::answer(Windows& windows, const std::string& display,
                                    const std::string& windowClass, const WindowRequest& request) {
    if (request.destroyed != XCB_WINDOW_NONE) {
        windows.erase(request.destroyed);
        return request.destroyed;
    }
    test::TestClient::Options options;
    options.windowClass = windowClass;
    options.client = {10, 10, static_cast<int>(request.width), static_cast<int>(request.height)};
    if (request.isFixed) {
        options.minimumSize = {request.width, request.height};
        options.maximumSize = options.minimumSize;
    }
    auto client = std::make_unique<test::TestClient>(display, options);
    const auto window = client->window();
    windows.emplace(window, std::move(client));
    return window;
}

} // namespace panewright
