#pragma once

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>
#include <type_traits>
#include <vector>

namespace panewright {

struct PlistDeleter {
    void operator()(plist_t node) const { plist_free(node); }
};

/// A property list that is ours to free, with everything in it. What is put into a container
/// belongs to the container.
using PlistNode = std::unique_ptr<std::remove_pointer_t<plist_t>, PlistDeleter>;

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

/// Memory that a C library allocated for us.
template <class T>
using CPointer = std::unique_ptr<T, FreeDeleter>;

inline bool isPlist(plist_t node, plist_type type) {
    return node && plist_get_node_type(node) == type;
}

/// Nothing unless the node is of the kind.
inline std::optional<std::uint64_t> uidOf(plist_t node) {
    if (!isPlist(node, PLIST_UID)) {
        return std::nullopt;
    }
    std::uint64_t uid = 0;
    plist_get_uid_val(node, &uid);
    return uid;
}

/// Lives as long as the node.
inline std::optional<std::string_view> textOf(plist_t node) {
    std::uint64_t length = 0;
    const char* text = isPlist(node, PLIST_STRING) ? plist_get_string_ptr(node, &length) : nullptr;
    return text ? std::optional(std::string_view(text, length)) : std::nullopt;
}

/// The items of an array, empty for any other node: the library's own access by index is linear.
inline std::vector<plist_t> itemsOf(plist_t array) {
    std::vector<plist_t> items;
    if (isPlist(array, PLIST_ARRAY)) {
        items.reserve(plist_array_get_size(array));
        plist_array_iter iterator = nullptr;
        plist_array_new_iter(array, &iterator);
        const CPointer<void> owned(iterator);
        plist_t item = nullptr;
        while (plist_array_next_item(array, iterator, &item), item) {
            items.push_back(item);
        }
    }
    return items;
}

} // namespace panewright
