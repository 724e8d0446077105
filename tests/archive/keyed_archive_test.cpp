#include "archive/binary_property_list_check.h"
#include "archive/geometry_text.h"
#include "archive/keyed_archiver.h"
#include "archive/keyed_unarchiver.h"
#include "archive/plist_node.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace panewright {
namespace {

/// One field of every kind, and a link to another of its class.
struct Card : KeyedCoding {
    std::optional<std::string> title;
    bool done = false;
    std::uint64_t code = 0;
    std::int64_t tag = 0;
    std::optional<Size> scale;
    std::shared_ptr<Card> next;
    std::optional<std::string> dollar;

    std::string_view archiveClassName() const override { return "Card"; }
    void encodeWithCoder(KeyedEncoder& encoder) const override {
        encoder.encodeString("title", title);
        encoder.encodeBool("done", done);
        encoder.encodeUnsigned("code", code);
        encoder.encodeSigned("tag", tag);
        encoder.encodeSize("scale", scale.value_or(Size{}));
        encoder.encodeObject("next", next);
        encoder.encodeString("$class", dollar);
    }
    static std::shared_ptr<KeyedCoding> decode(const KeyedDecoder& decoder) {
        auto card = std::make_shared<Card>();
        card->title = decoder.decodeString("title");
        card->done = decoder.decodeBool("done");
        card->code = decoder.decodeUnsigned("code");
        card->tag = decoder.decodeSigned("tag");
        card->scale = decoder.decodeSize("scale");
        card->next = std::dynamic_pointer_cast<Card>(decoder.decodeObject("next"));
        card->dollar = decoder.decodeString("$class");
        return card;
    }
};

const ArchiveClasses& classes() {
    static const ArchiveClasses kClasses{{"Card", &Card::decode}};
    return kClasses;
}

std::optional<ArchiveValue> reread(const ArchiveValue& root) {
    return KeyedUnarchiver::unarchiveObjectWithData(KeyedArchiver::archivedDataWithRootObject(root),
                                                    classes());
}

/// The reference that a dictionary stands for in the XML form, null for any other node.
plist_t referenceIn(plist_t node) {
    plist_t uid = isPlist(node, PLIST_DICT) ? plist_dict_get_item(node, "CF$UID") : nullptr;
    std::uint64_t value = 0;
    plist_get_uint_val(uid, &value);
    return uid ? plist_new_uid(value) : nullptr;
}

void makeReferences(plist_t node) {
    if (isPlist(node, PLIST_ARRAY)) {
        for (std::uint32_t index = 0; index < plist_array_get_size(node); ++index) {
            plist_t item = plist_array_get_item(node, index);
            makeReferences(item);
            if (plist_t reference = referenceIn(item)) {
                plist_array_set_item(node, reference, index);
            }
        }
    } else if (isPlist(node, PLIST_DICT)) {
        for (const char* key : {"$top", "$objects", "root", "next", "title", "scale", "unknown",
                                "$class", "NS.objects", "NS.keys"}) {
            plist_t item = plist_dict_get_item(node, key);
            makeReferences(item);
            if (plist_t reference = referenceIn(item)) {
                plist_dict_set_item(node, key, reference);
            }
        }
    }
}

Bytes binaryPropertyList(const std::string& xmlContent) {
    const std::string xml = "<plist version=\"1.0\">" + xmlContent + "</plist>";
    plist_t node = nullptr;
    plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &node);
    const PlistNode owned(node);
    makeReferences(node);
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    const CPointer<char> ownedBytes(bytes);
    return Bytes(bytes, bytes + length);
}

std::string ref(int uid) {
    return fmt::format("<dict><key>CF$UID</key><integer>{}</integer></dict>", uid);
}

std::string classEntry(const std::string& name) {
    return "<dict><key>$classname</key><string>" + name +
           "</string><key>$classes</key><array><string>" + name +
           "</string><string>NSObject</string></array></dict>";
}

/// Reads an archive of these objects, from number 1 on; the root is number 1.
std::optional<ArchiveValue> readObjects(const std::string& objects,
                                        const std::string& archiver = "NSKeyedArchiver") {
    return KeyedUnarchiver::unarchiveObjectWithData(
        binaryPropertyList("<dict><key>$version</key><integer>100000</integer><key>$archiver</key>"
                           "<string>" +
                           archiver + "</string><key>$top</key><dict><key>root</key>" + ref(1) +
                           "</dict><key>$objects</key><array><string>$null</string>" + objects +
                           "</array></dict>"),
        classes());
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
}

