#!/usr/bin/env python3
"""Writes the samples of tests/data/calendar: entries of every type, recurrence and alarm in both versions of the
format, calendars with several entries, and calendars with something wrong.

Every person, place and appointment is invented. Usage: make_calendar.py [FOLDER]
"""

import pathlib
import sys


def calendar(*lines, version="1.0", head=()):
    return "".join(line + "\r\n" for line in ("BEGIN:VCALENDAR", "VERSION:" + version, *head, *lines, "END:VCALENDAR"))


def event(*lines, version="1.0", head=()):
    return calendar("BEGIN:VEVENT", *lines, "END:VEVENT", version=version, head=head)


def todo(*lines, version="1.0", head=()):
    return calendar("BEGIN:VTODO", *lines, "END:VTODO", version=version, head=head)


def meeting(title, *lines, version="1.0"):
    """An hour on Tuesday 10 March 2009."""
    return event("SUMMARY:" + title, "DTSTART:20090310T140000", "DTEND:20090310T150000",
                 "CATEGORIES:APPOINTMENT", *lines, version=version)


BERLIN = ("TZ:+01:00",
          "DAYLIGHT:TRUE;+02:00;20090329T020000;20091025T030000;CET;CEST",
          "DAYLIGHT:TRUE;+02:00;20100328T020000;20101031T030000;CET;CEST")

APPOINTMENT = event(
    "X-EPOCAGENDAENTRYTYPE:APPOINTMENT",
    "DTSTART:20090310T140000",
    "DTEND:20090310T153000",
    "SUMMARY:Planning",
    "LOCATION;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:Caf=C3=A9 =E2=80=9EAm Markt=E2=80=9C",
    "DESCRIPTION;ENCODING=QUOTED-PRINTABLE:Bring the plans=0D=0A"
    "and the budget; it will be long =",
    "but the coffee is good",
    "CLASS:PRIVATE",
    "GEO:48.13;11.57",
    "X-VZAPI-CAL-REFERENCE:12;3;4294967295",
    "AALARM:20090310T134500;;0;",
    "RRULE:W2 TU 20100630T235959",
    "EXDATE:20090407T140000;20090421T140000",
    head=BERLIN)

APPOINTMENT_2 = calendar(
    "BEGIN:VTIMEZONE",
    "TZID:Europe/Berlin",
    "BEGIN:STANDARD",
    "DTSTART:19701025T030000",
    "TZOFFSETFROM:+0200",
    "TZOFFSETTO:+0100",
    "END:STANDARD",
    "END:VTIMEZONE",
    "BEGIN:VEVENT",
    "UID:1@example.com",
    "DTSTART;TZID=Europe/Berlin:20090310T140000",
    "DTEND;TZID=Europe/Berlin:20090310T153000",
    "CATEGORIES:MEETING",
    "SUMMARY:Planning\\, the second",
    "LOCATION:Caf\u00e9 \u201eAm Markt\u201c",
    "DESCRIPTION:Bring the plans\\nand the budget\\; it will be lo",
    " ng but the coffee is good",
    "CLASS:PUBLIC",
    "GEO:48.13;11.57",
    "PRIORITY:5",
    "RRULE:FREQ=WEEKLY;INTERVAL=2;BYDAY=TU,TH;UNTIL=20100630T235959",
    "EXDATE:20090407T140000,20090421T140000",
    "EXDATE:20090505T140000",
    "BEGIN:VALARM",
    "ACTION:DISPLAY",
    "DESCRIPTION:Planning",
    "TRIGGER:-PT15M",
    "END:VALARM",
    "END:VEVENT",
    version="2.0", head=("PRODID:-//Example//Samples//EN", "METHOD:PUBLISH"))


