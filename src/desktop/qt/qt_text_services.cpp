#include "desktop/qt/qt_text_services.h"

#include <QString>

namespace panewright {

std::string QtTextServices::upperCased(std::string_view text) const {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
        .toUpper()
        .toStdString();
}

} // namespace panewright
