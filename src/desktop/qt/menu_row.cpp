#include "desktop/qt/menu_row.h"

#include "desktop/qt/localized.h"
#include "desktop/qt/localized_shortcut.h"

#include <QMenu>

#include <algorithm>
#include <utility>

namespace panewright {
namespace {

bool endsLine(QChar c) {
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
}

QString onOneLine(QString line) {
    if (std::any_of(line.cbegin(), line.cend(), endsLine)) {
        std::replace_if(line.begin(), line.end(), endsLine, QChar(' '));
    }
    return line;
}

} // namespace

MenuRow::MenuRow(std::shared_ptr<MenuItem> item, QObject* parent)
    : QAction(parent), item_(std::move(item)) {
    if (item_->isSeparator) {
        setSeparator(true);
        return;
    }
    title_ = onOneLine(QString::fromStdString(item_->title));
    if (const auto& shortcut = item_->shortcut; !shortcut.text.empty()) {
        const auto text = onOneLine(QString::fromStdString(shortcut.text));
        shortcutText_ = shortcut.isTaken ? localized("%1 (in use elsewhere)").arg(text) : text;
    }
    setText(spoken().replace('&', "&&"));
    setToolTip(QString::fromStdString(item_->toolTip));
    setEnabled(item_->canBeChosen());
    setCheckable(item_->isCheckable);
    setChecked(item_->isChecked);
}

QString MenuRow::spoken() const {
    if (isTitleSpoken()) {
        return title_;
    }
    const auto& shortcut = item_->shortcut;
    const auto words = onOneLine(localizedShortcut(shortcut.words));
    return title_ + ", " +
           (shortcut.isTaken ? localized("%1 (in use elsewhere)").arg(words) : words);
}

} // namespace panewright
