#include "platform/xml_reduction.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "platform/xml_characters.h"

namespace vzapi::platform {
namespace {

// Ends the reduction of a document that is refused; does not leave this file.
struct Refusal {};

[[noreturn]] void refuse() {
    throw Refusal();
}

void require(bool holds) {
    if (!holds) refuse();
}

constexpr bool is_ascii_letter(char32_t code) noexcept {
    return (code >= U'A' && code <= U'Z') || (code >= U'a' && code <= U'z');
}

// The value of a digit in `base`; -1 when it is none.
constexpr int digit_value(char32_t code, int base) noexcept {
    if (code >= U'0' && code <= U'9') return static_cast<int>(code - U'0');
    if (base == 16 && code >= U'a' && code <= U'f') return static_cast<int>(code - U'a') + 10;
    if (base == 16 && code >= U'A' && code <= U'F') return static_cast<int>(code - U'A') + 10;
    return -1;
}

constexpr std::u16string_view kKnownEntities[] = {u"lt", u"gt", u"amp", u"apos", u"quot"};

// The text yet to be read.
class Source {
public:
    explicit Source(std::u16string_view text) noexcept : text_(text) {}

    [[nodiscard]] bool at_end() const noexcept { return text_.empty(); }
    [[nodiscard]] bool at(std::u16string_view text) const noexcept { return text_.starts_with(text); }
    [[nodiscard]] bool at_space() const noexcept { return !at_end() && is_xml_space(text_.front()); }

    // Takes `text` when it comes next.
    bool take(std::u16string_view text) noexcept {
        if (!at(text)) return false;
        text_.remove_prefix(text.size());
        return true;
    }
    void expect(std::u16string_view text) { require(take(text)); }

    // Takes the next character, which XML has to allow.
    char32_t take_character() {
        const char32_t code = next_code();
        require(is_xml_character(code));
        text_.remove_prefix(code > 0xFFFF ? 2 : 1);
        return code;
    }
    // The same; CR and CR LF come as LF.
    char32_t take_text_character() {
        if (!take(u"\r")) return take_character();
        take(u"\n");
        return U'\n';
    }
    bool take_space() noexcept {
        const bool found = at_space();
        while (at_space()) text_.remove_prefix(1);
        return found;
    }
    std::u16string_view take_name() {
        const std::u16string_view begin = text_;
        require(may_begin_xml_name(next_code()));
        do take_character();
        while (!at_end() && may_continue_xml_name(next_code()));
        const std::size_t length = begin.size() - text_.size();
        require(length <= kLongestXmlName);
        return begin.substr(0, length);
    }
    // Takes all up to `end`, and `end` itself.
    std::u16string_view take_up_to(std::u16string_view end) {
        const std::u16string_view begin = text_;
        while (!at(end)) take_character();
        take(end);
        return begin.substr(0, begin.size() - text_.size() - end.size());
    }

private:
    // An unpaired surrogate comes as itself.
    [[nodiscard]] char32_t next_code() const {
        require(!at_end());
        const char16_t unit = text_[0];
        const bool is_pair = (unit & 0xFC00) == 0xD800 && text_.size() > 1 && (text_[1] & 0xFC00) == 0xDC00;
        if (!is_pair) return unit;
        return 0x10000 + ((unit & 0x3FFU) << 10 | (text_[1] & 0x3FFU));
    }

    std::u16string_view text_;
};

// The reduced text, kept to its limits.
class Result {
public:
    void append(std::u16string_view text) {
        require(text.size() <= kLongestReducedXml - text_.size());
        text_.append(text);
    }
    // Character data: a parser has to read it as this character.
    void append_data(char32_t code) {
        switch (code) {
            case U'<':
                return append(u"&lt;");
            case U'>':
                return append(u"&gt;");
            case U'&':
                return append(u"&amp;");
            case U'\r':
                return append(u"&#13;");
            default:
                return append_code(code);
        }
    }
    std::u16string take() noexcept { return std::move(text_); }

private:
    void append_code(char32_t code) {
        if (code <= 0xFFFF) {
            const auto unit = static_cast<char16_t>(code);
            return append({&unit, 1});
        }
        const char32_t offset = code - 0x10000;
        const char16_t pair[] = {static_cast<char16_t>(0xD800 + (offset >> 10)),
                                 static_cast<char16_t>(0xDC00 + (offset & 0x3FF))};
        append({pair, 2});
    }

