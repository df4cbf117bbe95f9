// What the functions of the data-object family answer before any converter runs, and what they leave alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "dataobject/email_text.h"
#include "support/guard_page.h"
#include "support/text.h"
#include "vzapi/odcapi.h"

// In C, where a function may be called with other arguments than it takes.
extern "C" unsigned field_functions_that_fail(std::uint64_t number, const void* pointer);

namespace {

using namespace vzapi::test;

constexpr ResultCode kPointer = 0x80100012U;
constexpr ResultCode kBadValue = 0x80100013U;
constexpr ResultCode kNoObject = 0x80800003U;

constexpr std::uint32_t kKinds[] = {1, 2, 3, 4, 5, 6};
constexpr std::uint32_t kTextKinds[] = {1, 2, 3, 4};
constexpr std::uint32_t kNoKinds[] = {0, 7, 8, 0x80000000U, UINT32_MAX};

// A record of any kind, filled with a pattern behind its size.
struct AnyRecord {
    explicit AnyRecord(std::uint32_t size) {
        bytes.fill(0xA5);
        std::memcpy(bytes.data(), &size, sizeof size);
    }
    [[nodiscard]] std::uint32_t size() const {
        std::uint32_t size = 0;
        std::memcpy(&size, bytes.data(), sizeof size);
        return size;
    }
    // Where the zeros behind the size end.
    [[nodiscard]] std::size_t zeros_end() const {
        std::size_t end = 4;
        while (end < bytes.size() && bytes[end] == 0) ++end;
        return end;
    }
    void* get() { return bytes.data(); }

    alignas(8) std::array<std::uint8_t, 256> bytes{};
};

std::string g_text = "no object";

DataObject some_object() {
    return {24, 7, static_cast<std::uint32_t>(g_text.size()), g_text.data()};
}

TEST(ParseDataObject, RefusesKindsOutsideOneToSixBeforeAnythingElse) {
    const GuardPage page;
    for (const std::uint32_t kind : kNoKinds) {
        EXPECT_EQ(ODCAPI_ParseDataObject(kind, nullptr, nullptr), kBadValue) << kind;
        EXPECT_EQ(ODCAPI_ParseDataObject(kind, page.unreadable_as<DataObject>(), page.unreadable()),
                  kBadValue);
        AnyRecord record(64);
        const DataObject in = some_object();
        EXPECT_EQ(ODCAPI_ParseDataObject(kind, &in, record.get()), kBadValue) << kind;
        EXPECT_EQ(record.zeros_end(), 4U);
    }
}

TEST(ParseDataObject, NullAndUnreadablePointersComeBeforeTheSize) {
    const GuardPage page;
    for (const std::uint32_t kind : kKinds) {
        AnyRecord record(64);
        DataObject in = some_object();
        in.size = 32;
        EXPECT_EQ(ODCAPI_ParseDataObject(kind, nullptr, record.get()), kPointer) << kind;
        EXPECT_EQ(ODCAPI_ParseDataObject(kind, &in, nullptr), kPointer) << kind;
        EXPECT_EQ(ODCAPI_ParseDataObject(kind, page.unreadable_as<DataObject>(), record.get()), kPointer)
            << kind;
        EXPECT_EQ(ODCAPI_ParseDataObject(kind, page.last_as<DataObject>(16), record.get()), kPointer) << kind;
        EXPECT_EQ(ODCAPI_ParseDataObject(kind, &in, page.unreadable()), kPointer) << kind;
        EXPECT_EQ(record.zeros_end(), 4U) << kind;
    }
}

TEST(ParseDataObject, TheSizeOfTheObjectIsTwentyFour) {
    for (const std::uint32_t kind : kKinds) {
        for (const std::uint32_t size : {0U, 23U, 25U, 32U, UINT32_MAX}) {
            AnyRecord record(64);
            const DataObject in{size, 0, 5, g_text.data()};
            EXPECT_EQ(ODCAPI_ParseDataObject(kind, &in, record.get()), kBadValue) << kind << " " << size;
            const DataObject nothing{size, 0, 0, nullptr};
            EXPECT_EQ(ODCAPI_ParseDataObject(kind, &nothing, record.get()), kBadValue) << kind << " " << size;
            EXPECT_EQ(record.zeros_end(), 4U) << kind;
        }
    }
}

TEST(ParseDataObject, UnreadableTextLeavesTheRecordAsItWas) {
    const GuardPage page;
    for (const std::uint32_t kind : kKinds) {
        AnyRecord record(64);
        for (const DataObject& in : {DataObject{24, 0, 10, nullptr}, DataObject{24, 0, 10, page.unreadable()},
                                     DataObject{24, 0, 20, page.last(10)}}) {
            EXPECT_EQ(ODCAPI_ParseDataObject(kind, &in, record.get()), kPointer) << kind;
        }
        EXPECT_EQ(record.zeros_end(), 4U) << kind;
    }
}

TEST(ParseDataObject, ARecordThatEndsBeforeItsSizeIsNotTouched) {
    const GuardPage page;
    const DataObject in = some_object();
    for (const std::uint32_t kind : kTextKinds) {
        auto* record = page.last(200);
        const std::uint32_t size = 201;
        std::memset(record, 0xA5, 200);
        std::memcpy(record, &size, sizeof size);
        EXPECT_EQ(ODCAPI_ParseDataObject(kind, &in, record), kPointer) << kind;
        EXPECT_EQ(record[4], std::byte{0xA5}) << kind;
        EXPECT_EQ(record[199], std::byte{0xA5}) << kind;
    }
    EXPECT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_EMAIL, &in, page.last(39)), kPointer);
}

