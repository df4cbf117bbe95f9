/*
 * The multimedia record: VZ_OBJECT_MULTIMEDIA of the data-object family, one PDU of the Multimedia Messaging
 * Service (OMA MMS Encapsulation 1.0 to 1.3, WSP 1.x binary encoding).
 */
#ifndef VZAPI_MULTIMEDIA_H
#define VZAPI_MULTIMEDIA_H

#include "vzapi/base.h"

#if defined(__cplusplus)
extern "C" {
#endif

/* `messageType`: X-Mms-Message-Type. */
enum {
    VZ_MMS_TYPE_NONE = 0, /* the PDU does not say; such a record cannot be encoded */
    VZ_MMS_SEND_REQ = 0x80,
    VZ_MMS_SEND_CONF = 0x81,
    VZ_MMS_NOTIFICATION_IND = 0x82,
    VZ_MMS_NOTIFYRESP_IND = 0x83,
    VZ_MMS_RETRIEVE_CONF = 0x84,
    VZ_MMS_ACKNOWLEDGE_IND = 0x85,
    VZ_MMS_DELIVERY_IND = 0x86,
    VZ_MMS_READ_REC_IND = 0x87,
    VZ_MMS_READ_ORIG_IND = 0x88,
    VZ_MMS_FORWARD_REQ = 0x89,
    VZ_MMS_FORWARD_CONF = 0x8A,
    VZ_MMS_MBOX_STORE_REQ = 0x8B,
    VZ_MMS_MBOX_STORE_CONF = 0x8C,
    VZ_MMS_MBOX_VIEW_REQ = 0x8D,
    VZ_MMS_MBOX_VIEW_CONF = 0x8E,
    VZ_MMS_MBOX_UPLOAD_REQ = 0x8F,
    VZ_MMS_MBOX_UPLOAD_CONF = 0x90,
    VZ_MMS_MBOX_DELETE_REQ = 0x91,
    VZ_MMS_MBOX_DELETE_CONF = 0x92,
    VZ_MMS_MBOX_DESCR = 0x93,
    VZ_MMS_DELETE_REQ = 0x94,
    VZ_MMS_DELETE_CONF = 0x95,
    VZ_MMS_CANCEL_REQ = 0x96,
    VZ_MMS_CANCEL_CONF = 0x97,
};

/* `number` of a MultimediaHeader in `headers` of a MultimediaItem: the field number of the PDU, which is its
 * octet on the wire less 0x80. The comment gives the value kind, see VZ_MMS_VALUE_. */
enum {
    VZ_MMS_HEADER_APPLICATION = 0x00,       /* named by a text; named text */
    VZ_MMS_HEADER_BCC = 0x01,               /* address */
    VZ_MMS_HEADER_CC = 0x02,                /* address */
    VZ_MMS_HEADER_CONTENT_LOCATION = 0x03,  /* text; counted text in the replies to a deletion */
    VZ_MMS_HEADER_CONTENT_TYPE = 0x04,      /* not in the list: it is that of the body part */
    VZ_MMS_HEADER_DATE = 0x05,              /* date */
    VZ_MMS_HEADER_DELIVERY_REPORT = 0x06,   /* number, VZ_MMS_YES or VZ_MMS_NO */
    VZ_MMS_HEADER_DELIVERY_TIME = 0x07,     /* time */
    VZ_MMS_HEADER_EXPIRY = 0x08,            /* time */
    VZ_MMS_HEADER_FROM = 0x09,              /* address */
    VZ_MMS_HEADER_MESSAGE_CLASS = 0x0A,     /* number, VZ_MMS_CLASS_; text for any other class */
    VZ_MMS_HEADER_MESSAGE_ID = 0x0B,        /* text */
    VZ_MMS_HEADER_MESSAGE_TYPE = 0x0C,      /* in the list only where a PDU has it a second time; number */
    VZ_MMS_HEADER_VERSION = 0x0D,           /* number, VZ_MMS_VERSION_ */
    VZ_MMS_HEADER_MESSAGE_SIZE = 0x0E,      /* number */
    VZ_MMS_HEADER_PRIORITY = 0x0F,          /* number, VZ_MMS_PRIORITY_ */
    VZ_MMS_HEADER_READ_REPORT = 0x10,       /* number, VZ_MMS_YES or VZ_MMS_NO */
    VZ_MMS_HEADER_REPORT_ALLOWED = 0x11,    /* number, VZ_MMS_YES or VZ_MMS_NO */
    VZ_MMS_HEADER_RESPONSE_STATUS = 0x12,   /* number, VZ_MMS_RESPONSE_; counted number */
    VZ_MMS_HEADER_RESPONSE_TEXT = 0x13,     /* encoded text; counted text */
    VZ_MMS_HEADER_SENDER_VISIBILITY = 0x14, /* number, VZ_MMS_SENDER_ */
    VZ_MMS_HEADER_STATUS = 0x15,            /* number, VZ_MMS_STATUS_ */
    VZ_MMS_HEADER_SUBJECT = 0x16,           /* encoded text */
    VZ_MMS_HEADER_TO = 0x17,                /* address */
    VZ_MMS_HEADER_TRANSACTION_ID = 0x18,    /* text */
    VZ_MMS_HEADER_RETRIEVE_STATUS = 0x19,   /* number, VZ_MMS_RETRIEVE_ */
    VZ_MMS_HEADER_RETRIEVE_TEXT = 0x1A,     /* encoded text */
    VZ_MMS_HEADER_READ_STATUS = 0x1B,       /* number, VZ_MMS_READ_ */
    VZ_MMS_HEADER_REPLY_CHARGING = 0x1C,    /* number, VZ_MMS_CHARGING_ */
    VZ_MMS_HEADER_REPLY_CHARGING_DEADLINE = 0x1D, /* time */
    VZ_MMS_HEADER_REPLY_CHARGING_ID = 0x1E,       /* text */
    VZ_MMS_HEADER_REPLY_CHARGING_SIZE = 0x1F,     /* number */
    VZ_MMS_HEADER_PREVIOUSLY_SENT_BY = 0x20,      /* counted address */
    VZ_MMS_HEADER_PREVIOUSLY_SENT_DATE = 0x21,    /* counted date */
    VZ_MMS_HEADER_STORE = 0x22,                   /* number, VZ_MMS_YES or VZ_MMS_NO */
    VZ_MMS_HEADER_MM_STATE = 0x23,                /* number, VZ_MMS_STATE_ */
    VZ_MMS_HEADER_MM_FLAGS = 0x24,                /* marked text, VZ_MMS_FLAGS_ */
    VZ_MMS_HEADER_STORE_STATUS = 0x25,            /* number, VZ_MMS_STORE_STATUS_ */
    VZ_MMS_HEADER_STORE_STATUS_TEXT = 0x26,       /* encoded text */
    VZ_MMS_HEADER_STORED = 0x27,                  /* number, VZ_MMS_YES or VZ_MMS_NO */
    VZ_MMS_HEADER_ATTRIBUTES = 0x28,              /* number, the octet of a field on the wire */
    VZ_MMS_HEADER_TOTALS = 0x29,                  /* number, VZ_MMS_YES or VZ_MMS_NO */
    VZ_MMS_HEADER_MBOX_TOTALS = 0x2A,             /* marked number, VZ_MMS_TOTAL_ */
    VZ_MMS_HEADER_QUOTAS = 0x2B,                  /* number, VZ_MMS_YES or VZ_MMS_NO */
    VZ_MMS_HEADER_MBOX_QUOTAS = 0x2C,             /* marked number, VZ_MMS_TOTAL_ */
    VZ_MMS_HEADER_MESSAGE_COUNT = 0x2D,           /* number */
    VZ_MMS_HEADER_CONTENT = 0x2E,                 /* raw */
    VZ_MMS_HEADER_START = 0x2F,                   /* number */
    VZ_MMS_HEADER_ADDITIONAL_HEADERS = 0x30,      /* raw */
    VZ_MMS_HEADER_DISTRIBUTION_INDICATOR = 0x31,  /* number, VZ_MMS_YES or VZ_MMS_NO */
    VZ_MMS_HEADER_ELEMENT_DESCRIPTOR = 0x32,      /* raw */
    VZ_MMS_HEADER_LIMIT = 0x33,                   /* number */
    VZ_MMS_HEADER_RETRIEVAL_MODE = 0x34,          /* number, VZ_MMS_RETRIEVAL_MANUAL */
    VZ_MMS_HEADER_RETRIEVAL_MODE_TEXT = 0x35,     /* encoded text */
    VZ_MMS_HEADER_STATUS_TEXT = 0x36,             /* encoded text */
    VZ_MMS_HEADER_APPLIC_ID = 0x37,               /* text */
    VZ_MMS_HEADER_REPLY_APPLIC_ID = 0x38,         /* text */
    VZ_MMS_HEADER_AUX_APPLIC_INFO = 0x39,         /* text */
    VZ_MMS_HEADER_CONTENT_CLASS = 0x3A,           /* number, VZ_MMS_CONTENT_ */
    VZ_MMS_HEADER_DRM_CONTENT = 0x3B,             /* number, VZ_MMS_YES or VZ_MMS_NO */
    VZ_MMS_HEADER_ADAPTATION_ALLOWED = 0x3C,      /* number, VZ_MMS_YES or VZ_MMS_NO */
    VZ_MMS_HEADER_REPLACE_ID = 0x3D,              /* text */
    VZ_MMS_HEADER_CANCEL_ID = 0x3E,               /* text */
    VZ_MMS_HEADER_CANCEL_STATUS = 0x3F,           /* number, VZ_MMS_CANCEL_ */
};

/* X-Mms-MMS-Version: the major version times 16 and the minor one; 15 in its place: major alone. */
enum {
    VZ_MMS_VERSION_1_0 = 0x10,
    VZ_MMS_VERSION_1_1 = 0x11,
    VZ_MMS_VERSION_1_2 = 0x12,
    VZ_MMS_VERSION_1_3 = 0x13,
};

/* Reports, Store, Stored, Totals, Quotas, Distribution-Indicator, DRM-Content, Adaptation-Allowed. */
enum {
    VZ_MMS_YES = 0x80,
    VZ_MMS_NO = 0x81,
};

/* X-Mms-Message-Class. */
enum {
    VZ_MMS_CLASS_PERSONAL = 0x80,
    VZ_MMS_CLASS_ADVERTISEMENT = 0x81,
    VZ_MMS_CLASS_INFORMATIONAL = 0x82,
    VZ_MMS_CLASS_AUTO = 0x83,
};

/* X-Mms-Priority. */
enum {
    VZ_MMS_PRIORITY_LOW = 0x80,
    VZ_MMS_PRIORITY_NORMAL = 0x81,
    VZ_MMS_PRIORITY_HIGH = 0x82,
};

/* X-Mms-Sender-Visibility. */
enum {
    VZ_MMS_SENDER_HIDE = 0x80,
    VZ_MMS_SENDER_SHOW = 0x81,
};

/* X-Mms-Status. */
enum {
    VZ_MMS_STATUS_EXPIRED = 0x80,
    VZ_MMS_STATUS_RETRIEVED = 0x81,
    VZ_MMS_STATUS_REJECTED = 0x82,
    VZ_MMS_STATUS_DEFERRED = 0x83,
    VZ_MMS_STATUS_UNRECOGNISED = 0x84,
    VZ_MMS_STATUS_INDETERMINATE = 0x85,
    VZ_MMS_STATUS_FORWARDED = 0x86,
    VZ_MMS_STATUS_UNREACHABLE = 0x87,
};

/* X-Mms-Read-Status. */
enum {
    VZ_MMS_READ_READ = 0x80,
    VZ_MMS_READ_DELETED_UNREAD = 0x81,
};

/* X-Mms-Reply-Charging. */
enum {
    VZ_MMS_CHARGING_REQUESTED = 0x80,
    VZ_MMS_CHARGING_REQUESTED_TEXT_ONLY = 0x81,
    VZ_MMS_CHARGING_ACCEPTED = 0x82,
    VZ_MMS_CHARGING_ACCEPTED_TEXT_ONLY = 0x83,
};

/* X-Mms-MM-State. */
enum {
    VZ_MMS_STATE_DRAFT = 0x80,
    VZ_MMS_STATE_SENT = 0x81,
    VZ_MMS_STATE_NEW = 0x82,
    VZ_MMS_STATE_RETRIEVED = 0x83,
    VZ_MMS_STATE_FORWARDED = 0x84,
};

/* `token` of X-Mms-MM-Flags. */
enum {
    VZ_MMS_FLAGS_ADD = 0x80,
    VZ_MMS_FLAGS_REMOVE = 0x81,
    VZ_MMS_FLAGS_FILTER = 0x82,
};

/* `token` of X-Mms-Mbox-Totals and X-Mms-Mbox-Quotas. */
enum {
    VZ_MMS_TOTAL_MESSAGES = 0x80,
    VZ_MMS_TOTAL_OCTETS = 0x81,
};

/* X-Mms-Content-Class. */
enum {
    VZ_MMS_CONTENT_TEXT = 0x80,
    VZ_MMS_CONTENT_IMAGE_BASIC = 0x81,
    VZ_MMS_CONTENT_IMAGE_RICH = 0x82,
    VZ_MMS_CONTENT_VIDEO_BASIC = 0x83,
    VZ_MMS_CONTENT_VIDEO_RICH = 0x84,
    VZ_MMS_CONTENT_MEGAPIXEL = 0x85,
    VZ_MMS_CONTENT_CONTENT_BASIC = 0x86,
    VZ_MMS_CONTENT_CONTENT_RICH = 0x87,
};

/* X-Mms-Cancel-Status. */
enum {
    VZ_MMS_CANCEL_REQUEST_RECEIVED = 0x80,
    VZ_MMS_CANCEL_REQUEST_CORRUPTED = 0x81,
};

/* X-Mms-Recommended-Retrieval-Mode. */
enum { VZ_MMS_RETRIEVAL_MANUAL = 0x80 };

/* X-Mms-Response-Status. */
enum {
    VZ_MMS_RESPONSE_OK = 0x80,
    VZ_MMS_RESPONSE_UNSPECIFIED = 0x81,
    VZ_MMS_RESPONSE_SERVICE_DENIED = 0x82,
    VZ_MMS_RESPONSE_FORMAT_CORRUPT = 0x83,
    VZ_MMS_RESPONSE_ADDRESS_UNRESOLVED = 0x84,
    VZ_MMS_RESPONSE_MESSAGE_NOT_FOUND = 0x85,
    VZ_MMS_RESPONSE_NETWORK_PROBLEM = 0x86,
    VZ_MMS_RESPONSE_CONTENT_NOT_ACCEPTED = 0x87,
    VZ_MMS_RESPONSE_UNSUPPORTED_MESSAGE = 0x88,
    VZ_MMS_RESPONSE_TRANSIENT_FAILURE = 0xC0,
    VZ_MMS_RESPONSE_TRANSIENT_ADDRESS_UNRESOLVED = 0xC1,
    VZ_MMS_RESPONSE_TRANSIENT_MESSAGE_NOT_FOUND = 0xC2,
    VZ_MMS_RESPONSE_TRANSIENT_NETWORK_PROBLEM = 0xC3,
    VZ_MMS_RESPONSE_TRANSIENT_PARTIAL_SUCCESS = 0xC4,
    VZ_MMS_RESPONSE_PERMANENT_FAILURE = 0xE0,
    VZ_MMS_RESPONSE_PERMANENT_SERVICE_DENIED = 0xE1,
    VZ_MMS_RESPONSE_PERMANENT_FORMAT_CORRUPT = 0xE2,
    VZ_MMS_RESPONSE_PERMANENT_ADDRESS_UNRESOLVED = 0xE3,
    VZ_MMS_RESPONSE_PERMANENT_MESSAGE_NOT_FOUND = 0xE4,
    VZ_MMS_RESPONSE_PERMANENT_CONTENT_NOT_ACCEPTED = 0xE5,
    VZ_MMS_RESPONSE_PERMANENT_CHARGING_LIMITATIONS = 0xE6,
    VZ_MMS_RESPONSE_PERMANENT_CHARGING_NOT_ACCEPTED = 0xE7,
    VZ_MMS_RESPONSE_PERMANENT_CHARGING_FORWARDING = 0xE8,
    VZ_MMS_RESPONSE_PERMANENT_CHARGING_UNSUPPORTED = 0xE9,
    VZ_MMS_RESPONSE_PERMANENT_HIDING_UNSUPPORTED = 0xEA,
    VZ_MMS_RESPONSE_PERMANENT_LACK_OF_PREPAID = 0xEB,
};

/* X-Mms-Retrieve-Status. */
enum {
    VZ_MMS_RETRIEVE_OK = 0x80,
    VZ_MMS_RETRIEVE_TRANSIENT_FAILURE = 0xC0,
    VZ_MMS_RETRIEVE_TRANSIENT_MESSAGE_NOT_FOUND = 0xC1,
    VZ_MMS_RETRIEVE_TRANSIENT_NETWORK_PROBLEM = 0xC2,
    VZ_MMS_RETRIEVE_PERMANENT_FAILURE = 0xE0,
    VZ_MMS_RETRIEVE_PERMANENT_SERVICE_DENIED = 0xE1,
    VZ_MMS_RETRIEVE_PERMANENT_MESSAGE_NOT_FOUND = 0xE2,
    VZ_MMS_RETRIEVE_PERMANENT_CONTENT_UNSUPPORTED = 0xE3,
};

/* X-Mms-Store-Status. */
enum {
    VZ_MMS_STORE_STATUS_SUCCESS = 0x80,
    VZ_MMS_STORE_STATUS_TRANSIENT_FAILURE = 0xC0,
    VZ_MMS_STORE_STATUS_TRANSIENT_NETWORK_PROBLEM = 0xC1,
    VZ_MMS_STORE_STATUS_PERMANENT_FAILURE = 0xE0,
    VZ_MMS_STORE_STATUS_PERMANENT_SERVICE_DENIED = 0xE1,
    VZ_MMS_STORE_STATUS_PERMANENT_FORMAT_CORRUPT = 0xE2,
    VZ_MMS_STORE_STATUS_PERMANENT_MESSAGE_NOT_FOUND = 0xE3,
    VZ_MMS_STORE_STATUS_PERMANENT_MAILBOX_FULL = 0xE4,
};

/* `kind` of a MultimediaHeader and of a MultimediaParameter: which member of `value` counts, and for `record`
 * which of its members do. */
enum {
    VZ_MMS_VALUE_NONE = 0,             /* none: a name without a value */
    VZ_MMS_VALUE_NUMBER = 1,           /* number: an integer, or a code as its octet on the wire */
    VZ_MMS_VALUE_DATE = 2,             /* number: seconds since 1970-01-01 00:00:00 UTC */
    VZ_MMS_VALUE_TEXT = 3,             /* text */
    VZ_MMS_VALUE_ENCODED_TEXT = 4,     /* record: charset, text */
    VZ_MMS_VALUE_ADDRESS = 5,          /* record: token (VZ_MMS_ADDRESS_), charset, text */
    VZ_MMS_VALUE_TIME = 6,             /* record: token (VZ_MMS_TIME_), number */
    VZ_MMS_VALUE_COUNTED_NUMBER = 7,   /* record: count, number */
    VZ_MMS_VALUE_COUNTED_DATE = 8,     /* record: count, number */
    VZ_MMS_VALUE_COUNTED_TEXT = 9,     /* record: count, charset, text */
    VZ_MMS_VALUE_COUNTED_ADDRESS = 10, /* record: token (VZ_MMS_ADDRESS_), count, charset, text */
    VZ_MMS_VALUE_MARKED_TEXT = 11,     /* record: token, charset, text */
    VZ_MMS_VALUE_MARKED_NUMBER = 12,   /* record: token, number */
    VZ_MMS_VALUE_NAMED_TEXT = 13,      /* record: name, text */
    VZ_MMS_VALUE_RAW = 14,             /* record: byteCount, bytes: the octets behind the field number */
};

/* `token` of an address: what it is the address of. On the wire this is the suffix "/TYPE=...", which `text`
 * does not have; a suffix of any other type stays in the text. */
enum {
    VZ_MMS_ADDRESS_PLAIN = 0, /* without a type: e-mail, short code */
    VZ_MMS_ADDRESS_PLMN = 1,  /* telephone number */
    VZ_MMS_ADDRESS_IPV4 = 2,
    VZ_MMS_ADDRESS_IPV6 = 3,
    VZ_MMS_ADDRESS_INSERT = 4, /* From alone: the service is to put the address in; no text */
};

/* `token` of a time. */
enum {
    VZ_MMS_TIME_ABSOLUTE = 0x80, /* `number` is seconds since 1970-01-01 00:00:00 UTC */
    VZ_MMS_TIME_RELATIVE = 0x81, /* `number` is seconds from when the PDU is received */
};

/* What a header or a parameter holds where one number or text is not enough. Members that its kind does not
 * name are 0. A record with another `size` than 56 is refused.
 *
 * A text is read with the `charset` in which it can be written again and reads the same: that of the PDU;
 * 106 (UTF-8) or 4 (ISO-8859-1) for a text without one that is not US-ASCII, by what its bytes look like; and
 * 106 for a text that the library cannot write in the charset of the PDU. */
typedef struct MultimediaValue {
    uint32_t size;      /* 56 */
    uint32_t token;     /* what comes before the value */
    uint32_t count;     /* place in a row of forwardings, or number of a status */
    uint32_t charset;   /* of `text`, an IANA MIBenum; 0: the PDU names none, see below */
    uint64_t number;    /* an integer, or seconds */
    char16_t* name;     /* of an application header */
    char16_t* text;     /* whatever the charset: UTF-16 */
    uint32_t byteCount; /* bytes at `bytes` */
    uint8_t* bytes;
} MultimediaValue;

VZAPI_ASSERT_SIZE(MultimediaValue, 56);
VZAPI_ASSERT_OFFSET(MultimediaValue, size, 0);
VZAPI_ASSERT_OFFSET(MultimediaValue, token, 4);
VZAPI_ASSERT_OFFSET(MultimediaValue, count, 8);
VZAPI_ASSERT_OFFSET(MultimediaValue, charset, 12);
VZAPI_ASSERT_OFFSET(MultimediaValue, number, 16);
VZAPI_ASSERT_OFFSET(MultimediaValue, name, 24);
VZAPI_ASSERT_OFFSET(MultimediaValue, text, 32);
VZAPI_ASSERT_OFFSET(MultimediaValue, byteCount, 40);
VZAPI_ASSERT_OFFSET(MultimediaValue, bytes, 48);

/* The 8-byte value of a header or parameter; its `kind` tells which member counts. */
typedef union MultimediaContent {
    uint64_t number;
    char16_t* text;
    MultimediaValue* record;
} MultimediaContent;

VZAPI_ASSERT_SIZE(MultimediaContent, 8);
VZAPI_ASSERT_OFFSET(MultimediaContent, number, 0);
VZAPI_ASSERT_OFFSET(MultimediaContent, text, 0);
VZAPI_ASSERT_OFFSET(MultimediaContent, record, 0);

/* One header of the PDU, or of a part. */
typedef struct MultimediaHeader {
    uint32_t size;   /* 24 */
    uint32_t kind;   /* a VZ_MMS_VALUE_ code */
    uint32_t number; /* a VZ_MMS_HEADER_ code; for parts the number of the WSP header */
    uint32_t flags;  /* 0 */
    MultimediaContent value;
} MultimediaHeader;

VZAPI_ASSERT_SIZE(MultimediaHeader, 24);
VZAPI_ASSERT_OFFSET(MultimediaHeader, size, 0);
VZAPI_ASSERT_OFFSET(MultimediaHeader, kind, 4);
VZAPI_ASSERT_OFFSET(MultimediaHeader, number, 8);
VZAPI_ASSERT_OFFSET(MultimediaHeader, flags, 12);
VZAPI_ASSERT_OFFSET(MultimediaHeader, value, 16);

/* One parameter of a content type or disposition. */
typedef struct MultimediaParameter {
    uint32_t size;  /* 24 */
    uint32_t kind;  /* VZ_MMS_VALUE_NONE, _NUMBER, _DATE, _TEXT or _RAW */
    char16_t* name; /* "type", "start", "name", "filename" and so on, in lower case where it is a known one;
                       with _RAW, which is what no known parameter has, its number: "0x59". A raw parameter
                       with a name, or whose bytes are not one value of WSP, is not written: 0x80100013 */
    MultimediaContent value;
} MultimediaParameter;

VZAPI_ASSERT_SIZE(MultimediaParameter, 24);
VZAPI_ASSERT_OFFSET(MultimediaParameter, size, 0);
VZAPI_ASSERT_OFFSET(MultimediaParameter, kind, 4);
VZAPI_ASSERT_OFFSET(MultimediaParameter, name, 8);
VZAPI_ASSERT_OFFSET(MultimediaParameter, value, 16);

/* `flags` of a MultimediaPart. */
enum {
    VZ_MMS_PART_CONTAINER = 0x01,    /* holds other parts and no data */
    VZ_MMS_PART_PRESENTATION = 0x02, /* the root of its container: the SMIL document, say */
    VZ_MMS_PART_TRUNCATED = 0x04,    /* the PDU ended before all of its parts, or its data, were there */
};

/* `container` of the part that is in no other: the body of the PDU. */
enum { VZ_MMS_PART_IN_NONE = 0 };

/*
 * One part of the body, in the order of the PDU. The body itself is a part too: with several parts it is the
 * container of the others, and comes first.
 *
 * `name` is what a person is shown, and a good name for a file after a check: the content type's parameter
 * "name", the disposition's "filename", the content location, the content id, or else "Part_2.1": the number
 * of the container among the containers and of the part inside it, both from 1. When a record is written, a
 * name that is none of these is written as the parameter "name".
 *
 * A transfer encoding (base64, quoted-printable) is undone when a PDU is read, and its header taken away.
 */
typedef struct MultimediaPart {
    uint32_t size;                   /* 120 */
    uint32_t flags;                  /* VZ_MMS_PART_ bits */
    uint32_t container;              /* number, from 1, of the enclosing part in `parts` */
    uint32_t charset;                /* of a text, an IANA MIBenum; 0: none is named */
    char16_t* contentType;           /* "image/jpeg", "application/vnd.wap.multipart.related"; never null */
    uint32_t parameterCount;         /* entries in `parameters` */
    MultimediaParameter* parameters; /* of the content type, the charset left out */
    char16_t* name;
    char16_t* contentId;       /* without quotes and angle brackets; null: none */
    char16_t* contentLocation; /* null: none */
    char16_t* disposition;     /* "attachment", "inline", "form-data"; null: none */
    uint32_t dispositionParameterCount;
    MultimediaParameter* dispositionParameters;
    uint32_t headerCount;      /* entries in `headers` */
    MultimediaHeader* headers; /* all other headers of the part */
    uint32_t dataLength;       /* bytes at `data` */
    uint8_t* data;             /* null for a container */
} MultimediaPart;

VZAPI_ASSERT_SIZE(MultimediaPart, 120);
VZAPI_ASSERT_OFFSET(MultimediaPart, size, 0);
VZAPI_ASSERT_OFFSET(MultimediaPart, flags, 4);
VZAPI_ASSERT_OFFSET(MultimediaPart, container, 8);
VZAPI_ASSERT_OFFSET(MultimediaPart, charset, 12);
VZAPI_ASSERT_OFFSET(MultimediaPart, contentType, 16);
VZAPI_ASSERT_OFFSET(MultimediaPart, parameterCount, 24);
VZAPI_ASSERT_OFFSET(MultimediaPart, parameters, 32);
VZAPI_ASSERT_OFFSET(MultimediaPart, name, 40);
VZAPI_ASSERT_OFFSET(MultimediaPart, contentId, 48);
VZAPI_ASSERT_OFFSET(MultimediaPart, contentLocation, 56);
VZAPI_ASSERT_OFFSET(MultimediaPart, disposition, 64);
VZAPI_ASSERT_OFFSET(MultimediaPart, dispositionParameterCount, 72);
VZAPI_ASSERT_OFFSET(MultimediaPart, dispositionParameters, 80);
VZAPI_ASSERT_OFFSET(MultimediaPart, headerCount, 88);
VZAPI_ASSERT_OFFSET(MultimediaPart, headers, 96);
VZAPI_ASSERT_OFFSET(MultimediaPart, dataLength, 104);
VZAPI_ASSERT_OFFSET(MultimediaPart, data, 112);

/* `flags` of a MultimediaItem. */
enum {
    VZ_MMS_NO_PRESENTATION =
        0x01,                /* none is made for a body without one when the record is written; set by the
                                      reader, so that what was read is written as it was */
    VZ_MMS_TRUNCATED = 0x02, /* set by the reader: the PDU ended before its body was complete */
};

/*
 * One PDU.
 *
 * Filled by ODCAPI_ParseDataObject: arrays, records and data are blocks of the process heap, texts are OLE
 * strings; released with ODCAPI_FreeParsedData. Read by ODCAPI_CreateDataObject: all stay the caller's. It
 * refuses a record with another `size`, without a type, without a header that the type demands, with a part
 * that has no content type, or with a pointer that cannot be read.
 *
 * A caller who builds a record may leave the container out: several parts with `container` 0 are put into one
 * of the type application/vnd.wap.multipart.related, or .mixed without a presentation. A single part is put
 * into one when it has an id, a location, a disposition or other headers, which the body alone has no place
 * for.
 *
 * Unless VZ_MMS_NO_PRESENTATION is set, a body of pictures, videos, sounds or plain texts in a container of
 * type related or mixed gets a presentation when it has none: a SMIL document with a page for each picture or
 * video and the text and sound that follow it. The container becomes a related one, with the parameters
 * "type" and "start" where it lacks them, and parts without location and id get a location.
 */
typedef struct MultimediaItem {
    uint32_t size;        /* 40 */
    uint32_t messageType; /* VZ_MMS_SEND_REQ and so on */
    uint32_t flags;
    uint32_t headerCount;      /* entries in `headers` */
    MultimediaHeader* headers; /* in the order of the PDU, but for the type and the content type; the
                                  transaction id and the version come first, as they are written */
    uint32_t partCount;        /* entries in `parts`; 0: no body */
    uint32_t reserved;
    MultimediaPart* parts;
} MultimediaItem;

VZAPI_ASSERT_SIZE(MultimediaItem, 40);
VZAPI_ASSERT_OFFSET(MultimediaItem, size, 0);
VZAPI_ASSERT_OFFSET(MultimediaItem, messageType, 4);
VZAPI_ASSERT_OFFSET(MultimediaItem, flags, 8);
VZAPI_ASSERT_OFFSET(MultimediaItem, headerCount, 12);
VZAPI_ASSERT_OFFSET(MultimediaItem, headers, 16);
VZAPI_ASSERT_OFFSET(MultimediaItem, partCount, 24);
VZAPI_ASSERT_OFFSET(MultimediaItem, reserved, 28);
VZAPI_ASSERT_OFFSET(MultimediaItem, parts, 32);

#if defined(__cplusplus)
}
#endif

#endif
