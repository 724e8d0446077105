#include "crash_report/build_id.h"
#include "crash_report/raw_facts.h"
#include "desktop/linux/crash_files.h"
#include "desktop/linux/raw_crash_file.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cstring>

namespace panewright {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Bytes bytesOf(const std::filesystem::path& file) {
    const auto content = contentOf(file);
    return {content.begin(), content.end()};
}

template <class Number>
Bytes with(Bytes bytes, std::size_t offset, Number number) {
    std::memcpy(bytes.data() + offset, &number, sizeof number);
    return bytes;
}

TEST(RawFacts, AreReadUpToWhereTheyAreDamaged) {
    const TemporaryFolder folder;
    const auto path = folder.path() / "raw";
    RawCrashFile file;
    ASSERT_TRUE(file.prepare(path));
    EXPECT_THAT(filesWithPrefix(folder.path(), ""), IsEmpty()) << "nothing has crashed";
    ASSERT_TRUE(file.begin());
    EXPECT_EQ(modeOf(path), 0600);
    file.add(CrashRecord::kSignal, std::string(sizeof(CrashSignal), '\1'));
    file.add(CrashRecord::kLogLine, "one");
    EXPECT_FALSE(file.addMemory(CrashRecord::kStack, 8, 100)) << "memory that cannot be read";
    const std::string memory = "memory";
    const auto address = reinterpret_cast<CrashAddress>(memory.data());
    EXPECT_TRUE(file.addMemory(CrashRecord::kStack, address, memory.size()));
    file.add(CrashRecord::kEnd, {});

    const auto whole = bytesOf(path);
    const auto facts = rawFactsOf(whole).value();
    EXPECT_TRUE(facts.isWhole);
    EXPECT_EQ(facts.signal.signal, 0x01010101);
    EXPECT_THAT(facts.logLines, ElementsAre("one"));
    EXPECT_EQ(facts.stack.address, address);
    EXPECT_EQ(std::string(facts.stack.bytes.begin(), facts.stack.bytes.end()), memory);

    const auto first = sizeof(CrashRecordHead) + sizeof(CrashSignal);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const auto part = rawFactsOf({whole.begin(), whole.begin() + static_cast<long>(size)});
        ASSERT_EQ(part.has_value(), size >= first) << size;
        EXPECT_FALSE(part && part->isWhole) << size;
    }
    const Bytes damaged[] = {with(whole, first, 0), // no such kind
                             with(whole, first, CrashRecord::kSignal),
                             with(whole, first + 4, 0xffffffff)};
    for (const auto& bytes : damaged) {
        EXPECT_THAT(rawFactsOf(bytes).value().logLines, IsEmpty());
    }
    EXPECT_FALSE(rawFactsOf(with(whole, 4, 8)));
}

TEST(BuildId, IsFoundInTheBeginningOfAProgramWhateverElseStandsThere) {
    auto start = bytesOf("/proc/self/exe");
    start.resize(2048);
    EXPECT_THAT(buildIdOf(start), testing::MatchesRegex("[0-9a-f]{40}"));
    for (std::size_t offset = 0; offset + 8 <= start.size(); ++offset) {
        for (const auto number : {std::uint64_t{0}, ~std::uint64_t{0}, std::uint64_t{2047}}) {
            buildIdOf(with(start, offset, number)); // reads nothing beside it
        }
    }
    EXPECT_EQ(buildIdOf({}), "");
    EXPECT_EQ(buildIdOf(with(start, 32, ~std::uint64_t{0})), "") << "where the headers are";
}

TEST(CrashFiles, AreKeptUpToANumberAndTheOldestGo) {
    const TemporaryFolder folder;
    for (const char* name : {"crash-2", "crash-1", "raw-1", "crash-3"}) {
        setContent(folder.path() / name, "");
    }
    keepLastFiles(folder.path(), "crash-", 2);
    EXPECT_THAT(
        filesWithPrefix(folder.path(), ""),
        ElementsAre(folder.path() / "crash-2", folder.path() / "crash-3", folder.path() / "raw-1"));
    EXPECT_THAT(filesWithPrefix(folder.path() / "none", ""), IsEmpty());
}

} // namespace
} // namespace panewright
