#pragma once

#include "desktop/qt/menu_popup.h"
#include "menubar/menu_view.h"

#include <chrono>
#include <memory>

namespace panewright {

/// Menus as pop-ups of this program, so that they work the same under every panel.
class QtMenuView : public MenuView {
public:
    explicit QtMenuView(const NativeKeyCodes& keyCodes);
    ~QtMenuView() override;

    void popUp(const Menu& menu, const PopoverAnchor& anchor, Handlers handlers) override;
    bool isOpen() const override;
    void close() override;

private:
    using Clock = std::chrono::steady_clock;

    void place(const PopoverAnchor& anchor);
    void takeKeyboardAndPointer(Clock::time_point deadline);
    void choose(const QAction& action);
    void tellClosed();

    MenuPopup::Context context_;
    Handlers handlers_;
    std::unique_ptr<MenuPopup> menu_;
};

} // namespace panewright
