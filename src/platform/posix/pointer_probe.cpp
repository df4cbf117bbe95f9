// The kernel copies the signal set before it looks at `how`: an address it cannot read gives EFAULT, any
// other one EINVAL for the invalid `how`, and the signal mask stays as it is.
#include "platform/pointer_probe.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace vzapi::platform {

bool is_readable(const void* address) noexcept {
    constexpr std::size_t kSignalSetSize = 8;
    constexpr int kInvalidHow = -1;
    const std::uintptr_t aligned =
        reinterpret_cast<std::uintptr_t>(address) & ~std::uintptr_t{kSignalSetSize - 1};
    if (aligned == 0) return false;  // a null set is a valid argument, which the kernel does not look at

    const int errno_before = errno;
    const long result = syscall(SYS_rt_sigprocmask, kInvalidHow, aligned, nullptr, kSignalSetSize);
    const bool readable = !(result == -1 && errno == EFAULT);
    errno = errno_before;
    return readable;
}

}  // namespace vzapi::platform
