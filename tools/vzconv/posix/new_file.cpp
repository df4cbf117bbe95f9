#include "vzconv/new_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <system_error>

#include "vzconv/failure.h"

namespace vzconv {
namespace {

// 0, or why not all was written.
int write_all(int file, std::string_view data) {
    constexpr std::size_t kMost = 0x40000000;
    while (!data.empty()) {
        const ssize_t written = ::write(file, data.data(), std::min(data.size(), kMost));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        data.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

}  // namespace

bool write_new_file(const std::filesystem::path& path, std::string_view data) {
    constexpr mode_t kForAll = 0666;  // less what the user's mask forbids
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kForAll);
    if (file < 0 && errno == EEXIST) return false;
    if (file < 0) throw Failure("cannot be made: " + std::generic_category().message(errno));
    int error = write_all(file, data);
    if (::close(file) != 0 && error == 0) error = errno;
    if (error == 0) return true;
    ::unlink(path.c_str());
    throw Failure("cannot be written: " + std::generic_category().message(error));
}

}  // namespace vzconv
