#include "support/watched_file.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace vzapi::test {
namespace {

std::string new_file() {
    std::string path = (std::filesystem::temp_directory_path() / "vzapi_watched_XXXXXX").string();
    const int file = mkstemp(path.data());
    if (file < 0) throw std::runtime_error("no temporary file to watch");
    close(file);
    std::ofstream(path) << "from the file";
    return path;
}

}  // namespace

WatchedFile::WatchedFile() : path_(new_file()), handle_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    const int watch = static_cast<int>(handle_);
    if (watch < 0 || inotify_add_watch(watch, path_.c_str(), IN_OPEN | IN_ACCESS) < 0) {
        throw std::runtime_error("a file cannot be watched");
    }
}

WatchedFile::~WatchedFile() {
    close(static_cast<int>(handle_));
    unlink(path_.c_str());
}

std::string WatchedFile::url() const {
    return "file://" + path_;
}

bool WatchedFile::was_opened() const {
    alignas(inotify_event) std::array<char, 4096> events;
    bool opened = false;
    while (read(static_cast<int>(handle_), events.data(), events.size()) > 0) opened = true;
    return opened;
}

}  // namespace vzapi::test
