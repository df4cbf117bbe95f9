// One logical line of versit text and its parts, found in the line's text when a reader asks for them:
// [group.]NAME[;parameter...]:value, without the line end, folds and soft breaks already joined, the value
// still encoded (vCard 2.1, section 2.1).
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "versit/names.h"

namespace vzapi::versit {

// A parameter inside a line: NAME=value, or a value alone (";HOME"), whose name is then empty.
template <class Unit>
struct BasicVersitParameter {
    std::basic_string_view<Unit> name;
    std::basic_string_view<Unit> value;
};

// A view: the VersitObject that the line belongs to must outlive it.
template <class Unit>
class BasicVersitProperty {
public:
    using View = std::basic_string_view<Unit>;

    BasicVersitProperty() = default;
    explicit BasicVersitProperty(View text) noexcept;

    [[nodiscard]] View text() const noexcept { return text_; }

    // The text before the first ';' or ':', whichever comes first; empty when there is neither or it stands
    // at the very front. As written: name() gives it in capitals. A group prefix is part of it.
    [[nodiscard]] View raw_name() const noexcept {
        return name_end_ == View::npos ? View{} : text_.substr(0, name_end_);
    }
    [[nodiscard]] std::basic_string<Unit> name() const;

    // Index of the upper-cased name in the name table of this side.
    [[nodiscard]] PropertyId id() const noexcept { return find_property(raw_name()); }

    // The text after the first ':'; empty when the line has no ':' or begins with it.
    [[nodiscard]] View value() const noexcept {
        return colon_ == View::npos || colon_ == 0 ? View{} : text_.substr(colon_ + 1);
    }

    // True when the line has a ':'.
    [[nodiscard]] bool has_colon() const noexcept { return colon_ != View::npos; }

    // The text between name and value, from the first ';' on; empty when there is none.
    [[nodiscard]] View parameters() const noexcept {
        return name_end_ == colon_ ? View{} : text_.substr(name_end_, colon_ - name_end_);
    }

    // The value of the first parameter of that name (in capitals), compared without regard to case.
    [[nodiscard]] std::optional<View> parameter(std::string_view upper_name) const noexcept;

    // Searches the whole line, parameters and value alike, case as written, for the encoding names in the
    // order of the table; the first name that occurs anywhere wins, so "NOTE:see 8BIT docs" is 8BIT. Without
    // any: Unknown when the line holds "ENCODING", else None.
    [[nodiscard]] Encoding encoding() const noexcept;

    friend bool operator==(const BasicVersitProperty& a, const BasicVersitProperty& b) noexcept {
        return a.text_ == b.text_;
    }

private:
    View text_;
    // Where the first ';' or ':' and the first ':' stand: readers ask for the parts of a line again and again.
    std::size_t name_end_ = View::npos;
    std::size_t colon_ = View::npos;
};

using VersitParameter = BasicVersitParameter<char>;
using VersitProperty = BasicVersitProperty<char>;
using WideVersitProperty = BasicVersitProperty<char16_t>;

// The value, its transfer encoding undone: that of the line or, when the line states none,
// `default_encoding`. Quoted-printable and Base64 (3, 4, 5) are decoded, any other value is returned as it
// stands.
[[nodiscard]] std::string decoded_value(const VersitProperty& line, Encoding default_encoding);

}  // namespace vzapi::versit
