// What the system does for support/memory_meter.h.
#pragma once

#include <cstddef>

namespace vzapi::test {

// The bytes that a block of malloc has, which may be a few more than were asked for.
[[nodiscard]] std::size_t block_size(void* block) noexcept;

}  // namespace vzapi::test
