#include "versit/versit_text_generator.h"

#include <algorithm>
#include <initializer_list>

namespace vzapi::test {
namespace {

using std::string_view_literals::operator""sv;
using Pieces = std::string_view[];

constexpr Pieces kLineEnds = {"\r\n", "\r\n", "\r\n",   "\r\n",   "\r\n",  "\r\n",
                              "\n",   "\r",   "\r\r\n", "\n\r\n", "=\r\n", "=\n"};

constexpr Pieces kNames = {
    "TEL",        "tel",      "N",    "FN",    "NOTE",       "PHOTO",         "KEY",
    "TITLE",      "URL",      "DATE", "BEGIN", "END",        "VERSION",       "NICKNAME",
    "X-NICKNAME", "X-SPOUSE", "X-",   "x-any", "X-IRMC-URL", "LAST-MODIFIED", "FOO",
    "foo-1",      "TE",       "TELL", "",      "-",          "A B",           "\xC3\x9C",
};

constexpr Pieces kGroups = {"item1.", "a.b.", ".", "X-.", "-.", "a b.", "home."};

constexpr Pieces kParameters = {
    ";QUOTED-PRINTABLE",
    ";ENCODING=QUOTED-PRINTABLE",
    ";encoding=quoted-printable",
    ";ENCODING=BASE64",
    ";BASE64",
    ";base64",
    ";ENCODING=b",
    ";7BIT",
    ";ENCODING=8BIT",
    ";ENCODING=X-FOO",
    ";CHARSET=UTF-8",
    ";TYPE=CELL",
    ";",
    ";Quoted-Printable",
    ";QUOTED-PRINTABLE=",
};

constexpr Pieces kValues = {
    "",
    "a",
    "abc",
    "+123",
    "=",
    "a=",
    "==",
    "a=3D",
    "=C3=A9",
    "a b",
    " ",
    "a:b",
    "TEL:1",
    ":",
    ";",
    "a;b;;c",
    "8BIT",
    "see BASE64",
    "AAECAw==",
    "AAAA",
    "\x1B",
    "a\x1B",
    "\xC3\xA9",
    "\xFF",
    "\t",
    "VBODY",
    "VCARD",
    "VBKM",
    "http://example.org/?a=b",
};

constexpr Pieces kFrames = {
    "BEGIN:VCARD",  "END:VCARD",   "BEGIN:VCALENDAR",     "END:VCALENDAR",     "BEGIN:VEVENT", "END:VEVENT",
    "BEGIN:VTODO",  "END:VTODO",   "BEGIN:VALARM",        "END:VALARM",        "BEGIN:VMSG",   "END:VMSG",
    "BEGIN:VENV",   "END:VENV",    "BEGIN:VBODY",         "END:VBODY",         "BEGIN:VBODY",  "END:VBODY",
    "begin:vbody ", "End:VBody\t", " BEGIN:VBODY",        "BEGIN:VBODYX",      "BEGIN:VBKM",   "end:vbkm",
    "BEGIN:ENV",    "END:ENV",     "[InternetShortcut]=", "URL=example.org/a",
};

// Small things that decide how a line is read, more often the ones that decide most.
constexpr Pieces kPieces = {
    "\r\n",
    "\r\n",
    "\r\n",
    "\n",
    "\n",
    "\r",
    "\x1B",
    "=",
    "=",
    "=\r\n",
    "=\r\n",
    " ",
    " ",
    "\t",
    ":",
    ":",
    ";",
    ".",
    "\0"sv,
    "\x80",
    "\xFF",
    "a",
    "B",
    "stray",
    "QUOTED-PRINTABLE",
    "QUOTED-PRINTABLE",
    "quoted-printable",
    "Quoted-Printable",
    "BASE64",
    "base64",
    "7BIT",
    "8BIT",
    "ENCODING",
    "TEL:",
    "tel;",
    "NOTE:",
    "FOO:",
    "X-",
    "X-a:",
    "item1.",
    "NICKNAME:",
    "X-SPOUSE:",
    "TEL",
    "BEGIN:VBODY",
    "END:VBODY",
    "BEGIN:VBODY\r\n",
    "\r\nEND:VBODY\r\n",
    "BEGIN:VBKM",
    "BEGIN:VCARD",
    "END:VCARD",
    "NOTE;QUOTED-PRINTABLE:",
    "NOTE;QUOTED-PRINTABLE:a=\r\n",
    "PHOTO;BASE64:",
    "\r\n ",
    "\r\n  ",
    "\r\n\t",
    "\r\n\r\n",
    "\n ",
    "\n\n",
};

constexpr Pieces kObjects = {
    "BEGIN:VCARD\r\nVERSION:2.1\r\nN:Sample;Sam\r\nFN:Sam Sample\r\nitem1.TEL;CELL:+10005550100\r\n"
    "ADR;HOME;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:;;1 Stra=C3=9Fe=\r\n;Town;;12345=0D=0A=\r\nLand;\r\n"
    "PHOTO;JPEG;ENCODING=BASE64:\r\n /9j/4AAQSkZJRgABAQ\r\n    EASABIAAD/2wBDAAU=\r\n\r\nNOTE:long\r\n  "
    "text\r\n"
    "X-CLASS:private\r\nEND:VCARD\r\n",
    "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nTZ:+01\r\nBEGIN:VEVENT\r\nUID:1\r\nSUMMARY;QUOTED-PRINTABLE:Tea=20="
    "\r\n"
    "and cake\r\nDTSTART:20260102T030405Z\r\nDALARM:20260102T030000Z;;;x\r\nRRULE:W1 MO "
    "#0\r\nBEGIN:VALARM\r\n"
    "TRIGGER:-PT5M\r\nEND:VALARM\r\nEND:VEVENT\r\nBEGIN:VTODO\r\nDUE:20260103\r\nEND:VTODO\r\nEND:"
    "VCALENDAR\r\n",
    "BEGIN:VBKM\r\nVERSION:1.0\r\nTITLE;CHARSET=UTF-8:Caf\xC3\xA9\r\nURL:http://example.org/"
    "?q=\r\nBEGIN:ENV\r\n"
    "X-IRMC-URL;QUOTED-PRINTABLE:=\r\n[InternetShortcut]=\r\nURL=example.org/"
    "a=3Db\r\nEND:ENV\r\nEND:VBKM\r\n",
    "BEGIN:VMSG\r\nVERSION:1.1\r\nX-IRMC-STATUS:READ\r\nX-MESSAGE-TYPE:DELIVER\r\nBEGIN:VCARD\r\nVERSION:2."
    "1\r\n"
    "N:Sample\r\nTEL:+10005550101\r\nEND:VCARD\r\nBEGIN:VENV\r\nBEGIN:VENV\r\nBEGIN:VBODY\r\nDate:1.1."
    "2026\r\n"
    "Hello =\r\n you\n\nbye\r\nEND:VBODY\r\nEND:VENV\r\nEND:VENV\r\nEND:VMSG\r\n",
    "BEGIN:VMSG\nVERSION:1.1\nBEGIN:VENV\nBEGIN:VBODY\nTEL: a quoted\nEND:VBODY\nis "
    "here\nEND:VBODY\nEND:VENV\n"
    "BEGIN:VENV\nBEGIN:VBODY\nsecond\nEND:VBODY\nEND:VENV\nEND:VMSG\n",
    "BEGIN:VCARD\r\nX-CNTGRP:1\r\nN;CHARSET=UTF-8;ENCODING=8BIT:Gr\xC3\xBC\x6E\r\nNOTE:one\ntwo\n three\r\n"
    "KEY;BASE64:\r\n  AAECAwQF\r\n  BgcICQ==\r\n\r\nEND:VCARD",
};

constexpr Pieces kEncodedPieces = {
    "A",  "z",  "09",   "+/", "AAAA", "QUJD", "=", "==", "=3D", "=c3=A9", "=0d=0A", "=G0",  "=0G",
    "=4", "= ", "\r\n", " ",  "\t",   "\n",   "-", "_",  ".",   "\xC3",   "\0"sv,   "text", "/w==",
};

constexpr char16_t kUnits[] = {
    u'a',  u'=',  u' ',   u'\t',  u'~',   0x7F,   0x1F,   0,      u'\r',  u'\n',  0x80,
    0x7FF, 0x800, 0xFFFF, 0xFFFD, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xD83D, 0xDE00, 0x4E00,
};

// What a byte above 127 becomes on the UTF-16 side: units with a CR, LF, ESC, '=', ':' or blank for a half,
// halves of pairs, and a few others.
constexpr char16_t kWidened[] = {
    0x0D0A, 0x0A0D, 0x000D + 0x100, 0x000A + 0x100, 0x1B00, 0x011B, 0x3D3D, 0x013D, 0x3A00, 0x013A,
    0x2000, 0x0120, 0xD83D,         0xDE00,         0xFEFF, 0xFFFF, 0x00E9, 0x0085, 0x2028, 0x0131,
};

// Unlike operands of '+', the parts in braces are made from left to right everywhere.
std::string joined(std::initializer_list<std::string> parts) {
    std::string text;
    for (const std::string& part : parts) text += part;
    return text;
}

}  // namespace

std::u16string widened(std::string_view text) {
    std::u16string wide;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        wide += byte < 0x80 ? char16_t(byte) : kWidened[byte % std::size(kWidened)];
    }
    return wide;
}

