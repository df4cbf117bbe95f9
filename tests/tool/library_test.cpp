#include "vzconv/library.h"

#include <gtest/gtest.h>

#include "vzapi/contact_group.h"
#include "vzconv/failure.h"

namespace vzconv {
namespace {

constexpr const char* kBookmark =
    "BEGIN:VBKM\r\nVERSION:1.0\r\nTITLE:T\r\nURL:http://www.example.com/\r\nEND:VBKM\r\n";
constexpr const char* kGroup = "BEGIN:VCARD\r\nVERSION:2.1\r\nX-CNTGRP:1\r\nEND:VCARD\r\n";
constexpr Options kObjects = {{}, VZ_CALENDAR_SIZE_TIME_ZONE, Door::Objects};

template <class Action>
std::string reason_of(Action action) {
    try {
        action();
    } catch (const Failure& failure) {
        return failure.what();
    }
    return {};
}

TEST(Library, BothFamiliesGiveTheSame) {
    const LibrarySession session;
    for (const Door door : {Door::Conversions, Door::Objects}) {
        validate(kBookmarkRecord, kBookmark, door);
        const ReadRecord<BookmarkItem, kBookmarkRecord> bookmark(kBookmark, door);
        const Options options = {{}, VZ_CALENDAR_SIZE_TIME_ZONE, door};
        EXPECT_EQ(write_record(kBookmarkRecord, &*bookmark, options), kBookmark);
        EXPECT_EQ(reason_of([&] { validate(kBookmarkRecord, "BEGIN:VBKM", door); }),
                  "the text is no object of this kind in a version that the library reads (0x80800003)");
        EXPECT_EQ(reason_of([&] { ReadRecord<BookmarkItem, kBookmarkRecord>("a", door); }),
                  "the text is no object of this kind in a version that the library reads (0x80800003)");
    }
}

TEST(Library, TheDataObjectFamilyHasNoGroupsAndNoProfiles) {
    const LibrarySession session;
    const std::string reason = "the data-object functions do not have this kind";
    EXPECT_EQ(reason_of([] { validate(kContactGroupRecord, kGroup, Door::Objects); }), reason);
    EXPECT_EQ(reason_of([] { ReadRecord<ContactGroupItem, kContactGroupRecord>(kGroup, Door::Objects); }),
              reason);
    ContactGroupItem group{};
    group.size = sizeof group;
    EXPECT_EQ(reason_of([&] { write_record(kContactGroupRecord, &group, kObjects); }), reason);
    BookmarkItem bookmark{};
    bookmark.size = sizeof bookmark;
    Options options = kObjects;
    options.profile = profile_of("20-calendar-2");
    EXPECT_EQ(reason_of([&] { write_record(kBookmarkRecord, &bookmark, options); }),
              "the data-object functions know no profile");
}

TEST(Library, ANulIsRefusedWhereTheTextWouldEnd) {
    const LibrarySession session;
    const std::string text("BEGIN:VBKM\0END:VBKM", 19);
    for (const Door door : {Door::Conversions, Door::Objects})
        EXPECT_EQ(reason_of([&] { validate(kBookmarkRecord, text, door); }), "holds a NUL character");
}

}  // namespace
}  // namespace vzconv
