#!/usr/bin/env python3
"""Writes the samples of tests/data/multimedia: a PDU of every type of the Multimedia Messaging Service, messages with
parts of all sorts, and some with something wrong.

Every person, number, text and picture is invented. Usage: make_multimedia.py [FOLDER]
"""

import base64
import pathlib
import sys

from make_photos import gif, jpeg, png

TYPES = ("send-req", "send-conf", "notification-ind", "notifyresp-ind", "retrieve-conf", "acknowledge-ind",
         "delivery-ind", "read-rec-ind", "read-orig-ind", "forward-req", "forward-conf", "mbox-store-req",
         "mbox-store-conf", "mbox-view-req", "mbox-view-conf", "mbox-upload-req", "mbox-upload-conf",
         "mbox-delete-req", "mbox-delete-conf", "mbox-descr", "delete-req", "delete-conf", "cancel-req", "cancel-conf")
MEDIA = {"text/plain": 0x03, "text/x-vCard": 0x07, "image/gif": 0x1D, "image/jpeg": 0x1E, "image/png": 0x20,
         "mixed": 0x23, "alternative": 0x26, "related": 0x33, "application/octet-stream": 0x5A}
UTF8, LATIN1, SHIFT_JIS, UCS2 = 106, 4, 17, 1000
NOW = 1236262029  # 2009-03-05 14:07:09 UTC
ANN, BOB = "+15555550100/TYPE=PLMN", "+15555550101/TYPE=PLMN"
RELATIVE, ABSOLUTE = 0x81, 0x80
YES, NO = b"\x80", b"\x81"


def short(number):
    return bytes((number | 0x80,))


