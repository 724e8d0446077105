// From a key press to the window's new frame: this program beside the window manager's own key
// binding and a hot-key daemon that runs a command-line window mover, in turn in one run. The
// window is a plain one under openbox; keys are real, and the frame is read from outside.

#include "support/child_process.h"
#include "support/frames.h"
#include "support/keyboard.h"
#include "support/private_home.h"
#include "support/test_client.h"
#include "support/x_server.h"

#include <fmt/core.h>
#include <linux/input-event-codes.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace panewright::test {
namespace {

using namespace std::chrono_literals;

constexpr int kRounds = 100;
constexpr auto kCalm = 30ms; // between presses, so that none pays for the one before

constexpr const char* kOpenboxConfiguration = R"(
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <theme><name>Clearlooks</name></theme>
  <keyboard>
    <keybind key="A-F2"><action name="MoveResizeTo">
      <x>80</x><y>45</y><width>1440</width><height>810</height></action></keybind>
    <keybind key="A-F4"><action name="MoveResizeTo">
      <x>280</x><y>158</y><width>1040</width><height>585</height></action></keybind>
  </keyboard>
</openbox_config>
)";

constexpr const char* kDaemonConfiguration = R"(
alt + F6
  xdotool getactivewindow windowsize 1438 785 windowmove 80 45
alt + F8
  xdotool getactivewindow windowsize 1038 560 windowmove 280 158
)";

struct Contender {
    const char* name;
    /// With Alt, each for one of two frames.
    std::array<std::uint16_t, 2> keys;
    std::array<Frame, 2> frames{};
    std::vector<double> microseconds;

    double percentile(int percent) const {
        std::vector<double> sorted = microseconds;
        std::sort(sorted.begin(), sorted.end());
        return sorted[(sorted.size() - 1) * static_cast<std::size_t>(percent) / 100];
    }
};

class Bench {
public:
    void run() {
        window_.activate();
        for (auto& contender : contenders_) {
            calibrate(contender);
        }
        for (int round = 0; round < kRounds; ++round) {
            for (auto& contender : contenders_) {
                press(contender, static_cast<std::size_t>(round % 2));
            }
        }
        print();
    }

private:
    Environment environment() const {
        Environment environment = home_.environment();
        environment["DISPLAY"] = server_.display();
        environment["SHELL"] = "/bin/sh"; // what sxhkd runs its commands with
        return environment;
    }

    /// A manager that has just taken charge may lose what comes before its first event.
    bool waitForOpenbox() const {
        const bool isThere = eventually(
            [this] { return !x_.property(x_.root(), "_NET_SUPPORTING_WM_CHECK").empty(); });
        std::this_thread::sleep_for(500ms);
        return isThere;
    }

    /// Takes the frames that the contender's keys give once everything has settled.
    void calibrate(Contender& contender) {
        for (const std::size_t which : {0, 1, 0, 1}) {
            tap(contender.keys.at(which));
            std::this_thread::sleep_for(300ms);
            contender.frames.at(which) = outerFrame(x_, window_.window());
        }
        if (contender.frames[0] == contender.frames[1]) {
            fmt::print(stderr, "{} does not move the window\n", contender.name);
            std::exit(1);
        }
    }

    void press(Contender& contender, std::size_t which) {
        // Away from where the key puts the window.
        placeWindow(x_, window_.window(), {.x = 20, .y = 20, .width = 500, .height = 400});
        std::this_thread::sleep_for(kCalm);
        keyboard_.press(KEY_LEFTALT);
        const auto start = std::chrono::steady_clock::now();
        keyboard_.press(contender.keys.at(which));
        while (outerFrame(x_, window_.window()) != contender.frames.at(which)) {
            if (std::chrono::steady_clock::now() - start > 2s) {
                fmt::print(stderr, "{} lost a press\n", contender.name);
                std::exit(1);
            }
        }
        const std::chrono::duration<double, std::micro> taken =
            std::chrono::steady_clock::now() - start;
        contender.microseconds.push_back(taken.count());
        keyboard_.release(contender.keys.at(which));
        keyboard_.release(KEY_LEFTALT);
        std::this_thread::sleep_for(kCalm);
    }

    void tap(std::uint16_t key) { keyboard_.tap(KEY_LEFTALT, key); }

    void print() const {
        const auto& ours = contenders_.front();
        fmt::print("{} presses each         median us   95 % us   ours/its median\n", kRounds);
        for (const auto& contender : contenders_) {
            fmt::print("{:26} {:9.0f} {:9.0f} {:12.2f}\n", contender.name, contender.percentile(50),
                       contender.percentile(95), ours.percentile(50) / contender.percentile(50));
        }
    }

    PrivateHome home_;
    XServer server_{XServer::Options{}, home_.environment()};
    XClient x_{server_.display()};
    Keyboard keyboard_{x_};
    ChildProcess openbox_{{"openbox", "--sm-disable", "--config-file",
                           home_.write("openbox.xml", kOpenboxConfiguration)},
                          environment()};
    ChildProcess daemon_{{"sxhkd", "-c", home_.write("sxhkdrc", kDaemonConfiguration)},
                         environment()};
    bool isManaged_ = waitForOpenbox();
    TestClient window_{server_.display()};
    ChildProcess program_{{PANEWRIGHT_PROGRAM}, environment()};
    std::array<Contender, 3> contenders_{{{"panewright", {KEY_2, KEY_4}},
                                          {"openbox's own binding", {KEY_F2, KEY_F4}},
                                          {"sxhkd with xdotool", {KEY_F6, KEY_F8}}}};
};

} // namespace
} // namespace panewright::test

int main() {
    panewright::test::Bench bench;
    bench.run();
}
