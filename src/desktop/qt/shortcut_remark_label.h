#pragma once

#include "desktop/qt/elided_text.h"

namespace panewright {

// In Qt's units.
constexpr int kRemarkWidth = 240;

/// The lines under a recorder that say what is wrong with the shortcut; hidden at first.
inline QLabel* makeShortcutRemarkLabel() {
    auto* label = new QLabel;
    auto palette = label->palette();
    palette.setColor(QPalette::WindowText, QColor(0xc2, 0x45, 0x00));
    label->setPalette(palette);
    label->hide();
    return label;
}

/// Empty hides it.
inline void showRemark(QLabel& label, const std::string& text) {
    showElided(label, text, kRemarkWidth);
    label.setVisible(!text.empty());
}

} // namespace panewright
