#include "support/guard_page.h"

#include <cstdlib>
#include <new>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/mman.h>
#endif

namespace vzapi::test {
namespace {

constexpr std::size_t kPage = 4096;

#ifdef _WIN32
std::byte* map(std::size_t readable) {
    void* memory = VirtualAlloc(nullptr, readable + kPage, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (memory == nullptr) throw std::bad_alloc();
    DWORD before = 0;
    VirtualProtect(static_cast<std::byte*>(memory) + readable, kPage, PAGE_NOACCESS, &before);
    return static_cast<std::byte*>(memory);
}

void unmap(std::byte* memory, std::size_t) {
    VirtualFree(memory, 0, MEM_RELEASE);
}
#else
std::byte* map(std::size_t readable) {
    void* memory =
        mmap(nullptr, readable + kPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    mprotect(static_cast<std::byte*>(memory) + readable, kPage, PROT_NONE);
    return static_cast<std::byte*>(memory);
}

void unmap(std::byte* memory, std::size_t readable) {
    munmap(memory, readable + kPage);
}
#endif

}  // namespace

GuardPage::GuardPage(std::size_t pages) : memory_(map(pages * kPage)), readable_(pages * kPage) {}

GuardPage::~GuardPage() {
    unmap(memory_, readable_);
}

}  // namespace vzapi::test
