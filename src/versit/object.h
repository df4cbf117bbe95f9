// The parse result: the logical lines of a text, flat and in input order. "BEGIN:" and "END:" lines stay in
// the list as ordinary lines; nesting is their order.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "versit/property.h"

namespace vzapi::versit {

// Lines of `lines` from `begin` up to, not including, `end`.
struct LineRange {
    std::size_t begin = 0;
    std::size_t end = 0;
    friend bool operator==(const LineRange&, const LineRange&) = default;
};

// Owns the text that its lines are views into. Moving it keeps the lines valid.
template <class Unit>
class BasicVersitObject {
public:
    using Property = BasicVersitProperty<Unit>;

    BasicVersitObject() = default;
    BasicVersitObject(std::unique_ptr<Unit[]> text, std::vector<Property> lines,
                      std::vector<LineRange> bodies)
        : text_(std::move(text)), lines_(std::move(lines)), bodies_(std::move(bodies)) {}

    [[nodiscard]] const std::vector<Property>& lines() const& noexcept { return lines_; }
    void lines() && = delete;  // the views would outlive their text
    [[nodiscard]] std::size_t count() const noexcept { return lines_.size(); }
    [[nodiscard]] bool empty() const noexcept { return lines_.empty(); }

    // UTF-16 texts only: the message bodies, each the lines between a BEGIN:VBODY and the END:VBODY that
    // closes it. Their lines are physical lines exactly as they stood in the text.
    [[nodiscard]] const std::vector<LineRange>& bodies() const noexcept { return bodies_; }

private:
    std::unique_ptr<Unit[]> text_;
    std::vector<Property> lines_;
    std::vector<LineRange> bodies_;
};

using VersitObject = BasicVersitObject<char>;
using WideVersitObject = BasicVersitObject<char16_t>;

// What a reader tests before anything else. A missing part is empty.
template <class Unit>
struct BasicRootInfo {
    std::basic_string_view<Unit> name;     // value of the first "BEGIN:" line, blanks at both ends taken off
    std::basic_string_view<Unit> version;  // value of the first VERSION line directly inside it, as it stands
    std::basic_string_view<Unit> nested;   // name of the first component directly inside it, blanks taken off
};

using RootInfo = BasicRootInfo<char>;
using WideRootInfo = BasicRootInfo<char16_t>;

template <class Unit>
[[nodiscard]] BasicRootInfo<Unit> root_info(std::span<const BasicVersitProperty<Unit>> lines) noexcept;

enum class Nested : bool { Exclude, Include };

// The lines of the first component called `upper_name` (compared without regard to case), from its BEGIN to
// its matching END, both included, in input order; the lines of components nested in it only when asked for.
// Without an END the component reaches to the end of `lines`; without a BEGIN the result is empty. To look
// for a component inside another, pass the lines of that one.
//
// The matching END is the one that closes the level of the BEGIN, or an END of the component's own name while
// no nested component of that name is open.
template <class Unit>
[[nodiscard]] std::vector<BasicVersitProperty<Unit>> component_lines(
    std::span<const BasicVersitProperty<Unit>> lines, std::string_view upper_name, Nested nested);

[[nodiscard]] std::vector<VersitProperty> component_lines(const VersitObject& object, ComponentId component,
                                                          Nested nested = Nested::Exclude);
std::vector<VersitProperty> component_lines(VersitObject&& object, ComponentId component,
                                            Nested nested = Nested::Exclude) = delete;

// A line with its ID, which is looked up once.
struct IdentifiedLine {
    PropertyId id = PropertyId::None;
    VersitProperty line;
};

struct RootComponent {
    std::string_view version;           // value of its first VERSION line, as it stands; empty without any
    std::vector<IdentifiedLine> lines;  // between its BEGIN and its END, those of nested components left out
};

// The component that the first "BEGIN:" line opens, with the lines that component_lines() gives for it, in one
// walk; nothing when it is another one than `component`.
[[nodiscard]] std::optional<RootComponent> root_component(const VersitObject& object, ComponentId component);
void root_component(VersitObject&& object, ComponentId component) = delete;

// The lines whose names are among `upper_names`, ordered by that list and, within one name, as in `lines`.
template <class Unit>
[[nodiscard]] std::vector<BasicVersitProperty<Unit>> select_lines(
    std::span<const BasicVersitProperty<Unit>> lines, std::span<const std::string_view> upper_names);

}  // namespace vzapi::versit
