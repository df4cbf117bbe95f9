#include "versit/compound_value.h"

#include <algorithm>
#include <limits>

#include "versit/value_reader.h"

namespace vzapi::versit {

std::u16string unescape(std::u16string_view text, Escapes escapes) {
    std::u16string plain;
    plain.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) plain += take_unescaped(text, at, escapes);
    return plain;
}

void append_component(std::u16string_view component, std::u16string& value) {
    const auto is_escaped = [](char16_t unit) { return unit == u';' || unit == u'\\'; };
    for (auto from = component.begin();;) {
        const auto to = std::find_if(from, component.end(), is_escaped);
        value.append(from, to);
        if (to == component.end()) return;
        value.append({u'\\', *to});
        from = to + 1;
    }
}

std::vector<std::u16string> component_texts(const VersitProperty& line, Escapes escapes) {
    ValueReader values;
    const std::size_t count = values.split(line, escapes, std::numeric_limits<std::size_t>::max());
    std::vector<std::u16string> texts;
    texts.reserve(count);
    for (std::size_t i = 0; i < count; ++i) texts.emplace_back(values.component(i));
    return texts;
}

}  // namespace vzapi::versit
