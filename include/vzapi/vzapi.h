/*
 * The conversion family: one record of phone data (contact, calendar entry, message, bookmark, contact
 * group) to versit text and back.
 *
 * What holds for every function here, and for every record:
 *
 * 1. Linkage. Functions are exported with C linkage. Records have one layout on all platforms, pinned by the
 * assertions beside them; each begins with its `size` in bytes, which is also its version.
 *
 * 2. Text. Strings inside records are UTF-16 and end at their first zero unit, unless a length stands beside
 * them. Versit text is bytes without a terminator; that of messages is UTF-16LE. Lengths are bytes, counts
 * are entries.
 *
 * 3. Results. A function that returns a ResultCode returns VZ_OK or one of the VZ_ERR_ codes, whatever it is
 * given. Only VZAPI_Initialize lets an exception out, and only for version 0.
 *
 * 4. Pointers. A required pointer that is null gives VZ_ERR_INVALID_PARAM. One that is not null is probed,
 * and gives VZ_ERR_POINTER when it cannot be read. Null comes first, then the type code, then what can be
 * read. The free functions and ValidateVersitData differ, and say how. A string or array inside a record
 * that cannot be read counts as absent. Memory that another thread unmaps during the call is not guarded
 * against.
 *
 * 5. Ownership. What a function allocates belongs to the record or VersitData that it filled, and goes back
 * to the library as a whole: records with FreeConverterData, text with FreeVersitData. Nothing that the
 * library filled is released, replaced or resized piece by piece. What the caller allocated stays the
 * caller's and is only read; it is never given to the free functions. A function that fills a record or
 * VersitData does not release what stood there before.
 *
 * 6. Threads. Any thread may call. Conversions, validation and release may run at the same time on different
 * records; two calls on one record need the caller's lock unless both only read it. VZAPI_Initialize and
 * VZAPI_Terminate must not run beside any other call.
 */
#ifndef VZAPI_VZAPI_H
#define VZAPI_VZAPI_H

#include "vzapi/base.h"
#include "vzapi/bookmark.h"
#include "vzapi/calendar.h"
#include "vzapi/contact.h"
#include "vzapi/contact_group.h"
#include "vzapi/message.h"

