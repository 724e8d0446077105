#include "desktop/qt/qt_text_services.h"

#include <QCoreApplication>
#include <QString>
#include <QStringView>

namespace panewright {
namespace {

QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool isWhitespace(QChar character) {
    return character == '\t' || character.category() == QChar::Separator_Space;
}

} // namespace

std::string QtTextServices::upperCased(std::string_view text) const {
    return toQt(text).toUpper().toStdString();
}

std::string QtTextServices::localized(const char* text) const {
    return QCoreApplication::translate("panewright", text).toStdString();
}

int QtTextServices::localizedCaseInsensitiveCompare(std::string_view a, std::string_view b) const {
    return QString::localeAwareCompare(toQt(a).toCaseFolded(), toQt(b).toCaseFolded());
}

std::string QtTextServices::trimmedOfWhitespace(std::string_view text) const {
    const auto whole = toQt(text);
    QStringView rest(whole);
    while (!rest.isEmpty() && isWhitespace(rest.front())) {
        rest = rest.sliced(1);
    }
    while (!rest.isEmpty() && isWhitespace(rest.back())) {
        rest.chop(1);
    }
    return rest.toString().toStdString();
}

} // namespace panewright
