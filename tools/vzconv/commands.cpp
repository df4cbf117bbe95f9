#include "vzconv/commands.h"

#include <functional>
#include <istream>
#include <optional>
#include <ostream>

#include "vzconv/ascii.h"
#include "vzconv/calendar_splitter.h"
#include "vzconv/email_document.h"
#include "vzconv/failure.h"
#include "vzconv/input_files.h"
#include "vzconv/input_text.h"
#include "vzconv/json_fields.h"
#include "vzconv/json_lines.h"
#include "vzconv/kind.h"
#include "vzconv/library.h"
#include "vzconv/line_ends.h"
#include "vzconv/message_list.h"
#include "vzconv/object_splitter.h"
#include "vzconv/unicode.h"
#include "vzconv/versit_output.h"

namespace vzconv {
namespace {

using InputHandler = std::function<void(const std::string& file, const InputText& input)>;

void warn_of_lost_surrogates(const std::string& file, const InputText& input, Report& report) {
    if (input.unpaired == 0) return;
    report.warning({file, input.unpaired_line},
                   input.unpaired == 1 ? "half a surrogate pair is read as U+FFFD"
                                       : "halves of surrogate pairs, " + std::to_string(input.unpaired) +
                                             " from here on, are read as U+FFFD");
}

// What `read` gives, or nothing when its failure is reported.
template <class Read>
auto read_or_report(const std::string& name, Report& report, Read read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const Failure& failure) {
        report.failure({name}, {}, failure.what());
        return std::nullopt;
    }
}

// Reads the files that are asked for, one after the other.
void for_each_input(const Request& request, Streams streams, Report& report, const InputHandler& handle) {
    for (const std::string& name : request.files) {
        const auto files = read_or_report(name, report, [&] { return input_files(name); });
        for (const std::string& file : files.value_or(FileNames())) {
            const auto input = read_or_report(file, report, [&] { return read_input(file, streams.in); });
            if (!input) continue;
            warn_of_lost_surrogates(file, *input, report);
            handle(file, *input);
        }
    }
}

// One object of a file, whole or not.
struct Found {
    const Piece& piece;
    const Kind* kind;  // null: none of ours
    Place place;
    TextCharset charset;

    std::string_view kind_name() const { return kind != nullptr ? kind->name : piece.component; }

