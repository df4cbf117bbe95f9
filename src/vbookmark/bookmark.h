// Bookmarks: BookmarkItem to vBookmark 1.0 text and back. The smallest converter, the one to read first:
// frame lines, one property a field, and a nested ENV component that repeats an address as an
// Internet-shortcut file.
#pragma once

#include <string>

#include "call_context.h"
#include "versit/object.h"

namespace vzapi::vbookmark {

// Fills the BookmarkItem at `item`, whose 32 bytes must be readable. Its `size` becomes 32 whatever it held.
// Raises VZ_ERR_INVALID_TEXT, and sets only `size`, when the text is no bookmark of version 1.0.
void read(const versit::VersitObject& object, void* item, const ReaderContext& context);

// The text of the BookmarkItem at `item`. A string that cannot be read counts as absent.
[[nodiscard]] std::string write(const void* item, const WriterContext& context);

// Releases the strings that read() put into the record and sets them to null. Raises VZ_ERR_POINTER for a
// record that cannot be read, VZ_ERR_BAD_VALUE for one whose `size` is not 32 from interface version 13 on.
void release(void* item, const ReleaseContext& context);

}  // namespace vzapi::vbookmark
