// Waiting, with a door for tests.
#pragma once

#include <cstdint>

namespace vzapi::platform {

using SleepFunction = void (*)(std::uint32_t milliseconds);

void sleep(std::uint32_t milliseconds);

// TEST ONLY: puts `function` in the place of the real wait; null brings the real one back.
void test_only_set_sleep(SleepFunction function) noexcept;

}  // namespace vzapi::platform
