// Conversions on several threads at once, while nobody initialises or terminates. Run under ThreadSanitizer,
// this also shows that no call writes to anything shared.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "support/text.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

constexpr int kThreads = 4;
constexpr int kRounds = 500;

// One bookmark there and back again, different on each thread; false when anything is not as expected.
bool convert_there_and_back(int thread, int round) {
    std::u16string title = u"Title \u00E9 ";
    title.append(static_cast<std::size_t>(round % 50), static_cast<char16_t>(u'a' + thread));
    std::u16string shortcut(static_cast<std::size_t>(thread + 1), u'\u65E5');
    const BookmarkItem item{sizeof(BookmarkItem), title.data(), nullptr, shortcut.data()};
    VersitData text{};
    if (ConvertToVersit2(static_cast<std::uint64_t>(thread), 0, 1, VZ_TYPE_BOOKMARK, &item, &text) != VZ_OK)
        return false;
    BookmarkItem back{};
    back.size = sizeof back;
    const bool read = ValidateVersitData(VZ_TYPE_BOOKMARK, &text) == VZ_OK &&
                      ConvertFromVersit(VZ_TYPE_BOOKMARK, &text, &back) == VZ_OK;
    const bool same =
        read && text_of(back.title) == title && back.url == nullptr && text_of(back.shortcut) == shortcut;
    return FreeVersitData(&text) == VZ_OK && FreeConverterData(VZ_TYPE_BOOKMARK, &back) == VZ_OK && same;
}

// The other type codes share the parsers and the checks.
bool refuse(int round) {
    std::string card = "BEGIN:VCARD\r\nVERSION:2.1\r\nNOTE;CHARSET=SHIFT_JIS:\x83\x41\r\nEND:VCARD\r\n";
    const VersitData in = data_of(card);
    ContactItem item{};
    item.size = sizeof item;
    const std::uint32_t type = round % 2 == 0 ? 9U : 0U;
    return ConvertFromVersit(type, &in, &item) == VZ_ERR_UNKNOWN_TYPE &&
           ValidateVersitData(VZ_TYPE_CONTACT, &in) == VZ_OK;
}

TEST(Threads, ConvertIndependently) {
    const AnnouncedVersion announced(16);
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([thread, &wrong] {
            for (int round = 0; round < kRounds; ++round) {
                if (!convert_there_and_back(thread, round) || !refuse(round)) ++wrong;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
