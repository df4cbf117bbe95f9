// Text objects through the data-object family: there and back again, and the same as through the other
// family.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>

#include "dataobject/email_text.h"
#include "support/text.h"
#include "vzapi/odcapi.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

// A record of any kind, empty but for its size.
struct AnyRecord {
    explicit AnyRecord(std::uint32_t size) { set_size(size); }
    void set_size(std::uint32_t size) { std::memcpy(bytes.data(), &size, sizeof size); }
    void* get() { return bytes.data(); }
    alignas(8) std::array<std::uint8_t, 192> bytes{};
};

std::string utf16_bytes(const std::u16string& text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

struct TextRow {
    std::uint32_t kind;
    std::uint32_t record_size;
    std::string text;  // as the writer of the kind writes it
};

const TextRow kBookmark{VZ_OBJECT_BOOKMARK, sizeof(BookmarkItem),
                        lines({"BEGIN:VBKM", "VERSION:1.0", "TITLE;CHARSET=UTF-8:caf\xC3\xA9",
                               "URL:http://a.example/", "BEGIN:ENV", "X-IRMC-URL;QUOTED-PRINTABLE:=",
                               "[InternetShortcut]=", "URL=http://b.example/", "END:ENV", "END:VBKM"})};

const TextRow kContact{
    VZ_OBJECT_CONTACT, sizeof(ContactItem),
    lines({"BEGIN:VCARD", "VERSION:2.1", "N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:M=C3=BCller;Ann;;;",
           "TEL;CELL;PREF:+49", "EMAIL;INTERNET;HOME:ann@mail.example", "END:VCARD"})};

const TextRow kCalendar{VZ_OBJECT_CALENDAR, VZ_CALENDAR_SIZE_TIME_ZONE,
                        lines({"BEGIN:VCALENDAR", "VERSION:1.0", "BEGIN:VEVENT", "DTSTART:20240506T070000",
                               "DTEND:20240506T080000", "AALARM:", "X-EPOCAGENDAENTRYTYPE:APPOINTMENT",
                               "SUMMARY:Tea", "END:VEVENT", "END:VCALENDAR"})};

const TextRow kMessage{
    VZ_OBJECT_MESSAGE, sizeof(MessageItem),
    utf16_bytes(u"BEGIN:VMSG\r\nVERSION:1.1\r\nX-IRMC-STATUS:READ\r\nX-IRMC-BOX:INBOX\r\n"
                u"X-NRD-DT:20240506T070809Z\r\nX-MESSAGE-TYPE:DELIVER\r\nBEGIN:VCARD\r\nVERSION:3.0\r\nN:\r\n"
                u"TEL:+491\r\nEND:VCARD\r\nBEGIN:VENV\r\nBEGIN:VBODY\r\nDate:06.05.2024 07:08:09\r\nHello\n"
                u"END:VBODY\r\nEND:VENV\r\nEND:VMSG\r\n")};

DataObject parsed_and_created(const TextRow& row, const std::string& text) {
    AnyRecord record(row.record_size);
    const DataObject in = object_of(text);
    EXPECT_EQ(ODCAPI_ParseDataObject(row.kind, &in, record.get()), VZ_OK) << row.kind;
    DataObject out{sizeof out, 0, 0, nullptr};
    EXPECT_EQ(ODCAPI_CreateDataObject(row.kind, record.get(), &out), VZ_OK) << row.kind;
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(ODCAPI_FreeParsedData(row.kind, record.get()), VZ_OK) << row.kind;
    }
    return out;
}

void expect_round_trip(const TextRow& row) {
    const AnnouncedVersion announced(16);
    DataObject first = parsed_and_created(row, row.text);
    EXPECT_EQ(first.size, 24U);
    EXPECT_EQ(first.format, 2U);
    EXPECT_EQ(bytes_of(first), row.text);
    DataObject second = parsed_and_created(row, bytes_of(first));
    EXPECT_EQ(bytes_of(second), row.text);
    EXPECT_NE(first.text, second.text);
    for (DataObject* object : {&first, &second}) {
        EXPECT_EQ(ODCAPI_ValidateDataObject(row.kind, object), VZ_OK);
        EXPECT_EQ(ODCAPI_FreeDataObject(object), VZ_OK);
        EXPECT_EQ(object->size, 0U);
        EXPECT_EQ(object->length, 0U);
        EXPECT_EQ(object->text, nullptr);
        EXPECT_EQ(ODCAPI_FreeDataObject(object), VZ_ERR_BAD_VALUE) << "a second release";
    }
}

TEST(DataObjects, ContactsAreParsedAndCreated) {
    expect_round_trip(kContact);
}

TEST(DataObjects, CalendarEntriesAreParsedAndCreated) {
    expect_round_trip(kCalendar);
}

TEST(DataObjects, MessagesAreParsedAndCreated) {
    expect_round_trip(kMessage);
}

TEST(DataObjects, BookmarksAreParsedAndCreated) {
    expect_round_trip(kBookmark);
}

