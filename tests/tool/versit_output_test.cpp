#include "vzconv/versit_output.h"

#include <gtest/gtest.h>

#include <sstream>

#include "vzconv/failure.h"

namespace vzconv {
namespace {

TEST(VersitOutput, MessagesAreUtf16BehindOneMark) {
    std::ostringstream out;
    VersitOutput output(out, false);
    output.put_object(*kind_of_name("message"), "a\xF0\x9F\x98\x80");
    output.put_object(*kind_of_name("message"), "b");
    EXPECT_EQ(out.str(), std::string("\xFF\xFE"
                                     "a\0\x3D\xD8\x00\xDE"
                                     "b\0",
                                     10));
}

TEST(VersitOutput, OtherObjectsAndMessagesAsUtf8AreBytes) {
    std::ostringstream out;
    VersitOutput output(out, true);
    output.put_object(*kind_of_name("message"), "a\xF0\x9F\x98\x80");
    output.put_object(*kind_of_name("contact"), "\xE9");
    EXPECT_EQ(out.str(), "a\xF0\x9F\x98\x80\xE9");
}

TEST(VersitOutput, BothInOneOutputAreRefused) {
    for (const auto& [first, second] : {std::pair("message", "contact"), std::pair("contact", "message")}) {
        std::ostringstream out;
        VersitOutput output(out, false);
        output.put_object(*kind_of_name(first), "a");
        const std::string before = out.str();
        EXPECT_THROW(output.put_object(*kind_of_name(second), "b"), Failure);
        EXPECT_EQ(out.str(), before);
        output.put_object(*kind_of_name(first), "c");
        EXPECT_GT(out.str().size(), before.size());
    }
}

TEST(VersitOutput, AMultimediaMessageIsAWholeFile) {
    for (const char* other : {"message", "contact", "multimedia message"}) {
        for (const bool is_first : {true, false}) {
            std::ostringstream out;
            VersitOutput output(out, false);
            output.put_object(*kind_of_name(is_first ? "multimedia message" : other), "a");
            const std::string before = out.str();
            EXPECT_THROW(output.put_object(*kind_of_name(is_first ? other : "multimedia message"), "b"),
                         Failure);
            EXPECT_EQ(out.str(), before) << other;
        }
    }
}

}  // namespace
}  // namespace vzconv
