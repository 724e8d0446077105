#include "desktop/qt/qt_menu_view.h"

#include "desktop/qt/native_geometry.h"
#include "desktop/qt/visible_boxes.h"
#include "shortcuts/shortcut_text.h"
#include "ui/popover_placement.h"

#include <QMenu>
#include <QWindow>

namespace panewright {
namespace {

/// A shortcut stands in a column of its own, behind a tab.
QString textOf(const MenuItem& item) {
    auto title = QString::fromStdString(item.title);
    if (item.keyEquivalent.empty()) {
        return title;
    }
    auto shortcut = QString::fromStdString(modifierSymbols(item.keyEquivalentModifierMask) +
                                           item.keyEquivalent);
    shortcut.replace('&', "&&"); // there is a key of that name
    return title + '\t' +
           (item.isKeyEquivalentTaken ? QMenu::tr("%1 (in use elsewhere)").arg(shortcut)
                                      : shortcut);
}

void addItem(QMenu& menu, const std::shared_ptr<MenuItem>& item) {
    if (item->isSeparator) {
        menu.addSeparator();
        return;
    }
    auto* action = menu.addAction(textOf(*item));
    action->setEnabled(item->action && item->isEnabled);
    action->setCheckable(item->isCheckable);
    action->setChecked(item->isChecked);
    // Queued: by then the menu has closed and let go of keyboard and pointer.
    QObject::connect(
        action, &QAction::triggered, &menu,
        [item] {
            if (item->action) {
                item->action();
            }
        },
        Qt::QueuedConnection);
}

} // namespace

QtMenuView::QtMenuView() = default;
QtMenuView::~QtMenuView() = default;

void QtMenuView::popUp(const Menu& menu, const PopoverAnchor& anchor) {
    menu_ = std::make_unique<QMenu>();
    menu_->setStyle(new VisibleBoxes(menu_.get()));
    menu_->setWindowTitle("Panewright menu");
    menu_->setAccessibleName(menu_->windowTitle());
    for (const auto& item : menu.items) {
        addItem(*menu_, item);
    }
    const auto* screen = screenAt(anchor.rect.size() == Size{} ? anchor.workArea : anchor.rect);
    if (!screen) {
        return;
    }
    const auto frame = placeMenu(fromQt(menu_->sizeHint()), fromNative(anchor, *screen));
    menu_->popup(toQt(frame.origin()));
    // A key that another connection holds down, such as a hot key, keeps the menu from getting
    // keyboard and pointer, and neither Escape nor a click beside it would close it.
    auto* window = menu_->windowHandle();
    if (!window->setKeyboardGrabEnabled(true) || !window->setMouseGrabEnabled(true)) {
        menu_->close();
    }
}

} // namespace panewright
