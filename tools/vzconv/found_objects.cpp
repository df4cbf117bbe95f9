#include "vzconv/found_objects.h"

#include <istream>
#include <optional>

#include "vzconv/calendar_splitter.h"
#include "vzconv/charset_marks.h"
#include "vzconv/failure.h"
#include "vzconv/input_files.h"
#include "vzconv/line_ends.h"
#include "vzconv/unicode.h"

namespace vzconv {
namespace {

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

void warn_of_stray_text(const std::string& file, std::size_t line, Report& report) {
    report.warning({file, line}, "text outside of any object is left out");
}

// One entry of a file, on its way to `handle`.
void hand_on(const std::string& file, const InputText& input, const Piece& entry, Report& report,
             const ObjectHandler& handle) {
    const Kind* kind = kind_of_object(entry.component, entry.text);
    const std::size_t line = kind != nullptr && kind->form == TextForm::Binary ? 0 : entry.line;
    const Found found = {entry, kind, {file, line}, input.charset};
    if (kind != nullptr && kind->form == TextForm::Utf16 && !is_utf8(entry.text))
        report.warning(found.place, "what is no UTF-8 is read as U+FFFD");
    handle(found);
}

void for_each_object_of(const std::string& file, const InputText& input, Report& report,
                        const ObjectHandler& handle) {
    if (!input.document.empty()) {
        return hand_on(file, input, {Piece::Form::Object, input.document, input.text, 1, {}}, report, handle);
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

}  // namespace

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

std::string_view Found::library_text(std::string& storage) const {
    if (!piece.reason.empty()) throw Failure(piece.reason);
    if (kind->form == TextForm::Xml || kind->form == TextForm::Binary) return piece.text;
    const std::string_view text = with_library_line_ends(piece.text, storage);
    return kind->form == TextForm::CodePage ? with_charset_marks(text, charset, storage) : text;
}

void for_each_object(const Request& request, Streams streams, Report& report, const ObjectHandler& handle) {
    for_each_input(request, streams, report, [&](const std::string& file, const InputText& input) {
        for_each_object_of(file, input, report, handle);
    });
}

}  // namespace vzconv
