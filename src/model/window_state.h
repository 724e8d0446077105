#pragma once

#include "archive/keyed_coding.h"
#include "base/geometry.h"
#include "base/image.h"
#include "platform/analytics.h"
#include "shortcuts/carbon_key_event.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace panewright {

class ArchivedWindowState;
class ShortcutText;
class WindowStateApplier;

/// What the store keeps of a window state. Rectangles are in global points (origin top-left of the
/// main display, y downwards).
struct WindowStateRecord {
    bool isDefault = false;
    bool isGlobal = false;
    bool centerWindow = false;
    bool prefersDisplay = false;
    std::optional<std::string> appBundleId;
    std::optional<std::string> appName;
    std::optional<std::string> windowStateName;
    Size windowScale;
    Rect originalWindowRect;
    Rect originalQuartzDisplayBounds;
};

/// One saved window placement: the frame a window had, the display it was on, to which application
/// it belongs, its name and hot key.
class WindowState : public KeyedCoding, public std::enable_shared_from_this<WindowState> {
public:
    static constexpr std::string_view kArchiveClassName = "WindowState";

    /// Every field zero, false or nil.
    static std::shared_ptr<WindowState> init();
    static std::shared_ptr<WindowState> windowStateIsDefault(bool isDefault, bool isGlobal);

    /// Missing keys leave the fields as init() has them. Does not install the hot key.
    static std::shared_ptr<WindowState> initWithCoder(const KeyedDecoder& decoder);
    std::string_view archiveClassName() const override { return kArchiveClassName; }
    void encodeWithCoder(KeyedEncoder& encoder) const override;

    /// All that is archived of this state as it is now, for another thread to archive. Nothing that
    /// it shares with the state changes any more. It stays the same object until the state changes,
    /// so that thousands of states cost no copying.
    std::shared_ptr<KeyedCoding> copyForArchiving() const;

    /// One of the built-in states, placed by windowScale().
    bool isDefault() const { return record_->isDefault; }
    void setIsDefault(bool isDefault) { change().isDefault = isDefault; }
    /// Applies to every application, not only to appBundleId().
    bool isGlobal() const { return record_->isGlobal; }
    void setIsGlobal(bool isGlobal) { change().isGlobal = isGlobal; }
    /// Set on the built-in states; kept, but placement does not ask for it.
    bool centerWindow() const { return record_->centerWindow; }
    void setCenterWindow(bool centerWindow) { change().centerWindow = centerWindow; }
    /// When applied, prefer a display of the size of the saved one.
    bool prefersDisplay() const { return record_->prefersDisplay; }
    void setPrefersDisplay(bool prefersDisplay) { change().prefersDisplay = prefersDisplay; }

    /// The application that the state was saved from, also on a global state; nil for the built-in
    /// ones.
    const std::optional<std::string>& appBundleId() const { return record_->appBundleId; }
    void setAppBundleId(std::optional<std::string> id) { change().appBundleId = std::move(id); }
    const std::optional<std::string>& appName() const { return record_->appName; }
    void setAppName(std::optional<std::string> name) { change().appName = std::move(name); }
    const std::optional<std::string>& windowStateName() const { return record_->windowStateName; }
    void setWindowStateName(std::optional<std::string> name) {
        change().windowStateName = std::move(name);
    }

    /// Pictures for the menu; null until drawn. Never archived.
    const ImagePtr& windowStateImage() const { return windowStateImage_; }
    void setWindowStateImage(ImagePtr image) { windowStateImage_ = std::move(image); }
    const ImagePtr& appIconImage() const { return appIconImage_; }
    void setAppIconImage(ImagePtr image) { appIconImage_ = std::move(image); }
    const ImagePtr& appIconAndWindowStateImage() const { return appIconAndWindowStateImage_; }
    void setAppIconAndWindowStateImage(ImagePtr image) {
        appIconAndWindowStateImage_ = std::move(image);
    }

    /// Share of the display that a built-in state covers, as factors of its width and height.
    Size windowScale() const { return record_->windowScale; }
    void setWindowScale(Size scale) { change().windowScale = scale; }
    /// The window's outer frame when it was saved.
    const Rect& originalWindowRect() const { return record_->originalWindowRect; }
    void setOriginalWindowRect(const Rect& rect) { change().originalWindowRect = rect; }
    /// The bounds of the display that held it then.
    const Rect& originalQuartzDisplayBounds() const { return record_->originalQuartzDisplayBounds; }
    void setOriginalQuartzDisplayBounds(const Rect& rect) {
        change().originalQuartzDisplayBounds = rect;
    }

    /// The global hot key; null without one.
    const std::shared_ptr<CarbonKeyEvent>& keyEvent() const { return keyEvent_; }
    void setKeyEvent(std::shared_ptr<CarbonKeyEvent> event) { keyEvent_ = std::move(event); }

    /// Makes this state the target of its hot key and registers it with the shared registry;
    /// nothing without one.
    void installKeyEvent();
    void uninstallKeyEvent();

    /// Applies this state to the active window; before the program has finished launching does
    /// nothing.
    void onKeyEvent(const std::shared_ptr<CarbonKeyEvent>& sender);

    /// What usage events say of this state.
    EventAttributes attributesForTracking(const ShortcutText& text) const;

    void logDetails() const {}

    /// Who applies states on a hot key; a weak reference, empty before launch has finished.
    static void setApplier(std::weak_ptr<WindowStateApplier> applier);

private:
    WindowState() = default;

    /// The record, about to be changed: a new one if the archiving thread may hold this one.
    WindowStateRecord& change();

    std::shared_ptr<WindowStateRecord> record_ = std::make_shared<WindowStateRecord>();
    std::shared_ptr<CarbonKeyEvent> keyEvent_;
    ImagePtr windowStateImage_;
    ImagePtr appIconImage_;
    ImagePtr appIconAndWindowStateImage_;

    /// What copyForArchiving() gave out; null when the record has changed since.
    mutable std::shared_ptr<ArchivedWindowState> copy_;
};

/// States in the order of their saving.
using WindowStateArray = std::vector<std::shared_ptr<WindowState>>;

/// The arrays by "defaults", "globals" or the bundle identifier of an application; none is null.
using WindowStates = std::map<std::string, std::shared_ptr<WindowStateArray>, std::less<>>;

} // namespace panewright
