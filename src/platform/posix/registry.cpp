#include "platform/registry.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/utf8.h"

namespace vzapi::platform {
namespace {

namespace fs = std::filesystem;

fs::path root() {
    const char* folder = std::getenv("VZAPI_REGISTRY");
    return folder != nullptr && *folder != '\0' ? folder : "/etc/opt/corvanet";
}

// One step of a path below the root, never out of it.
bool is_plain_name(std::u16string_view name) {
    constexpr std::u16string_view kForbidden(u"/\0", 2);
    return !name.empty() && name != u"." && name != u".." && name.find_first_of(kForbidden) == name.npos;
}

std::optional<fs::path> folder_of(std::u16string_view key) {
    if (!key.empty() && key.back() == u'\\') key.remove_suffix(1);
    fs::path folder = root();
    for (;;) {
        const std::size_t end = key.find(u'\\');
        const std::u16string_view part = key.substr(0, end);
        if (!is_plain_name(part)) return std::nullopt;
        folder /= utf16_to_utf8(part);
        if (end == key.npos) return folder;
        key.remove_prefix(end + 1);
    }
}

std::optional<fs::path> file_of(std::u16string_view key, std::u16string_view name) {
    std::optional<fs::path> path = folder_of(key);
    if (!path || !is_plain_name(name)) return std::nullopt;
    *path /= utf16_to_utf8(name);
    return path;
}

bool write_all(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Under a name of its own first, so that a reader finds the old value or the new one, and never half of one.
bool replace_file(const fs::path& path, std::string_view bytes) {
    std::string temporary = path.parent_path() / ".new-XXXXXX";
    const int file = mkostemp(temporary.data(), O_CLOEXEC);
    if (file < 0) return false;
    constexpr mode_t kReadableByAll = 0644;
    bool done = write_all(file, bytes) && fchmod(file, kReadableByAll) == 0;
    done = close(file) == 0 && done;
    done = done && std::rename(temporary.c_str(), path.c_str()) == 0;
    if (!done) unlink(temporary.c_str());
    return done;
}

// Runs `action`; what it throws counts as "could not be done".
template <class Action>
bool succeeds(Action action) noexcept {
    try {
        return action();
    } catch (...) {
        return false;
    }
}

}  // namespace

bool registry_create_key(std::u16string_view key) noexcept {
    return succeeds([&] {
        const std::optional<fs::path> folder = folder_of(key);
        std::error_code error;
        if (folder) fs::create_directories(*folder, error);
        return folder && fs::is_directory(*folder, error);
    });
}

bool registry_has_key(std::u16string_view key) noexcept {
    return succeeds([&] {
        const std::optional<fs::path> folder = folder_of(key);
        std::error_code error;
        return folder && fs::is_directory(*folder, error);
    });
}

bool registry_write(std::u16string_view key, std::u16string_view name, std::u16string_view value) noexcept {
    return succeeds([&] {
        const std::optional<fs::path> file = file_of(key, name);
        return file && replace_file(*file, utf16_to_utf8(value));
    });
}

bool registry_delete_value(std::u16string_view key, std::u16string_view name) noexcept {
    return succeeds([&] {
        const std::optional<fs::path> file = file_of(key, name);
        return file && unlink(file->c_str()) == 0;
    });
}

std::optional<std::u16string> registry_read(std::u16string_view key, std::u16string_view name) {
    const std::optional<fs::path> path = file_of(key, name);
    std::error_code error;
    if (!path || !fs::is_regular_file(*path, error)) return std::nullopt;
    std::ifstream file(*path, std::ios::binary);
    if (!file) return std::nullopt;
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return utf8_to_utf16(bytes);
}

}  // namespace vzapi::platform
