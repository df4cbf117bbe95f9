#include "vzconv/kind.h"

#include "vzapi/vzapi.h"
#include "vzconv/ascii.h"
#include "vzconv/bookmark.h"
#include "vzconv/contact.h"
#include "vzconv/contact_group.h"
#include "vzconv/failure.h"
#include "vzconv/text_lines.h"

namespace vzconv {
namespace {

// Of the kinds that share a component, the one with a sign stands first.
constexpr Kind kKinds[] = {
    {VZ_TYPE_CONTACT_GROUP, true, "group", "contact groups", "VCARD", "X-CNTGRP", &kContactGroupConverter},
    {VZ_TYPE_CONTACT, true, "contact", "contacts", "VCARD", "", &kContactConverter},
    {VZ_TYPE_CALENDAR, true, "calendar entry", "calendar entries", "VCALENDAR", "", nullptr},
    {VZ_TYPE_MESSAGE, false, "message", "messages", "VMSG", "", nullptr},
    {VZ_TYPE_BOOKMARK, false, "bookmark", "bookmarks", "VBKM", "", &kBookmarkConverter},
};

bool has_property(std::string_view text, std::string_view name) {
    TextLines lines(text);
    for (TextLine line; lines.next(line);) {
        if (!starts_ignoring_case(line.text, name)) continue;
        const std::string_view rest = trimmed(line.text.substr(name.size()));
        if (rest.starts_with(':') || rest.starts_with(';')) return true;
    }
    return false;
}

}  // namespace

std::span<const Kind> kinds() {
    return kKinds;
}

const Kind* kind_of_object(std::string_view component, std::string_view text) {
    for (const Kind& kind : kKinds) {
        if (kind.component != component) continue;
        if (kind.sign.empty() || has_property(text, kind.sign)) return &kind;
    }
    return nullptr;
}

const Kind* kind_of_name(std::string_view name) {
    for (const Kind& kind : kKinds) {
        if (kind.name == name) return &kind;
    }
    return nullptr;
}

const Converter& converter_of(const Kind& kind) {
    if (kind.converter == nullptr) {
        throw Failure("this version does not convert " + std::string(kind.plural) + " yet");
    }
    return *kind.converter;
}

}  // namespace vzconv
