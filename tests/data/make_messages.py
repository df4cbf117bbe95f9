#!/usr/bin/env python3
"""Writes the samples of tests/data/messages and tests/data/email: messages of every type and state in both forms and
every charset, with bodies that look like something else, messages as devices write them, and some with something
wrong; e-mail items in several encodings.

Every person, number and text is invented. Usage: make_messages.py [FOLDER]
"""

import pathlib
import sys

STATUSES = ("UNSENT", "SENT", "FAILED", "UNREAD", "READ", "DRAFT", "PENDING", "CANCELLED", "DELIVERED", "RECEIVING",
            "TEMP_FAIL", "SENDING")
TYPES = ("DELIVER", "DELIVER_REPORT", "SUBMIT", "SUBMIT_REPORT", "STATUS_REPORT", "SMS_COMMAND")
TIME = ("20090305T140709Z", "05.03.2009 14:07:09")
NO_TIME = ("00000T000000Z", "")


def lines(*texts):
    return "".join(text + "\r\n" for text in texts)


def card(number=None):
    tel = () if number is None else ("TEL:" + number,)
    return lines("BEGIN:VCARD", "VERSION:3.0", "N:", *tel, "END:VCARD")


def written(text="", status="READ", kind="DELIVER", numbers=("+15555550100",), time=TIME, extended=False):
    """A message as the library writes it; line ends in `text` are LF."""
    head = lines("BEGIN:VMSG", "VERSION:1.1", "X-IRMC-STATUS:" + status, "X-IRMC-BOX:INBOX")
    head += "X-IRMC-TYPE:SMS\n" if extended else ""
    head += lines("X-NRD-DT:" + time[0], "X-MESSAGE-TYPE:" + kind)
    numbers = list(numbers) or [None]
    envelopes = ([None] + numbers[:1]) if kind == "SUBMIT" else numbers
    head += "BEGIN:VENV\r\n".join(card(number) for number in envelopes)
    body = lines("BEGIN:VENV", "BEGIN:VBODY", "Date:" + time[1])
    body += "X-SMS;TYPE=TEXT;CHARSET=UTF-8:" if extended else ""
    body += text + "\n" + lines("END:VBODY")
    return head + body + lines("END:VENV") * len(envelopes) + lines("END:VMSG")


WRITTEN = (
    dict(text="See you at 7", numbers=("+15555550100",), status="UNREAD"),
    dict(text="Gr\u00fc\u00dfe \u4f60\u597d \U0001f600\nsecond line", kind="SUBMIT", status="SENT"),
    dict(text="", status="", kind="", numbers=(), time=NO_TIME),
    dict(text="to three", numbers=("+15555550100", "5550101", "*100#"), kind="STATUS_REPORT"),
    dict(text="nobody", numbers=(), kind="SUBMIT", status="DRAFT"),
)

BODIES = (
    "", " leading blanks", "\tleading TAB", "trailing =", "=\n=", "\n\nempty lines around\n\n", "TEL:+15555550199",
    "BEGIN:VCARD\nTEL:5550199\nEND:VCARD", "END:VENV\nEND:VMSG", "quoted\nEND:VBODY\nand on", "END:VBODY",
    "END:VBODY\nEND:VENV\nEND:VMSG\nBEGIN:VMSG\nall quoted", "BEGIN:VMSG\nVERSION:1.1",
    "Date: Friday at 8", "X-SMS;TYPE=VOICE:no text", "a lone \r carriage return", "\u00a0\u2028\ufeff odd blanks",
    "\U0001f468\u200d\U0001f469\u200d\U0001f467 family", "\u0007 bell and \u001b[31m red",
)