std::size_t VersitTextGenerator::below(std::size_t limit) {
    return static_cast<std::size_t>(random_() % limit);
}

std::string VersitTextGenerator::pick(std::span<const std::string_view> pieces) {
    return std::string(pieces[below(pieces.size())]);
}

std::string VersitTextGenerator::pieces(std::size_t most) {
    std::string text;
    for (std::size_t count = below(most + 1); count > 0; --count) text += pick(kPieces);
    return text;
}

std::string VersitTextGenerator::blanks(std::size_t most) {
    const char blank = one_in(4) ? '\t' : ' ';
    return std::string(below(most + 1), blank);
}

std::string VersitTextGenerator::line_end() {
    return one_in(3) ? pick(kLineEnds) : "\r\n";
}

std::string VersitTextGenerator::line_head() {
    std::string head = one_in(6) ? pick(kGroups) : "";
    head += pick(kNames);
    for (std::size_t count = below(3); count > 0; --count) head += pick(kParameters);
    return head + ":";
}

// A value in one to four pieces, with folds, bare line feeds or nothing between them.
std::string VersitTextGenerator::property() {
    std::string text = joined({line_head(), pick(kValues)});
    for (std::size_t count = below(4); count > 0; --count) {
        if (one_in(2)) text += joined({line_end(), blanks(3)});
        text += pick(kValues);
    }
    return text + line_end();
}

