#include "crash_report/build_id.h"

#include <elf.h>
#include <fmt/format.h>

#include <cstdint>
#include <cstring>
#include <optional>
#include <span>

namespace panewright {
namespace {

using Content = std::span<const Bytes::value_type>;

/// Nil where they are not all there.
std::optional<Content> part(Content bytes, std::uint64_t offset, std::uint64_t size) {
    if (offset > bytes.size() || size > bytes.size() - offset) {
        return std::nullopt;
    }
    return bytes.subspan(offset, size);
}

template <class Structure>
std::optional<Structure> read(Content bytes, std::uint64_t offset) {
    const auto source = part(bytes, offset, sizeof(Structure));
    if (!source) {
        return std::nullopt;
    }
    Structure structure;
    std::memcpy(&structure, source->data(), sizeof structure);
    return structure;
}

std::uint64_t padded(std::uint64_t size) {
    constexpr std::uint64_t kAlignment = 4;
    return (size + kAlignment - 1) / kAlignment * kAlignment;
}

/// Of a segment of notes, one behind the other.
std::string buildIdAmong(Content notes) {
    std::uint64_t offset = 0;
    while (const auto note = read<Elf64_Nhdr>(notes, offset)) {
        const auto name = offset + sizeof *note;
        const auto content = name + padded(note->n_namesz);
        if (note->n_type == NT_GNU_BUILD_ID) {
            std::string digits;
            for (const auto byte : part(notes, content, note->n_descsz).value_or(Content())) {
                digits += fmt::format("{:02x}", byte);
            }
            return digits;
        }
        offset = content + padded(note->n_descsz);
    }
    return {};
}

} // namespace

std::string buildIdOf(const Bytes& start) {
    const auto head = read<Elf64_Ehdr>(start, 0);
    if (!head || std::memcmp(head->e_ident, ELFMAG, SELFMAG) != 0 ||
        head->e_ident[EI_CLASS] != ELFCLASS64) {
        return {};
    }
    for (std::uint64_t i = 0; i < head->e_phnum; ++i) {
        const auto segment = read<Elf64_Phdr>(start, head->e_phoff + i * sizeof(Elf64_Phdr));
        if (!segment || segment->p_type != PT_NOTE) {
            continue;
        }
        const auto notes = part(start, segment->p_offset, segment->p_filesz);
        if (auto id = buildIdAmong(notes.value_or(Content())); !id.empty()) {
            return id;
        }
    }
    return {};
}

} // namespace panewright
