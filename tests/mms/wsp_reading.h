// One read of the binary encoding in tests.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>

#include "mms/wire_bytes.h"
#include "mms/wsp_encoding.h"

namespace vzapi::mms {

// What `read` makes of the octets, and how many it took; one that fails must leave the position alone.
template <class Read>
auto read_all(const Octets& octets, Read read, std::size_t& taken) {
    CWSPEncoding reader{Bytes(octets)};
    auto result = read(reader);
    taken = reader.position();
    if (!result) {
        EXPECT_EQ(reader.position(), 0U) << shown(octets);
    }
    return result;
}

}  // namespace vzapi::mms
