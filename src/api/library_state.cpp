#include "api/library_state.h"

namespace vzapi {

LibraryState& library_state() noexcept {
    static constinit LibraryState state;
    return state;
}

}  // namespace vzapi