// A value over several soft breaks, some of whose lines are built to be taken for properties.
std::string VersitTextGenerator::soft_broken_property() {
    std::string text = pick(kNames);
    text += one_in(4) ? ";quoted-printable:" : ";QUOTED-PRINTABLE:";
    text += pick(kValues);
    for (std::size_t count = 1 + below(4); count > 0; --count) {
        text += one_in(5) ? line_end() : "=\r\n";
        if (one_in(4)) text += " ";
        text += one_in(3) ? line_head() : pick(kValues);
    }
    return text + line_end();
}

std::string VersitTextGenerator::base64_property() {
    std::string text = one_in(2) ? "PHOTO;ENCODING=BASE64:" : "KEY;base64:";
    for (std::size_t count = 1 + below(4); count > 0; --count) {
        text += joined({pick(kLineEnds), blanks(4), pick(kValues)});
    }
    return text + (one_in(2) ? "\r\n" : "\r\n\r\n");
}

std::string VersitTextGenerator::framed(std::size_t most) {
    std::string text;
    for (std::size_t count = 1 + below(most); count > 0; --count) {
        switch (below(7)) {
            case 0:
            case 1:
                text += joined({pick(kFrames), line_end()});
                break;
            case 2:
                text += soft_broken_property();
                break;
            case 3:
                text += base64_property();
                break;
            case 4:
                text += joined({pick(kValues), line_end()});
                break;
            default:
                text += property();
                break;
        }
    }
    return text;
}

std::string VersitTextGenerator::mutated(std::string text) {
    for (std::size_t count = 1 + below(6); count > 0; --count) {
        const std::size_t at = below(text.size() + 1);
        const std::size_t length = std::min(text.size() - at, 1 + below(12));
        switch (below(7)) {
            case 0:
                text.erase(at, length);
                break;
            case 1:
                text.insert(at, text.substr(at, length));
                break;
            case 2:
                text.insert(below(text.size() + 1), text.substr(at, length));
                break;
            case 3:
                std::reverse(text.begin() + std::ptrdiff_t(at), text.begin() + std::ptrdiff_t(at + length));
                break;
            case 4:
                text.resize(at);
                break;
            case 5:
                text.replace(at, std::min<std::size_t>(length, 1), pick(kPieces));
                break;
            default:
                text.insert(at, pick(kPieces));
                break;
        }
    }
    return text;
}

std::string VersitTextGenerator::text() {
    if (one_in(1000)) return one_in(2) ? framed(400) : pieces(3000);
    switch (below(8)) {
        case 0:
        case 1:
            return pieces(12);
        case 2:
            return "NOTE;QUOTED-PRINTABLE:a=\r\n" + pieces(8);
        case 3:
        case 4:
            return framed(6);
        case 5:
            return mutated(framed(4));
        case 6:
            return mutated(pick(kObjects));
        default:
            return joined({soft_broken_property(), framed(2), pieces(4)});
    }
}

std::u16string VersitTextGenerator::wide_text() {
    switch (below(4)) {
        case 0:
            return widened(
                joined({"BEGIN:VBODY", line_end(), framed(4), "END:VBODY", line_end(), framed(3)}));
        case 1:
            return widened(joined({framed(2), "BEGIN:VBODY\r\n", pieces(6), "\r\nEND:VBODY", pieces(6)}));
        default:
            return widened(text());
    }
}

std::string VersitTextGenerator::line() {
    switch (below(4)) {
        case 0:
            return pieces(8);
        case 1:
            return mutated(joined({line_head(), pick(kValues)}));
        case 2:
            return joined({line_head(), encoded_value()});
        default:
            return joined({line_head(), pick(kValues), pick(kValues)});
    }
}

std::string VersitTextGenerator::encoded_value() {
    std::string text;
    for (std::size_t count = below(10); count > 0; --count) text += pick(kEncodedPieces);
    return text;
}

std::string VersitTextGenerator::bytes() {
    std::string bytes;
    for (std::size_t count = below(20); count > 0; --count) bytes += static_cast<char>(below(256));
    return bytes;
}

std::u16string VersitTextGenerator::value() {
    std::u16string value;
    for (std::size_t count = below(12); count > 0; --count) {
        value += one_in(3) ? static_cast<char16_t>(below(0x10000)) : kUnits[below(std::size(kUnits))];
    }
    return value;
}

}  // namespace vzapi::test