def item_types(version):
    names = ("MEETING", "APPOINTMENT", "CALL", "phone call", "BIRTHDAY", "ANNIVERSARY", "SPECIAL OCCASION", "MEMO",
             "EVENT", "MISCELLANEOUS", "REMINDER", "NOTE", "TODO", "BUSINESS", "")
    day = ("DTSTART:20090310T000000",)
    texts = [event("SUMMARY:Categories " + (name or "empty"), *day, "CATEGORIES:" + name, version=version)
             for name in names]
    texts += [
        event("SUMMARY:Without a type", *day, version=version),
        event("SUMMARY:Without a type, at an hour", "DTSTART:20090310T090000", version=version),
        event("SUMMARY:Agenda entry type", *day, "X-EPOCAGENDAENTRYTYPE:REMINDER", version=version),
        event("SUMMARY:Agenda type", *day, "X-EPOC-AGENDA-TYPE:CALL", version=version),
        event("SUMMARY:Categories before agenda type", *day, "X-EPOCAGENDAENTRYTYPE:APPOINTMENT", "CATEGORIES:MEMO",
              version=version),
        event("SUMMARY:Item type", *day, "CATEGORIES:MEETING", "X-VZAPI-ITEM-TYPE:ANNIVERSARY", version=version),
        event("SUMMARY:Born 1980", *day, "CATEGORIES:BIRTHDAY", "X-BIRTHYEAR:1980", version=version),
        event("SUMMARY:Born 1981", *day, "CATEGORIES:BIRTHDAY", "DESCRIPTION:1981", version=version),
        event("SUMMARY:With a description", *day, "CATEGORIES:BIRTHDAY", "DESCRIPTION:Likes flowers", version=version),
        event("SUMMARY:Since 1990", *day, "X-VZAPI-ITEM-TYPE:ANNIVERSARY", "DESCRIPTION:1990", version=version),
        todo("SUMMARY:A to-do", "DUE:20090310T000000", version=version),
    ]
    return "".join(texts)


def recurrences():
    rules = ("D1 #0", "D3 #5", "D2 20090401T000000", "D1", "W1 #0", "W1 TU #0", "W1 MO TU WE TH FR #0",
             "W1 MO TU WE TH FR SA SU #0", "W2 MO TH #4", "W12 TU 20101231T235959Z", "MD1 10 #0", "MD2 #3", "MD1 31 #0",
             "MP1 2+ TU #0", "MP1 1- FR #0", "MP3 1+ TU TH #2", "MP1 #0", "YM1 #0", "YM2 3 20190310T140000", "MD12 10 #0",
             "MP12 2+ TU #0", "MP24 1- SU #2", "D300 #0", "MD1 10 20 #0", "MP1 2- FR #0", "YD1 100 #0", "M5 #0",
             "FREQ=DAILY;COUNT=3", "nonsense")
    return "".join(meeting(rule, "RRULE:" + rule) for rule in rules) + event(
        "SUMMARY:A birthday each year", "DTSTART:20080229T000000", "CATEGORIES:BIRTHDAY", "RRULE:YM1 #0") + event(
            "SUMMARY:Exceptions at other hours", "DTSTART:20090310T140000", "CATEGORIES:APPOINTMENT", "RRULE:D1 #0",
            "EXDATE:20090312;20090313T140000;nonsense;20090314T150000Z", "EXDATE:20090320T140000") + event(
                "SUMMARY:Exceptions alone", "DTSTART:20090310T140000", "CATEGORIES:APPOINTMENT", "EXDATE:20090310T140000")


