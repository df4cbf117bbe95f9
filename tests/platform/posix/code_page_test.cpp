#include "platform/code_page.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <vector>

#include "support/environment.h"

namespace vzapi::platform {
namespace {

using namespace std::string_view_literals;
using test::EnvironmentVariable;

std::u16string decoded(CodePage code_page, std::string_view bytes) {
    std::u16string text;
    append_utf16(code_page, bytes, text);
    return text;
}

bool is_installed(const char* charset) {
    iconv_t descriptor = iconv_open("UTF-16LE", charset);
    if (reinterpret_cast<std::intptr_t>(descriptor) == -1) return false;
    iconv_close(descriptor);
    return true;
}

TEST(CodePage932OfPosix, BytesWithoutAMeaningBecomeReplacementCharacters) {
    EXPECT_EQ(decoded(CodePage::ShiftJis,
                      "A\xFF"
                      "B"),
              u"A\uFFFDB");
    EXPECT_EQ(decoded(CodePage::ShiftJis,
                      "A\xFF\xFF"
                      "B"),
              u"A\uFFFD\uFFFDB");
    EXPECT_EQ(decoded(CodePage::ShiftJis,
                      "A\x81\x01"
                      "B"),
              u"A\uFFFD\x01"
              u"B");
    EXPECT_EQ(decoded(CodePage::ShiftJis, "A\x83"), u"A\uFFFD");
    EXPECT_EQ(decoded(CodePage::ShiftJis, "\x83"), u"\uFFFD");
    EXPECT_EQ(decoded(CodePage::ShiftJis, std::string(5000, '\xFF')), std::u16string(5000, u'\uFFFD'));
}

// The user's locale as LC_ALL, LC_CTYPE and LANG have it.
class Locale {
public:
    using Name = std::optional<std::string>;
    Locale(const Name& all, const Name& type, const Name& language)
        : all_("LC_ALL", all), type_("LC_CTYPE", type), language_("LANG", language) {}

private:
    EnvironmentVariable all_;
    EnvironmentVariable type_;
    EnvironmentVariable language_;
};

TEST(SystemCharset, IsUtf8WhereTheLocaleSaysNothing) {
    for (const char* name :
         {"", "C", "POSIX", "C.UTF-8", "C.utf8", "de_DE.UTF-8", "xx_XX.utf8@variant", "nonsense", "xx_XX",
          "xx_XX.nonsense", "xx_XX.", ".", "xx_XX.//TRANSLIT", "../../etc"}) {
        const Locale locale(name, std::nullopt, std::nullopt);
        EXPECT_EQ(system_charset(), "UTF-8") << name;
    }
    const Locale none(std::nullopt, std::nullopt, std::nullopt);
    EXPECT_EQ(system_charset(), "UTF-8");
}

TEST(SystemCharset, ComesFromTheFirstVariableThatIsSet) {
    if (!is_installed("ISO-8859-15")) GTEST_SKIP() << "this system has no conversion from ISO-8859-15";
    const std::string latin = "xx_XX.ISO-8859-15";
    const struct {
        std::optional<std::string> all, type, language;
        const char* charset;
    } rows[] = {
        {latin, "C", "C", "ISO-8859-15"},        {std::nullopt, latin, "C", "ISO-8859-15"},
        {"", latin, "C", "ISO-8859-15"},         {std::nullopt, std::nullopt, latin, "ISO-8859-15"},
        {"", "", latin, "ISO-8859-15"},          {"C", latin, latin, "UTF-8"},
        {std::nullopt, "POSIX", latin, "UTF-8"},
    };
    for (const auto& row : rows) {
        const Locale locale(row.all, row.type, row.language);
        EXPECT_EQ(system_charset(), row.charset) << row.all.value_or("-") << " " << row.type.value_or("-");
    }
}

struct Row {
    const char* locale;
    const char* charset;
    std::string_view bytes;
    std::u16string_view text;
};

constexpr Row kLocales[] = {
    {"C", "UTF-8", "\xC3\xA9\xFF", u"\u00E9\uFFFD"},
    {"de_DE.UTF-8", "UTF-8", "\xC3\xA9\xFF", u"\u00E9\uFFFD"},
    {"xx_XX.ISO-8859-1", "ISO-8859-1", "\xE9\xA4\x80", u"\u00E9\u00A4\u0080"},
    {"xx_XX.ISO-8859-15@euro", "ISO-8859-15", "\xE9\xA4", u"\u00E9\u20AC"},
    {"xx_XX.CP1252", "CP1252", "\x80\x81\xE9", u"\u20AC\uFFFD\u00E9"},
    {"xx_XX.KOI8-R", "KOI8-R", "\xF0\xD2", u"\u041F\u0440"},
    {"xx_XX.EUC-JP", "EUC-JP", "\xC6\xFC\xCB\xDC", u"\u65E5\u672C"},
    {"xx_XX.EUC-JP", "EUC-JP", "a\xC6", u"a\uFFFD"},
    {"xx_XX.SHIFT_JIS", "SHIFT_JIS", "\x93\xFA", u"\u65E5"},
    {"xx_XX.GB18030", "GB18030", "\x94\x39\xFC\x36", u"\U0001F600"},
    {"xx_XX.BIG5-HKSCS", "BIG5-HKSCS", "\x88\x62", u"\u00CA\u0304"},
    {"xx_XX.CP1258", "CP1258", "xa", u"xa"},  // an accent could follow the last letter
};

TEST(SystemCodePageOfPosix, FollowsTheUsersLocale) {
    std::vector<std::string> missing;
    for (const Row& row : kLocales) {
        if (!is_installed(row.charset)) {
            missing.emplace_back(row.charset);
            continue;
        }
        const Locale locale(row.locale, std::nullopt, std::nullopt);
        EXPECT_EQ(system_charset(), row.charset) << row.locale;
        EXPECT_EQ(decoded(CodePage::SystemDefault, row.bytes), row.text) << row.locale;
    }
    if (!missing.empty())
        GTEST_SKIP() << "this system has no conversion from " << testing::PrintToString(missing);
}

}  // namespace
}  // namespace vzapi::platform
