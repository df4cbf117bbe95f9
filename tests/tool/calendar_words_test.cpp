#include "vzconv/calendar_words.h"

#include <gtest/gtest.h>

#include <set>

#include "vzapi/vzapi.h"

namespace vzconv {
namespace {

TEST(CalendarWords, EachFieldHasOneKeyInEveryTypeThatHasIt) {
    std::set<std::string_view> keys;
    for (const CalendarWord& word : calendar_words()) {
        EXPECT_TRUE(keys.insert(word.key).second) << word.key;
        EXPECT_EQ(calendar_word_of(word.key), &word);
        for (uint32_t type = VZ_ITEM_OTHER; type <= VZ_ITEM_ANNIVERSARY; ++type) {
            if (word.kind == CalendarValueKind::BirthYear && !has_birth_year(type)) continue;
            EXPECT_EQ(calendar_word_of(id_of(word, type), type), &word) << word.key << type;
        }
    }
    EXPECT_EQ(calendar_word_of("start"), nullptr);
    EXPECT_EQ(calendar_word_of(0x307, VZ_ITEM_EVENT), nullptr);
}

TEST(CalendarWords, TheIdOfADescriptionDependsOnTheType) {
    const CalendarWord* description = calendar_word_of("description");
    const CalendarWord* year = calendar_word_of("birthYear");
    for (uint32_t type = VZ_ITEM_OTHER; type <= VZ_ITEM_ANNIVERSARY; ++type) {
        const bool has_year = type == VZ_ITEM_BIRTHDAY || type == VZ_ITEM_ANNIVERSARY;
        EXPECT_EQ(id_of(*description, type), has_year ? 0x305U : 0x302U) << type;
        EXPECT_EQ(calendar_word_of(0x302, type), has_year ? year : description) << type;
        EXPECT_EQ(calendar_word_of(0x305, type), description) << type;
    }
}

TEST(CalendarWords, EveryCodeHasAWordOfItsOwn) {
    const std::pair<std::span<const CodeWord>, std::size_t> tables[] = {
        {item_type_words(), 9}, {alarm_words(), 2}, {status_words(), 2},
        {unit_words(), 4},      {day_words(), 7},   {position_words(), 5},
    };
    for (const auto& [table, size] : tables) {
        std::set<std::string_view> words;
        std::set<uint32_t> codes;
        for (const CodeWord& row : table) {
            words.insert(row.word);
            codes.insert(row.code);
            EXPECT_EQ(code_of(table, row.word), row.code);
            EXPECT_EQ(word_of(table, row.code), row.word);
        }
        EXPECT_EQ(words.size(), size);
        EXPECT_EQ(codes.size(), size);
    }
    EXPECT_EQ(heading_of(VZ_ITEM_TODO), "To-do");
    EXPECT_EQ(heading_of(VZ_ITEM_OTHER), "Calendar entry");
    EXPECT_EQ(heading_of(99), "Calendar entry");
}

}  // namespace
}  // namespace vzconv
