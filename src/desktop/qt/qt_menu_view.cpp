#include "desktop/qt/qt_menu_view.h"

#include "desktop/qt/key_events.h"
#include "desktop/qt/menu_row.h"
#include "desktop/qt/native_geometry.h"
#include "ui/popover_placement.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// How long another program, such as a window manager whose binding has opened the menu, may hold
/// the keyboard while its key is down.
constexpr auto kPatienceForKeyboard = 1s;
constexpr auto kKeyboardTry = 20ms;

} // namespace

QtMenuView::QtMenuView(const NativeKeyCodes& keyCodes)
    : context_{keyCodes,
               [this](const KeyEvent& key) {
                   return handlers_.hotKeyPressed && handlers_.hotKeyPressed(key);
               },
               QRect()} {}

QtMenuView::~QtMenuView() {
    handlers_ = {}; // whom they belong to may be gone
}

void QtMenuView::popUp(const Menu& menu, const PopoverAnchor& anchor, Handlers handlers) {
    close();
    handlers_ = std::move(handlers);
    menu_ = std::make_unique<MenuPopup>(menu, context_);
    menu_->setWindowTitle("Panewright menu");
    menu_->setAccessibleName(menu_->windowTitle());
    QObject::connect(menu_.get(), &QMenu::aboutToHide, menu_.get(), [this] { tellClosed(); });
    QObject::connect(menu_.get(), &QMenu::triggered, menu_.get(),
                     [this](const QAction* action) { choose(*action); });
    place(anchor);
}

void QtMenuView::place(const PopoverAnchor& anchor) {
    const auto* screen = screenAt(anchor.rect.size() == Size{} ? anchor.workArea : anchor.rect);
    if (!screen) {
        tellClosed();
        return;
    }
    const auto here = fromNative(anchor, *screen);
    context_.workArea =
        QRectF(here.workArea.x, here.workArea.y, here.workArea.width, here.workArea.height)
            .toRect();
    const auto frame = placeMenu(fromQt(menu_->shownSize()), here);
    menu_->popup(toQt(frame.origin()));
    takeKeyboardAndPointer(Clock::now() + kPatienceForKeyboard);
}

/// Without them neither Escape nor a click beside the menu would close it.
void QtMenuView::takeKeyboardAndPointer(Clock::time_point deadline) {
    if (!isOpen()) {
        return;
    }
    auto* window = menu_->windowHandle();
    if (window->setKeyboardGrabEnabled(true) && window->setMouseGrabEnabled(true)) {
        return;
    }
    if (Clock::now() >= deadline) {
        close();
        return;
    }
    QTimer::singleShot(kKeyboardTry, menu_.get(),
                       [this, deadline] { takeKeyboardAndPointer(deadline); });
}

/// The action is called later: the menu has closed then and let go of keyboard and pointer.
void QtMenuView::choose(const QAction& action) {
    close(); // which a screen reader's choice does not
    const auto* row = dynamic_cast<const MenuRow*>(&action);
    if (!row || !row->item()->action) {
        return;
    }
    const MenuChoice choice{modifierFlagsOf(QGuiApplication::keyboardModifiers())};
    QMetaObject::invokeMethod(
        qApp, [item = row->item(), choice] { item->action(choice); }, Qt::QueuedConnection);
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
