// The presentation part: a SMIL document (SMIL 2.0, MMS subset) that shows the parts of a message page by
// page.
#pragma once

#include "mms/mms_message.h"

namespace vzapi::mms {

// Puts several parts without a container into one, and gives a container of media parts that has no
// presentation one: a page for each picture or video with the text, and the sound, that come behind it. Does
// without the presentation where `message.flags` forbids it.
void complete_body(Message& message);

}  // namespace vzapi::mms
