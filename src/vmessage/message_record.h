// The memory of a message record: its addresses while it is read, and the release of all that it holds.
#pragma once

#include <memory>

#include "call_context.h"
#include "vzapi/message.h"

namespace vzapi::vmessage {

// Releases an array of addresses with the numbers in it. What is no block of the process heap is left alone.
void release_addresses(MessageAddress* addresses) noexcept;

struct AddressesDeleter {
    void operator()(MessageAddress* addresses) const noexcept { release_addresses(addresses); }
};

// Owns an array of addresses, one block of the process heap, until a record takes it over with release().
using Addresses = std::unique_ptr<MessageAddress, AddressesDeleter>;

// Releases the text and the addresses that read() put into the record and sets them, and their counts, to
// zero. Raises VZ_ERR_POINTER for a record that cannot be read, VZ_ERR_BAD_VALUE for one whose `size` is not
// 64 from interface version 13 on.
void release(void* item, const ReleaseContext& context);

}  // namespace vzapi::vmessage
