#pragma once

#include <QLabel>

#include <string>

namespace panewright {

/// A line under a recorder that says what is wrong with the shortcut; hidden at first.
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
    label.setText(QString::fromStdString(text));
    label.setVisible(!text.empty());
}

} // namespace panewright
