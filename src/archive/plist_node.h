#pragma once

#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>

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

inline std::optional<std::string> textOf(plist_t node) {
    std::uint64_t length = 0;
    const char* text = isPlist(node, PLIST_STRING) ? plist_get_string_ptr(node, &length) : nullptr;
    return text ? std::optional(std::string(text, length)) : std::nullopt;
}

} // namespace panewright
