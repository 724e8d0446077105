#include "desktop/x11/frame_writer.h"

#include "desktop/x11/client_message.h"
#include "desktop/x11/position_request.h"

#include <algorithm>
#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// A manager without a reliable fence is looked at this often, and taken to have finished after
/// this long (kwin needs 4 to 8 ms).
constexpr auto kPollInterval = 4ms;
constexpr auto kUnfencedPatience = 30ms;

/// How long a manager is left alone with a frame: openbox has placed a window by then. Following
/// its steps would only take time from it, where processors are few.
constexpr auto kRest = 3ms;

constexpr std::uint32_t kRemoveState = 0; // EWMH, _NET_WM_STATE
constexpr std::uint32_t kAddState = 1;

// EWMH, _NET_MOVERESIZE_WINDOW: gravity in the low byte, then what is given, then the source.
constexpr std::uint32_t kGivesPosition = 3U << 8U;
constexpr std::uint32_t kGivesSize = 3U << 10U;
constexpr std::uint32_t kFromPager = kSourcePager << 12U;

void changeMaximized(XConnection& connection, xcb_window_t window, std::uint32_t action) {
    const auto& atoms = connection.atoms();
    sendToManager(connection, window, atoms._NET_WM_STATE,
                  {action, atoms._NET_WM_STATE_MAXIMIZED_HORZ, atoms._NET_WM_STATE_MAXIMIZED_VERT,
                   kSourcePager, 0});
}

void leaveBlockingStates(XConnection& connection, xcb_window_t window, const EwmhStates& states) {
    const auto& atoms = connection.atoms();
    if (states.maximizedHorizontally || states.maximizedVertically) {
        changeMaximized(connection, window, kRemoveState);
    }
    if (states.shaded) {
        sendToManager(connection, window, atoms._NET_WM_STATE,
                      {kRemoveState, atoms._NET_WM_STATE_SHADED, 0, kSourcePager, 0});
    }
}

} // namespace

FrameWriter::FrameWriter(XConnection& connection, WindowManager& manager, WindowFactsOfTurn& facts,
                         const X11WorkAreas& workAreas, MainLoop& mainLoop)
    : connection_(connection), manager_(manager), facts_(facts), workAreas_(workAreas),
      mainLoop_(mainLoop), fence_(connection, manager),
      events_(connection.onEvent([this](const auto& event) { handle(event); })),
      managerChanges_(manager.onChange([this] {
          fence_.giveUp();
          for (auto& [window, job] : jobs_) {
              job.phase = Phase::kQueued; // what the manager before was asked for may be lost
              job.known.reset();
          }
          advanceSoon_.post();
      })) {}

bool FrameWriter::writePosition(xcb_window_t window, Point position) {
    if (!isExpressible(position)) {
        return false;
    }
    jobFor(window).frame.position = position;
    queue(window, Part::kPosition);
    return true;
}

bool FrameWriter::writeSize(xcb_window_t window, Size size) {
    if (!isExpressible(size)) {
        return false;
    }
    jobFor(window).frame.size = size;
    queue(window, Part::kSize);
    return true;
}

FrameWriter::Job& FrameWriter::jobFor(xcb_window_t window) {
    auto& job = jobs_[window];
    if (job.phase != Phase::kQueued) {
        job = Job{}; // what was asked for before is overtaken
    }
    if (job.writes.empty()) {
        job.known = facts_.known(window);
    }
    return job;
}

void FrameWriter::queue(xcb_window_t window, Part part) {
    auto& job = jobs_.at(window);
    job.writes.push_back(part);
    if (job.writes != kWholeFrame) {
        advanceSoon_.post();
    } else if (!advance(window, job)) {
        finish(window);
    }
}

void FrameWriter::settle(xcb_window_t window, Clock::time_point deadline) {
    for (auto job = jobs_.find(window); job != jobs_.end(); job = jobs_.find(window)) {
        const auto seen = connection_.arrivedCount();
        job->second.rests = false; // somebody waits
        if (!advance(window, job->second)) {
            finish(window);
            break;
        }
        const auto wake = fence_.isReliable() ? deadline : Clock::now() + kPollInterval;
        connection_.waitForEvent(std::min(wake, deadline), seen);
        if (Clock::now() >= deadline || connection_.isLost()) {
            giveUp(window, job->second);
        }
    }
}

/// Nobody waits any longer. What has not been asked for yet is.
void FrameWriter::giveUp(xcb_window_t window, Job& job) {
    fence_.giveUp();
    if (job.phase == Phase::kLeavingStates) {
        placeWhereItStands(window, job, Phase::kPlacing);
    }
    finish(window);
}

