#include "desktop/qt/menu_popup.h"

#include "desktop/qt/menu_row.h"
#include "desktop/qt/menu_style.h"

#include <QStyleOption>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace panewright {
namespace {

using namespace std::chrono_literals;

/// After a pause of this length typing starts anew.
constexpr auto kTypingPause = 1s;
/// Windows that the manager does not see, and that hold keyboard and pointer while they are open.
constexpr Qt::WindowFlags kWindowKind = Qt::Popup;
constexpr int kHigherThanAnyScreen = 1 << 20;
constexpr double kFarAside = 1 << 20;
constexpr int kWheelUp = 1;
/// Room for a check mark.
constexpr int kLeastPictureWidth = 16;

bool isCommand(const QKeyEvent& event) {
    return event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

/// Arrows, Return and Escape are the menu's whatever is held with them, the others without.
bool isMenuKey(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return !isCommand(event);
    default:
        return false;
    }
}

bool isTyping(const QKeyEvent& event) {
    return !isCommand(event) && !event.text().isEmpty() && event.text().front().isPrint();
}

} // namespace

MenuPopup::MenuPopup(const Menu& model, const Context& context)
    : context_(context), pictureWidth_(kLeastPictureWidth) {
    fill(model, *new MenuStyle(this));
}

/// There may be thousands of them, of which few are opened.
MenuPopup::MenuPopup(std::shared_ptr<Menu> model, MenuPopup& opener)
    : QMenu(&opener), context_(opener.context_), pictureWidth_(kLeastPictureWidth) {
    connect(this, &QMenu::aboutToShow, this, [this, model = std::move(model), &opener] {
        if (isEmpty()) {
            fill(*model, *opener.style());
        }
    });
}

void MenuPopup::fill(const Menu& model, QStyle& style) {
    setWindowFlags(kWindowKind);
    setStyle(&style);
    setToolTipsVisible(true);
    typingEnd_.setSingleShot(true);
    connect(&typingEnd_, &QTimer::timeout, this, [this] { typed_.clear(); });
    QList<QAction*> rows;
    rows.reserve(static_cast<qsizetype>(model.items().size()));
    for (const auto& item : model.items()) {
        auto* row = new MenuRow(item, this);
        if (item->image) {
            pictureWidth_ =
                std::max(pictureWidth_, static_cast<int>(std::ceil(item->image->size().width)));
        }
        if (item->submenu) {
            addSubmenu(*row);
        }
        rows.append(row);
    }
    addActions(rows);
}

void MenuPopup::addSubmenu(MenuRow& row) {
    auto* submenu = new MenuPopup(row.item()->submenu, *this);
    submenu->setAccessibleName(row.title());
    row.setMenu(submenu);
}

QSize MenuPopup::shownSize() const {
    const auto size = QMenu::sizeHint();
    return {size.width(), std::min(size.height(), context_.workArea.height())};
}

/// The toolkit lets a menu scroll only if its screen is too low for it.
QSize MenuPopup::sizeHint() const {
    const auto size = QMenu::sizeHint();
    return size == shownSize() ? size : QSize(size.width(), kHigherThanAnyScreen);
}

/// The toolkit has placed the menu on its screen, where panels are.
void MenuPopup::showEvent(QShowEvent* event) {
    const auto& area = context_.workArea;
    auto place = geometry();
    place.setHeight(std::min(place.height(), area.height()));
    place.moveTop(std::clamp(place.top(), area.top(), area.top() + area.height() - place.height()));
    setGeometry(place);
    QMenu::showEvent(event);
}

/// Tells the style which row it is, and how wide the column of pictures.
void MenuPopup::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenu::initStyleOption(option, action);
    option->maxIconWidth = pictureWidth_;
    option->styleObject = const_cast<QAction*>(action); // which the style only reads
}

void MenuPopup::hideEvent(QHideEvent* event) {
    typed_.clear();
    QMenu::hideEvent(event);
}

void MenuPopup::keyPressEvent(QKeyEvent* event) {
    event->accept();
    const bool isRepeat = repeats_.isRepeat(*event);
    if (isMenuKey(*event)) {
        menuKeyPressed(event->key());
    } else if (isRepeat || isModifierKey(*event, context_.nativeKeyCodes)) {
        return; // what is held was meant for what came before; the toolkit closes menus by Alt
    } else if (isTyping(*event)) {
        typeAhead(event->text());
    } else if (const auto key = keyEventOf(*event, context_.nativeKeyCodes);
               key && context_.keyPressed(*key)) {
        hideAll();
    }
}

void MenuPopup::menuKeyPressed(int key) {
    if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
        moveByPage(key == Qt::Key_PageUp ? -1 : 1);
        return;
    }
    QKeyEvent alone(QEvent::KeyPress, key, Qt::NoModifier); // with Alt the toolkit ignores Escape
    QMenu::keyPressEvent(&alone);
}