def recurrences_2():
    rules = ("FREQ=DAILY", "FREQ=DAILY;INTERVAL=3;COUNT=5", "FREQ=DAILY;UNTIL=20090401", "FREQ=WEEKLY",
             "FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR", "FREQ=WEEKLY;INTERVAL=2;WKST=MO;BYDAY=MO,TH;COUNT=4",
             "FREQ=WEEKLY;UNTIL=21001230T000000Z", "FREQ=MONTHLY", "FREQ=MONTHLY;BYMONTHDAY=10;INTERVAL=2",
             "FREQ=MONTHLY;BYDAY=2TU", "FREQ=MONTHLY;BYDAY=-1FR;COUNT=3", "FREQ=MONTHLY;BYDAY=TU;BYSETPOS=1",
             "FREQ=MONTHLY;BYMONTHDAY=8,9,10,11,12,13,14;BYDAY=TU", "FREQ=MONTHLY;BYMONTHDAY=-7,-6,-5,-4,-3,-2,-1;BYDAY=TU",
             "FREQ=YEARLY", "FREQ=YEARLY;INTERVAL=4;UNTIL=20210310T140000", "FREQ=YEARLY;BYMONTH=3;BYDAY=2TU",
             "FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU", "FREQ=MONTHLY;BYMONTHDAY=10,20", "FREQ=HOURLY", "FREQ=YEARLY;BYYEARDAY=100",
             "W1 TU #0")
    return "".join(meeting(rule.replace(";", "\\;").replace(",", "\\,"), "RRULE:" + rule, version="2.0")
                   for rule in rules)


ALARMS = "".join((
    meeting("A quarter of an hour before", "AALARM:20090310T134500;;0;"),
    meeting("On the screen", "DALARM:20090310T134500;;0;Wake up"),
    meeting("Both", "AALARM:20090310T130000;;0;", "DALARM:20090310T123000;;0;"),
    meeting("At the start", "AALARM:20090310T140000"),
    meeting("After the start", "DALARM:20090310T140500"),
    meeting("The day before", "AALARM:20090309T120000"),
    meeting("A week before", "AALARM:20090303T140000"),
    meeting("Not in two words", "AALARM:20090309T125959"),
    meeting("Long before", "AALARM:20090101T140000"),
    meeting("On another clock", "AALARM:20090310T124500Z"),
    meeting("Empty", "AALARM:"),
    meeting("No date", "DALARM:soon;;0;"),
    event("SUMMARY:Of UTC", "DTSTART:20090310T140000Z", "CATEGORIES:CALL", "AALARM:20090310T134500Z"),
    event("SUMMARY:Of a whole day", "DTSTART:20090310T000000", "CATEGORIES:EVENT", "DALARM:20090309T180000"),
    event("SUMMARY:Without a start", "CATEGORIES:REMINDER", "DALARM:20090309T180000"),
    todo("SUMMARY:Of a to-do", "DUE:20090310T180000", "AALARM:20090310T170000"),
    todo("SUMMARY:When it is due", "DUE:20090310T180000", "DALARM:20090310T180000"),
    todo("SUMMARY:Of a to-do of a day", "DUE:20090310T000000", "AALARM:20090310T080000Z"),
))


def valarm(*lines):
    return ("BEGIN:VALARM", *lines, "END:VALARM")


ALARMS_2 = "".join((
    meeting("A quarter of an hour before", *valarm("TRIGGER:-PT15M", "ACTION:AUDIO"), version="2.0"),
    meeting("On the screen", *valarm("ACTION:DISPLAY", "TRIGGER:-P1DT2H", "DESCRIPTION:Wake up"), version="2.0"),
    meeting("A mail", *valarm("ACTION:EMAIL", "TRIGGER:-P1W"), version="2.0"),
    meeting("At the start", *valarm("TRIGGER:PT0S", "ACTION:AUDIO"), version="2.0"),
    meeting("Before the end", *valarm("TRIGGER;RELATED=END:-PT5M", "ACTION:AUDIO"), version="2.0"),
    meeting("At a time", *valarm("TRIGGER;VALUE=DATE-TIME:20090310T120000Z", "ACTION:DISPLAY"), version="2.0"),
    meeting("Two", *valarm("TRIGGER:-PT10M", "ACTION:DISPLAY"), *valarm("TRIGGER:-PT20M", "ACTION:AUDIO"),
            version="2.0"),
    meeting("No trigger", *valarm("TRIGGER:soon", "ACTION:AUDIO"), version="2.0"),
    todo("SUMMARY:Of a to-do", "DUE:20090310T180000", *valarm("TRIGGER:-PT1H", "ACTION:DISPLAY"), version="2.0"),
))

