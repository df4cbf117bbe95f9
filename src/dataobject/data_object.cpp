// The exported functions on data objects: argument checks, and which converter gets the object. Text objects
// go through the functions of the conversion family.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

#include "api/converter_table.h"
#include "api/guard.h"
#include "api/input_text.h"
#include "dataobject/email_reader.h"
#include "dataobject/multimedia.h"
#include "mms/multimedia_record.h"
#include "platform/heap.h"
#include "platform/pointer_probe.h"
#include "result.h"
#include "vzapi/odcapi.h"
#include "vzapi/vzapi.h"

namespace vzapi::dataobject {
namespace {

// How the objects of a kind are handled.
enum class Handling { Text, Multimedia, Email };

Handling handling_of(std::uint32_t kind) {
    switch (kind) {
        case VZ_OBJECT_CONTACT:
        case VZ_OBJECT_CALENDAR:
        case VZ_OBJECT_MESSAGE:
        case VZ_OBJECT_BOOKMARK:
            return Handling::Text;
        case VZ_OBJECT_MULTIMEDIA:
            return Handling::Multimedia;
        case VZ_OBJECT_EMAIL:
            return Handling::Email;
        default:
            raise(VZ_ERR_BAD_VALUE);
    }
}

// The bytes that every version of the record has.
std::size_t smallest_record(std::uint32_t kind) {
    switch (handling_of(kind)) {
        case Handling::Text:
            return converter_of(kind).smallest_size();
        case Handling::Multimedia:
            return sizeof(MultimediaItem);
        case Handling::Email:
            return sizeof(EmailItem);
    }
    raise(VZ_ERR_UNEXPECTED);
}

void require_readable(const void* pointer, std::size_t size) {
    if (!platform::is_readable(pointer, size)) raise(VZ_ERR_POINTER);
}

void require_record(std::uint32_t kind, const void* record) {
    require_readable(record, smallest_record(kind));
}

void require_object(const DataObject* object) {
    require_readable(object, sizeof *object);
    if (object->size != sizeof *object) raise(VZ_ERR_BAD_VALUE);
}

// A record is zeroed over as many bytes as it says that it has; its size stays.
void clear_record(void* record) {
    std::uint32_t size = 0;
    std::memcpy(&size, record, sizeof size);
    if (size <= sizeof size) return;
    require_readable(record, size);
    std::memset(static_cast<std::byte*>(record) + sizeof size, 0, size - sizeof size);
}

void require_ok(ResultCode code) {
    if (code != VZ_OK) raise(code);
}

void parse(std::uint32_t kind, const DataObject& in, void* record) {
    const std::string_view bytes = narrow_text(in, VZ_ERR_POINTER);
    switch (handling_of(kind)) {
        case Handling::Text:
            clear_record(record);
            return require_ok(ConvertFromVersit(kind, &in, record));
        case Handling::Multimedia:
            return read_multimedia(bytes, record);
        case Handling::Email:
            return read_email(bytes, *static_cast<EmailItem*>(record));
    }
}

void release(std::uint32_t kind, void* record) {
    switch (handling_of(kind)) {
        case Handling::Text:
            return require_ok(FreeConverterData(kind, record));
        case Handling::Multimedia:
            return mms::release_record(record);
        case Handling::Email:
            return release_email(*static_cast<EmailItem*>(record));
    }
}

// The result is that of the release, not that of the conversion: hosts tell a failure by the length 0.
void create(std::uint32_t kind, const void* record, DataObject& out) {
    out.length = 0;
    out.text = nullptr;
    if (handling_of(kind) == Handling::Multimedia) return write_multimedia(record, out);
    VersitData text{sizeof text, 0, 0, nullptr};
    if (ConvertToVersit(kind, record, &text) == VZ_OK) {
        out.format = VZ_FORMAT_DATA_OBJECT;
        out.length = text.length;
        out.text = std::exchange(text.text, nullptr);
    }
    require_ok(FreeVersitData(&text));
}

// An e-mail item that cannot be read counts as valid, too: hosts rely on it.
void validate(std::uint32_t kind, const DataObject& object) {
    switch (handling_of(kind)) {
        case Handling::Text: {
            const VersitData text{sizeof text, object.format, object.length, object.text};
            return require_ok(ValidateVersitData(kind, &text));
        }
        case Handling::Multimedia:
            return validate_multimedia(narrow_text(object, VZ_ERR_POINTER));
        case Handling::Email: {
            EmailItem item{};
            item.size = sizeof item;
            static_cast<void>(ODCAPI_ParseDataObject(kind, &object, &item));
            return require_ok(ODCAPI_FreeParsedData(kind, &item));
        }
    }
}

}  // namespace
}  // namespace vzapi::dataobject

namespace family = vzapi::dataobject;
using vzapi::guarded;
using vzapi::raise;

ResultCode ODCAPI_ValidateDataObject(std::uint32_t kind, const DataObject* object) noexcept {
    return guarded([&] {
        family::handling_of(kind);
        family::require_readable(object, sizeof *object);
        family::require_readable(object->text, object->length);
        if (object->length == 0) raise(VZ_ERR_BAD_VALUE);
        family::validate(kind, *object);
    });
}

ResultCode ODCAPI_ParseDataObject(std::uint32_t kind, const DataObject* object, void* record) noexcept {
    return guarded([&] {
        family::require_record(kind, record);
        family::require_object(object);
        family::parse(kind, *object, record);
    });
}

ResultCode ODCAPI_FreeParsedData(std::uint32_t kind, void* record) noexcept {
    return guarded([&] {
        family::require_record(kind, record);
        family::release(kind, record);
    });
}

ResultCode ODCAPI_CreateDataObject(std::uint32_t kind, const void* record, DataObject* object) noexcept {
    return guarded([&] {
        family::require_record(kind, record);
        family::require_object(object);
        family::create(kind, record, *object);
    });
}

ResultCode ODCAPI_FreeDataObject(DataObject* object) noexcept {
    return guarded([&] {
        family::require_object(object);
        vzapi::platform::heap_free(object->text);
        object->size = 0;
        object->length = 0;
        object->text = nullptr;
    });
}

ResultCode ODCAPI_CreateBegin() noexcept {
    return VZ_OK;
}

ResultCode ODCAPI_InitializeSupportInfo() noexcept {
    return VZ_OK;
}

ResultCode ODCAPI_AddField() noexcept {
    return VZ_OK;
}

ResultCode ODCAPI_DeleteField() noexcept {
    return VZ_OK;
}

ResultCode ODCAPI_CreateEnd() noexcept {
    return VZ_OK;
}
