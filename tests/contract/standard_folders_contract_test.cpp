// What every source of standard folders does.

#include "desktop/linux/xdg_folders.h"
#include "desktop/memory/memory_standard_folders.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <memory>

namespace panewright {
namespace {

class StandardFoldersContract : public testing::TestWithParam<const char*> {
protected:
    StandardFoldersContract() {
        const std::filesystem::path folder = temporary_.path() / "not/yet/there";
        if (GetParam() == std::string("memory")) {
            folders_ = std::make_unique<MemoryStandardFolders>(folder);
        } else {
            ::setenv("XDG_DATA_HOME", folder.c_str(), 1);
            folders_ = std::make_unique<XdgFolders>();
        }
    }

    TemporaryFolder temporary_;
    std::unique_ptr<StandardFolders> folders_;
};

TEST_P(StandardFoldersContract, GivesTheSameExistingFolderEachTime) {
    const auto first = folders_->applicationSupportDirectory();
    ASSERT_TRUE(first);
    EXPECT_EQ(first.value(), temporary_.path() / "not/yet/there");
    EXPECT_TRUE(std::filesystem::is_directory(first.value()));
    EXPECT_EQ(folders_->applicationSupportDirectory().value(), first.value());
}

TEST_P(StandardFoldersContract, CreatesFoldersOnceAndSaysWhyItCannot) {
    const std::filesystem::path folder = temporary_.path() / "a/b";
    EXPECT_FALSE(folders_->createDirectory(folder));
    EXPECT_FALSE(folders_->createDirectory(folder));
    EXPECT_TRUE(std::filesystem::is_directory(folder));

    setContent(temporary_.path() / "file", "");
    const auto error = folders_->createDirectory(temporary_.path() / "file/below");
    ASSERT_TRUE(error);
    EXPECT_NE(error->message, "");
}

INSTANTIATE_TEST_SUITE_P(Sources, StandardFoldersContract, testing::Values("memory", "xdg"),
                         [](const auto& test) { return std::string(test.param); });

} // namespace
} // namespace panewright