# What a to-do is not written with.
TODO_AT_A_PLACE = todo(
    "SUMMARY:Water the plants", "LOCATION:Balcony", "X-VZAPI-CAL-REFERENCE:1;2;3", "DUE:20090310T180000")

TODOS = "".join((
    todo("SUMMARY:Nothing else"),
    todo("SUMMARY:Due at an hour", "DUE:20090310T180000", "PRIORITY:1", "STATUS:NEEDS ACTION", "CLASS:PRIVATE"),
    todo("SUMMARY:Done", "DUE:20090310T180000Z", "PRIORITY:3", "STATUS:COMPLETED", "COMPLETED:20090309T120000"),
    todo("SUMMARY:Due on a day", "DUE:20090310", "DTEND:20090311T120000", "X-CLASS:PUBLIC", "GEO:48.13;11.57"),
    todo("SUMMARY:A start alone", "DTSTART:20090310T080000", "STATUS:needs-action", "PRIORITY:0"),
    todo("SUMMARY:With a number for a status", "STATUS:7", "DESCRIPTION:Two lines"),
    todo("SUMMARY:Every second week", "DUE:20090310T180000", "RRULE:W2 TU #0", "EXDATE:20090324T180000"),
))

TODOS_2 = "".join((
    todo("SUMMARY:Due on a day", "DUE;VALUE=DATE:20090310", "PRIORITY:9", "STATUS:NEEDS-ACTION", version="2.0"),
    todo("SUMMARY:Done", "DUE:20090310T180000Z", "STATUS:COMPLETED", "PERCENT-COMPLETE:100", version="2.0"),
    todo("SUMMARY:Under way", "DUE:20090310T180000", "STATUS:IN-PROCESS", "RRULE:FREQ=MONTHLY;BYDAY=2TU",
         "EXDATE:20090414T180000", version="2.0"),
))

DURATIONS_2 = "".join((
    event("SUMMARY:Some hours", "DTSTART:20090310T140000", "DURATION:PT1H30M", "CATEGORIES:CALL", version="2.0"),
    event("SUMMARY:Some days", "DTSTART;VALUE=DATE:20090310", "DURATION:P2D", version="2.0"),
    event("SUMMARY:Not on top of an end", "DTSTART:20090310T140000", "DTEND:20090310T150000", "DURATION:P1W",
          "CATEGORIES:CALL", version="2.0"),
))

