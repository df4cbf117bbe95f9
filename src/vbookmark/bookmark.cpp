#include "vbookmark/bookmark.h"

#include <string>
#include <string_view>

#include "platform/ole_string.h"
#include "platform/pointer_probe.h"
#include "platform/reclaimer.h"
#include "platform/utf8.h"
#include "result.h"
#include "versit/ascii.h"
#include "versit/line_builder.h"
#include "versit/quoted_printable.h"
#include "vzapi/vzapi.h"

namespace vzapi::vbookmark {
namespace {

using versit::PropertyId;

constexpr std::string_view kVersion = "1.0";
constexpr std::string_view kUtf8Parameter = ";CHARSET=UTF-8";

// The ENV component holds a file of three lines in one property, whose soft line breaks are not joined in
// bookmark text: this head, this section line, and the address behind "URL=".
constexpr std::string_view kEnvBegin = "BEGIN:ENV";
constexpr std::string_view kEnvEnd = "END:ENV";
constexpr std::string_view kShortcutHead = "X-IRMC-URL;QUOTED-PRINTABLE:=";
constexpr std::string_view kShortcutSection = "[InternetShortcut]=";
constexpr std::string_view kShortcutKey = "URL=";

void write_text_property(versit::LineBuilder& lines, PropertyId id, std::u16string_view value) {
    const std::string_view parameters = versit::needs_encoding(value) ? kUtf8Parameter : std::string_view{};
    lines.property(id, parameters, value, versit::ValueForm::Plain);
}

void write_shortcut(versit::LineBuilder& lines, std::u16string_view shortcut) {
    std::string address(kShortcutKey);
    if (versit::needs_encoding(shortcut)) {
        versit::append_quoted_printable(shortcut, address);
    } else {
        platform::append_utf8(shortcut, address);
    }
    lines.line(kEnvBegin);
    lines.line(kShortcutHead);
    lines.line(kShortcutSection);
    lines.line(address);
    lines.line(kEnvEnd);
}

// The text of UTF-8 `bytes` as a string for the record; none for an empty text.
platform::OleString record_string(std::string_view bytes) {
    if (bytes.empty()) return {};
    platform::OleString text(platform::ole_string_allocate(platform::utf8_to_utf16(bytes)));
    if (!text) raise(VZ_ERR_OUT_OF_MEMORY);
    return text;
}

struct Strings {
    platform::OleString title;
    platform::OleString url;
    platform::OleString shortcut;
};

// A later line takes the place of an earlier one, unless it holds no text.
void replace(platform::OleString& string, std::string_view bytes) {
    if (platform::OleString text = record_string(bytes)) string = std::move(text);
}

void read_line(const versit::VersitProperty& line, Strings& strings) {
    switch (line.id()) {
        case PropertyId::Title:
            replace(strings.title, versit::decoded_value(line, versit::Encoding::SevenBit));
            break;
        case PropertyId::Url:
            replace(strings.url, line.value());
            break;
        case PropertyId::None: {
            const std::size_t equals = line.text().find('=');
            if (equals == std::string_view::npos || line.text() == kShortcutSection) break;
            replace(strings.shortcut, versit::decode_quoted_printable(line.text().substr(equals + 1)));
            break;
        }
        default:
            break;
    }
}

}  // namespace

void read(const versit::VersitObject& object, void* item, const ReaderContext& /*context*/) {
    auto& bookmark = *static_cast<BookmarkItem*>(item);
    bookmark.size = sizeof(BookmarkItem);
    const versit::RootInfo root = versit::root_info(std::span(object.lines()));
    const std::string_view name = versit::component_name(versit::ComponentId::VBkm);
    if (!versit::equals_ignoring_case(root.name, name) || root.version != kVersion)
        raise(VZ_ERR_INVALID_TEXT);

    Strings strings;
    for (const versit::VersitProperty& line :
         versit::component_lines(object, versit::ComponentId::VBkm, versit::Nested::Include)) {
        read_line(line, strings);
    }
    bookmark.title = strings.title.release();
    bookmark.url = strings.url.release();
    bookmark.shortcut = strings.shortcut.release();
}

std::string write(const void* item, const WriterContext& /*context*/) {
    const auto& bookmark = *static_cast<const BookmarkItem*>(item);
    platform::PointerProbe probe;
    std::u16string storage;
    std::u16string shortcut_storage;
    const std::u16string_view shortcut = probe.text(bookmark.shortcut, shortcut_storage);

    versit::LineBuilder lines;
    lines.line("BEGIN:VBKM");
    lines.line("VERSION:1.0");
    write_text_property(lines, PropertyId::Title, probe.text(bookmark.title, storage));
    write_text_property(lines, PropertyId::Url, probe.text(bookmark.url, storage));
    if (shortcut.data() != nullptr) write_shortcut(lines, shortcut);
    lines.line("END:VBKM");
    return lines.take();
}

void release(void* item, const ReleaseContext& context) {
    if (!platform::is_readable(item, sizeof(BookmarkItem))) raise(VZ_ERR_POINTER);
    auto& bookmark = *static_cast<BookmarkItem*>(item);
    const bool size_is_checked = context.api_version >= VZ_INTERFACE_CHECKED_SIZES;
    if (size_is_checked && bookmark.size != sizeof(BookmarkItem)) raise(VZ_ERR_BAD_VALUE);
    platform::Reclaimer reclaimer;
    for (char16_t** text : {&bookmark.url, &bookmark.title, &bookmark.shortcut}) {
        reclaimer.release_string(*text);
        *text = nullptr;
    }
}

}  // namespace vzapi::vbookmark
