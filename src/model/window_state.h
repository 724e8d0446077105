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

class ShortcutText;
class WindowStateApplier;

/// One saved window placement: the frame a window had, the display it was on, to which application
/// it belongs, its name and hot key. Rectangles are in global points (origin top-left of the main
/// display, y downwards).
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

    /// All that is archived of this state as it is now, for another thread to archive. Shares
    /// nothing with the state (pictures least of all, which only the main thread may release), and
    /// stays the same object until the state changes, so that thousands of states cost no copying.
    std::shared_ptr<KeyedCoding> copyForArchiving() const;

    /// One of the built-in states, placed by windowScale().
    bool isDefault() const { return isDefault_; }
    void setIsDefault(bool isDefault) { change(isDefault_) = isDefault; }
    /// Applies to every application, not only to appBundleId().
    bool isGlobal() const { return isGlobal_; }
    void setIsGlobal(bool isGlobal) { change(isGlobal_) = isGlobal; }
    /// Set on the built-in states; kept, but placement does not ask for it.
    bool centerWindow() const { return centerWindow_; }
    void setCenterWindow(bool centerWindow) { change(centerWindow_) = centerWindow; }
    /// When applied, prefer a display of the size of the saved one.
    bool prefersDisplay() const { return prefersDisplay_; }
    void setPrefersDisplay(bool prefersDisplay) { change(prefersDisplay_) = prefersDisplay; }

    /// The application that the state was saved from, also on a global state; nil for the built-in
    /// ones.
    const std::optional<std::string>& appBundleId() const { return appBundleId_; }
    void setAppBundleId(std::optional<std::string> id) { change(appBundleId_) = std::move(id); }
    const std::optional<std::string>& appName() const { return appName_; }
    void setAppName(std::optional<std::string> name) { change(appName_) = std::move(name); }
    const std::optional<std::string>& windowStateName() const { return windowStateName_; }
    void setWindowStateName(std::optional<std::string> name) {
        change(windowStateName_) = std::move(name);
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
    Size windowScale() const { return windowScale_; }
    void setWindowScale(Size scale) { change(windowScale_) = scale; }
    /// The window's outer frame when it was saved.
    const Rect& originalWindowRect() const { return originalWindowRect_; }
    void setOriginalWindowRect(const Rect& rect) { change(originalWindowRect_) = rect; }
    /// The bounds of the display that held it then.
    const Rect& originalQuartzDisplayBounds() const { return originalQuartzDisplayBounds_; }
    void setOriginalQuartzDisplayBounds(const Rect& rect) {
        change(originalQuartzDisplayBounds_) = rect;
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

    /// The field, about to be changed.
    template <class Field>
    Field& change(Field& field) {
        copy_ = nullptr;
        return field;
    }

    std::shared_ptr<WindowState> newCopyForArchiving() const;

    bool isDefault_ = false;
    bool isGlobal_ = false;
    bool centerWindow_ = false;
    bool prefersDisplay_ = false;
    std::optional<std::string> appBundleId_;
    std::optional<std::string> appName_;
    std::optional<std::string> windowStateName_;
    ImagePtr windowStateImage_;
    ImagePtr appIconImage_;
    ImagePtr appIconAndWindowStateImage_;
    Size windowScale_;
    Rect originalWindowRect_;
    Rect originalQuartzDisplayBounds_;
    std::shared_ptr<CarbonKeyEvent> keyEvent_;

    mutable std::shared_ptr<WindowState> copy_; // null when it would be out of date
};

/// States in the order of their saving.
using WindowStateArray = std::vector<std::shared_ptr<WindowState>>;

/// The arrays by "defaults", "globals" or the bundle identifier of an application; none is null.
using WindowStates = std::map<std::string, std::shared_ptr<WindowStateArray>, std::less<>>;

} // namespace panewright