    std::u16string text_;
};

class Reducer {
public:
    explicit Reducer(std::u16string_view document) noexcept : source_(document) {}

    std::u16string reduce() {
        if (at_declaration()) take_declaration();
        while (!source_.at_end()) {
            if (source_.at(u"<")) {
                reduce_markup();
            } else {
                reduce_text();
            }
        }
        require(elements_ > 0 && depth_ == 0);
        return result_.take();
    }

private:
    // Other names that begin with "xml" are those of instructions.
    [[nodiscard]] bool at_declaration() const noexcept {
        Source ahead = source_;
        return ahead.take(u"<?xml") && ahead.at_space();
    }

    // [23] XMLDecl. Any version 1.x is read as 1.0.
    void take_declaration() {
        source_.expect(u"<?xml");
        const std::u16string_view version = take_pseudo_attribute(u"version");
        require(version.size() > 2 && version.starts_with(u"1."));
        require(std::all_of(version.begin() + 2, version.end(),
                            [](char16_t unit) { return digit_value(unit, 10) >= 0; }));
        if (const std::u16string_view encoding = take_pseudo_attribute(u"encoding");
            encoding.data() != nullptr) {
            require(!encoding.empty() && is_ascii_letter(encoding.front()));
        }
        if (const std::u16string_view alone = take_pseudo_attribute(u"standalone"); alone.data() != nullptr) {
            require(alone == u"yes" || alone == u"no");
        }
        source_.take_space();
        source_.expect(u"?>");
    }

    // The value of `name`="value" when that comes next, behind white space; else null.
    std::u16string_view take_pseudo_attribute(std::u16string_view name) {
        Source ahead = source_;
        if (!ahead.take_space() || !ahead.take(name)) return {};
        source_ = ahead;
        take_equals_sign();
        return source_.take_up_to(take_quote());
    }

    void take_equals_sign() {
        source_.take_space();
        source_.expect(u"=");
        source_.take_space();
    }

    std::u16string_view take_quote() {
        if (source_.take(u"\"")) return u"\"";
        source_.expect(u"'");
        return u"'";
    }

    void reduce_markup() {
        if (source_.take(u"<!--")) return take_comment();
        if (source_.take(u"<![CDATA[")) return reduce_cdata();
        if (source_.take(u"<?")) return take_instruction();
        if (source_.take(u"</")) return reduce_end_tag();
        source_.expect(u"<");  // a DOCTYPE goes on with what begins no name
        reduce_start_tag();
    }

    // [15] Comment
    void take_comment() {
        source_.take_up_to(u"--");
        source_.expect(u">");
    }

    // [16] PI
    void take_instruction() {
        const std::u16string_view target = source_.take_name();
        require(!is_reserved_target(target));
        if (source_.take(u"?>")) return;
        require(source_.at_space());
        source_.take_up_to(u"?>");
    }

    // "xml" in any case is no target: a declaration that does not come first, or one to be.
    static bool is_reserved_target(std::u16string_view target) noexcept {
        constexpr std::u16string_view kReserved = u"xml";
        return std::equal(target.begin(), target.end(), kReserved.begin(), kReserved.end(),
                          [](char16_t unit, char16_t letter) { return (unit | 0x20) == letter; });
    }

    // [18] CDSect
    void reduce_cdata() {
        require(depth_ > 0);
        while (!source_.at(u"]]>")) result_.append_data(source_.take_text_character());
        source_.take(u"]]>");
    }

    void reduce_end_tag() {
        require(depth_ > 0);
        --depth_;
        append_tag(u"</", source_.take_name(), u">");
        source_.take_space();
        source_.expect(u">");
    }

