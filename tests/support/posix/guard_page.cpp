#include "support/guard_page.h"

#include <sys/mman.h>

#include <new>

namespace vzapi::test {
namespace {

constexpr std::size_t kPage = 4096;

std::byte* map(std::size_t readable, std::size_t hole, std::size_t behind) {
    void* memory =
        mmap(nullptr, readable + hole + behind, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    auto* bytes = static_cast<std::byte*>(memory);
    mprotect(bytes + readable, hole, PROT_NONE);
    return bytes;
}

}  // namespace

void GuardPage::forbid(std::byte* first, std::size_t pages) const noexcept {
    mprotect(first, pages * kPage, PROT_NONE);
}

GuardPage::GuardPage(std::size_t pages, std::size_t hole, std::size_t behind)
    : memory_(map(pages * kPage, hole * kPage, behind * kPage)),
      readable_(pages * kPage),
      hole_(hole * kPage),
      behind_(behind * kPage) {}

GuardPage::~GuardPage() {
    munmap(memory_, readable_ + hole_ + behind_);
}

}  // namespace vzapi::test
