/* The contact record: VZ_TYPE_CONTACT, vCard 2.1 text; vCard 3.0 is also read. */
#ifndef VZAPI_CONTACT_H
#define VZAPI_CONTACT_H

#include "vzapi/base.h"

#if defined(__cplusplus)
extern "C" {
#endif

/* Fields of the list `general`. The comment gives the property, and the value where it is no text. */
enum {
    VZ_CONTACT_FAMILY_NAME = 1,     /* N, component 1 */
    VZ_CONTACT_GIVEN_NAME = 2,      /* N, component 2 */
    VZ_CONTACT_ADDITIONAL_NAME = 3, /* N, component 3 */
    VZ_CONTACT_NAME_PREFIX = 4,     /* N, component 4 */
    VZ_CONTACT_NAME_SUFFIX = 5,     /* N, component 5 */
    VZ_CONTACT_NAME_EXTRA = 6,      /* N, component 6, written only when present */
    VZ_CONTACT_COMPANY = 7,         /* ORG, component 1 */
    VZ_CONTACT_JOB_TITLE = 8,       /* TITLE; ROLE for some profiles */
    VZ_CONTACT_BIRTHDAY = 9,        /* BDAY; date */
    VZ_CONTACT_PHOTO = 10,          /* PHOTO; photo */
    VZ_CONTACT_SECOND_NAME = 11,    /* X-EPOCSECONDNAME; also NICKNAME and X-NICKNAME for some profiles */
    VZ_CONTACT_FORMATTED_NAME = 12, /* FN */
    VZ_CONTACT_PHONETIC_FAMILY_NAME = 13, /* SOUND;X-IRMC-N, component 1 */
    VZ_CONTACT_PHONETIC_GIVEN_NAME = 14,  /* SOUND;X-IRMC-N, component 2 */
    VZ_CONTACT_PHONETIC_COMPANY = 15,     /* SOUND;X-IRMC-ORG */
    VZ_CONTACT_SPOUSE = 16,               /* X-SPOUSE */
    VZ_CONTACT_CHILDREN = 17,             /* X-CHILDREN */
    VZ_CONTACT_ASSISTANT = 18,            /* X-ASSISTANT */
    VZ_CONTACT_ANNIVERSARY = 19,          /* X-ANNIVERSARY; date */
    VZ_CONTACT_DEPARTMENT = 20,           /* ORG, component 2 */
};

/* Fields of the list `phones`: TEL with the types given, where no other property is named. All are texts. */
enum {
    VZ_CONTACT_PHONE = 32,             /* VOICE */
    VZ_CONTACT_PHONE_HOME = 33,        /* HOME */
    VZ_CONTACT_PHONE_WORK = 34,        /* WORK */
    VZ_CONTACT_PHONE_PREFERRED = 35,   /* PREF */
    VZ_CONTACT_PHONE_CAR = 36,         /* CAR */
    VZ_CONTACT_PHONE_MODEM = 37,       /* MODEM */
    VZ_CONTACT_PHONE_PAGER = 48,       /* PAGER */
    VZ_CONTACT_PHONE_MOBILE = 64,      /* CELL */
    VZ_CONTACT_PHONE_MOBILE_HOME = 65, /* CELL;HOME */
    VZ_CONTACT_PHONE_MOBILE_WORK = 66, /* CELL;WORK */
    VZ_CONTACT_PHONE_FAX = 80,         /* FAX */
    VZ_CONTACT_PHONE_FAX_HOME = 81,    /* FAX;HOME */
    VZ_CONTACT_PHONE_FAX_WORK = 82,    /* FAX;WORK */
    VZ_CONTACT_PHONE_VIDEO = 96,       /* VIDEO */
    VZ_CONTACT_PHONE_VIDEO_HOME = 97,  /* VIDEO;HOME */
    VZ_CONTACT_PHONE_VIDEO_WORK = 98,  /* VIDEO;WORK */
    VZ_CONTACT_PHONE_VOIP = 112,       /* X-SIP;VOIP */
    VZ_CONTACT_PHONE_VOIP_HOME = 113,  /* X-SIP;VOIP;HOME */
    VZ_CONTACT_PHONE_VOIP_WORK = 114,  /* X-SIP;VOIP;WORK */
    VZ_CONTACT_PHONE_ASSISTANT = 115,  /* X-ASSISTANT-TEL */
    VZ_CONTACT_PHONE_MARK = 255,       /* no line: a number equal to this one gets PREF */
};

/* Fields of the list `addresses`. */
enum {
    VZ_CONTACT_ADDRESS = 256,       /* ADR;POSTAL; address */
    VZ_CONTACT_ADDRESS_WORK = 257,  /* ADR;WORK; address */
    VZ_CONTACT_ADDRESS_HOME = 258,  /* ADR;HOME; address */
    VZ_CONTACT_EMAIL = 259,         /* EMAIL */
    VZ_CONTACT_EMAIL_HOME = 260,    /* EMAIL;INTERNET;HOME */
    VZ_CONTACT_EMAIL_WORK = 261,    /* EMAIL;INTERNET;WORK */
    VZ_CONTACT_WEB = 272,           /* URL */
    VZ_CONTACT_WEB_HOME = 273,      /* URL;HOME */
    VZ_CONTACT_WEB_WORK = 274,      /* URL;WORK */
    VZ_CONTACT_PUSH_TO_TALK = 288,  /* X-SIP;POC */
    VZ_CONTACT_VIDEO_SHARING = 289, /* X-SIP;SWIS */
    VZ_CONTACT_SIP = 304,           /* X-SIP */
    VZ_CONTACT_ADDRESS_MARK = 511,  /* no line: an e-mail or web address equal to this one gets PREF */
};

/* Fields of the list `extended`. */
enum {
    VZ_CONTACT_NOTE = 512,                /* NOTE */
    VZ_CONTACT_DTMF = 513,                /* X-DTMF */
    VZ_CONTACT_UID = 514,                 /* UID */
    VZ_CONTACT_WIRELESS_VILLAGE_ID = 515, /* X-WV-ID */
    VZ_CONTACT_CLASS = 516,               /* CLASS and X-CLASS; number, a VZ_CLASS_ code */
    VZ_CONTACT_GEO = 517,                 /* GEO */
    VZ_CONTACT_MESSAGING = 518,           /* X-IMPP, X-JABBER, X-SKYPE, X-FACEBOOK; messaging */
    VZ_CONTACT_FAVORITE = 519,            /* X-FAVORITE; number */
    VZ_CONTACT_SELF = 520,                /* X-SELF; number */
    VZ_CONTACT_GENDER = 521,              /* X-GENDER; number, a VZ_GENDER_ code */
};

/* `form` of an entry. */
enum {
    VZ_FORM_NONE = 0,
    VZ_FORM_ADDRESS = 3,  /* postal address */
    VZ_FORM_EXTENDED = 4, /* class, gender, numbers and messaging in the list `extended` */
};

/* `form` of the entry inside a VZ_CONTACT_MESSAGING entry: the kind of the messaging address. */
enum {
    VZ_MESSAGING_NONE = 0,
    VZ_MESSAGING_PERSONAL = 1,
    VZ_MESSAGING_BUSINESS = 2,
    VZ_MESSAGING_HOME = 3,
    VZ_MESSAGING_WORK = 4,
    VZ_MESSAGING_MOBILE = 5,
};

enum {
    VZ_GENDER_MALE = 1,
    VZ_GENDER_FEMALE = 2,
    VZ_GENDER_UNDEFINED = 3,
};

/*
 * A postal address. The members have an order of their own; the comment gives the component of ADR. A
 * component that was not in the text is read as an empty string; null is written as an empty one.
 */
typedef struct ContactAddress {
    uint32_t size;             /* 64 */
    char16_t* poBox;           /* component 1 */
    char16_t* street;          /* component 3 */
    char16_t* postalCode;      /* component 6 */
    char16_t* city;            /* component 4 */
    char16_t* region;          /* component 5 */
    char16_t* country;         /* component 7 */
    char16_t* extendedAddress; /* component 2 */
} ContactAddress;

VZAPI_ASSERT_SIZE(ContactAddress, 64);
VZAPI_ASSERT_OFFSET(ContactAddress, size, 0);
VZAPI_ASSERT_OFFSET(ContactAddress, poBox, 8);
VZAPI_ASSERT_OFFSET(ContactAddress, street, 16);
VZAPI_ASSERT_OFFSET(ContactAddress, postalCode, 24);
VZAPI_ASSERT_OFFSET(ContactAddress, city, 32);
VZAPI_ASSERT_OFFSET(ContactAddress, region, 40);
VZAPI_ASSERT_OFFSET(ContactAddress, country, 48);
VZAPI_ASSERT_OFFSET(ContactAddress, extendedAddress, 56);

/*
 * A calendar date, written YYYYMMDD. Interface version 14 and later: one with another `size` than 20 or with
 * year 0 counts as absent.
 */
typedef struct ContactDate {
    uint32_t size; /* 20 */
    uint16_t year;
    uint8_t month;  /* 1 to 12 */
    uint8_t day;    /* 1 to 31 */
    uint8_t hour;   /* 0 to 23 */
    uint8_t minute; /* 0 to 59 */
    uint8_t second; /* 0 to 59 */
    uint8_t padding;
    uint8_t reserved[8]; /* 0 */
} ContactDate;

VZAPI_ASSERT_SIZE(ContactDate, 20);
VZAPI_ASSERT_OFFSET(ContactDate, size, 0);
VZAPI_ASSERT_OFFSET(ContactDate, year, 4);
VZAPI_ASSERT_OFFSET(ContactDate, month, 6);
VZAPI_ASSERT_OFFSET(ContactDate, day, 7);
VZAPI_ASSERT_OFFSET(ContactDate, hour, 8);
VZAPI_ASSERT_OFFSET(ContactDate, minute, 9);
VZAPI_ASSERT_OFFSET(ContactDate, second, 10);
VZAPI_ASSERT_OFFSET(ContactDate, padding, 11);
VZAPI_ASSERT_OFFSET(ContactDate, reserved, 12);

/* A picture. An entry whose photo has another `size` than 32, no bytes or unreadable ones is skipped. */
typedef struct ContactPhoto {
    uint32_t size;       /* 32 */
    char16_t* imageType; /* such as JPEG, PNG or GIF; null is JPEG */
    uint32_t dataLength; /* bytes */
    uint8_t* data;       /* the image file */
} ContactPhoto;

VZAPI_ASSERT_SIZE(ContactPhoto, 32);
VZAPI_ASSERT_OFFSET(ContactPhoto, size, 0);
VZAPI_ASSERT_OFFSET(ContactPhoto, imageType, 8);
VZAPI_ASSERT_OFFSET(ContactPhoto, dataLength, 16);
VZAPI_ASSERT_OFFSET(ContactPhoto, data, 24);

/* The 8-byte value of an entry; `fieldId` tells which member counts: `text` where its row above names no
 * other. */
typedef union ContactValue {
    char16_t* text;
    ContactAddress* address;
    ContactDate* date;
    ContactPhoto* photo;
    struct ContactField* messaging; /* `preferred`, the kind in `form`, the address in `value.text` */
    uint64_t number;                /* the low 32 bits count */
} ContactValue;

VZAPI_ASSERT_SIZE(ContactValue, 8);
VZAPI_ASSERT_OFFSET(ContactValue, text, 0);
VZAPI_ASSERT_OFFSET(ContactValue, address, 0);
VZAPI_ASSERT_OFFSET(ContactValue, date, 0);
VZAPI_ASSERT_OFFSET(ContactValue, photo, 0);
VZAPI_ASSERT_OFFSET(ContactValue, messaging, 0);
VZAPI_ASSERT_OFFSET(ContactValue, number, 0);

/* One value of a contact. */
typedef struct ContactField {
    uint32_t size;      /* 24 */
    uint32_t preferred; /* 1: the property carries PREF */
    uint32_t form;      /* a VZ_FORM_ value; inside a messaging entry a VZ_MESSAGING_ kind */
    uint32_t fieldId;   /* a VZ_CONTACT_ id of the list that holds the entry */
    ContactValue value;
} ContactField;

VZAPI_ASSERT_SIZE(ContactField, 24);
VZAPI_ASSERT_OFFSET(ContactField, size, 0);
VZAPI_ASSERT_OFFSET(ContactField, preferred, 4);
VZAPI_ASSERT_OFFSET(ContactField, form, 8);
VZAPI_ASSERT_OFFSET(ContactField, fieldId, 12);
VZAPI_ASSERT_OFFSET(ContactField, value, 16);

/*
 * One contact: four lists of entries. An absent value is an absent entry, a repeated one several entries.
 * Counts are compared as signed numbers, so one of 2^31 or more is an empty list.
 *
 * Filled by ConvertFromVersit: arrays, sub-records and strings are the library's, the record is released with
 * FreeConverterData. Read by ConvertToVersit: all stay the caller's; an entry or value that cannot be read is
 * skipped, in `phones` and `addresses` an unreadable entry ends the list.
 */
typedef struct ContactItem {
    uint32_t size;           /* 64 */
    uint32_t generalCount;   /* entries in `general` */
    ContactField* general;   /* names, organisation, dates, photo */
    uint32_t phoneCount;     /* entries in `phones` */
    ContactField* phones;    /* telephone numbers */
    uint32_t addressCount;   /* entries in `addresses` */
    ContactField* addresses; /* postal, e-mail, web and SIP addresses */
    uint32_t extendedCount;  /* entries in `extended` */
    ContactField* extended;  /* note, class, gender, messaging and more */
} ContactItem;

VZAPI_ASSERT_SIZE(ContactItem, 64);
VZAPI_ASSERT_OFFSET(ContactItem, size, 0);
VZAPI_ASSERT_OFFSET(ContactItem, generalCount, 4);
VZAPI_ASSERT_OFFSET(ContactItem, general, 8);
VZAPI_ASSERT_OFFSET(ContactItem, phoneCount, 16);
VZAPI_ASSERT_OFFSET(ContactItem, phones, 24);
VZAPI_ASSERT_OFFSET(ContactItem, addressCount, 32);
VZAPI_ASSERT_OFFSET(ContactItem, addresses, 40);
VZAPI_ASSERT_OFFSET(ContactItem, extendedCount, 48);
VZAPI_ASSERT_OFFSET(ContactItem, extended, 56);

#if defined(__cplusplus)
}
#endif

#endif
