// There is no COM on this system.
#include "platform/com_scope.h"

namespace vzapi::platform {

ComScope::ComScope() noexcept = default;

ComScope::~ComScope() = default;

}  // namespace vzapi::platform
