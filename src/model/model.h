#pragma once

#include "base/observer_list.h"
#include "base/shared_instance.h"
#include "model/store_content.h"
#include "model/store_file.h"
#include "model/store_writer.h"
#include "services/defaults.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace panewright {

class BackgroundWork;
class CarbonKeyEvent;
class StoreLock;

// The keys of the dictionary that are no bundle identifiers.
inline constexpr std::string_view kDefaultsKey = "defaults";
inline constexpr std::string_view kGlobalsKey = "globals";

/// Whether the states under that key of the dictionary apply to every application.
inline bool appliesEverywhere(std::string_view key) {
    return key == kDefaultsKey || key == kGlobalsKey;
}

/// Whether they apply while that application is frontmost.
inline bool appliesTo(std::string_view key, std::string_view bundleIdentifier) {
    return appliesEverywhere(key) || key == bundleIdentifier;
}

/// The single store of all window states. Main thread only.
class Model {
public:
    /// What the store works with; all of it must outlive the store.
    struct Services {
        const StandardFolders& folders;
        UserDefaults& defaults;
        StoreLock& lock;
        const BackgroundWork& background;
    };

    /// The one store, made on the first call by the factory, which must have been set.
    static Model& instance();
    /// Drops the store that there may be.
    static void setFactory(SharedInstance<Model>::Factory factory);

    /// Loads the store, or starts one with the built-in states. The lock must not be another's.
    explicit Model(const Services& services);

    /// Nil when the file was there but could not be read: then nothing is added or saved, and the
    /// file stays as it is.
    const std::optional<WindowStates>& windowStates() const { return windowStates_; }

    /// Replaces everything; nothing is saved yet. A save after that sets a file that could not be
    /// read aside.
    void setWindowStates(std::optional<WindowStates> states);

    void loadWindowStates();

    /// Begins with the built-in states where the file could not be read, which the save sets aside.
    /// Nothing otherwise.
    void startAfresh();

    /// The store's file; empty where there is no folder for it.
    std::filesystem::path file() const { return file_.path(); }
    /// Why there are no states; nil when there are.
    const std::optional<StoreFailure>& readFailure() const { return readFailure_; }
    /// Why the last save failed; nil when it has succeeded, or there was none.
    std::optional<StoreFailure> writeFailure() const { return writer_.failure(); }

    /// Hands the states to the background writer as they are now, without the applications that
    /// have none left.
    void save();

    /// Puts newly made built-in states in the place of those that there are, and saves.
    void restoreDefaultWindowStates();

    /// Adds the state behind the others of its application, or the global ones; also when it is
    /// there already. A state that is neither global nor of an application is ignored.
    void addWindowState(const std::shared_ptr<WindowState>& state);

    /// Removes that very object and saves, also when it was not there. Its hot key stays
    /// registered.
    void removeWindowState(const std::shared_ptr<WindowState>& state);

    /// The key of the array that holds that very object; nil when none does.
    std::optional<std::string> keyOfWindowState(const std::shared_ptr<WindowState>& state) const;

    /// Calls back after states have been removed or replaced.
    Registration onStatesRemoved(std::function<void()> callback) {
        return removals_.add(std::move(callback));
    }

    /// The dictionary is a copy, the arrays are the live ones.
    std::optional<WindowStates> allWindowStates() const { return windowStates_; }

    /// The live arrays; null when there is none.
    std::shared_ptr<WindowStateArray> defaultWindowStates() const { return arrayFor(kDefaultsKey); }
    std::shared_ptr<WindowStateArray> globalWindowStates() const { return arrayFor(kGlobalsKey); }
    std::shared_ptr<WindowStateArray> windowStatesForAppBundleId(std::string_view id) const {
        return arrayFor(id);
    }

    /// A new key event for the shortcut that moves the focused window to the next display; null
    /// when none is set.
    std::shared_ptr<CarbonKeyEvent> moveToNextWindowKeyEvent() const;
    /// Keeps the shortcut of the event in the user defaults; null for none from now on.
    void setMoveToNextWindowKeyEvent(const std::shared_ptr<CarbonKeyEvent>& event);

    /// Whether a state's hot key moves the window on when the state is in effect already.
    bool allowWindowStateShortcutsToMoveWindowNextDisplay();
    void setAllowsMoveWindow(bool allows);

    /// Returns when the last save has reached the disk or has failed.
    void finishSaving() { writer_.drain(); }

private:
    std::shared_ptr<WindowStateArray> arrayFor(std::string_view key) const;

    Defaults defaults_;
    StoreFile file_;
    StoreWriter writer_;
    std::optional<WindowStates> windowStates_;
    std::optional<StoreFailure> readFailure_;
    ObserverList<> removals_;
};

} // namespace panewright
