// What every library of texts knows, and every store of settings does.

#include "desktop/freedesktop/ini_user_defaults.h"
#include "desktop/memory/memory_services.h"
#include "desktop/memory/memory_user_defaults.h"
#include "desktop/qt/qt_text_services.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <limits>

namespace panewright {
namespace {

TEST(TextServicesContract, UppercasesAndCompares) {
    const MemoryTextServices memory;
    const QtTextServices qt;
    for (const TextServices* services : std::initializer_list<const TextServices*>{&memory, &qt}) {
        EXPECT_EQ(services->upperCased("a1z`"), "A1Z`");
        EXPECT_LT(services->localizedCaseInsensitiveCompare("alpha", "BETA"), 0);
        EXPECT_GT(services->localizedCaseInsensitiveCompare("beta", "ALPHA"), 0);
        EXPECT_EQ(services->localizedCaseInsensitiveCompare("Editor", "eDITOR"), 0);
        EXPECT_EQ(services->localized("no translation"), "no translation");
    }
    EXPECT_EQ(qt.upperCased("éß\xFF"), "ÉSS\uFFFD");
}

TEST(QtTextServicesContract, AnswersInTheFirstLanguageThatItKnows) {
    int count = 0;
    const QCoreApplication application(count, nullptr);
    const struct {
        QStringList languages;
        std::string language;
        std::string yes;
    } cases[] = {
        {{"de-CH", "de"}, "de", "Ja"},   {{"fr-FR", "fr", "de-DE"}, "de", "Ja"},
        {{"en-US", "de"}, "en", "Yes"},  {{"C"}, "en", "Yes"},
        {{"tlh", "x", ""}, "en", "Yes"}, {{}, "en", "Yes"},
    };
    for (const auto& each : cases) {
        const QtTextServices text(each.languages);
        EXPECT_EQ(text.language(), each.language) << each.languages.join(' ').toStdString();
        EXPECT_EQ(text.localized("Yes"), each.yes) << each.languages.join(' ').toStdString();
    }
}

TEST(UserDefaultsContract, GiveBackValueAndKindAndKeepKeysApart) {
    const char* const texts[] = {
        "plain", "",  "true",       "18",  "-0.5",       " blanks ", "two\nlines\r\n", R"("q" \ b)",
        "; no",  "#", "[no group]", "a=b", "Grüße 窗口", "%41",      "base64:AAEC",    "base64:?"};
    constexpr std::numeric_limits<std::int64_t> kLimits;
    const std::initializer_list<DefaultsValue> values{
        true,    false, std::int64_t{0}, kLimits.min(), kLimits.max(),    0.1 + 0.2, 5.0,
        -1e-310, 1e22,  Bytes{},         Bytes{0, 255}, Bytes(1000, 0xAB)};
    const TemporaryFolder folder;
    MemoryUserDefaults memory;
    IniUserDefaults file(folder.path() / "settings.conf");
    for (UserDefaults* store : std::initializer_list<UserDefaults*>{&memory, &file}) {
        for (const std::string text : texts) {
            store->setObject(text, text);
        }
        store->synchronize();
        for (const std::string text : texts) {
            EXPECT_EQ(store->objectForKey(text), DefaultsValue(text));
        }
        for (const DefaultsValue& value : values) {
            store->setObject("key", value);
            EXPECT_EQ(store->objectForKey("key"), value);
        }
        store->removeObjectForKey("key");
        store->removeObjectForKey("never set");
        EXPECT_EQ(store->objectForKey("key"), std::nullopt);
    }
}

} // namespace
} // namespace panewright