struct SmallestRecord {
    std::uint32_t kind;
    std::uint32_t size;
};

constexpr SmallestRecord kSmallestRecords[] = {{1, 64}, {2, 112}, {3, 64}, {4, 32}, {5, 40}, {6, 40}};

// Its size says that it ends where the memory does: one byte before any record of the kind may end.
TEST(ParseDataObject, ARecordShorterThanAnyOfItsKindIsNotTouched) {
    const GuardPage page;
    const DataObject in = some_object();
    for (const SmallestRecord& row : kSmallestRecords) {
        const std::uint32_t size = row.size - 1;
        std::byte* const record = page.last(size);
        std::memset(record, 0xA5, size);
        std::memcpy(record, &size, sizeof size);
        const std::vector<std::byte> before(record, record + size);
        EXPECT_EQ(ODCAPI_ParseDataObject(row.kind, &in, record), kPointer) << row.kind;
        EXPECT_EQ(std::memcmp(record, before.data(), size), 0) << row.kind;
    }
}

TEST(ParseDataObject, TextRecordsAreZeroedOverTheirOwnSize) {
    const DataObject in = some_object();
    for (const std::uint32_t kind : kTextKinds) {
        for (const std::uint32_t size : {0U, 3U, 4U, 5U, 24U, 64U, 100U, 192U, 256U}) {
            AnyRecord record(size);
            EXPECT_EQ(ODCAPI_ParseDataObject(kind, &in, record.get()), kNoObject) << kind << " " << size;
            EXPECT_EQ(record.size(), size) << kind;
            EXPECT_EQ(record.zeros_end(), std::max(size, 4U)) << kind << " " << size;
        }
    }
}

TEST(ParseDataObject, EmailRecordsAreZeroedOverFortyBytes) {
    const DataObject in = some_object();
    for (const std::uint32_t size : {0U, 4U, 40U, 256U, UINT32_MAX}) {
        AnyRecord record(size);
        EXPECT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_EMAIL, &in, record.get()), kBadValue);
        EXPECT_EQ(record.size(), size);
        EXPECT_EQ(record.zeros_end(), 40U);
    }
}

TEST(ParseDataObject, AnEmptyObjectHoldsNothing) {
    for (const DataObject& in : {DataObject{24, 0, 0, nullptr}, DataObject{24, 0, 0, g_text.data()}}) {
        for (const std::uint32_t kind : kTextKinds) {
            AnyRecord record(64);
            EXPECT_EQ(ODCAPI_ParseDataObject(kind, &in, record.get()), kNoObject) << kind;
            EXPECT_EQ(record.zeros_end(), 64U) << kind;
        }
        AnyRecord record(40);
        EXPECT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_MULTIMEDIA, &in, record.get()), kBadValue);
        EXPECT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_EMAIL, &in, record.get()), kBadValue);
    }
}

