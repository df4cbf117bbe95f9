// A calendar entry through the interface, in every size of its record: read, written in both versions of the
// text, read again, released. Whatever the text, the results are those that the interface promises, nothing
// leaks, and what can be carried over comes back.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <sstream>
#include <string>

#include "fuzz_check.h"
#include "reference/line_list_comparison.h"
#include "vcalendar/calendar_builder.h"
#include "vcalendar/calendar_losses.h"
#include "vzapi/vzapi.h"

namespace vzapi::fuzz {
namespace {

using test::calendar::Calendar;
using test::calendar::calendar_of;
using test::calendar::Trip;

constexpr std::uint32_t kSizes[] = {VZ_CALENDAR_SIZE_BASE, VZ_CALENDAR_SIZE_EXCEPTIONS,
                                    VZ_CALENDAR_SIZE_WIDE_REPEAT, VZ_CALENDAR_SIZE_TIME_ZONE};

// A record of exactly as many bytes as its size says, read from a text, and what the reading answered.
class ReadRecord {
public:
    ReadRecord(void* text, std::size_t length, std::uint32_t size)
        : size_(size), item_(std::make_unique<std::byte[]>(size)) {
        std::memcpy(item_.get(), &size, sizeof size);
        VersitData in = {};
        in.size = sizeof in;
        in.length = static_cast<std::uint32_t>(length);
        in.text = text;
        result_ = ConvertFromVersit(VZ_TYPE_CALENDAR, &in, item_.get());
        check(result_ == VZ_OK || result_ == VZ_ERR_INVALID_TEXT, "result " + std::to_string(result_));
        if (!is_read()) check(is_empty(), "a refused text fills nothing");
    }
    ~ReadRecord() {
        check(FreeConverterData(VZ_TYPE_CALENDAR, item_.get()) == VZ_OK, "the record is released");
        check(is_empty(), "a released record is empty");
    }
    ReadRecord(const ReadRecord&) = delete;
    ReadRecord& operator=(const ReadRecord&) = delete;

    [[nodiscard]] bool is_read() const { return result_ == VZ_OK; }
    [[nodiscard]] const void* item() const { return item_.get(); }
    [[nodiscard]] Calendar value() const { return calendar_of(item_.get()); }

private:
    // All but the size is zero.
    [[nodiscard]] bool is_empty() const {
        std::uint32_t size = 0;
        std::memcpy(&size, item_.get(), sizeof size);
        const auto is_zero = [](std::byte byte) { return byte == std::byte{0}; };
        return size == size_ && std::all_of(item_.get() + sizeof size, item_.get() + size_, is_zero);
    }

    const std::uint32_t size_;
    const std::unique_ptr<std::byte[]> item_;
    ResultCode result_;
};

// The text of a record.
class WrittenText {
public:
    WrittenText(const void* item, bool is_version_2) {
        const std::uint32_t version = is_version_2 ? VZ_PROFILE_20_CALENDAR_2 : 0;
        const ResultCode result =
            ConvertToVersit2(VZ_PROFILE_20, version, VZ_PROFILE_ON, VZ_TYPE_CALENDAR, item, &data_);
        check(result == VZ_OK, "what was read can be written");
        check(data_.size == 24 && data_.format == VZ_FORMAT_CONVERTED, "the output is marked as converted");
        const std::string text = bytes();
        const std::string head = "BEGIN:VCALENDAR\r\nVERSION:";
        check(text.starts_with(head + (is_version_2 ? "2.0\r\n" : "1.0\r\n")), "begins as one: " + shown());
        check(text.ends_with("\r\nEND:VCALENDAR\r\n"), "ends as one: " + shown());
    }
    ~WrittenText() {
        check(FreeVersitData(&data_) == VZ_OK && data_.text == nullptr, "the text is released");
    }
    WrittenText(const WrittenText&) = delete;
    WrittenText& operator=(const WrittenText&) = delete;

    [[nodiscard]] VersitData& data() { return data_; }
    [[nodiscard]] std::string bytes() const { return {static_cast<const char*>(data_.text), data_.length}; }
    [[nodiscard]] std::string shown() const { return reference::literal_of(bytes()); }

private:
    VersitData data_ = {};
};

void check_trip(const ReadRecord& record, std::uint32_t size, bool is_version_2) {
    WrittenText text(record.item(), is_version_2);
    const ReadRecord again(text.data().text, text.data().length, size);
    check(again.is_read(), "can be read again: " + text.shown());
    const Calendar before = record.value();
    const Calendar after = again.value();
    if (!test::calendar::comes_back(before, Trip{is_version_2, VZ_INTERFACE_VERSION})) return;
    std::ostringstream difference;
    difference << "was " << before << "\nis " << after << "\nfrom " << text.shown();
    check(before == after, difference.str());
}

}  // namespace
}  // namespace vzapi::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vzapi::fuzz;
    static const std::uint32_t initialized = VZAPI_Initialize(VZAPI_GetAPIVersion());
    check(initialized == 1, "initialised once");
    testing::GTEST_FLAG(break_on_failure) = true;  // for what the calendar builder expects of records
    if (size > kLongestInput) return 0;
    std::string text(data, data + size);
    for (const std::uint32_t record_size : kSizes) {
        const ReadRecord record(text.data(), text.size(), record_size);
        if (!record.is_read()) continue;
        for (const bool is_version_2 : {false, true}) check_trip(record, record_size, is_version_2);
    }
    return 0;
}
