// Conversions on several threads at once, while nobody initialises or terminates. Run under ThreadSanitizer,
// this also shows that no call writes to anything shared.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "support/text.h"
#include "vcalendar/calendar_builder.h"
#include "vcard/contact_builder.h"
#include "vmessage/message_builder.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

constexpr int kThreads = 4;
constexpr int kRounds = 500;

// One bookmark there and back again, different on each thread; false when anything is not as expected.
bool convert_there_and_back(int thread, int round) {
    std::u16string title = u"Title \u00E9 ";
    title.append(static_cast<std::size_t>(round % 50), static_cast<char16_t>(u'a' + thread));
    std::u16string shortcut(static_cast<std::size_t>(thread + 1), u'\u65E5');
    const BookmarkItem item{sizeof(BookmarkItem), title.data(), nullptr, shortcut.data()};
    VersitData text{};
    if (ConvertToVersit2(static_cast<std::uint64_t>(thread), 0, 1, VZ_TYPE_BOOKMARK, &item, &text) != VZ_OK)
        return false;
    BookmarkItem back{};
    back.size = sizeof back;
    const bool read = ValidateVersitData(VZ_TYPE_BOOKMARK, &text) == VZ_OK &&
                      ConvertFromVersit(VZ_TYPE_BOOKMARK, &text, &back) == VZ_OK;
    const bool same =
        read && text_of(back.title) == title && back.url == nullptr && text_of(back.shortcut) == shortcut;
    return FreeVersitData(&text) == VZ_OK && FreeConverterData(VZ_TYPE_BOOKMARK, &back) == VZ_OK && same;
}

// The same for a contact, which is written for another kind of device on each thread.
bool convert_contact_there_and_back(int thread, int round) {
    constexpr std::uint32_t kFamilies[kThreads] = {VZ_PROFILE_NONE, VZ_PROFILE_10, VZ_PROFILE_10,
                                                   VZ_PROFILE_20};
    constexpr std::uint32_t kVersions[kThreads] = {0, 10, 280, 300};
    std::u16string name = u"Ann \u00E9 ";
    name.append(static_cast<std::size_t>(round % 50), static_cast<char16_t>(u'a' + thread));
    const Contact contact{text(VZ_CONTACT_FORMATTED_NAME, name),
                          photo(u"JPEG", std::string(static_cast<std::size_t>(round + 1), 'x')),
                          text(VZ_CONTACT_PHONE_MOBILE, u"+49", kPreferred),
                          address(VZ_CONTACT_ADDRESS_HOME, {u"", u"", name, u"K\u00F6ln"}),
                          text(VZ_CONTACT_NOTE, name)};
    ContactRecord record(contact);
    VersitData versit{};
    if (ConvertToVersit2(kFamilies[thread], kVersions[thread], VZ_PROFILE_ON, VZ_TYPE_CONTACT, record.item(),
                         &versit) != VZ_OK)
        return false;
    ContactItem back{};
    back.size = sizeof back;
    const bool same = ConvertFromVersit(VZ_TYPE_CONTACT, &versit, &back) == VZ_OK && back.generalCount >= 2 &&
                      contact_of(back).addresses == contact.addresses &&
                      contact_of(back).phones == contact.phones;
    return FreeVersitData(&versit) == VZ_OK && FreeConverterData(VZ_TYPE_CONTACT, &back) == VZ_OK && same;
}

