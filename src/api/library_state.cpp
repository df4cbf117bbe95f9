#include "api/library_state.h"

#include "platform/com_scope.h"
#include "platform/sleep.h"

namespace vzapi {
namespace {

constexpr std::uint32_t kBusyPollMilliseconds = 1000;
constexpr int kBusyPolls = 30;

}  // namespace

LibraryState& library_state() noexcept {
    static constinit LibraryState state;
    return state;
}

void release_shared_state(bool (*is_busy)()) {
    for (int poll = 0; poll < kBusyPolls && is_busy(); ++poll) platform::sleep(kBusyPollMilliseconds);
    // Hosts count on the thread's COM being up and released once around the end of the library's work.
    // Nothing outlives a call, so there is nothing else to give back.
    const platform::ComScope com;
}

}  // namespace vzapi
