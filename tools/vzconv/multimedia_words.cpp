#include "vzconv/multimedia_words.h"

#include <charconv>
#include <cstdio>

#include "vzapi/multimedia.h"

namespace vzconv {
namespace {

constexpr CodeWord kHeadings[] = {
    {VZ_MMS_SEND_REQ, "Multimedia message, sent"},
    {VZ_MMS_SEND_CONF, "Answer to a message sent"},
    {VZ_MMS_NOTIFICATION_IND, "Notification of a multimedia message"},
    {VZ_MMS_NOTIFYRESP_IND, "Answer to a notification"},
    {VZ_MMS_RETRIEVE_CONF, "Multimedia message, received"},
    {VZ_MMS_ACKNOWLEDGE_IND, "Acknowledgement of a message received"},
    {VZ_MMS_DELIVERY_IND, "Delivery report"},
    {VZ_MMS_READ_REC_IND, "Read report, sent"},
    {VZ_MMS_READ_ORIG_IND, "Read report, received"},
    {VZ_MMS_FORWARD_REQ, "Request to forward a message"},
    {VZ_MMS_FORWARD_CONF, "Answer to a forwarding"},
    {VZ_MMS_MBOX_STORE_REQ, "Request to store a message in the mailbox"},
    {VZ_MMS_MBOX_STORE_CONF, "Answer to a storing"},
    {VZ_MMS_MBOX_VIEW_REQ, "Request to view the mailbox"},
    {VZ_MMS_MBOX_VIEW_CONF, "View of the mailbox"},
    {VZ_MMS_MBOX_UPLOAD_REQ, "Multimedia message, sent to the mailbox"},
    {VZ_MMS_MBOX_UPLOAD_CONF, "Answer to a message sent to the mailbox"},
    {VZ_MMS_MBOX_DELETE_REQ, "Request to delete messages of the mailbox"},
    {VZ_MMS_MBOX_DELETE_CONF, "Answer to a deletion in the mailbox"},
    {VZ_MMS_MBOX_DESCR, "Multimedia message of the mailbox"},
    {VZ_MMS_DELETE_REQ, "Request to delete a message"},
    {VZ_MMS_DELETE_CONF, "Answer to a deletion"},
    {VZ_MMS_CANCEL_REQ, "Request to cancel a message"},
    {VZ_MMS_CANCEL_CONF, "Answer to a cancelling"},
};

constexpr CodeWord kAddressTypes[] = {
    {VZ_MMS_ADDRESS_PLMN, "PLMN"},
    {VZ_MMS_ADDRESS_IPV4, "IPv4"},
    {VZ_MMS_ADDRESS_IPV6, "IPv6"},
    {VZ_MMS_ADDRESS_INSERT, "insert"},
};

constexpr CodeWord kValueKinds[] = {
    {VZ_MMS_VALUE_NONE, "none"},
    {VZ_MMS_VALUE_NUMBER, "number"},
    {VZ_MMS_VALUE_DATE, "date"},
    {VZ_MMS_VALUE_TEXT, "text"},
    {VZ_MMS_VALUE_ENCODED_TEXT, "encoded text"},
    {VZ_MMS_VALUE_ADDRESS, "address"},
    {VZ_MMS_VALUE_TIME, "time"},
    {VZ_MMS_VALUE_COUNTED_NUMBER, "counted number"},
    {VZ_MMS_VALUE_COUNTED_DATE, "counted date"},
    {VZ_MMS_VALUE_COUNTED_TEXT, "counted text"},
    {VZ_MMS_VALUE_COUNTED_ADDRESS, "counted address"},
    {VZ_MMS_VALUE_MARKED_TEXT, "marked text"},
    {VZ_MMS_VALUE_MARKED_NUMBER, "marked number"},
    {VZ_MMS_VALUE_NAMED_TEXT, "named text"},
    {VZ_MMS_VALUE_RAW, "raw"},
};

constexpr CodeWord kCharsets[] = {
    {3, "us-ascii"},
    {4, "iso-8859-1"},
    {5, "iso-8859-2"},
    {6, "iso-8859-3"},
    {7, "iso-8859-4"},
    {8, "iso-8859-5"},
    {9, "iso-8859-6"},
    {10, "iso-8859-7"},
    {11, "iso-8859-8"},
    {12, "iso-8859-9"},
    {13, "iso-8859-10"},
    {17, "shift_jis"},
    {18, "euc-jp"},
    {37, "iso-2022-kr"},
    {38, "euc-kr"},
    {39, "iso-2022-jp"},
    {40, "iso-2022-jp-2"},
    {103, "unicode-1-1-utf-7"},
    {104, "iso-2022-cn"},
    {105, "iso-2022-cn-ext"},
    {106, "utf-8"},
    {109, "iso-8859-13"},
    {110, "iso-8859-14"},
    {111, "iso-8859-15"},
    {112, "iso-8859-16"},
    {113, "gbk"},
    {114, "gb18030"},
    {1000, "iso-10646-ucs-2"},
    {1001, "iso-10646-ucs-4"},
    {1012, "utf-7"},
    {1013, "utf-16be"},
    {1014, "utf-16le"},
    {1015, "utf-16"},
    {1016, "cesu-8"},
    {1017, "utf-32"},
    {1018, "utf-32be"},
    {1019, "utf-32le"},
    {2009, "ibm850"},
    {2011, "ibm437"},
    {2024, "windows-31j"},
    {2025, "gb2312"},
    {2026, "big5"},
    {2084, "koi8-r"},
    {2085, "hz-gb-2312"},
    {2086, "ibm866"},
    {2088, "koi8-u"},
    {2101, "big5-hkscs"},
    {2109, "windows-874"},
    {2250, "windows-1250"},
    {2251, "windows-1251"},
    {2252, "windows-1252"},
    {2253, "windows-1253"},
    {2254, "windows-1254"},
    {2255, "windows-1255"},
    {2256, "windows-1256"},
    {2257, "windows-1257"},
    {2258, "windows-1258"},
    {2259, "tis-620"},
};

// Deprecated numbers of a header that has a newer one have no name.
constexpr CodeWord kPartHeaders[] = {
    {0x00, "Accept"},
    {0x03, "Accept-Language"},
    {0x04, "Accept-Ranges"},
    {0x05, "Age"},
    {0x06, "Allow"},
    {0x07, "Authorization"},
    {0x09, "Connection"},
    {0x0A, "Content-Base"},
    {0x0B, "Content-Encoding"},
    {0x0C, "Content-Language"},
    {0x0D, "Content-Length"},
    {0x0F, "Content-MD5"},
    {0x11, "Content-Type"},
    {0x12, "Date"},
    {0x13, "Etag"},
    {0x14, "Expires"},
    {0x15, "From"},
    {0x16, "Host"},
    {0x17, "If-Modified-Since"},
    {0x18, "If-Match"},
    {0x19, "If-None-Match"},
    {0x1A, "If-Range"},
    {0x1B, "If-Unmodified-Since"},
    {0x1C, "Location"},
    {0x1D, "Last-Modified"},
    {0x1E, "Max-Forwards"},
    {0x1F, "Pragma"},
    {0x20, "Proxy-Authenticate"},
    {0x21, "Proxy-Authorization"},
    {0x22, "Public"},
    {0x23, "Range"},
    {0x24, "Referer"},
    {0x25, "Retry-After"},
    {0x26, "Server"},
    {0x27, "Transfer-Encoding"},
    {0x28, "Upgrade"},
    {0x29, "User-Agent"},
    {0x2A, "Vary"},
    {0x2B, "Via"},
    {0x2C, "Warning"},
    {0x2D, "WWW-Authenticate"},
    {0x2F, "X-Wap-Application-Id"},
    {0x30, "X-Wap-Content-URI"},
    {0x31, "X-Wap-Initiator-URI"},
    {0x32, "Accept-Application"},
    {0x33, "Bearer-Indication"},
    {0x34, "Push-Flag"},
    {0x35, "Profile"},
    {0x36, "Profile-Diff"},
    {0x38, "Expect"},
    {0x39, "TE"},
    {0x3A, "Trailer"},
    {0x3B, "Accept-Charset"},
    {0x3C, "Accept-Encoding"},
    {0x3E, "Content-Range"},
    {0x3F, "X-Wap-Tod"},
    {0x41, "Set-Cookie"},
    {0x42, "Cookie"},
    {0x43, "Encoding-Version"},
    {0x44, "Profile-Warning"},
    {0x46, "X-Wap-Security"},
    {0x47, "Cache-Control"},
    {0x48, "X-Wap-Loc-Invocation"},
    {0x49, "X-Wap-Loc-Delivery"},
};

}  // namespace

std::string_view multimedia_heading_of(uint32_t type) {
    const std::string_view heading = word_of(kHeadings, type);
    return heading.empty() ? "Multimedia message of an unknown type" : heading;
}

std::span<const CodeWord> part_header_words() {
    return kPartHeaders;
}

std::span<const CodeWord> value_kind_words() {
    return kValueKinds;
}

std::span<const CodeWord> address_type_words() {
    return kAddressTypes;
}

std::span<const CodeWord> charset_words() {
    return kCharsets;
}

std::string hex_of(uint32_t number) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%02X", static_cast<unsigned>(number));
    return text;
}

std::optional<uint32_t> number_of_hex(std::string_view text) {
    if (!text.starts_with("0x")) return std::nullopt;
    uint32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data() + 2, end, number, 16);
    if (error != std::errc() || stop != end || hex_of(number) != text) return std::nullopt;
    return number;
}

}  // namespace vzconv