// The same for a calendar entry, in both versions of its text.
bool convert_calendar_there_and_back(int thread, int round) {
    std::u16string title = u"Regatta \u00E9, ";
    title.append(static_cast<std::size_t>(round % 50), static_cast<char16_t>(u'a' + thread));
    calendar::Calendar event;
    event.size = VZ_CALENDAR_SIZE_EXCEPTIONS;
    event.type = VZ_ITEM_APPOINTMENT;
    event.start = calendar::local(2009, 3, 1 + static_cast<unsigned>(round % 28), 9);
    event.alarm_kind = VZ_ALARM_AUDIO;
    event.alarm = event.start;
    event.repeat = {VZ_REPEAT_WEEKLY, 1 + static_cast<std::uint32_t>(thread), VZ_DAY_MONDAY, 0};
    event.fields = {calendar::text(VZ_CALENDAR_SUMMARY, title)};
    event.exceptions = {calendar::utc(2010, 1, 1)};
    calendar::CalendarRecord record(event);
    VersitData versit{};
    if (ConvertToVersit2(VZ_PROFILE_20, thread % 2 == 0 ? VZ_PROFILE_20_CALENDAR_2 : 0, VZ_PROFILE_ON,
                         VZ_TYPE_CALENDAR, record.item(), &versit) != VZ_OK)
        return false;
    CalendarItem back{};
    back.size = VZ_CALENDAR_SIZE_EXCEPTIONS;
    const bool same =
        ConvertFromVersit(VZ_TYPE_CALENDAR, &versit, &back) == VZ_OK && calendar::calendar_of(&back) == event;
    return FreeVersitData(&versit) == VZ_OK && FreeConverterData(VZ_TYPE_CALENDAR, &back) == VZ_OK && same;
}

// The same for a message, which is written in its extended form on every second thread.
bool convert_message_there_and_back(int thread, int round) {
    std::u16string body = u"Hello \u00E9\r\n";
    body.append(static_cast<std::size_t>(round % 50), static_cast<char16_t>(u'a' + thread));
    const Form form = thread % 2 == 0 ? Form::Plain : Form::Extended;
    const Message message{VZ_MESSAGE_STATUS_READ, VZ_MESSAGE_TYPE_DELIVER, {u"+1", u"+2"}, body, {}};
    VersitData versit{};
    if (write_message(MessageRecord(message).item, form, versit) != VZ_OK) return false;
    MessageItem back{};
    back.size = sizeof back;
    const bool extended = units_of(versit).find(u"X-SMS;") != std::u16string::npos;
    const bool same = ConvertFromVersit(VZ_TYPE_MESSAGE, &versit, &back) == VZ_OK &&
                      message_of(back) == message && extended == (form == Form::Extended);
    return FreeVersitData(&versit) == VZ_OK && FreeConverterData(VZ_TYPE_MESSAGE, &back) == VZ_OK && same;
}

// Both parsers run to their end on a text without an object.
bool refuse(int round) {
    std::string card = "NOTE;QUOTED-PRINTABLE:a=\r\nb\r\n c\nd\r\nPHOTO;BASE64:\r\n  AAAA\r\n\r\n";
    std::u16string message = u"TEL:1\nX-IRMC-BOX:INBOX\r\nEND:VBODY\r\n";
    ContactItem contact{};
    contact.size = sizeof contact;
    MessageItem item{};
    item.size = sizeof item;
    const VersitData narrow = data_of(card);
    const VersitData wide = data_of(message);
    const std::uint32_t unknown = round % 2 == 0 ? 9U : 0U;
    return ConvertFromVersit(VZ_TYPE_CONTACT, &narrow, &contact) == VZ_ERR_INVALID_TEXT &&
           ConvertFromVersit(VZ_TYPE_MESSAGE, &wide, &item) == VZ_ERR_INVALID_TEXT &&
           ValidateVersitData(VZ_TYPE_MESSAGE, &wide) == VZ_ERR_INVALID_TEXT &&
           ConvertFromVersit(unknown, &narrow, &contact) == VZ_ERR_UNKNOWN_TYPE;
}

TEST(Threads, ConvertIndependently) {
    const AnnouncedVersion announced(16);
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([thread, &wrong] {
            for (int round = 0; round < kRounds; ++round) {
                const bool right = convert_there_and_back(thread, round) &&
                                   convert_contact_there_and_back(thread, round) &&
                                   convert_calendar_there_and_back(thread, round) &&
                                   convert_message_there_and_back(thread, round) && refuse(round);
                if (!right) ++wrong;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
