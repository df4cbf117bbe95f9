#include "vzconv/commands.h"

#include <functional>

#include "vzconv/ascii.h"
#include "vzconv/failure.h"
#include "vzconv/found_objects.h"
#include "vzconv/json_fields.h"
#include "vzconv/json_lines.h"
#include "vzconv/kind.h"
#include "vzconv/library.h"
#include "vzconv/message_list.h"
#include "vzconv/versit_output.h"

namespace vzconv {
namespace {

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
    if (found.kind->converter->check != nullptr) found.kind->converter->check(text, options);
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
