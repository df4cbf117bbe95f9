// What the parts of a message are called, and which is the presentation.
#include <string>

#include "mms/multipart.h"
#include "versit/ascii.h"

namespace vzapi::mms {
namespace {

// Where a part stands: the number of its container among the containers, and its own inside it.
struct Place {
    std::size_t container;
    std::size_t number;
};

// A part that is in no container counts as one of the first; the container that is the whole body comes
// before all of them.
std::vector<Place> places_of(const std::vector<Part>& parts) {
    std::vector<Place> places;
    places.reserve(parts.size());
    std::vector<std::size_t> container_numbers(parts.size());
    std::vector<std::size_t> counts(parts.size() + 1);
    std::size_t containers = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Part& part = parts[i];
        const bool is_container = (part.flags & VZ_MMS_PART_CONTAINER) != 0;
        if (is_container) container_numbers[i] = ++containers;
        const std::size_t outside = is_container ? 0 : 1;
        places.push_back({part.container == 0 ? outside : container_numbers[part.container - 1],
                          ++counts[part.container]});
    }
    return places;
}

const std::u16string* text_parameter(const std::vector<Parameter>& parameters, std::string_view name_upper) {
    for (const Parameter& parameter : parameters) {
        if (parameter.value.kind == VZ_MMS_VALUE_TEXT && !parameter.value.text.empty() &&
            versit::equals_ignoring_case(std::u16string_view(parameter.name), name_upper))
            return &parameter.value.text;
    }
    return nullptr;
}

std::u16string widened(const std::string& ascii) {
    return {ascii.begin(), ascii.end()};
}

std::u16string name_of(const Part& part, const Place& place) {
    if (const auto* name = text_parameter(part.type.parameters, "NAME")) return *name;
    if (part.disposition) {
        if (const auto* name = text_parameter(part.disposition->parameters, "FILENAME")) return *name;
    }
    if (part.content_location && !part.content_location->empty()) return *part.content_location;
    if (part.content_id && !part.content_id->empty()) return *part.content_id;
    return u"Part_" + widened(std::to_string(place.container)) + u"." + widened(std::to_string(place.number));
}

bool is_related(std::u16string_view media) noexcept {
    return versit::equals_ignoring_case(media, "APPLICATION/VND.WAP.MULTIPART.RELATED") ||
           versit::equals_ignoring_case(media, "MULTIPART/RELATED");
}

std::u16string_view without_marks(std::u16string_view id) noexcept {
    constexpr std::u16string_view kMarks = u" \t\"<>";
    while (!id.empty() && kMarks.find(id.front()) != kMarks.npos) id.remove_prefix(1);
    while (!id.empty() && kMarks.find(id.back()) != kMarks.npos) id.remove_suffix(1);
    return id;
}

// Which of the parts of a container may be its root.
struct Root {
    bool is_needed = false;     // in a related container
    std::u16string_view start;  // the content id that the container names
    Part* by_start = nullptr;
    Part* by_type = nullptr;
    Part* first = nullptr;

    [[nodiscard]] Part* chosen() const noexcept {
        if (by_start != nullptr) return by_start;
        return by_type != nullptr ? by_type : first;
    }
};

void consider(Part& part, Root& root) {
    if (root.first == nullptr) root.first = &part;
    if (root.by_type == nullptr && is_presentation(part.type.media)) root.by_type = &part;
    const bool is_start =
        !root.start.empty() && part.content_id && without_marks(*part.content_id) == root.start;
    if (root.by_start == nullptr && is_start) root.by_start = &part;
}

void mark_presentations(std::vector<Part>& parts) {
    std::vector<Root> roots(parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const ContentType& type = parts[i].type;
        roots[i].is_needed = (parts[i].flags & VZ_MMS_PART_CONTAINER) != 0 && is_related(type.media);
        if (roots[i].is_needed) {
            if (const auto* start = text_parameter(type.parameters, "START"))
                roots[i].start = without_marks(*start);
        }
        if (parts[i].container == 0) continue;
        Root& root = roots[parts[i].container - 1];
        if (root.is_needed) consider(parts[i], root);
    }
    for (const Root& root : roots) {
        if (Part* const part = root.chosen()) part->flags |= VZ_MMS_PART_PRESENTATION;
    }
}

void set_name_parameter(ContentType& type, const std::u16string& name) {
    Value value;
    value.kind = VZ_MMS_VALUE_TEXT;
    value.text = name;
    std::erase_if(type.parameters, [](const Parameter& parameter) {
        return versit::equals_ignoring_case(std::u16string_view(parameter.name), "NAME");
    });
    type.parameters.push_back({u"name", std::move(value)});
}

}  // namespace

bool is_presentation(std::u16string_view media) noexcept {
    return versit::equals_ignoring_case(media, "APPLICATION/SMIL") ||
           versit::equals_ignoring_case(media, "APPLICATION/SMIL+XML");
}

void name_parts(std::vector<Part>& parts) {
    const std::vector<Place> places = places_of(parts);
    for (std::size_t i = 0; i < parts.size(); ++i) parts[i].name = name_of(parts[i], places[i]);
    mark_presentations(parts);
}

void keep_names(std::vector<Part>& parts) {
    const std::vector<Place> places = places_of(parts);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        Part& part = parts[i];
        if (!part.name.empty() && part.name != name_of(part, places[i]))
            set_name_parameter(part.type, part.name);
    }
}

std::u16string derived_name(const std::vector<Part>& parts, std::size_t index) {
    return name_of(parts[index], places_of(parts)[index]);
}

}  // namespace vzapi::mms
