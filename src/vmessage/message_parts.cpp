#include "vmessage/message_parts.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "versit/ascii.h"
#include "vmessage/decoded_value.h"

namespace vzapi::vmessage {
namespace {

using versit::PropertyId;
using versit::WideVersitProperty;

enum class Component : std::uint8_t { Envelope, Card, Body, Other, Message };

constexpr std::size_t kNestedComponents = 4;  // all but Message

std::u16string_view component_name(const WideVersitProperty& line) {
    return versit::trim_blanks(value_of(line));
}

Component component_of(const WideVersitProperty& line) {
    const std::u16string_view name = component_name(line);
    if (versit::equals_ignoring_case(name, "VENV")) return Component::Envelope;
    if (versit::equals_ignoring_case(name, "VCARD")) return Component::Card;
    if (versit::equals_ignoring_case(name, "VBODY")) return Component::Body;
    if (versit::equals_ignoring_case(name, "VMSG")) return Component::Message;
    return Component::Other;
}

// The components that are open inside the message. Each is opened and closed once, however deep they lie.
class OpenComponents {
public:
    void open(Component component) {
        open_.push_back(component);
        ++count_of(component);
    }

    // Closes the innermost one of that kind, with all that are still open inside it.
    void close(Component component) {
        if (count_of(component) == 0) return;
        while (open_.back() != component) close_last();
        close_last();
    }

    [[nodiscard]] std::size_t depth() const noexcept { return open_.size(); }
    [[nodiscard]] bool is_in_card() const noexcept {
        return !open_.empty() && open_.back() == Component::Card;
    }

private:
    std::size_t& count_of(Component component) { return counts_[static_cast<std::size_t>(component)]; }

    void close_last() {
        --count_of(open_.back());
        open_.pop_back();
    }

    std::vector<Component> open_;
    std::array<std::size_t, kNestedComponents> counts_{};
};

// Follows the lines behind BEGIN:VMSG until the message ends.
class MessageWalk {
public:
    void see(const WideVersitProperty& line) {
        const PropertyId id = line.id();
        switch (id) {
            case PropertyId::Begin:
            case PropertyId::End:
                see_frame(id, component_of(line));
                break;
            case PropertyId::Tel:
                if (open_.is_in_card() && parts_.numbers.size() < kMostAddresses)
                    parts_.numbers.push_back(line);
                break;
            default:
                if (open_.depth() == 0) see_header(id, value_of(line));
                break;
        }
    }

    // The lines of the body that was opened last; closes it.
    void see_body(const versit::LineRange& lines) {
        if (!parts_.body || open_.depth() > body_depth_) {
            parts_.body = lines;
            body_depth_ = open_.depth();
        }
        open_.close(Component::Body);
    }

    [[nodiscard]] bool ended() const noexcept { return ended_; }
    [[nodiscard]] MessageParts take() noexcept { return std::move(parts_); }

private:
    void see_frame(PropertyId id, Component component) {
        if (component == Component::Message) {
            ended_ = true;
        } else if (id == PropertyId::Begin) {
            open_.open(component);
        } else {
            open_.close(component);
        }
    }

    void see_header(PropertyId id, std::u16string_view value) {
        switch (id) {
            case PropertyId::Version:
                if (!has_version_) parts_.version = value;
                has_version_ = true;
                break;
            case PropertyId::XIrmcStatus:
                parts_.status = value;
                break;
            case PropertyId::XIrmcBox:
                parts_.box = value;
                break;
            case PropertyId::XNrdDt:
                parts_.time = value;
                break;
            case PropertyId::XMessageType:
                parts_.type = value;
                break;
            default:
                break;
        }
    }

    MessageParts parts_;
    OpenComponents open_;
    std::size_t body_depth_ = 0;
    bool has_version_ = false;
    bool ended_ = false;
};

}  // namespace

std::optional<MessageParts> message_parts(const versit::WideVersitObject& object) {
    const std::vector<WideVersitProperty>& lines = object.lines();
    const auto begin = std::find_if(lines.begin(), lines.end(), [](const WideVersitProperty& line) {
        return line.id() == PropertyId::Begin;
    });
    const std::u16string_view name = versit::wide_component_name(versit::WideComponentId::VMsg);
    if (begin == lines.end() || component_name(*begin) != name) return std::nullopt;

    MessageWalk walk;
    auto body = object.bodies().begin();
    auto at = static_cast<std::size_t>(begin - lines.begin()) + 1;
    while (!walk.ended()) {
        if (body != object.bodies().end() && at == body->begin) {
            walk.see_body(*body);
            at = body->end + 1;  // behind its END:VBODY, to whose value further lines may hang
            ++body;
        } else if (at < lines.size()) {
            walk.see(lines[at]);
            ++at;
        } else {
            break;
        }
    }
    return walk.take();
}

}  // namespace vzapi::vmessage
