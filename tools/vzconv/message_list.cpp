#include "vzconv/message_list.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "vzconv/message_parts.h"
#include "vzconv/message_time.h"
#include "vzconv/message_words.h"
#include "vzconv/readable.h"

namespace vzconv {
namespace {

constexpr std::size_t kLongestAddress = 30;  // characters
constexpr std::size_t kLongestText = 50;
constexpr std::string_view kNothing = "-";
constexpr std::string_view kCut = "...";

bool begins_character(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

std::size_t characters_in(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins_character));
}

// `text` with `most` characters at most.
std::string cut_to(std::string text, std::size_t most) {
    if (characters_in(text) <= most) return text;
    std::size_t end = 0;
    std::size_t characters = 0;
    for (; characters <= most - kCut.size(); ++end) characters += begins_character(text[end]) ? 1 : 0;
    text.resize(end - 1);
    return text.append(kCut);
}

std::string date_of(const MessageItem& item) {
    if (!is_set(item.timestamp)) return "no date";
    std::string date = iso_time_of(item.timestamp);
    std::replace(date.begin(), date.end(), 'T', ' ');
    return date;
}

std::string folder_of(const MessageItem& item) {
    const Direction direction = direction_of(type_of(item));
    if (direction == Direction::Unknown) return std::string(kNothing);
    return direction == Direction::In ? "in" : "out";
}

std::string first_address_of(const MessageItem& item) {
    const std::vector<std::string> numbers = numbers_of(item);
    if (numbers.empty()) return std::string(kNothing);
    std::string first = numbers[0].empty() ? std::string("no number") : in_one_line(numbers[0]);
    first = cut_to(std::move(first), kLongestAddress);
    return numbers.size() == 1 ? first : first + " and " + std::to_string(numbers.size() - 1) + " more";
}

std::string state_of(const MessageItem& item) {
    const std::string_view word = word_of(message_status_words(), status_of(item));
    return std::string(word.empty() ? kNothing : word);
}

auto rank_of(const MessageTime& time) {
    return std::tuple(!is_set(time), time.year, time.month, time.day, time.hour, time.minute, time.second);
}

}  // namespace

void MessageList::add(const MessageItem& item, std::string place) {
    rows_.push_back({item.timestamp,
                     {date_of(item), folder_of(item), first_address_of(item), state_of(item),
                      cut_to(in_one_line(body_of(item)), kLongestText), std::move(place)}});
}

std::string MessageList::text() const {
    std::vector<const Row*> rows;
    std::array<std::size_t, kColumns> widths{};
    for (const Row& row : rows_) {
        rows.push_back(&row);
        for (std::size_t i = 0; i < kColumns; ++i)
            widths[i] = std::max(widths[i], characters_in(row.columns[i]));
    }
    std::stable_sort(rows.begin(), rows.end(), [](const Row* left, const Row* right) {
        return rank_of(left->time) < rank_of(right->time);
    });
    std::string text;
    for (const Row* row : rows) {
        for (std::size_t i = 0; i + 1 < kColumns; ++i) {
            const std::size_t gap = widths[i] - characters_in(row->columns[i]) + 2;
            text.append(row->columns[i]).append(gap, ' ');
        }
        text.append(row->columns[kColumns - 1]).append("\n");
    }
    return text;
}

}  // namespace vzconv