TEST(FreeParsedData, ChecksKindAndPointer) {
    const GuardPage page;
    AnyRecord record(64);
    for (const std::uint32_t kind : kNoKinds) {
        EXPECT_EQ(ODCAPI_FreeParsedData(kind, nullptr), kBadValue) << kind;
        EXPECT_EQ(ODCAPI_FreeParsedData(kind, record.get()), kBadValue) << kind;
    }
    for (const std::uint32_t kind : kKinds) {
        EXPECT_EQ(ODCAPI_FreeParsedData(kind, nullptr), kPointer) << kind;
        EXPECT_EQ(ODCAPI_FreeParsedData(kind, page.unreadable()), kPointer) << kind;
    }
    for (const SmallestRecord& row : kSmallestRecords) {
        EXPECT_EQ(ODCAPI_FreeParsedData(row.kind, page.last(row.size - 1)), kPointer) << row.kind;
    }
    EXPECT_EQ(record.zeros_end(), 4U);
}

TEST(FreeParsedData, AnswersAsFreeConverterDataForTexts) {
    for (const std::uint32_t version : {12U, 16U}) {
        const AnnouncedVersion announced(version);
        for (const std::uint32_t kind : kTextKinds) {
            for (const std::uint32_t size : {0U, 31U, 32U, 64U, 112U, 192U, 200U}) {
                AnyRecord record(size);
                std::memset(record.bytes.data() + 4, 0, record.bytes.size() - 4);
                AnyRecord other = record;
                EXPECT_EQ(ODCAPI_FreeParsedData(kind, record.get()), FreeConverterData(kind, other.get()))
                    << version << " " << kind << " " << size;
                EXPECT_EQ(record.bytes, other.bytes) << version << " " << kind << " " << size;
            }
        }
    }
}

TEST(FreeParsedData, LeavesForeignPointersOfAnEmailRecordAlone) {
    const GuardPage page;
    EmailItem item{};
    item.size = sizeof item;
    EmailFlagField flag{};
    item.flags = &flag;
    item.times = page.unreadable_as<EmailTimeField>();
    item.itemText = page.unreadable_as<char16_t>();
    EXPECT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_EMAIL, &item), VZ_OK);
    EXPECT_EQ(item.flags, nullptr);
    EXPECT_EQ(item.times, nullptr);
    EXPECT_EQ(item.itemText, nullptr);
}

TEST(CreateDataObject, ChecksKindThenPointersThenSize) {
    const GuardPage page;
    for (const std::uint32_t kind : kNoKinds) {
        EXPECT_EQ(ODCAPI_CreateDataObject(kind, nullptr, nullptr), kBadValue) << kind;
    }
    for (const std::uint32_t kind : kKinds) {
        AnyRecord record(64);
        DataObject out{32, 7, 9, g_text.data()};
        EXPECT_EQ(ODCAPI_CreateDataObject(kind, nullptr, &out), kPointer) << kind;
        EXPECT_EQ(ODCAPI_CreateDataObject(kind, record.get(), nullptr), kPointer) << kind;
        EXPECT_EQ(ODCAPI_CreateDataObject(kind, page.unreadable(), &out), kPointer) << kind;
        EXPECT_EQ(ODCAPI_CreateDataObject(kind, record.get(), page.unreadable_as<DataObject>()), kPointer)
            << kind;
        EXPECT_EQ(ODCAPI_CreateDataObject(kind, record.get(), page.last_as<DataObject>(16)), kPointer)
            << kind;
        EXPECT_EQ(ODCAPI_CreateDataObject(kind, record.get(), &out), kBadValue) << kind;
        EXPECT_EQ(out.size, 32U);
        EXPECT_EQ(out.format, 7U);
        EXPECT_EQ(out.length, 9U);
        EXPECT_EQ(out.text, g_text.data());
    }
}

TEST(CreateDataObject, ARecordShorterThanAnyOfItsKindIsTold) {
    const GuardPage page;
    for (const SmallestRecord& row : kSmallestRecords) {
        std::byte* const record = page.last(row.size - 1);
        std::memset(record, 0, row.size - 1);
        std::memcpy(record, &row.size, sizeof row.size);
        DataObject out{24, 7, 9, g_text.data()};
        EXPECT_EQ(ODCAPI_CreateDataObject(row.kind, record, &out), kPointer) << row.kind;
        EXPECT_EQ(out.length, 9U) << row.kind;
        EXPECT_EQ(out.text, g_text.data()) << row.kind;
    }
}

