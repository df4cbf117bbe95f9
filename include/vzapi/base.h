/*
 * What every other header of the interface stands on: integer types, UTF-16 text, result codes, and
 * VersitData.
 *
 * Records are the same bytes on both platforms: little-endian, natural alignment, 8-byte pointers. Their
 * layout is part of the interface; VZAPI_ASSERT_SIZE and VZAPI_ASSERT_OFFSET pin it where each record is
 * declared.
 */
#ifndef VZAPI_BASE_H
#define VZAPI_BASE_H

#include <stddef.h>
#include <stdint.h>

#if !defined(__cplusplus)
#if defined(__has_include)
#if __has_include(<uchar.h>)
#include <uchar.h>
#define VZAPI_HAS_UCHAR 1
#endif
#endif
#if !defined(VZAPI_HAS_UCHAR)
typedef uint16_t char16_t;
#endif
#endif

/* Marks an exported function. Define VZAPI_STATIC where the code is linked in rather than loaded. */
#if defined(VZAPI_STATIC) || (defined(_WIN32) && defined(VZAPI_BUILDING))
#define VZAPI_EXPORT
#elif defined(_WIN32)
#define VZAPI_EXPORT __declspec(dllimport)
#else
#define VZAPI_EXPORT __attribute__((visibility("default")))
#endif

#if defined(__cplusplus)
#define VZAPI_NOEXCEPT noexcept
#define VZAPI_STATIC_ASSERT(condition, message) static_assert(condition, message)
extern "C" {
#else
#define VZAPI_NOEXCEPT
#define VZAPI_STATIC_ASSERT(condition, message) _Static_assert(condition, message)
#endif

/* Pins the size of a record, and the offset of one of its members. */
#define VZAPI_ASSERT_SIZE(record, bytes) \
    VZAPI_STATIC_ASSERT(sizeof(record) == (bytes), #record " must have " #bytes " bytes")
#define VZAPI_ASSERT_OFFSET(record, member, bytes)           \
    VZAPI_STATIC_ASSERT(offsetof(record, member) == (bytes), \
                        #record "." #member " must stand at byte " #bytes)

/* Result of a call: VZ_OK, or one of the codes below. */
typedef uint32_t ResultCode;

#define VZ_OK UINT32_C(0)
/* A required pointer is null; a VersitData with a wrong `size` where that is checked. */
#define VZ_ERR_INVALID_PARAM UINT32_C(0x80800001)
/* The type code is none of 1 to 5. */
#define VZ_ERR_UNKNOWN_TYPE UINT32_C(0x80800002)
/* The text holds no object, or not one of the kind and version that the type code stands for. */
#define VZ_ERR_INVALID_TEXT UINT32_C(0x80800003)
/* VZAPI_Initialize(0): thrown, not returned. ODCAPI_Initialize: a version other than 10. */
#define VZ_ERR_VERSION UINT32_C(0x80100005)
/* Something unforeseen went wrong inside the call. */
#define VZ_ERR_UNEXPECTED UINT32_C(0x80100010)
/* A pointer cannot be read; a record given to a free function is null. */
#define VZ_ERR_POINTER UINT32_C(0x80100012)
/* A record's `size` is not the one expected at the announced version; for ODCAPI functions any bad value. */
#define VZ_ERR_BAD_VALUE UINT32_C(0x80100013)
/* A heap or string allocation failed. */
#define VZ_ERR_OUT_OF_MEMORY UINT32_C(0x80100015)
/* An OLE string could not be allocated during a charset conversion (the system's E_OUTOFMEMORY). */
#define VZ_ERR_OLE_OUT_OF_MEMORY UINT32_C(0x8007000E)

/*
 * Carries versit text across the interface, in both directions. As output: `size` and `format` are set,
 * `text` is a new block of the process heap with exactly `length` bytes and no terminator, released with
 * FreeVersitData. As input: the caller's bytes, read only, needed for the length of the call; the text ends
 * at its first NUL.
 */
typedef struct VersitData {
    uint32_t size; /* 24 */
    uint32_t
        format; /* 1 from the writers of the conversion family, 2 from ODCAPI_CreateDataObject; not read */
    uint32_t length; /* bytes; for UTF-16 text twice the number of units */
    void* text;      /* bytes; UTF-16LE units for messages */
} VersitData;

VZAPI_ASSERT_SIZE(VersitData, 24);
VZAPI_ASSERT_OFFSET(VersitData, size, 0);
VZAPI_ASSERT_OFFSET(VersitData, format, 4);
VZAPI_ASSERT_OFFSET(VersitData, length, 8);
VZAPI_ASSERT_OFFSET(VersitData, text, 16);

#define VZ_FORMAT_CONVERTED 1
#define VZ_FORMAT_DATA_OBJECT 2

/* Access class of a contact or a calendar entry: CLASS. */
enum {
    VZ_CLASS_PRIVATE = 1,
    VZ_CLASS_PUBLIC = 2,
    VZ_CLASS_NONE = 3,
};

#if defined(__cplusplus)
}
#endif

#endif
