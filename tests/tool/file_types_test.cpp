#include "vzconv/file_types.h"

#include <gtest/gtest.h>

namespace vzconv {
namespace {

struct TypeRow {
    const char* type;
    const char* extension;
    const char* missing;
};

TEST(FileTypes, TheExtensionThatFitsStaysAndAnyOtherGetsOne) {
    const TypeRow rows[] = {
        {"image/jpeg", "jpg", ""},
        {"image/jpeg", "JPE", ""},
        {"image/jpeg", "", "jpg"},
        {"image/jpeg", "jp", "jpg"},
        {"IMAGE/GIF ; a=b", "png", "gif"},
        {"application/smil", "smi", ""},
        {"application/smil", "xml", "smil"},
        {"audio/amr", "", "amr"},
        {"text/x-vCard", "", "vcf"},
        {"video/3gpp", "3gp", ""},
        {"application/octet-stream", "", "bin"},
        {"application/octet-stream", "exe", ""},
        {"x/y", "z", ""},
        {"", "", "bin"},
    };
    for (const TypeRow& row : rows)
        EXPECT_EQ(missing_extension(row.type, row.extension), row.missing)
            << row.type << " " << row.extension;
}

TEST(FileTypes, PicturesAreKnownByTheirFirstBytes) {
    EXPECT_EQ(picture_type_of("\xFF\xD8\xFF\xE0"), "image/jpeg");
    EXPECT_EQ(picture_type_of("\x89PNG\r\n\x1A\n."), "image/png");
    EXPECT_EQ(picture_type_of("GIF89a"), "image/gif");
    EXPECT_EQ(picture_type_of("BM"), "image/bmp");
    EXPECT_EQ(picture_type_of("\xFF\xD8"), "");
    EXPECT_EQ(picture_type_of(""), "");
}

}  // namespace
}  // namespace vzconv
