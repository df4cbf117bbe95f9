#include "card_corpus.h"

#include <array>
#include <cstdint>
#include <random>
#include <span>
#include <string_view>
#include <vector>

#include "versit/line_builder.h"

namespace vzapi::bench {
namespace {

constexpr std::array<std::u16string_view, 8> kFamilies{
    u"Smith",        u"Jones", u"Garc\u00EDa", u"M\u00FCller", u"\u0418\u0432\u0430\u043D\u043E\u0432",
    u"\u5C71\u7530", u"Novak", u"Silva"};
constexpr std::array<std::u16string_view, 8> kGivens{u"Anna", u"Ben",   u"Chlo\u00E9", u"Dmitri",
                                                     u"Eva",  u"Farid", u"Grace",      u"Hiro"};

std::u16string digits(std::uint32_t number) {
    std::u16string text;
    for (const char digit : std::to_string(number)) text.push_back(static_cast<char16_t>(digit));
    return text;
}

void append_card(versit::LineBuilder& lines, std::size_t index, std::mt19937& random) {
    using versit::PropertyId;
    const bool encoded = index % 3 == 0;
    const std::u16string family(encoded ? kFamilies[2 + index % 4] : kFamilies[index % 2 == 0 ? 0 : 6]);
    const std::u16string given(encoded ? kGivens[2] : kGivens[index % 2 == 0 ? 0 : 4]);
    const std::u16string number = digits(static_cast<std::uint32_t>(5550000 + index));
    lines.line("BEGIN:VCARD");
    lines.line("VERSION:2.1");
    lines.property(PropertyId::N, "", family + u";" + given);
    lines.property(PropertyId::Fn, "", given + u" " + family);
    lines.property(PropertyId::Tel, ";CELL", u"+1" + number);
    lines.property(PropertyId::Tel, ";HOME", u"+44" + number);
    lines.property(PropertyId::Email, ";INTERNET", u"person" + number + u"@example.com");
    lines.property(
        PropertyId::Adr, ";HOME",
        encoded ? u";;Stra\u00DFe 12;K\u00F6ln;;50667;Germany" : u";;Main Street 1;Springfield;;12345;USA");
    lines.property(PropertyId::Org, "", u"Example Company;Sales");
    lines.property(PropertyId::Note, "",
                   encoded ? u"Trifft sich gern zum Fr\u00FChst\u00FCck,\r\nmittwochs ab acht Uhr, und am "
                             u"liebsten drau\u00DFen"
                           : u"Met at the trade fair");
    if (index % 20 == 0) {
        std::vector<std::byte> photo(3000);
        for (std::byte& byte : photo) byte = static_cast<std::byte>(random());
        lines.base64("PHOTO", ";ENCODING=BASE64;TYPE=JPEG", photo);
    }
    lines.line("END:VCARD");
}

}  // namespace

std::string card_corpus(std::size_t count) {
    std::mt19937 random(1234);
    versit::LineBuilder lines;
    for (std::size_t i = 0; i < count; ++i) append_card(lines, i, random);
    return lines.take();
}

std::string folded_card(std::size_t lines) {
    std::string text = "BEGIN:VCARD\r\nVERSION:2.1\r\nNOTE:a";
    for (std::size_t i = 0; i < lines; ++i) text += "\r\n some words of a note";
    return text + "\r\nEND:VCARD\r\n";
}

}  // namespace vzapi::bench
