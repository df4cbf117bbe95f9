#include "versit/object.h"

#include <algorithm>

#include "versit/ascii.h"
#include "versit/open_component.h"

namespace vzapi::versit {
namespace {

template <class Unit>
std::basic_string_view<Unit> component_of(const BasicVersitProperty<Unit>& line) {
    return trim_blanks(line.value());
}

}  // namespace

template <class Unit>
BasicRootInfo<Unit> root_info(std::span<const BasicVersitProperty<Unit>> lines) noexcept {
    BasicRootInfo<Unit> root;
    std::size_t depth = 0;
    bool has_version = false;
    bool has_nested = false;
    for (const BasicVersitProperty<Unit>& line : lines) {
        const PropertyId id = line.id();
        if (id == PropertyId::Begin) {
            if (depth == 0) root.name = component_of(line);
            if (depth == 1 && !has_nested) {
                root.nested = component_of(line);
                has_nested = true;
            }
            ++depth;
        } else if (id == PropertyId::End && depth > 0) {
            if (--depth == 0) break;
        } else if (id == PropertyId::Version && depth == 1 && !has_version) {
            root.version = line.value();
            has_version = true;
        }
        if (has_version && has_nested) break;
    }
    return root;
}

template <class Unit>
std::vector<BasicVersitProperty<Unit>> component_lines(std::span<const BasicVersitProperty<Unit>> lines,
                                                       std::string_view upper_name, Nested nested) {
    std::vector<BasicVersitProperty<Unit>> own;
    std::size_t at = 0;
    while (at < lines.size() && !(lines[at].id() == PropertyId::Begin &&
                                  equals_ignoring_case(component_of(lines[at]), upper_name))) {
        ++at;
    }
    if (at == lines.size()) return own;
    own.push_back(lines[at++]);
    OpenComponent component(upper_name);
    for (; at < lines.size() && !component.closed(); ++at) {
        const bool was_nested = component.nested() > 0;
        component.see(lines[at], lines[at].id());
        const bool is_nested = component.nested() > 0 || (was_nested && !component.closed());
        if (!is_nested || nested == Nested::Include) own.push_back(lines[at]);
    }
    return own;
}

std::vector<VersitProperty> component_lines(const VersitObject& object, ComponentId component,
                                            Nested nested) {
    return component_lines(std::span<const VersitProperty>(object.lines()), component_name(component),
                           nested);
}

std::optional<RootComponent> root_component(const VersitObject& object, ComponentId component) {
    const std::vector<VersitProperty>& lines = object.lines();
    const auto begin = std::find_if(lines.begin(), lines.end(), [](const VersitProperty& line) {
        return line.id() == PropertyId::Begin;
    });
    const std::string_view name = component_name(component);
    if (begin == lines.end() || !equals_ignoring_case(component_of(*begin), name)) return std::nullopt;

    RootComponent root;
    root.lines.reserve(static_cast<std::size_t>(lines.end() - begin));
    OpenComponent open(name);
    bool has_version = false;
    for (auto line = begin + 1; line != lines.end(); ++line) {
        const PropertyId id = line->id();
        open.see(*line, id);
        if (open.closed()) break;
        if (id == PropertyId::Begin || id == PropertyId::End || open.nested() > 0) continue;
        if (id == PropertyId::Version && !has_version) {
            root.version = line->value();
            has_version = true;
        }
        root.lines.push_back({id, *line});
    }
    return root;
}

template <class Unit>
std::vector<BasicVersitProperty<Unit>> select_lines(std::span<const BasicVersitProperty<Unit>> lines,
                                                    std::span<const std::string_view> upper_names) {
    std::vector<BasicVersitProperty<Unit>> selected;
    for (const std::string_view name : upper_names) {
        for (const BasicVersitProperty<Unit>& line : lines) {
            if (equals_ignoring_case(line.raw_name(), name)) selected.push_back(line);
        }
    }
    return selected;
}

template RootInfo root_info(std::span<const VersitProperty>) noexcept;
template WideRootInfo root_info(std::span<const WideVersitProperty>) noexcept;
template std::vector<VersitProperty> component_lines(std::span<const VersitProperty>, std::string_view,
                                                     Nested);
template std::vector<WideVersitProperty> component_lines(std::span<const WideVersitProperty>,
                                                         std::string_view, Nested);
template std::vector<VersitProperty> select_lines(std::span<const VersitProperty>,
                                                  std::span<const std::string_view>);
template std::vector<WideVersitProperty> select_lines(std::span<const WideVersitProperty>,
                                                      std::span<const std::string_view>);

}  // namespace vzapi::versit
