#include "vcard/contact_writing.h"

#include "versit/compound_value.h"

namespace vzapi::vcard {
namespace {

constexpr std::string_view kPreference = ";PREF";
constexpr std::u16string_view kLineBreak = u"\r\n";

bool stands_for_line_break(std::u16string_view text, std::size_t at) {
    return text.size() - at >= 2 && text[at] == u'\\' && (text[at + 1] == u'n' || text[at + 1] == u'N');
}

// Where the next "\n" or "\N" stands from `from` on; the end of the text when there is none.
std::size_t find_line_break(std::u16string_view text, std::size_t from) {
    for (std::size_t at = text.find(u'\\', from); at != text.npos; at = text.find(u'\\', at + 1)) {
        if (stands_for_line_break(text, at)) return at;
    }
    return text.size();
}

void append_with_line_breaks(std::u16string_view text, std::u16string& out) {
    for (std::size_t from = 0;;) {
        const std::size_t at = find_line_break(text, from);
        out.append(text.substr(from, at - from));
        if (at == text.size()) return;
        out.append(kLineBreak);
        from = at + 2;
    }
}

}  // namespace

ContactWriting::ContactWriting(const WriterContext& context)
    : effects_(profile_effects(context)), api_version_(context.api_version) {}

std::u16string_view ContactWriting::note_text(const ContactField& entry) {
    const std::u16string_view text = memory_.text(entry.value.text);
    if (text.data() != nullptr) note_value(entry.fieldId);
    if (!text.empty()) note_content(entry.fieldId);
    return text;
}

void ContactWriting::text_line(std::string_view name, std::string_view parameters,
                               std::u16string_view value) {
    lines_.property(name, parameters, value);
}

void ContactWriting::multiline_text_line(std::string_view name, std::string_view parameters,
                                         std::u16string_view value) {
    if (find_line_break(value, 0) == value.size()) {
        text_line(name, parameters, value);
        return;
    }
    value_.clear();
    append_with_line_breaks(value, value_);
    lines_.property(name, parameters, value_, versit::ValueForm::QuotedPrintable);
}

void ContactWriting::compound_line(versit::PropertyId property, std::string_view parameters,
                                   std::span<const std::u16string_view> components, std::size_t least) {
    std::size_t count = components.size();
    while (count > least && components[count - 1].empty()) --count;
    value_.clear();
    for (std::size_t i = 0; i < count; ++i) {
        if (i != 0) value_.push_back(u';');
        versit::append_component(components[i], value_);
    }
    lines_.property(property, parameters, value_);
}

std::string_view ContactWriting::with_preference(std::string_view parameters, bool preferred) {
    if (!preferred || parameters == kPreference) return parameters;
    parameters_.assign(parameters).append(kPreference);
    return parameters_;
}

}  // namespace vzapi::vcard
