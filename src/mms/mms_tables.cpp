#include "mms/mms_tables.h"

#include <algorithm>
#include <array>

#include "versit/ascii.h"
#include "vzapi/multimedia.h"

namespace vzapi::mms {
namespace {

constexpr HeaderRow kHeaders[] = {
    // clang-format off
    {VZ_MMS_HEADER_BCC,                     "Bcc",                                   HeaderForm::Address},
    {VZ_MMS_HEADER_CC,                      "Cc",                                    HeaderForm::Address},
    {VZ_MMS_HEADER_CONTENT_LOCATION,        "X-Mms-Content-Location",                HeaderForm::TextOrCounted},
    {VZ_MMS_HEADER_CONTENT_TYPE,            "Content-Type",                          HeaderForm::ContentType},
    {VZ_MMS_HEADER_DATE,                    "Date",                                  HeaderForm::Date},
    {VZ_MMS_HEADER_DELIVERY_REPORT,         "X-Mms-Delivery-Report",                 HeaderForm::Octet},
    {VZ_MMS_HEADER_DELIVERY_TIME,           "X-Mms-Delivery-Time",                   HeaderForm::Time},
    {VZ_MMS_HEADER_EXPIRY,                  "X-Mms-Expiry",                          HeaderForm::Time},
    {VZ_MMS_HEADER_FROM,                    "From",                                  HeaderForm::From},
    {VZ_MMS_HEADER_MESSAGE_CLASS,           "X-Mms-Message-Class",                   HeaderForm::OctetOrText},
    {VZ_MMS_HEADER_MESSAGE_ID,              "Message-ID",                            HeaderForm::Text},
    {VZ_MMS_HEADER_MESSAGE_TYPE,            "X-Mms-Message-Type",                    HeaderForm::Octet},
    {VZ_MMS_HEADER_VERSION,                 "X-Mms-MMS-Version",                     HeaderForm::Version},
    {VZ_MMS_HEADER_MESSAGE_SIZE,            "X-Mms-Message-Size",                    HeaderForm::LongInteger},
    {VZ_MMS_HEADER_PRIORITY,                "X-Mms-Priority",                        HeaderForm::Octet},
    {VZ_MMS_HEADER_READ_REPORT,             "X-Mms-Read-Report",                     HeaderForm::Octet},
    {VZ_MMS_HEADER_REPORT_ALLOWED,          "X-Mms-Report-Allowed",                  HeaderForm::Octet},
    {VZ_MMS_HEADER_RESPONSE_STATUS,         "X-Mms-Response-Status",                 HeaderForm::OctetOrCounted},
    {VZ_MMS_HEADER_RESPONSE_TEXT,           "X-Mms-Response-Text",                   HeaderForm::EncodedOrCounted},
    {VZ_MMS_HEADER_SENDER_VISIBILITY,       "X-Mms-Sender-Visibility",               HeaderForm::Octet},
    {VZ_MMS_HEADER_STATUS,                  "X-Mms-Status",                          HeaderForm::Octet},
    {VZ_MMS_HEADER_SUBJECT,                 "Subject",                               HeaderForm::EncodedText},
    {VZ_MMS_HEADER_TO,                      "To",                                    HeaderForm::Address},
    {VZ_MMS_HEADER_TRANSACTION_ID,          "X-Mms-Transaction-Id",                  HeaderForm::Text},
    {VZ_MMS_HEADER_RETRIEVE_STATUS,         "X-Mms-Retrieve-Status",                 HeaderForm::Octet},
    {VZ_MMS_HEADER_RETRIEVE_TEXT,           "X-Mms-Retrieve-Text",                   HeaderForm::EncodedText},
    {VZ_MMS_HEADER_READ_STATUS,             "X-Mms-Read-Status",                     HeaderForm::Octet},
    {VZ_MMS_HEADER_REPLY_CHARGING,          "X-Mms-Reply-Charging",                  HeaderForm::Octet},
    {VZ_MMS_HEADER_REPLY_CHARGING_DEADLINE, "X-Mms-Reply-Charging-Deadline",         HeaderForm::Time},
    {VZ_MMS_HEADER_REPLY_CHARGING_ID,       "X-Mms-Reply-Charging-ID",               HeaderForm::Text},
    {VZ_MMS_HEADER_REPLY_CHARGING_SIZE,     "X-Mms-Reply-Charging-Size",             HeaderForm::LongInteger},
    {VZ_MMS_HEADER_PREVIOUSLY_SENT_BY,      "X-Mms-Previously-Sent-By",              HeaderForm::CountedAddress},
    {VZ_MMS_HEADER_PREVIOUSLY_SENT_DATE,    "X-Mms-Previously-Sent-Date",            HeaderForm::CountedDate},
    {VZ_MMS_HEADER_STORE,                   "X-Mms-Store",                           HeaderForm::Octet},
    {VZ_MMS_HEADER_MM_STATE,                "X-Mms-MM-State",                        HeaderForm::Octet},
    {VZ_MMS_HEADER_MM_FLAGS,                "X-Mms-MM-Flags",                        HeaderForm::MarkedText},
    {VZ_MMS_HEADER_STORE_STATUS,            "X-Mms-Store-Status",                    HeaderForm::Octet},
    {VZ_MMS_HEADER_STORE_STATUS_TEXT,       "X-Mms-Store-Status-Text",               HeaderForm::EncodedText},
    {VZ_MMS_HEADER_STORED,                  "X-Mms-Stored",                          HeaderForm::Octet},
    {VZ_MMS_HEADER_ATTRIBUTES,              "X-Mms-Attributes",                      HeaderForm::Octet},
    {VZ_MMS_HEADER_TOTALS,                  "X-Mms-Totals",                          HeaderForm::Octet},
    {VZ_MMS_HEADER_MBOX_TOTALS,             "X-Mms-Mbox-Totals",                     HeaderForm::MarkedNumber},
    {VZ_MMS_HEADER_QUOTAS,                  "X-Mms-Quotas",                          HeaderForm::Octet},
    {VZ_MMS_HEADER_MBOX_QUOTAS,             "X-Mms-Mbox-Quotas",                     HeaderForm::MarkedNumber},
    {VZ_MMS_HEADER_MESSAGE_COUNT,           "X-Mms-Message-Count",                   HeaderForm::Integer},
    {VZ_MMS_HEADER_CONTENT,                 "Content",                               HeaderForm::Raw},
    {VZ_MMS_HEADER_START,                   "X-Mms-Start",                           HeaderForm::Integer},
    {VZ_MMS_HEADER_ADDITIONAL_HEADERS,      "Additional-headers",                    HeaderForm::Raw},
    {VZ_MMS_HEADER_DISTRIBUTION_INDICATOR,  "X-Mms-Distribution-Indicator",          HeaderForm::Octet},
    {VZ_MMS_HEADER_ELEMENT_DESCRIPTOR,      "X-Mms-Element-Descriptor",              HeaderForm::Raw},
    {VZ_MMS_HEADER_LIMIT,                   "X-Mms-Limit",                           HeaderForm::Integer},
    {VZ_MMS_HEADER_RETRIEVAL_MODE,          "X-Mms-Recommended-Retrieval-Mode",      HeaderForm::Octet},
    {VZ_MMS_HEADER_RETRIEVAL_MODE_TEXT,     "X-Mms-Recommended-Retrieval-Mode-Text", HeaderForm::EncodedText},
    {VZ_MMS_HEADER_STATUS_TEXT,             "X-Mms-Status-Text",                     HeaderForm::EncodedText},
    {VZ_MMS_HEADER_APPLIC_ID,               "X-Mms-Applic-ID",                       HeaderForm::Text},
    {VZ_MMS_HEADER_REPLY_APPLIC_ID,         "X-Mms-Reply-Applic-ID",                 HeaderForm::Text},
    {VZ_MMS_HEADER_AUX_APPLIC_INFO,         "X-Mms-Aux-Applic-Info",                 HeaderForm::Text},
    {VZ_MMS_HEADER_CONTENT_CLASS,           "X-Mms-Content-Class",                   HeaderForm::Octet},
    {VZ_MMS_HEADER_DRM_CONTENT,             "X-Mms-DRM-Content",                     HeaderForm::Octet},
    {VZ_MMS_HEADER_ADAPTATION_ALLOWED,      "X-Mms-Adaptation-Allowed",              HeaderForm::Octet},
    {VZ_MMS_HEADER_REPLACE_ID,              "X-Mms-Replace-ID",                      HeaderForm::Text},
    {VZ_MMS_HEADER_CANCEL_ID,               "X-Mms-Cancel-ID",                       HeaderForm::Text},
    {VZ_MMS_HEADER_CANCEL_STATUS,           "X-Mms-Cancel-Status",                   HeaderForm::Octet},
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
    {0x00, "q",                 ParameterForm::Q,            true},
    {0x01, "charset",           ParameterForm::Charset,      true},
    {0x02, "level",             ParameterForm::Version,      true},
    {0x03, "type",              ParameterForm::Integer,      false},
    {0x05, "name",              ParameterForm::Text,         true},
    {0x06, "filename",          ParameterForm::Text,         true},
    {0x07, "differences",       ParameterForm::FieldName,    true},
    {0x08, "padding",           ParameterForm::ShortInteger, true},
    {0x09, "type",              ParameterForm::Type,         true},
    {0x0A, "start",             ParameterForm::Text,         true},
    {0x0B, "start-info",        ParameterForm::Text,         true},
    {0x0C, "comment",           ParameterForm::Text,         true},
    {0x0D, "domain",            ParameterForm::Text,         true},
    {0x0E, "max-age",           ParameterForm::Seconds,      true},
    {0x0F, "path",              ParameterForm::Text,         true},
    {0x10, "secure",            ParameterForm::None,         true},
    {0x11, "sec",               ParameterForm::ShortInteger, true},
    {0x12, "mac",               ParameterForm::Text,         true},
    {0x13, "creation-date",     ParameterForm::Date,         true},
    {0x14, "modification-date", ParameterForm::Date,         true},
    {0x15, "read-date",         ParameterForm::Date,         true},
    {0x16, "size",              ParameterForm::Integer,      true},
    {0x17, "name",              ParameterForm::Text,         false},
    {0x18, "filename",          ParameterForm::Text,         false},
    {0x19, "start",             ParameterForm::Text,         false},
    {0x1A, "start-info",        ParameterForm::Text,         false},
    {0x1B, "comment",           ParameterForm::Text,         false},
    {0x1C, "domain",            ParameterForm::Text,         false},
    {0x1D, "path",              ParameterForm::Text,         false},
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
    {VZ_MMS_SEND_REQ,           "m-send-req",          kSendReq,          true,  true},
    {VZ_MMS_SEND_CONF,          "m-send-conf",         kSendConf,         false, false},
    {VZ_MMS_NOTIFICATION_IND,   "m-notification-ind",  kNotificationInd,  false, false},
    {VZ_MMS_NOTIFYRESP_IND,     "m-notifyresp-ind",    kNotifyrespInd,    false, false},
    {VZ_MMS_RETRIEVE_CONF,      "m-retrieve-conf",     kRetrieveConf,     false, true},
    {VZ_MMS_ACKNOWLEDGE_IND,    "m-acknowledge-ind",   kAcknowledgeInd,   false, false},
    {VZ_MMS_DELIVERY_IND,       "m-delivery-ind",      kDeliveryInd,      false, false},
    {VZ_MMS_READ_REC_IND,       "m-read-rec-ind",      kReadRecInd,       false, false},
    {VZ_MMS_READ_ORIG_IND,      "m-read-orig-ind",     kReadOrigInd,      false, false},
    {VZ_MMS_FORWARD_REQ,        "m-forward-req",       kForwardReq,       true,  false},
    {VZ_MMS_FORWARD_CONF,       "m-forward-conf",      kForwardConf,      false, false},
    {VZ_MMS_MBOX_STORE_REQ,     "m-mbox-store-req",    kMboxStoreReq,     false, false},
    {VZ_MMS_MBOX_STORE_CONF,    "m-mbox-store-conf",   kMboxStoreConf,    false, false},
    {VZ_MMS_MBOX_VIEW_REQ,      "m-mbox-view-req",     kMboxViewReq,      false, false},
    {VZ_MMS_MBOX_VIEW_CONF,     "m-mbox-view-conf",    kMboxViewConf,     false, true},
    {VZ_MMS_MBOX_UPLOAD_REQ,    "m-mbox-upload-req",   kMboxUploadReq,    false, true},
    {VZ_MMS_MBOX_UPLOAD_CONF,   "m-mbox-upload-conf",  kMboxUploadConf,   false, false},
    {VZ_MMS_MBOX_DELETE_REQ,    "m-mbox-delete-req",   kMboxDeleteReq,    false, false},
    {VZ_MMS_MBOX_DELETE_CONF,   "m-mbox-delete-conf",  kMboxDeleteConf,   false, false},
    {VZ_MMS_MBOX_DESCR,         "m-mbox-descr",        kMboxDescr,        false, true},
    {VZ_MMS_DELETE_REQ,         "m-delete-req",        kDeleteReq,        false, false},
    {VZ_MMS_DELETE_CONF,        "m-delete-conf",       kDeleteConf,       false, false},
    {VZ_MMS_CANCEL_REQ,         "m-cancel-req",        kCancelReq,        false, false},
    {VZ_MMS_CANCEL_CONF,        "m-cancel-conf",       kCancelConf,       false, false},
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
