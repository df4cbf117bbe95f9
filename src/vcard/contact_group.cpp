#include "vcard/contact_group.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/caller_memory.h"
#include "platform/heap.h"
#include "platform/ole_string.h"
#include "platform/pointer_probe.h"
#include "platform/reclaimer.h"
#include "result.h"
#include "vcard/member_number.h"
#include "versit/line_builder.h"
#include "versit/value_reader.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcard {
namespace {

using versit::PropertyId;

constexpr std::string_view kVersion = "2.1";
constexpr char kSeparator = ';';

// ---- Reading.

// The tokens of X-CNTGRP: how many there are, and the numbers among them.
struct Tokens {
    std::size_t count = 0;
    std::vector<MemberNumber> numbers;
};

void read_tokens(std::string_view value, Tokens& tokens) {
    if (value.empty()) return;
    for (std::size_t begin = 0; begin <= value.size(); ++tokens.count) {
        const std::size_t end = std::min(value.find(kSeparator, begin), value.size());
        if (const auto number = parse_member_number(value.substr(begin, end - begin))) {
            tokens.numbers.push_back(*number);
        }
        begin = end + 1;
    }
}

platform::OleString record_string(std::u16string_view text) {
    platform::OleString string(platform::ole_string_allocate(text));
    if (!string) raise(VZ_ERR_OUT_OF_MEMORY);
    return string;
}

template <class T>
T* allocate(std::size_t count) {
    void* block = platform::heap_allocate(count * sizeof(T));
    if (block == nullptr) raise(VZ_ERR_OUT_OF_MEMORY);
    return static_cast<T*>(block);
}

// An array of members with the blocks in them. One that is no block of the process heap is left alone.
void release_members(ContactGroupMember* members, platform::Reclaimer& reclaimer) noexcept {
    const platform::Reclaimer::Taken taken = reclaimer.take(members);
    const std::size_t count = taken.size() / sizeof(ContactGroupMember);
    for (std::size_t i = 0; i < count; ++i) reclaimer.release(members[i].idBlock);
}

struct MembersDeleter {
    void operator()(ContactGroupMember* members) const noexcept {
        platform::Reclaimer reclaimer;
        release_members(members, reclaimer);
    }
};

using Members = std::unique_ptr<ContactGroupMember, MembersDeleter>;

// An entry for each token; those of the numbers stand in front.
Members members_of(const Tokens& tokens) {
    if (tokens.count == 0) return {};
    Members members(allocate<ContactGroupMember>(tokens.count));
    ContactGroupMember* member = members.get();
    for (const MemberNumber& number : tokens.numbers) {
        member->size = sizeof(ContactGroupMember);
        member->idLength = VZ_GROUP_MEMBER_ID_LENGTH;
        member->idBlock = allocate<std::uint8_t>(VZ_GROUP_MEMBER_ID_LENGTH);
        std::copy(number.begin(), number.end(), member->id);
        ++member;
    }
    return members;
}

// ---- Writing.

// The number of a member as it may stand in a caller's record; none when the entry takes no part.
std::optional<MemberNumber> number_of(const ContactGroupMember& member, platform::CallerMemory& memory) {
    MemberNumber number{};
    static_assert(sizeof number == VZ_GROUP_MEMBER_ID_LENGTH);
    if (member.size != sizeof member || member.idLength != number.size()) return std::nullopt;
    std::copy(std::begin(member.id), std::end(member.id), number.begin());
    if (number == MemberNumber{} && !memory.load(member.idBlock, number)) return std::nullopt;
    return number;
}

// The numbers of the members, joined. The count is compared as a signed number; an entry that cannot be read
// ends the list, so that a wild count costs no more than what is readable.
std::string member_list(const ContactGroupItem& group, platform::CallerMemory& memory) {
    std::string list;
    const auto count = static_cast<std::int32_t>(group.memberCount);
    ContactGroupMember member;
    for (std::int32_t i = 0; i < count; ++i) {
        if (!memory.load_entry(group.members, static_cast<std::size_t>(i), member)) break;
        const std::optional<MemberNumber> number = number_of(member, memory);
        if (!number) continue;
        if (!list.empty()) list.push_back(kSeparator);
        append_member_number(*number, list);
    }
    return list;
}

void require_size(const ContactGroupItem& group) {
    if (group.size != sizeof group) raise(VZ_ERR_INVALID_PARAM);
}

}  // namespace

void read_contact_group(const versit::VersitObject& object, void* item, const ReaderContext& /*context*/) {
    auto& group = *static_cast<ContactGroupItem*>(item);
    require_size(group);
    group = {};
    group.size = sizeof group;
    const std::optional<versit::RootComponent> card =
        versit::root_component(object, versit::ComponentId::VCard);
    if (!card || card->version != kVersion) raise(VZ_ERR_INVALID_TEXT);

    platform::OleString name;
    Tokens tokens;
    versit::ValueReader values;
    for (const auto& [id, line] : card->lines) {
        if (id == PropertyId::Fn) {
            name = record_string(values.text(line));
        } else if (id == PropertyId::XCntgrp) {
            read_tokens(versit::decoded_value(line, versit::Encoding::SevenBit), tokens);
        }
    }
    Members members = members_of(tokens);
    group.groupName = name.release();
    group.memberCount = static_cast<std::uint32_t>(tokens.count);
    group.members = members.release();
}

std::string write_contact_group(const void* item, const WriterContext& /*context*/) {
    platform::CallerMemory memory;
    ContactGroupItem group;
    if (!memory.load(item, group)) raise(VZ_ERR_POINTER);
    require_size(group);

    versit::LineBuilder lines;
    lines.line("BEGIN:VCARD");
    lines.line("VERSION:2.1");
    lines.property(PropertyId::Fn, "", memory.text(group.groupName));
    lines.property(PropertyId::XCntgrp, "", member_list(group, memory));
    lines.line("END:VCARD");
    return lines.take();
}

void release_contact_group(void* item, const ReleaseContext& context) {
    if (!platform::is_readable(item, sizeof(ContactGroupItem))) raise(VZ_ERR_POINTER);
    auto& group = *static_cast<ContactGroupItem*>(item);
    const bool size_is_checked = context.api_version >= VZ_INTERFACE_CHECKED_SIZES;
    if (size_is_checked && group.size != sizeof group) raise(VZ_ERR_BAD_VALUE);
    platform::Reclaimer reclaimer;
    reclaimer.release_string(group.groupName);
    release_members(group.members, reclaimer);
    group.groupName = nullptr;
    group.memberCount = 0;
    group.members = nullptr;
}

}  // namespace vzapi::vcard
