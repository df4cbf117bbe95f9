// How much memory the process has at most had at one time.
#pragma once

#include <cstddef>

namespace vzapi::bench {

// Watches from its making on. Asks the kernel's own figures; where there are none, 0 is the answer.
class PeakMemory {
public:
    PeakMemory();

    // The highest amount since then, beyond what the process had at that time.
    [[nodiscard]] std::size_t bytes() const;

private:
    std::size_t before_;
};

}  // namespace vzapi::bench
