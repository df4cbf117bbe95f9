#include "vzconv/file_types.h"

#include "vzconv/ascii.h"

namespace vzconv {
namespace {

struct TypeRow {
    std::string_view type;
    std::string_view extensions;  // that fit, blanks between them; the first is the one to add
};

constexpr TypeRow kTypes[] = {
    {"application/java-archive", "jar"},
    {"application/octet-stream", ""},
    {"application/ogg", "ogg oga ogv"},
    {"application/pdf", "pdf"},
    {"application/smil", "smil smi"},
    {"application/smil+xml", "smil smi"},
    {"application/vnd.oma.drm.content", "dcf"},
    {"application/vnd.oma.drm.message", "dm"},
    {"application/vnd.wap.mms-message", "mms"},
    {"application/vnd.wap.xhtml+xml", "xhtml xml"},
    {"application/xhtml+xml", "xhtml html htm xml"},
    {"application/xml", "xml"},
    {"application/zip", "zip"},
    {"audio/3gpp", "3gp 3gpp"},
    {"audio/aac", "aac"},
    {"audio/amr", "amr"},
    {"audio/amr-wb", "awb"},
    {"audio/basic", "au snd"},
    {"audio/imelody", "imy"},
    {"audio/mid", "mid midi"},
    {"audio/midi", "mid midi"},
    {"audio/mp3", "mp3"},
    {"audio/mp4", "m4a mp4"},
    {"audio/mpeg", "mp3 mpga"},
    {"audio/ogg", "ogg oga"},
    {"audio/qcelp", "qcp"},
    {"audio/sp-midi", "mid midi"},
    {"audio/wav", "wav"},
    {"audio/x-imelody", "imy"},
    {"audio/x-mid", "mid midi"},
    {"audio/x-midi", "mid midi"},
    {"audio/x-wav", "wav"},
    {"image/bmp", "bmp"},
    {"image/gif", "gif"},
    {"image/jpeg", "jpg jpeg jpe"},
    {"image/jpg", "jpg jpeg jpe"},
    {"image/png", "png"},
    {"image/svg+xml", "svg"},
    {"image/tiff", "tif tiff"},
    {"image/vnd.wap.wbmp", "wbmp wbm"},
    {"image/x-ms-bmp", "bmp"},
    {"text/calendar", "ics"},
    {"text/css", "css"},
    {"text/html", "html htm"},
    {"text/plain", "txt text"},
    {"text/vcard", "vcf"},
    {"text/x-imelody", "imy"},
    {"text/x-vbookmark", "vbm"},
    {"text/x-vcalendar", "vcs"},
    {"text/x-vcard", "vcf"},
    {"text/x-vmessage", "vmg"},
    {"text/xml", "xml"},
    {"video/3gpp", "3gp 3gpp"},
    {"video/3gpp2", "3g2 3gpp2"},
    {"video/h263", "3gp h263"},
    {"video/mp4", "mp4 m4v"},
    {"video/mpeg", "mpg mpeg mpe"},
    {"video/quicktime", "mov qt"},
};

struct PictureRow {
    std::string_view type;
    std::string_view begin;
};

constexpr PictureRow kPictures[] = {
    {"image/jpeg", "\xFF\xD8\xFF"},
    {"image/png", "\x89PNG\r\n\x1A\n"},
    {"image/gif", "GIF8"},
    {"image/bmp", "BM"},
};

std::string_view without_parameters(std::string_view content_type) {
    return trimmed(content_type.substr(0, content_type.find(';')));
}

std::string_view extensions_of(std::string_view content_type) {
    for (const TypeRow& row : kTypes) {
        if (equal_ignoring_case(row.type, content_type)) return row.extensions;
    }
    return {};
}

// Takes the first word off `words`.
std::string_view take_word(std::string_view& words) {
    const std::string_view word = words.substr(0, words.find(' '));
    words.remove_prefix(word.size());
    words = trimmed(words);
    return word;
}

}  // namespace

std::string_view missing_extension(std::string_view content_type, std::string_view extension) {
    std::string_view extensions = extensions_of(without_parameters(content_type));
    if (extensions.empty()) return extension.empty() ? "bin" : "";
    const std::string_view first = take_word(extensions);
    for (std::string_view word = first; !word.empty(); word = take_word(extensions)) {
        if (equal_ignoring_case(word, extension)) return {};
    }
    return first;
}

std::string_view picture_type_of(std::string_view data) {
    for (const PictureRow& row : kPictures) {
        if (data.starts_with(row.begin)) return row.type;
    }
    return {};
}

}  // namespace vzconv