OLD = lines(
    "BEGIN:VMSG", "VERSION:1.0", "X-IRMC-STATUS:READ", "X-IRMC-BOX:INBOX", "BEGIN:VCARD", "VERSION:2.1", "N:Example;Ann",
    "TEL;CELL:+15555550100", "END:VCARD", "BEGIN:VENV", "BEGIN:VBODY", "Date:24.12.2004 18:00:05",
    "from an old telephone", "END:VBODY", "END:VENV", "END:VMSG") + lines(
    "BEGIN:VMSG", "VERSION:1.1", "X-IRMC-BOX:SENT", "X-NRD-DT:20050101T0000Z", "BEGIN:VCARD", "VERSION:2.1", "END:VCARD",
    "BEGIN:VENV", "BEGIN:VCARD", "TEL:+15555550101", "END:VCARD", "BEGIN:VENV", "BEGIN:VCARD", "TEL:+15555550102",
    "END:VCARD", "BEGIN:VENV", "BEGIN:VBODY",
    "X-SMS;TYPE=TEXT;ENCODING=QUOTED-PRINTABLE:Happy new year, =", "d=C3=A9j=C3=A0 =F0=9F=8E=86=", " to all=0D=0Aof you",
    "END:VBODY", "END:VENV", "END:VENV", "END:VENV", "END:VMSG") + lines(
    "BEGIN:VMSG", "VERSION:1.1", "BEGIN:VENV", "BEGIN:VBODY", "neither box nor type", "END:VBODY", "END:VENV", "END:VMSG")

TIMES = ((0, "20080229T235959Z"), (0, "20090305T1407"), (1, "05.03.2009 14:07:09"), (1, "5.3.2009 4:7"),
         (0, "20091399T256199Z"), (0, "00010101T000000Z"), (0, "655350101T000000Z"), (0, "yesterday"), (1, "yesterday"))

BROKEN = (
    lines("BEGIN:VMSG", "VERSION:1.1", "BEGIN:VENV", "BEGIN:VBODY", "cut off") + written("behind a message that is cut off")
    + written().replace("VERSION:1.1", "VERSION:2.0") + lines("BEGIN:VMSG", "VERSION:1.1", "END:VMSG")
    + written("small letters").replace("BEGIN:VMSG", "begin:vmsg") + "stray text\r\n"
    + written("behind stray text") + lines("BEGIN:VMSG", "VERSION:1.1", "BEGIN:VENV", "BEGIN:VBODY", "no end", "END:VENV",
                                           "END:VMSG")
    + written("the last whole one") + lines("BEGIN:VMSG", "VERSION:1.1", "BEGIN:VENV"))


def times():
    text = ""
    for in_body, time in TIMES:
        text += written(time, time=("", time) if in_body else (time, ""))
    return text


SEVERAL = written("first in the file") + written("the oldest", time=("20010203T040506Z", "03.02.2001 04:05:06"),
                                                 kind="SUBMIT", status="SENT") + written(
    "no date\nand a second line that makes the whole text longer than the list shows", time=NO_TIME, kind="",
    numbers=("+15555550100", "+15555550101", "+15555550102"))


def message_files():
    """Name, text, encoding."""
    numbered = enumerate((*STATUSES, "", "LOST", "read"))
    yield "written-utf16le-mark.vmg", "\ufeff" + "".join(written(**row) for row in WRITTEN), "utf-16-le"
    yield "extended.vmg", "\ufeff" + "".join(written(**row, extended=True) for row in WRITTEN), "utf-16-le"
    yield "statuses.vmg", "".join(written(str(i), status=status) for i, status in numbered), "utf-16-le"
    yield "types.vmg", "".join(written(kind or "none", kind=kind) for kind in (*TYPES, "", "TELEGRAM")), "utf-16-le"
    yield "bodies.vmg", "\ufeff" + "".join(written(body) for body in BODIES), "utf-16-le"
    yield "bodies-extended.vmg", "".join(written(body, extended=True) for body in BODIES), "utf-16-be"
    yield "utf16be-mark.vmg", "\ufeff" + written(**WRITTEN[1]), "utf-16-be"
    yield "utf16be.vmg", written(**WRITTEN[1]), "utf-16-be"
    yield "utf16le.vmg", written(**WRITTEN[1]), "utf-16-le"
    yield "utf8.vmg", written(**WRITTEN[1]) + OLD, "utf-8"
    yield "utf8-mark.vmg", "\ufeff" + written(**WRITTEN[1]), "utf-8"
    yield "line-feeds-only.vmg", (written(**WRITTEN[1]) + OLD).replace("\r\n", "\n"), "utf-8"
    yield "joined.vmg", ("\ufeff" + written("one")) + ("\ufeff" + written("two")), "utf-16-le"
    yield "latin1.vmg", written("Gr\u00fc\u00dfe"), "latin-1"
    yield "times.vmg", times(), "utf-8"
    yield "several.vmg", "\ufeff" + SEVERAL, "utf-16-le"
    yield "broken.vmg", BROKEN, "utf-8"


