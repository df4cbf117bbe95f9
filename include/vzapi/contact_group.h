/* The contact group record: VZ_TYPE_CONTACT_GROUP, a vCard 2.1 object with FN and X-CNTGRP. */
#ifndef VZAPI_CONTACT_GROUP_H
#define VZAPI_CONTACT_GROUP_H

#include "vzapi/base.h"

#if defined(__cplusplus)
extern "C" {
#endif

/* `idLength` of a member. */
enum { VZ_GROUP_MEMBER_ID_LENGTH = 16 };

/*
 * One member of a group. Its identifier is an unsigned number of 16 bytes, little-endian, a decimal number in
 * the text. Reading puts the number into `id`, and gives the member an `idBlock` of zeros. Writing takes the
 * number in `id`, or the one at `idBlock` when all bytes of `id` are 0; a member with another `size` or
 * `idLength` is left out, and so is one whose number stands at an `idBlock` that cannot be read.
 */
typedef struct ContactGroupMember {
    uint32_t size; /* 40 */
    uint32_t reserved;
    uint32_t idLength; /* 16 */
    uint8_t* idBlock;  /* 16 bytes */
    uint8_t id[16];
} ContactGroupMember;

VZAPI_ASSERT_SIZE(ContactGroupMember, 40);
VZAPI_ASSERT_OFFSET(ContactGroupMember, size, 0);
VZAPI_ASSERT_OFFSET(ContactGroupMember, reserved, 4);
VZAPI_ASSERT_OFFSET(ContactGroupMember, idLength, 8);
VZAPI_ASSERT_OFFSET(ContactGroupMember, idBlock, 16);
VZAPI_ASSERT_OFFSET(ContactGroupMember, id, 24);

/*
 * A named group of contacts.
 *
 * Filled by ConvertFromVersit, which demands `size` 32: `memberCount` counts every token of X-CNTGRP, an empty
 * one between two ';' too. A token that is no decimal number of 128 bits fills no member, so the filled
 * members stand at the front of `members` and zeros behind them. The name, the array and each `idBlock` are
 * the library's, the record is released with FreeConverterData. Read by ConvertToVersit, which demands `size`
 * 32 here and 24 in the VersitData: all stay the caller's; a name or an array that cannot be read counts as
 * absent, and a member that cannot be read ends the array. The count is compared as a signed number, so one of
 * 2^31 or more is an empty array.
 */
typedef struct ContactGroupItem {
    uint32_t size;               /* 32 */
    char16_t* groupName;         /* FN */
    uint32_t memberCount;        /* entries in `members` */
    ContactGroupMember* members; /* X-CNTGRP, in the order of the text */
} ContactGroupItem;

VZAPI_ASSERT_SIZE(ContactGroupItem, 32);
VZAPI_ASSERT_OFFSET(ContactGroupItem, size, 0);
VZAPI_ASSERT_OFFSET(ContactGroupItem, groupName, 8);
VZAPI_ASSERT_OFFSET(ContactGroupItem, memberCount, 16);
VZAPI_ASSERT_OFFSET(ContactGroupItem, members, 24);

#if defined(__cplusplus)
}
#endif

#endif
