#include "vzconv/output_folder.h"

#include <system_error>

#include "vzconv/failure.h"
#include "vzconv/new_file.h"
#include "vzconv/safe_name.h"

namespace vzconv {
namespace {

namespace fs = std::filesystem;

fs::path path_of(const std::string& name) {
    return fs::path(std::u8string(name.begin(), name.end()));
}

std::string utf8_of(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

void fail_for(const char* what, const std::error_code& error) {
    if (!error) return;
    const std::error_condition reason = error.default_error_condition();
    throw Failure(std::string(what) + ": " + std::generic_category().message(reason.value()));
}

bool ends_with_separator(const std::string& name) {
    return name.ends_with('/') || (fs::path::preferred_separator == '\\' && name.ends_with('\\'));
}

}  // namespace

OutputFolder::OutputFolder(const std::string& name)
    : path_(path_of(name)), prefix_(ends_with_separator(name) ? name : name + "/") {
    std::error_code error;
    fs::create_directories(path_, error);
    std::error_code ignored;
    if (fs::is_directory(path_, ignored)) error.clear();  // it was there before
    fail_for("the folder cannot be made", error);
    fs::directory_iterator entries(path_, error);
    for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
        taken_.insert(folded_name(utf8_of(entries->path().filename())));
    }
    fail_for("the folder cannot be read", error);
}

std::string OutputFolder::write(const std::string& name, std::string_view data) {
    for (;;) {
        const std::string free = free_name(name);
        try {
            taken_.insert(folded_name(free));
            if (write_new_file(path_ / path_of(free), data)) return prefix_ + free;
        } catch (const Failure& failure) {
            throw Failure(prefix_ + free + " " + failure.what());
        }
    }
}

// Many files of one name are usual, so the numbers are counted on.
std::string OutputFolder::free_name(const std::string& name) {
    if (!taken_.contains(folded_name(name))) return name;
    std::size_t& number = numbers_.try_emplace(folded_name(name), 1).first->second;
    for (;;) {
        std::string numbered = numbered_name(name, ++number);
        if (!taken_.contains(folded_name(numbered))) return numbered;
    }
}

}  // namespace vzconv
