#include "platform/module_path.h"

#include <dlfcn.h>
#include <link.h>

#include <cstdlib>
#include <memory>

#include "platform/utf8.h"

namespace vzapi::platform {
namespace {

// Lies in the module that asks.
const char kAnchor = 0;

struct Free {
    void operator()(char* text) const noexcept { std::free(text); }
};

}  // namespace

std::u16string module_path() {
    Dl_info module = {};
    void* entry = nullptr;
    if (dladdr1(&kAnchor, &module, &entry, RTLD_DL_LINKMAP) == 0) return {};
    const char* name = static_cast<const link_map*>(entry)->l_name;
    // The program itself has no name there; the one it was started by may mean nothing in the current folder.
    const std::unique_ptr<char, Free> path(realpath(*name == '\0' ? "/proc/self/exe" : name, nullptr));
    return path ? utf8_to_utf16(path.get()) : std::u16string();
}

}  // namespace vzapi::platform
