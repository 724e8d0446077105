#include "model/application_folders.h"

#include "desktop/memory/memory_standard_folders.h"
#include "platform/program_information.h"
#include "support/captured_log.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace panewright {
namespace {

struct Program : ProgramInformation {
    std::string bundleIdentifier() const override { return "com.quillfen.Panewright"; }
    std::string executablePath() const override { return "/opt/" + executableName(); }
    std::string executableName() const override { return "panewright"; }
};

TEST(ApplicationFolders, AreCreatedOnceUnderTheAskedName) {
    const TemporaryFolder temporary;
    const MemoryStandardFolders folders(temporary.path() / "share");
    const auto folder = applicationSupportDirectoryURLWithDirName(folders, "Panewright");
    EXPECT_EQ(folder, temporary.path() / "share/Panewright");
    EXPECT_TRUE(std::filesystem::is_directory(*folder));
    EXPECT_EQ(applicationSupportDirectoryURLWithDirName(folders, "Panewright"), folder);
    EXPECT_EQ(applicationSupportDirectoryURLWithExecutableName(folders, Program()),
              temporary.path() / "share/panewright");
    EXPECT_EQ(applicationSupportDirectoryURLWithBundleId(folders, Program()),
              temporary.path() / "share/com.quillfen.Panewright");
}

TEST(ApplicationFolders, LogWhyThereIsNone) {
    CapturedLog log;
    const TemporaryFolder temporary;
    MemoryStandardFolders folders(temporary.path());
    setContent(temporary.path() / "Panewright", "a file where the folder should be");
    EXPECT_EQ(applicationSupportDirectoryURLWithDirName(folders, "Panewright"), std::nullopt);
    folders.supportError = FolderError{"no home"};
    EXPECT_EQ(applicationSupportDirectoryURLWithDirName(folders, "Panewright"), std::nullopt);
    EXPECT_THAT(
        log.take(),
        testing::ElementsAre(testing::StartsWith("Error creating application suppor directory: "),
                             "Error getting application support directory: no home"));
}

} // namespace
} // namespace panewright
