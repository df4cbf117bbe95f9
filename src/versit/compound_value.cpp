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
    while (!component.empty()) {
        const std::size_t run = std::min(component.find_first_of(u";\\"), component.size());
        value.append(component.substr(0, run));
        component.remove_prefix(run);
        if (component.empty()) break;
        value.append({u'\\', component.front()});
        component.remove_prefix(1);
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
