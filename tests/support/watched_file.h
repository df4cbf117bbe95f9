// Something that can be opened by its path, and tells whether anybody has.
#pragma once

#include <cstdint>
#include <string>

namespace vzapi::test {

// On Linux a file of its own in the folder for temporary files, on Windows a pipe with a name, since that
// system tells nobody of the reading of a file.
class WatchedFile {
public:
    WatchedFile();
    ~WatchedFile();
    WatchedFile(const WatchedFile&) = delete;
    WatchedFile& operator=(const WatchedFile&) = delete;

    [[nodiscard]] const std::string& path() const noexcept { return path_; }
    // "file:" and what belongs in front of the path.
    [[nodiscard]] std::string url() const;
    // True when it has been opened since the last call.
    [[nodiscard]] bool was_opened() const;

private:
    std::string path_;
    std::intptr_t handle_;
};

}  // namespace vzapi::test
