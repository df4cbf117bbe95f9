// A bookmark through the interface: read, written, read again, released. Whatever the text, the results are
// those that the interface promises, nothing leaks, and what can be carried over comes back.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz_check.h"
#include "reference/line_list_comparison.h"
#include "vzapi/vzapi.h"

namespace vzapi::fuzz {
namespace {

BookmarkItem empty_item() {
    BookmarkItem item = {};
    item.size = sizeof item;
    return item;
}

ResultCode read(void* text, std::size_t size, BookmarkItem& item) {
    VersitData in = {};
    in.size = sizeof in;
    in.length = static_cast<std::uint32_t>(size);
    in.text = text;
    return ConvertFromVersit(VZ_TYPE_BOOKMARK, &in, &item);
}

void release(BookmarkItem& item) {
    check(FreeConverterData(VZ_TYPE_BOOKMARK, &item) == VZ_OK, "the record is released");
    check(item.title == nullptr && item.url == nullptr && item.shortcut == nullptr,
          "released strings are null");
}

std::u16string text_of(const char16_t* text) {
    return text == nullptr ? std::u16string() : text;
}

// Line breaks go out as they are, a final ESC is read as one, and text that names an encoding is decoded.
bool can_be_carried(const std::u16string& text) {
    return text.find_first_of(u"\r\n\x1B") == std::u16string::npos &&
           text.find(u"QUOTED-PRINTABLE") == std::u16string::npos &&
           text.find(u"BASE64") == std::u16string::npos;
}

// Besides, a shortcut's '=' may be taken for the start of an escape, unless the shortcut was encoded itself.
bool can_shortcut_be_carried(const std::u16string& text) {
    return can_be_carried(text) && text.find(u'=') == std::u16string::npos;
}

void check_same(const char16_t* before, const char16_t* after, const std::string& field) {
    check((before == nullptr) == (after == nullptr) && text_of(before) == text_of(after),
          field + " was " + reference::literal_of(text_of(before)) + ", is " +
              reference::literal_of(text_of(after)));
}

void check_way_back(const BookmarkItem& item) {
    VersitData out = {};
    check(ConvertToVersit(VZ_TYPE_BOOKMARK, &item, &out) == VZ_OK, "what was read can be written");
    const std::string text(static_cast<const char*>(out.text), out.length);
    const std::string shown = reference::literal_of(text);
    check(out.size == 24 && out.format == VZ_FORMAT_CONVERTED, "the output is marked as converted");
    check(text.rfind("BEGIN:VBKM\r\nVERSION:1.0\r\nTITLE", 0) == 0, "begins as a bookmark: " + shown);
    check(text.size() > 12 && text.substr(text.size() - 12) == "\r\nEND:VBKM\r\n",
          "ends as a bookmark: " + shown);
    const bool is_carried = can_be_carried(text_of(item.title)) && can_be_carried(text_of(item.url)) &&
                            can_shortcut_be_carried(text_of(item.shortcut));
    if (is_carried) {
        BookmarkItem again = empty_item();
        check(read(out.text, out.length, again) == VZ_OK, "can be read again: " + shown);
        check_same(item.title, again.title, "title");
        check_same(item.url, again.url, "url");
        check_same(item.shortcut, again.shortcut, "shortcut");
        release(again);
    }
    check(FreeVersitData(&out) == VZ_OK && out.text == nullptr, "the text is released");
}

}  // namespace
}  // namespace vzapi::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vzapi::fuzz;
    static const std::uint32_t initialized = VZAPI_Initialize(VZAPI_GetAPIVersion());
    check(initialized == 1, "initialised once");
    if (size > kLongestInput) return 0;
    std::string text(data, data + size);
    BookmarkItem item = empty_item();
    const ResultCode result = read(text.data(), text.size(), item);
    check(result == VZ_OK || result == VZ_ERR_INVALID_TEXT, "result " + std::to_string(result));
    check(item.size == sizeof item, "the record keeps its size");
    const bool is_empty = item.title == nullptr && item.url == nullptr && item.shortcut == nullptr;
    if (result == VZ_ERR_INVALID_TEXT) check(is_empty, "a refused text fills nothing");
    if (result == VZ_OK) check_way_back(item);
    release(item);
    return 0;
}
