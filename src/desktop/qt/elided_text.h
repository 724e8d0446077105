#pragma once

#include <QLabel>

#include <string>

namespace panewright {

/// Shows a text whose lines may be long: each is cut in its middle at that width, in Qt's units.
/// The tool tip and a screen reader have all of it.
inline void showElided(QLabel& label, const std::string& text, int width) {
    const auto whole = QString::fromStdString(text);
    auto lines = whole.split('\n');
    for (auto& line : lines) {
        line = label.fontMetrics().elidedText(line, Qt::ElideMiddle, width);
    }
    const auto shown = lines.join('\n');
    label.setTextFormat(Qt::PlainText);
    label.setText(shown);
    label.setToolTip(shown == whole ? QString()
                                    : "<p>" + whole.toHtmlEscaped().replace('\n', "<br>") + "</p>");
    label.setAccessibleName(whole);
}

} // namespace panewright
