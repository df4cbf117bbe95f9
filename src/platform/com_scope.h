// COM for the calling thread, for the length of a scope. Nothing on Linux.
#pragma once

namespace vzapi::platform {

// When the end of the scope releases what its beginning initialised.
enum class ComRelease : bool {
    WhenFirst,  // only when the thread had no COM before, and the multithreaded initialisation answered 0
    Always,     // the host finds the thread's COM as it was
};

// Initialises COM multithreaded, or apartment-threaded where the host has chosen that for the thread
// (RPC_E_CHANGED_MODE, 0x80010106).
class ComScope {
public:
    explicit ComScope(ComRelease release = ComRelease::WhenFirst) noexcept;
    ~ComScope();  // NOLINT(performance-trivially-destructible): not on the system that has COM
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

private:
    [[maybe_unused]] bool release_ = false;
};

}  // namespace vzapi::platform
