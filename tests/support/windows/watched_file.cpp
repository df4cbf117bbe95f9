#include "support/watched_file.h"

#include <windows.h>

#include <atomic>
#include <stdexcept>

namespace vzapi::test {
namespace {

std::string new_name() {
    static std::atomic<unsigned> count{0};
    return "vzapi_watched_" + std::to_string(GetCurrentProcessId()) + "_" + std::to_string(++count);
}

HANDLE as_handle(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);  // NOLINT(performance-no-int-to-ptr)
}

// Whether the other end has been opened; it may have been closed again.
bool has_come(HANDLE pipe) {
    if (ConnectNamedPipe(pipe, nullptr) != FALSE) return false;
    const DWORD error = GetLastError();
    return error == ERROR_PIPE_CONNECTED || error == ERROR_NO_DATA;
}

}  // namespace

WatchedFile::WatchedFile() : path_("\\\\.\\pipe\\" + new_name()) {
    constexpr DWORD kBuffer = 512;
    const HANDLE pipe = CreateNamedPipeA(path_.c_str(), PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE | PIPE_NOWAIT, 1,
                                         kBuffer, kBuffer, 0, nullptr);
    if (pipe == INVALID_HANDLE_VALUE) throw std::runtime_error("no pipe to watch");
    handle_ = reinterpret_cast<std::intptr_t>(pipe);
    static_cast<void>(has_come(pipe));
}

WatchedFile::~WatchedFile() {
    CloseHandle(as_handle(handle_));
}

std::string WatchedFile::url() const {
    return "file://./pipe/" + path_.substr(path_.rfind('\\') + 1);
}

bool WatchedFile::was_opened() const {
    const HANDLE pipe = as_handle(handle_);
    const bool opened = has_come(pipe);
    if (opened) {
        DisconnectNamedPipe(pipe);
        static_cast<void>(has_come(pipe));
    }
    return opened;
}

}  // namespace vzapi::test
