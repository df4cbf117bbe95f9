#include "support/guard_page.h"

#include <sys/mman.h>

#include <new>

namespace vzapi::test {
namespace {

constexpr std::size_t kPage = 4096;

std::byte* map(std::size_t readable) {
    void* memory =
        mmap(nullptr, readable + kPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    auto* bytes = static_cast<std::byte*>(memory);
    mprotect(bytes + readable, kPage, PROT_NONE);
    return bytes;
}

}  // namespace

GuardPage::GuardPage(std::size_t pages) : memory_(map(pages * kPage)), readable_(pages * kPage) {}

GuardPage::~GuardPage() {
    munmap(memory_, readable_ + kPage);
}

}  // namespace vzapi::test
