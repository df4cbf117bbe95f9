#include "api/result_names.h"

#include <gtest/gtest.h>

namespace vzapi {
namespace {

TEST(ResultNames, StandInTheOrderThatHostsNumberThem) {
    constexpr std::array<std::u16string_view, 8> kExpected{
        u"CONVERTER_ERR_SUCCESS",           u"CONVERTER_ERR_INVALID_PARAM", u"CONVERTER_ERR_UNKNOWN_TYPE",
        u"CONVERTER_ERR_INVALID_VCARD",     u"CONVERTER_ERR_INVALID_VCAL",  u"CONVERTER_ERR_INVALID_VMSG",
        u"CONVERTER_ERR_INVALID_VBOOKMARK", u"CONVERTER_ERR_OUT_OF_MEM",
    };
    EXPECT_EQ(kResultNames, kExpected);
}

}  // namespace
}  // namespace vzapi