TEST(KeyedArchive, GivesBackAnObjectFieldByField) {
    auto card = std::make_shared<Card>();
    card->title = "Left ½";
    card->done = true;
    card->code = 0x8000000000000012;
    card->tag = -3;
    card->scale = Size{0.9, 1.0 / 3};
    card->next = std::make_shared<Card>();
    card->dollar = "not a class";
    const auto root = reread(std::shared_ptr<KeyedCoding>(card));
    ASSERT_TRUE(root);
    const auto read = std::dynamic_pointer_cast<Card>(root->object());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->title, "Left ½");
    EXPECT_TRUE(read->done);
    EXPECT_EQ(read->code, 0x8000000000000012);
    EXPECT_EQ(read->tag, -3);
    EXPECT_EQ(read->scale, (Size{0.9, 1.0 / 3}));
    EXPECT_EQ(read->dollar, "not a class");
    ASSERT_TRUE(read->next);
    EXPECT_EQ(read->next->title, std::nullopt);
    EXPECT_FALSE(read->next->next);
}

TEST(KeyedArchive, KeepsTheIdentityOfAnObjectHeldTwice) {
    auto card = std::make_shared<Card>();
    const auto root =
        reread(ArchiveDictionary{{std::uint64_t{5}, std::shared_ptr<KeyedCoding>(card)},
                                 {std::uint64_t{18}, std::shared_ptr<KeyedCoding>(card)}});
    ASSERT_TRUE(root && root->dictionary());
    ASSERT_TRUE((*root->dictionary())[0].value.object());
    EXPECT_EQ((*root->dictionary())[0].value.object(), (*root->dictionary())[1].value.object());
}

TEST(KeyedArchive, MendsTextThatIsNotUtf8) {
    EXPECT_EQ(reread("caf\xE9 \xED\xA0\x80"), ArchiveValue("caf\xEF\xBF\xBD "
                                                           "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"));
}

TEST(KeyedUnarchiver, ReadsTheOtherShapesThatWritersUse) {
    const auto root = readObjects(
        "<dict><key>NS.objects</key><array>" + ref(2) +
        "<string>inline</string><integer>7</integer>" + ref(3) + "</array><key>$class</key>" +
        ref(4) + "</dict>" + "<dict><key>NS.string</key><string>mutable</string><key>$class</key>" +
        ref(5) + "</dict>" + "<dict><key>title</key>" + ref(2) +
        "<key>done</key><integer>1</integer><key>code</key>" +
        "<true/><key>tag</key><real>-2.9</real><key>unknown</key>" + ref(99) + "<key>next</key>" +
        ref(0) + "<key>scale</key>" + ref(2) + "<key>$class</key>" + ref(6) + "</dict>" +
        classEntry("NSArray") + classEntry("NSMutableString") + classEntry("Card"));
    ASSERT_TRUE(root && root->array());
    const ArchiveArray& items = *root->array();
    ASSERT_EQ(items.size(), 4U);
    EXPECT_EQ(items[0], ArchiveValue("mutable"));
    EXPECT_EQ(items[1], ArchiveValue("inline"));
    EXPECT_EQ(items[2], ArchiveValue(std::uint64_t{7}));
    const auto card = std::dynamic_pointer_cast<Card>(items[3].object());
    ASSERT_TRUE(card);
    EXPECT_EQ(card->title, "mutable");
    EXPECT_TRUE(card->done);
    EXPECT_EQ(card->code, 1U);
    EXPECT_EQ(card->tag, -2);
    EXPECT_EQ(card->scale, std::nullopt) << "text is no size";
}

TEST(KeyedUnarchiver, ReadsNothingFromAnArchiveThatIsNotAsItShouldBe) {
    const std::string card = classEntry("Card");
    const struct {
        const char* what;
        std::string objects;
    } faults[] = {
        {"no root", ""},
        {"an unknown class", "<dict><key>$class</key>" + ref(2) + "</dict>" + classEntry("Task")},
        {"no class", "<dict><key>title</key><string>x</string></dict>"},
        {"a class that is no class entry", "<dict><key>$class</key>" + ref(1) + "</dict>"},
        {"a reference beyond the table",
         "<dict><key>next</key>" + ref(40) + "<key>$class</key>" + ref(2) + "</dict>" + card},
        {"an object within itself",
         "<dict><key>next</key>" + ref(1) + "<key>$class</key>" + ref(2) + "</dict>" + card},
        {"an array within itself", "<dict><key>NS.objects</key><array>" + ref(1) +
                                       "</array><key>$class</key>" + ref(2) + "</dict>" +
                                       classEntry("NSArray")},
        {"a reference to a reference", ref(2) + "<string>x</string>"},
        {"an array without objects", "<dict><key>NS.objects</key><true/><key>$class</key>" +
                                         ref(2) + "</dict>" + classEntry("NSArray")},
        {"more values than keys", "<dict><key>NS.keys</key><array/><key>NS.objects</key><array>" +
                                      ref(3) + "</array><key>$class</key>" + ref(2) + "</dict>" +
                                      classEntry("NSDictionary") + "<string>x</string>"},
        {"bytes", "<data>AAAA</data>"},
    };
    for (const auto& fault : faults) {
        EXPECT_FALSE(readObjects(fault.objects)) << fault.what;
    }
    EXPECT_TRUE(readObjects("<string>x</string>"));
    EXPECT_FALSE(readObjects("<string>x</string>", "NSArchiver"));
}

