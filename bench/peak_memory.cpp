#include "peak_memory.h"

#include <fstream>
#include <string>

namespace vzapi::bench {
namespace {

// A figure of proc(5), which counts kilobytes.
std::size_t process_figure(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind(name, 0) == 0) return std::stoul(line.substr(name.size())) * 1024;
    }
    return 0;
}

}  // namespace

PeakMemory::PeakMemory() {
    std::ofstream("/proc/self/clear_refs") << "5";  // the peak begins anew at what is in use
    before_ = process_figure("VmRSS:");
}

std::size_t PeakMemory::bytes() const {
    const std::size_t peak = process_figure("VmHWM:");
    return peak > before_ ? peak - before_ : 0;
}

}  // namespace vzapi::bench
