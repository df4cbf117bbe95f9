#include "platform/sleep.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace vzapi::platform {
namespace {

std::atomic<SleepFunction> g_sleep{nullptr};

}  // namespace

void sleep(std::uint32_t milliseconds) {
    if (const SleepFunction function = g_sleep.load()) {
        function(milliseconds);
    } else {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
}

void test_only_set_sleep(SleepFunction function) noexcept {
    g_sleep.store(function);
}

}  // namespace vzapi::platform
