// Random records, written and read again, are what they were.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "mms/multimedia_builder.h"
#include "mms/multimedia_text.h"
#include "vzapi/odcapi.h"

namespace vzapi::test {
namespace {

// The headers that a record may have any number of, with the kind of their value.
struct HeaderKind {
    std::uint32_t number;
    std::uint32_t kind;
};

constexpr HeaderKind kHeaders[] = {
    {VZ_MMS_HEADER_BCC, VZ_MMS_VALUE_ADDRESS},
    {VZ_MMS_HEADER_CC, VZ_MMS_VALUE_ADDRESS},
    {VZ_MMS_HEADER_TO, VZ_MMS_VALUE_ADDRESS},
    {VZ_MMS_HEADER_FROM, VZ_MMS_VALUE_ADDRESS},
    {VZ_MMS_HEADER_CONTENT_LOCATION, VZ_MMS_VALUE_TEXT},
    {VZ_MMS_HEADER_CONTENT_LOCATION, VZ_MMS_VALUE_COUNTED_TEXT},
    {VZ_MMS_HEADER_DATE, VZ_MMS_VALUE_DATE},
    {VZ_MMS_HEADER_DELIVERY_REPORT, VZ_MMS_VALUE_NUMBER},
    {VZ_MMS_HEADER_DELIVERY_TIME, VZ_MMS_VALUE_TIME},
    {VZ_MMS_HEADER_EXPIRY, VZ_MMS_VALUE_TIME},
    {VZ_MMS_HEADER_MESSAGE_CLASS, VZ_MMS_VALUE_NUMBER},
    {VZ_MMS_HEADER_MESSAGE_CLASS, VZ_MMS_VALUE_TEXT},
    {VZ_MMS_HEADER_RESPONSE_STATUS, VZ_MMS_VALUE_NUMBER},
    {VZ_MMS_HEADER_RESPONSE_TEXT, VZ_MMS_VALUE_ENCODED_TEXT},
    {VZ_MMS_HEADER_SUBJECT, VZ_MMS_VALUE_ENCODED_TEXT},
    {VZ_MMS_HEADER_REPLY_CHARGING_DEADLINE, VZ_MMS_VALUE_TIME},
    {VZ_MMS_HEADER_PREVIOUSLY_SENT_BY, VZ_MMS_VALUE_COUNTED_ADDRESS},
    {VZ_MMS_HEADER_PREVIOUSLY_SENT_DATE, VZ_MMS_VALUE_COUNTED_DATE},
    {VZ_MMS_HEADER_MM_FLAGS, VZ_MMS_VALUE_MARKED_TEXT},
    {VZ_MMS_HEADER_MBOX_TOTALS, VZ_MMS_VALUE_MARKED_NUMBER},
    {VZ_MMS_HEADER_APPLIC_ID, VZ_MMS_VALUE_TEXT},
    {VZ_MMS_HEADER_APPLICATION, VZ_MMS_VALUE_NAMED_TEXT},
    {0x50, VZ_MMS_VALUE_RAW},
};

class RandomMessage {
public:
    explicit RandomMessage(std::uint32_t seed) : random_(seed), builder_(VZ_MMS_SEND_REQ) {
        builder_.sendable();
        for (std::uint32_t i = below(12); i > 0; --i) add_header();
        if (below(4) == 0) {
            add_part(0);
        } else {
            fill_container(builder_.container(media(true)), 1);
        }
    }

    MultimediaItem& item() { return builder_.item(); }

private:
    std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_() % limit); }
    bool maybe() { return below(2) == 0; }

    std::uint64_t number() { return random_() >> below(64); }

    // Letters at both ends: there is no telling blanks and marks there from those of the encoding.
    std::u16string text(bool is_ascii) {
        constexpr std::u16string_view kAny = u"aZ09 .-_\"<>/;=\u00E9\u65E5\u0416\U0001F600\uFFFD";
        std::u16string text(1, u'x');
        for (std::uint32_t i = below(40); i > 0; --i) {
            const std::size_t at = below(is_ascii ? 13 : static_cast<std::uint32_t>(kAny.size()));
            if ((kAny[at] & 0xFC00) == 0xDC00) continue;
            text += (kAny[at] & 0xFC00) == 0xD800 ? kAny.substr(at, 2) : kAny.substr(at, 1);
        }
        return text += u'y';
    }

    MultimediaValue value(std::uint32_t kind) {
        MultimediaValue value{};
        value.size = sizeof value;
        const bool has_charset = maybe();
        switch (kind) {
            case VZ_MMS_VALUE_ADDRESS:
            case VZ_MMS_VALUE_COUNTED_ADDRESS:
                value.token = below(VZ_MMS_ADDRESS_IPV6 + 1);
                break;
            case VZ_MMS_VALUE_TIME:
                value.token = maybe() ? VZ_MMS_TIME_ABSOLUTE : VZ_MMS_TIME_RELATIVE;
                break;
            case VZ_MMS_VALUE_MARKED_NUMBER:
            case VZ_MMS_VALUE_MARKED_TEXT:
                value.token = 0x80 + below(3);
                break;
            default:
                break;
        }
        if (kind >= VZ_MMS_VALUE_COUNTED_NUMBER && kind <= VZ_MMS_VALUE_COUNTED_ADDRESS)
            value.count = below(300);
        const bool is_number = kind == VZ_MMS_VALUE_TIME || kind == VZ_MMS_VALUE_COUNTED_DATE ||
                               kind == VZ_MMS_VALUE_MARKED_NUMBER;
        if (is_number) {
            value.number = number();
        } else if (kind == VZ_MMS_VALUE_RAW) {
            value.bytes = builder_.own_bytes("\x03\x01\xFF\x02");
            value.byteCount = 4;
        } else if (kind == VZ_MMS_VALUE_NAMED_TEXT) {
            value.name = builder_.own(u"X-" + text(true));
            value.text = builder_.own(text(false));
        } else if (kind == VZ_MMS_VALUE_COUNTED_TEXT) {
            value.text = builder_.own(text(false));
        } else {
            value.charset = has_charset ? 106 : 0;
            value.text = builder_.own(text(!has_charset));
        }
        return value;
    }