std::optional<Rect> FrameWriter::settledFrame(xcb_window_t window) {
    settle(window, Clock::now() + kPatience);
    const auto facts = facts_.of(window);
    return facts ? std::optional(written_.frameToReport(window, facts->geometry.frame()))
                 : std::nullopt;
}

bool FrameWriter::settleAll() {
    const bool wasBusy = !jobs_.empty();
    const auto deadline = Clock::now() + kPatience;
    while (!jobs_.empty() && !connection_.isLost()) {
        settle(jobs_.begin()->first, deadline);
    }
    return wasBusy;
}

void FrameWriter::advanceAll() {
    std::vector<xcb_window_t> windows;
    for (const auto& [window, job] : jobs_) {
        windows.push_back(window);
    }
    for (const auto window : windows) {
        if (const auto job = jobs_.find(window);
            job != jobs_.end() && !advance(window, job->second)) {
            finish(window);
        }
    }
    connection_.flush();
}

bool FrameWriter::advance(xcb_window_t window, Job& job) {
    if (job.phase == Phase::kQueued) {
        return start(window, job);
    }
    if (job.rests) {
        return true;
    }
    const bool isFenceMissing = fence_.isReliable() && !job.fence;
    if (isFenceMissing) {
        sendFence(window, job);
    }
    if (isFenceMissing || !hasAnswered(window, job)) {
        if (!fence_.isReliable()) {
            wakeAfter(kPollInterval, window, job);
        }
        return true;
    }
    return job.phase == Phase::kLeavingStates ? placeWhereItStands(window, job, Phase::kPlacing)
                                              : verify(window, job);
}

bool FrameWriter::start(xcb_window_t window, Job& job) {
    const auto facts = job.known ? job.known : facts_.of(window);
    if (!facts) {
        return false;
    }
    const auto& states = facts->traits.states;
    job.gravity = facts->traits.hints.gravity;
    if (!states.blocksPlacing()) {
        place(window, job, facts->geometry);
        ask(window, job, Phase::kPlacing);
        return true;
    }
    job.selection = connection_.selectEvents(window, XCB_EVENT_MASK_PROPERTY_CHANGE);
    leaveBlockingStates(connection_, window, states);
    ask(window, job, Phase::kLeavingStates);
    return true;
}

bool FrameWriter::placeWhereItStands(xcb_window_t window, Job& job, Phase phase) {
    const auto facts = facts_.anew(window);
    if (!facts) {
        return false;
    }
    place(window, job, facts->geometry);
    ask(window, job, phase);
    return true;
}

void FrameWriter::place(xcb_window_t window, Job& job, const WindowGeometry& geometry) {
    const auto gravity = job.gravity;
    Rect frame = geometry.frame();
    const Rect asked = askedFrame(job, frame);
    job.stoodThere = frame == asked;
    for (const auto part : job.writes) {
        if (part == Part::kPosition) {
            frame = makeRect(asked.origin(), frame.size());
            askForPosition(window, geometry.clientOf(frame), geometry, gravity);
        } else {
            frame = makeRect(frame.origin(), asked.size());
            askForSize(window, geometry.clientOf(frame), geometry, gravity);
        }
    }
}

/// A manager that does not know the message gets the plain request of any client, which it places
/// by the window's gravity (ICCCM 4.1.5); without a manager the server does what the request says.
void FrameWriter::askForPosition(xcb_window_t window, const Rect& client,
                                 const WindowGeometry& geometry, std::uint32_t gravity) {
    if (!manager_.supports(connection_.atoms()._NET_MOVERESIZE_WINDOW)) {
        const auto plain =
            positionRequest(client, geometry.decoration, gravity, manager_.isRunning());
        const std::int32_t values[] = {plain.x, plain.y};
        xcb_configure_window(connection_, window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                             values);
        return;
    }
    const bool managerTells = manager_.supports(connection_.atoms()._NET_FRAME_EXTENTS);
    const auto request = positionRequest(client, geometry.decoration, gravity, managerTells);
    sendToManager(connection_, window, connection_.atoms()._NET_MOVERESIZE_WINDOW,
                  {request.gravity | kGivesPosition | kFromPager,
                   static_cast<std::uint32_t>(request.x), static_cast<std::uint32_t>(request.y), 0,
                   0});
}

