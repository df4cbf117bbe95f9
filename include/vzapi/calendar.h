/* The calendar record: VZ_TYPE_CALENDAR, vCalendar 1.0 text with one event or to-do; 2.0 for those who ask
 * for it. */
#ifndef VZAPI_CALENDAR_H
#define VZAPI_CALENDAR_H

#include "vzapi/base.h"

#if defined(__cplusplus)
extern "C" {
#endif

/* `size` of a CalendarItem: the versions of the record, each named after what it adds. */
enum {
    VZ_CALENDAR_SIZE_BASE = 112,
    VZ_CALENDAR_SIZE_EXCEPTIONS = 128,  /* excluded dates; day selection and position in the 8-bit members */
    VZ_CALENDAR_SIZE_WIDE_REPEAT = 152, /* recurrence in full-width members, which replace the 8-bit ones */
    VZ_CALENDAR_SIZE_TIME_ZONE = 192,   /* time zone; counts from interface version 16 on */
};

/* `itemType`. A to-do is written as VTODO, all others as VEVENT. */
enum {
    VZ_ITEM_OTHER = 0,       /* no type, or one with an unknown name */
    VZ_ITEM_APPOINTMENT = 1, /* MEETING, APPOINTMENT */
    VZ_ITEM_CALL = 2,        /* CALL, PHONE CALL */
    VZ_ITEM_BIRTHDAY = 3,    /* BIRTHDAY, ANNIVERSARY, SPECIAL OCCASION */
    VZ_ITEM_EVENT = 4,       /* MEMO, EVENT, MISCELLANEOUS */
    VZ_ITEM_REMINDER = 5,    /* REMINDER */
    VZ_ITEM_NOTE = 6,        /* NOTE; written without a name */
    VZ_ITEM_TODO = 7,        /* TODO */
    VZ_ITEM_ANNIVERSARY = 8, /* X-VZAPI-ITEM-TYPE; from interface version 14 on */
};

/* `alarmKind`. */
enum {
    VZ_ALARM_NONE = 1,    /* the text has no alarm */
    VZ_ALARM_DISPLAY = 2, /* DALARM, and AALARM beside it when written */
    VZ_ALARM_AUDIO = 3,   /* AALARM */
};

/* `repeatKind` and `repeatKind2`; any other value is no recurrence either. */
enum {
    VZ_REPEAT_NONE = 0,
    VZ_REPEAT_DAILY = 1,
    VZ_REPEAT_WEEKLY = 2,
    VZ_REPEAT_MONTHLY = 3,
    VZ_REPEAT_YEARLY = 4,
};

/* Bits of `repeatDays` and `repeatDays2`. */
enum {
    VZ_DAY_SUNDAY = 0x01,
    VZ_DAY_MONDAY = 0x02,
    VZ_DAY_TUESDAY = 0x04,
    VZ_DAY_WEDNESDAY = 0x08,
    VZ_DAY_THURSDAY = 0x10,
    VZ_DAY_FRIDAY = 0x20,
    VZ_DAY_SATURDAY = 0x40,
};

/* `repeatPosition` (its low four bits) and `repeatPosition2`: which of the selected days of a month. */
enum {
    VZ_POSITION_NONE = 0, /* the day of the month of `start` */
    VZ_POSITION_FIRST = 1,
    VZ_POSITION_SECOND = 2,
    VZ_POSITION_THIRD = 3,
    VZ_POSITION_FOURTH = 4,
    VZ_POSITION_LAST = 5,
    VZ_POSITION_MASK = 0x0F,
};

/* Values that say that a block of the record is filled. */
enum {
    VZ_REPEAT_BLOCK_SIZE = 20, /* `repeatSize` */
    VZ_ZONE_BLOCK_SIZE = 40,   /* `zoneSize` */
};

/* `zone1` and `zone2` of a time that is not in UTC. */
enum { VZ_ZONE_LOCAL = 0xFFFF };

/* `flag` of a DaylightRule. */
enum {
    VZ_DAYLIGHT_FALSE = 0,
    VZ_DAYLIGHT_TRUE = 1,
};

/* Fields of the array `fields`. The comment gives the property, and the value where it is no text. */
enum {
    VZ_CALENDAR_CLASS = 0x204,       /* CLASS; number, a VZ_CLASS_ code */
    VZ_CALENDAR_GEO = 0x205,         /* GEO; geo */
    VZ_CALENDAR_SUMMARY = 0x300,     /* SUMMARY */
    VZ_CALENDAR_LOCATION = 0x301,    /* LOCATION */
    VZ_CALENDAR_DESCRIPTION = 0x302, /* DESCRIPTION, of all item types but the two that follow */
    VZ_CALENDAR_BIRTH_YEAR = 0x302,  /* X-BIRTHYEAR of VZ_ITEM_BIRTHDAY and VZ_ITEM_ANNIVERSARY; number */
    VZ_CALENDAR_PRIORITY = 0x303,    /* PRIORITY of a to-do; number */
    VZ_CALENDAR_STATUS = 0x304,      /* STATUS of a to-do; number, a VZ_TODO_ code */
    VZ_CALENDAR_DESCRIPTION_ALONE = 0x305, /* DESCRIPTION, of any item type that is no to-do */
    VZ_CALENDAR_REFERENCE = 0x306,         /* X-VZAPI-CAL-REFERENCE; reference */
};

/* Status of a to-do; any other number but 0 is written in decimal. */
enum {
    VZ_TODO_NEEDS_ACTION = 1, /* NEEDS ACTION; read when the to-do has no status */
    VZ_TODO_COMPLETED = 2,    /* COMPLETED */
};

/* `valueSize` of a CalendarField that the library filled. */
enum { VZ_CALENDAR_VALUE_SIZE = 16 };

/*
 * A date and time of day. It counts as absent unless `year` is 1900 or later, `month` 1 to 12, `day` 1 to 31,
 * `hour` at most 23, `minute` and `second` at most 59. It is in UTC, written with a Z, when both zone words
 * differ from VZ_ZONE_LOCAL.
 */
typedef struct CalendarTime {
    uint32_t reserved; /* 0 */
    uint16_t year;     /* 0: no date */
    uint8_t month;
    uint8_t day;
    uint8_t hour;
    uint8_t minute;
    uint8_t second;
    uint8_t padding;
    int32_t zone1;
    int32_t zone2;
} CalendarTime;

VZAPI_ASSERT_SIZE(CalendarTime, 20);
VZAPI_ASSERT_OFFSET(CalendarTime, reserved, 0);
VZAPI_ASSERT_OFFSET(CalendarTime, year, 4);
VZAPI_ASSERT_OFFSET(CalendarTime, month, 6);
VZAPI_ASSERT_OFFSET(CalendarTime, day, 7);
VZAPI_ASSERT_OFFSET(CalendarTime, hour, 8);
VZAPI_ASSERT_OFFSET(CalendarTime, minute, 9);
VZAPI_ASSERT_OFFSET(CalendarTime, second, 10);
VZAPI_ASSERT_OFFSET(CalendarTime, padding, 11);
VZAPI_ASSERT_OFFSET(CalendarTime, zone1, 12);
VZAPI_ASSERT_OFFSET(CalendarTime, zone2, 16);

/* A place, written as latitude, semicolon, longitude. One with another `size` than 32 is skipped. */
typedef struct CalendarGeo {
    uint32_t size; /* 32 */
    uint32_t reserved[3];
    char16_t* latitude;
    char16_t* longitude;
} CalendarGeo;

VZAPI_ASSERT_SIZE(CalendarGeo, 32);
VZAPI_ASSERT_OFFSET(CalendarGeo, size, 0);
VZAPI_ASSERT_OFFSET(CalendarGeo, reserved, 4);
VZAPI_ASSERT_OFFSET(CalendarGeo, latitude, 16);
VZAPI_ASSERT_OFFSET(CalendarGeo, longitude, 24);

/* A reference to another entry: three numbers. One with another `size` than 16 is skipped. */
typedef struct CalendarReference {
    uint32_t size; /* 16 */
    uint32_t numbers[3];
} CalendarReference;

VZAPI_ASSERT_SIZE(CalendarReference, 16);
VZAPI_ASSERT_OFFSET(CalendarReference, size, 0);
VZAPI_ASSERT_OFFSET(CalendarReference, numbers, 4);

/* The 8-byte value of an entry; `fieldId` tells which member counts: `text` where its row above names no
 * other. */
typedef union CalendarValue {
    char16_t* text;
    CalendarGeo* geo;
    CalendarReference* reference;
    uint64_t number; /* the low 32 bits count */
} CalendarValue;

VZAPI_ASSERT_SIZE(CalendarValue, 8);
VZAPI_ASSERT_OFFSET(CalendarValue, text, 0);
VZAPI_ASSERT_OFFSET(CalendarValue, geo, 0);
VZAPI_ASSERT_OFFSET(CalendarValue, reference, 0);
VZAPI_ASSERT_OFFSET(CalendarValue, number, 0);

/* One text or number of a calendar entry. */
typedef struct CalendarField {
    uint32_t size; /* 24 */
    uint32_t reserved;
    uint32_t valueSize; /* 16 */
    uint32_t fieldId;   /* a VZ_CALENDAR_ field id */
    CalendarValue value;
} CalendarField;

VZAPI_ASSERT_SIZE(CalendarField, 24);
VZAPI_ASSERT_OFFSET(CalendarField, size, 0);
VZAPI_ASSERT_OFFSET(CalendarField, reserved, 4);
VZAPI_ASSERT_OFFSET(CalendarField, valueSize, 8);
VZAPI_ASSERT_OFFSET(CalendarField, fieldId, 12);
VZAPI_ASSERT_OFFSET(CalendarField, value, 16);

/* One period of daylight-saving time: a DAYLIGHT line. */
typedef struct DaylightRule {
    uint32_t flag; /* VZ_DAYLIGHT_TRUE or VZ_DAYLIGHT_FALSE, the first component of the line */
    CalendarTime begin;
    CalendarTime end;
} DaylightRule;

VZAPI_ASSERT_SIZE(DaylightRule, 44);
VZAPI_ASSERT_OFFSET(DaylightRule, flag, 0);
VZAPI_ASSERT_OFFSET(DaylightRule, begin, 4);
VZAPI_ASSERT_OFFSET(DaylightRule, end, 24);

/*
 * One event or to-do. A caller that knows less of the record than this passes a smaller one with a smaller
 * `size`; nothing behind `size` bytes is touched. Members with a 2 are the full-width twins of the 8-bit
 * ones: they count when the record has them and `repeatSize` is 20. `repeatDays` and `repeatPosition` count
 * in a record of 128 bytes only.
 *
 * Filled by ConvertFromVersit: arrays, sub-records and strings are blocks of the process heap, the record is
 * released with FreeConverterData. Read by ConvertToVersit: all stay the caller's; what cannot be read is
 * skipped.
 */
typedef struct CalendarItem {
    uint32_t size;     /* a VZ_CALENDAR_SIZE_ value */
    uint32_t itemType; /* a VZ_ITEM_ code */

    CalendarTime start; /* DTSTART; DUE of a to-do */
    CalendarTime end;   /* DTEND */
    uint32_t alarmKind; /* a VZ_ALARM_ code */
    CalendarTime alarm;

    uint8_t repeatKind; /* a VZ_REPEAT_ code */
    uint8_t repeatInterval;
    uint8_t repeatDays;       /* VZ_DAY_ bits */
    uint8_t repeatPosition;   /* a VZ_POSITION_ code in the low four bits */
    CalendarTime repeatUntil; /* year 0: no end */

    uint8_t fieldCount; /* entries in `fields` */
    CalendarField* fields;

    /* From size 128 on. */
    uint8_t exceptionCount;   /* entries in `exceptions` */
    CalendarTime* exceptions; /* EXDATE */

    /* From size 152 on. */
    uint32_t repeatSize; /* 20: the next four are valid */
    uint32_t repeatKind2;
    uint32_t repeatInterval2;
    uint32_t repeatDays2;
    uint32_t repeatPosition2;
    uint32_t reserved;

    /* From size 192 on. */
    uint32_t zoneSize;           /* 40: the block is filled */
    int32_t standardOffset;      /* TZ; minutes east of UTC */
    int32_t daylightOffset;      /* DAYLIGHT; minutes east of UTC */
    uint8_t daylightCount;       /* entries in `daylightRules` */
    DaylightRule* daylightRules; /* DAYLIGHT */
    char* standardName;          /* 8-bit, zero-terminated: designation of standard time */
    char* daylightName;          /* 8-bit, zero-terminated: designation of daylight-saving time */
} CalendarItem;

VZAPI_ASSERT_SIZE(CalendarItem, 192);
VZAPI_ASSERT_OFFSET(CalendarItem, size, 0);
VZAPI_ASSERT_OFFSET(CalendarItem, itemType, 4);
VZAPI_ASSERT_OFFSET(CalendarItem, start, 8);
VZAPI_ASSERT_OFFSET(CalendarItem, end, 28);
VZAPI_ASSERT_OFFSET(CalendarItem, alarmKind, 48);
VZAPI_ASSERT_OFFSET(CalendarItem, alarm, 52);
VZAPI_ASSERT_OFFSET(CalendarItem, repeatKind, 72);
VZAPI_ASSERT_OFFSET(CalendarItem, repeatInterval, 73);
VZAPI_ASSERT_OFFSET(CalendarItem, repeatDays, 74);
VZAPI_ASSERT_OFFSET(CalendarItem, repeatPosition, 75);
VZAPI_ASSERT_OFFSET(CalendarItem, repeatUntil, 76);
VZAPI_ASSERT_OFFSET(CalendarItem, fieldCount, 96);
VZAPI_ASSERT_OFFSET(CalendarItem, fields, 104);
VZAPI_ASSERT_OFFSET(CalendarItem, exceptionCount, VZ_CALENDAR_SIZE_BASE);
VZAPI_ASSERT_OFFSET(CalendarItem, exceptions, 120);
VZAPI_ASSERT_OFFSET(CalendarItem, repeatSize, VZ_CALENDAR_SIZE_EXCEPTIONS);
VZAPI_ASSERT_OFFSET(CalendarItem, repeatKind2, 132);
VZAPI_ASSERT_OFFSET(CalendarItem, repeatInterval2, 136);
VZAPI_ASSERT_OFFSET(CalendarItem, repeatDays2, 140);
VZAPI_ASSERT_OFFSET(CalendarItem, repeatPosition2, 144);
VZAPI_ASSERT_OFFSET(CalendarItem, reserved, 148);
VZAPI_ASSERT_OFFSET(CalendarItem, zoneSize, VZ_CALENDAR_SIZE_WIDE_REPEAT);
VZAPI_ASSERT_OFFSET(CalendarItem, standardOffset, 156);
VZAPI_ASSERT_OFFSET(CalendarItem, daylightOffset, 160);
VZAPI_ASSERT_OFFSET(CalendarItem, daylightCount, 164);
VZAPI_ASSERT_OFFSET(CalendarItem, daylightRules, 168);
VZAPI_ASSERT_OFFSET(CalendarItem, standardName, 176);
VZAPI_ASSERT_OFFSET(CalendarItem, daylightName, 184);

#if defined(__cplusplus)
}
#endif

#endif
