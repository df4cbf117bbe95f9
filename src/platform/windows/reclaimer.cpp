// A block is released as soon as nobody looks into it, which the heap itself then knows; until then it is on a
// list of those that are not to be taken again.
#include "platform/reclaimer.h"

#include "platform/ole_string.h"

namespace vzapi::platform {

Reclaimer::~Reclaimer() = default;

Reclaimer::Taken::Taken(Reclaimer& reclaimer, void* block, std::size_t size, Wipe wipe) noexcept
    : reclaimer_(reclaimer), block_(block), size_(size), wipe_(wipe), outer_(reclaimer.innermost_) {
    reclaimer_.innermost_ = this;
}

Reclaimer::Taken::~Taken() {
    reclaimer_.innermost_ = outer_;
    if (block_ != nullptr) heap_free(block_, wipe_);
}

Reclaimer::Taken Reclaimer::take(void* block, std::size_t least, Wipe wipe) noexcept {
    for (const Taken* taken = innermost_; taken != nullptr; taken = taken->outer_) {
        if (taken->block_ == block) return {*this, nullptr, 0, wipe};
    }
    const std::size_t size = heap_size(block);
    if (size < least || (size == 0 && !heap_owns(block))) return {*this, nullptr, 0, wipe};
    return {*this, block, size, wipe};
}

void Reclaimer::release_string(char16_t* text) noexcept {
    if (is_readable(text)) ole_string_free(text);
}

}  // namespace vzapi::platform
