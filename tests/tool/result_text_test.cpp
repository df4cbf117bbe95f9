#include "vzconv/result_text.h"

#include <gtest/gtest.h>

#include <set>

namespace vzconv {
namespace {

TEST(ResultText, EveryCodeHasWordsOfItsOwn) {
    const ResultCode codes[] = {
        VZ_OK,
        VZ_ERR_INVALID_PARAM,
        VZ_ERR_UNKNOWN_TYPE,
        VZ_ERR_INVALID_TEXT,
        VZ_ERR_VERSION,
        VZ_ERR_POINTER,
        VZ_ERR_BAD_VALUE,
        VZ_ERR_OUT_OF_MEMORY,
        VZ_ERR_OLE_OUT_OF_MEMORY,
        VZ_ERR_UNEXPECTED,
    };
    std::set<std::string> words;
    for (const ResultCode code : codes) {
        const std::string text = result_text(code);
        EXPECT_EQ(text.find("no reason"), std::string::npos) << text;
        EXPECT_TRUE(words.insert(text.substr(0, text.find(" (0x"))).second) << text;
    }
    EXPECT_EQ(result_text(VZ_ERR_OUT_OF_MEMORY), "out of memory (0x80100015)");
    EXPECT_EQ(result_text(0x80808080), "the library gives no reason (0x80808080)");
}

}  // namespace
}  // namespace vzconv
