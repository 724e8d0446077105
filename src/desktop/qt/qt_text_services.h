#pragma once

#include "platform/text_services.h"

#include <QLocale>
#include <QStringList>
#include <QTranslator>

namespace panewright {

/// Texts in the first of the user's languages that the program knows, the toolkit's own too; in
/// English without one. Needs the toolkit's application object; the texts stay in that language as
/// long as the services live.
class QtTextServices : public TextServices {
public:
    /// Languages as BCP 47 tags, the one the user likes best first.
    explicit QtTextServices(const QStringList& languages = QLocale().uiLanguages());

    std::string upperCased(std::string_view text) const override;
    std::string localized(const char* text) const override;
    std::string language() const override { return language_; }
    int localizedCaseInsensitiveCompare(std::string_view a, std::string_view b) const override;

private:
    QTranslator translation_;
    QTranslator toolkitTranslation_;
    std::string language_{kSourceLanguage};
};

} // namespace panewright
