// A message through the interface: read, written in both forms, read again, released. Whatever the text, the
// results are those that the interface promises, nothing leaks, and what can be carried over comes back.
// Behind an odd first byte stand UTF-16LE units; behind an even one each byte is a unit, which reaches the
// rules for ASCII sooner.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "fuzz_check.h"
#include "reference/line_list_comparison.h"
#include "vmessage/message_builder.h"
#include "vmessage/message_losses.h"
#include "vzapi/vzapi.h"

namespace vzapi::fuzz {
namespace {

using namespace vzapi::test;

std::u16string units_in(const std::uint8_t* data, std::size_t size) {
    std::u16string units;
    const std::size_t width = size > 0 && data[0] % 2 == 1 ? 2 : 1;
    for (std::size_t i = 1; i + width <= size; i += width) {
        const unsigned high = width == 2 ? data[i + 1] : 0U;
        units.push_back(static_cast<char16_t>(data[i] + high * 256));
    }
    return units;
}

bool is_empty(const MessageItem& item) {
    return item.text == nullptr && item.textLength == 0 && item.addresses == nullptr &&
           item.addressCount == 0;
}

// A record that was read from a text, and what the reading answered.
class ReadMessage {
public:
    explicit ReadMessage(std::u16string text) {
        const VersitData in = data_of(text);
        item_.size = sizeof item_;
        const ResultCode result = ConvertFromVersit(VZ_TYPE_MESSAGE, &in, &item_);
        is_read_ = result == VZ_OK;
        check(is_read_ || result == VZ_ERR_INVALID_TEXT, "result " + std::to_string(result));
        check(item_.size == sizeof item_, "the record keeps its size");
        if (!is_read_) check(is_empty(item_), "a refused text fills nothing");
    }
    ~ReadMessage() {
        check(FreeConverterData(VZ_TYPE_MESSAGE, &item_) == VZ_OK, "the record is released");
        check(is_empty(item_), "a released record is empty");
    }
    ReadMessage(const ReadMessage&) = delete;
    ReadMessage& operator=(const ReadMessage&) = delete;

    [[nodiscard]] bool is_read() const { return is_read_; }
    [[nodiscard]] const MessageItem& item() const { return item_; }

private:
    MessageItem item_ = {};
    bool is_read_ = false;
};

void check_way_back(const MessageItem& item, Form form) {
    const std::u16string text = written(item, form);
    const std::string shown = reference::literal_of(text);
    check(text.starts_with(u"BEGIN:VMSG\r\nVERSION:1.1\r\n"), "begins as a message: " + shown);
    check(text.ends_with(u"\r\nEND:VENV\r\nEND:VMSG\r\n"), "ends as a message: " + shown);
    const ReadMessage again(text);
    check(again.is_read(), "can be read again: " + shown);
    const Message before = message_of(item);
    if (!comes_back(before, form)) return;
    const Message expected = after_the_trip(before, form);
    const Message after = message_of(again.item());
    std::ostringstream difference;
    PrintTo(expected, &(difference << "expected "));
    PrintTo(after, &(difference << "\nis "));
    check(after == expected, difference.str() + "\nfrom " + shown);
}

}  // namespace
}  // namespace vzapi::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vzapi::fuzz;
    static const std::uint32_t initialized = VZAPI_Initialize(VZAPI_GetAPIVersion());
    check(initialized == 1, "initialised once");
    testing::GTEST_FLAG(break_on_failure) = true;  // for what the message builder expects of records
    if (size > kLongestInput) return 0;
    const ReadMessage message(units_in(data, size));
    if (!message.is_read()) return 0;
    for (const Form form : kForms) check_way_back(message.item(), form);
    return 0;
}
