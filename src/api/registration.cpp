// DllRegisterServer and DllUnregisterServer: tell host applications where the library lies, through two
// values of the machine-wide settings store. Nothing here ever fails towards the caller.
#include <string>
#include <string_view>

#include "platform/module_path.h"
#include "platform/registry.h"
#include "vzapi/vzapi.h"

namespace {

constexpr std::u16string_view kKey = u"SOFTWARE\\Corvanet\\API\\";
constexpr std::u16string_view kValueNames[] = {u"VZAPI64", u"ODCAPI64"};

void write_module_path() {
    if (!vzapi::platform::registry_create_key(kKey)) return;
    const std::u16string path = vzapi::platform::module_path();
    if (path.empty()) return;
    for (const std::u16string_view name : kValueNames) {
        static_cast<void>(vzapi::platform::registry_write(kKey, name, path));
    }
}

}  // namespace

RegistrationResult DllRegisterServer() {
    try {
        write_module_path();
    } catch (...) {
        // Registration is a convenience: without memory for a path the hosts look elsewhere.
        return 0;
    }
    return 0;
}

RegistrationResult DllUnregisterServer() {
    for (const std::u16string_view name : kValueNames) {
        static_cast<void>(vzapi::platform::registry_delete_value(kKey, name));
    }
    return 0;
}
