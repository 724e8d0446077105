#pragma once

#include <QCoreApplication>
#include <QString>

namespace panewright {

/// Where the translations have all texts of the program.
constexpr const char* kTranslationContext = "panewright";

/// A text that the user sees, which stands in the program in English, in the user's language.
inline QString localized(const char* text) {
    return QCoreApplication::translate(kTranslationContext, text);
}

} // namespace panewright
