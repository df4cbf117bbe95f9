#include "vcard/parameter_words.h"

namespace vzapi::vcard {
namespace {

struct Row {
    std::string_view word;
    TypeWords types;
};

// The frequent ones first: the search begins at the top.
constexpr Row kRows[] = {
    {"HOME", type_word::kHome},
    {"WORK", type_word::kWork},
    {"CELL", type_word::kCell},
    {"PREF", type_word::kPref},
    {"VOICE", type_word::kVoice},
    {"QUOTED-PRINTABLE", 0},
    {"FAX", type_word::kFax},
    {"CAR", type_word::kCar},
    {"VIDEO", type_word::kVideo},
    {"VOIP", type_word::kVoip},
    {"MODEM", type_word::kModem},
    {"PAGER", type_word::kPager},
    {"POC", type_word::kPoc},
    {"SWIS", type_word::kSwis},
    {"PERSONAL", type_word::kPersonal},
    {"BUSINESS", type_word::kBusiness},
    {"MOBILE", type_word::kMobile},
    {"X-IRMC-N", type_word::kIrmcName},
    {"X-IRMC-ORG", type_word::kIrmcOrg},
    {"BASE64", 0},
    {"8BIT", 0},
    {"7BIT", 0},
    {"", 0},
};

TypeWords types_of(std::string_view word) noexcept {
    for (const Row& row : kRows) {
        if (versit::equals_ignoring_case(word, row.word)) return row.types;
    }
    return type_word::kOther;
}

}  // namespace

TypeWords type_words(std::string_view parameters) noexcept {
    TypeWords words = 0;
    for_each_parameter_word(parameters, [&words](std::string_view name, std::string_view word) {
        if (name.empty() || versit::equals_ignoring_case(name, "TYPE")) {
            words |= types_of(word);
        } else if (versit::equals_ignoring_case(name, "PREF")) {
            words |= type_word::kPref;
        }
    });
    return words;
}

}  // namespace vzapi::vcard
