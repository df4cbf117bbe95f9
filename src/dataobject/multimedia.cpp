#include "dataobject/multimedia.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "mms/mms_codec.h"
#include "mms/multimedia_record.h"
#include "platform/heap.h"
#include "result.h"
#include "vzapi/multimedia.h"

namespace vzapi::dataobject {
namespace {

mms::Bytes bytes_of(std::string_view pdu) noexcept {
    return std::as_bytes(std::span(pdu));
}

// Comes before anything behind the size is read: a record of another size may be a shorter one.
void require_size(const void* record) {
    std::uint32_t size = 0;
    std::memcpy(&size, record, sizeof size);
    if (size != sizeof(MultimediaItem)) raise(VZ_ERR_BAD_VALUE);
}

}  // namespace

void read_multimedia(std::string_view pdu, void* record) {
    require_size(record);
    auto& item = *static_cast<MultimediaItem*>(record);
    mms::clear_record(item);
    mms::CMMSCodec2 codec;
    const std::optional<mms::Message> message = codec.decode(bytes_of(pdu));
    if (!message) raise(VZ_ERR_BAD_VALUE);
    mms::fill_record(*message, item);
}

void write_multimedia(const void* record, DataObject& object) {
    require_size(record);
    MultimediaItem item;
    std::memcpy(&item, record, sizeof item);
    mms::CMMSCodec2 codec;
    mms::Message message = mms::load_record(item);
    const std::optional<mms::EncodedPdu> pdu = codec.encode(message);
    if (!pdu) raise(VZ_ERR_BAD_VALUE);
    if (pdu->size() > std::numeric_limits<std::uint32_t>::max()) raise(VZ_ERR_OUT_OF_MEMORY);
    platform::HeapPointer<void> block(platform::heap_allocate_unfilled(pdu->size()));
    if (!block) raise(VZ_ERR_OUT_OF_MEMORY);
    pdu->copy_to(static_cast<std::byte*>(block.get()));
    object.format = VZ_FORMAT_DATA_OBJECT;
    object.length = static_cast<std::uint32_t>(pdu->size());
    object.text = block.release();
}

void validate_multimedia(std::string_view pdu) {
    mms::CMMSCodec2 codec;
    const bool is_decoded = codec.decode(bytes_of(pdu)).has_value();
    if (!is_decoded || codec.count() == 0 || !(codec.has_message_type() || codec.has_content_type()))
        raise(VZ_ERR_BAD_VALUE);
}

}  // namespace vzapi::dataobject
