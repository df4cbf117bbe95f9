#include "vzconv/bookmark.h"

#include "vzapi/bookmark.h"
#include "vzconv/json_fields.h"
#include "vzconv/json_object.h"
#include "vzconv/library.h"
#include "vzconv/readable.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

using Bookmark = ReadRecord<BookmarkItem, kBookmarkRecord>;

struct Field {
    char16_t* BookmarkItem::*member;
    const char* key;
    const char* label;
};

constexpr Field kFields[] = {
    {&BookmarkItem::title, "title", "Title"},
    {&BookmarkItem::url, "url", "Address"},
    {&BookmarkItem::shortcut, "shortcut", "Shortcut"},
};

std::string show(std::string_view text, const Options& options) {
    const Bookmark bookmark(text, options.door);
    Readable readable("Bookmark");
    for (const Field& field : kFields) {
        const char16_t* value = (*bookmark).*field.member;
        if (value != nullptr) readable.field(field.label, utf8_from_utf16(value));
    }
    return readable.text();
}

void to_json(std::string_view text, const Options& options, nlohmann::ordered_json& object) {
    const Bookmark bookmark(text, options.door);
    for (const Field& field : kFields) {
        const char16_t* value = (*bookmark).*field.member;
        if (value != nullptr) object[field.key] = utf8_from_utf16(value);
    }
}

std::string from_json(const JsonObject& object, const Options& options) {
    JsonFields fields(object.fields);
    std::optional<std::u16string> values[std::size(kFields)];
    BookmarkItem item{};
    item.size = sizeof item;
    for (std::size_t i = 0; i < std::size(kFields); ++i) {
        values[i] = fields.text(kFields[i].key);
        if (values[i]) item.*kFields[i].member = values[i]->data();
    }
    fields.expect_no_more();
    return write_record(kBookmarkRecord, &item, options);
}

}  // namespace

const Converter kBookmarkConverter = {show, to_json, from_json, nullptr};

}  // namespace vzconv
