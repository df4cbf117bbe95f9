// A contact through the interface: read, written for every kind of device, read again, released; and the same
// text as a contact group. Whatever the text, the results are those that the interface promises, nothing leaks,
// and what can be carried over comes back.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "fuzz_check.h"
#include "reference/line_list_comparison.h"
#include "vcard/contact_builder.h"
#include "vcard/contact_losses.h"
#include "vzapi/vzapi.h"

namespace vzapi::fuzz {
namespace {

template <class Item>
struct Converter;

template <>
struct Converter<ContactItem> {
    static constexpr std::uint32_t kType = VZ_TYPE_CONTACT;
    static bool is_empty(const ContactItem& item) {
        return item.generalCount == 0 && item.general == nullptr && item.phoneCount == 0 &&
               item.phones == nullptr && item.addressCount == 0 && item.addresses == nullptr &&
               item.extendedCount == 0 && item.extended == nullptr;
    }
};

template <>
struct Converter<ContactGroupItem> {
    static constexpr std::uint32_t kType = VZ_TYPE_CONTACT_GROUP;
    static bool is_empty(const ContactGroupItem& item) {
        return item.groupName == nullptr && item.memberCount == 0 && item.members == nullptr;
    }
};

// A record that was read from a text, and what the reading answered.
template <class Item>
class ReadRecord {
public:
    ReadRecord(void* text, std::size_t size) {
        VersitData in = {};
        in.size = sizeof in;
        in.length = static_cast<std::uint32_t>(size);
        in.text = text;
        item_.size = sizeof item_;
        result_ = ConvertFromVersit(Converter<Item>::kType, &in, &item_);
        check(result_ == VZ_OK || result_ == VZ_ERR_INVALID_TEXT, "result " + std::to_string(result_));
        check(item_.size == sizeof item_, "the record keeps its size");
        const bool is_empty = Converter<Item>::is_empty(item_);
        if (!is_read()) check(is_empty, "a refused text fills nothing");
    }
    ~ReadRecord() {
        check(FreeConverterData(Converter<Item>::kType, &item_) == VZ_OK, "the record is released");
        check(Converter<Item>::is_empty(item_), "a released record is empty");
    }
    ReadRecord(const ReadRecord&) = delete;
    ReadRecord& operator=(const ReadRecord&) = delete;

    [[nodiscard]] bool is_read() const { return result_ == VZ_OK; }
    [[nodiscard]] const Item& item() const { return item_; }

private:
    Item item_ = {};
    ResultCode result_;
};

struct Profile {
    std::uint64_t family;
    std::uint32_t version;
};

constexpr Profile kPlain = {VZ_PROFILE_NONE, 0};
constexpr Profile kProfiles[] = {{VZ_PROFILE_10, 10},  {VZ_PROFILE_10, 260}, {VZ_PROFILE_10, 0},
                                 {VZ_PROFILE_20, 300}, {VZ_PROFILE_20, 323}, {VZ_PROFILE_20, 0}};

// The text of a record.
template <class Item>
class WrittenText {
public:
    WrittenText(const Item& item, const Profile& profile) {
        data_.size = sizeof data_;
        const ResultCode result = ConvertToVersit2(profile.family, profile.version, VZ_PROFILE_ON,
                                                   Converter<Item>::kType, &item, &data_);
        check(result == VZ_OK, "what was read can be written");
        check(data_.size == 24 && data_.format == VZ_FORMAT_CONVERTED, "the output is marked as converted");
        const std::string text = bytes();
        check(text.starts_with("BEGIN:VCARD\r\nVERSION:2.1\r\n"), "begins as a card: " + shown());
        check(text.ends_with("\r\nEND:VCARD\r\n"), "ends as a card: " + shown());
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

template <class Item>
struct WayBack {
    WayBack(const Item& item, const Profile& profile)
        : text(item, profile), again(text.data().text, text.data().length) {
        check(again.is_read(), "can be read again: " + text.shown());
    }
    WrittenText<Item> text;
    ReadRecord<Item> again;
};

void check_contact(const ContactItem& item) {
    using namespace vzapi::test;
    const Contact before = contact_of(item);
    const WayBack<ContactItem> way_back(item, kPlain);
    if (comes_back(before)) {
        const Contact expected = after_the_trip(before);
        const Contact after = in_order(contact_of(way_back.again.item()));
        std::ostringstream difference;
        difference << "was" << expected << "\nis" << after << "\nfrom " << way_back.text.shown();
        check(after == expected, difference.str());
    }
    for (const Profile& profile : kProfiles) WayBack<ContactItem>(item, profile);
}

void check_group(const ContactGroupItem& item) {
    const WayBack<ContactGroupItem> way_back(item, kPlain);
    const WayBack<ContactGroupItem> second(way_back.again.item(), kPlain);
    const std::string first_text = way_back.text.bytes();
    const std::string second_text = second.text.bytes();
    const std::string members = first_text.substr(first_text.find("\r\nX-CNTGRP:"));
    check(members == second_text.substr(second_text.find("\r\nX-CNTGRP:")), "members stay: " + members);
    check(way_back.again.item().memberCount <= item.memberCount, "no member comes of nothing");
}

}  // namespace
}  // namespace vzapi::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vzapi::fuzz;
    static const std::uint32_t initialized = VZAPI_Initialize(VZAPI_GetAPIVersion());
    check(initialized == 1, "initialised once");
    testing::GTEST_FLAG(break_on_failure) = true;  // for what the contact builder expects of records
    if (size > kLongestInput) return 0;
    std::string text(data, data + size);
    const ReadRecord<ContactItem> contact(text.data(), text.size());
    if (contact.is_read()) check_contact(contact.item());
    const ReadRecord<ContactGroupItem> group(text.data(), text.size());
    if (group.is_read()) check_group(group.item());
    return 0;
}