void FrameWriter::askForSize(xcb_window_t window, const Rect& client,
                             const WindowGeometry& geometry, std::uint32_t gravity) {
    const auto inner = [&](double length) {
        return static_cast<std::uint32_t>(std::max(1.0, length - 2.0 * geometry.border));
    };
    const std::uint32_t width = inner(client.width);
    const std::uint32_t height = inner(client.height);
    if (!manager_.supports(connection_.atoms()._NET_MOVERESIZE_WINDOW)) {
        const std::uint32_t values[] = {width, height};
        xcb_configure_window(connection_, window,
                             XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values);
        return;
    }
    const bool managerTells = manager_.supports(connection_.atoms()._NET_FRAME_EXTENTS);
    const auto named = positionRequest(client, geometry.decoration, gravity, managerTells).gravity;
    sendToManager(connection_, window, connection_.atoms()._NET_MOVERESIZE_WINDOW,
                  {named | kGivesSize | kFromPager, 0, 0, width, height});
}

bool FrameWriter::verify(xcb_window_t window, Job& job) {
    const auto facts = facts_.anew(window);
    if (!facts) {
        return false;
    }
    const Rect frame = facts->geometry.frame();
    const auto& states = facts->traits.states;
    const bool asAsked = frame == askedFrame(job, frame);
    if (asAsked || job.phase == Phase::kRepairing || states.blocksPlacing() || states.fullScreen) {
        remember(window, job, frame);
        return false;
    }
    if (manager_.name() == "KWin") {
        // A quick-tiled window ignores moves and shows no state to leave; this leaves it.
        changeMaximized(connection_, window, kAddState);
        changeMaximized(connection_, window, kRemoveState);
    }
    place(window, job, facts->geometry);
    ask(window, job, Phase::kRepairing);
    return true;
}

bool FrameWriter::hasAnswered(xcb_window_t window, const Job& job) {
    const auto waited = Clock::now() - job.asked;
    if (!manager_.isRunning()) {
        return true;
    }
    if (waited >= kPatience) {
        fence_.giveUp();
        return true;
    }
    const bool fenced = fence_.isReliable();
    const bool isLeaving = job.phase == Phase::kLeavingStates;
    if (fenced && (!isLeaving || !fence_.isReached(*job.fence))) {
        return fence_.isReached(*job.fence);
    }
    const auto facts = facts_.anew(window);
    if (!facts || (isLeaving && facts->traits.states.blocksPlacing())) {
        return !facts;
    }
    const Rect frame = facts->geometry.frame();
    return fenced || waited >= kUnfencedPatience ||
           (!isLeaving && !job.stoodThere && frame == askedFrame(job, frame));
}

void FrameWriter::ask(xcb_window_t window, Job& job, Phase phase) {
    job.phase = phase;
    job.asked = Clock::now();
    job.fence.reset();
    facts_.forget(window); // they are about to change
    job.rests = job.rests && phase != Phase::kLeavingStates;
    if (job.rests) {
        connection_.flush();
        connection_.rest(kRest);
        wakeAfter(kRest, window, job);
    } else {
        sendFence(window, job);
    }
}

void FrameWriter::wakeAfter(std::chrono::milliseconds time, xcb_window_t window, Job& job) {
    job.timer = mainLoop_.after(time, [this, window] {
        if (const auto found = jobs_.find(window); found != jobs_.end()) {
            found->second.rests = false;
        }
        advanceSoon_.post();
    });
}

void FrameWriter::sendFence(xcb_window_t window, Job& job) {
    const bool fenced = fence_.isReliable();
    if (fenced) {
        job.fence = fence_.send();
    }
    connection_.flush();
    wakeAfter(fenced ? kPatience : kPollInterval, window, job);
}

void FrameWriter::remember(xcb_window_t window, const Job& job, const Rect& frame) {
    written_.keep(window, {job.frame.written(frame), askedFrame(job, frame), frame});
    auto& selection = selections_[window];
    if (!selection) {
        selection = connection_.selectEvents(window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
}

void FrameWriter::finish(xcb_window_t window) {
    jobs_.erase(window);
    mainLoop_.post(lifetime_.guard([this, window] { settled_.notify(window); }));
}

void FrameWriter::handle(const xcb_generic_event_t& event) {
    if (event.response_type == XCB_DESTROY_NOTIFY) {
        const auto gone = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
        written_.forget(gone);
        selections_.erase(gone);
        jobs_.erase(gone);
    } else if (event.response_type == XCB_PROPERTY_NOTIFY && !jobs_.empty()) {
        advanceSoon_.post();
    }
}

} // namespace panewright