TEST(KeyedUnarchiver, BoundsWhatSharedArraysUnfoldTo) {
    // Each array holds the next one ten times: ten arrays are 10^10 values.
    std::string objects;
    for (int level = 1; level <= 10; ++level) {
        objects += "<dict><key>NS.objects</key><array>";
        for (int copy = 0; copy < 10; ++copy) {
            objects += ref(level + 1);
        }
        objects += "</array><key>$class</key>" + ref(12) + "</dict>";
    }
    EXPECT_FALSE(readObjects(objects + "<string>x</string>" + classEntry("NSArray")));
}

TEST(KeyedUnarchiver, BoundsTheChainOfObjects) {
    const auto chain = [](int length) {
        std::shared_ptr<Card> first;
        for (int index = 0; index < length; ++index) {
            auto card = std::make_shared<Card>();
            card->next = std::move(first);
            first = std::move(card);
        }
        return reread(std::shared_ptr<KeyedCoding>(first)).has_value();
    };
    EXPECT_TRUE(chain(kMaxArchiveDepth - 1));
    EXPECT_FALSE(chain(kMaxArchiveDepth));
}

TEST(KeyedUnarchiver, ReadsNothingFromAnyPrefixOrTheEmptyFile) {
    const Bytes whole = KeyedArchiver::archivedDataWithRootObject(ArchiveArray{"a", "b"});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const Bytes part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_FALSE(KeyedUnarchiver::unarchiveObjectWithData(part, classes())) << length;
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
    const auto bigEndian = [](std::uint64_t value) {
        std::string bytes;
        for (int shift = 56; shift >= 0; shift -= 8) {
            bytes += static_cast<char>(value >> shift & 0xFF);
        }
        return bytes;
    };
    const std::size_t table = text.size();
    text += offsets + std::string(6, '\0') + "\x01\x01" +
            bigEndian(claimedCount ? claimedCount : objects.size()) + bigEndian(0) +
            bigEndian(table);
    return Bytes(text.begin(), text.end());
}

TEST(BinaryPropertyListCheck, RefusesWhatTheParserWouldChokeOn) {
    using namespace std::string_literals;
    const std::string xs = "Qx"; // 0x51, text of one character
    const struct {
        const char* what;
        Bytes bytes;
        bool isSafe;
    } cases[] = {
        {"an array of two texts", propertyListOf({"\xA2\x01\x01"s, xs}), true},
        {"a dictionary", propertyListOf({"\xD1\x01\x01"s, xs}), true},
        {"a number as a key", propertyListOf({"\xD1\x01\x02"s, "\x10\x05"s, xs}), false},
        {"a container within itself", propertyListOf({"\xA1\x00"s}), false},
        {"two containers in each other", propertyListOf({"\xA1\x01"s, "\xA1\x00"s}), false},
        {"an item that does not exist", propertyListOf({"\xA1\x07"s}), false},
        {"more items than the file has",
         propertyListOf({"\xAF\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s}), false},
        {"more objects than the file has", propertyListOf({xs}, 0xFFFFFFFFFFFFFFFF), false},
        {"text beyond the file", propertyListOf({"_x"}), false},
        {"a number of 64 bytes", propertyListOf({"\x16" + std::string(64, '\0')}), false},
        {"a set", propertyListOf({"\xC1\x01"s, xs}), false},
    };
    for (const auto& test : cases) {
        EXPECT_EQ(isSafeBinaryPropertyList(test.bytes), test.isSafe) << test.what;
    }
}

TEST(BinaryPropertyListCheck, BoundsDepthAndUnfoldedSize) {
    const auto nested = [](int depth, int copies) {
        std::vector<std::string> objects;
        for (int level = 1; level <= depth; ++level) {
            objects.push_back(std::string(1, static_cast<char>(0xA0 + copies)) +
                              std::string(copies, static_cast<char>(level)));
        }
        objects.emplace_back("Qx"); // text of one character
        return propertyListOf(objects);
    };
    EXPECT_TRUE(isSafeBinaryPropertyList(nested(kMaxPropertyListDepth, 1)));
    EXPECT_FALSE(isSafeBinaryPropertyList(nested(kMaxPropertyListDepth + 1, 1)));
    EXPECT_FALSE(isSafeBinaryPropertyList(nested(10, 10))) << "10^10 texts";
}

} // namespace
} // namespace panewright
