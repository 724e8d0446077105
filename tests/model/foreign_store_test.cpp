// The store file as an independent program writes and reads it.

#include "support/store_fixture.h"

#include <cstdlib>

namespace panewright {
namespace {

class ForeignStoreTest : public StoreFixture {
protected:
    ForeignStoreTest() { std::filesystem::create_directories(folder_); }

    /// Whether the foreign program succeeds.
    bool run(const std::string& command, const std::string& states) const {
        const std::string line = std::string(PYTHON) + " " + FOREIGN_STORE + " " + command + " '" +
                                 file_.string() + "' '" + states + "'";
        return std::system(line.c_str()) == 0;
    }
};

TEST_F(ForeignStoreTest, IsReadAndWrittenFieldByField) {
    const std::string states = contentOf(FOREIGN_STATES);
    ASSERT_TRUE(run("write", states));
    const auto model = makeModel();
    const WindowState& builtIn = *model->defaultWindowStates()->at(0);
    EXPECT_TRUE(builtIn.isDefault() && builtIn.centerWindow());
    EXPECT_FALSE(builtIn.isGlobal() || builtIn.prefersDisplay());
    EXPECT_EQ(builtIn.windowScale(), (Size{1, 0.65}));
    EXPECT_EQ(builtIn.appBundleId(), std::nullopt);
    EXPECT_EQ(builtIn.keyEvent(), nullptr);

    const WindowState& own = *model->windowStatesForAppBundleId("org.gnome.Terminal")->at(0);
    EXPECT_TRUE(own.isGlobal() && own.prefersDisplay());
    EXPECT_EQ(own.appName(), "Terminál");
    EXPECT_EQ(own.windowStateName(), "左半分 🪟");
    EXPECT_EQ(own.originalWindowRect(), (Rect{-1280.5, 23, 1066.6666666666667, 0.1}));
    EXPECT_EQ(own.originalQuartzDisplayBounds(), (Rect{-1280, 0, 1280, 1024}));
    EXPECT_EQ(own.keyEvent()->keyCode(), 123U);
    EXPECT_EQ(own.keyEvent()->modifierFlags(), 0x1E0000U);
    EXPECT_EQ(own.keyEvent()->tag(), -5);

    std::filesystem::remove(file_);
    save(*model);
    EXPECT_TRUE(run("read", states));

    run("write", R"({"globals": [{"class": "WindowState", "WindowState.IsGlobal": 1}]})");
    const auto sparseModel = makeModel();
    const WindowState& sparse = *sparseModel->globalWindowStates()->at(0);
    EXPECT_TRUE(sparse.isGlobal()) << "1 counts as true";
    EXPECT_EQ(sparse.originalWindowRect(), Rect()) << "fields may be left out";
    EXPECT_EQ(sparse.windowScale(), Size());
}

} // namespace
} // namespace panewright
