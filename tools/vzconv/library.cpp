#include "vzconv/library.h"

#include <limits>

#include "vzconv/failure.h"
#include "vzconv/result_text.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

bool is_wide(uint32_t type) {
    return type == VZ_TYPE_MESSAGE;
}

void check(ResultCode code) {
    if (code != VZ_OK) throw Failure(result_text(code));
}

// Text on its way into the library.
class InputText {
public:
    InputText(uint32_t type, std::string_view text) {
        const void* bytes = text.data();
        std::size_t length = text.size();
        if (is_wide(type)) {
            units_ = utf16_from_utf8(text);
            bytes = units_.data();
            length = units_.size() * sizeof(char16_t);
        }
        if (length > std::numeric_limits<uint32_t>::max())
            throw Failure("longer than the library takes (4 GB)");
        // The library ends its text at the first NUL, and would convert half an object without a word.
        if (text.find('\0') != std::string_view::npos) throw Failure("holds a NUL character");
        data_ = {sizeof data_, VZ_FORMAT_CONVERTED, static_cast<uint32_t>(length), const_cast<void*>(bytes)};
    }
    InputText(const InputText&) = delete;
    InputText& operator=(const InputText&) = delete;

    const VersitData* get() const { return &data_; }

private:
    std::u16string units_;
    VersitData data_{};
};

// Text that the library wrote. Some writers look at the size beforehand.
class OutputText {
public:
    OutputText() = default;
    ~OutputText() {
        if (data_.size != 0) FreeVersitData(&data_);
    }
    OutputText(const OutputText&) = delete;
    OutputText& operator=(const OutputText&) = delete;

    VersitData* get() { return &data_; }

    std::string text(uint32_t type) const {
        if (data_.text == nullptr) return {};
        if (!is_wide(type)) return {static_cast<const char*>(data_.text), data_.length};
        return utf8_from_utf16({static_cast<const char16_t*>(data_.text), data_.length / sizeof(char16_t)});
    }

private:
    VersitData data_{sizeof(VersitData), VZ_FORMAT_CONVERTED, 0, nullptr};
};

}  // namespace

void validate(uint32_t type, std::string_view text) {
    const InputText input(type, text);
    check(ValidateVersitData(type, input.get()));
}

void read_record(uint32_t type, std::string_view text, void* item) {
    const InputText input(type, text);
    check(ConvertFromVersit(type, input.get(), item));
}

std::string write_record(uint32_t type, const void* item, const Profile& profile) {
    OutputText output;
    check(ConvertToVersit2(profile.family, profile.version, profile.counts, type, item, output.get()));
    return output.text(type);
}

}  // namespace vzconv
