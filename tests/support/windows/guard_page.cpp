#include "support/guard_page.h"

#include <windows.h>

#include <new>

namespace vzapi::test {
namespace {

constexpr std::size_t kPage = 4096;

std::byte* map(std::size_t readable) {
    void* memory = VirtualAlloc(nullptr, readable + kPage, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (memory == nullptr) throw std::bad_alloc();
    auto* bytes = static_cast<std::byte*>(memory);
    DWORD before = 0;
    VirtualProtect(bytes + readable, kPage, PAGE_NOACCESS, &before);
    return bytes;
}

}  // namespace

GuardPage::GuardPage(std::size_t pages) : memory_(map(pages * kPage)), readable_(pages * kPage) {}

GuardPage::~GuardPage() {
    VirtualFree(memory_, 0, MEM_RELEASE);
}

}  // namespace vzapi::test
