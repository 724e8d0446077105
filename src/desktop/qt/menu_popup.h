#pragma once

#include "desktop/qt/key_events.h"
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
    /// What a menu shares with its submenus.
    struct Context {
        const NativeKeyCodes& nativeKeyCodes;
        /// Sees each key that does nothing in a menu. True closes the whole menu.
        std::function<bool(const KeyEvent&)> keyPressed;
        /// What no menu leaves, in the toolkit's coordinates.
        QRect workArea;
    };

    /// What is in its submenus is looked at when they open. The context must outlive it.
    MenuPopup(const Menu& model, const Context& context);

    /// Of the whole menu, as far as the work area has room for it.
    QSize shownSize() const;

    /// For the toolkit: higher than any screen where the work area has not room for all.
    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

private:
    MenuPopup(std::shared_ptr<Menu> model, MenuPopup& opener);

    void fill(const Menu& model, QStyle& style);
    void addSubmenu(MenuRow& row);
    void select(QAction& row);
    void scrollBackToLastRow();
    void scrollByRow(int direction);
    void menuKeyPressed(int key);
    void typeAhead(const QString& text);
    MenuRow* rowBeginningWith(const QString& text, bool isAfterCurrent) const;
    void moveByPage(int direction);
    /// The menu that this is a submenu of; null for the outermost.
    MenuPopup* opener() const;
    bool isOverMenus(QPoint global) const;
    void hideAll();

    const Context& context_;
    /// Of the column for pictures and check marks, in the toolkit's units.
    int pictureWidth_;
    KeyRepeats repeats_;
    QString typed_;
    QTimer typingEnd_;
};

} // namespace panewright
