#include "mms/mms_tables.h"

#include <algorithm>
#include <array>

#include "versit/ascii.h"
#include "vzapi/multimedia.h"

namespace vzapi::mms {
namespace {

constexpr HeaderRow kHeaders[] = {
    // clang-format off
    {VZ_MMS_HEADER_BCC,                     HeaderForm::Address,          "Bcc"},
    {VZ_MMS_HEADER_CC,                      HeaderForm::Address,          "Cc"},
    {VZ_MMS_HEADER_CONTENT_LOCATION,        HeaderForm::TextOrCounted,    "X-Mms-Content-Location"},
    {VZ_MMS_HEADER_CONTENT_TYPE,            HeaderForm::ContentType,      "Content-Type"},
    {VZ_MMS_HEADER_DATE,                    HeaderForm::Date,             "Date"},
    {VZ_MMS_HEADER_DELIVERY_REPORT,         HeaderForm::Octet,            "X-Mms-Delivery-Report"},
    {VZ_MMS_HEADER_DELIVERY_TIME,           HeaderForm::Time,             "X-Mms-Delivery-Time"},
    {VZ_MMS_HEADER_EXPIRY,                  HeaderForm::Time,             "X-Mms-Expiry"},
    {VZ_MMS_HEADER_FROM,                    HeaderForm::From,             "From"},
    {VZ_MMS_HEADER_MESSAGE_CLASS,           HeaderForm::OctetOrText,      "X-Mms-Message-Class"},
    {VZ_MMS_HEADER_MESSAGE_ID,              HeaderForm::Text,             "Message-ID"},
    {VZ_MMS_HEADER_MESSAGE_TYPE,            HeaderForm::Octet,            "X-Mms-Message-Type"},
    {VZ_MMS_HEADER_VERSION,                 HeaderForm::Version,          "X-Mms-MMS-Version"},
    {VZ_MMS_HEADER_MESSAGE_SIZE,            HeaderForm::LongInteger,      "X-Mms-Message-Size"},
    {VZ_MMS_HEADER_PRIORITY,                HeaderForm::Octet,            "X-Mms-Priority"},
    {VZ_MMS_HEADER_READ_REPORT,             HeaderForm::Octet,            "X-Mms-Read-Report"},
    {VZ_MMS_HEADER_REPORT_ALLOWED,          HeaderForm::Octet,            "X-Mms-Report-Allowed"},
    {VZ_MMS_HEADER_RESPONSE_STATUS,         HeaderForm::OctetOrCounted,   "X-Mms-Response-Status"},
    {VZ_MMS_HEADER_RESPONSE_TEXT,           HeaderForm::EncodedOrCounted, "X-Mms-Response-Text"},
    {VZ_MMS_HEADER_SENDER_VISIBILITY,       HeaderForm::Octet,            "X-Mms-Sender-Visibility"},
    {VZ_MMS_HEADER_STATUS,                  HeaderForm::Octet,            "X-Mms-Status"},
    {VZ_MMS_HEADER_SUBJECT,                 HeaderForm::EncodedText,      "Subject"},
    {VZ_MMS_HEADER_TO,                      HeaderForm::Address,          "To"},
    {VZ_MMS_HEADER_TRANSACTION_ID,          HeaderForm::Text,             "X-Mms-Transaction-Id"},
    {VZ_MMS_HEADER_RETRIEVE_STATUS,         HeaderForm::Octet,            "X-Mms-Retrieve-Status"},
    {VZ_MMS_HEADER_RETRIEVE_TEXT,           HeaderForm::EncodedText,      "X-Mms-Retrieve-Text"},
    {VZ_MMS_HEADER_READ_STATUS,             HeaderForm::Octet,            "X-Mms-Read-Status"},
    {VZ_MMS_HEADER_REPLY_CHARGING,          HeaderForm::Octet,            "X-Mms-Reply-Charging"},
    {VZ_MMS_HEADER_REPLY_CHARGING_DEADLINE, HeaderForm::Time,             "X-Mms-Reply-Charging-Deadline"},
    {VZ_MMS_HEADER_REPLY_CHARGING_ID,       HeaderForm::Text,             "X-Mms-Reply-Charging-ID"},
    {VZ_MMS_HEADER_REPLY_CHARGING_SIZE,     HeaderForm::LongInteger,      "X-Mms-Reply-Charging-Size"},
    {VZ_MMS_HEADER_PREVIOUSLY_SENT_BY,      HeaderForm::CountedAddress,   "X-Mms-Previously-Sent-By"},
    {VZ_MMS_HEADER_PREVIOUSLY_SENT_DATE,    HeaderForm::CountedDate,      "X-Mms-Previously-Sent-Date"},
    {VZ_MMS_HEADER_STORE,                   HeaderForm::Octet,            "X-Mms-Store"},
    {VZ_MMS_HEADER_MM_STATE,                HeaderForm::Octet,            "X-Mms-MM-State"},
    {VZ_MMS_HEADER_MM_FLAGS,                HeaderForm::MarkedText,       "X-Mms-MM-Flags"},
    {VZ_MMS_HEADER_STORE_STATUS,            HeaderForm::Octet,            "X-Mms-Store-Status"},
    {VZ_MMS_HEADER_STORE_STATUS_TEXT,       HeaderForm::EncodedText,      "X-Mms-Store-Status-Text"},
    {VZ_MMS_HEADER_STORED,                  HeaderForm::Octet,            "X-Mms-Stored"},
    {VZ_MMS_HEADER_ATTRIBUTES,              HeaderForm::Octet,            "X-Mms-Attributes"},
    {VZ_MMS_HEADER_TOTALS,                  HeaderForm::Octet,            "X-Mms-Totals"},
    {VZ_MMS_HEADER_MBOX_TOTALS,             HeaderForm::MarkedNumber,     "X-Mms-Mbox-Totals"},
    {VZ_MMS_HEADER_QUOTAS,                  HeaderForm::Octet,            "X-Mms-Quotas"},
    {VZ_MMS_HEADER_MBOX_QUOTAS,             HeaderForm::MarkedNumber,     "X-Mms-Mbox-Quotas"},
    {VZ_MMS_HEADER_MESSAGE_COUNT,           HeaderForm::Integer,          "X-Mms-Message-Count"},
    {VZ_MMS_HEADER_CONTENT,                 HeaderForm::Raw,              "Content"},
    {VZ_MMS_HEADER_START,                   HeaderForm::Integer,          "X-Mms-Start"},
    {VZ_MMS_HEADER_ADDITIONAL_HEADERS,      HeaderForm::Raw,              "Additional-headers"},
    {VZ_MMS_HEADER_DISTRIBUTION_INDICATOR,  HeaderForm::Octet,            "X-Mms-Distribution-Indicator"},
    {VZ_MMS_HEADER_ELEMENT_DESCRIPTOR,      HeaderForm::Raw,              "X-Mms-Element-Descriptor"},
    {VZ_MMS_HEADER_LIMIT,                   HeaderForm::Integer,          "X-Mms-Limit"},
    {VZ_MMS_HEADER_RETRIEVAL_MODE,          HeaderForm::Octet,            "X-Mms-Recommended-Retrieval-Mode"},
    {VZ_MMS_HEADER_RETRIEVAL_MODE_TEXT,     HeaderForm::EncodedText, "X-Mms-Recommended-Retrieval-Mode-Text"},
    {VZ_MMS_HEADER_STATUS_TEXT,             HeaderForm::EncodedText,      "X-Mms-Status-Text"},
    {VZ_MMS_HEADER_APPLIC_ID,               HeaderForm::Text,             "X-Mms-Applic-ID"},
    {VZ_MMS_HEADER_REPLY_APPLIC_ID,         HeaderForm::Text,             "X-Mms-Reply-Applic-ID"},
    {VZ_MMS_HEADER_AUX_APPLIC_INFO,         HeaderForm::Text,             "X-Mms-Aux-Applic-Info"},
    {VZ_MMS_HEADER_CONTENT_CLASS,           HeaderForm::Octet,            "X-Mms-Content-Class"},
    {VZ_MMS_HEADER_DRM_CONTENT,             HeaderForm::Octet,            "X-Mms-DRM-Content"},
    {VZ_MMS_HEADER_ADAPTATION_ALLOWED,      HeaderForm::Octet,            "X-Mms-Adaptation-Allowed"},
    {VZ_MMS_HEADER_REPLACE_ID,              HeaderForm::Text,             "X-Mms-Replace-ID"},
    {VZ_MMS_HEADER_CANCEL_ID,               HeaderForm::Text,             "X-Mms-Cancel-ID"},
    {VZ_MMS_HEADER_CANCEL_STATUS,           HeaderForm::Octet,            "X-Mms-Cancel-Status"},
    // clang-format on
};

constexpr std::uint32_t kFirstHeader = VZ_MMS_HEADER_BCC;

constexpr bool headers_are_complete() {
    for (std::size_t i = 0; i < std::size(kHeaders); ++i) {
        if (kHeaders[i].number != i + kFirstHeader) return false;
    }
    return true;
}
static_assert(headers_are_complete());

// By number. 0x0A and 0x16 have other names in some lists; 0x59 has none.
constexpr std::string_view kMedia[] = {
    // clang-format off
    "*/*",  // 0x00
    "text/*",  // 0x01
    "text/html",  // 0x02
    "text/plain",  // 0x03
    "text/x-hdml",  // 0x04
    "text/x-ttml",  // 0x05
    "text/x-vCalendar",  // 0x06
    "text/x-vCard",  // 0x07
    "text/vnd.wap.wml",  // 0x08
    "text/vnd.wap.wmlscript",  // 0x09
    "text/vnd.wap.wta-event",  // 0x0A
    "multipart/*",  // 0x0B
    "multipart/mixed",  // 0x0C
    "multipart/form-data",  // 0x0D
    "multipart/byteranges",  // 0x0E
    "multipart/alternative",  // 0x0F
    "application/*",  // 0x10
    "application/java-vm",  // 0x11
    "application/x-www-form-urlencoded",  // 0x12
    "application/x-hdmlc",  // 0x13
    "application/vnd.wap.wmlc",  // 0x14
    "application/vnd.wap.wmlscriptc",  // 0x15
    "application/vnd.wap.wta-eventc",  // 0x16
    "application/vnd.wap.uaprof",  // 0x17
    "application/vnd.wap.wtls-ca-certificate",  // 0x18
    "application/vnd.wap.wtls-user-certificate",  // 0x19
    "application/x-x509-ca-cert",  // 0x1A
    "application/x-x509-user-cert",  // 0x1B
    "image/*",  // 0x1C
    "image/gif",  // 0x1D
    "image/jpeg",  // 0x1E
    "image/tiff",  // 0x1F
    "image/png",  // 0x20
    "image/vnd.wap.wbmp",  // 0x21
    "application/vnd.wap.multipart.*",  // 0x22
    "application/vnd.wap.multipart.mixed",  // 0x23
    "application/vnd.wap.multipart.form-data",  // 0x24
    "application/vnd.wap.multipart.byteranges",  // 0x25
    "application/vnd.wap.multipart.alternative",  // 0x26
    "application/xml",  // 0x27
    "text/xml",  // 0x28
    "application/vnd.wap.wbxml",  // 0x29
    "application/x-x968-cross-cert",  // 0x2A
    "application/x-x968-ca-cert",  // 0x2B
    "application/x-x968-user-cert",  // 0x2C
    "text/vnd.wap.si",  // 0x2D
    "application/vnd.wap.sic",  // 0x2E
    "text/vnd.wap.sl",  // 0x2F
    "application/vnd.wap.slc",  // 0x30
    "text/vnd.wap.co",  // 0x31
    "application/vnd.wap.coc",  // 0x32
    "application/vnd.wap.multipart.related",  // 0x33
    "application/vnd.wap.sia",  // 0x34
    "text/vnd.wap.connectivity-xml",  // 0x35
    "application/vnd.wap.connectivity-wbxml",  // 0x36
    "application/pkcs7-mime",  // 0x37
    "application/vnd.wap.hashed-certificate",  // 0x38
    "application/vnd.wap.signed-certificate",  // 0x39
    "application/vnd.wap.cert-response",  // 0x3A
    "application/xhtml+xml",  // 0x3B
    "application/wml+xml",  // 0x3C
    "text/css",  // 0x3D
    "application/vnd.wap.mms-message",  // 0x3E
    "application/vnd.wap.rollover-certificate",  // 0x3F
    "application/vnd.wap.locc+wbxml",  // 0x40
    "application/vnd.wap.loc+xml",  // 0x41
    "application/vnd.syncml.dm+wbxml",  // 0x42
    "application/vnd.syncml.dm+xml",  // 0x43
    "application/vnd.syncml.notification",  // 0x44
    "application/vnd.wap.xhtml+xml",  // 0x45
    "application/vnd.wv.csp.cir",  // 0x46
    "application/vnd.oma.dd+xml",  // 0x47
    "application/vnd.oma.drm.message",  // 0x48
    "application/vnd.oma.drm.content",  // 0x49
    "application/vnd.oma.drm.rights+xml",  // 0x4A
    "application/vnd.oma.drm.rights+wbxml",  // 0x4B
    "application/vnd.wv.csp+xml",  // 0x4C
    "application/vnd.wv.csp+wbxml",  // 0x4D
    "application/vnd.syncml.ds.notification",  // 0x4E
    "audio/*",  // 0x4F
    "video/*",  // 0x50
    "application/vnd.oma.dd2+xml",  // 0x51
    "application/mikey",  // 0x52
    "application/vnd.oma.dcd",  // 0x53
    "application/vnd.oma.dcdc",  // 0x54
    "text/x-vMessage",  // 0x55
    "application/vnd.omads-email+wbxml",  // 0x56
    "text/x-vBookmark",  // 0x57
    "application/vnd.syncml.dm.notification",  // 0x58
    "",  // 0x59
    "application/octet-stream",  // 0x5A
    // clang-format on
};

// Registered by vendors: too large for a short integer.
struct MediaRow {
    std::uint32_t code;
    std::string_view media;
};

constexpr MediaRow kRegisteredMedia[] = {
    // clang-format off
    {0x0302, "application/vnd.syncml+xml"},
    {0x0303, "application/vnd.syncml+wbxml"},
    {0x0304, "text/vnd.wap.emn+xml"},
    {0x0305, "text/calendar"},
    {0x0309, "text/directory;profile=vCard"},  // registered with its parameter
    {0x030A, "application/vnd.wap.emn+wbxml"},
    // clang-format on
};

constexpr ParameterRow kParameters[] = {
    // clang-format off
    {0x00, ParameterForm::Q,            true,  "q"},
    {0x01, ParameterForm::Charset,      true,  "charset"},
    {0x02, ParameterForm::Version,      true,  "level"},
    {0x03, ParameterForm::Integer,      false, "type"},
    {0x05, ParameterForm::Text,         true,  "name"},
    {0x06, ParameterForm::Text,         true,  "filename"},
    {0x07, ParameterForm::FieldName,    true,  "differences"},
    {0x08, ParameterForm::ShortInteger, true,  "padding"},
    {0x09, ParameterForm::Type,         true,  "type"},
    {0x0A, ParameterForm::Text,         true,  "start"},
    {0x0B, ParameterForm::Text,         true,  "start-info"},
    {0x0C, ParameterForm::Text,         true,  "comment"},
    {0x0D, ParameterForm::Text,         true,  "domain"},
    {0x0E, ParameterForm::Seconds,      true,  "max-age"},
    {0x0F, ParameterForm::Text,         true,  "path"},
    {0x10, ParameterForm::None,         true,  "secure"},
    {0x11, ParameterForm::ShortInteger, true,  "sec"},
    {0x12, ParameterForm::Text,         true,  "mac"},
    {0x13, ParameterForm::Date,         true,  "creation-date"},
    {0x14, ParameterForm::Date,         true,  "modification-date"},
    {0x15, ParameterForm::Date,         true,  "read-date"},
    {0x16, ParameterForm::Integer,      true,  "size"},
    {0x17, ParameterForm::Text,         false, "name"},
    {0x18, ParameterForm::Text,         false, "filename"},
    {0x19, ParameterForm::Text,         false, "start"},
    {0x1A, ParameterForm::Text,         false, "start-info"},
    {0x1B, ParameterForm::Text,         false, "comment"},
    {0x1C, ParameterForm::Text,         false, "domain"},
    {0x1D, ParameterForm::Text,         false, "path"},
    // clang-format on
};

constexpr std::uint32_t kSendReq[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                      VZ_MMS_HEADER_FROM};
constexpr std::uint32_t kSendConf[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                       VZ_MMS_HEADER_RESPONSE_STATUS};
constexpr std::uint32_t kNotificationInd[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                              VZ_MMS_HEADER_MESSAGE_CLASS,  VZ_MMS_HEADER_MESSAGE_SIZE,
                                              VZ_MMS_HEADER_EXPIRY,         VZ_MMS_HEADER_CONTENT_LOCATION};
constexpr std::uint32_t kNotifyrespInd[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                            VZ_MMS_HEADER_STATUS};
constexpr std::uint32_t kRetrieveConf[] = {VZ_MMS_HEADER_VERSION, VZ_MMS_HEADER_DATE};
constexpr std::uint32_t kAcknowledgeInd[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION};
constexpr std::uint32_t kDeliveryInd[] = {VZ_MMS_HEADER_VERSION, VZ_MMS_HEADER_MESSAGE_ID, VZ_MMS_HEADER_TO,
                                          VZ_MMS_HEADER_DATE, VZ_MMS_HEADER_STATUS};
constexpr std::uint32_t kReadRecInd[] = {VZ_MMS_HEADER_VERSION, VZ_MMS_HEADER_MESSAGE_ID, VZ_MMS_HEADER_TO,
                                         VZ_MMS_HEADER_FROM, VZ_MMS_HEADER_READ_STATUS};
constexpr std::uint32_t kReadOrigInd[] = {VZ_MMS_HEADER_VERSION, VZ_MMS_HEADER_MESSAGE_ID,
                                          VZ_MMS_HEADER_TO,      VZ_MMS_HEADER_FROM,
                                          VZ_MMS_HEADER_DATE,    VZ_MMS_HEADER_READ_STATUS};
constexpr std::uint32_t kForwardReq[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                         VZ_MMS_HEADER_FROM, VZ_MMS_HEADER_CONTENT_LOCATION};
constexpr std::uint32_t kForwardConf[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                          VZ_MMS_HEADER_RESPONSE_STATUS};
constexpr std::uint32_t kMboxStoreReq[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                           VZ_MMS_HEADER_CONTENT_LOCATION};
constexpr std::uint32_t kMboxStoreConf[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                            VZ_MMS_HEADER_STORE_STATUS};
constexpr std::uint32_t kMboxViewReq[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION};
constexpr std::uint32_t kMboxViewConf[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                           VZ_MMS_HEADER_RESPONSE_STATUS};
constexpr std::uint32_t kMboxUploadReq[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION};
constexpr std::uint32_t kMboxUploadConf[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                             VZ_MMS_HEADER_STORE_STATUS};
constexpr std::uint32_t kMboxDeleteReq[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                            VZ_MMS_HEADER_CONTENT_LOCATION};
constexpr std::uint32_t kMboxDeleteConf[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                             VZ_MMS_HEADER_RESPONSE_STATUS};
constexpr std::uint32_t kMboxDescr[] = {VZ_MMS_HEADER_MESSAGE_ID};
constexpr std::uint32_t kDeleteReq[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                        VZ_MMS_HEADER_CONTENT_LOCATION};
constexpr std::uint32_t kDeleteConf[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                         VZ_MMS_HEADER_RESPONSE_STATUS};
constexpr std::uint32_t kCancelReq[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                        VZ_MMS_HEADER_CANCEL_ID};
constexpr std::uint32_t kCancelConf[] = {VZ_MMS_HEADER_TRANSACTION_ID, VZ_MMS_HEADER_VERSION,
                                         VZ_MMS_HEADER_CANCEL_STATUS};

constexpr PduRow kPdus[] = {
    // clang-format off
    {VZ_MMS_SEND_REQ,           true,  true,  "m-send-req",          kSendReq},
    {VZ_MMS_SEND_CONF,          false, false, "m-send-conf",         kSendConf},
    {VZ_MMS_NOTIFICATION_IND,   false, false, "m-notification-ind",  kNotificationInd},
    {VZ_MMS_NOTIFYRESP_IND,     false, false, "m-notifyresp-ind",    kNotifyrespInd},
    {VZ_MMS_RETRIEVE_CONF,      false, true,  "m-retrieve-conf",     kRetrieveConf},
    {VZ_MMS_ACKNOWLEDGE_IND,    false, false, "m-acknowledge-ind",   kAcknowledgeInd},
    {VZ_MMS_DELIVERY_IND,       false, false, "m-delivery-ind",      kDeliveryInd},
    {VZ_MMS_READ_REC_IND,       false, false, "m-read-rec-ind",      kReadRecInd},
    {VZ_MMS_READ_ORIG_IND,      false, false, "m-read-orig-ind",     kReadOrigInd},
    {VZ_MMS_FORWARD_REQ,        true,  false, "m-forward-req",       kForwardReq},
    {VZ_MMS_FORWARD_CONF,       false, false, "m-forward-conf",      kForwardConf},
    {VZ_MMS_MBOX_STORE_REQ,     false, false, "m-mbox-store-req",    kMboxStoreReq},
    {VZ_MMS_MBOX_STORE_CONF,    false, false, "m-mbox-store-conf",   kMboxStoreConf},
    {VZ_MMS_MBOX_VIEW_REQ,      false, false, "m-mbox-view-req",     kMboxViewReq},
    {VZ_MMS_MBOX_VIEW_CONF,     false, true,  "m-mbox-view-conf",    kMboxViewConf},
    {VZ_MMS_MBOX_UPLOAD_REQ,    false, true,  "m-mbox-upload-req",   kMboxUploadReq},
    {VZ_MMS_MBOX_UPLOAD_CONF,   false, false, "m-mbox-upload-conf",  kMboxUploadConf},
    {VZ_MMS_MBOX_DELETE_REQ,    false, false, "m-mbox-delete-req",   kMboxDeleteReq},
    {VZ_MMS_MBOX_DELETE_CONF,   false, false, "m-mbox-delete-conf",  kMboxDeleteConf},
    {VZ_MMS_MBOX_DESCR,         false, true,  "m-mbox-descr",        kMboxDescr},
    {VZ_MMS_DELETE_REQ,         false, false, "m-delete-req",        kDeleteReq},
    {VZ_MMS_DELETE_CONF,        false, false, "m-delete-conf",       kDeleteConf},
    {VZ_MMS_CANCEL_REQ,         false, false, "m-cancel-req",        kCancelReq},
    {VZ_MMS_CANCEL_CONF,        false, false, "m-cancel-conf",       kCancelConf},
    // clang-format on
};

constexpr bool pdus_are_complete() {
    for (std::size_t i = 0; i < std::size(kPdus); ++i) {
        if (kPdus[i].type != i + VZ_MMS_SEND_REQ) return false;
    }
    return true;
}
static_assert(pdus_are_complete());

bool same_name(std::u16string_view text, std::string_view name) noexcept {
    return text.size() == name.size() &&
           std::equal(text.begin(), text.end(), name.begin(), [](char16_t unit, char letter) {
               return versit::to_upper(unit) == static_cast<char16_t>(versit::to_upper(letter));
           });
}

}  // namespace

std::span<const HeaderRow> header_rows() noexcept {
    return kHeaders;
}

const HeaderRow* find_header(std::uint32_t number) noexcept {
    const std::uint32_t index = number - kFirstHeader;  // wraps around for 0
    return index < std::size(kHeaders) ? &kHeaders[index] : nullptr;
}

std::string_view media_of_code(std::uint32_t code) noexcept {
    if (code < std::size(kMedia)) return kMedia[code];
    const auto* row = std::find_if(std::begin(kRegisteredMedia), std::end(kRegisteredMedia),
                                   [code](const MediaRow& each) { return each.code == code; });
    return row == std::end(kRegisteredMedia) ? std::string_view{} : row->media;
}

std::optional<std::uint32_t> code_of_media(std::u16string_view media) noexcept {
    if (media.empty()) return std::nullopt;
    for (std::size_t code = 0; code < std::size(kMedia); ++code) {
        if (same_name(media, kMedia[code])) return static_cast<std::uint32_t>(code);
    }
    const auto* row = std::find_if(std::begin(kRegisteredMedia), std::end(kRegisteredMedia),
                                   [media](const MediaRow& each) { return same_name(media, each.media); });
    if (row == std::end(kRegisteredMedia)) return std::nullopt;
    return row->code;
}

std::span<const ParameterRow> parameter_rows() noexcept {
    return kParameters;
}

const ParameterRow* find_parameter(std::uint32_t number) noexcept {
    const auto* row = std::find_if(std::begin(kParameters), std::end(kParameters),
                                   [number](const ParameterRow& each) { return each.number == number; });
    return row == std::end(kParameters) ? nullptr : row;
}

const ParameterRow* find_parameter(std::u16string_view name) noexcept {
    const auto* row = std::find_if(
        std::begin(kParameters), std::end(kParameters),
        [name](const ParameterRow& each) { return each.is_written && same_name(name, each.name); });
    return row == std::end(kParameters) ? nullptr : row;
}

std::span<const PduRow> pdu_rows() noexcept {
    return kPdus;
}

const PduRow* find_pdu(std::uint32_t type) noexcept {
    const std::uint32_t index = type - VZ_MMS_SEND_REQ;  // wraps around for smaller ones
    return index < std::size(kPdus) ? &kPdus[index] : nullptr;
}

}  // namespace vzapi::mms
