#include "vmessage/message_record.h"

#include <cstddef>

#include "platform/heap.h"
#include "platform/ole_string.h"
#include "platform/pointer_probe.h"
#include "result.h"
#include "vzapi/vzapi.h"

namespace vzapi::vmessage {

void release_addresses(MessageAddress* addresses) noexcept {
    const std::size_t count = platform::heap_size(addresses) / sizeof(MessageAddress);
    for (std::size_t i = 0; i < count; ++i) {
        if (platform::is_readable(addresses[i].number)) platform::ole_string_free(addresses[i].number);
    }
    platform::heap_free(addresses);
}

void release(void* item, const ReleaseContext& context) {
    if (!platform::is_readable(item, sizeof(MessageItem))) raise(VZ_ERR_POINTER);
    auto& message = *static_cast<MessageItem*>(item);
    const bool size_is_checked = context.api_version >= VZ_INTERFACE_CHECKED_SIZES;
    if (size_is_checked && message.size != sizeof(MessageItem)) raise(VZ_ERR_BAD_VALUE);
    platform::heap_free(message.text);
    message.text = nullptr;
    message.textLength = 0;
    release_addresses(message.addresses);
    message.addresses = nullptr;
    message.addressCount = 0;
}

}  // namespace vzapi::vmessage
