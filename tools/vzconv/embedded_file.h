// A file inside an object: a part of a multimedia message, a contact's photo.
#pragma once

#include <string>

namespace vzconv {

struct EmbeddedFile {
    std::string name;  // as the object has it, UTF-8: any text, maybe a path, maybe empty
    std::string type;  // "image/jpeg"; any text, maybe empty
    std::string data;
};

}  // namespace vzconv
