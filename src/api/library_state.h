// The process-wide numbers of the library, all of them. Conversions only read `api_version`; the rest belongs
// to initialising and terminating, which the host does from one thread.
#pragma once

#include <atomic>
#include <cstdint>

namespace vzapi {

struct LibraryState {
    std::atomic<std::uint32_t> api_version{0};  // of the last successful VZAPI_Initialize
    std::atomic<std::uint32_t> init_count{0};   // VZAPI_Initialize calls not yet matched by VZAPI_Terminate
    std::atomic<bool> busy{false};              // work in progress that VZAPI_Terminate waits for
    std::atomic<std::uint32_t> object_init_count{0};  // ODCAPI_Initialize calls not yet matched
    std::atomic<std::uint32_t> pending_objects{0};    // operations that ODCAPI_Terminate waits for
};

[[nodiscard]] LibraryState& library_state() noexcept;

// The end of the library's work for one of the families: waits while `is_busy`, asking once a second and 30
// times at most, then gives back what the library shares between calls.
void release_shared_state(bool (*is_busy)());

}  // namespace vzapi
