#include "model/model.h"

#include "archive/keyed_archiver.h"
#include "model/gzip.h"
#include "support/captured_log.h"
#include "support/store_fixture.h"

#include <gmock/gmock.h>

namespace panewright {
namespace {

class ModelTest : public StoreFixture {};

std::vector<std::string> keysOf(const std::optional<WindowStates>& states) {
    std::vector<std::string> keys;
    for (const auto& [key, array] : states.value_or(WindowStates())) {
        keys.push_back(key);
    }
    return keys;
}

TEST_F(ModelTest, StartsWithTheBuiltInStatesAndSavesThem) {
    makeModel()->finishSaving();
    const auto states = statesOnDisk();
    EXPECT_THAT(keysOf(states), testing::ElementsAre("defaults"));
    const struct {
        const char* name;
        double scale;
        std::uint64_t keyCode;
    } expected[] = {{"Full Screen", 1, 18},
                    {"Centered Large", 0.9, 19},
                    {"Centered Medium", 0.8, 20},
                    {"Centered Small", 0.65, 21}};
    const WindowStateArray& builtIn = *states->at("defaults");
    ASSERT_EQ(builtIn.size(), 4U);
    for (std::size_t index = 0; index < 4; ++index) {
        EXPECT_EQ(builtIn[index]->windowStateName(), expected[index].name);
        EXPECT_EQ(builtIn[index]->windowScale(),
                  (Size{expected[index].scale, expected[index].scale}));
        EXPECT_TRUE(builtIn[index]->isDefault());
        EXPECT_TRUE(builtIn[index]->centerWindow());
        ASSERT_TRUE(builtIn[index]->keyEvent());
        EXPECT_EQ(builtIn[index]->keyEvent()->keyCode(), expected[index].keyCode);
        EXPECT_EQ(builtIn[index]->keyEvent()->modifierFlags(), 0x80000U);
    }
}

TEST_F(ModelTest, KeepsStatesByApplicationAndGlobally) {
    auto model = makeModel();
    EXPECT_EQ(model->globalWindowStates(), nullptr);
    EXPECT_EQ(model->windowStatesForAppBundleId("app"), nullptr);
    const auto own = makeState("app", "Own");
    const auto global = makeState("app", "Everywhere");
    global->setIsGlobal(true);
    model->addWindowState(own);
    model->addWindowState(own);
    model->addWindowState(global);
    model->addWindowState(WindowState::init());
    EXPECT_THAT(*model->windowStatesForAppBundleId("app"), testing::ElementsAre(own, own));
    EXPECT_THAT(*model->globalWindowStates(), testing::ElementsAre(global));
    EXPECT_THAT(keysOf(model->allWindowStates()),
                testing::ElementsAre("app", "defaults", "globals"));

    model->save();
    model->finishSaving();
    model = makeModel();
    ASSERT_EQ(model->windowStatesForAppBundleId("app")->size(), 2U);
    EXPECT_EQ((*model->windowStatesForAppBundleId("app"))[0],
              (*model->windowStatesForAppBundleId("app"))[1])
        << "one object added twice stays one";
    const WindowState& read = *model->globalWindowStates()->at(0);
    EXPECT_EQ(read.windowStateName(), "Everywhere");
    EXPECT_EQ(read.originalWindowRect(), (Rect{10.5, 23, 1066.6666666666667, 700}));
    EXPECT_EQ(read.originalQuartzDisplayBounds(), (Rect{0, 0, 1920, 1080}));
    EXPECT_EQ(read.keyEvent()->keyCode(), 123U);
}

TEST_F(ModelTest, RemovesTheVeryObjectAndThenArraysLeftEmpty) {
    const auto model = makeModel();
    const auto first = makeState("app", "Same");
    const auto second = makeState("app", "Same");
    model->addWindowState(first);
    model->addWindowState(second);
    model->removeWindowState(second);
    EXPECT_THAT(*model->windowStatesForAppBundleId("app"), testing::ElementsAre(first));
    model->removeWindowState(first);
    EXPECT_EQ(model->windowStatesForAppBundleId("app"), nullptr);

    model->defaultWindowStates()->clear();
    std::filesystem::remove(file_);
    model->removeWindowState(first); // not there any more: saves all the same
    model->finishSaving();
    EXPECT_THAT(keysOf(statesOnDisk()), testing::ElementsAre("defaults"))
        << "the built-in states stay, even without one";
}

TEST_F(ModelTest, RestoresTheBuiltInStatesAnew) {
    const auto model = makeModel();
    model->defaultWindowStates()->at(0)->setWindowStateName("Changed");
    model->defaultWindowStates()->pop_back();
    model->restoreDefaultWindowStates();
    model->finishSaving();
    EXPECT_EQ(statesOnDisk()->at("defaults")->size(), 4U);
    EXPECT_EQ(statesOnDisk()->at("defaults")->at(0)->windowStateName(), "Full Screen");
}

TEST_F(ModelTest, SavesTheStatesAsTheyAreAtTheCall) {
    const auto model = makeModel();
    const auto state = makeState("app", "At the call");
    model->addWindowState(state);
    model->save();
    state->setWindowStateName("Later");
    state->keyEvent()->setKeyCode(1);
    model->finishSaving();
    const auto read = statesOnDisk()->at("app")->at(0);
    EXPECT_EQ(read->windowStateName(), "At the call");
    EXPECT_EQ(read->keyEvent()->keyCode(), 123U);
}

TEST_F(ModelTest, WritesTheNewestOfManySavesBeforeItEnds) {
    auto model = makeModel();
    model->setWindowStates(makeStates(500, "old"));
    const auto last = makeState("last", "last");
    for (int index = 0; index < 50; ++index) {
        model->save();
    }
    model->addWindowState(last);
    model->save();
    model = nullptr;
    EXPECT_TRUE(statesOnDisk()->contains("last"));
}

TEST_F(ModelTest, ReadsAPlainArchiveAndCompressesItAtOnce) {
    std::filesystem::create_directories(folder_);
    const Bytes plain =
        KeyedArchiver::archivedDataWithRootObject(snapshotOf(makeStates(3, "plain")));
    setContent(file_, std::string(plain.begin(), plain.end()));
    const auto model = makeModel();
    EXPECT_EQ(model->windowStates()->size(), 4U) << "3 applications and the built-in states";
    model->finishSaving();
    EXPECT_TRUE(gunzippedData(readFile(file_).value()));
    EXPECT_EQ(statesOnDisk()->size(), 4U);
}

TEST_F(ModelTest, LeavesAFileAloneThatItCannotRead) {
    using Dictionary = ArchiveDictionary;
    const ArchiveValue roots[] = {
        ArchiveValue(),
        ArchiveArray{},
        Dictionary{{"app", "no array"}},
        Dictionary{{"app", ArchiveArray{"no state"}}},
        Dictionary{{"app", ArchiveArray{ArchiveValue()}}},
        Dictionary{{std::uint64_t{1}, ArchiveArray{}}},
        Dictionary{{"app", ArchiveArray{ArchiveValue(std::shared_ptr<KeyedCoding>(
                               CarbonKeyEvent::carbonEventWithKeyCode(1, 2)))}}}};
    std::vector<std::string> contents{"", "damaged"};
    for (const ArchiveValue& root : roots) {
        const Bytes archive = KeyedArchiver::archivedDataWithRootObject(root);
        contents.emplace_back(archive.begin(), archive.end());
    }
    for (const std::string& content : contents) {
        const CapturedLog log;
        std::filesystem::create_directories(folder_);
        setContent(file_, content);
        auto model = makeModel();
        EXPECT_EQ(model->windowStates(), std::nullopt);
        EXPECT_EQ(model->allWindowStates(), std::nullopt);
        EXPECT_EQ(model->defaultWindowStates(), nullptr);
        model->addWindowState(makeState("app", "x"));
        model->removeWindowState(nullptr);
        model->restoreDefaultWindowStates();
        model->save();
        EXPECT_EQ(model->windowStatesForAppBundleId("app"), nullptr);
        model = nullptr;
        EXPECT_EQ(contentOf(file_), content);
        EXPECT_EQ(countOfNames(folder_, ""), 1);
    }
}

TEST_F(ModelTest, GoesOnWithoutAFolder) {
    CapturedLog log;
    folders_.supportError = FolderError{"no home"};
    const auto model = makeModel();
    EXPECT_EQ(model->defaultWindowStates()->size(), 4U);
    model->finishSaving();
    EXPECT_THAT(log.take(),
                testing::Contains("Error getting application support directory: no home"));
    folders_.supportError = std::nullopt;
    model->save();
    model->finishSaving();
    EXPECT_TRUE(statesOnDisk());
}

TEST_F(ModelTest, HasAKeyEventForTheNextDisplayOnlyWhereTheKeyCodeIsSet) {
    const auto model = makeModel();
    defaults_.setObject("MoveToNextWindowKeyEventKeyModifiers", std::int64_t{0x80000});
    EXPECT_EQ(model->moveToNextWindowKeyEvent(), nullptr);
    defaults_.setObject("MoveToNextWindowKeyEventKeyCode", std::string("124"));
    EXPECT_EQ(model->moveToNextWindowKeyEvent()->keyCode(), 124U);
    EXPECT_EQ(model->moveToNextWindowKeyEvent()->modifierFlags(), 0x80000U);
    defaults_.removeObjectForKey("MoveToNextWindowKeyEventKeyModifiers");
    EXPECT_EQ(model->moveToNextWindowKeyEvent()->modifierFlags(), 0U);
}

TEST_F(ModelTest, AllowsMovingWindowsOnlyWhereTheUserSaidSo) {
    const auto model = makeModel();
    EXPECT_FALSE(model->allowWindowStateShortcutsToMoveWindowNextDisplay());
    model->setAllowsMoveWindow(true);
    EXPECT_TRUE(model->allowWindowStateShortcutsToMoveWindowNextDisplay());
    EXPECT_EQ(defaults_.objectForKey("AllowMoveWindow"), DefaultsValue(true));
}

TEST_F(ModelTest, IsOneForTheProgramMadeOnTheFirstCall) {
    int made = 0;
    Model::setFactory([&] {
        ++made;
        return makeModel();
    });
    EXPECT_EQ(made, 0);
    EXPECT_EQ(&Model::instance(), &Model::instance());
    EXPECT_EQ(made, 1);
    Model::setFactory(nullptr);
}

} // namespace
} // namespace panewright
