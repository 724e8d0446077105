#include "desktop/qt/localized_shortcut.h"

#include <QCoreApplication>
#include <QTranslator>

#include <gtest/gtest.h>

namespace panewright {
namespace {

TEST(LocalizedShortcutTest, HasTheWordsOnTheUsersKeys) {
    int argc = 0;
    QCoreApplication application(argc, nullptr);
    QTranslator german;
    ASSERT_TRUE(german.load(":/translations/panewright_de.qm"));
    QCoreApplication::installTranslator(&german);
    const std::pair<const char*, const char*> cases[] = {
        {"Ctrl+Alt+Shift+Page Up", "Strg+Alt+Umschalt+Bild auf"},
        {"Super++", "Super++"}, // the last one is the key
        {"Shift+Vol+", "Umschalt+Vol+"},
        {"+", "+"},
        {"Delete", "Entf"},
        {"", ""},
    };
    for (const auto& [words, expected] : cases) {
        EXPECT_EQ(localizedShortcut(words).toStdString(), expected);
    }
}

} // namespace
} // namespace panewright
