#pragma once

#include "menubar/menu.h"

#include <QAction>
#include <QString>

#include <memory>

namespace panewright {

/// A line of a menu that Qt shows. The action's text is what screen readers say; what is drawn
/// stands beside it.
class MenuRow : public QAction {
public:
    /// Goes with the parent.
    MenuRow(std::shared_ptr<MenuItem> item, QObject* parent);

    const std::shared_ptr<MenuItem>& item() const { return item_; }
    /// On one line: a blank stands for each control character.
    const QString& title() const { return title_; }
    /// Whether that is all that is said.
    bool isTitleSpoken() const { return item_->shortcut.words.empty(); }
    /// Empty for none.
    const QString& shortcutText() const { return shortcutText_; }

private:
    QString spoken() const;

    std::shared_ptr<MenuItem> item_;
    QString title_;
    QString shortcutText_;
};

} // namespace panewright
