// From the click on the icon to the painted menu, with 100, 1,000 and 10,000 states, beside a plain
// scrolling Qt menu with the same rows, in turn in one run. Needs an X display.

#include "desktop/memory/memory_desktop.h"
#include "desktop/memory/memory_standard_folders.h"
#include "desktop/qt/qt_images.h"
#include "desktop/qt/qt_menu_view.h"
#include "desktop/qt/qt_text_services.h"
#include "menubar/status_menu.h"
#include "model/model.h"
#include "model/store_lock.h"
#include "support/temporary_folder.h"

#include <QApplication>
#include <QMenu>
#include <QProxyStyle>
#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace panewright {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;
constexpr int kRounds = 9;
constexpr PopoverAnchor kAnchor{{1500, 0, 23, 23}, {0, 0, 1600, 900}};

/// The keyboard is not used.
struct NoKeyCodes : NativeKeyCodes {
    std::optional<std::uint16_t> virtualKeyCode(std::uint32_t /*scanCode*/,
                                                std::uint32_t /*virtualKey*/) const override {
        return std::nullopt;
    }
};

struct ScrollingStyle : QProxyStyle {
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_Menu_Scrollable ? 1 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

/// Counts the pictures that are drawn.
struct CountingImages : QtImages {
    ImagePtr imageOfSize(Size size, std::function<Picture()> drawing) override {
        return QtImages::imageOfSize(size, [this, drawing = std::move(drawing)] {
            ++drawn;
            return drawing();
        });
    }
    int drawn = 0;
};

constexpr int kStatesOfAnApplication = 20;

/// A store with so many states, of which an application in front has some.
class StoreOf {
public:
    explicit StoreOf(int count) {
        for (int number = 0; number < count; ++number) {
            const int application = number / kStatesOfAnApplication;
            auto state = WindowState::windowStateIsDefault(false, false);
            state->setAppBundleId(fmt::format("org.example.Application{}", application));
            state->setAppName(fmt::format("Application {}", application));
            state->setWindowStateName(fmt::format("State number {}", number));
            state->setOriginalWindowRect({number % 900 + 0.5, 23, 640, 480});
            state->setOriginalQuartzDisplayBounds({0, 0, 1920, 1080});
            model_.addWindowState(state);
        }
    }

    Model& model() { return model_; }

private:
    TemporaryFolder folder_;
    MemoryStandardFolders folders_{folder_.path()};
    MemoryUserDefaults defaults_;
    MemoryBackgroundWork background_;
    StoreLock lock_{folders_, "the bench"};
    Model model_{Model::Services{folders_, defaults_, lock_, background_}};
};

/// The menu of such a store, as the program opens it.
class Opening {
public:
    explicit Opening(int count) : store_(count) {}

    const Menu& fill(bool isFlat) {
        menu_.menuNeedsUpdate({.isRightButton = isFlat});
        return menu_.statusItemMenu();
    }
    /// As half a second after the menu has closed.
    void cleanUp() { menu_.removeMenuItems(); }
    int takeDrawn() { return std::exchange(images_.drawn, 0); }

private:
    StoreOf store_;
    MemoryDesktop desktop_;
    CountingImages images_;
    QtTextServices text_;
    std::shared_ptr<FocusTracking> focus_ = FocusTracking::create(
        {desktop_.accessibility, desktop_.displays, desktop_.workspace, desktop_.program});
    StoreTroubles storeTroubles_{{desktop_.alerts, store_.model(), text_, {}}};
    StatusMenu menu_{
        {desktop_.icons, desktop_.displays, desktop_.hotKeys, images_, desktop_.mainLoop, text_,
         ShortcutText(desktop_.keyboardLayout, text_), Tracking(desktop_.analytics), store_.model(),
         storeTroubles_, *focus_},
        {[] {}, [](const auto&) {}, [](const auto&) {}, [](const auto&) {}},
        FixedMenuItems(text_, desktop_.program,
                       ProductPages(desktop_.workspace, desktop_.program, text_, desktop_.beeper),
                       {})};
};

bool waitUntilPainted(QMenu& menu) {
    struct Watch : QObject {
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            isPainted = isPainted || event->type() == QEvent::Paint;
            return false;
        }
        bool isPainted = false;
    } watch;
    menu.installEventFilter(&watch);
    for (int turn = 0; turn < 1000 && !watch.isPainted; ++turn) {
        QApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return watch.isPainted;
}

QMenu* openMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

Milliseconds timeOurs(Opening& opening, bool isFlat) {
    static const NoKeyCodes kKeyCodes;
    QtMenuView view(kKeyCodes);
    const auto start = std::chrono::steady_clock::now();
    view.popUp(opening.fill(isFlat), kAnchor, {});
    const bool isPainted = openMenu() && waitUntilPainted(*openMenu());
    const auto taken = std::chrono::steady_clock::now() - start;
    view.close();
    QApplication::processEvents();
    opening.cleanUp();
    return isPainted ? Milliseconds(taken) : Milliseconds(-1);
}

/// The same rows with nothing but titles and one picture.
Milliseconds timePlain(const Menu& rows) {
    static ScrollingStyle style;
    QPixmap picture(28, 16);
    picture.fill(Qt::white);
    const QIcon icon(picture);
    const auto start = std::chrono::steady_clock::now();
    QMenu menu;
    menu.setStyle(&style);
    for (const auto& row : rows.items()) {
        if (row->isSeparator) {
            menu.addSeparator();
            continue;
        }
        auto* action = menu.addAction(icon, QString::fromStdString(row->title));
        if (row->submenu) {
            action->setMenu(new QMenu(&menu));
        }
    }
    menu.popup({1500, 23});
    const bool isPainted = waitUntilPainted(menu);
    const auto taken = std::chrono::steady_clock::now() - start;
    menu.close();
    QApplication::processEvents();
    return isPainted ? Milliseconds(taken) : Milliseconds(-1);
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void measure(int count, bool isFlat) {
    Opening opening(count);
    std::vector<double> ours;
    std::vector<double> plain;
    int drawn = 0;
    for (int round = 0; round < kRounds; ++round) {
        opening.takeDrawn();
        ours.push_back(timeOurs(opening, isFlat).count());
        drawn = opening.takeDrawn();
        plain.push_back(timePlain(opening.fill(isFlat)).count());
        opening.cleanUp();
    }
    fmt::print("{:6} states {:7}  {:8.2f}  {:8.2f}   {:5.2f}   {}\n", count,
               isFlat ? "flat" : "grouped", median(ours), median(plain),
               median(ours) / median(plain), drawn);
}

} // namespace
} // namespace panewright

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    fmt::print("medians of {}, ms      ours     plain   ratio   pictures drawn\n",
               panewright::kRounds);
    for (const int count : {100, 1000, 10000}) {
        for (const bool isFlat : {true, false}) {
            panewright::measure(count, isFlat);
        }
    }
    return 0;
}
