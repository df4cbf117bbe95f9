// A multimedia message as text for a person.
#pragma once

#include <string>

#include "vzapi/multimedia.h"

namespace vzconv {

// Who, when and about what come first, all else that is not a mere matter of the network in the order of the
// PDU, the parts last, with the text of those that are text. The presentation is named only.
std::string show_multimedia(const MultimediaItem& item);

}  // namespace vzconv
