// What one conversion call needs to know beside its record and text; lives on the stack of that call.
#pragma once

#include <cstdint>

namespace vzapi {

struct ReaderContext {
    std::uint32_t api_version = 0;  // as announced by the host
};

struct WriterContext {
    std::uint32_t api_version = 0;
    std::uint32_t option1 = 0;  // the profile of the receiving device: its family
    std::uint32_t option2 = 0;  // its version
    std::uint64_t option3 = 0;  // whether it counts
};

struct ReleaseContext {
    std::uint32_t api_version = 0;
};

}  // namespace vzapi
