#include "vzconv/multimedia_header_words.h"

#include <array>

#include "vzapi/multimedia.h"

namespace vzconv {
namespace {

constexpr CodeWord kTypes[] = {
    {VZ_MMS_SEND_REQ, "m-send-req"},
    {VZ_MMS_SEND_CONF, "m-send-conf"},
    {VZ_MMS_NOTIFICATION_IND, "m-notification-ind"},
    {VZ_MMS_NOTIFYRESP_IND, "m-notifyresp-ind"},
    {VZ_MMS_RETRIEVE_CONF, "m-retrieve-conf"},
    {VZ_MMS_ACKNOWLEDGE_IND, "m-acknowledge-ind"},
    {VZ_MMS_DELIVERY_IND, "m-delivery-ind"},
    {VZ_MMS_READ_REC_IND, "m-read-rec-ind"},
    {VZ_MMS_READ_ORIG_IND, "m-read-orig-ind"},
    {VZ_MMS_FORWARD_REQ, "m-forward-req"},
    {VZ_MMS_FORWARD_CONF, "m-forward-conf"},
    {VZ_MMS_MBOX_STORE_REQ, "m-mbox-store-req"},
    {VZ_MMS_MBOX_STORE_CONF, "m-mbox-store-conf"},
    {VZ_MMS_MBOX_VIEW_REQ, "m-mbox-view-req"},
    {VZ_MMS_MBOX_VIEW_CONF, "m-mbox-view-conf"},
    {VZ_MMS_MBOX_UPLOAD_REQ, "m-mbox-upload-req"},
    {VZ_MMS_MBOX_UPLOAD_CONF, "m-mbox-upload-conf"},
    {VZ_MMS_MBOX_DELETE_REQ, "m-mbox-delete-req"},
    {VZ_MMS_MBOX_DELETE_CONF, "m-mbox-delete-conf"},
    {VZ_MMS_MBOX_DESCR, "m-mbox-descr"},
    {VZ_MMS_DELETE_REQ, "m-delete-req"},
    {VZ_MMS_DELETE_CONF, "m-delete-conf"},
    {VZ_MMS_CANCEL_REQ, "m-cancel-req"},
    {VZ_MMS_CANCEL_CONF, "m-cancel-conf"},
};

constexpr CodeWord kYesNo[] = {
    {VZ_MMS_YES, "yes"},
    {VZ_MMS_NO, "no"},
};

constexpr CodeWord kClasses[] = {
    {VZ_MMS_CLASS_PERSONAL, "personal"},
    {VZ_MMS_CLASS_ADVERTISEMENT, "advertisement"},
    {VZ_MMS_CLASS_INFORMATIONAL, "informational"},
    {VZ_MMS_CLASS_AUTO, "auto"},
};

constexpr CodeWord kPriorities[] = {
    {VZ_MMS_PRIORITY_LOW, "low"},
    {VZ_MMS_PRIORITY_NORMAL, "normal"},
    {VZ_MMS_PRIORITY_HIGH, "high"},
};

constexpr CodeWord kVisibilities[] = {
    {VZ_MMS_SENDER_HIDE, "hide"},
    {VZ_MMS_SENDER_SHOW, "show"},
};

constexpr CodeWord kStatuses[] = {
    {VZ_MMS_STATUS_EXPIRED, "expired"},           {VZ_MMS_STATUS_RETRIEVED, "retrieved"},
    {VZ_MMS_STATUS_REJECTED, "rejected"},         {VZ_MMS_STATUS_DEFERRED, "deferred"},
    {VZ_MMS_STATUS_UNRECOGNISED, "unrecognised"}, {VZ_MMS_STATUS_INDETERMINATE, "indeterminate"},
    {VZ_MMS_STATUS_FORWARDED, "forwarded"},       {VZ_MMS_STATUS_UNREACHABLE, "unreachable"},
};

constexpr CodeWord kReadings[] = {
    {VZ_MMS_READ_READ, "read"},
    {VZ_MMS_READ_DELETED_UNREAD, "deleted without being read"},
};

constexpr CodeWord kChargings[] = {
    {VZ_MMS_CHARGING_REQUESTED, "requested"},
    {VZ_MMS_CHARGING_REQUESTED_TEXT_ONLY, "requested text only"},
    {VZ_MMS_CHARGING_ACCEPTED, "accepted"},
    {VZ_MMS_CHARGING_ACCEPTED_TEXT_ONLY, "accepted text only"},
};

constexpr CodeWord kStates[] = {
    {VZ_MMS_STATE_DRAFT, "draft"},         {VZ_MMS_STATE_SENT, "sent"},           {VZ_MMS_STATE_NEW, "new"},
    {VZ_MMS_STATE_RETRIEVED, "retrieved"}, {VZ_MMS_STATE_FORWARDED, "forwarded"},
};

constexpr CodeWord kContentClasses[] = {
    {VZ_MMS_CONTENT_TEXT, "text"},
    {VZ_MMS_CONTENT_IMAGE_BASIC, "image-basic"},
    {VZ_MMS_CONTENT_IMAGE_RICH, "image-rich"},
    {VZ_MMS_CONTENT_VIDEO_BASIC, "video-basic"},
    {VZ_MMS_CONTENT_VIDEO_RICH, "video-rich"},
    {VZ_MMS_CONTENT_MEGAPIXEL, "megapixel"},
    {VZ_MMS_CONTENT_CONTENT_BASIC, "content-basic"},
    {VZ_MMS_CONTENT_CONTENT_RICH, "content-rich"},
};

constexpr CodeWord kCancellings[] = {
    {VZ_MMS_CANCEL_REQUEST_RECEIVED, "request received"},
    {VZ_MMS_CANCEL_REQUEST_CORRUPTED, "request corrupted"},
};

constexpr CodeWord kModes[] = {
    {VZ_MMS_RETRIEVAL_MANUAL, "manual"},
};

constexpr CodeWord kResponses[] = {
    {VZ_MMS_RESPONSE_OK, "ok"},
    {VZ_MMS_RESPONSE_UNSPECIFIED, "unspecified error"},
    {VZ_MMS_RESPONSE_SERVICE_DENIED, "service denied"},
    {VZ_MMS_RESPONSE_FORMAT_CORRUPT, "message format corrupt"},
    {VZ_MMS_RESPONSE_ADDRESS_UNRESOLVED, "sending address unresolved"},
    {VZ_MMS_RESPONSE_MESSAGE_NOT_FOUND, "message not found"},
    {VZ_MMS_RESPONSE_NETWORK_PROBLEM, "network problem"},
    {VZ_MMS_RESPONSE_CONTENT_NOT_ACCEPTED, "content not accepted"},
    {VZ_MMS_RESPONSE_UNSUPPORTED_MESSAGE, "unsupported message"},
    {VZ_MMS_RESPONSE_TRANSIENT_FAILURE, "transient failure"},
    {VZ_MMS_RESPONSE_TRANSIENT_ADDRESS_UNRESOLVED, "transient: sending address unresolved"},
    {VZ_MMS_RESPONSE_TRANSIENT_MESSAGE_NOT_FOUND, "transient: message not found"},
    {VZ_MMS_RESPONSE_TRANSIENT_NETWORK_PROBLEM, "transient: network problem"},
    {VZ_MMS_RESPONSE_TRANSIENT_PARTIAL_SUCCESS, "transient: partial success"},
    {VZ_MMS_RESPONSE_PERMANENT_FAILURE, "permanent failure"},
    {VZ_MMS_RESPONSE_PERMANENT_SERVICE_DENIED, "permanent: service denied"},
    {VZ_MMS_RESPONSE_PERMANENT_FORMAT_CORRUPT, "permanent: message format corrupt"},
    {VZ_MMS_RESPONSE_PERMANENT_ADDRESS_UNRESOLVED, "permanent: sending address unresolved"},
    {VZ_MMS_RESPONSE_PERMANENT_MESSAGE_NOT_FOUND, "permanent: message not found"},
    {VZ_MMS_RESPONSE_PERMANENT_CONTENT_NOT_ACCEPTED, "permanent: content not accepted"},
    {VZ_MMS_RESPONSE_PERMANENT_CHARGING_LIMITATIONS, "permanent: reply charging limitations not met"},
    {VZ_MMS_RESPONSE_PERMANENT_CHARGING_NOT_ACCEPTED, "permanent: reply charging request not accepted"},
    {VZ_MMS_RESPONSE_PERMANENT_CHARGING_FORWARDING, "permanent: reply charging forwarding denied"},
    {VZ_MMS_RESPONSE_PERMANENT_CHARGING_UNSUPPORTED, "permanent: reply charging not supported"},
    {VZ_MMS_RESPONSE_PERMANENT_HIDING_UNSUPPORTED, "permanent: address hiding not supported"},
    {VZ_MMS_RESPONSE_PERMANENT_LACK_OF_PREPAID, "permanent: lack of prepaid"},
};

constexpr CodeWord kRetrievals[] = {
    {VZ_MMS_RETRIEVE_OK, "ok"},
    {VZ_MMS_RETRIEVE_TRANSIENT_FAILURE, "transient failure"},
    {VZ_MMS_RETRIEVE_TRANSIENT_MESSAGE_NOT_FOUND, "transient: message not found"},
    {VZ_MMS_RETRIEVE_TRANSIENT_NETWORK_PROBLEM, "transient: network problem"},
    {VZ_MMS_RETRIEVE_PERMANENT_FAILURE, "permanent failure"},
    {VZ_MMS_RETRIEVE_PERMANENT_SERVICE_DENIED, "permanent: service denied"},
    {VZ_MMS_RETRIEVE_PERMANENT_MESSAGE_NOT_FOUND, "permanent: message not found"},
    {VZ_MMS_RETRIEVE_PERMANENT_CONTENT_UNSUPPORTED, "permanent: content unsupported"},
};

constexpr CodeWord kStorings[] = {
    {VZ_MMS_STORE_STATUS_SUCCESS, "success"},
    {VZ_MMS_STORE_STATUS_TRANSIENT_FAILURE, "transient failure"},
    {VZ_MMS_STORE_STATUS_TRANSIENT_NETWORK_PROBLEM, "transient: network problem"},
    {VZ_MMS_STORE_STATUS_PERMANENT_FAILURE, "permanent failure"},
    {VZ_MMS_STORE_STATUS_PERMANENT_SERVICE_DENIED, "permanent: service denied"},
    {VZ_MMS_STORE_STATUS_PERMANENT_FORMAT_CORRUPT, "permanent: message format corrupt"},
    {VZ_MMS_STORE_STATUS_PERMANENT_MESSAGE_NOT_FOUND, "permanent: message not found"},
    {VZ_MMS_STORE_STATUS_PERMANENT_MAILBOX_FULL, "permanent: mailbox full"},
};

constexpr CodeWord kFlagMarks[] = {
    {VZ_MMS_FLAGS_ADD, "add"},
    {VZ_MMS_FLAGS_REMOVE, "remove"},
    {VZ_MMS_FLAGS_FILTER, "filter"},
};

constexpr CodeWord kTotalMarks[] = {
    {VZ_MMS_TOTAL_MESSAGES, "messages"},
    {VZ_MMS_TOTAL_OCTETS, "octets"},
};

constexpr uint32_t kNumber = VZ_MMS_VALUE_NUMBER;
constexpr uint32_t kDate = VZ_MMS_VALUE_DATE;
constexpr uint32_t kText = VZ_MMS_VALUE_TEXT;
constexpr uint32_t kEncodedText = VZ_MMS_VALUE_ENCODED_TEXT;
constexpr uint32_t kAddress = VZ_MMS_VALUE_ADDRESS;
constexpr uint32_t kTime = VZ_MMS_VALUE_TIME;
constexpr uint32_t kCountedDate = VZ_MMS_VALUE_COUNTED_DATE;
constexpr uint32_t kCountedAddress = VZ_MMS_VALUE_COUNTED_ADDRESS;
constexpr uint32_t kMarkedText = VZ_MMS_VALUE_MARKED_TEXT;
constexpr uint32_t kMarkedNumber = VZ_MMS_VALUE_MARKED_NUMBER;
constexpr uint32_t kRaw = VZ_MMS_VALUE_RAW;

constexpr MultimediaHeaderWord kHeaders[] = {
    // clang-format off
    {0x01, kAddress,        "Bcc",                                   "Bcc",               {}},
    {0x02, kAddress,        "Cc",                                    "Cc",                {}},
    {0x03, kText,           "X-Mms-Content-Location",                "Stored at",         {}},
    {0x04, kRaw,            "Content-Type",                          "",                  {}},
    {0x05, kDate,           "Date",                                  "Date",              {}},
    {0x06, kNumber,         "X-Mms-Delivery-Report",                 "Delivery report",   kYesNo},
    {0x07, kTime,           "X-Mms-Delivery-Time",                   "Deliver",           {}},
    {0x08, kTime,           "X-Mms-Expiry",                          "Expires",           {}},
    {0x09, kAddress,        "From",                                  "From",              {}},
    {0x0A, kNumber,         "X-Mms-Message-Class",                   "Class",             kClasses},
    {0x0B, kText,           "Message-ID",                            "Message ID",        {}},
    {0x0C, kNumber,         "X-Mms-Message-Type",                    "",                  kTypes},
    {0x0D, kNumber,         "X-Mms-MMS-Version",                     "",                  {}},
    {0x0E, kNumber,         "X-Mms-Message-Size",                    "Size",              {}},
    {0x0F, kNumber,         "X-Mms-Priority",                        "Priority",          kPriorities},
    {0x10, kNumber,         "X-Mms-Read-Report",                     "Read report",       kYesNo},
    {0x11, kNumber,         "X-Mms-Report-Allowed",                  "Report allowed",    kYesNo},
    {0x12, kNumber,         "X-Mms-Response-Status",                 "Response",          kResponses},
    {0x13, kEncodedText,    "X-Mms-Response-Text",                   "Response text",     {}},
    {0x14, kNumber,         "X-Mms-Sender-Visibility",               "Sender address",    kVisibilities},
    {0x15, kNumber,         "X-Mms-Status",                          "Status",            kStatuses},
    {0x16, kEncodedText,    "Subject",                               "Subject",           {}},
    {0x17, kAddress,        "To",                                    "To",                {}},
    {0x18, kText,           "X-Mms-Transaction-Id",                  "",                  {}},
    {0x19, kNumber,         "X-Mms-Retrieve-Status",                 "Retrieval",         kRetrievals},
    {0x1A, kEncodedText,    "X-Mms-Retrieve-Text",                   "Retrieval text",    {}},
    {0x1B, kNumber,         "X-Mms-Read-Status",                     "Read status",       kReadings},
    {0x1C, kNumber,         "X-Mms-Reply-Charging",                  "Reply charging",    kChargings},
    {0x1D, kTime,           "X-Mms-Reply-Charging-Deadline",         "Reply by",          {}},
    {0x1E, kText,           "X-Mms-Reply-Charging-ID",               "Reply to",          {}},
    {0x1F, kNumber,         "X-Mms-Reply-Charging-Size",             "Reply size",        {}},
    {0x20, kCountedAddress, "X-Mms-Previously-Sent-By",              "Sent before by",    {}},
    {0x21, kCountedDate,    "X-Mms-Previously-Sent-Date",            "Sent before on",    {}},
    {0x22, kNumber,         "X-Mms-Store",                           "Store",             kYesNo},
    {0x23, kNumber,         "X-Mms-MM-State",                        "State",             kStates},
    {0x24, kMarkedText,     "X-Mms-MM-Flags",                        "Flags",             {}},
    {0x25, kNumber,         "X-Mms-Store-Status",                    "Storing",           kStorings},
    {0x26, kEncodedText,    "X-Mms-Store-Status-Text",               "Storing text",      {}},
    {0x27, kNumber,         "X-Mms-Stored",                          "Stored",            kYesNo},
    {0x28, kNumber,         "X-Mms-Attributes",                      "Attribute",         {}},
    {0x29, kNumber,         "X-Mms-Totals",                          "Totals",            kYesNo},
    {0x2A, kMarkedNumber,   "X-Mms-Mbox-Totals",                     "In mailbox",        {}},
    {0x2B, kNumber,         "X-Mms-Quotas",                          "Quotas",            kYesNo},
    {0x2C, kMarkedNumber,   "X-Mms-Mbox-Quotas",                     "Room in mailbox",   {}},
    {0x2D, kNumber,         "X-Mms-Message-Count",                   "Messages",          {}},
    {0x2E, kRaw,            "Content",                               "",                  {}},
    {0x2F, kNumber,         "X-Mms-Start",                           "Start",             {}},
    {0x30, kRaw,            "Additional-headers",                    "",                  {}},
    {0x31, kNumber,         "X-Mms-Distribution-Indicator",          "May be passed on",  kYesNo},
    {0x32, kRaw,            "X-Mms-Element-Descriptor",              "",                  {}},
    {0x33, kNumber,         "X-Mms-Limit",                           "Limit",             {}},
    {0x34, kNumber,         "X-Mms-Recommended-Retrieval-Mode",      "Retrieve",          kModes},
    {0x35, kEncodedText,    "X-Mms-Recommended-Retrieval-Mode-Text", "Retrieve text",     {}},
    {0x36, kEncodedText,    "X-Mms-Status-Text",                     "Status text",       {}},
    {0x37, kText,           "X-Mms-Applic-ID",                       "Application",       {}},
    {0x38, kText,           "X-Mms-Reply-Applic-ID",                 "Reply application", {}},
    {0x39, kText,           "X-Mms-Aux-Applic-Info",                 "Application info",  {}},
    {0x3A, kNumber,         "X-Mms-Content-Class",                   "Content class",     kContentClasses},
    {0x3B, kNumber,         "X-Mms-DRM-Content",                     "Protected",         kYesNo},
    {0x3C, kNumber,         "X-Mms-Adaptation-Allowed",              "May be adapted",    kYesNo},
    {0x3D, kText,           "X-Mms-Replace-ID",                      "Replaces",          {}},
    {0x3E, kText,           "X-Mms-Cancel-ID",                       "Cancels",           {}},
    {0x3F, kNumber,         "X-Mms-Cancel-Status",                   "Cancelling",        kCancellings},
    // clang-format on
};

constexpr uint32_t kFirstHeader = VZ_MMS_HEADER_BCC;

constexpr bool headers_are_complete() {
    for (std::size_t i = 0; i < std::size(kHeaders); ++i) {
        if (kHeaders[i].number != i + kFirstHeader) return false;
    }
    return true;
}
static_assert(headers_are_complete());

// An attribute is a header, by its octet in the PDU.
constexpr auto make_attributes() {
    std::array<CodeWord, std::size(kHeaders)> words{};
    for (std::size_t i = 0; i < words.size(); ++i) words[i] = {kHeaders[i].number | 0x80, kHeaders[i].name};
    return words;
}
constexpr auto kAttributes = make_attributes();

std::span<const CodeWord> codes_of(uint32_t header) {
    if (header == VZ_MMS_HEADER_ATTRIBUTES) return kAttributes;
    const MultimediaHeaderWord* word = multimedia_header_of(header);
    return word == nullptr ? std::span<const CodeWord>() : word->codes;
}

constexpr uint32_t kNoMinor = 15;  // of a version that is a major number alone

std::string version_of(uint64_t number) {
    if (number > 0x7F) return {};
    const std::string major = std::to_string(number >> 4);
    return (number & 0xF) == kNoMinor ? major : major + "." + std::to_string(number & 0xF);
}

std::optional<uint64_t> number_of_version(std::string_view text) {
    for (uint64_t number = 0; number <= 0x7F; ++number) {
        if (version_of(number) == text) return number;
    }
    return std::nullopt;
}

}  // namespace

std::span<const CodeWord> multimedia_type_words() {
    return kTypes;
}

const MultimediaHeaderWord* multimedia_header_of(uint32_t number) {
    const uint32_t index = number - kFirstHeader;  // wraps around for 0
    return index < std::size(kHeaders) ? &kHeaders[index] : nullptr;
}

const MultimediaHeaderWord* multimedia_header_of(std::string_view name) {
    for (const MultimediaHeaderWord& row : kHeaders) {
        if (row.name == name) return &row;
    }
    return nullptr;
}

std::span<const CodeWord> mark_words(uint32_t header) {
    if (header == VZ_MMS_HEADER_MM_FLAGS) return kFlagMarks;
    return kTotalMarks;
}

std::string value_word_of(uint32_t header, uint64_t number) {
    if (header == VZ_MMS_HEADER_VERSION) return version_of(number);
    if (number > 0xFF) return {};
    return std::string(word_of(codes_of(header), static_cast<uint32_t>(number)));
}

std::optional<uint64_t> value_of_word(uint32_t header, std::string_view word) {
    if (header == VZ_MMS_HEADER_VERSION) return number_of_version(word);
    return code_of(codes_of(header), word);
}

}  // namespace vzconv
