// The store file as an independent program writes and reads it.

#include "support/store_fixture.h"

#include <array>
#include <cstdio>

namespace panewright {
namespace {

class ForeignStoreTest : public StoreFixture {
protected:
    void SetUp() override { std::filesystem::create_directories(folder_); }

    /// What the foreign program prints; empty when it fails.
    std::string run(const std::string& command) const {
        const std::string line =
            std::string(PYTHON) + " " + FOREIGN_STORE + " " + command + " '" + file_.string() + "'";
        std::string output;
        FILE* pipe = ::popen(line.c_str(), "r");
        std::array<char, 4096> buffer{};
        while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
            output.append(buffer.data(), count);
        }
        return ::pclose(pipe) == 0 ? output : "";
    }
};

TEST_F(ForeignStoreTest, LoadsFieldByField) {
    for (const char* command : {"write", "write-plain"}) {
        run(command);
        const auto model = makeModel();
        ASSERT_TRUE(model->windowStates()) << command;
        EXPECT_EQ(model->windowStates()->size(), 3U);

        const WindowState& builtIn = *model->defaultWindowStates()->at(0);
        EXPECT_EQ(builtIn.windowStateName(), "Full Screen");
        EXPECT_TRUE(builtIn.isDefault());
        EXPECT_TRUE(builtIn.centerWindow());
        EXPECT_EQ(builtIn.windowScale(), (Size{1, 1}));
        EXPECT_EQ(builtIn.appBundleId(), std::nullopt);
        EXPECT_EQ(builtIn.keyEvent()->keyCode(), 18U);

        const WindowState& own = *model->windowStatesForAppBundleId("org.gnome.Terminal")->at(0);
        EXPECT_TRUE(own.prefersDisplay());
        EXPECT_FALSE(own.isDefault());
        EXPECT_EQ(own.appBundleId(), "org.gnome.Terminal");
        EXPECT_EQ(own.appName(), "Terminál");
        EXPECT_EQ(own.windowStateName(), "左半分 🪟");
        EXPECT_EQ(own.originalWindowRect(), (Rect{-1280.5, 23, 1066.6666666666667, 0.1}));
        EXPECT_EQ(own.originalQuartzDisplayBounds(), (Rect{-1280, 0, 1280, 1024}));
        EXPECT_EQ(own.windowScale(), (Size{0, 0}));
        EXPECT_EQ(own.keyEvent()->keyCode(), 123U);
        EXPECT_EQ(own.keyEvent()->modifierFlags(), 0x1E0000U);
        EXPECT_EQ(own.keyEvent()->tag(), -5);

        const WindowState& sparse = *model->globalWindowStates()->at(0);
        EXPECT_TRUE(sparse.isGlobal()) << "1 counts as true";
        EXPECT_EQ(sparse.windowStateName(), std::nullopt);
        EXPECT_EQ(sparse.originalWindowRect(), Rect());
        EXPECT_EQ(sparse.keyEvent(), nullptr);
    }
}

TEST_F(ForeignStoreTest, ReadsOurs) {
    const auto model = makeModel();
    auto states = *model->windowStates();
    states.at("defaults")->resize(1);
    model->setWindowStates(states);
    const auto state = makeState("org.gnome.Terminal", "左半分 🪟");
    state->keyEvent()->setTag(-5);
    state->setPrefersDisplay(true);
    model->addWindowState(state);
    model->save();
    model->finishSaving();
    EXPECT_EQ(run("read"), R"({
 "defaults": [
  {
   "WindowState.CenterWindow": true,
   "WindowState.IsDefault": true,
   "WindowState.IsGlobal": false,
   "WindowState.KeyEvent": {
    "class": "CarbonKeyEvent",
    "keyCode": 18,
    "modifierFlags": 524288,
    "tag": 0
   },
   "WindowState.OriginalQuartzDisplayBounds": "{{0, 0}, {0, 0}}",
   "WindowState.OriginalWindowRect": "{{0, 0}, {0, 0}}",
   "WindowState.PrefersDisplay": false,
   "WindowState.WindowScale": {
    "size": "{1, 1}"
   },
   "WindowState.WindowStateName": "Full Screen",
   "class": "WindowState"
  }
 ],
 "org.gnome.Terminal": [
  {
   "WindowState.AppBundleId": "org.gnome.Terminal",
   "WindowState.AppName": "Application org.gnome.Terminal",
   "WindowState.CenterWindow": false,
   "WindowState.IsDefault": false,
   "WindowState.IsGlobal": false,
   "WindowState.KeyEvent": {
    "class": "CarbonKeyEvent",
    "keyCode": 123,
    "modifierFlags": 524288,
    "tag": -5
   },
   "WindowState.OriginalQuartzDisplayBounds": "{{0, 0}, {1920, 1080}}",
   "WindowState.OriginalWindowRect": "{{10.5, 23}, {1066.6666666666667, 700}}",
   "WindowState.PrefersDisplay": true,
   "WindowState.WindowScale": {
    "size": "{0, 0}"
   },
   "WindowState.WindowStateName": "左半分 🪟",
   "class": "WindowState"
  }
 ]
}
)");
}

} // namespace
} // namespace panewright
