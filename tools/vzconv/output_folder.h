// The folder that files of objects are written into.
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace vzconv {

// Never overwrites a file: a name that is taken, be it in capitals, gets a number. So the names are the same
// on systems that tell capitals apart and on those that do not.
class OutputFolder {
public:
    // Makes the folder `name` (UTF-8), and those around it, where it is not there. Throws Failure when that
    // cannot be done, or what it holds cannot be read.
    explicit OutputFolder(const std::string& name);

    // Writes a file of that name, which safe_name() made, or with a number in it, and returns its path.
    // Throws Failure, with the path in front, when it cannot be written.
    std::string write(const std::string& name, std::string_view data);

private:
    std::string free_name(const std::string& name);

    std::filesystem::path path_;
    std::string prefix_;                          // of the paths returned
    std::set<std::string> taken_;                 // folded
    std::map<std::string, std::size_t> numbers_;  // the last one that a folded name got
};

}  // namespace vzconv
