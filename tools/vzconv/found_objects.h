// The files that a command is asked for, and the objects in them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "vzconv/commands.h"
#include "vzconv/input_text.h"
#include "vzconv/kind.h"
#include "vzconv/object_splitter.h"

namespace vzconv {

using InputHandler = std::function<void(const std::string& file, const InputText& input)>;

// Reads the files that are asked for, one after the other.
void for_each_input(const Request& request, Streams streams, Report& report, const InputHandler& handle);

// One object of a file, whole or not.
struct Found {
    const Piece& piece;
    const Kind* kind;  // null: none of ours
    Place place;
    TextCharset charset;

    std::string_view kind_name() const { return kind != nullptr ? kind->name : piece.component; }

    // The text for the library, kept in `storage` where it differs from that of the file. Throws Failure when
    // the object is not whole or none of ours.
    std::string_view library_text(std::string& storage) const;
};

using ObjectHandler = std::function<void(const Found& found)>;

// Finds the objects of these files, in their order.
void for_each_object(const Request& request, Streams streams, Report& report, const ObjectHandler& handle);

}  // namespace vzconv
