#include "vzconv/library.h"

#include <limits>

#include "vzconv/failure.h"
#include "vzconv/result_text.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

bool is_wide(RecordType record) {
    return record.object == VZ_OBJECT_MESSAGE;
}

// XML may be UTF-16, whose NULs are halves of characters, and binary objects may hold anything.
bool is_versit(RecordType record) {
    return record.object != VZ_OBJECT_EMAIL && record.object != VZ_OBJECT_MULTIMEDIA;
}

void check(ResultCode code) {
    if (code != VZ_OK) throw Failure(result_text(code));
}

// The data-object family has one code for whatever it does not take: a record that it reads it does not take
// for its content.
void check_content(ResultCode code) {
    if (code == VZ_ERR_BAD_VALUE) throw Failure(result_text(code, "the object does not decode"));
    check(code);
}

// Whether a record goes through the data-object family.
bool is_object(RecordType record, Door door) {
    if (record.type == 0) return true;
    if (door == Door::Conversions) return false;
    if (record.object == 0) throw Failure("the data-object functions do not have this kind");
    return true;
}

// Text on its way into the library.
class InputData {
public:
    InputData(RecordType record, std::string_view text) {
        const void* bytes = text.data();
        std::size_t length = text.size();
        if (is_wide(record)) {
            units_ = utf16_from_utf8(text);
            bytes = units_.data();
            length = units_.size() * sizeof(char16_t);
        }
        if (length > std::numeric_limits<uint32_t>::max())
            throw Failure("longer than the library takes (4 GB)");
        // The library ends its text at the first NUL, and would convert half an object without a word.
        if (is_versit(record) && text.find('\0') != std::string_view::npos)
            throw Failure("holds a NUL character");
        data_ = {sizeof data_, VZ_FORMAT_CONVERTED, static_cast<uint32_t>(length), const_cast<void*>(bytes)};
    }
    InputData(const InputData&) = delete;
    InputData& operator=(const InputData&) = delete;

    const VersitData* get() const { return &data_; }

private:
    std::u16string units_;
    VersitData data_{};
};

// Text that the library wrote, released by the family that wrote it. Some writers look at the size
// beforehand.
class OutputData {
public:
    explicit OutputData(bool is_object) : is_object_(is_object) {}
    ~OutputData() {
        if (data_.size == 0) return;
        if (is_object_) {
            ODCAPI_FreeDataObject(&data_);
        } else {
            FreeVersitData(&data_);
        }
    }
    OutputData(const OutputData&) = delete;
    OutputData& operator=(const OutputData&) = delete;

    VersitData* get() { return &data_; }

    std::string text(RecordType record) const {
        if (data_.text == nullptr) return {};
        if (!is_wide(record)) return {static_cast<const char*>(data_.text), data_.length};
        return utf8_from_utf16({static_cast<const char16_t*>(data_.text), data_.length / sizeof(char16_t)});
    }

private:
    bool is_object_;
    VersitData data_{sizeof(VersitData), VZ_FORMAT_CONVERTED, 0, nullptr};
};

}  // namespace

LibrarySession::LibrarySession() {
    VZAPI_Initialize(VZ_INTERFACE_VERSION);
    ODCAPI_Initialize(VZ_OBJECT_INTERFACE_VERSION, 0);
}

LibrarySession::~LibrarySession() {
    ODCAPI_Terminate(0);
    VZAPI_Terminate();
}

void validate(RecordType record, std::string_view text, Door door) {
    const InputData input(record, text);
    if (is_object(record, door)) {
        check_content(ODCAPI_ValidateDataObject(record.object, input.get()));
    } else {
        check(ValidateVersitData(record.type, input.get()));
    }
}

void read_record(RecordType record, std::string_view text, Door door, void* item) {
    const InputData input(record, text);
    if (is_object(record, door)) {
        check_content(ODCAPI_ParseDataObject(record.object, input.get(), item));
    } else {
        check(ConvertFromVersit(record.type, input.get(), item));
    }
}

void release_record(RecordType record, Door door, void* item) {
    if (record.type == 0 || (door == Door::Objects && record.object != 0)) {
        ODCAPI_FreeParsedData(record.object, item);
    } else {
        FreeConverterData(record.type, item);
    }
}

std::string write_record(RecordType record, const void* item, const Options& options) {
    const bool as_object = is_object(record, options.door);
    OutputData output(as_object);
    if (!as_object) {
        const Profile& profile = options.profile;
        check(ConvertToVersit2(profile.family, profile.version, profile.counts, record.type, item,
                               output.get()));
        return output.text(record);
    }
    if (record.type != 0 && !options.profile.is_none())
        throw Failure("the data-object functions know no profile");
    const ResultCode code = ODCAPI_CreateDataObject(record.object, item, output.get());
    if (code == VZ_ERR_BAD_VALUE)
        throw Failure(result_text(code, "a value that the object needs is missing or wrong"));
    check(code);
    if (output.get()->length == 0) throw Failure("the library does not write this record");
    return output.text(record);
}

}  // namespace vzconv
