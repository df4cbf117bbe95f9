/* The bookmark record: VZ_TYPE_BOOKMARK, vBookmark 1.0 text. */
#ifndef VZAPI_BOOKMARK_H
#define VZAPI_BOOKMARK_H

#include "vzapi/base.h"

#if defined(__cplusplus)
extern "C" {
#endif

/*
 * One bookmark of a browser. Strings are zero-terminated UTF-16; null means absent.
 *
 * Filled by ConvertFromVersit: each string is a new OLE string, the record is released with
 * FreeConverterData. Read by ConvertToVersit: the strings stay the caller's; one that cannot be read counts
 * as absent. `size` is not checked on writing; ConvertFromVersit sets it to 32 whatever it held, so the
 * memory must have 32 bytes.
 */
typedef struct BookmarkItem {
    uint32_t size;      /* 32 */
    char16_t* title;    /* TITLE */
    char16_t* url;      /* URL */
    char16_t* shortcut; /* address in the Internet-shortcut body of the ENV component */
} BookmarkItem;

VZAPI_ASSERT_SIZE(BookmarkItem, 32);
VZAPI_ASSERT_OFFSET(BookmarkItem, size, 0);
VZAPI_ASSERT_OFFSET(BookmarkItem, title, 8);
VZAPI_ASSERT_OFFSET(BookmarkItem, url, 16);
VZAPI_ASSERT_OFFSET(BookmarkItem, shortcut, 24);

#if defined(__cplusplus)
}
#endif

#endif
