#include "vzconv/extract.h"

#include <optional>

#include "vzconv/failure.h"
#include "vzconv/found_objects.h"
#include "vzconv/output_folder.h"
#include "vzconv/readable.h"
#include "vzconv/safe_name.h"
#include "vzconv/size_words.h"
#include "vzconv/versit_output.h"

namespace vzconv {
namespace {

// The name of a file without its folders and extension, for what has no name of its own.
std::string stem_of(const std::string& file) {
    if (file == "-") return "standard input";
    const std::string name = file.substr(file.find_last_of("/\\") + 1);
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

// "out/picture.jpg: image/jpeg, 4.2 KB, from saved/1.mms".
std::string line_of(const std::string& path, const EmbeddedFile& file, const Place& place) {
    const std::string type = file.type.empty() ? "unknown type" : in_one_line(file.type);
    return path + ": " + type + ", " + size_in_words(file.data.size()) + ", from " + in_words(place) + "\n";
}

void write_file(const EmbeddedFile& file, const Found& found, OutputFolder& folder, Streams streams,
                Report& report) {
    const std::string& name = file.name.empty() ? stem_of(found.place.file) : file.name;
    try {
        const std::string path = folder.write(safe_name(name, file.type), file.data);
        put(streams.out, line_of(path, file, found.place));
    } catch (const Failure& failure) {
        report.failure(found.place, found.kind_name(), failure.what());
    }
}

// A message that is cut off gives what there is of it, but not without a word.
void warn_of_flaws(std::string_view text, const Options& options, const Found& found, Report& report) {
    const auto check = found.kind->converter->check;
    if (check == nullptr) return;
    try {
        check(text, options);
    } catch (const Failure& failure) {
        report.warning(found.place, failure.what());
    }
}

}  // namespace

void extract(const Request& request, Streams streams, Report& report) {
    std::optional<OutputFolder> folder;
    try {
        folder.emplace(request.folder);
    } catch (const Failure& failure) {
        return report.failure({request.folder}, {}, failure.what());
    }
    std::string storage;
    for_each_object(request, streams, report, [&](const Found& found) {
        try {
            const std::string_view text = found.library_text(storage);
            const auto files = found.kind->converter->files;
            if (files == nullptr) return;
            for (const EmbeddedFile& file : files(text, request.options))
                write_file(file, found, *folder, streams, report);
            warn_of_flaws(text, request.options, found, report);
        } catch (const Failure& failure) {
            report.failure(found.place, found.kind_name(), failure.what());
        }
    });
}

}  // namespace vzconv
