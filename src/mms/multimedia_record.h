// The multimedia record: filling one from a message, reading one of a caller, releasing.
#pragma once

#include "mms/mms_message.h"
#include "platform/pointer_probe.h"
#include "vzapi/multimedia.h"

namespace vzapi::mms {

// Sets all of `item` but its `size`. Raises VZ_ERR_OUT_OF_MEMORY, or throws std::bad_alloc, and then leaves
// it zero behind `size`.
void fill_record(const Message& message, MultimediaItem& item);

// The message of a caller's record, whose data stay the caller's. Raises VZ_ERR_BAD_VALUE for a record that
// does not hold together: a wrong `size` anywhere, an unknown kind, a part in a container that comes behind
// it or is none, memory that cannot be read.
[[nodiscard]] Message load_record(const MultimediaItem& item);

// Zeroes `item` behind its `size`.
void clear_record(MultimediaItem& item) noexcept;

// Releases everything that a read put into the record at `item` and zeroes it behind `size`. What is not the
// library's own is left alone. Raises VZ_ERR_POINTER for a record that cannot be read, VZ_ERR_BAD_VALUE for
// one whose `size` is not 40.
void release_record(void* item);

}  // namespace vzapi::mms
