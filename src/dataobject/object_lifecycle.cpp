// Versions and counts of the data-object family, apart from those of the conversion family.
#include "api/guard.h"
#include "api/library_state.h"
#include "platform/pointer_probe.h"
#include "result.h"
#include "vzapi/odcapi.h"

using vzapi::guarded;
using vzapi::library_state;
using vzapi::raise;

ResultCode ODCAPI_Initialize(std::uint32_t version, std::uint64_t reserved) noexcept {
    return guarded([&] {
        if (version == 0) raise(VZ_ERR_BAD_VALUE);
        if (reserved != 0) raise(VZ_ERR_POINTER);
        if (version != VZ_OBJECT_INTERFACE_VERSION) raise(VZ_ERR_VERSION);
        ++library_state().object_init_count;
    });
}

ResultCode ODCAPI_Terminate(std::uint64_t reserved) noexcept {
    return guarded([&] {
        if (reserved != 0) raise(VZ_ERR_POINTER);
        auto& count = library_state().object_init_count;
        if (count != 0 && --count != 0) return;
        vzapi::release_shared_state([] { return library_state().pending_objects != 0; });
    });
}

ResultCode ODCAPI_GetAPIVersion(std::uint32_t* version) noexcept {
    return guarded([&] {
        if (!vzapi::platform::is_readable(version, sizeof *version)) raise(VZ_ERR_POINTER);
        *version = VZ_OBJECT_INTERFACE_VERSION;
    });
}
