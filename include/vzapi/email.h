/* The e-mail record: VZ_OBJECT_EMAIL of the data-object family, an XML document on the state of one message.
 */
#ifndef VZAPI_EMAIL_H
#define VZAPI_EMAIL_H

#include "vzapi/base.h"
#include "vzapi/message.h"

#if defined(__cplusplus)
extern "C" {
#endif

/* `id` of an EmailFlagField; the comment gives the element. */
enum {
    VZ_EMAIL_FLAG_READ = 1,      /* read */
    VZ_EMAIL_FLAG_FORWARDED = 2, /* forwarded */
    VZ_EMAIL_FLAG_REPLIED = 3,   /* replied */
    VZ_EMAIL_FLAG_DELETED = 4,   /* deleted */
    VZ_EMAIL_FLAG_FLAGGED = 5,   /* flagged */
};

/* `id` of an EmailTimeField; the comment gives the element. */
enum {
    VZ_EMAIL_TIME_CREATED = 1,  /* created */
    VZ_EMAIL_TIME_MODIFIED = 2, /* modified */
    VZ_EMAIL_TIME_RECEIVED = 3, /* received */
};

/* One flag of the message. */
typedef struct EmailFlagField {
    uint32_t size;  /* 12 */
    uint32_t id;    /* a VZ_EMAIL_FLAG_ id */
    uint32_t value; /* 0 when the text is exactly "false", else 1 */
} EmailFlagField;

VZAPI_ASSERT_SIZE(EmailFlagField, 12);
VZAPI_ASSERT_OFFSET(EmailFlagField, size, 0);
VZAPI_ASSERT_OFFSET(EmailFlagField, id, 4);
VZAPI_ASSERT_OFFSET(EmailFlagField, value, 8);

/* One time of the message; only times whose year is not 0 have an entry. */
typedef struct EmailTimeField {
    uint32_t size; /* 28 */
    uint32_t id;   /* a VZ_EMAIL_TIME_ id */
    MessageTime time;
} EmailTimeField;

VZAPI_ASSERT_SIZE(EmailTimeField, 28);
VZAPI_ASSERT_OFFSET(EmailTimeField, size, 0);
VZAPI_ASSERT_OFFSET(EmailTimeField, id, 4);
VZAPI_ASSERT_OFFSET(EmailTimeField, time, 8);

/*
 * The state of one e-mail message.
 *
 * Filled by ODCAPI_ParseDataObject: entries stand in the order of the document; the arrays are the library's,
 * `itemText` is an OLE string, the record is released with ODCAPI_FreeParsedData. There is no writer.
 */
typedef struct EmailItem {
    uint32_t size;         /* 40; kept, and not checked, so the memory must have 40 bytes */
    uint32_t timeCount;    /* entries in `times` */
    EmailTimeField* times; /* null when there are none */
    uint32_t flagCount;    /* entries in `flags` */
    EmailFlagField* flags; /* null when there are none */
    char16_t* itemText;    /* text of the element "emailitem"; null when there is none */
} EmailItem;

VZAPI_ASSERT_SIZE(EmailItem, 40);
VZAPI_ASSERT_OFFSET(EmailItem, size, 0);
VZAPI_ASSERT_OFFSET(EmailItem, timeCount, 4);
VZAPI_ASSERT_OFFSET(EmailItem, times, 8);
VZAPI_ASSERT_OFFSET(EmailItem, flagCount, 16);
VZAPI_ASSERT_OFFSET(EmailItem, flags, 24);
VZAPI_ASSERT_OFFSET(EmailItem, itemText, 32);

#if defined(__cplusplus)
}
#endif

#endif
