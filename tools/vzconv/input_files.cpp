#include "vzconv/input_files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "vzconv/failure.h"

namespace vzconv {
namespace {

namespace fs = std::filesystem;

std::string utf8_of(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

}  // namespace

std::vector<std::string> input_files(const std::string& name) {
    const fs::path folder(std::u8string(name.begin(), name.end()));
    std::error_code error;
    if (name == "-" || !fs::is_directory(folder, error)) return {name};
    const std::string prefix = name.ends_with('/') ? name : name + "/";
    std::vector<std::string> files;
    fs::directory_iterator entries(folder, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        std::error_code ignored;  // what cannot be looked at is tried as a file, and tells why it is none
        if (!entries->is_directory(ignored)) files.push_back(prefix + utf8_of(entries->path().filename()));
    }
    if (error) {
        const std::error_condition reason = error.default_error_condition();
        throw Failure("cannot be read: " + std::generic_category().message(reason.value()));
    }
    if (files.empty()) throw Failure("is a folder without files");
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace vzconv
