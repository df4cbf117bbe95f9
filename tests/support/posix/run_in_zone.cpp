#include "support/run_in_zone.h"

#include <ctime>

#include "support/environment.h"

namespace vzapi::test {

void run_in_zone(const std::string& zone, const std::function<void()>& body) {
    {
        const EnvironmentVariable variable("TZ", zone);
        body();
    }
    tzset();
}

}  // namespace vzapi::test
