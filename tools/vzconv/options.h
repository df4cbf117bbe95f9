// What the arguments of the program ask of the converters.
#pragma once

#include <cstdint>

#include "vzapi/calendar.h"
#include "vzconv/profile.h"

namespace vzconv {

// The family of functions that objects are converted with.
enum class Door {
    Conversions,  // ConvertFromVersit and its kin
    Objects,      // the ODCAPI_ functions, which know no profile and no contact groups
};

struct Options {
    Profile profile;  // of the device that text is written for
    // `size` of the records that calendar entries are read into and written from, a VZ_CALENDAR_SIZE_ value.
    uint32_t calendar_record_size = VZ_CALENDAR_SIZE_TIME_ZONE;
    Door door = Door::Conversions;
};

}  // namespace vzconv
