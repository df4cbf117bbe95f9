// The release of one record: takes back the blocks and strings that hang on it, each once, whatever the caller's
// pointers are.
#pragma once

#include <cstddef>

#include "platform/heap.h"
#include "platform/pointer_probe.h"

namespace vzapi::platform {

// Lives for the length of one release. Addresses that are nobody's, somebody else's or taken already are not
// touched. On Linux nothing is released before the reclaimer ends, so that a page found readable stays so and
// is asked about once; on Windows each block goes as soon as nobody looks into it any more.
class Reclaimer {
public:
    Reclaimer() noexcept = default;
    ~Reclaimer();  // NOLINT(performance-trivially-destructible): not on the system that releases at the end
    Reclaimer(const Reclaimer&) = delete;
    Reclaimer& operator=(const Reclaimer&) = delete;

    // A block that has been taken. What it holds can be read for as long as this lives.
    class Taken {
    public:
        ~Taken();  // NOLINT(performance-trivially-destructible): the same the other way round
        Taken(const Taken&) = delete;
        Taken& operator=(const Taken&) = delete;

        // False when there was nothing to take.
        explicit operator bool() const noexcept { return block_ != nullptr; }
        [[nodiscard]] std::size_t size() const noexcept { return size_; }

    private:
        friend class Reclaimer;
        Taken(Reclaimer& reclaimer, void* block, std::size_t size, Wipe wipe) noexcept;

        [[maybe_unused]] Reclaimer& reclaimer_;
        void* block_;  // null: nothing
        std::size_t size_;
        [[maybe_unused]] Wipe wipe_;
        [[maybe_unused]] Taken* outer_ = nullptr;
    };

    // Takes `block` when it is the address of a live block of the process heap with `least` bytes or more. It is
    // overwritten with zeros before it is released when `wipe` says so.
    [[nodiscard]] Taken take(void* block, std::size_t least = 0, Wipe wipe = Wipe::No) noexcept;

    // Takes a block that nothing hangs on.
    void release(void* block, Wipe wipe = Wipe::No) noexcept { static_cast<void>(take(block, 0, wipe)); }

    // Takes an OLE string. On Windows every readable address is taken for one.
    void release_string(char16_t* text) noexcept;

private:
    [[maybe_unused]] PointerProbe probe_;
    [[maybe_unused]] void* last_ = nullptr;        // of the chain of all that is to be released at the end
    [[maybe_unused]] Taken* innermost_ = nullptr;  // of those that are being looked into
};

}  // namespace vzapi::platform
