// The charset of the user's locale on several threads at once: its conversion keeps a state.
#include <gtest/gtest.h>
#include <iconv.h>

#include <string>
#include <thread>
#include <vector>

#include "platform/code_page.h"
#include "support/environment.h"

namespace vzapi::platform {
namespace {

bool is_installed(const char* charset) {
    iconv_t descriptor = iconv_open("UTF-16LE", charset);
    if (reinterpret_cast<std::intptr_t>(descriptor) == -1) return false;
    iconv_close(descriptor);
    return true;
}

int right_conversions(const std::string& bytes, const std::u16string& expected, int rounds) {
    int right = 0;
    for (int i = 0; i < rounds; ++i) {
        std::u16string text;
        append_utf16(CodePage::SystemDefault, bytes, text);
        right += text == expected ? 1 : 0;
    }
    return right;
}

TEST(CodePageThreads, TheUsersLocaleConvertsIndependently) {
    if (!is_installed("EUC-JP")) GTEST_SKIP() << "this system has no conversion from EUC-JP";
    constexpr int kThreads = 4;
    constexpr int kRounds = 50;
    const test::EnvironmentVariable locale("LC_ALL", "xx_XX.EUC-JP");
    std::string bytes;
    std::u16string text;
    for (int i = 0; i < 500; ++i) {
        bytes += "a\xC6\xFC";
        text += u"a\u65E5";
    }
    std::vector<std::thread> threads;
    std::vector<int> right(kThreads, 0);
    threads.reserve(right.size());
    for (int& count : right) threads.emplace_back([&] { count = right_conversions(bytes, text, kRounds); });
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(right, std::vector<int>(kThreads, kRounds));
}

}  // namespace
}  // namespace vzapi::platform
