/*
 * The data-object family: whole objects (versit text, multimedia messages, e-mail items) to records and back.
 *
 * The conventions of vzapi.h hold here too, with these differences:
 *
 * 1. Results. No exception leaves any of these functions. A null or unreadable pointer gives VZ_ERR_POINTER,
 * and any other bad argument VZ_ERR_BAD_VALUE.
 *
 * 2. Order of checks: the kind, then the pointers, then the `size` of the data object.
 *
 * 3. Release. Bytes go back with ODCAPI_FreeDataObject, records with ODCAPI_FreeParsedData.
 *
 * 4. Threads. As in vzapi.h, with ODCAPI_Initialize and ODCAPI_Terminate in the place of their counterparts.
 */
#ifndef VZAPI_ODCAPI_H
#define VZAPI_ODCAPI_H

#include "vzapi/base.h"
#include "vzapi/bookmark.h"
#include "vzapi/calendar.h"
#include "vzapi/contact.h"
#include "vzapi/email.h"
#include "vzapi/message.h"
#include "vzapi/multimedia.h"

#if defined(__cplusplus)
extern "C" {
#endif

/* What ODCAPI_GetAPIVersion gives, and the only version that ODCAPI_Initialize takes. */
enum { VZ_OBJECT_INTERFACE_VERSION = 10 };

/* Kinds: which record goes with a data object, and what its bytes are. */
enum {
    VZ_OBJECT_CONTACT = 1,    /* ContactItem, vCard */
    VZ_OBJECT_CALENDAR = 2,   /* CalendarItem, vCalendar */
    VZ_OBJECT_MESSAGE = 3,    /* MessageItem, vMessage in UTF-16LE */
    VZ_OBJECT_BOOKMARK = 4,   /* BookmarkItem, vBookmark */
    VZ_OBJECT_MULTIMEDIA = 5, /* MultimediaItem, a PDU of the Multimedia Messaging Service */
    VZ_OBJECT_EMAIL = 6,      /* EmailItem, XML; read only */
};

/* Carries a data object across the interface: `size` is 24, `length` counts the bytes at `text`. */
typedef VersitData DataObject;

VZAPI_ASSERT_SIZE(DataObject, 24);
VZAPI_ASSERT_OFFSET(DataObject, size, 0);
VZAPI_ASSERT_OFFSET(DataObject, format, 4);
VZAPI_ASSERT_OFFSET(DataObject, length, 8);
VZAPI_ASSERT_OFFSET(DataObject, text, 16);

/*
 * Counts one more user of this family; the count is apart from that of VZAPI_Initialize. No other function
 * demands it.
 *
 * VZ_ERR_BAD_VALUE: `version` is 0. VZ_ERR_POINTER: `reserved` is not 0. VZ_ERR_VERSION: `version` is not 10.
 * They are tested in this order, and none changes the count.
 */
VZAPI_EXPORT ResultCode ODCAPI_Initialize(uint32_t version, uint64_t reserved) VZAPI_NOEXCEPT;

/*
 * Counts one user less. The call that brings the count to 0, and every call made at 0, also releases what the
 * library shares between calls; it may first wait for work in progress, at most 30 seconds.
 *
 * VZ_ERR_POINTER: `reserved` is not 0; nothing is changed.
 */
VZAPI_EXPORT ResultCode ODCAPI_Terminate(uint64_t reserved) VZAPI_NOEXCEPT;

/* Writes VZ_OBJECT_INTERFACE_VERSION to `version`. VZ_ERR_POINTER: it is null or cannot be read. */
VZAPI_EXPORT ResultCode ODCAPI_GetAPIVersion(uint32_t* version) VZAPI_NOEXCEPT;

/*
 * Tells whether `object` holds bytes of the kind. Text kinds are tested as ValidateVersitData does,
 * multimedia messages by decoding: there must be a header or a part, and a message type or a content type
 * among them; an e-mail item is always valid. The `size` of `object` is not looked at.
 *
 * VZ_ERR_BAD_VALUE: no such kind, `length` is 0, or a multimedia message does not decode.
 * VZ_ERR_POINTER: `object` or its `text` is null or cannot be read.
 * VZ_ERR_INVALID_TEXT, VZ_ERR_OUT_OF_MEMORY: as from ValidateVersitData.
 */
VZAPI_EXPORT ResultCode ODCAPI_ValidateDataObject(uint32_t kind, const DataObject* object) VZAPI_NOEXCEPT;

/*
 * Reads `object` into `record`, which owns nothing and has `size` set. For kinds 1 to 4 the record is zeroed
 * over as many bytes as its own `size` says, whatever that is, so `size` must not exceed the memory; `size`
 * stays. For kind 5 it must be 40, and the record is zeroed behind it. A multimedia message whose body is cut
 * off is read as far as it goes, and marked with VZ_MMS_TRUNCATED.
 *
 * VZ_ERR_BAD_VALUE: no such kind, the `size` of `object` is not 24, that of a MultimediaItem is not 40, or a
 * multimedia message or e-mail item does not decode, an empty one included. VZ_ERR_POINTER: `object`, its
 * `text` or `record` is null or cannot be read. VZ_ERR_INVALID_TEXT: the text holds no object of the kind; an
 * empty one holds none. VZ_ERR_OUT_OF_MEMORY: as its name says. VZ_ERR_UNEXPECTED: an e-mail item where the
 * system has no XML parser. Other codes of ConvertFromVersit are passed on.
 *
 * After VZ_ERR_POINTER and a refused kind or `size` the record is as it was; after any other failure it is
 * zeroed behind `size` or holds what was read so far. Release, after a failure too:
 * ODCAPI_FreeParsedData(kind, record).
 */
VZAPI_EXPORT ResultCode ODCAPI_ParseDataObject(uint32_t kind, const DataObject* object,
                                               void* record) VZAPI_NOEXCEPT;

/*
 * Releases what ODCAPI_ParseDataObject put into `record`, and sets pointers to null and counts to 0. The
 * record itself stays the caller's.
 *
 * VZ_ERR_BAD_VALUE: no such kind, for kinds 1 to 4 a `size` that FreeConverterData refuses, or for kind 5 one
 * that is not 40; nothing is changed. VZ_ERR_POINTER: `record` is null or cannot be read.
 */
VZAPI_EXPORT ResultCode ODCAPI_FreeParsedData(uint32_t kind, void* record) VZAPI_NOEXCEPT;

/*
 * Builds a data object from `record`, which is only read. `object` has `size` 24 and receives format 2, the
 * length and a new block with exactly `length` bytes. For kinds 1 to 4 the bytes are those of
 * ConvertToVersit; a multimedia message is encoded in its shortest form, see MultimediaItem.
 *
 * A record of kinds 1 to 4 that cannot be written, and every e-mail item, gives VZ_OK and an empty object:
 * `length` 0, `text` null, whatever stood there; `format` stays. A caller recognises success by a length that
 * is not 0.
 *
 * VZ_ERR_BAD_VALUE: no such kind, the `size` of `object` is not 24, or a multimedia message cannot be
 * encoded; a pointer in its record that cannot be read is among the reasons, and `object` is empty then.
 * VZ_ERR_OUT_OF_MEMORY: as its name says, for a multimedia message. VZ_ERR_POINTER: `record` or `object` is
 * null or cannot be read.
 *
 * Release: ODCAPI_FreeDataObject(object).
 */
VZAPI_EXPORT ResultCode ODCAPI_CreateDataObject(uint32_t kind, const void* record,
                                                DataObject* object) VZAPI_NOEXCEPT;

/*
 * Releases the bytes that ODCAPI_CreateDataObject put into `object`, and sets `size`, `length` and `text` to
 * 0.
 *
 * VZ_ERR_POINTER: `object` is null or cannot be read.
 * VZ_ERR_BAD_VALUE: `size` is not 24, as after an earlier release; nothing is changed.
 */
VZAPI_EXPORT ResultCode ODCAPI_FreeDataObject(DataObject* object) VZAPI_NOEXCEPT;

/* These five do nothing and return VZ_OK. They stand for hosts that build objects field by field. */
VZAPI_EXPORT ResultCode ODCAPI_CreateBegin(void) VZAPI_NOEXCEPT;
VZAPI_EXPORT ResultCode ODCAPI_InitializeSupportInfo(void) VZAPI_NOEXCEPT;
VZAPI_EXPORT ResultCode ODCAPI_AddField(void) VZAPI_NOEXCEPT;
VZAPI_EXPORT ResultCode ODCAPI_DeleteField(void) VZAPI_NOEXCEPT;
VZAPI_EXPORT ResultCode ODCAPI_CreateEnd(void) VZAPI_NOEXCEPT;

#if defined(__cplusplus)
}
#endif

#endif