def long(number):
    octets = number.to_bytes(max(1, (number.bit_length() + 7) // 8), "big")
    return bytes((len(octets),)) + octets


def integer(number):
    return short(number) if number < 0x80 else long(number)


def uintvar(number):
    octets = bytes((number & 0x7F,))
    while number > 0x7F:
        number >>= 7
        octets = bytes((number & 0x7F | 0x80,)) + octets
    return octets


def text(value):
    data = value.encode()
    return (b"\x7f" if data[:1] >= b"\x80" else b"") + data + b"\0"


def measured(value):
    return (bytes((len(value),)) if len(value) <= 30 else b"\x1f" + uintvar(len(value))) + value


def encoded(value):
    """In UTF-8 with its charset where it is not ASCII."""
    return text(value) if value.isascii() else measured(integer(UTF8) + text(value))


def time(token, seconds):
    return measured(bytes((token,)) + long(seconds))


def sender(address=None):
    return measured(b"\x81" if address is None else b"\x80" + encoded(address))


def content_type(media, charset=None, **parameters):
    value = short(MEDIA[media]) if media in MEDIA else text(media)
    if charset is not None:
        value += b"\x81" + integer(charset)
    numbers = {"name": 0x85, "type": 0x89, "start": 0x8A}
    for name, parameter in parameters.items():
        value += bytes((numbers[name],)) + text(parameter)
    has_parameters = charset is not None or parameters
    return measured(value) if has_parameters else value


class Part:
    """A part, or with `parts` a container of them. `data` is what it holds, `wire` how that stands in the PDU."""

    def __init__(self, media, data=b"", identity=None, location=None, parts=None, headers=b"", wire=None, **parameters):
        self.type = content_type(media, **parameters)
        self.head = b""
        if identity is not None:
            self.head += b"\xc0\"" + identity.encode() + b"\0"
        if location is not None:
            self.head += b"\x8e" + text(location)
        self.head += headers
        self.parts = parts
        self.data = data
        self.wire = data if wire is None else wire

    def body(self):
        if self.parts is None:
            return self.wire
        entries = b""
        for part in self.parts:
            head = part.type + part.head
            body = part.body()
            entries += uintvar(len(head)) + uintvar(len(body)) + head + body
        return uintvar(len(self.parts)) + entries

    def files(self):
        """What the leaves hold."""
        return [self.data] if self.parts is None else [data for part in self.parts for data in part.files()]


def pdu(kind, *headers, transaction="t-1", version=0x12, body=None):
    """`headers` are pairs of field number and value; with a str as the number, an application header."""
    octets = b"\x8c" + bytes((0x80 + TYPES.index(kind),))
    if transaction is not None:
        octets += b"\x98" + text(transaction)
    if version is not None:
        octets += b"\x8d" + short(version)
    for number, value in headers:
        octets += number.encode() + b"\0" + value if isinstance(number, str) else short(number) + value
    if body is not None:
        octets += b"\x84" + body.type + body.body()
    return octets


def smil(*pages):
    """A presentation, as a part: each page is a picture and a text, by their locations."""
    body = "".join(f'<par dur="5000ms"><img src="{image}" region="Image"/><text src="{words}" region="Text"/></par>'
                   for image, words in pages)
    return Part("application/smil", f"<smil><body>{body}</body></smil>".encode(), "<s>", "s.smil")


def related(*parts):
    return Part("related", parts=parts, type="application/smil", start="<s>")


def mixed(*parts):
    return Part("mixed", parts=parts)


def words(value, location="t.txt", charset=UTF8, codec="utf-8"):
    return Part("text/plain", value.encode(codec), location=location, charset=charset)


def sent_headers():
    return ((0x05, long(NOW)), (0x09, sender()), (0x17, text(BOB)))


def received_headers(subject):
    return ((0x05, long(NOW)), (0x09, sender(ANN)), (0x17, text(BOB)), (0x16, encoded(subject)))


def received(subject, body, *more):
    return pdu("retrieve-conf", *received_headers(subject), *more, body=body)


def types():
    """One PDU of each type, in its shortest form."""
    class_, size, expiry = (0x0A, b"\x80"), (0x0E, long(4321)), (0x08, time(RELATIVE, 259200))
    location, identity = (0x03, text("http://mms.example.com/a?id=7")), (0x0B, text("m7@mms.example.com"))
    picture = Part("image/jpeg", jpeg(8, 8), location="sunset.jpg")
    yield "send-req", pdu("send-req", *sent_headers(), (0x17, text("ann@example.com")), (0x02, text("5550102")),
                          (0x01, text("195.0.2.1/TYPE=IPv4")), (0x16, encoded("Grüße vom See")), class_, expiry,
                          (0x0F, b"\x82"), (0x06, YES), (0x10, NO), (0x14, b"\x81"), ("X-Camera", text("model 1")),
                          body=(body := related(smil(("sunset.jpg", "t.txt")), picture, words("Schön, nicht?")))), body
    yield "send-conf", pdu("send-conf", (0x12, b"\x80"), (0x13, text("Thank you")), identity), None
    yield "notification-ind", pdu("notification-ind", (0x09, sender(ANN)), (0x16, encoded("Фото")), class_, size,
                                  expiry, location), None
    yield "notifyresp-ind", pdu("notifyresp-ind", (0x15, b"\x83"), (0x11, NO)), None
    yield "retrieve-conf", received("Holiday", body := related(smil(("sunset.jpg", "t.txt")), picture,
                                                               words("The sun sets.\r\nWe stay.")),
                                    identity, class_, (0x0F, b"\x81"), (0x20, measured(short(1) + text(ANN))),
                                    (0x21, measured(short(1) + long(NOW - 60)))), body
    yield "acknowledge-ind", pdu("acknowledge-ind", (0x11, YES)), None
    yield "delivery-ind", pdu("delivery-ind", identity, (0x17, text(BOB)), (0x05, long(NOW)), (0x15, b"\x81"),
                              transaction=None), None
    yield "read-rec-ind", pdu("read-rec-ind", identity, (0x17, text(ANN)), (0x09, sender(BOB)), (0x1B, b"\x80"),
                              transaction=None), None
    yield "read-orig-ind", pdu("read-orig-ind", identity, (0x17, text(ANN)), (0x09, sender(BOB)), (0x05, long(NOW)),
                               (0x1B, b"\x81"), transaction=None), None
    yield "forward-req", pdu("forward-req", (0x09, sender()), (0x17, text(BOB)), (0x08, time(ABSOLUTE, NOW)),
                             (0x07, time(RELATIVE, 90)), location), None
    yield "forward-conf", pdu("forward-conf", (0x12, b"\xc3"), (0x25, b"\xe4"), (0x26, encoded("voll: größer"))), None
    yield "mbox-store-req", pdu("mbox-store-req", location, (0x23, b"\x82"),
                                (0x24, measured(b"\x80" + text("family")))), None
    yield "mbox-store-conf", pdu("mbox-store-conf", (0x25, b"\x80"), location), None
    yield "mbox-view-req", pdu("mbox-view-req", (0x28, b"\x96"), (0x28, b"\x89"), (0x2F, short(1)), (0x33, short(20)),
                               (0x29, YES), (0x2B, NO)), None
    yield "mbox-view-conf", pdu("mbox-view-conf", (0x12, b"\x80"), (0x2A, measured(b"\x80" + short(12))),
                                (0x2C, measured(b"\x81" + long(1536000))), (0x2D, short(1)),
                                body=(body := mixed(words("a list", "list.txt")))), body
    yield "mbox-upload-req", pdu("mbox-upload-req", (0x23, b"\x80"), body=(body := mixed(words("a draft")))), body
    yield "mbox-upload-conf", pdu("mbox-upload-conf", (0x25, b"\xc1")), None
    yield "mbox-delete-req", pdu("mbox-delete-req", location, (0x03, text("http://mms.example.com/b"))), None
    yield "mbox-delete-conf", pdu("mbox-delete-conf", (0x12, measured(short(0) + b"\x80")),
                                  (0x03, measured(short(0) + text("http://mms.example.com/a"))),
                                  (0x12, measured(short(1) + b"\xe4"))), None
    yield "mbox-descr", pdu("mbox-descr", identity, transaction=None, body=(body := mixed(words("of a mailbox")))), body
    yield "delete-req", pdu("delete-req", location, version=0x13), None
    yield "delete-conf", pdu("delete-conf", (0x12, b"\xe1"), version=0x13), None
    yield "cancel-req", pdu("cancel-req", (0x3E, text("r-7")), version=0x13), None
    yield "cancel-conf", pdu("cancel-conf", (0x3F, b"\x80"), version=0x13), None


def hostile_parts():
    names = ("../../etc/passwd", "..\\..\\evil.exe", "C:\\Windows\\win.ini", "/", "..", "CON", "con.txt",
             "Lpt1.tar.txt", "a\u0007b\u001b[31m.txt", "annex\u202egpj.exe", "<a>:\"|?*.txt", " . leading",
             "trailing . ", "A.TXT", "a.txt", "a.TXT", "x" * 300, "\u00e9" * 150 + ".txt", "\u00dc.txt", "\u00fc.txt",
             "~root", "-rf", "no extension", ".txt")
    return [Part("text/plain", name.encode(), location=name, charset=UTF8) for name in names]


def bodies():
    """Messages received, with bodies of all sorts."""
    alone = words("A text and nothing else.", None)
    yield "text-alone", received("Alone", alone), alone
    charsets = mixed(words("Fähre", "latin-1.txt", LATIN1, "latin-1"), words("東京", "sjis.txt", SHIFT_JIS, "shift_jis"),
                     words("\ufeffГод\r\nещё", "ucs-2.txt", UCS2, "utf-16-le"), words("naïve", "none.txt", None),
                     words("naïve", "none-latin-1.txt", None, "latin-1"), words("", "empty.txt"),
                     words("a\0b\u0007\u001b[2J", "controls.txt"))
    yield "charsets", received("Charsets \u4f60\u597d \U0001f600", charsets), charsets
    nested = mixed(words("first"), Part("alternative", parts=[words("plain", None), Part("text/html", b"<b>rich</b>")]),
                   mixed(mixed(Part("image/gif", gif((255, 0, 0)), location="dot.gif"))))
    yield "nested", received("Nested", nested), nested
    without_names = mixed(Part("image/png", png(2, 2, (0, 0, 255))), Part("audio/amr", b"#!AMR\n\x3c\x91\x17"),
                          Part("application/octet-stream", bytes(range(256))), Part("application/x-thing", b"thing"))
    yield "without-names", received("Without names", without_names), without_names
    named = mixed(Part("image/gif", gif((0, 255, 0)), name="by name.gif"),
                  Part("image/gif", gif((0, 128, 0)), "<by id.gif>"),
                  Part("text/x-vCard", b"BEGIN:VCARD\r\nVERSION:2.1\r\nFN:Card\r\nEND:VCARD\r\n",
                       headers=b"\xae" + measured(b"\x81\x86" + text("by disposition.vcf")), charset=UTF8),
                  Part("text/plain", b"headers", location="headers.txt",
                       headers=b"X-Note\0a note\0" + b"\x9d" + long(NOW) + b"\x8d" + short(7) + b"\xd0" + text("?")))
    yield "names", received("Names", named), named
    hostile = mixed(*hostile_parts())
    yield "hostile-names", received("Hostile \u001b[31m\u0007 names", hostile), hostile
    encoded_part = mixed(Part("image/gif", gif((1, 2, 3)), location="g.gif", wire=base64.b64encode(gif((1, 2, 3))),
                              headers=b"Content-Transfer-Encoding\0base64\0"))
    yield "transfer-encoding", received("Base64", encoded_part), encoded_part


def odd():
    """What is unusual or wrong. The last member tells whether it comes back byte for byte."""
    whole = received("Cut off", mixed(words("whole"), Part("image/jpeg", jpeg(8, 8), location="half.jpg")))
    yield "cut-off", whole[:-40], [b"whole", jpeg(8, 8)[:-40]], False
    yield "cut-off-headers", pdu("send-conf")[:-3], [], False
    yield "unknown-numbers", pdu("acknowledge-ind", (0x15, b"\xa0"), (0x48, text("future")), (0x49, b"\x95"),
                                 (0x0A, text("com.example.class")), ("X-Future", text("yes"))), [], True
    yield "not-in-order", (b"\x8c\x82\x96" + text("Order") + b"\x8d\x90\x88\x02\x81\xbc\x8e\x84" + b"\x8a\x80" +
                           b"\x98" + text("t-9") + b"\x83" + text("http://mms.example.com/9")), [], False
    yield "empty-texts", pdu("send-conf", (0x12, b"\x80"), (0x13, b"\0"), (0x0B, b"\0")), [], True
    yield "type-alone", b"\x8c\x84", [], False
    yield "does-not-decode", b"\x8c\x84\x84\x1f\xff\xff\xff\xff\xff\xff", [], False


def samples():
    """The name, the PDU, what its parts hold in the order of the PDU, and whether it is in its shortest form."""
    for name, octets, body in types():
        yield name, octets, body.files() if body else [], True
    for name, octets, body in bodies():
        yield name, octets, body.files(), name not in ("nested", "transfer-encoding")
    yield from odd()


def main():
    default = pathlib.Path(__file__).resolve().parent / "multimedia"
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else default
    folder.mkdir(exist_ok=True)
    for name, octets, _, _ in samples():
        (folder / (name + ".mms")).write_bytes(octets)


if __name__ == "__main__":
    main()
