#include "archive/binary_property_list_check.h"
#include "archive/geometry_text.h"
#include "archive/keyed_archiver.h"
#include "archive/keyed_unarchiver.h"
#include "archive/plist_node.h"
#include "archive/reading_costs.h"

#include <gmock/gmock.h>

#include <limits>

namespace panewright {
namespace {

/// An object that may hold another.
struct Card : KeyedCoding {
    std::optional<std::string> title;
    std::shared_ptr<Card> next;

    std::string_view archiveClassName() const override { return "Card"; }
    void encodeWithCoder(KeyedEncoder& encoder) const override {
        encoder.encodeString("$class", title); // a name that the archive uses itself
        encoder.encodeObject("next", next);
    }
    static std::shared_ptr<KeyedCoding> decode(const KeyedDecoder& decoder) {
        auto card = std::make_shared<Card>();
        card->title = decoder.decodeString("$class");
        card->next = std::dynamic_pointer_cast<Card>(decoder.decodeObject("next"));
        return card;
    }
};

/// In bytes; far more than anything here should hold.
constexpr std::uint64_t kEnoughMemory = 1 << 20;

std::optional<ArchiveValue> unarchived(const Bytes& data) {
    MemoryBudget budget(kEnoughMemory);
    return KeyedUnarchiver::unarchiveObjectWithData(data, {{"Card", &Card::decode}}, budget);
}

std::optional<ArchiveValue> reread(const ArchiveValue& root) {
    return unarchived(KeyedArchiver::archivedDataWithRootObject(root));
}

plist_t text(const char* characters) {
    return plist_new_string(characters);
}

plist_t array(const std::vector<plist_t>& items) {
    plist_t node = plist_new_array();
    for (plist_t item : items) {
        plist_array_append_item(node, item);
    }
    return node;
}

plist_t dictionary(const std::vector<std::pair<const char*, plist_t>>& items) {
    plist_t node = plist_new_dict();
    for (const auto& [key, item] : items) {
        plist_dict_set_item(node, key, item);
    }
    return node;
}

plist_t classEntry(const char* name) {
    return dictionary({{"$classname", text(name)}, {"$classes", array({text(name)})}});
}

/// Reads an archive of these objects, from number 1 on; the root is number 1.
std::optional<ArchiveValue> readObjects(std::vector<plist_t> objects,
                                        const char* archiver = "NSKeyedArchiver") {
    objects.insert(objects.begin(), text("$null"));
    const PlistNode archive(dictionary({{"$version", plist_new_uint(100000)},
                                        {"$archiver", text(archiver)},
                                        {"$top", dictionary({{"root", plist_new_uid(1)}})},
                                        {"$objects", array(objects)}}));
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(archive.get(), &bytes, &length);
    const CPointer<char> owned(bytes);
    return unarchived(Bytes(bytes, bytes + length));
}

TEST(KeyedArchive, GivesBackEveryKindOfValueExactly) {
    const ArchiveValue root = ArchiveDictionary{
        {"texts", ArchiveArray{"", "Zentriert – groß", "窗口 🪟", "$null", "{1, 2}"}},
        {"numbers", ArchiveArray{true, false, std::uint64_t{0}, std::uint64_t{1}, std::int64_t{-7},
                                 std::numeric_limits<std::int64_t>::min(), std::uint64_t{1} << 62,
                                 0.1 + 0.2, -0.0, 1e-310}},
        {std::uint64_t{524306}, Size{0.65, 1}},
        {"empty", ArchiveArray{}},
        {"none", ArchiveDictionary{}},
        {"nil", ArchiveValue{}}};
    EXPECT_EQ(reread(root), root);
    EXPECT_EQ(reread(ArchiveValue{}), ArchiveValue{});
    EXPECT_EQ(reread("caf\xE9 \xED\xA0\x80"), ArchiveValue("caf\xEF\xBF\xBD "
                                                           "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"));
}

TEST(KeyedUnarchiver, ReadsTheOtherShapesThatWritersUseAndNothingFromWhatIsNotAsItShouldBe) {
    const auto list = array({plist_new_uid(2), text("inline"), plist_new_uint(7)});
    EXPECT_EQ(
        readObjects({dictionary({{"NS.objects", list}, {"$class", plist_new_uid(3)}}),
                     dictionary({{"NS.string", text("mutable")}, {"$class", plist_new_uid(4)}}),
                     classEntry("NSArray"), classEntry("NSMutableString")}),
        ArchiveValue(ArchiveArray{"mutable", "inline", std::uint64_t{7}}));

    const auto ofClass2 = [](const char* key, plist_t value) {
        return dictionary({{key, value}, {"$class", plist_new_uid(2)}});
    };
    const auto objects = [&](plist_t held) { return ofClass2("NS.objects", held); };
    const std::pair<const char*, std::vector<plist_t>> faults[] = {
        {"no root", {}},
        {"an unknown class", {ofClass2("next", plist_new_uid(0)), classEntry("Task")}},
        {"a reference beyond the table", {ofClass2("next", plist_new_uid(40)), classEntry("Card")}},
        {"an object within itself", {ofClass2("next", plist_new_uid(1)), classEntry("Card")}},
        {"an array within itself", {objects(array({plist_new_uid(1)})), classEntry("NSArray")}},
        {"a reference to a reference", {plist_new_uid(2), text("x")}},
        {"more values than keys", {objects(array({text("x")})), classEntry("NSDictionary")}},
    };
    for (const auto& [what, nodes] : faults) {
        EXPECT_FALSE(readObjects(nodes)) << what;
    }
    EXPECT_TRUE(readObjects({text("x")}));
    EXPECT_FALSE(readObjects({text("x")}, "NSArchiver"));

    const Bytes whole = KeyedArchiver::archivedDataWithRootObject(ArchiveArray{"a", "b"});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_FALSE(unarchived(Bytes(whole.data(), whole.data() + length))) << length;
    }
}

TEST(KeyedUnarchiver, BoundsTheChainOfObjectsAndWhatSharedArraysAndTextsUnfoldTo) {
    std::shared_ptr<Card> first;
    for (int length = 1; length <= kMaxArchiveDepth; ++length) {
        auto card = std::make_shared<Card>();
        card->next = std::move(first);
        first = std::move(card);
        EXPECT_EQ(reread(std::shared_ptr<KeyedCoding>(first)).has_value(),
                  length < kMaxArchiveDepth);
    }
    // Each array holds the next one ten times: ten arrays are 10^10 values.
    std::vector<plist_t> arrays;
    for (std::uint64_t next = 2; next <= 11; ++next) {
        std::vector<plist_t> copies(10);
        std::ranges::generate(copies, [&] { return plist_new_uid(next); });
        arrays.push_back(
            dictionary({{"NS.objects", array(copies)}, {"$class", plist_new_uid(12)}}));
    }
    arrays.insert(arrays.end(), {text("x"), classEntry("NSArray")});
    EXPECT_FALSE(readObjects(arrays));

    const std::string large(kEnoughMemory / 20, 'x');
    for (const std::size_t references : {5, 30}) {
        std::vector<plist_t> copies(references);
        std::ranges::generate(copies, [] { return plist_new_uid(2); });
        EXPECT_EQ(
            readObjects({dictionary({{"NS.objects", array(copies)}, {"$class", plist_new_uid(3)}}),
                         text(large.c_str()), classEntry("NSArray")})
                .has_value(),
            references == 5);
        MemoryBudget readersBudget(kEnoughMemory);
        EXPECT_EQ(KeyedArchiver::archivedDataWithRootObject(ArchiveArray(references, large),
                                                            readersBudget)
                      .has_value(),
                  references == 5)
            << "what could not be read is not written";
    }
}

/// A binary property list of these objects, the first one being the root, with one byte for each
/// offset and reference.
Bytes propertyListOf(const std::vector<std::string>& objects, std::uint64_t claimedCount = 0) {
    std::string text = "bplist00";
    std::string offsets;
    for (const std::string& object : objects) {
        offsets += static_cast<char>(text.size());
        text += object;
    }
    const std::uint64_t table = text.size();
    text += offsets + std::string(6, '\0') + "\x01\x01";
    for (const std::uint64_t number :
         {claimedCount ? claimedCount : objects.size(), std::uint64_t{0}, table}) {
        for (int shift = 56; shift >= 0; shift -= 8) {
            text += static_cast<char>(number >> shift & 0xFF);
        }
    }
    return Bytes(text.begin(), text.end());
}

TEST(BinaryPropertyListCheck, RefusesWhatTheParserWouldChokeOn) {
    using namespace std::string_literals;
    const std::string xs = "Qx"; // 0x51, text of one character
    const auto nested = [&](int depth, int copies) {
        std::vector<std::string> objects;
        for (int level = 1; level <= depth; ++level) {
            objects.push_back(std::string(1, static_cast<char>(0xA0 + copies)) +
                              std::string(copies, static_cast<char>(level)));
        }
        objects.push_back(xs);
        return propertyListOf(objects);
    };
    const auto claiming = [&](std::size_t count) { // as many as there are offsets
        Bytes list = propertyListOf({xs}, count);
        list.insert(list.begin() + 10, count - 1, 8);
        return list;
    };
    const struct {
        const char* what;
        Bytes bytes;
        bool isSafe;
    } cases[] = {
        {"an array of two texts", propertyListOf({"\xA2\x01\x01"s, xs}), true},
        {"a number as a key", propertyListOf({"\xD1\x01\x02"s, "\x10\x05"s, xs}), false},
        {"a container within itself", propertyListOf({"\xA1\x00"s}), false},
        {"two containers in each other", propertyListOf({"\xA1\x01"s, "\xA1\x00"s}), false},
        {"more items than bytes", propertyListOf({"\xAF\x13\x7F" + std::string(7, '\xFF')}), false},
        {"more objects than bytes", propertyListOf({xs}, 0xFFFFFFFFFFFFFFFF), false},
        {"text beyond the file", propertyListOf({"_x"}), false},
        {"more objects than memory", claiming(1 << 17), false},
        {"a number of 64 bytes", propertyListOf({"\x16" + std::string(64, '\0')}), false},
        {"a set", propertyListOf({"\xC1\x01"s, xs}), false},
        {"arrays of the greatest depth", nested(kMaxPropertyListDepth, 1), true},
        {"deeper ones", nested(kMaxPropertyListDepth + 1, 1), false},
        {"10^10 texts", nested(10, 10), false},
    };
    for (const auto& test : cases) {
        MemoryBudget budget(kEnoughMemory);
        EXPECT_EQ(isSafeBinaryPropertyList(test.bytes, budget), test.isSafe) << test.what;
    }
}

TEST(GeometryText, WritesTheShortestNumbersAndReadsOtherSpacingAndAnythingElseAsZero) {
    const Rect rect{-0.1, 1.0 / 3, 1066.6666666666667, 1e21};
    EXPECT_EQ(NSStringFromRect(rect), "{{-0.1, 0.3333333333333333}, {1066.6666666666667, 1e+21}}");
    EXPECT_EQ(NSRectFromString(NSStringFromRect(rect)), rect);
    EXPECT_EQ(NSRectFromString("{{100,50},{800,600}}"), (Rect{100, 50, 800, 600}));
    EXPECT_EQ(NSSizeFromString(" { 0.9 , 0.8 } "), (Size{0.9, 0.8}));
    for (const char* text :
         {"", "{", "{{1, 2}, {3, 4}", "{{1, 2}, {3, x}}", "{{1, 2}, {3, 4}} 5"}) {
        EXPECT_EQ(NSRectFromString(text), Rect{}) << text;
    }
}

} // namespace
} // namespace panewright
