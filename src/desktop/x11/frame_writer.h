#pragma once

#include "base/geometry.h"
#include "base/lifetime.h"
#include "base/observer_list.h"
#include "desktop/shared/written_frames.h"
#include "desktop/x11/manager_fence.h"
#include "desktop/x11/posted_once.h"
#include "desktop/x11/window_facts.h"
#include "desktop/x11/window_manager.h"
#include "desktop/x11/x11_work_areas.h"
#include "desktop/x11/x_connection.h"

#include <chrono>
#include <map>
#include <optional>
#include <vector>

namespace panewright {

/// Writes outer frames (root coordinates) through the window manager, and reads them back.
///
/// Writes to a window wait for each other and leave together: at the end of the turn, or at once
/// when position, size and position again make a whole frame. Then, in the background: a
/// window that is maximised, tiled or shaded is taken out of that state first; when the manager has
/// done what it was asked, the frame is read, and asked for once more if it is another one. What
/// then stands is what the manager or the window made of it.
///
/// A frame that covers a whole display is asked for as the display's work area.
class FrameWriter {
public:
    /// How long anybody waits for a manager.
    static constexpr std::chrono::milliseconds kPatience{500};

    FrameWriter(XConnection& connection, WindowManager& manager, WindowFactsOfTurn& facts,
                const X11WorkAreas& workAreas, MainLoop& mainLoop);

    /// False, and nothing is written, for what X cannot express.
    bool writePosition(xcb_window_t window, Point position);
    bool writeSize(xcb_window_t window, Size size);

    /// The frame as a reader should see it, once what was written has settled (waits at most
    /// kPatience): the written one where the window stood still since, else the true one. Nil for a
    /// window that is gone.
    std::optional<Rect> settledFrame(xcb_window_t window);

    /// Waits (at most kPatience) until everything that was written has settled; false if that was
    /// so already.
    bool settleAll();

    /// Whether something written to the window has not settled yet.
    bool isBusy(xcb_window_t window) const { return jobs_.contains(window); }

    /// Called on the main loop after what was written to a window has settled.
    Registration onSettled(std::function<void(xcb_window_t)> callback) {
        return settled_.add(std::move(callback));
    }

private:
    enum class Part { kPosition, kSize };
    /// What the program writes for a frame: nothing comes after it.
    inline static const std::vector<Part> kWholeFrame{Part::kPosition, Part::kSize,
                                                      Part::kPosition};
    using Clock = std::chrono::steady_clock;
    enum class Phase { kQueued, kLeavingStates, kPlacing, kRepairing };

    struct Job {
        /// In the order of writing.
        std::vector<Part> writes;
        FrameWrite frame;
        /// What was known of the window when it was written to.
        std::optional<WindowFacts> known;
        /// The window's own.
        std::uint32_t gravity = XCB_GRAVITY_NORTH_WEST;
        Phase phase = Phase::kQueued;
        /// Nil while none has been sent.
        std::optional<ManagerFence::Id> fence;
        /// Whether the manager is left alone with what it is asked: once, and only while nobody
        /// waits.
        bool rests = true;
        Clock::time_point asked;
        /// Whether the window was where it was asked to be, as one that leaves the maximised state
        /// may be for a moment: then that it is there does not tell that the manager has finished.
        bool stoodThere = false;
        Registration timer;
        Registration selection;
    };

    /// What the next write to the window is put into.
    Job& jobFor(xcb_window_t window);
    void queue(xcb_window_t window, Part part);
    void settle(xcb_window_t window, Clock::time_point deadline);
    void giveUp(xcb_window_t window, Job& job);
    void advanceAll();
    /// Takes the job as far as it goes without waiting; false when it is done.
    bool advance(xcb_window_t window, Job& job);
    bool start(xcb_window_t window, Job& job);
    bool placeWhereItStands(xcb_window_t window, Job& job, Phase phase);
    void place(xcb_window_t window, Job& job, const WindowGeometry& geometry);
    void askForPosition(xcb_window_t window, const Rect& client, const WindowGeometry& geometry,
                        std::uint32_t gravity);
    void askForSize(xcb_window_t window, const Rect& client, const WindowGeometry& geometry,
                    std::uint32_t gravity);
    bool verify(xcb_window_t window, Job& job);
    bool hasAnswered(xcb_window_t window, const Job& job);
    void ask(xcb_window_t window, Job& job, Phase phase);
    void wakeAfter(std::chrono::milliseconds time, xcb_window_t window, Job& job);
    void sendFence(xcb_window_t window, Job& job);
    /// What to ask for, as the window stands now.
    Rect askedFrame(const Job& job, const Rect& frame) const {
        return job.frame.asked(frame, workAreas_.all());
    }
    void remember(xcb_window_t window, const Job& job, const Rect& frame);
    void finish(xcb_window_t window);
    void handle(const xcb_generic_event_t& event);

    XConnection& connection_;
    WindowManager& manager_;
    WindowFactsOfTurn& facts_;
    const X11WorkAreas& workAreas_;
    MainLoop& mainLoop_;
    ManagerFence fence_;
    std::map<xcb_window_t, Job> jobs_;
    WrittenFrames written_;
    /// Of the windows that something was written to: they tell when they go.
    std::map<xcb_window_t, Registration> selections_;
    ObserverList<xcb_window_t> settled_;
    PostedOnce advanceSoon_{mainLoop_, [this] { advanceAll(); }};
    Lifetime lifetime_;
    Registration events_;
    Registration managerChanges_;
};

} // namespace panewright