// Whatever the other family answers, this one does, and with the same text.
void expect_same_as_other_family(const TextRow& row, const std::string& text, std::uint32_t right_size) {
    AnyRecord ours(row.record_size);
    AnyRecord theirs(row.record_size);
    const DataObject in = object_of(text);
    EXPECT_EQ(ODCAPI_ParseDataObject(row.kind, &in, ours.get()),
              ConvertFromVersit(row.kind, &in, theirs.get()));
    DataObject our_text{sizeof our_text, 9, 0, nullptr};
    VersitData their_text{sizeof their_text, 9, 0, nullptr};
    EXPECT_EQ(ODCAPI_CreateDataObject(row.kind, ours.get(), &our_text), VZ_OK);
    const ResultCode converted = ConvertToVersit(row.kind, theirs.get(), &their_text);
    EXPECT_EQ(our_text.length, their_text.length);
    EXPECT_EQ(our_text.text == nullptr, converted != VZ_OK);
    EXPECT_EQ(our_text.format, converted == VZ_OK ? 2U : 9U);
    EXPECT_EQ(bytes_of(our_text), bytes_of(their_text));
    EXPECT_EQ(ODCAPI_FreeDataObject(&our_text), VZ_OK);
    EXPECT_EQ(FreeVersitData(&their_text), VZ_OK);
    EXPECT_EQ(ODCAPI_FreeParsedData(row.kind, ours.get()), FreeConverterData(row.kind, theirs.get()));
    // A reader may fill a record of a size that the release refuses.
    for (AnyRecord* record : {&ours, &theirs}) {
        record->set_size(right_size);
        static_cast<void>(ODCAPI_FreeParsedData(row.kind, record->get()));
    }
}

TEST(DataObjects, EveryTextKindAnswersAsTheOtherFamily) {
    const AnnouncedVersion announced(16);
    for (const TextRow* row : {&kContact, &kCalendar, &kMessage, &kBookmark}) {
        SCOPED_TRACE(row->kind);
        expect_same_as_other_family(*row, row->text, row->record_size);
        for (const TextRow* other : {&kContact, &kCalendar, &kMessage, &kBookmark}) {
            expect_same_as_other_family(*row, other->text, row->record_size);
        }
        for (std::size_t size = 0; size < row->text.size(); size += 3) {
            expect_same_as_other_family(*row, row->text.substr(0, size), row->record_size);
        }
        TextRow wrong_size = *row;
        for (const std::uint32_t size : {0U, 16U, 40U, 63U}) {
            wrong_size.record_size = size;
            expect_same_as_other_family(wrong_size, row->text, row->record_size);
        }
    }
}

TEST(DataObjects, MessagesWithoutTheirBeginLeaveAnEmptyRecord) {
    std::u16string text = u"VERSION:1.1\r\nX-IRMC-STATUS:READ\r\nEND:VMSG\r\n";
    const DataObject in = data_of(text);
    MessageItem item;
    std::memset(&item, 0xA5, sizeof item);
    item.size = sizeof item;
    EXPECT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_MESSAGE, &in, &item), 0x80800003U);
    MessageItem expected;
    std::memset(&expected, 0, sizeof expected);
    expected.size = sizeof expected;
    EXPECT_EQ(std::memcmp(&item, &expected, sizeof item), 0);
}

TEST(DataObjects, TextEndsAtItsFirstNul) {
    BookmarkItem item{};
    item.size = sizeof item;
    std::string text = "BEGIN:VBKM\r\nVERSION:1.0\r\nTITLE:a\r\n";
    text += '\0';
    text += "URL:b\r\nEND:VBKM\r\n";
    const DataObject in = object_of(text);
    EXPECT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_BOOKMARK, &in, &item), VZ_OK);
    EXPECT_EQ(text_of(item.title), u"a");
    EXPECT_EQ(text_of(item.url), u"(null)");
    EXPECT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_BOOKMARK, &item), VZ_OK);
}

TEST(DataObjects, TheWriterSeesNoProfile) {
    ContactItem contact{};
    contact.size = sizeof contact;
    DataObject out{sizeof out, 0, 0, nullptr};
    VersitData text{};
    text.size = sizeof text;
    EXPECT_EQ(ODCAPI_CreateDataObject(VZ_OBJECT_CONTACT, &contact, &out), VZ_OK);
    EXPECT_EQ(ConvertToVersit2(0, 0, 0, VZ_TYPE_CONTACT, &contact, &text), VZ_OK);
    EXPECT_EQ(bytes_of(out), bytes_of(text));
    EXPECT_EQ(ODCAPI_FreeDataObject(&out), VZ_OK);
    EXPECT_EQ(FreeVersitData(&text), VZ_OK);
}

TEST(DataObjects, AContactRecordThatTheWriterRefusesGivesAnEmptyObject) {
    const AnnouncedVersion announced(16);
    ContactItem contact{};
    contact.size = 60;
    VersitData text{};
    text.size = sizeof text;
    ASSERT_NE(ConvertToVersit(VZ_TYPE_CONTACT, &contact, &text), VZ_OK);
    DataObject out{sizeof out, 0, 0, nullptr};
    EXPECT_EQ(ODCAPI_CreateDataObject(VZ_OBJECT_CONTACT, &contact, &out), VZ_OK);
    EXPECT_EQ(out.length, 0U);
    EXPECT_EQ(out.text, nullptr);
    EXPECT_EQ(ODCAPI_FreeDataObject(&out), VZ_OK);
}

TEST(DataObjects, TheKindOfMultimediaIsNoContactGroup) {
    char16_t name[] = u"Friends";
    const ContactGroupItem group{sizeof group, name, 0, nullptr};
    DataObject out{sizeof out, 0, 0, nullptr};
    EXPECT_EQ(ODCAPI_CreateDataObject(VZ_OBJECT_MULTIMEDIA, &group, &out), VZ_ERR_BAD_VALUE);
    EXPECT_EQ(out.text, nullptr);
}

TEST(DataObjects, AnEmailItemIsNotCreated) {
    const EmailItem item{sizeof item, 0, nullptr, 0, nullptr, nullptr};
    DataObject out{sizeof out, 0, 0, nullptr};
    EXPECT_EQ(ODCAPI_CreateDataObject(VZ_OBJECT_EMAIL, &item, &out), VZ_OK);
    EXPECT_EQ(out.length, 0U);
    EXPECT_EQ(out.text, nullptr);
}

}  // namespace
