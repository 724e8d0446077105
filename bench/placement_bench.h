#pragma once

#include "support/desktop.h"

#include <linux/input-event-codes.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <memory>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace panewright::test {

using Clock = std::chrono::steady_clock;

inline constexpr std::chrono::milliseconds kPause{
    60}; // everybody is idle again before the next press

inline constexpr Frame kElsewhere{.x = 200, .y = 150, .width = 600, .height = 400};

/// The outer frame that all but one put the window into.
inline constexpr Frame kTarget{.x = 80, .y = 45, .width = 1440, .height = 810};
/// What xdotool sizes instead.
inline constexpr Size kTargetClient{.width = 1438, .height = 785};

/// A desktop with one plain window and programs that place it.
class PlacementBench {
public:
    /// Starts the programs, given as their path and the line that they say they are ready with;
    /// empty for one that says nothing.
    explicit PlacementBench(const std::vector<std::pair<std::string, std::string>>& programs) {
        window_.activate();
        environment_["DBUS_SESSION_BUS_ADDRESS"] = bus_.firstLine();
        environment_["SHELL"] = "/bin/sh"; // what sxhkd runs commands with
        for (const auto& [path, ready] : programs) {
            auto& program = programs_.emplace_back(
                std::make_unique<ChildProcess>(std::vector<std::string>{path}, environment_));
            if (!ready.empty() && !program->waitForErrorLine(ready)) {
                throw std::runtime_error(path + " does not start: " + program->standardError());
            }
        }
        watchWindow();
    }

    /// From the key press to the target frame.
    double measure(std::uint16_t key, bool sizesClient) {
        const Frame target = targetClient(sizesClient);
        placeWindow(desktop_.x(), window_.window(), kElsewhere);
        std::this_thread::sleep_for(kPause);
        desktop_.keyboard().press(KEY_LEFTALT);
        const auto start = Clock::now();
        desktop_.keyboard().press(key);
        waitFor(target, start + std::chrono::seconds(2));
        const double time = milliseconds(Clock::now() - start);
        desktop_.keyboard().release(key);
        desktop_.keyboard().release(KEY_LEFTALT);
        std::this_thread::sleep_for(kPause);
        return time;
    }

    /// From the start of the command to its end.
    double measureToEnd(const std::vector<std::string>& command) {
        Clock::time_point end;
        const auto start = run(command, [&](pid_t child) {
            waitpid(child, nullptr, 0);
            end = Clock::now();
        });
        return milliseconds(end - start);
    }
    /// From the start of the command to the target frame.
    double measureToFrame(const std::vector<std::string>& command, bool sizesClient) {
        const Frame target = targetClient(sizesClient);
        Clock::time_point end;
        const auto start = run(command, [&](pid_t child) {
            waitFor(target, Clock::now() + std::chrono::seconds(2));
            end = Clock::now();
            waitpid(child, nullptr, 0);
        });
        return milliseconds(end - start);
    }

    const Environment& environment() const { return environment_; }

private:
    static double milliseconds(Clock::duration time) {
        return std::chrono::duration<double, std::milli>(time).count();
    }

    /// Gives the time of the start.
    template <class Follow>
    Clock::time_point run(const std::vector<std::string>& command, Follow follow) {
        placeWindow(desktop_.x(), window_.window(), kElsewhere);
        std::this_thread::sleep_for(kPause);
        std::vector<char*> arguments;
        arguments.reserve(command.size() + 1);
        for (const auto& argument : command) {
            arguments.push_back(const_cast<char*>(argument.c_str()));
        }
        arguments.push_back(nullptr);
        std::vector<std::string> values;
        for (const auto& [name, value] : environment_) {
            values.push_back(std::string(name).append("=").append(value));
        }
        std::vector<char*> variables;
        variables.reserve(values.size() + 1);
        for (auto& value : values) {
            variables.push_back(value.data());
        }
        variables.push_back(nullptr);
        pid_t child = 0;
        const auto start = Clock::now();
        if (posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(),
                         variables.data()) != 0) {
            throw std::runtime_error(command.front() + " does not start");
        }
        follow(child);
        std::this_thread::sleep_for(kPause);
        return start;
    }

    /// Where the client is when the window is in its place.
    Frame targetClient(bool isSized) const {
        auto around = desktop_.x().property(window_.window(), "_NET_FRAME_EXTENTS");
        around.resize(4);
        const auto [left, right, top, bottom] =
            std::array<double, 4>{static_cast<double>(around[0]), static_cast<double>(around[1]),
                                  static_cast<double>(around[2]), static_cast<double>(around[3])};
        const Size size = isSized
                              ? kTargetClient
                              : Size{kTarget.width - left - right, kTarget.height - top - bottom};
        return makeRect({kTarget.x + left, kTarget.y + top}, size);
    }

    void watchWindow() const {
        const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_window_t window = window_.window();
        while (window != watcher_.root()) {
            xcb_change_window_attributes(watcher_.connection(), window, XCB_CW_EVENT_MASK, &mask);
            const ReplyPointer<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
                watcher_.connection(), xcb_query_tree(watcher_.connection(), window), nullptr));
            window = tree ? tree->parent : watcher_.root();
        }
        watcher_.synchronize();
    }

    /// One round trip, so that watching takes as little of the server's time as can be.
    Frame clientRect() const {
        xcb_connection_t* connection = watcher_.connection();
        const auto size = xcb_get_geometry(connection, window_.window());
        const auto origin =
            xcb_translate_coordinates(connection, window_.window(), watcher_.root(), 0, 0);
        const ReplyPointer<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(connection, size, nullptr));
        const ReplyPointer<xcb_translate_coordinates_reply_t> at(
            xcb_translate_coordinates_reply(connection, origin, nullptr));
        if (!geometry || !at) {
            return {};
        }
        return {static_cast<double>(at->dst_x), static_cast<double>(at->dst_y),
                static_cast<double>(geometry->width), static_cast<double>(geometry->height)};
    }

    /// Looks at the window whenever something is told of it, so that waiting costs no processor.
    void waitFor(const Frame& target, Clock::time_point deadline) const {
        while (clientRect() != target) {
            const auto left =
                std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
            if (left.count() <= 0) {
                throw std::runtime_error("the window does not come to its place");
            }
            if (const ReplyPointer<xcb_generic_event_t> event{
                    xcb_poll_for_event(watcher_.connection())}) {
                continue;
            }
            pollfd readable{xcb_get_file_descriptor(watcher_.connection()), POLLIN, 0};
            poll(&readable, 1, static_cast<int>(left.count()));
        }
    }

    Desktop desktop_;
    Environment environment_ = desktop_.environment();
    ChildProcess bus_{kSessionBus, environment_};
    XClient watcher_{desktop_.display()};
    TestClient window_{desktop_.display()};
    std::vector<std::unique_ptr<ChildProcess>> programs_;
};

/// Runs the measurement and gives what the process ends with.
inline int runBench(const char* name, const std::function<void()>& measure) {
    try {
        measure();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", name, error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

inline double percentile(std::vector<double> times, double share) {
    std::sort(times.begin(), times.end());
    return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
}

} // namespace panewright::test
