#include "vzconv/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <new>
#include <ostream>

#include "vzconv/failure.h"
#include "vzconv/library.h"

namespace vzconv {
namespace {

struct CommandRow {
    const char* name;
    const char* help;
    const char* files_help;
    Command run;
    bool has_profile;
};

constexpr const char* kVersitFiles = "Files with versit objects; - is standard input";
constexpr const char* kJsonFiles = "Files with JSON objects, one a line; - is standard input";

constexpr CommandRow kCommands[] = {
    {"show", "Print each object for a person to read", kVersitFiles, show, false},
    {"json", "Print each object as one line of JSON", kVersitFiles, json, false},
    {"versit", "Print versit text for each line of JSON", kJsonFiles, versit, true},
    {"check", "Print a line for each object: file, line, kind, ok or what is wrong", kVersitFiles, check,
     false},
};

constexpr const char* kDescription =
    "Converts phone data between versit text (vCard, vCalendar, vMessage, vBookmark) and JSON.";
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

void remove_guards(FileNames& files) {
    for (std::string& file : files) {
        if (file.starts_with(kGuard)) file.erase(0, 1);
    }
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

// What the parser throws: --help and --version ask for text, all else is a mistake.
int answer(const CLI::App& app, const CLI::ParseError& error, const std::vector<std::string>& arguments,
           Streams streams) {
    if (error.get_exit_code() == 0) {
        app.exit(error, streams.out, streams.out);
        if (!streams.out.flush()) throw OutputLost();
        return kAllConverted;
    }
    streams.err << "vzconv: " + mistake_in(arguments, error) + "\nTry vzconv --help.\n";
    return kUsage;
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

int parse_and_run(const std::vector<std::string>& arguments, Streams streams) {
    CLI::App app(kDescription, "vzconv");
    app.footer(kFooter);
    app.require_subcommand(1);
    app.set_version_flag("--version", "vzconv " VZCONV_VERSION);
    app.get_formatter()->column_width(16);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.get_formatter()->label("REQUIRED", "");
    Request request;
    std::string profile;
    for (const CommandRow& row : kCommands) {
        CLI::App* command = app.add_subcommand(row.name, row.help);
        command->group("Commands");
        command->add_option("FILE", request.files, row.files_help)->required()->type_name("");
        if (row.has_profile) add_profile(*command, profile);
    }
    try {
        app.parse(for_parser(arguments));
    } catch (const CLI::ParseError& error) {
        return answer(app, error, arguments, streams);
    }
    remove_guards(request.files);
    if (!profile.empty()) request.profile = profile_of(profile);
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
