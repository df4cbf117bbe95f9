// There is no COM on this system.
#include "platform/com_scope.h"

namespace vzapi::platform {

ComScope::ComScope(ComRelease /*release*/) noexcept {}

ComScope::~ComScope() = default;

}  // namespace vzapi::platform
