#include "desktop/qt/qt_text_services.h"

#include "desktop/qt/localized.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QString>

namespace panewright {
namespace {

QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// "de" of "de-CH".
QString withoutRegion(const QString& tag) {
    return tag.section('-', 0, 0);
}

/// The program itself is in English, as is who asks for no language ("C").
bool isSourceLanguage(const QString& language) {
    return language == QLatin1String(kSourceLanguage.data()) || language == "C";
}

} // namespace

QtTextServices::QtTextServices(const QStringList& languages) {
    for (const auto& tag : languages) {
        const auto language = withoutRegion(tag);
        if (isSourceLanguage(language)) {
            return; // though another one, liked less, is known
        }
        if (translation_.load("panewright_" + language, ":/translations")) {
            language_ = language.toStdString();
            QCoreApplication::installTranslator(&translation_);
            if (toolkitTranslation_.load("qtbase_" + language,
                                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
                QCoreApplication::installTranslator(&toolkitTranslation_);
            }
            return;
        }
    }
}

std::string QtTextServices::upperCased(std::string_view text) const {
    return toQt(text).toUpper().toStdString();
}

std::string QtTextServices::localized(const char* text) const {
    return panewright::localized(text).toStdString();
}

int QtTextServices::localizedCaseInsensitiveCompare(std::string_view a, std::string_view b) const {
    return QString::localeAwareCompare(toQt(a).toCaseFolded(), toQt(b).toCaseFolded());
}

} // namespace panewright
