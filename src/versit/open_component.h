// Where a component ends.
#pragma once

#include <cstddef>
#include <string_view>

#include "versit/ascii.h"
#include "versit/property.h"

namespace vzapi::versit {

// Follows a component from the line after its BEGIN until the END that closes it: the one that closes the
// level of the BEGIN, or an END of the component's own name while no nested component of that name is open.
class OpenComponent {
public:
    // `upper_name` must outlive the object.
    explicit OpenComponent(std::string_view upper_name) noexcept : upper_name_(upper_name) {}

    // Levels of nested components open around the line last seen; 0 is the component itself.
    [[nodiscard]] std::size_t nested() const noexcept { return nested_; }
    [[nodiscard]] bool closed() const noexcept { return closed_; }

    // Takes the next line, whose ID is `id`.
    template <class Unit>
    void see(const BasicVersitProperty<Unit>& line, PropertyId id) noexcept {
        if (id != PropertyId::Begin && id != PropertyId::End) return;
        const bool same_name = equals_ignoring_case(trim_blanks(line.value()), upper_name_);
        if (id == PropertyId::Begin) {
            ++nested_;
            nested_of_same_name_ += same_name ? 1 : 0;
        } else if (nested_ == 0 || (same_name && nested_of_same_name_ == 0)) {
            closed_ = true;
            nested_ = 0;
        } else {
            --nested_;
            nested_of_same_name_ -= same_name ? 1 : 0;
        }
    }

private:
    std::string_view upper_name_;
    std::size_t nested_ = 0;
    std::size_t nested_of_same_name_ = 0;
    bool closed_ = false;
};

}  // namespace vzapi::versit
