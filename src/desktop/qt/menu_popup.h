#pragma once

#include "desktop/shared/native_key_codes.h"
#include "menubar/menu.h"
#include "platform/key_event.h"

#include <QMenu>
#include <QTimer>

#include <functional>
#include <memory>

namespace panewright {

class MenuRow;

/// A menu, or a submenu, as Qt shows it, which screen readers know. Beside what Qt's do, its long
/// lists scroll by pages, typing moves to the row that begins so, and keys that mean nothing in a
/// menu are asked about.
class MenuPopup : public QMenu {
    Q_OBJECT

public:
    struct Keys {
        const NativeKeyCodes& nativeKeyCodes;
        /// Sees what does nothing in a menu. True closes the whole menu.
        std::function<bool(const KeyEvent&)> pressed;
    };

    /// What is in its submenus is looked at when they open. The keys must outlive it.
    MenuPopup(const Menu& model, const Keys& keys);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

private:
    MenuPopup(std::shared_ptr<Menu> model, MenuPopup& opener);

    void fill(const Menu& model, QStyle& style);
    void addSubmenu(MenuRow& row);
    void select(QAction& row);
    void typeAhead(const QString& text);
    MenuRow* rowBeginningWith(const QString& text, bool isAfterCurrent) const;
    void moveByPage(int direction);
    void hideAll();

    const Keys& keys_;
    /// Of the column for pictures and check marks, in the toolkit's units.
    int pictureWidth_;
    QString typed_;
    QTimer typingEnd_;
};

} // namespace panewright
