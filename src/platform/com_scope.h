// COM for the calling thread, for the length of a scope. Nothing on Linux.
#pragma once

namespace vzapi::platform {

// Initialises COM multithreaded, or apartment-threaded where the host has chosen that for the thread
// (RPC_E_CHANGED_MODE, 0x80010106). Released at the end only when the first initialisation answered 0.
class ComScope {
public:
    ComScope() noexcept;
    ~ComScope();  // NOLINT(performance-trivially-destructible): not on the system that has COM
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

private:
    [[maybe_unused]] bool release_ = false;
};

}  // namespace vzapi::platform
