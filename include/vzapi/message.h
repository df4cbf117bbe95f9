/* The message record: VZ_TYPE_MESSAGE, vMessage 1.1 text in UTF-16LE; 1.0 is also read. */
#ifndef VZAPI_MESSAGE_H
#define VZAPI_MESSAGE_H

#include "vzapi/base.h"

#if defined(__cplusplus)
extern "C" {
#endif

/* Where the codes stand in `flags`. The reader sets the marks; the writer does not look at them. */
enum {
    VZ_MESSAGE_MARKS = 0x0011,
    VZ_MESSAGE_STATUS_SHIFT = 8,
    VZ_MESSAGE_STATUS_MASK = 0x0F00,
    VZ_MESSAGE_TYPE_SHIFT = 12,
    VZ_MESSAGE_TYPE_MASK = 0xF000,
};

/* Status codes: X-IRMC-STATUS. A code without a row is written as an empty value. */
enum {
    VZ_MESSAGE_STATUS_NONE = 0,
    VZ_MESSAGE_STATUS_UNSENT = 1,
    VZ_MESSAGE_STATUS_SENT = 2,
    VZ_MESSAGE_STATUS_FAILED = 3,
    VZ_MESSAGE_STATUS_UNREAD = 4,
    VZ_MESSAGE_STATUS_READ = 5,
    VZ_MESSAGE_STATUS_DRAFT = 6,
    VZ_MESSAGE_STATUS_PENDING = 7,
    VZ_MESSAGE_STATUS_CANCELLED = 8,
    VZ_MESSAGE_STATUS_DELIVERED = 9,
    VZ_MESSAGE_STATUS_RECEIVING = 10,
    VZ_MESSAGE_STATUS_TEMP_FAIL = 11,
    VZ_MESSAGE_STATUS_SENDING = 12,
};

/* Type codes: X-MESSAGE-TYPE. A code without a row is written as an empty value. */
enum {
    VZ_MESSAGE_TYPE_NONE = 0,
    VZ_MESSAGE_TYPE_DELIVER = 1,
    VZ_MESSAGE_TYPE_DELIVER_REPORT = 2,
    VZ_MESSAGE_TYPE_SUBMIT = 3,
    VZ_MESSAGE_TYPE_SUBMIT_REPORT = 4,
    VZ_MESSAGE_TYPE_STATUS_REPORT = 5,
    VZ_MESSAGE_TYPE_SMS_COMMAND = 6,
};

/* Folder codes: X-IRMC-BOX. The record has no folder; the type says whether a message came in or goes out. */
enum {
    VZ_FOLDER_NONE = 0,
    VZ_FOLDER_INBOX = 1,
    VZ_FOLDER_OUTBOX = 2,
    VZ_FOLDER_DRAFTS = 3,
    VZ_FOLDER_SENT = 4,
};

/* A date and time of day, written as it stands. Year 0: no time. */
typedef struct MessageTime {
    uint32_t reserved; /* 0 */
    uint16_t year;
    uint8_t month;  /* 1 to 12 */
    uint8_t day;    /* 1 to 31 */
    uint8_t hour;   /* 0 to 23 */
    uint8_t minute; /* 0 to 59 */
    uint8_t second; /* 0 to 59 */
    uint8_t unused[9];
} MessageTime;

VZAPI_ASSERT_SIZE(MessageTime, 20);
VZAPI_ASSERT_OFFSET(MessageTime, reserved, 0);
VZAPI_ASSERT_OFFSET(MessageTime, year, 4);
VZAPI_ASSERT_OFFSET(MessageTime, month, 6);
VZAPI_ASSERT_OFFSET(MessageTime, day, 7);
VZAPI_ASSERT_OFFSET(MessageTime, hour, 8);
VZAPI_ASSERT_OFFSET(MessageTime, minute, 9);
VZAPI_ASSERT_OFFSET(MessageTime, second, 10);
VZAPI_ASSERT_OFFSET(MessageTime, unused, 11);

/* One sender or recipient. */
typedef struct MessageAddress {
    uint64_t reserved; /* neither read nor written */
    char16_t* number;  /* TEL; null: no number */
} MessageAddress;

VZAPI_ASSERT_SIZE(MessageAddress, 16);
VZAPI_ASSERT_OFFSET(MessageAddress, reserved, 0);
VZAPI_ASSERT_OFFSET(MessageAddress, number, 8);

/*
 * One text message.
 *
 * Filled by ConvertFromVersit, which sets `size` to 64 whatever it held, so the memory must have 64 bytes:
 * `text` and `addresses` are blocks of the process heap, numbers are OLE strings, the record is released with
 * FreeConverterData. Read by ConvertToVersit, which does not check `size`: all stay the caller's; what cannot
 * be read counts as absent.
 */
typedef struct MessageItem {
    uint32_t size;             /* 64 */
    uint32_t flags;            /* status and type */
    uint32_t textLength;       /* bytes, twice the number of units */
    char16_t* text;            /* not necessarily terminated */
    uint8_t addressCount;      /* entries in `addresses` */
    MessageAddress* addresses; /* senders of an incoming message, recipients of an outgoing one */
    MessageTime timestamp;     /* X-NRD-DT */
} MessageItem;

VZAPI_ASSERT_SIZE(MessageItem, 64);
VZAPI_ASSERT_OFFSET(MessageItem, size, 0);
VZAPI_ASSERT_OFFSET(MessageItem, flags, 4);
VZAPI_ASSERT_OFFSET(MessageItem, textLength, 8);
VZAPI_ASSERT_OFFSET(MessageItem, text, 16);
VZAPI_ASSERT_OFFSET(MessageItem, addressCount, 24);
VZAPI_ASSERT_OFFSET(MessageItem, addresses, 32);
VZAPI_ASSERT_OFFSET(MessageItem, timestamp, 40);

#if defined(__cplusplus)
}
#endif

#endif
