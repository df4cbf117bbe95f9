// The writing of one contact: what its sections share, and the sections in the order of the text.
#pragma once

#include <bitset>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "call_context.h"
#include "vcard/contact_fields.h"
#include "vcard/contact_profile.h"
#include "vcard/entry_walk.h"
#include "versit/line_builder.h"
#include "vzapi/contact.h"

namespace vzapi::vcard {

// Fields by their id.
using FieldSet = std::bitset<VZ_CONTACT_GENDER + 1>;

class ContactWriting {
public:
    explicit ContactWriting(const WriterContext& context);

    [[nodiscard]] platform::CallerMemory& memory() noexcept { return memory_; }
    [[nodiscard]] versit::LineBuilder& lines() noexcept { return lines_; }
    [[nodiscard]] bool has(Effect effect) const noexcept { return effects_.has(effect); }
    [[nodiscard]] std::uint32_t api_version() const noexcept { return api_version_; }

    // The text of an entry, whose field gets noted; data() is null when it has none that can be read.
    [[nodiscard]] std::u16string_view note_text(const ContactField& entry);

    // Fields that have a value that can be read, a text of no length included; and those whose value also says
    // something: a text of some length, a date with a year, a picture.
    void note_value(std::uint32_t id) { with_value_.set(id); }
    void note_content(std::uint32_t id) { with_content_.set(id); }
    [[nodiscard]] const FieldSet& with_value() const noexcept { return with_value_; }
    [[nodiscard]] const FieldSet& with_content() const noexcept { return with_content_; }

    // NAME`parameters`: and `value`, in quoted-printable form when it needs to be.
    void text_line(std::string_view name, std::string_view parameters, std::u16string_view value);

    // The same for a value in which the two characters "\n" or "\N" stand for a line break.
    void multiline_text_line(std::string_view name, std::string_view parameters, std::u16string_view value);

    // NAME`parameters`: and a compound value. Empty components at its end are left out, but for the first
    // `least` ones.
    void compound_line(versit::PropertyId property, std::string_view parameters,
                       std::span<const std::u16string_view> components, std::size_t least);

    // `parameters` and, when `preferred`, ";PREF", which is never there twice. Holds until the next call.
    [[nodiscard]] std::string_view with_preference(std::string_view parameters, bool preferred);

private:
    platform::CallerMemory memory_;
    versit::LineBuilder lines_;
    const EffectSet effects_;
    const std::uint32_t api_version_;
    FieldSet with_value_;
    FieldSet with_content_;
    std::u16string value_;    // scratch of the value being written
    std::string parameters_;  // scratch of its parameters
};

// The names, the organisation, dates, the photo and the other texts of the list `general`.
void write_general(ContactWriting& writing, const ContactItem& contact);

// Telephone numbers, in list order.
void write_phones(ContactWriting& writing, const ContactItem& contact);

// Postal, e-mail, web and SIP addresses, in list order.
void write_addresses(ContactWriting& writing, const ContactItem& contact);

// Class, gender, note and the other fields of the list `extended`.
void write_extended(ContactWriting& writing, const ContactItem& contact);

// Lines that clear the fields for which the sections before have found nothing.
void write_empty_fields(ContactWriting& writing);

}  // namespace vzapi::vcard
