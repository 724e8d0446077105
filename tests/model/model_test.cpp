#include "model/model.h"

#include "archive/keyed_archiver.h"
#include "archive/reading_costs.h"
#include "desktop/memory/memory_keyboard_layout.h"
#include "desktop/memory/memory_services.h"
#include "model/gzip.h"
#include "shortcuts/shortcut_text.h"
#include "support/store_fixture.h"

#include <cstdlib>

namespace panewright {
namespace {

using testing::ElementsAre;

class ModelTest : public StoreFixture {};

std::vector<std::string> keysOf(const std::optional<WindowStates>& states) {
    std::vector<std::string> keys;
    for (const auto& [key, array] : states.value_or(WindowStates())) {
        keys.push_back(key);
    }
    return keys;
}

TEST_F(ModelTest, StartsWithTheBuiltInStatesSavesThemAndRestoresThem) {
    const auto model = makeModel();
    const std::tuple<const char*, double, std::uint64_t> expected[] = {
        {"Full Screen", 1, 18},
        {"Centered Large", 0.9, 19},
        {"Centered Medium", 0.8, 20},
        {"Centered Small", 0.65, 21}};
    for (const bool isRestored : {false, true}) {
        model->finishSaving();
        const auto states = statesOnDisk();
        EXPECT_THAT(keysOf(states), ElementsAre("defaults"));
        const WindowStateArray& builtIn = *states->at("defaults");
        ASSERT_EQ(builtIn.size(), 4U) << isRestored;
        for (std::size_t i = 0; i < 4; ++i) {
            const auto& [name, scale, keyCode] = expected[i];
            EXPECT_EQ(builtIn[i]->windowStateName(), name);
            EXPECT_EQ(builtIn[i]->windowScale(), (Size{scale, scale}));
            EXPECT_TRUE(builtIn[i]->isDefault() && builtIn[i]->centerWindow());
            EXPECT_EQ(builtIn[i]->keyEvent()->keyCode(), keyCode);
            EXPECT_EQ(builtIn[i]->keyEvent()->modifierFlags(), 0x80000U);
        }
        model->defaultWindowStates()->at(0)->setWindowStateName("Changed");
        model->defaultWindowStates()->pop_back();
        model->restoreDefaultWindowStates();
    }
}

TEST(WindowStateTracking, GoesOnWhereTheShortcutHasNoText) {
    MemoryKeyboardLayout layout;
    layout.setBroken(true);
    const MemoryTextServices services;
    const auto state = WindowState::windowStateIsDefault(true, true);
    state->setWindowStateName("Large");
    state->setKeyEvent(CarbonKeyEvent::carbonEventWithKeyCode(0, 0));
    const EventAttributes expected{{"IsDefault", 1},
                                   {"IsGlobal", 1},
                                   {"PrefersDisplay", 0},
                                   {"WindowStateName", "Large"},
                                   {"DefaultShortcutName", "Large"},
                                   {"KeyboardShortcut", "Exception"}};
    EXPECT_EQ(state->attributesForTracking(ShortcutText(layout, services)), expected);
}

TEST_F(ModelTest, KeepsStatesByApplicationAndGlobally) {
    auto model = makeModel();
    EXPECT_EQ(model->globalWindowStates(), nullptr);
    const auto own = makeState("app", "Own");
    const auto global = makeState("app", "Everywhere");
    global->setIsGlobal(true);
    for (const auto& state : {own, own, global, WindowState::init()}) {
        model->addWindowState(state);
    }
    EXPECT_THAT(*model->windowStatesForAppBundleId("app"), ElementsAre(own, own));
    EXPECT_THAT(keysOf(model->allWindowStates()), ElementsAre("app", "defaults", "globals"));

    save(*model);
    model = makeModel();
    const auto read = *model->windowStatesForAppBundleId("app");
    ASSERT_EQ(read.size(), 2U);
    EXPECT_EQ(read[0], read[1]) << "one object added twice stays one";
    EXPECT_EQ(model->globalWindowStates()->at(0)->windowStateName(), "Everywhere");
}

TEST_F(ModelTest, RemovesTheVeryObjectAndThenArraysLeftEmptyButForTheBuiltInStates) {
    const auto model = makeModel();
    const auto first = makeState("app", "Same");
    const auto second = makeState("app", "Same");
    model->addWindowState(first);
    model->addWindowState(second);
    model->removeWindowState(second);
    EXPECT_THAT(*model->windowStatesForAppBundleId("app"), ElementsAre(first));
    model->defaultWindowStates()->clear();
    model->removeWindowState(first);
    EXPECT_EQ(model->windowStatesForAppBundleId("app"), nullptr);
    model->finishSaving();
    EXPECT_THAT(keysOf(statesOnDisk()), ElementsAre("defaults"));
}

TEST_F(ModelTest, SavesTheStatesAsTheyAreAtTheCall) {
    const auto model = makeModel();
    const auto state = makeState("app", "At the call");
    model->addWindowState(state);
    model->save();
    state->setWindowStateName("Later");
    state->keyEvent()->setKeyCode(1);
    model->finishSaving();
    EXPECT_EQ(statesOnDisk()->at("app")->at(0)->windowStateName(), "At the call");
    EXPECT_EQ(statesOnDisk()->at("app")->at(0)->keyEvent()->keyCode(), 123U);
    save(*model);
    EXPECT_EQ(statesOnDisk()->at("app")->at(0)->windowStateName(), "Later");
}

TEST_F(ModelTest, WritesTheNewestOfManySavesBeforeItEnds) {
    auto model = makeModel();
    model->setWindowStates(makeStates(500, "old"));
    for (int index = 0; index < 50; ++index) {
        model->save();
    }
    model->addWindowState(makeState("last", "last"));
    model->save();
    model = nullptr;
    EXPECT_TRUE(statesOnDisk()->contains("last"));
}

TEST_F(ModelTest, ReadsAPlainArchiveAndCompressesItAtOnce) {
    const Bytes plain = KeyedArchiver::archivedDataWithRootObject(snapshotOf(makeStates(3, "x")));
    setContent(file_, std::string(plain.begin(), plain.end()));
    makeModel()->finishSaving();
    EXPECT_TRUE(gunzippedData(readFile(file_).value(), kMaxArchiveSize));
    EXPECT_EQ(statesOnDisk()->size(), 4U) << "3 applications and the built-in states";
}

TEST_F(ModelTest, JoinsTheArraysOfKeysThatReadTheSame) {
    using namespace std::string_literals;
    const auto statesNamed = [&](const char* name) {
        return ArchiveArray{ArchiveValue(std::shared_ptr<KeyedCoding>(makeState("app", name)))};
    };
    const Bytes archive = KeyedArchiver::archivedDataWithRootObject(
        ArchiveDictionary{{"app\0x"s, statesNamed("first")}, {"app", statesNamed("second")}});
    setContent(file_, std::string(archive.begin(), archive.end()));
    const auto model = makeModel();
    ASSERT_EQ(model->windowStatesForAppBundleId("app")->size(), 2U);
    EXPECT_EQ(model->windowStatesForAppBundleId("app")->at(0)->windowStateName(), "first");
    EXPECT_EQ(model->windowStatesForAppBundleId("app")->at(1)->windowStateName(), "second");
}

TEST_F(ModelTest, KeepsTheFileWhenTheStatesHoldMoreThanCouldBeReadBack) {
    CapturedLog log;
    const auto model = makeModel();
    save(*model);
    std::string name;
    name.resize(300'000'000, 'x');
    model->setWindowStates(makeStates(1, name));
    save(*model);
    EXPECT_THAT(log.take(),
                ElementsAre("Error saving window states: they hold more than could be read back"));
    EXPECT_THAT(keysOf(statesOnDisk()), ElementsAre("defaults"));
}

TEST_F(ModelTest, LeavesAFileAloneThatItCannotRead) {
    const std::shared_ptr<KeyedCoding> noState = CarbonKeyEvent::carbonEventWithKeyCode(1, 2);
    const auto withStates = [](const ArchiveValue& states) {
        return ArchiveDictionary{{"app", states}};
    };
    const ArchiveValue roots[] = {ArchiveValue(),
                                  ArchiveArray{},
                                  withStates("no array"),
                                  withStates(ArchiveArray{"no state"}),
                                  withStates(ArchiveArray{ArchiveValue()}),
                                  withStates(ArchiveArray{ArchiveValue(noState)}),
                                  ArchiveDictionary{{std::uint64_t{1}, ArchiveArray{}}}};
    std::vector<Bytes> contents{{}, bytes("damaged")};
    std::ranges::transform(roots, std::back_inserter(contents), [](const ArchiveValue& root) {
        return KeyedArchiver::archivedDataWithRootObject(root);
    });
    for (const Bytes& bytes : contents) {
        const CapturedLog log;
        const std::string content(bytes.begin(), bytes.end());
        setContent(file_, content);
        auto model = makeModel();
        EXPECT_EQ(model->allWindowStates(), std::nullopt);
        EXPECT_EQ(model->defaultWindowStates(), nullptr);
        EXPECT_EQ(model->readFailure()->cause, StoreFailureCause::kDamaged);
        model->addWindowState(makeState("app", "x"));
        model->restoreDefaultWindowStates();
        model = nullptr;
        EXPECT_EQ(contentOf(file_), content);
    }
    const auto model = makeModel();
    model->startAfresh();
    model->finishSaving();
    EXPECT_FALSE(model->readFailure());
    EXPECT_THAT(keysOf(statesOnDisk()), ElementsAre("defaults"));
    const std::string last(contents.back().begin(), contents.back().end());
    EXPECT_EQ(contentOf(file_.string() + ".unreadable-1"), last);
}

TEST_F(ModelTest, GoesOnWithoutAFolder) {
    CapturedLog log;
    folders_.supportError = FolderError{"no home"};
    const auto model = makeModel();
    EXPECT_EQ(model->defaultWindowStates()->size(), 4U);
    model->finishSaving();
    EXPECT_THAT(log.take(),
                testing::Contains("Error getting application support directory: no home"));
}

TEST_F(ModelTest, ReadsAndWritesFieldByFieldAsAnIndependentProgramDoes) {
    std::filesystem::create_directories(folder_);
    const auto run = [&](const std::string& command, const std::string& states) {
        const std::string line =
            PYTHON " " FOREIGN_STORE " " + command + " '" + file_.string() + "' '" + states + "'";
        return std::system(line.c_str()) == 0;
    };
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