# What is wanted of the JSON in from-json, made without the library.
def from_json_files():
    rows = [dict(row, text=row["text"]) for row in WRITTEN]
    yield "written.expected.vmg", "\ufeff" + "".join(written(**row) for row in rows), "utf-16-le"
    yield "written.expected.utf8.vmg", "".join(written(**row) for row in rows), "utf-8"
    yield "written.expected.10-messengers-and-sms.vmg", "\ufeff" + "".join(
        written(**row, extended=True) for row in rows), "utf-16-le"


EMAIL = """<?xml version="1.0"%s?>
<!-- the state of one message -->
<Item>
  <Email>
    <read>true</read>
    <forwarded>false</forwarded>
    <replied>False</replied>
    <deleted>false</deleted>
    <flagged/>
    <created>2009-03-05T14:07:09</created>
    <modified>2009-03-06T08:00Z</modified>
    <received>yesterday</received>
    <emailitem>
      Gr\u00fc\u00dfe &amp; more
    </emailitem>
    <colour>red</colour>
  </Email>
</Item>
"""


def email_files():
    yield "utf8.xml", EMAIL % "", "utf-8"
    yield "utf8-mark.xml", "\ufeff" + EMAIL % "", "utf-8"
    yield "utf16le.xml", "\ufeff" + EMAIL % ' encoding="UTF-16"', "utf-16-le"
    yield "utf16be.xml", "\ufeff" + EMAIL % ' encoding="UTF-16"', "utf-16-be"
    yield "latin1.xml", EMAIL % ' encoding="ISO-8859-1"', "latin-1"
    yield "shift-jis.xml", ('<?xml version="1.0" encoding="Shift_JIS"?><Email><emailitem>\u3053\u3093\u306b\u3061\u306f'
                            "</emailitem></Email>"), "shift-jis"
    yield "doubled.xml", ("<Email><read>true</read><received>2009-03-05</received><read>false</read><received>"
                          "2009-03-06T01:02:03+01:00</received></Email>"), "ascii"
    yield "empty.xml", "<Email/>", "ascii"
    yield "broken.xml", "<Email><read>true</Email>", "ascii"
    yield "entities.xml", ('<!DOCTYPE a [<!ENTITY x SYSTEM "file:///etc/hostname">]><Email><emailitem>&x;</emailitem>'
                           "</Email>"), "ascii"
    yield "no-email.xml", "<Emails><read>true</read></Emails>", "ascii"


def main():
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).parent
    for name, files in (("messages", message_files()), ("messages/from-json", from_json_files()),
                        ("email", email_files())):
        (folder / name).mkdir(parents=True, exist_ok=True)
        for file, text, encoding in files:
            (folder / name / file).write_bytes(text.encode(encoding))
    cut = written("cut \U0001f600").replace("\U0001f600", "\ud83d") + written("two halves").replace("halves", "\ude00 \ud83d")
    (folder / "messages" / "unpaired-surrogates.vmg").write_bytes(b"\xff\xfe" + cut.encode("utf-16-le", "surrogatepass"))


if __name__ == "__main__":
    main()