    void reduce_start_tag() {
        require(depth_ > 0 || elements_ == 0);
        require(elements_ < kMostXmlElements && depth_ < kDeepestXmlElement);
        ++elements_;
        const std::u16string_view name = source_.take_name();
        take_attributes();
        const bool is_empty = source_.take(u"/");
        source_.expect(u">");
        append_tag(u"<", name, is_empty ? u"/>" : u">");
        if (!is_empty) ++depth_;
    }

    void append_tag(std::u16string_view open, std::u16string_view name, std::u16string_view close) {
        result_.append(open);
        result_.append(reduced_name(name));
        result_.append(close);
    }

    // [41] Attribute, each with white space before it; no name twice.
    void take_attributes() {
        std::vector<std::u16string_view> names;
        while (source_.take_space() && !source_.at(u"/") && !source_.at(u">")) {
            names.push_back(source_.take_name());
            take_equals_sign();
            take_attribute_value(take_quote());
        }
        std::sort(names.begin(), names.end());
        require(std::adjacent_find(names.begin(), names.end()) == names.end());
    }

    void take_attribute_value(std::u16string_view quote) {
        while (!source_.take(quote)) {
            require(!source_.at(u"<"));
            if (source_.take(u"&")) {
                take_reference();
            } else {
                source_.take_character();
            }
        }
    }

    // Text up to the next tag. Outside the root element there is only white space, which nobody needs.
    void reduce_text() {
        if (depth_ == 0) return require(source_.take_space());
        while (!source_.at_end() && !source_.at(u"<")) {
            require(!source_.at(u"]]>"));
            result_.append_data(source_.take(u"&") ? take_reference() : source_.take_text_character());
        }
    }

    // [67] Reference behind its '&'; what it stands for.
    char32_t take_reference() {
        if (source_.take(u"#x")) return take_character_reference(16);
        if (source_.take(u"#")) return take_character_reference(10);
        const std::u16string_view name = source_.take_name();
        source_.expect(u";");
        constexpr char32_t kCharacters[] = {U'<', U'>', U'&', U'\'', U'"'};
        const auto* const known = std::find(std::begin(kKnownEntities), std::end(kKnownEntities), name);
        require(known != std::end(kKnownEntities));
        return kCharacters[known - std::begin(kKnownEntities)];
    }

    char32_t take_character_reference(int base) {
        char32_t code = 0;
        require(!source_.at(u";"));
        while (!source_.take(u";")) {
            const int digit = digit_value(source_.take_character(), base);
            require(digit >= 0);
            code = code * static_cast<char32_t>(base) + static_cast<char32_t>(digit);
            require(code <= 0x10FFFF);
        }
        require(is_xml_character(code));
        return code;
    }

    Source source_;
    Result result_;
    std::size_t depth_ = 0;
    std::size_t elements_ = 0;
};

bool stands_for_itself(char16_t unit) noexcept {
    return is_ascii_letter(unit) || digit_value(unit, 10) >= 0 || unit == u'.' || unit == u'-';
}

}  // namespace

std::optional<std::u16string> reduce_xml(std::u16string_view document) {
    try {
        return Reducer(document).reduce();
    } catch (const Refusal&) {
        return std::nullopt;
    }
}

std::u16string reduced_name(std::u16string_view name) {
    constexpr std::u16string_view kDigits = u"0123456789abcdef";
    std::u16string reduced;
    for (const char16_t unit : name) {
        if (stands_for_itself(unit)) {
            reduced += unit;
            continue;
        }
        reduced += u'_';
        for (int shift = 12; shift >= 0; shift -= 4) reduced += kDigits[(unit >> shift) & 0xF];
    }
    return reduced;
}

std::u16string original_name(std::u16string_view reduced) {
    std::u16string name;
    while (!reduced.empty()) {
        char16_t unit = reduced.front();
        reduced.remove_prefix(1);
        if (unit == u'_') {
            unit = 0;
            for (const char16_t digit : reduced.substr(0, 4)) {
                unit = static_cast<char16_t>(unit << 4 | digit_value(digit, 16));
            }
            reduced.remove_prefix(4);
        }
        name += unit;
    }
    return name;
}

}  // namespace vzapi::platform
