#include "vzconv/bookmark.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>

#include "vzapi/vzapi.h"
#include "vzconv/json_object.h"
#include "vzconv/library.h"

namespace vzconv {
namespace {

struct BookmarkRow {
    const char* name;
    const char* json;
    const char16_t* title;
    const char16_t* url;
    const char16_t* shortcut;
};

const BookmarkRow kRows[] = {
    {"all fields", R"({"title":"T","url":"http://a.example.com/","shortcut":"http://b.example.com/"})", u"T",
     u"http://a.example.com/", u"http://b.example.com/"},
    {"none", "{}", nullptr, nullptr, nullptr},
    {"title alone", R"({"title":"T"})", u"T", nullptr, nullptr},
    {"empty title", R"({"title":""})", u"", nullptr, nullptr},
    {"other scripts", R"({"title":"\u00e9\u5929","shortcut":"http://a.example.com/\u00fc"})", u"\u00E9\u5929",
     nullptr, u"http://a.example.com/\u00FC"},
    {"emoji", R"({"title":"\ud83d\ude00"})", u"\xD83D\xDE00", nullptr, nullptr},
    {"line break", R"({"title":"a\nb"})", u"a\nb", nullptr, nullptr},
};

// What the library writes for a record of these strings, without any of the tool's code.
std::string direct_text(const BookmarkRow& row) {
    std::u16string strings[3];
    const char16_t* sources[] = {row.title, row.url, row.shortcut};
    char16_t* pointers[3] = {};
    for (int i = 0; i < 3; ++i) {
        if (sources[i] == nullptr) continue;
        strings[i] = sources[i];
        pointers[i] = strings[i].data();
    }
    const BookmarkItem item = {sizeof(BookmarkItem), pointers[0], pointers[1], pointers[2]};
    VersitData data{};
    EXPECT_EQ(ConvertToVersit(VZ_TYPE_BOOKMARK, &item, &data), VZ_OK);
    std::string text(static_cast<const char*>(data.text), data.length);
    EXPECT_EQ(FreeVersitData(&data), VZ_OK);
    return text;
}

TEST(Bookmark, JsonGivesTheBytesThatTheRecordGives) {
    const LibrarySession session;
    for (const BookmarkRow& row : kRows) {
        EXPECT_EQ(kBookmarkConverter.from_json(nlohmann::json::parse(row.json), {}), direct_text(row))
            << row.name;
    }
}

TEST(Bookmark, TextToJsonToTextKeepsEveryByte) {
    const LibrarySession session;
    for (const BookmarkRow& row : kRows) {
        const std::string text = direct_text(row);
        nlohmann::ordered_json object = nlohmann::ordered_json::object();
        kBookmarkConverter.to_json(text, {}, object);
        EXPECT_EQ(kBookmarkConverter.from_json(nlohmann::json(object), {}), text) << row.name;
    }
}

TEST(Bookmark, KeysStandInTheOrderOfTheRecordAndOnlyWhereThereIsAValue) {
    const LibrarySession session;
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    kBookmarkConverter.to_json(direct_text(kRows[0]), {}, object);
    EXPECT_EQ(object.dump(),
              R"({"title":"T","url":"http://a.example.com/","shortcut":"http://b.example.com/"})");
    object = nlohmann::ordered_json::object();
    kBookmarkConverter.to_json(direct_text(kRows[1]), {}, object);
    EXPECT_EQ(object.dump(), "{}");
}

TEST(Bookmark, ShowNamesTheFieldsThatAreThere) {
    const LibrarySession session;
    EXPECT_EQ(
        kBookmarkConverter.show(direct_text(kRows[0]), {}),
        "Bookmark\n  Title     T\n  Address   http://a.example.com/\n  Shortcut  http://b.example.com/\n");
    EXPECT_EQ(kBookmarkConverter.show(direct_text(kRows[1]), {}), "Bookmark\n  (empty)\n");
}

}  // namespace
}  // namespace vzconv
