#pragma once

#include "menubar/menu_view.h"

#include <memory>

class QMenu;

namespace panewright {

/// Menus as pop-ups of this program, so that they work the same under every panel.
class QtMenuView : public MenuView {
public:
    QtMenuView();
    ~QtMenuView() override;

    void popUp(const Menu& menu, const PopoverAnchor& anchor, Handlers handlers) override;
    bool isOpen() const override;
    void close() override;

private:
    bool open(const PopoverAnchor& anchor);
    void tellClosed();

    std::unique_ptr<QMenu> menu_;
    Handlers handlers_;
};

} // namespace panewright
