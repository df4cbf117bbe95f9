#include "support/memory_meter.h"

#include <algorithm>

#include "support/block_size.h"

namespace vzapi::test {
namespace {

thread_local MemoryMeter* t_meter = nullptr;

}  // namespace

MemoryMeter::MemoryMeter() noexcept {
    t_meter = this;
}

MemoryMeter::~MemoryMeter() {
    t_meter = nullptr;
}

void meter_allocation(void* block) noexcept {
    if (t_meter == nullptr || block == nullptr) return;
    t_meter->in_use_ += block_size(block);
    t_meter->peak_ = std::max(t_meter->peak_, t_meter->in_use_);
}

// A block from before the meter's making is none of those it counts.
void meter_release(void* block) noexcept {
    if (t_meter == nullptr || block == nullptr) return;
    t_meter->in_use_ -= std::min(t_meter->in_use_, block_size(block));
}

}  // namespace vzapi::test
