#include "vzconv/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <new>
#include <ostream>

#include "vzconv/code_words.h"
#include "vzconv/extract.h"
#include "vzconv/failure.h"
#include "vzconv/library.h"
#include "vzconv/versit_output.h"

namespace vzconv {
namespace {

struct CommandRow {
    const char* name;
    const char* help;
    const char* files_help;
    Command run;
    bool writes_versit;  // has --profile and --utf8
    bool has_record_size;
    bool writes_files;  // has -o
};

constexpr const char* kObjectFiles =
    "Files with versit objects, a multimedia message or an e-mail item, or folders of them; - is standard "
    "input";
constexpr const char* kJsonFiles =
    "Files with JSON objects, one a line, or folders of them; - is standard input";

constexpr CommandRow kCommands[] = {
    {"show", "Print each object for a person to read", kObjectFiles, show, false, true, false},
    {"list", "Print a line for each text message, sorted by date", kObjectFiles, list, false, false, false},
    {"json", "Print each object as one line of JSON", kObjectFiles, json, false, true, false},
    {"versit", "Print versit text, or a multimedia message, for each line of JSON", kJsonFiles, versit, true,
     true, false},
    {"check", "Print a line for each object: file, line, kind, ok or what is wrong", kObjectFiles, check,
     false, false, false},
    {"extract", "Write the parts of multimedia messages and the photos of contacts into a folder",
     kObjectFiles, extract, false, false, true},
};

constexpr const char* kDescription =
    "Converts phone data between versit text (vCard, vCalendar, vMessage, vBookmark), multimedia messages "
    "and "
    "JSON; reads e-mail items.";
constexpr const char* kFooter = "Exit status: 0 all converted, 1 some failed, 2 usage.";

// The parser takes an argument in brackets for a list. This character before it, which no name begins with,
// keeps the name of a file whole.
constexpr char kGuard = '\x01';

// The parser wants the last argument first.
std::vector<std::string> for_parser(const std::vector<std::string>& arguments) {
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    for (std::string& argument : reversed) {
        if (argument.starts_with('[')) argument.insert(argument.begin(), kGuard);
    }
    return reversed;
}

void remove_guard(std::string& name) {
    if (name.starts_with(kGuard)) name.erase(0, 1);
}

void remove_guards(FileNames& files) {
    for (std::string& file : files) remove_guard(file);
}

int convert(Command command, const Request& request, Streams streams) {
    Report report(streams.err);
    const LibrarySession session;
    command(request, streams, report);
    if (!streams.out.flush()) throw OutputLost();
    return report.has_failures() ? kSomeFailed : kAllConverted;
}

// What is wrong with the arguments. The parser's own words tell it well once the command is known.
std::string mistake_in(const std::vector<std::string>& arguments, const CLI::ParseError& error) {
    if (arguments.empty()) return "a command is required";
    const std::string& first = arguments.front();
    const bool is_command = std::any_of(std::begin(kCommands), std::end(kCommands),
                                        [&first](const CommandRow& row) { return row.name == first; });
    if (is_command) return error.what();
    return (first.starts_with('-') ? "there is no option \"" : "there is no command \"") + first + "\"";
}

int say_mistake(const std::string& mistake, Streams streams) {
    streams.err << "vzconv: " + mistake + "\nTry vzconv --help.\n";
    return kUsage;
}

// What the parser throws: --help and --version ask for text, all else is a mistake.
int answer(const CLI::App& app, const CLI::ParseError& error, const std::vector<std::string>& arguments,
           Streams streams) {
    if (error.get_exit_code() == 0) {
        app.exit(error, streams.out, streams.out);
        if (!streams.out.flush()) throw OutputLost();
        return kAllConverted;
    }
    return say_mistake(mistake_in(arguments, error), streams);
}

// The option --profile, and the names that it knows below the options.
void add_profile(CLI::App& command, std::string& profile) {
    command.add_option("--profile", profile, "Write for a receiving device: a profile below")
        ->type_name("NAME")
        ->check([](const std::string& name) {
            try {
                profile_of(name);
                return std::string();
            } catch (const Failure& failure) {
                return std::string(failure.what());
            }
        });
    std::string names = "Profiles:\n";
    for (const ProfileRow& row : profiles()) {
        constexpr std::size_t kNameWidth = 28;
        std::string name(row.name);
        name.resize(kNameWidth, ' ');
        names.append("  ").append(name).append(row.effect).append("\n");
    }
    command.footer(names + "  FAMILY:VERSION              any other, such as 0x02000020:300");
}

constexpr CodeWord kDoors[] = {
    {static_cast<uint32_t>(Door::Conversions), "conversions"},
    {static_cast<uint32_t>(Door::Objects), "objects"},
};

// The option --via, for those who test the library.
void add_via(CLI::App& command, std::string& via) {
    command
        .add_option("--via", via,
                    "Convert by the functions of one family: conversions, the default, or objects (ODCAPI_), "
                    "which have no profiles and no contact groups")
        ->type_name("FAMILY")
        ->check([](const std::string& name) {
            return code_of(kDoors, name) ? std::string() : "there is no family \"" + name + "\"";
        });
}

// The option --record-size, for those who test hosts that know an older record.
void add_record_size(CLI::App& command, uint32_t& size) {
    command
        .add_option("--record-size", size,
                    "Convert calendar entries by a record of 112, 128, 152 or 192 bytes")
        ->type_name("BYTES")
        ->check(CLI::IsMember({VZ_CALENDAR_SIZE_BASE, VZ_CALENDAR_SIZE_EXCEPTIONS,
                               VZ_CALENDAR_SIZE_WIDE_REPEAT, VZ_CALENDAR_SIZE_TIME_ZONE}));
}

// The option -o of a command that writes files.
void add_folder(CLI::App& command, std::string& folder) {
    command
        .add_option("-o,--output", folder,
                    "The folder to write into, made when it is not there; no file in it "
                    "is overwritten")
        ->required()
        ->type_name("DIR");
}

int parse_and_run(const std::vector<std::string>& arguments, Streams streams) {
    CLI::App app(kDescription, "vzconv");
    app.footer(kFooter);
    app.require_subcommand(1);
    app.allow_windows_style_options(false);  // "/folder/file" is a file everywhere
    app.set_version_flag("--version", "vzconv " VZCONV_VERSION);
    app.get_formatter()->column_width(16);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.get_formatter()->label("REQUIRED", "");
    Request request;
    std::string profile;
    std::string via;
    for (const CommandRow& row : kCommands) {
        CLI::App* command = app.add_subcommand(row.name, row.help);
        command->group("Commands");
        command->add_option("FILE", request.files, row.files_help)->required()->type_name("");
        if (row.writes_versit) {
            add_profile(*command, profile);
            command->add_flag("--utf8", request.utf8, "Write messages as UTF-8, not as UTF-16 with a mark");
        }
        if (row.writes_files) add_folder(*command, request.folder);
        add_via(*command, via);
        if (row.has_record_size) add_record_size(*command, request.options.calendar_record_size);
    }
    try {
        app.parse(for_parser(arguments));
    } catch (const CLI::ParseError& error) {
        return answer(app, error, arguments, streams);
    }
    remove_guards(request.files);
    remove_guard(request.folder);
    if (!profile.empty()) request.options.profile = profile_of(profile);
    if (!via.empty()) request.options.door = static_cast<Door>(code_of(kDoors, via).value());
    if (request.options.door == Door::Objects && !request.options.profile.is_none()) {
        return say_mistake("--profile: the family \"objects\" has no profiles", streams);
    }
    for (const CommandRow& row : kCommands) {
        if (app.got_subcommand(row.name)) return convert(row.run, request, streams);
    }
    return kUsage;
}

}  // namespace

int run(const std::vector<std::string>& arguments, Streams streams) {
    try {
        return parse_and_run(arguments, streams);
    } catch (const OutputLost& lost) {
        streams.err << std::string("vzconv: ") + lost.what() + "\n";
    } catch (const std::bad_alloc&) {
        streams.err << "vzconv: out of memory\n";
    }
    return kSomeFailed;
}

}  // namespace vzconv