    // The text for the library, kept in `storage` where it differs from that of the file.
    std::string_view library_text(std::string& storage) const {
        if (!piece.reason.empty()) throw Failure(piece.reason);
        if (kind->form == TextForm::Xml) return piece.text;
        const std::string_view text = with_library_line_ends(piece.text, storage);
        return kind->form == TextForm::CodePage ? with_charset_marks(text, charset, storage) : text;
    }
};

using ObjectHandler = std::function<void(const Found& found)>;

void warn_of_stray_text(const std::string& file, std::size_t line, Report& report) {
    report.warning({file, line}, "text outside of any object is left out");
}

// One entry of a file, on its way to `handle`.
void hand_on(const std::string& file, const InputText& input, const Piece& entry, Report& report,
             const ObjectHandler& handle) {
    const Kind* kind = kind_of_object(entry.component, entry.text);
    const Found found = {entry, kind, {file, entry.line}, input.charset};
    if (kind != nullptr && kind->form == TextForm::Utf16 && !is_utf8(entry.text))
        report.warning(found.place, "what is no UTF-8 is read as U+FFFD");
    handle(found);
}

void for_each_object_of(const std::string& file, const InputText& input, Report& report,
                        const ObjectHandler& handle) {
    if (input.is_email_item) {
        return hand_on(file, input, {Piece::Form::Object, kEmailElement, input.text, 1, {}}, report, handle);
    }
    ObjectSplitter splitter(input.text);
    bool has_objects = false;
    std::size_t leading_stray = 0;  // a text without any object gets one message, not two
    for (Piece piece; splitter.next(piece);) {
        if (piece.form == Piece::Form::Stray) {
            if (has_objects) warn_of_stray_text(file, piece.line, report);
            if (!has_objects) leading_stray = piece.line;
            continue;
        }
        if (!has_objects && leading_stray != 0) warn_of_stray_text(file, leading_stray, report);
        has_objects = true;
        for_each_entry(piece, [&](const Piece& entry) { hand_on(file, input, entry, report, handle); });
    }
    if (!has_objects) report.failure({file}, {}, "holds no versit object");
}

void for_each_object(const Request& request, Streams streams, Report& report, const ObjectHandler& handle) {
    for_each_input(request, streams, report, [&](const std::string& file, const InputText& input) {
        for_each_object_of(file, input, report, handle);
    });
}

// Converts each object with `convert` and puts the result out.
void convert_each(const Request& request, Streams streams, Report& report,
                  const std::function<std::string(const Kind& kind, std::string_view text)>& convert) {
    std::string storage;
    for_each_object(request, streams, report, [&](const Found& found) {
        try {
            const std::string_view text = found.library_text(storage);
            put(streams.out, convert(*found.kind, text));
        } catch (const Failure& failure) {
            report.failure(found.place, found.kind_name(), failure.what());
        }
    });
}

nlohmann::ordered_json json_of(const Kind& kind, std::string_view text, const Options& options) {
    nlohmann::ordered_json object = {{"kind", kind.name}};
    kind.converter->to_json(text, options, object);
    return object;
}

// Throws Failure when an object is not as it should be.
void check_object(const Found& found, const Options& options) {
    std::string storage;
    const std::string_view text = found.library_text(storage);
    validate(found.kind->record, text, options.door);
    json_of(*found.kind, text, options);
}

const Kind& kind_of_json(const nlohmann::json& object) {
    const auto field = object.find("kind");
    if (field == object.end()) throw Failure("the key \"kind\" is missing");
    if (!field->is_string()) throw Failure("\"kind\" must be a string, not " + type_in_words(*field));
    const Kind* kind = kind_of_name(field->get_ref<const std::string&>());
    if (kind == nullptr) throw Failure("unknown kind " + field->dump());
    return *kind;
}

// Some values cannot be said in versit text: a title with a CR LF in it, for one, ends where the line does.
// Whoever writes such a value hears of it.
void warn_of_losses(const Kind& kind, const nlohmann::json& fields, std::string_view text,
                    const Options& options, const Place& place, Report& report) {
    nlohmann::json again;
    try {
        again = nlohmann::json(json_of(kind, text, options));
    } catch (const Failure& failure) {
        report.warning(place, std::string("the text written cannot be read again: ") + failure.what());
        return;
    }
    const auto plain_form = kind.converter->plain_form;
    const nlohmann::json plain = plain_form == nullptr ? fields : plain_form(fields);
    for (const auto& [key, value] : plain.items()) {
        if (again.value(key, nlohmann::json()) == value) continue;
        report.warning(place, "\"" + key + "\" is not the same when the text written is read again");
    }
}

void convert_json_line(std::string_view line, const Options& options, const Place& place, VersitOutput& out,
                       Report& report) {
    std::string_view kind_name;
    try {
        JsonObject object = object_of_line(line);
        const Kind& kind = kind_of_json(object.fields);
        kind_name = kind.name;
        object.fields.erase("kind");
        const std::string text = kind.converter->from_json(object, options);
        out.put_object(kind, text);
        // What a profile adds and leaves out it does on purpose: losses are those of the plain form.
        const Options plain = {Profile{}, options.calendar_record_size, options.door};
        warn_of_losses(kind, object.fields,
                       options.profile.is_none() ? text : kind.converter->from_json(object, plain), plain,
                       place, report);
    } catch (const Failure& failure) {
        report.failure(place, kind_name, failure.what());
    }
}

}  // namespace

void show(const Request& request, Streams streams, Report& report) {
    bool is_first = true;
    convert_each(request, streams, report, [&](const Kind& kind, std::string_view text) {
        const std::string shown = kind.converter->show(text, request.options);
        const std::string_view gap = is_first ? "" : "\n";
        is_first = false;
        return std::string(gap) + shown;
    });
}

void list(const Request& request, Streams streams, Report& report) {
    MessageList messages;
    std::string storage;
    for_each_object(request, streams, report, [&](const Found& found) {
        try {
            const std::string_view text = found.library_text(storage);
            if (found.kind->record.object != VZ_OBJECT_MESSAGE) {
                report.warning(found.place, std::string(found.kind->plural) + " are left out");
                return;
            }
            const ReadRecord<MessageItem, kMessageRecord> message(text, request.options.door);
            messages.add(*message, in_words(found.place));
        } catch (const Failure& failure) {
            report.failure(found.place, found.kind_name(), failure.what());
        }
    });
    put(streams.out, messages.text());
}

void json(const Request& request, Streams streams, Report& report) {
    convert_each(request, streams, report, [&](const Kind& kind, std::string_view text) {
        return line_of_object(json_of(kind, text, request.options));
    });
}

void versit(const Request& request, Streams streams, Report& report) {
    VersitOutput out(streams.out, request.utf8);
    for_each_input(request, streams, report, [&](const std::string& file, const InputText& input) {
        bool has_objects = false;
        TextLines lines(input.text);
        for (TextLine line; lines.next(line);) {
            if (trimmed(line.text).empty()) continue;
            has_objects = true;
            convert_json_line(line.text, request.options, {file, line.number}, out, report);
        }
        if (!has_objects) report.failure({file}, {}, "holds no JSON object");
    });
}

void check(const Request& request, Streams streams, Report& report) {
    for_each_object(request, streams, report, [&](const Found& found) {
        std::string line = in_words(found.place) + ": " + std::string(found.kind_name()) + ": ";
        try {
            check_object(found, request.options);
            line += "ok";
        } catch (const Failure& failure) {
            report.count_failure();
            line += failure.what();
        }
        put(streams.out, line + "\n");
    });
}

}  // namespace vzconv