#if defined(__cplusplus)
extern "C" {
#endif

/* Type codes: which record an `item` points to, and which text goes with it. */
enum {
    VZ_TYPE_CONTACT = 1,       /* ContactItem, vCard 2.1; 3.0 is also read */
    VZ_TYPE_CALENDAR = 2,      /* CalendarItem, vCalendar 1.0; 2.0 is also read, and written for a profile */
    VZ_TYPE_MESSAGE = 3,       /* MessageItem, vMessage 1.1 in UTF-16LE; 1.0 is also read */
    VZ_TYPE_BOOKMARK = 4,      /* BookmarkItem, vBookmark 1.0 */
    VZ_TYPE_CONTACT_GROUP = 5, /* ContactGroupItem, vCard 2.1 with X-CNTGRP */
};

/*
 * Interface versions that a host announces with VZAPI_Initialize. Each adds to the ones before; a version
 * above the last row acts like the last row.
 */
enum {
    VZ_INTERFACE_CHECKED_SIZES = 13, /* records of a wrong `size` are refused; birth years are numbers */
    VZ_INTERFACE_MARKS = 14,         /* preferred numbers, anniversaries, dates of year 0 count as absent */
    VZ_INTERFACE_TODO_REPEATS = 15,  /* to-dos have recurrences */
    VZ_INTERFACE_TIME_ZONES = 16,    /* time zone block of the 192-byte CalendarItem */
    VZ_INTERFACE_VERSION = 16,       /* what VZAPI_GetAPIVersion returns */
};

/* Profiles: `option1` of ConvertToVersit2 names the family of the receiving device, `option2` its version. */
enum {
    VZ_PROFILE_NONE = 0,
    VZ_PROFILE_10 = 0x02000010,
    VZ_PROFILE_20 = 0x02000020,
};

/* Versions that VZ_PROFILE_10 tells apart. Contacts and messages look at them. */
enum {
    VZ_PROFILE_10_MESSENGERS = 10, /* X-JABBER, X-SKYPE, X-FACEBOOK in place of X-IMPP; nicknames, role */
    VZ_PROFILE_10_MESSENGERS_AND_SMS = 16,     /* the same; messages in their extended form */
    VZ_PROFILE_10_EMPTY_FIELDS = 260,          /* a line without value for each field that is absent */
    VZ_PROFILE_10_EMPTY_FIELDS_REVISION = 280, /* the same */
};

/* Versions that VZ_PROFILE_20 tells apart. Contacts and calendar entries look at them. */
enum {
    VZ_PROFILE_20_EMPTY_FIELDS = 300, /* a line without value for each field that is absent; untyped photos */
    VZ_PROFILE_20_CALENDAR_2 = 322,   /* this and later: calendar entries as version 2.0 */
    VZ_PROFILE_20_PLAIN_VOICE = 323,  /* this and later: the general voice number without a type */
};

/* Whether the profile counts: `option3` of ConvertToVersit2; any value but 0 is on. Messages ignore it. */
enum {
    VZ_PROFILE_OFF = 0,
    VZ_PROFILE_ON = 1,
};

/* Returns VZ_INTERFACE_VERSION, the newest interface that this library implements. */
VZAPI_EXPORT uint32_t VZAPI_GetAPIVersion(void) VZAPI_NOEXCEPT;

/*
 * Announces the interface `version` that the host was built for, and returns the number of announcements not
 * yet matched by VZAPI_Terminate. The last announced version counts for the whole process; before the first
 * one it is 0. Every version but 0 is accepted. No other function demands that this one was called.
 *
 * Version 0 changes nothing and throws VZ_ERR_VERSION as a C++ exception of type uint32_t, the one exception
 * of the interface. A host in C, or one whose compiler shares no exceptions with the library, must not pass
 * 0.
 */
VZAPI_EXPORT uint32_t VZAPI_Initialize(uint32_t version);

/*
 * Takes one announcement back and returns the number of those left. The call that brings the number to 0, and
 * every call made at 0, also releases what the library shares between calls; it may first wait for work in
 * progress, at most 30 seconds. The announced version stays. Nothing that a caller holds becomes invalid.
 */
VZAPI_EXPORT uint32_t VZAPI_Terminate(void) VZAPI_NOEXCEPT;

/* ConvertToVersit2 without a profile: its three options are 0. */
VZAPI_EXPORT ResultCode ConvertToVersit(uint32_t type, const void* item, VersitData* out) VZAPI_NOEXCEPT;

/*
 * Writes the record at `item` as versit text.
 *
 * `option1`, `option2`, `option3`: the profile of the receiving device, as the constants above say. Values
 * that name no profile write the plain form; of `option1` the low 32 bits count. `type`: a type code; `item`:
 * the record that it names, only read. `out`: receives size 24, format 1, the length in bytes, and the text, a
 * new block of the process heap with exactly `length` bytes and no terminator. It may hold anything before,
 * except that contact groups demand `size` 24.
 *
 * VZ_ERR_INVALID_PARAM: `item` or `out` is null, or contact groups found a wrong `size` of either.
 * VZ_ERR_UNKNOWN_TYPE: no such type code.
 * VZ_ERR_POINTER: `item` or `out` cannot be read.
 * VZ_ERR_BAD_VALUE: the writer refuses the record's `size` at the announced version (contacts, from 13 on).
 * VZ_ERR_OUT_OF_MEMORY, VZ_ERR_UNEXPECTED: as their names say.
 *
 * After a failure `out` owns nothing: it is as it was when the arguments were refused, else its `length` is 0
 * and its `text` null. Release: FreeVersitData(out).
 */
VZAPI_EXPORT ResultCode ConvertToVersit2(uint64_t option1, uint32_t option2, uint64_t option3, uint32_t type,
                                         const void* item, VersitData* out) VZAPI_NOEXCEPT;

/*
 * Reads the first object of a versit text into the record at `item`.
 *
 * `type`: a type code. `in`: `text` and `length` (bytes) are read, `size` and `format` are not; the text ends
 * at its first NUL and is not needed after the call. `item`: a record that owns nothing, with `size` set by
 * the caller. One of a size that the type knows is zeroed behind `size` first; one of another size is not
 * zeroed and not refused here, so the caller zeroes it: what is left in it would be released later on.
 *
 * VZ_ERR_INVALID_PARAM: `in` or `item` is null, or contact groups found a wrong `size` of the record.
 * VZ_ERR_UNKNOWN_TYPE: no such type code.
 * VZ_ERR_POINTER: `in`, `item` or the text cannot be read; a null text with a length other than 0 is such a
 * text. VZ_ERR_INVALID_TEXT: the text holds no object of the type's kind and version; an empty text, null
 * included, holds none. VZ_ERR_OUT_OF_MEMORY, VZ_ERR_OLE_OUT_OF_MEMORY, VZ_ERR_UNEXPECTED: as their names
 * say.
 *
 * After VZ_ERR_INVALID_PARAM and VZ_ERR_UNKNOWN_TYPE the record is as it was. After any other failure a
 * record of a known size may be zeroed behind `size` or hold what was read so far. Release, after a failure
 * too: FreeConverterData(type, item).
 */
VZAPI_EXPORT ResultCode ConvertFromVersit(uint32_t type, const VersitData* in, void* item) VZAPI_NOEXCEPT;

/*
 * Tells in one pass over the text, without parsing, whether it has the marks of an object of the type: its
 * BEGIN and its END, anywhere and in any order. Letters match without regard to case, in messages exactly.
 *
 * `data`: `size` must be 24; `text` and `length` (bytes) are read.
 *
 * VZ_ERR_INVALID_PARAM: `data` is null or cannot be read, `size` is not 24, `length` is 0, or `text` is null
 * or cannot be read. These come before the type code. VZ_ERR_UNKNOWN_TYPE: no such type code.
 * VZ_ERR_INVALID_TEXT: one of the two marks is missing.
 * VZ_ERR_OUT_OF_MEMORY, VZ_ERR_UNEXPECTED: as their names say.
 */
VZAPI_EXPORT ResultCode ValidateVersitData(uint32_t type, const VersitData* data) VZAPI_NOEXCEPT;

/*
 * Releases the text that ConvertToVersit or ConvertToVersit2 put into `data`, and sets all four members to 0.
 * A text pointer that is null, cannot be read or is no block of the process heap is left alone and only set
 * to null.
 *
 * VZ_ERR_POINTER: `data` is null or cannot be read.
 * VZ_ERR_INVALID_PARAM: `size` is not 24, as after an earlier release; nothing is changed.
 */
VZAPI_EXPORT ResultCode FreeVersitData(VersitData* data) VZAPI_NOEXCEPT;

/*
 * Releases every string, array and sub-record that ConvertFromVersit put into the record at `item`, and sets
 * them to null and their counts to 0, so that a second call does no harm. The record itself stays the
 * caller's.
 *
 * VZ_ERR_UNKNOWN_TYPE: no such type code.
 * VZ_ERR_POINTER: `item` is null or cannot be read.
 * VZ_ERR_BAD_VALUE: interface version 13 or later was announced and `size` is none of the type's; nothing is
 * released. VZ_ERR_UNEXPECTED: as its name says.
 */
VZAPI_EXPORT ResultCode FreeConverterData(uint32_t type, void* item) VZAPI_NOEXCEPT;

/*
 * Registration of a shared library, under the two names that the system calls. On Windows the system's own
 * headers declare them too, as functions returning HRESULT: the declarations here agree with those, in either
 * order.
 */
#if defined(_WIN32)
typedef long RegistrationResult;
#define VZAPI_EXPORT_REGISTRATION
#else
typedef ResultCode RegistrationResult;
#define VZAPI_EXPORT_REGISTRATION VZAPI_EXPORT
#endif

/*
 * Writes the path of this library under "SOFTWARE\Corvanet\API\" of the local machine, as the values
 * "VZAPI64" and "ODCAPI64". Always returns 0: a registry that cannot be written stays as it is, without a
 * word.
 */
VZAPI_EXPORT_REGISTRATION RegistrationResult DllRegisterServer(void);

/* Removes the two values again and leaves the key. Always returns 0, also when nothing was registered. */
VZAPI_EXPORT_REGISTRATION RegistrationResult DllUnregisterServer(void);

#if defined(__cplusplus)
}
#endif

#endif