void expect_refused_in_silence(std::uint32_t kind, const void* record) {
    DataObject out{24, 7, 9, g_text.data()};
    EXPECT_EQ(ODCAPI_CreateDataObject(kind, record, &out), VZ_OK) << kind;
    EXPECT_EQ(out.size, 24U) << kind;
    EXPECT_EQ(out.format, 7U) << kind;
    EXPECT_EQ(out.length, 0U) << kind;
    EXPECT_EQ(out.text, nullptr) << kind;
}

TEST(CreateDataObject, ARefusedRecordGivesAnEmptyObject) {
    const AnnouncedVersion announced(16);
    for (const std::uint32_t kind : {1U, 6U}) {
        AnyRecord record(60);
        std::memset(record.bytes.data() + 4, 0, record.bytes.size() - 4);
        expect_refused_in_silence(kind, record.get());
    }
    // A calendar entry that says it is longer than the memory.
    const GuardPage page;
    constexpr std::uint32_t kSize = VZ_CALENDAR_SIZE_TIME_ZONE;
    std::memset(page.last(kSize - 1), 0, kSize - 1);
    std::memcpy(page.last(kSize - 1), &kSize, sizeof kSize);
    expect_refused_in_silence(VZ_OBJECT_CALENDAR, page.last(kSize - 1));
}

TEST(CreateDataObject, AnEmptyMultimediaRecordIsNotEncoded) {
    AnyRecord record(40);
    DataObject out{24, 7, 9, g_text.data()};
    EXPECT_EQ(ODCAPI_CreateDataObject(VZ_OBJECT_MULTIMEDIA, record.get(), &out), kBadValue);
    EXPECT_EQ(out.length, 0U);
    EXPECT_EQ(out.text, nullptr);
}

TEST(FreeDataObject, ChecksPointerAndSize) {
    const GuardPage page;
    EXPECT_EQ(ODCAPI_FreeDataObject(nullptr), kPointer);
    EXPECT_EQ(ODCAPI_FreeDataObject(page.unreadable_as<DataObject>()), kPointer);
    EXPECT_EQ(ODCAPI_FreeDataObject(page.last_as<DataObject>(16)), kPointer);
    for (const std::uint32_t size : {0U, 20U, 32U}) {
        DataObject object{size, 7, 9, g_text.data()};
        EXPECT_EQ(ODCAPI_FreeDataObject(&object), kBadValue) << size;
        EXPECT_EQ(object.size, size);
        EXPECT_EQ(object.format, 7U);
        EXPECT_EQ(object.length, 9U);
        EXPECT_EQ(object.text, g_text.data());
    }
}

TEST(FreeDataObject, EmptiesAnObjectWithoutBytesOrWithForeignOnes) {
    const GuardPage page;
    for (void* const text : {static_cast<void*>(nullptr), static_cast<void*>(g_text.data()),
                             static_cast<void*>(page.unreadable())}) {
        DataObject object{24, 7, 9, text};
        EXPECT_EQ(ODCAPI_FreeDataObject(&object), VZ_OK);
        EXPECT_EQ(object.size, 0U);
        EXPECT_EQ(object.format, 7U);
        EXPECT_EQ(object.length, 0U);
        EXPECT_EQ(object.text, nullptr);
    }
    EXPECT_EQ(g_text, "no object");
}

TEST(ValidateDataObject, ChecksKindThenPointersThenLength) {
    const GuardPage page;
    const DataObject in = some_object();
    for (const std::uint32_t kind : kNoKinds) {
        EXPECT_EQ(ODCAPI_ValidateDataObject(kind, nullptr), kBadValue) << kind;
        EXPECT_EQ(ODCAPI_ValidateDataObject(kind, &in), kBadValue) << kind;
    }
    for (const std::uint32_t kind : kKinds) {
        EXPECT_EQ(ODCAPI_ValidateDataObject(kind, nullptr), kPointer) << kind;
        EXPECT_EQ(ODCAPI_ValidateDataObject(kind, page.unreadable_as<DataObject>()), kPointer) << kind;
        EXPECT_EQ(ODCAPI_ValidateDataObject(kind, page.last_as<DataObject>(16)), kPointer) << kind;
        for (const DataObject& unusable :
             {DataObject{24, 0, 0, nullptr}, DataObject{24, 0, 5, nullptr},
              DataObject{24, 0, 0, page.unreadable()}, DataObject{24, 0, 5, page.unreadable()},
              DataObject{24, 0, 20, page.last(10)}}) {
            EXPECT_EQ(ODCAPI_ValidateDataObject(kind, &unusable), kPointer) << kind;
        }
        const DataObject empty{24, 0, 0, g_text.data()};
        EXPECT_EQ(ODCAPI_ValidateDataObject(kind, &empty), kBadValue) << kind;
    }
}