TIMES = "".join((
    event("SUMMARY:Some hours", "DTSTART:20090310T140000", "DTEND:20090310T153000", "CATEGORIES:CALL"),
    event("SUMMARY:To the second", "DTSTART:20090310T140030", "DTEND:20090310T153000", "CATEGORIES:CALL"),
    event("SUMMARY:Over night", "DTSTART:20090310T220000", "DTEND:20090311T060000", "CATEGORIES:CALL"),
    event("SUMMARY:A moment", "DTSTART:20090310T140000", "DTEND:20090310T140000", "CATEGORIES:CALL"),
    event("SUMMARY:Without an end", "DTSTART:20090310T140000", "CATEGORIES:CALL"),
    event("SUMMARY:Without a start", "DTEND:20090310T140000", "CATEGORIES:CALL"),
    event("SUMMARY:UTC", "DTSTART:20090310T140000Z", "DTEND:20090310T153000Z", "CATEGORIES:CALL"),
    event("SUMMARY:Two clocks", "DTSTART:20090310T140000Z", "DTEND:20090310T163000", "CATEGORIES:CALL"),
    event("SUMMARY:Separators", "DTSTART:2009-03-10T14:00:00", "DTEND:2009-03-10T15:30:00Z", "CATEGORIES:CALL"),
    event("SUMMARY:One day of an appointment", "DTSTART:20090310T000000", "DTEND:20090311T000000", "CATEGORIES:MEETING"),
    event("SUMMARY:Midnight of an appointment", "DTSTART:20090310T000000", "CATEGORIES:MEETING"),
    event("SUMMARY:Days of UTC", "DTSTART:20090310T000000Z", "DTEND:20090311T000000Z", "CATEGORIES:MEETING"),
    event("SUMMARY:A day", "DTSTART:20090310T000000", "DTEND:20090310T000000", "CATEGORIES:EVENT"),
    event("SUMMARY:A day to its last minute", "DTSTART:20090310T000000", "DTEND:20090310T235900", "CATEGORIES:EVENT"),
    event("SUMMARY:Three days", "DTSTART:20090310", "DTEND:20090313", "CATEGORIES:EVENT"),
    event("SUMMARY:An end before the start", "DTSTART:20090310T140000", "DTEND:20090309T140000", "CATEGORIES:EVENT"),
    event("SUMMARY:A day that is none", "DTSTART:20090231T140000", "DTEND:20090231T150000", "CATEGORIES:CALL"),
    event("SUMMARY:No dates", "DTSTART:20091310T140000", "DTEND:18991231T235959", "CATEGORIES:CALL"),
    event("SUMMARY:Whole days in UTC of an event", "DTSTART:20090310T230000Z", "DTEND:20090311T230000Z",
          "CATEGORIES:EVENT"),
    event("SUMMARY:A birthday in version 2.0", "DTSTART;VALUE=DATE:19800229", "CATEGORIES:BIRTHDAY",
          "RRULE:FREQ=YEARLY", version="2.0"),
))

SEVERAL = calendar(
    "BEGIN:VEVENT",
    "SUMMARY:First",
    "DTSTART:20090310T140000",
    "CATEGORIES:MEETING",
    "END:VEVENT",
    "BEGIN:VTODO",
    "SUMMARY:Second",
    "DUE:20090311T140000",
    "END:VTODO",
    "",
    "BEGIN:VEVENT",
    "SUMMARY;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:Dritte, sp=C3=A4t",
    "DTSTART:20090312T140000",
    "CATEGORIES:MEETING",
    "END:VEVENT",
    "BEGIN:VTODO",
    "SUMMARY:Fourth",
    "END:VTODO",
    "DAYLIGHT:TRUE;+02:00;20110327T020000;20111030T030000;CET;CEST",
    head=BERLIN)

SEVERAL_2 = calendar(
    "BEGIN:VTIMEZONE",
    "TZID:Europe/Berlin",
    "BEGIN:DAYLIGHT",
    "DTSTART:19700329T020000",
    "TZOFFSETFROM:+0100",
    "TZOFFSETTO:+0200",
    "END:DAYLIGHT",
    "END:VTIMEZONE",
    "BEGIN:VEVENT",
    "SUMMARY:First",
    "DTSTART;TZID=Europe/Berlin:20090310T140000",
    *valarm("TRIGGER:-PT15M", "ACTION:DISPLAY"),
    "END:VEVENT",
    "BEGIN:VJOURNAL",
    "SUMMARY:A page of a diary",
    "DTSTART;VALUE=DATE:20090310",
    "END:VJOURNAL",
    "BEGIN:VEVENT",
    "SUMMARY:Third",
    "DTSTART;TZID=Europe/Berlin:20090312T140000",
    "END:VEVENT",
    "BEGIN:VFREEBUSY",
    "FREEBUSY:20090310T140000Z/PT1H",
    "END:VFREEBUSY",
    "BEGIN:VTODO",
    "SUMMARY:Fifth",
    "DUE;VALUE=DATE:20090313",
    "END:VTODO",
    version="2.0", head=("PRODID:-//Example//Samples//EN",))

