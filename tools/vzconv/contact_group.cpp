#include "vzconv/contact_group.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "vzapi/contact_group.h"
#include "vzconv/contact_parts.h"
#include "vzconv/failure.h"
#include "vzconv/json_fields.h"
#include "vzconv/json_object.h"
#include "vzconv/library.h"
#include "vzconv/member_id.h"
#include "vzconv/readable.h"

namespace vzconv {
namespace {

using Group = ReadRecord<ContactGroupItem, kContactGroupRecord>;

bool is_filled(const ContactGroupMember& member) {
    return member.size == sizeof member && member.idLength == VZ_GROUP_MEMBER_ID_LENGTH;
}

MemberId id_of(const ContactGroupMember& member) {
    MemberId id;
    std::memcpy(id.data(), member.id, id.size());
    if (id == MemberId{} && member.idBlock != nullptr) std::memcpy(id.data(), member.idBlock, id.size());
    return id;
}

std::vector<std::string> member_ids_of(const ContactGroupItem& group) {
    std::vector<std::string> ids;
    for (uint32_t i = 0; i < group.memberCount; ++i) {
        if (is_filled(group.members[i])) ids.push_back(decimal_of(id_of(group.members[i])));
    }
    return ids;
}

// Members that the text names in some other way than by a number.
uint32_t unread_members_of(const ContactGroupItem& group) {
    uint32_t unread = 0;
    for (uint32_t i = 0; i < group.memberCount; ++i) unread += is_filled(group.members[i]) ? 0U : 1U;
    return unread;
}

std::string show(std::string_view text, const Options& options) {
    const Group group(text, options.door);
    std::string members;
    for (const std::string& id : member_ids_of(*group)) members += (members.empty() ? "" : ", ") + id;
    Readable readable("Contact group");
    const std::string name = text_of(group->groupName);
    if (!name.empty()) readable.field("Name", name);
    readable.field("Members", members.empty() ? "none" : members);
    const uint32_t unread = unread_members_of(*group);
    if (unread != 0) readable.field("Not read", std::to_string(unread) + " without a number");
    return readable.text();
}

void to_json(std::string_view text, const Options& options, nlohmann::ordered_json& object) {
    const Group group(text, options.door);
    const std::string name = text_of(group->groupName);
    if (!name.empty()) object["name"] = name;
    object["members"] = member_ids_of(*group);
    const uint32_t unread = unread_members_of(*group);
    if (unread != 0) object["membersNotRead"] = unread;
}

MemberId id_in(const nlohmann::json& value, const std::string& name) {
    if (!value.is_string()) refuse_type(name, "a string of digits", value);
    const std::optional<MemberId> id = member_id_of(value.get_ref<const std::string&>());
    if (!id) throw Failure(name + " must be a number of up to 128 bits in digits, not " + value.dump());
    return *id;
}

std::vector<MemberId> ids_in(JsonFields& fields) {
    std::vector<MemberId> ids;
    const nlohmann::json* members = fields.array("members");
    if (members == nullptr) return ids;
    for (std::size_t i = 0; i < members->size(); ++i) {
        ids.push_back(id_in((*members)[i], fields.name_of("members[" + std::to_string(i) + "]")));
    }
    return ids;
}

ContactGroupMember member_of(MemberId& id) {
    ContactGroupMember member{};
    member.size = sizeof member;
    member.idLength = VZ_GROUP_MEMBER_ID_LENGTH;
    member.idBlock = id.data();
    std::memcpy(member.id, id.data(), id.size());
    return member;
}

// Members that were not read cannot be written: the text has no word for them.
void take_unread(JsonFields& fields) {
    const nlohmann::json* unread = fields.find("membersNotRead");
    if (unread != nullptr && !unread->is_number_unsigned()) {
        refuse_type(fields.name_of("membersNotRead"), "a whole number", *unread);
    }
}

std::string from_json(const JsonObject& object, const Options& options) {
    JsonFields fields(object.fields);
    std::optional<std::u16string> name = fields.text("name");
    std::vector<MemberId> ids = ids_in(fields);
    take_unread(fields);
    fields.expect_no_more();
    std::vector<ContactGroupMember> members;
    std::transform(ids.begin(), ids.end(), std::back_inserter(members), member_of);
    ContactGroupItem group{};
    group.size = sizeof group;
    if (name) group.groupName = name->data();
    group.memberCount = static_cast<uint32_t>(members.size());
    group.members = members.data();
    return write_record(kContactGroupRecord, &group, options);
}

// Numbers without leading zeros, as to_json says them; an empty name is none, for a group always has its line.
nlohmann::json plain_form(const nlohmann::json& object) {
    nlohmann::json plain = object;
    JsonFields fields(object);
    const std::optional<std::string> name = fields.word("name");
    if (name && name->empty()) plain.erase("name");
    if (plain.contains("members")) plain["members"] = nlohmann::json::array();
    for (const MemberId& id : ids_in(fields)) plain["members"].push_back(decimal_of(id));
    return plain;
}

}  // namespace

const Converter kContactGroupConverter = {show, to_json, from_json, plain_form};

}  // namespace vzconv
