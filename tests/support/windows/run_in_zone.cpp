#include "support/run_in_zone.h"

#include "support/environment.h"

namespace vzapi::test {

void run_in_zone(const std::string& zone, const std::function<void()>& body) {
    if (environment("TZ") == zone) body();
}

}  // namespace vzapi::test
