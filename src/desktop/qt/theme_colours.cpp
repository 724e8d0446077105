#include "desktop/qt/theme_colours.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QToolTip>

namespace panewright {
namespace {

QPalette darkPalette() {
    const QColor ground(0x2b, 0x2b, 0x2b);
    const QColor text(0xee, 0xee, 0xee);
    const QColor fadedText(0x85, 0x85, 0x85);
    QPalette palette(QColor(0x3a, 0x3a, 0x3a), ground);
    palette.setColor(QPalette::Base, QColor(0x23, 0x23, 0x23));
    palette.setColor(QPalette::AlternateBase, ground);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xd6));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xa6, 0xff));
    palette.setColor(QPalette::PlaceholderText, fadedText);
    palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3a, 0x3a));
    palette.setColor(QPalette::ToolTipText, text);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, fadedText);
    }
    return palette;
}

/// The colours are the style's own where no theme has brought others.
bool isThemed() {
    const auto current = QApplication::palette();
    const auto standard = QApplication::style()->standardPalette();
    for (const auto role : {QPalette::Window, QPalette::WindowText, QPalette::Base}) {
        if (current.color(role) != standard.color(role)) {
            return true;
        }
    }
    return false;
}

} // namespace

ThemeColours::ThemeColours(ColourScheme& scheme) : scheme_(scheme) {
    if (!isThemed()) {
        changes_ = scheme.onChange([this] { apply(); });
        apply();
    }
}

void ThemeColours::apply() const {
    const auto palette =
        scheme_.isDark() ? darkPalette() : QApplication::style()->standardPalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

} // namespace panewright
