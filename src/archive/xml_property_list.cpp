#include "archive/xml_property_list.h"

#include "archive/plist_node.h"

#include <type_traits>

namespace panewright {
namespace {

constexpr std::size_t kMaxXmlSize = 1 << 20;
constexpr int kMaxDepth = 32;

PlistNode nodeOf(const ArchiveValue& value);

PlistNode arrayNode(const ArchiveArray& array) {
    PlistNode node(plist_new_array());
    for (const auto& item : array) {
        auto child = nodeOf(item);
        if (!child) {
            return nullptr;
        }
        plist_array_append_item(node.get(), child.release());
    }
    return node;
}

PlistNode dictionaryNode(const ArchiveDictionary& dictionary) {
    PlistNode node(plist_new_dict());
    for (const auto& [key, item] : dictionary) {
        auto child = nodeOf(item);
        if (!child || !key.string()) {
            return nullptr;
        }
        plist_dict_set_item(node.get(), key.string()->c_str(), child.release());
    }
    return node;
}

PlistNode nodeOf(const ArchiveValue& value) {
    return std::visit(
        [](const auto& content) -> PlistNode {
            using Content = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<Content, bool>) {
                return PlistNode(plist_new_bool(content ? 1 : 0));
            } else if constexpr (std::is_integral_v<Content>) {
                return PlistNode(plist_new_uint(static_cast<std::uint64_t>(content)));
            } else if constexpr (std::is_same_v<Content, double>) {
                return PlistNode(plist_new_real(content));
            } else if constexpr (std::is_same_v<Content, std::string>) {
                return PlistNode(plist_new_string(content.c_str()));
            } else if constexpr (std::is_same_v<Content, ArchiveArray>) {
                return arrayNode(content);
            } else if constexpr (std::is_same_v<Content, ArchiveDictionary>) {
                return dictionaryNode(content);
            } else {
                return nullptr;
            }
        },
        value.content());
}

std::optional<ArchiveValue> valueOf(plist_t node, int depth);

std::optional<ArchiveValue> arrayOf(plist_t node, int depth) {
    ArchiveArray array;
    for (plist_t child : itemsOf(node)) {
        auto item = valueOf(child, depth + 1);
        if (!item) {
            return std::nullopt;
        }
        array.push_back(std::move(*item));
    }
    return ArchiveValue(std::move(array));
}

std::optional<ArchiveValue> dictionaryOf(plist_t node, int depth) {
    ArchiveDictionary dictionary;
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node, &iterator);
    const CPointer<void> owned(iterator);
    for (;;) {
        char* key = nullptr;
        plist_t child = nullptr;
        plist_dict_next_item(node, iterator, &key, &child);
        const CPointer<char> ownedKey(key);
        if (!child) {
            return ArchiveValue(std::move(dictionary));
        }
        auto item = valueOf(child, depth + 1);
        if (!item) {
            return std::nullopt;
        }
        dictionary.push_back({ArchiveValue(key), std::move(*item)});
    }
}

std::optional<ArchiveValue> valueOf(plist_t node, int depth) {
    if (!node || depth > kMaxDepth) {
        return std::nullopt;
    }
    switch (plist_get_node_type(node)) {
    case PLIST_STRING:
        return ArchiveValue(std::string(*textOf(node)));
    case PLIST_BOOLEAN: {
        std::uint8_t truth = 0;
        plist_get_bool_val(node, &truth);
        return ArchiveValue(truth != 0);
    }
    case PLIST_UINT: {
        std::uint64_t number = 0;
        plist_get_uint_val(node, &number);
        return ArchiveValue(number);
    }
    case PLIST_REAL: {
        double number = 0;
        plist_get_real_val(node, &number);
        return ArchiveValue(number);
    }
    case PLIST_ARRAY:
        return arrayOf(node, depth);
    case PLIST_DICT:
        return dictionaryOf(node, depth);
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<std::string> xmlPropertyList(const ArchiveValue& value) {
    const auto node = nodeOf(value);
    char* xml = nullptr;
    std::uint32_t size = 0;
    if (node) {
        plist_to_xml(node.get(), &xml, &size);
    }
    const CPointer<char> owned(xml);
    return xml ? std::optional(std::string(xml, size)) : std::nullopt;
}

std::optional<ArchiveValue> valueOfXmlPropertyList(std::string_view xml) {
    if (xml.size() > kMaxXmlSize) {
        return std::nullopt;
    }
    plist_t node = nullptr;
    plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &node);
    const PlistNode owned(node);
    return valueOf(node, 0);
}

} // namespace panewright
