#include "platform/posix/guarded_block.h"

#include <sys/random.h>

#include <cstdlib>
#include <limits>

#include "platform/pointer_probe.h"

// Such a function may look at memory that is nobody's, or no longer anybody's.
#define VZAPI_READS_FOREIGN_MEMORY __attribute__((noinline, no_sanitize("address"), no_sanitize("thread")))

namespace vzapi::platform {
namespace {

struct Header {
    std::uint64_t cookie;
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

// Cookies go through volatile, so that destroying one in a block about to be released is no dead store.
void write_cookie(Header* header, std::uint64_t cookie) noexcept {
    *static_cast<volatile std::uint64_t*>(&header->cookie) = cookie;
}

VZAPI_READS_FOREIGN_MEMORY std::uint64_t read_cookie(const Header* header) noexcept {
    return *static_cast<const volatile std::uint64_t*>(&header->cookie);
}

}  // namespace

void* guarded_allocate(BlockKind kind, std::size_t size, std::size_t tail) noexcept {
    constexpr auto kMost =
        static_cast<std::size_t>(std::numeric_limits<std::ptrdiff_t>::max()) - sizeof(Header);
    if (tail > kMost || size > kMost - tail) return nullptr;
    void* memory = std::calloc(1, sizeof(Header) + size + tail);
    if (memory == nullptr) return nullptr;
    auto* header = static_cast<Header*>(memory);
    header->size_high = static_cast<std::uint32_t>(size >> 32);
    header->size_low = static_cast<std::uint32_t>(size);
    void* block = header + 1;
    write_cookie(header, cookie_of(kind, block));
    return block;
}

bool guarded_owns(BlockKind kind, const void* block) noexcept {
    if (address_of(block) < sizeof(Header) || address_of(block) % sizeof(Header) != 0) return false;
    const Header* header = header_of(block);
    return is_readable(header) && read_cookie(header) == cookie_of(kind, block);
}

std::size_t guarded_size(const void* block) noexcept {
    const Header* header = header_of(block);
    return std::size_t{header->size_high} << 32 | header->size_low;
}

void guarded_free(void* block) noexcept {
    Header* header = header_of(block);
    write_cookie(header, 0);
    std::free(header);
}

}  // namespace vzapi::platform
