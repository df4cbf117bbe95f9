// The kernel copies the signal set before it looks at `how`: an address it cannot read gives EFAULT, any
// other one EINVAL for the invalid `how`, and the signal mask stays as it is.
#include "platform/pointer_probe.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace vzapi::platform {
namespace {

constexpr std::size_t kSignalSetSize = 8;

std::uintptr_t page_of(std::uintptr_t address) noexcept {
    return address & ~std::uintptr_t{kPageSize - 1};
}

// The page that this very call has its local variables on needs no asking. Records and descriptions that a
// caller has on its stack mostly share it.
bool is_own_stack(std::uintptr_t page) noexcept {
    return page == page_of(reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)));
}

// What the kernel answers: 0, or an error number with its sign changed. Asking is a third of the work of reading
// a multimedia message, so the way through libc, and errno with it, is left out where we know how.
long ask_kernel(std::uintptr_t address) noexcept {
    constexpr long kInvalidHow = -1;
#if defined(__x86_64__)
    long result = SYS_rt_sigprocmask;
    register std::size_t size asm("r10") = kSignalSetSize;  // not const: that would be any register
    asm volatile("syscall"
                 : "+a"(result)
                 : "D"(kInvalidHow), "S"(address), "d"(nullptr), "r"(size)
                 : "rcx", "r11", "memory");
    return result;
#else
    const int errno_before = errno;
    const long result = syscall(SYS_rt_sigprocmask, kInvalidHow, address, nullptr, kSignalSetSize);
    const int error = errno;
    errno = errno_before;
    return result == -1 ? -error : result;
#endif
}

// Asks for the eight bytes at `address`, which need not be aligned.
bool is_readable_set(std::uintptr_t address) noexcept {
    return ask_kernel(address) != -EFAULT;
}

}  // namespace

bool is_readable(const void* address) noexcept {
    const std::uintptr_t aligned =
        reinterpret_cast<std::uintptr_t>(address) & ~std::uintptr_t{kSignalSetSize - 1};
    if (aligned == 0) return false;  // a null set is a valid argument, which the kernel does not look at
    return is_own_stack(page_of(aligned)) || is_readable_set(aligned);
}

ReadablePages readable_pages_at(std::uintptr_t address) noexcept {
    const std::uintptr_t page = page_of(address);
    if (page == 0) return {};  // as is_readable(null)
    if (is_own_stack(page)) return {page, page + kPageSize};
    const std::uintptr_t border = page_of(address + kPageSize / 2);
    // Eight bytes across the border between two pages ask for both.
    if (border != 0 && is_readable_set(border - kSignalSetSize / 2)) {
        return {border - kPageSize, border + kPageSize};
    }
    // NOLINTNEXTLINE(performance-no-int-to-ptr): pages are numbers here
    return is_readable_set(page) ? ReadablePages{page, page + kPageSize} : ReadablePages{};
}

bool are_readable(std::uintptr_t first_page, std::uintptr_t last_page) noexcept {
    std::uintptr_t page = first_page;
    for (; page < last_page; page += 2 * kPageSize) {
        if (!is_readable_set(page + kPageSize - kSignalSetSize / 2)) return false;
    }
    return page != last_page || is_readable_set(page);
}

}  // namespace vzapi::platform
