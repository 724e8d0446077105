// From the click to the painted menu, with 100, 1,000 and 10,000 states, beside a plain scrolling
// Qt menu with the same rows, in turn in one run. Needs an X display.

#include "desktop/qt/menu_style.h"
#include "desktop/qt/qt_images.h"
#include "desktop/qt/qt_menu_view.h"

#include <QApplication>
#include <QMenu>
#include <QProxyStyle>
#include <fmt/core.h>

#include <algorithm>
#include <chrono>
#include <string>
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

struct States {
    States(int count, bool isFlat) : count_(count), isFlat_(isFlat) {}

    /// A state's item, with a picture that counts how often it is drawn.
    std::shared_ptr<MenuItem> item(int number) {
        auto item = std::make_shared<MenuItem>();
        item->title = fmt::format("State number {}", number);
        item->action = [](const MenuChoice&) {};
        item->image = images_.imageOfSize({28, 16}, [this] {
            ++drawn;
            return Picture{{28, 16}, {{.rect = {0, 0, 28, 16}, .colour = {1, 1, 1, 1}}}};
        });
        return item;
    }

    void fill(Menu& menu) {
        MenuItems items;
        for (int number = 0; number < count_; ++number) {
            if (isFlat_ || number % kStatesOfAnApplication == 0) {
                items.push_back(item(number));
            }
            if (!isFlat_) {
                auto& application = *items.back();
                if (!application.submenu) {
                    application.submenu = std::make_shared<Menu>();
                }
                application.submenu->addItem(item(number));
            }
        }
        menu.insertItems(items, 0);
    }

    int drawn = 0;

private:
    static constexpr int kStatesOfAnApplication = 20;
    int count_;
    bool isFlat_;
    QtImages images_;
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

Milliseconds timeOurs(States& states) {
    static const NoKeyCodes keyCodes;
    QtMenuView view(keyCodes);
    const auto start = std::chrono::steady_clock::now();
    Menu menu;
    states.fill(menu);
    view.popUp(menu, kAnchor, {});
    const bool isPainted = openMenu() && waitUntilPainted(*openMenu());
    const auto taken = std::chrono::steady_clock::now() - start;
    view.close();
    QApplication::processEvents();
    return isPainted ? Milliseconds(taken) : Milliseconds(-1);
}

Milliseconds timePlain(int rows) {
    static ScrollingStyle style;
    const auto start = std::chrono::steady_clock::now();
    QMenu menu;
    menu.setStyle(&style);
    QPixmap picture(28, 16);
    picture.fill(Qt::white);
    const QIcon icon(picture);
    for (int number = 0; number < rows; ++number) {
        menu.addAction(icon, QString::fromStdString(fmt::format("State number {}", number)));
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
    States states(count, isFlat);
    Menu sample;
    states.fill(sample);
    const int rows = static_cast<int>(sample.items().size());
    std::vector<double> ours;
    std::vector<double> plain;
    for (int round = 0; round < kRounds; ++round) {
        states.drawn = 0;
        ours.push_back(timeOurs(states).count());
        plain.push_back(timePlain(rows).count());
    }
    fmt::print("{:6} states {:7}  {:8.2f}  {:8.2f}   {:5.2f}   {}\n", count,
               isFlat ? "flat" : "grouped", median(ours), median(plain),
               median(ours) / median(plain), states.drawn);
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
