#include "support/guard_page.h"

#include <windows.h>

#include <new>

namespace vzapi::test {
namespace {

constexpr std::size_t kPage = 4096;

std::byte* map(std::size_t readable, std::size_t hole, std::size_t behind) {
    void* memory = VirtualAlloc(nullptr, readable + hole + behind, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (memory == nullptr) throw std::bad_alloc();
    auto* bytes = static_cast<std::byte*>(memory);
    DWORD before = 0;
    VirtualProtect(bytes + readable, hole, PAGE_NOACCESS, &before);
    return bytes;
}

}  // namespace

void GuardPage::forbid(std::byte* first, std::size_t pages) const noexcept {
    DWORD before = 0;
    VirtualProtect(first, pages * kPage, PAGE_NOACCESS, &before);
}

GuardPage::GuardPage(std::size_t pages, std::size_t hole, std::size_t behind)
    : memory_(map(pages * kPage, hole * kPage, behind * kPage)),
      readable_(pages * kPage),
      hole_(hole * kPage),
      behind_(behind * kPage) {}

GuardPage::~GuardPage() {
    VirtualFree(memory_, 0, MEM_RELEASE);
}

}  // namespace vzapi::test