    void add_header() {
        const HeaderKind header = kHeaders[below(std::size(kHeaders))];
        switch (header.kind) {
            case VZ_MMS_VALUE_NUMBER:
                builder_.number(header.number, 0x80 + below(128));
                break;
            case VZ_MMS_VALUE_DATE:
                builder_.date(header.number, number());
                break;
            case VZ_MMS_VALUE_TEXT:
                builder_.text(header.number, text(false));
                break;
            default:
                builder_.record(header.number, header.kind, value(header.kind));
                break;
        }
    }

    std::u16string_view media(bool is_container) {
        constexpr std::u16string_view kContainers[] = {u"application/vnd.wap.multipart.mixed",
                                                       u"application/vnd.wap.multipart.alternative",
                                                       u"multipart/mixed", u"multipart/x-own"};
        constexpr std::u16string_view kMedia[] = {u"text/plain", u"image/jpeg", u"application/smil",
                                                  u"text/calendar", u"application/octet-stream"};
        return is_container ? kContainers[below(4)] : kMedia[below(5)];
    }

    std::string data() {
        std::string bytes;
        for (std::uint32_t i = below(200); i > 0; --i) bytes += static_cast<char>(below(256));
        return bytes;
    }

    void add_part(std::uint32_t container) {
        builder_.part(media(false), data(), container);
        MultimediaPart& part = builder_.last();
        part.charset = maybe() ? 106 : 0;
        if (maybe()) builder_.parameter(u"start-info", text(false));
        if (maybe()) builder_.parameter(u"size", VZ_MMS_VALUE_NUMBER, number());
        if (maybe()) builder_.parameter(u"secure", VZ_MMS_VALUE_NONE, 0);
        if (maybe()) builder_.parameter(u"read-date", VZ_MMS_VALUE_DATE, number());
        if (maybe()) builder_.parameter(u"own", text(false));
        if (maybe()) builder_.raw_parameter(u"0x59", maybe() ? "\xFF" : "\x02\x03\xFE");
        if (maybe()) part.name = builder_.own(text(false));
        if (container == 0) return;
        if (maybe()) part.contentId = builder_.own(text(false));
        if (maybe()) part.contentLocation = builder_.own(text(false));
        if (maybe()) {
            part.disposition = builder_.own(maybe() ? u"attachment" : u"own-kind");
            if (maybe()) builder_.disposition_parameter(u"filename", text(false));
            if (maybe()) {
                builder_.raw_parameter(u"0x7F", std::string_view("text\0", 5));
                builder_.move_parameter_to_disposition();
            }
        }
        if (maybe()) builder_.part_header(number_header(0x0C, below(128)));
        if (maybe()) {
            MultimediaHeader header = number_header(0, 0);
            header.kind = VZ_MMS_VALUE_NAMED_TEXT;
            header.value.record = builder_.own(value(VZ_MMS_VALUE_NAMED_TEXT));
            builder_.part_header(header);
        }
    }

    void fill_container(std::uint32_t number, std::uint32_t nesting) {
        for (std::uint32_t i = below(4); i > 0; --i) {
            if (nesting < 8 && below(4) == 0) {
                fill_container(builder_.container(media(true), number), nesting + 1);
            } else {
                add_part(number);
            }
        }
    }

    std::mt19937_64 random_;
    MultimediaBuilder builder_;
};

// Takes away what a part gains by the trip: a name where it has none, and the parameter that a given name
// becomes.
std::string shown_as_given(MultimediaItem read, const MultimediaItem& item) {
    std::vector<MultimediaPart> parts(read.parts, read.parts + read.partCount);
    read.parts = parts.data();
    for (std::uint32_t i = 0; i < item.partCount; ++i) {
        MultimediaPart& part = read.parts[i];
        if (item.parts[i].name == nullptr) part.name = nullptr;
        if (part.parameterCount == item.parts[i].parameterCount) continue;
        EXPECT_EQ(part.parameterCount, item.parts[i].parameterCount + 1);
        const MultimediaParameter& gained = part.parameters[--part.parameterCount];
        EXPECT_EQ(shown(gained.name), "name");
        EXPECT_EQ(shown(gained.value.text), shown(item.parts[i].name));
    }
    return shown(read);
}

TEST(MultimediaRoundTrip, RandomRecordsComeBack) {
    for (std::uint32_t seed = 1; seed <= 2000; ++seed) {
        RandomMessage message(seed);
        MultimediaItem& item = message.item();
        const std::string pdu = written(item);
        ASSERT_FALSE(pdu.empty()) << seed;
        const ReadMultimedia read(pdu);
        ASSERT_EQ(read.result(), VZ_OK) << seed;
        ASSERT_EQ(read.item().partCount, item.partCount) << seed;
        ASSERT_EQ(shown_as_given(read.item(), item), shown(item)) << seed;
        ASSERT_EQ(written(read.item()), pdu) << seed;
    }
}

}  // namespace
}  // namespace vzapi::test
