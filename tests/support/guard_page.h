// Memory whose end touches a page without access, so that reading one byte too far, or a pointer behind it,
// faults.
#pragma once

#include <cstddef>

namespace vzapi::test {

class GuardPage {
public:
    // `pages` readable and writable pages, zero-filled, followed by `hole` pages without access and `behind`
    // further ones like the first.
    explicit GuardPage(std::size_t pages = 1, std::size_t hole = 1, std::size_t behind = 0);
    ~GuardPage();
    GuardPage(const GuardPage&) = delete;
    GuardPage& operator=(const GuardPage&) = delete;

    // Takes the access to `pages` pages from `first` on, one of the pages behind: a further hole.
    void forbid(std::byte* first, std::size_t pages) const noexcept;

    [[nodiscard]] std::byte* begin() const noexcept { return memory_; }
    // First byte of the page without access.
    [[nodiscard]] std::byte* unreadable() const noexcept { return memory_ + readable_; }
    // First byte behind the pages without access.
    [[nodiscard]] std::byte* behind() const noexcept { return unreadable() + hole_; }
    // The last `size` readable bytes in front of them.
    [[nodiscard]] std::byte* last(std::size_t size) const noexcept { return unreadable() - size; }

    // A pointer into the page without access.
    template <class T>
    [[nodiscard]] T* unreadable_as() const noexcept {
        return static_cast<T*>(static_cast<void*>(unreadable()));
    }
    template <class T>
    [[nodiscard]] T* last_as(std::size_t size = sizeof(T)) const noexcept {
        return static_cast<T*>(static_cast<void*>(last(size)));
    }

private:
    std::byte* memory_ = nullptr;
    std::size_t readable_ = 0;  // bytes
    std::size_t hole_ = 0;
    std::size_t behind_ = 0;
};

}  // namespace vzapi::test
