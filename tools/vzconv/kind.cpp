#include "vzconv/kind.h"

#include "vzconv/ascii.h"
#include "vzconv/bookmark.h"
#include "vzconv/calendar.h"
#include "vzconv/contact.h"
#include "vzconv/contact_group.h"
#include "vzconv/email.h"
#include "vzconv/email_document.h"
#include "vzconv/message.h"
#include "vzconv/multimedia.h"
#include "vzconv/multimedia_pdu.h"
#include "vzconv/text_lines.h"

namespace vzconv {
namespace {

// Of the kinds that share a component, the one with a sign stands first.
constexpr Kind kKinds[] = {
    {kContactGroupRecord, TextForm::CodePage, "group", "contact groups", "VCARD", "X-CNTGRP",
     &kContactGroupConverter},
    {kContactRecord, TextForm::CodePage, "contact", "contacts", "VCARD", "", &kContactConverter},
    {kCalendarRecord, TextForm::CodePage, "calendar entry", "calendar entries", "VCALENDAR", "",
     &kCalendarConverter},
    {kMessageRecord, TextForm::Utf16, "message", "messages", "VMSG", "", &kMessageConverter},
    {kBookmarkRecord, TextForm::CodePage, "bookmark", "bookmarks", "VBKM", "", &kBookmarkConverter},
    {kMultimediaRecord, TextForm::Binary, "multimedia message", "multimedia messages", kMultimediaPdu, "",
     &kMultimediaConverter},
    {kEmailRecord, TextForm::Xml, "e-mail item", "e-mail items", kEmailElement, "", &kEmailConverter},
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

}  // namespace vzconv
