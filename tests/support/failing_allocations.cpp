// The program's operator new is this one: it asks the FailingAllocations of the thread, tells its
// MemoryMeter, and forwards to malloc, whose blocks AddressSanitizer and valgrind watch over as ever.
#include "support/failing_allocations.h"

#include <cstdlib>
#include <new>

#include "platform/allocation_gate.h"
#include "support/memory_meter.h"

// The runtime library of clang's ThreadSanitizer defines operator new itself, and takes no second definition.
#if defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define VZAPI_OPERATOR_NEW_IS_TAKEN
#endif
#endif

namespace vzapi::test {
namespace {

thread_local FailingAllocations* t_current = nullptr;

}  // namespace

bool allow_allocation(Allocations kind) noexcept {
    FailingAllocations* current = t_current;
    if (current == nullptr) return true;
    if ((static_cast<unsigned>(current->which_) & static_cast<unsigned>(kind)) == 0) return true;
    if (++current->asked_ != current->nth_) return true;
    current->failed_ = true;
    return false;
}

FailingAllocations::FailingAllocations(std::size_t nth, Allocations which) : nth_(nth), which_(which) {
    // Stays in place: a thread without a FailingAllocations is allowed everything.
    platform::g_test_only_allocation_gate = []() noexcept {
        return allow_allocation(Allocations::HeapAndOle);
    };
    t_current = this;
}

FailingAllocations::~FailingAllocations() {
    stop();
}

bool FailingAllocations::sees_operator_new() noexcept {
#ifdef VZAPI_OPERATOR_NEW_IS_TAKEN
    return false;
#else
    return true;
#endif
}

void FailingAllocations::stop() noexcept {
    if (t_current == this) t_current = nullptr;
}

}  // namespace vzapi::test

#ifndef VZAPI_OPERATOR_NEW_IS_TAKEN

namespace {

void* allocate(std::size_t size) noexcept {
    if (!vzapi::test::allow_allocation(vzapi::test::Allocations::OperatorNew)) return nullptr;
    void* const block = std::malloc(size == 0 ? 1 : size);
    vzapi::test::meter_allocation(block);
    return block;
}

void release(void* block) noexcept {
    vzapi::test::meter_release(block);
    std::free(block);
}

void* allocate_or_throw(std::size_t size) {
    if (void* block = allocate(size)) return block;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
    return allocate_or_throw(size);
}
void* operator new[](std::size_t size) {
    return allocate_or_throw(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocate(size);
}
void operator delete(void* block) noexcept {
    release(block);
}
void operator delete[](void* block) noexcept {
    release(block);
}
void operator delete(void* block, std::size_t) noexcept {
    release(block);
}
void operator delete[](void* block, std::size_t) noexcept {
    release(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
    release(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
    release(block);
}

#endif
