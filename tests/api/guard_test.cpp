#include "api/guard.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "result.h"

namespace vzapi {
namespace {

TEST(Guard, TurnsWhatIsThrownIntoTheResult) {
    EXPECT_EQ(guarded([] {}), VZ_OK);
    EXPECT_EQ(guarded([] { raise(VZ_ERR_INVALID_TEXT); }), VZ_ERR_INVALID_TEXT);
    EXPECT_EQ(guarded([] { raise(VZ_ERR_OLE_OUT_OF_MEMORY); }), VZ_ERR_OLE_OUT_OF_MEMORY);
    EXPECT_EQ(guarded([] { throw std::bad_alloc(); }), VZ_ERR_OUT_OF_MEMORY);
    EXPECT_EQ(guarded([] { throw std::runtime_error("anything"); }), VZ_ERR_UNEXPECTED);
    EXPECT_EQ(guarded([] { throw 5; }), VZ_ERR_UNEXPECTED) << "an int is no result code";
    EXPECT_EQ(guarded([] { throw "text"; }), VZ_ERR_UNEXPECTED);
}

}  // namespace
}  // namespace vzapi