struct TextCase {
    std::uint32_t kind;
    const char* text;
    ResultCode expected;
};

constexpr TextCase kTexts[] = {
    {1, "BEGIN:VCARD END:VCARD", VZ_OK},
    {1, "begin:vcard end:vcard", VZ_OK},
    {1, "BEGIN:VCARD", kNoObject},
    {2, "END:VCALENDAR BEGIN:VCALENDAR", VZ_OK},
    {2, "BEGIN:VCARD END:VCARD", kNoObject},
    {3, "BEGIN:VMSG END:VMSG", kNoObject},  // 8-bit text
    {4, "BEGIN:VBKM END:VBKM", VZ_OK},
    {4, "x", kNoObject},
    {5, "BEGIN:VCARD END:VCARD", kBadValue},  // not the contact group of the other family
    {6, "<Email/>", VZ_OK},
    {6, "<Email><read>1</read><emailitem>x</emailitem></Email>", VZ_OK},
    {6, "no document", VZ_OK},
};

TEST(ValidateDataObject, LooksAtTheBytesWhateverTheSizeOfTheObject) {
    for (const TextCase& row : kTexts) {
        for (const std::uint32_t size : {24U, 0U, 32U}) {
            std::string text = row.text;
            const DataObject object{size, 5, static_cast<std::uint32_t>(text.size()), text.data()};
            EXPECT_EQ(ODCAPI_ValidateDataObject(row.kind, &object), row.expected) << row.kind << " " << text;
            EXPECT_EQ(text, row.text);
            EXPECT_EQ(object.size, size);
        }
    }
}

TEST(ValidateDataObject, MessagesAreUtf16) {
    std::u16string capitals = u"BEGIN:VMSG END:VMSG";
    std::u16string small = u"begin:vmsg end:vmsg";
    const DataObject good = data_of(capitals);
    const DataObject bad = data_of(small);
    EXPECT_EQ(ODCAPI_ValidateDataObject(VZ_OBJECT_MESSAGE, &good), VZ_OK);
    EXPECT_EQ(ODCAPI_ValidateDataObject(VZ_OBJECT_MESSAGE, &bad), kNoObject);
}

TEST(Multimedia, TextDoesNotDecodeAndTheRecordIsReleased) {
    AnyRecord record(40);
    const DataObject in = some_object();
    EXPECT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_MULTIMEDIA, &in, record.get()), kBadValue);
    EXPECT_EQ(ODCAPI_ValidateDataObject(VZ_OBJECT_MULTIMEDIA, &in), kBadValue);
    EXPECT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_MULTIMEDIA, record.get()), VZ_OK);
    EXPECT_EQ(record.zeros_end(), 40U);
}

TEST(FieldFunctions, AnswerZero) {
    using Without = ResultCode (*)();
    for (const Without function :
         {Without{ODCAPI_CreateBegin}, Without{ODCAPI_InitializeSupportInfo}, Without{ODCAPI_AddField},
          Without{ODCAPI_DeleteField}, Without{ODCAPI_CreateEnd}}) {
        EXPECT_EQ(function(), VZ_OK);
    }
}

TEST(FieldFunctions, AnswerZeroWhateverTheyAreGiven) {
    const GuardPage page;
    for (const void* const pointer :
         {static_cast<const void*>(nullptr), static_cast<const void*>(page.begin()),
          static_cast<const void*>(page.unreadable())}) {
        for (const std::uint64_t number : {std::uint64_t{0}, std::uint64_t{1}, UINT64_MAX}) {
            EXPECT_EQ(field_functions_that_fail(number, pointer), 0U) << number;
        }
    }
}

}  // namespace
