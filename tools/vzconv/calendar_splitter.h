// A calendar with several entries as calendars of one entry each, which is what the library converts.
#pragma once

#include <functional>

#include "vzconv/object_splitter.h"

namespace vzconv {

// Calls `handle` with each entry of `piece` in the order of the text: each VEVENT and VTODO as a calendar of
// its own, whose head says of version and time zone what the whole calendar says. The piece of an entry has
// the line where the entry begins, and its text lives for that call only. An entry that the library does not
// know, such as VJOURNAL, is a piece of the form Unknown.
//
// A calendar of one entry, and any other object, is handed on as it is. Of a calendar without its END, that
// comes first as it is, and then its entries; the last one, if it is cut off too, as a piece of the form
// Unfinished, unless it is the only one.
//
// Linear in the size of the text: what the head repeats is short.
void for_each_entry(const Piece& piece, const std::function<void(const Piece& entry)>& handle);

}  // namespace vzconv
