#include "desktop/qt/localized_shortcut.h"

#include "desktop/qt/localized.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

namespace panewright {
namespace {

/// What a keyboard layout does not have: these are the same on all keyboards of a language.
QString keyName(const QString& name) {
    static const QHash<QString, QString> kNames{
        {"Ctrl", localized("Ctrl")},       {"Alt", localized("Alt")},
        {"Shift", localized("Shift")},     {"Super", localized("Super")},
        {"Return", localized("Return")},   {"Enter", localized("Enter")},
        {"Space", localized("Space")},     {"Backspace", localized("Backspace")},
        {"Insert", localized("Insert")},   {"Delete", localized("Delete")},
        {"Home", localized("Home")},       {"End", localized("End")},
        {"Page Up", localized("Page Up")}, {"Page Down", localized("Page Down")},
        {"Left", localized("Left")},       {"Right", localized("Right")},
        {"Up", localized("Up")},           {"Down", localized("Down")},
    };
    return kNames.value(name, name);
}

} // namespace

QString localizedShortcut(const std::string& words) {
    const auto text = QString::fromStdString(words);
    // A last plus is the key itself.
    const auto beforeKey = text.lastIndexOf('+', -2);
    auto names = text.left(std::max<qsizetype>(beforeKey, 0)).split('+', Qt::SkipEmptyParts);
    names += text.mid(beforeKey + 1);
    std::transform(names.begin(), names.end(), names.begin(), keyName);
    return names.join('+');
}

} // namespace panewright
