#include "vzconv/new_file.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <system_error>

#include "vzconv/failure.h"

namespace vzconv {
namespace {

// In the words of the C library, which are the same on every system.
std::string reason_of(DWORD error) {
    const std::error_condition reason =
        std::system_category().default_error_condition(static_cast<int>(error));
    return std::generic_category().message(reason.value());
}

// 0, or why not all was written.
DWORD write_all(HANDLE file, std::string_view data) {
    constexpr std::size_t kMost = 0x40000000;
    while (!data.empty()) {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min(data.size(), kMost));
        if (WriteFile(file, data.data(), count, &written, nullptr) == 0) return GetLastError();
        if (written == 0) return ERROR_DISK_FULL;
        data.remove_prefix(written);
    }
    return ERROR_SUCCESS;
}

}  // namespace

bool write_new_file(const std::filesystem::path& path, std::string_view data) {
    // The link itself, not what it leads to, is what may have the name.
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        if (error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS) return false;
        throw Failure("cannot be made: " + reason_of(error));
    }
    const DWORD error = write_all(file, data);
    CloseHandle(file);
    if (error == ERROR_SUCCESS) return true;
    DeleteFileW(path.c_str());
    throw Failure("cannot be written: " + reason_of(error));
}

}  // namespace vzconv
