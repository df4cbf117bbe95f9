// What has been taken forms a chain through the headers of the blocks, so that taking needs no memory.
#include "platform/reclaimer.h"

#include <cstdint>

#include "platform/posix/guarded_block.h"
#include "platform/posix/heap_block.h"

namespace vzapi::platform {
namespace {

// A link of the chain: the address of the next block, a multiple of 16, and what is to be done with the block
// that the link stands in.
constexpr std::uintptr_t kIsString = 1;
constexpr std::uintptr_t kIsWiped = 2;
constexpr std::uintptr_t kMarks = kIsString | kIsWiped;

void* add_to_chain(void* last, void* block, std::uintptr_t marks) noexcept {
    guarded_retire(block, reinterpret_cast<std::uintptr_t>(last) | marks);
    return block;
}

// Releases `block` and returns the next one.
void* release_from_chain(void* block) noexcept {
    const std::uintptr_t link = guarded_note(block);
    if ((link & kIsString) != 0) {
        guarded_free(block);
    } else {
        heap_release(block, (link & kIsWiped) != 0 ? Wipe::Yes : Wipe::No);
    }
    return reinterpret_cast<void*>(link & ~kMarks);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace

Reclaimer::~Reclaimer() {
    while (last_ != nullptr) last_ = release_from_chain(last_);
}

Reclaimer::Taken::Taken(Reclaimer& reclaimer, void* block, std::size_t size, Wipe wipe) noexcept
    : reclaimer_(reclaimer), block_(block), size_(size), wipe_(wipe) {}

Reclaimer::Taken::~Taken() = default;

Reclaimer::Taken Reclaimer::take(void* block, std::size_t least, Wipe wipe) noexcept {
    if (!guarded_owns(BlockKind::Heap, block, probe_)) return {*this, nullptr, 0, wipe};
    const std::size_t size = guarded_size(block);
    if (size < least) return {*this, nullptr, 0, wipe};
    last_ = add_to_chain(last_, block, wipe == Wipe::Yes ? kIsWiped : 0);
    return {*this, block, size, wipe};
}

void Reclaimer::release_string(char16_t* text) noexcept {
    if (guarded_owns(BlockKind::OleString, text, probe_)) last_ = add_to_chain(last_, text, kIsString);
}

}  // namespace vzapi::platform
