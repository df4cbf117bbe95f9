#include "platform/posix/guarded_block.h"

#include <sys/random.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <limits>

// Such a function may look at memory that is nobody's, or no longer anybody's.
#define VZAPI_READS_FOREIGN_MEMORY __attribute__((noinline, no_sanitize("address"), no_sanitize("thread")))

namespace vzapi::platform {
namespace {

struct Header {
    std::uint64_t cookie;  // of a retired block: its note
    std::uint32_t size_high;
    std::uint32_t size_low;
};
static_assert(sizeof(Header) == 16 && alignof(std::max_align_t) == 16);

std::uintptr_t address_of(const void* pointer) noexcept {
    return reinterpret_cast<std::uintptr_t>(pointer);
}

Header* header_of(const void* block) noexcept {
    // In numbers, since the address may be wild. NOLINTNEXTLINE(performance-no-int-to-ptr)
    return reinterpret_cast<Header*>(address_of(block) - sizeof(Header));
}

std::uint64_t make_secret() noexcept {
    std::uint64_t secret = 0;
    if (getrandom(&secret, sizeof secret, GRND_NONBLOCK) == static_cast<ssize_t>(sizeof secret))
        return secret;
    static const char somewhere = 0;
    return address_of(&somewhere);  // early at boot: where the library lies is all the chance there is
}

// Every bit of the result depends on every bit of `bits` (the finaliser of the SplitMix64 generator).
std::uint64_t scramble(std::uint64_t bits) noexcept {
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
    return bits ^ (bits >> 31);
}

std::uint64_t cookie_of(BlockKind kind, const void* block) noexcept {
    static const std::uint64_t secret = make_secret();
    // Addresses of blocks are multiples of 16: the kind does not run into them.
    return scramble(secret ^ (address_of(block) + static_cast<std::uint64_t>(kind)));
}

// Cookies go through volatile, so that destroying one in a block about to be released is no dead store. A note
// takes the place of one: notes are addresses, and no cookie is likely to look like one.
void write_cookie(Header* header, std::uint64_t cookie) noexcept {
    *static_cast<volatile std::uint64_t*>(&header->cookie) = cookie;
}

VZAPI_READS_FOREIGN_MEMORY std::uint64_t read_cookie(const Header* header) noexcept {
    return *static_cast<const volatile std::uint64_t*>(&header->cookie);
}

// The blocks allocated last, as far as they are live: at those nothing needs to be asked or read. A block that
// is not among them, since another one has taken its place, is known by its cookie. Each place is written by
// whoever allocates or retires the block in it, so no order between threads is needed but the one in which they
// hand a block on.
class LiveBlocks {
public:
    [[nodiscard]] bool has(BlockKind kind, const void* block) const noexcept {
        return place_of(block).load(std::memory_order_relaxed) == entry(kind, block);
    }
    void add(BlockKind kind, const void* block) noexcept {
        place_of(block).store(entry(kind, block), std::memory_order_relaxed);
    }
    // A place that another block takes at this moment may come out empty, which only costs a question.
    void remove(const void* block) noexcept {
        std::atomic<std::uintptr_t>& place = place_of(block);
        const std::uintptr_t live = place.load(std::memory_order_relaxed) & ~(sizeof(Header) - 1);
        if (live == address_of(block)) place.store(0, std::memory_order_relaxed);
    }

private:
    static constexpr std::size_t kPlaces = 4096;

    // Addresses of blocks are multiples of 16: the kind does not run into them.
    static std::uintptr_t entry(BlockKind kind, const void* block) noexcept {
        return address_of(block) + static_cast<std::uintptr_t>(kind);
    }
    static std::size_t index_of(const void* block) noexcept {
        return address_of(block) / sizeof(Header) % kPlaces;
    }
    std::atomic<std::uintptr_t>& place_of(const void* block) noexcept { return places_[index_of(block)]; }
    const std::atomic<std::uintptr_t>& place_of(const void* block) const noexcept {
        return places_[index_of(block)];
    }

    std::array<std::atomic<std::uintptr_t>, kPlaces> places_{};
};

constinit LiveBlocks g_live_blocks;

// False for an address that no block has, and for the lowest ones, before which no header can stand.
bool is_aligned(const void* block) noexcept {
    return address_of(block) >= sizeof(Header) && address_of(block) % sizeof(Header) == 0;
}

bool has_cookie(BlockKind kind, const void* block) noexcept {
    return read_cookie(header_of(block)) == cookie_of(kind, block);
}

}  // namespace

void* guarded_allocate(BlockKind kind, std::size_t size, Fill fill, std::size_t tail) noexcept {
    constexpr auto kMost =
        static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) - sizeof(Header);
    if (tail > kMost || size > kMost - tail) return nullptr;
    const std::size_t all = sizeof(Header) + size + tail;
    void* memory = fill == Fill::Zeros ? std::calloc(1, all) : std::malloc(all);
    if (memory == nullptr) return nullptr;
    auto* header = static_cast<Header*>(memory);
    header->size_high = static_cast<std::uint32_t>(size >> 32);
    header->size_low = static_cast<std::uint32_t>(size);
    void* block = header + 1;
    write_cookie(header, cookie_of(kind, block));
    g_live_blocks.add(kind, block);
    return block;
}

bool guarded_owns(BlockKind kind, const void* block) noexcept {
    if (!is_aligned(block)) return false;
    return g_live_blocks.has(kind, block) || (is_readable(header_of(block)) && has_cookie(kind, block));
}

bool guarded_owns(BlockKind kind, const void* block, PointerProbe& probe) noexcept {
    if (!is_aligned(block)) return false;
    return g_live_blocks.has(kind, block) || (probe.readable(header_of(block)) && has_cookie(kind, block));
}

std::size_t guarded_size(const void* block) noexcept {
    const Header* header = header_of(block);
    return std::size_t{header->size_high} << 32 | header->size_low;
}

void guarded_retire(void* block, std::uintptr_t note) noexcept {
    g_live_blocks.remove(block);
    write_cookie(header_of(block), note);
}

std::uintptr_t guarded_note(const void* block) noexcept {
    return header_of(block)->cookie;
}

void guarded_free(void* block) noexcept {
    guarded_retire(block, 0);
    std::free(header_of(block));
}

}  // namespace vzapi::platform
