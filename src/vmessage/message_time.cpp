#include "vmessage/message_time.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "versit/ascii.h"

namespace vzapi::vmessage {
namespace {

constexpr std::size_t kMonthAndDay = 4;      // digits, behind a year of any length
constexpr std::size_t kMostYearDigits = 5;   // of 16 bits
constexpr std::size_t kMostFieldDigits = 3;  // of 8 bits

// `number` with zeros in front up to `width` digits.
void append_number(unsigned number, std::size_t width, std::string& out) {
    std::array<char, std::numeric_limits<unsigned>::digits10 + 1> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    const auto count = static_cast<std::size_t>(end - digits.data());
    out.append(count < width ? width - count : 0, '0').append(digits.data(), count);
}

bool is_digit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'9';
}

// Takes the parts of a time off the front of a text. Each answers whether the part stood there.
class TimeScanner {
public:
    explicit TimeScanner(std::u16string_view text) noexcept : rest_(versit::trim_blanks(text)) {}

    // A number of `least` to `most` digits that fits.
    template <std::unsigned_integral Number>
    bool number(std::size_t least, std::size_t most, Number& number) noexcept {
        const std::size_t digits = std::min(digits_ahead(), most);
        if (digits < least) return false;
        unsigned value = 0;
        for (const char16_t digit : rest_.substr(0, digits)) value = value * 10 + (digit - u'0');
        if (value > std::numeric_limits<Number>::max()) return false;
        number = static_cast<Number>(value);
        rest_.remove_prefix(digits);
        return true;
    }

    bool unit(char16_t unit) noexcept {
        if (rest_.empty() || rest_.front() != unit) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool blanks() noexcept {
        const std::size_t before = rest_.size();
        while (!rest_.empty() && versit::is_blank(rest_.front())) rest_.remove_prefix(1);
        return rest_.size() < before;
    }

    [[nodiscard]] std::size_t digits_ahead() const noexcept {
        return static_cast<std::size_t>(std::find_if_not(rest_.begin(), rest_.end(), is_digit) -
                                        rest_.begin());
    }
    [[nodiscard]] bool at_end() const noexcept { return rest_.empty(); }

private:
    std::u16string_view rest_;
};

// A year of one to five digits, month, day, 'T', the time of day.
bool scan_header_time(TimeScanner scanner, MessageTime& time) noexcept {
    const std::size_t digits = scanner.digits_ahead();
    const bool has_date = digits > kMonthAndDay && digits <= kMonthAndDay + kMostYearDigits &&
                          scanner.number(1, digits - kMonthAndDay, time.year) &&
                          scanner.number(2, 2, time.month) && scanner.number(2, 2, time.day);
    if (!has_date || !scanner.unit(u'T')) return false;
    if (!scanner.number(2, 2, time.hour) || !scanner.number(2, 2, time.minute)) return false;
    if (scanner.digits_ahead() > 0 && !scanner.number(2, 2, time.second)) return false;
    scanner.unit(u'Z');
    return scanner.at_end();
}

// day.month.year hour:minute:second
bool scan_body_time(TimeScanner scanner, MessageTime& time) noexcept {
    const bool has_date = scanner.number(1, kMostFieldDigits, time.day) && scanner.unit(u'.') &&
                          scanner.number(1, kMostFieldDigits, time.month) && scanner.unit(u'.') &&
                          scanner.number(1, kMostYearDigits, time.year);
    const bool has_time = has_date && scanner.blanks() && scanner.number(1, kMostFieldDigits, time.hour) &&
                          scanner.unit(u':') && scanner.number(1, kMostFieldDigits, time.minute);
    if (!has_time) return false;
    if (scanner.unit(u':') && !scanner.number(1, kMostFieldDigits, time.second)) return false;
    scanner.unit(u'Z');
    return scanner.at_end();
}

template <class Scan>
std::optional<MessageTime> parse(std::u16string_view text, Scan scan) noexcept {
    MessageTime time{};
    if (!scan(TimeScanner(text), time)) return std::nullopt;
    return time.year == 0 ? MessageTime{} : time;
}

}  // namespace

std::string header_time(const MessageTime& time) {
    if (time.year == 0) return "00000T000000Z";
    std::string text;
    append_number(time.year, 1, text);
    append_number(time.month, 2, text);
    append_number(time.day, 2, text);
    text.push_back('T');
    append_number(time.hour, 2, text);
    append_number(time.minute, 2, text);
    append_number(time.second, 2, text);
    text.push_back('Z');
    return text;
}

std::string body_time(const MessageTime& time) {
    if (time.year == 0) return {};
    std::string text;
    append_number(time.day, 2, text);
    text.push_back('.');
    append_number(time.month, 2, text);
    text.push_back('.');
    append_number(time.year, 1, text);
    text.push_back(' ');
    append_number(time.hour, 2, text);
    text.push_back(':');
    append_number(time.minute, 2, text);
    text.push_back(':');
    append_number(time.second, 2, text);
    return text;
}

std::optional<MessageTime> parse_header_time(std::u16string_view text) noexcept {
    return parse(text, scan_header_time);
}

std::optional<MessageTime> parse_body_time(std::u16string_view text) noexcept {
    return parse(text, scan_body_time);
}

}  // namespace vzapi::vmessage