void MenuPopup::keyReleaseEvent(QKeyEvent* event) {
    repeats_.isRepeat(*event);
    QMenu::keyReleaseEvent(event);
}

/// The toolkit scrolls a menu while the pointer is anywhere above or below it, as on the panel that
/// it hangs from. So what is outside counts as far to the left.
bool MenuPopup::event(QEvent* event) {
    const bool isOfPointer = event->type() == QEvent::MouseMove ||
                             event->type() == QEvent::MouseButtonPress ||
                             event->type() == QEvent::MouseButtonRelease;
    if (!isOfPointer) {
        return QMenu::event(event);
    }
    const auto& mouse = static_cast<QMouseEvent&>(*event);
    if (isOverMenus(mouse.globalPosition().toPoint())) {
        return QMenu::event(event);
    }
    const QPointF aside(kFarAside, 0);
    QMouseEvent outside(mouse.type(), mouse.position() - aside, mouse.globalPosition() - aside,
                        mouse.button(), mouse.buttons(), mouse.modifiers());
    return QMenu::event(&outside);
}

bool MenuPopup::isOverMenus(QPoint global) const {
    return geometry().contains(global) || (opener() && opener()->isOverMenus(global));
}

MenuPopup* MenuPopup::opener() const {
    return qobject_cast<MenuPopup*>(parentWidget());
}

void MenuPopup::hideAll() {
    auto* root = this;
    while (root->opener()) {
        root = root->opener();
    }
    root->hide();
}

void MenuPopup::typeAhead(const QString& text) {
    typed_ += text;
    typingEnd_.start(kTypingPause);
    const bool isOneLetter = typed_.count(typed_.front()) == typed_.size();
    auto* row = rowBeginningWith(typed_, typed_.size() == 1);
    if (!row && isOneLetter) {
        row = rowBeginningWith(typed_.left(1), true); // the same letter again: the next such row
    }
    if (row && row != activeAction()) { // a screen reader would say it again
        select(*row);
    }
}

/// The toolkit would open the row's submenu too, and the next keys would go there. It leaves a
/// submenu closed that is disabled.
void MenuPopup::select(QAction& row) {
    auto* submenu = row.menu();
    if (submenu) {
        submenu->setAttribute(Qt::WA_Disabled, true);
    }
    setActiveAction(&row);
    if (submenu) {
        submenu->setAttribute(Qt::WA_Disabled, false);
    }
    scrollBackToLastRow();
}

/// The toolkit scrolls the selected row to the middle, also where that leaves nothing to show at
/// the end of the menu.
void MenuPopup::scrollBackToLastRow() {
    const auto bottom = [this] { return actionGeometry(actions().last()).bottom(); };
    const int border = style()->pixelMetric(QStyle::PM_MenuPanelWidth);
    const int wanted = rect().bottom() - border;
    if (bottom() >= wanted) {
        return;
    }
    for (int before = bottom() - 1; before < bottom() && bottom() < wanted;) {
        before = bottom();
        scrollByRow(kWheelUp);
    }
    scrollByRow(-kWheelUp); // so that the last one is whole
}

void MenuPopup::scrollByRow(int direction) {
    QWheelEvent event(rect().center(), geometry().center(), {}, {0, direction}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    wheelEvent(&event);
}

/// Looks from the current row on, or after it, and then from the top.
MenuRow* MenuPopup::rowBeginningWith(const QString& text, bool isAfterCurrent) const {
    auto rows = actions();
    if (const auto current = rows.indexOf(activeAction()); current >= 0) {
        std::rotate(rows.begin(), rows.begin() + current + (isAfterCurrent ? 1 : 0), rows.end());
    }
    for (auto* action : rows) {
        auto* row = dynamic_cast<MenuRow*>(action);
        if (row && row->isEnabled() && !row->isSeparator() &&
            row->title().startsWith(text, Qt::CaseInsensitive)) {
            return row;
        }
    }
    return nullptr;
}

/// To the row a page further, else to the last that can be chosen on the way.
void MenuPopup::moveByPage(int direction) {
    const auto rows = actions();
    auto index = rows.indexOf(activeAction());
    if (index < 0) {
        index = direction > 0 ? -1 : rows.size();
    }
    int left = height();
    QAction* target = nullptr;
    for (index += direction; index >= 0 && index < rows.size() && left > 0; index += direction) {
        left -= actionGeometry(rows[index]).height();
        if (rows[index]->isEnabled() && !rows[index]->isSeparator()) {
            target = rows[index];
        }
    }
    if (target) {
        select(*target);
    }
}

} // namespace panewright
