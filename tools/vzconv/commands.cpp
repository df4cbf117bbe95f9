#include "vzconv/commands.h"

#include <functional>
#include <istream>
#include <optional>
#include <ostream>

#include "vzconv/ascii.h"
#include "vzconv/failure.h"
#include "vzconv/input_text.h"
#include "vzconv/json_fields.h"
#include "vzconv/json_lines.h"
#include "vzconv/kind.h"
#include "vzconv/library.h"
#include "vzconv/line_ends.h"
#include "vzconv/object_splitter.h"

namespace vzconv {
namespace {

void put(std::ostream& out, std::string_view text) {
    if (!out.write(text.data(), static_cast<std::streamsize>(text.size()))) throw OutputLost();
}

// The text of a file, or nothing when that failure is reported.
std::optional<InputText> text_of(const std::string& file, std::istream& in, Report& report) {
    try {
        return read_input(file, in);
    } catch (const Failure& failure) {
        report.failure({file}, {}, failure.what());
        return std::nullopt;
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
        const std::string_view text = with_library_line_ends(piece.text, storage);
        return kind->is_code_page_text ? with_charset_marks(text, charset, storage) : text;
    }
};

using ObjectHandler = std::function<void(const Found& found)>;

void warn_of_stray_text(const std::string& file, std::size_t line, Report& report) {
    report.warning({file, line}, "text outside of any object is left out");
}

void for_each_object_of(const std::string& file, const InputText& input, Report& report,
                        const ObjectHandler& handle) {
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
        handle({piece, kind_of_object(piece.component, piece.text), {file, piece.line}, input.charset});
    }
    if (!has_objects) report.failure({file}, {}, "holds no versit object");
}

void for_each_object(const Request& request, Streams streams, Report& report, const ObjectHandler& handle) {
    for (const std::string& file : request.files) {
        const std::optional<InputText> text = text_of(file, streams.in, report);
        if (text) for_each_object_of(file, *text, report, handle);
    }
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

nlohmann::ordered_json json_of(const Kind& kind, std::string_view text) {
    nlohmann::ordered_json object = {{"kind", kind.name}};
    converter_of(kind).to_json(text, object);
    return object;
}

// What `check` has to say of one object; throws Failure when it is not as it should be.
std::string verdict_on(const Found& found) {
    std::string storage;
    const std::string_view text = found.library_text(storage);
    validate(found.kind->type, text);
    if (found.kind->converter == nullptr) {
        return "ok as far as its BEGIN and END go: this version does not convert " +
               std::string(found.kind->plural) + " yet";
    }
    json_of(*found.kind, text);
    return "ok";
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
void warn_of_losses(const Kind& kind, const nlohmann::json& fields, std::string_view text, const Place& place,
                    Report& report) {
    nlohmann::json again;
    try {
        again = nlohmann::json(json_of(kind, text));
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

void convert_json_line(std::string_view line, const Profile& profile, const Place& place, std::ostream& out,
                       Report& report) {
    std::string_view kind_name;
    try {
        nlohmann::json fields = object_of_line(line);
        const Kind& kind = kind_of_json(fields);
        kind_name = kind.name;
        fields.erase("kind");
        const std::string text = converter_of(kind).from_json(fields, profile);
        put(out, text);
        // What a profile adds and leaves out it does on purpose: losses are those of the plain form.
        warn_of_losses(kind, fields,
                       profile.is_none() ? text : converter_of(kind).from_json(fields, Profile{}), place,
                       report);
    } catch (const Failure& failure) {
        report.failure(place, kind_name, failure.what());
    }
}

}  // namespace

void show(const Request& request, Streams streams, Report& report) {
    bool is_first = true;
    convert_each(request, streams, report, [&is_first](const Kind& kind, std::string_view text) {
        const std::string shown = converter_of(kind).show(text);
        const std::string_view gap = is_first ? "" : "\n";
        is_first = false;
        return std::string(gap) + shown;
    });
}

void json(const Request& request, Streams streams, Report& report) {
    convert_each(request, streams, report,
                 [](const Kind& kind, std::string_view text) { return line_of_object(json_of(kind, text)); });
}

void versit(const Request& request, Streams streams, Report& report) {
    for (const std::string& file : request.files) {
        const std::optional<InputText> text = text_of(file, streams.in, report);
        if (!text) continue;
        bool has_objects = false;
        TextLines lines(text->text);
        for (TextLine line; lines.next(line);) {
            if (trimmed(line.text).empty()) continue;
            has_objects = true;
            convert_json_line(line.text, request.profile, {file, line.number}, streams.out, report);
        }
        if (!has_objects) report.failure({file}, {}, "holds no JSON object");
    }
}

void check(const Request& request, Streams streams, Report& report) {
    for_each_object(request, streams, report, [&](const Found& found) {
        std::string line = in_words(found.place) + ": " + std::string(found.kind_name()) + ": ";
        try {
            line += verdict_on(found);
        } catch (const Failure& failure) {
            report.count_failure();
            line += failure.what();
        }
        put(streams.out, line + "\n");
    });
}

}  // namespace vzconv
