#include "desktop/qt/qt_menu_view.h"

#include "desktop/qt/key_events.h"
#include "desktop/qt/native_geometry.h"
#include "desktop/qt/qt_image.h"
#include "desktop/qt/visible_boxes.h"
#include "ui/popover_placement.h"

#include <QGuiApplication>
#include <QMenu>
#include <QWindow>

#include <utility>

namespace panewright {
namespace {

/// The text with nothing in it that a menu makes something of.
QString plain(const std::string& text) {
    return QString::fromStdString(text).simplified().replace('&', "&&");
}

/// A shortcut stands in a column of its own, behind a tab.
QString textOf(const MenuItem& item) {
    if (item.shortcut.text.empty()) {
        return plain(item.title);
    }
    const auto shortcut = plain(item.shortcut.text);
    return plain(item.title) + '\t' +
           (item.shortcut.isTaken ? QMenu::tr("%1 (in use elsewhere)").arg(shortcut) : shortcut);
}

void addItem(QMenu& menu, const std::shared_ptr<MenuItem>& item);

void fill(QMenu& menu, const Menu& model) {
    for (const auto& item : model.items()) {
        addItem(menu, item);
    }
}

void addItem(QMenu& menu, const std::shared_ptr<MenuItem>& item) {
    if (item->isSeparator) {
        menu.addSeparator();
        return;
    }
    auto* action = menu.addAction(iconOf(item->image), textOf(*item));
    action->setEnabled(item->canBeChosen());
    action->setCheckable(item->isCheckable);
    action->setChecked(item->isChecked);
    action->setToolTip(QString::fromStdString(item->toolTip));
    if (item->submenu) {
        auto* submenu = new QMenu(&menu);
        action->setMenu(submenu);
        QObject::connect(submenu, &QMenu::aboutToShow, submenu, [submenu, model = item->submenu] {
            if (submenu->isEmpty()) {
                fill(*submenu, *model);
            }
        });
        return;
    }
    QObject::connect(action, &QAction::triggered, qApp, [item] {
        const MenuChoice choice{modifierFlagsOf(QGuiApplication::keyboardModifiers())};
        // Queued: by then the menu has closed and let go of keyboard and pointer.
        QMetaObject::invokeMethod(
            qApp, [item, choice] { item->action(choice); }, Qt::QueuedConnection);
    });
}

} // namespace

QtMenuView::QtMenuView() = default;
QtMenuView::~QtMenuView() {
    handlers_ = {}; // whom they belong to may be gone
}

void QtMenuView::popUp(const Menu& menu, const PopoverAnchor& anchor, Handlers handlers) {
    close();
    handlers_ = std::move(handlers);
    menu_ = std::make_unique<QMenu>();
    menu_->setStyle(new VisibleBoxes(menu_.get()));
    menu_->setWindowTitle("Panewright menu");
    menu_->setAccessibleName(menu_->windowTitle());
    fill(*menu_, menu);
    QObject::connect(menu_.get(), &QMenu::aboutToHide, menu_.get(), [this] { tellClosed(); });
    if (!open(anchor)) {
        close();
        tellClosed();
    }
}

bool QtMenuView::open(const PopoverAnchor& anchor) {
    const auto* screen = screenAt(anchor.rect.size() == Size{} ? anchor.workArea : anchor.rect);
    if (!screen) {
        return false;
    }
    const auto frame = placeMenu(fromQt(menu_->sizeHint()), fromNative(anchor, *screen));
    menu_->popup(toQt(frame.origin()));
    // A key that another connection holds down, such as a hot key, keeps the menu from getting
    // keyboard and pointer, and neither Escape nor a click beside it would close it.
    auto* window = menu_->windowHandle();
    return window->setKeyboardGrabEnabled(true) && window->setMouseGrabEnabled(true);
}

bool QtMenuView::isOpen() const {
    return menu_ && menu_->isVisible();
}

void QtMenuView::close() {
    if (isOpen()) {
        menu_->close();
    }
}

void QtMenuView::tellClosed() {
    if (const auto closed = std::exchange(handlers_, {}).closed) {
        closed();
    }
}

} // namespace panewright