BROKEN = "".join((
    event("SUMMARY:Version 1.1", "DTSTART:20090310T140000", version="1.1"),
    "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nSUMMARY:No version\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n",
    meeting("Good"),
    calendar("BEGIN:VEVENT", "SUMMARY:No END", "DTSTART:20090310T140000", "CATEGORIES:MEETING"),
    calendar("BEGIN:VEVENT", "SUMMARY:No END, and another follows", "DTSTART:20090310T140000", "CATEGORIES:MEETING",
             "BEGIN:VEVENT", "SUMMARY:The other", "DTSTART:20090311T140000", "CATEGORIES:MEETING", "END:VEVENT"),
    calendar(),
    calendar("BEGIN:VEVENT", "END:VEVENT"),
    calendar("BEGIN:VJOURNAL", "SUMMARY:A page of a diary", "END:VJOURNAL", version="2.0"),
    event("SUMMARY:Bad values", "DTSTART:yesterday", "DTEND:", "CATEGORIES:MEETING", "CLASS:SECRET", "GEO:here",
          "X-VZAPI-CAL-REFERENCE:1;2", "RRULE:often", "EXDATE:never", "AALARM:;;;", "PRIORITY:high"),
    event("SUMMARY:Bad zone", "DTSTART:20090310T140000", "CATEGORIES:MEETING",
          head=("TZ:east", "DAYLIGHT:MAYBE;x;y;z", "DAYLIGHT:FALSE")),
    "BEGIN:VCALENDAR\r\nVERSION:1.0\r\nBEGIN:VEVENT\r\nSUMMARY:Whole\r\nDTSTART:20090310T140000\r\n"
    "CATEGORIES:MEETING\r\nEND:VEVENT\r\nBEGIN:VTODO\r\nSUMMARY:Whole too\r\nEND:VTODO\r\n"
    "BEGIN:VEVENT\r\nSUMMARY:Cut o",
))

DOUBLED = event("DESCRIPTION:A text before the title", "SUMMARY:One title", "SUMMARY:Another title", "CLASS:PUBLIC",
                "CATEGORIES:CALL", "DTSTART:20090310T140000")


def main():
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).parent / "calendar"
    folder.mkdir(parents=True, exist_ok=True)
    texts = {
        "alarms.vcs": ALARMS,
        "alarms-version-2.ics": ALARMS_2,
        "appointment.vcs": APPOINTMENT,
        "appointment-version-2.ics": APPOINTMENT_2,
        "broken.vcs": BROKEN,
        "durations-version-2.ics": DURATIONS_2,
        "fields-in-their-order.vcs": DOUBLED,
        "item-types.vcs": item_types("1.0"),
        "item-types-version-2.ics": item_types("2.0"),
        "line-feeds-only.vcs": SEVERAL.replace("\r\n", "\n"),
        "recurrences.vcs": recurrences(),
        "recurrences-version-2.ics": recurrences_2(),
        "several-entries.vcs": SEVERAL,
        "several-entries-version-2.ics": SEVERAL_2,
        "times.vcs": TIMES,
        "todo-at-a-place.vcs": TODO_AT_A_PLACE,
        "todos.vcs": TODOS,
        "todos-version-2.ics": TODOS_2,
    }
    for name, text in texts.items():
        (folder / name).write_bytes(text.encode("utf-8"))
    (folder / "utf8-mark-version-2.ics").write_bytes(b"\xef\xbb\xbf" + APPOINTMENT_2.encode("utf-8"))
    plain = event("SUMMARY:\u4f1a\u8bae", "LOCATION:Caf\u00e9", "DTSTART:20090310T140000", "CATEGORIES:MEETING")
    (folder / "utf16.vcs").write_bytes((plain + plain).encode("utf-16-be"))
    (folder / "utf16-mark.vcs").write_bytes(b"\xff\xfe" + plain.encode("utf-16-le"))


if __name__ == "__main__":
    main()
