#include "vzconv/contact.h"

#include <gtest/gtest.h>

namespace vzconv {
namespace {

std::vector<EmbeddedFile> files_in(const std::string& lines, Door door) {
    const std::string card = "BEGIN:VCARD\r\nVERSION:2.1\r\n" + lines + "END:VCARD\r\n";
    return kContactConverter.files(card, {{}, VZ_CALENDAR_SIZE_TIME_ZONE, door});
}

struct PhotoRow {
    const char* lines;
    const char* name;
    const char* type;
    const char* data;
};

TEST(ContactPhotos, APhotoHasTheNameOfItsContactAndTheTypeOfItsBytes) {
    const LibrarySession session;
    const PhotoRow rows[] = {
        {"FN:Ann Example\r\nPHOTO;TYPE=JPEG;ENCODING=BASE64:R0lGODlh\r\n\r\n", "Ann Example", "image/gif",
         "GIF89a"},
        {"N:Example;Bob\r\nPHOTO;TYPE=PNG;ENCODING=BASE64:YWJj\r\n\r\n", "Bob Example", "image/png", "abc"},
        {"FN:AC/DC\r\nPHOTO;ENCODING=BASE64:YWJj\r\n\r\n", "AC_DC", "image/jpeg", "abc"},
        {"PHOTO;TYPE=GIF;ENCODING=BASE64:YWJj\r\n\r\n", "", "image/gif", "abc"},
    };
    for (const PhotoRow& row : rows) {
        for (const Door door : {Door::Conversions, Door::Objects}) {
            const std::vector<EmbeddedFile> files = files_in(row.lines, door);
            ASSERT_EQ(files.size(), 1U) << row.lines;
            EXPECT_EQ(files[0].name, row.name);
            EXPECT_EQ(files[0].type, row.type);
            EXPECT_EQ(files[0].data, row.data);
        }
    }
    EXPECT_TRUE(files_in("FN:Ann Example\r\n", Door::Conversions).empty());
}

TEST(ContactPhotos, EachPhotoIsAFile) {
    const LibrarySession session;
    const auto files = files_in(
        "FN:A\r\nPHOTO;TYPE=GIF;ENCODING=BASE64:YWJj\r\n\r\nPHOTO;TYPE=PNG;ENCODING=BASE64:ZGVm\r\n\r\n",
        Door::Conversions);
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].data, "abc");
    EXPECT_EQ(files[1].data, "def");
}

}  // namespace
}  // namespace vzconv
