#!/usr/bin/env python3
"""Writes the samples of tests/data/contacts: a phone book of 25 contacts, groups, and cards with something wrong.

Every person, company and address is invented; +999 is no country. Usage: make_contacts.py [FOLDER]
"""

import base64
import pathlib
import sys

import make_photos


def card(*lines, version="2.1"):
    return "".join(line + "\r\n" for line in ("BEGIN:VCARD", "VERSION:" + version, *lines, "END:VCARD"))


def plain(head, value):
    return head + ":" + value


def utf8(head, value):
    return head + ";CHARSET=UTF-8:" + value


def quoted(head, value, charset=";CHARSET=UTF-8"):
    """A quoted-printable line, with soft line breaks where it would exceed 76 columns."""
    out = head + charset + ";ENCODING=QUOTED-PRINTABLE:"
    column = len(out)
    for byte in value.encode("utf-8"):
        unit = chr(byte) if 32 <= byte < 127 and byte != 61 else "=%02X" % byte
        if column + len(unit) > 75:
            out += "=\r\n"
            column = 0
        out += unit
        column += len(unit)
    return out


def photo(kind, data, folded=True):
    text = base64.b64encode(data).decode()
    if not folded:
        return f"PHOTO;ENCODING=BASE64;TYPE={kind}:{text}"
    rows = [text[i:i + 74] for i in range(0, len(text), 74)]
    return f"PHOTO;TYPE={kind};ENCODING=BASE64:\r\n" + "".join(f" {row}\r\n" for row in rows)


def phone_book():
    yield card(
        "N:Muster;Anna;Maria;Dr.;Jr.", "FN:Dr. Anna Maria Muster Jr.", "ORG:Example Works;Sales", "TITLE:Head of Sales",
        "TEL;CELL;PREF:+999 49 170 5550101", "TEL;WORK;VOICE:+999 49 30 5550102", "TEL;FAX;WORK:+999 49 30 5550103",
        "ADR;WORK:;;Example Street 1;Berlin;;10115;Germany", "EMAIL;INTERNET;WORK:anna.muster@example.com",
        "URL:http://www.example.com/", "BDAY:19800229", "NOTE:Met at the fair")
    yield card(
        quoted("N", "Öztürk-Größe;Jörg"), quoted("FN", "Jörg Öztürk-Größe"), "TEL;HOME:+999 49 89 5550104",
        quoted("ADR;HOME", ";Hinterhaus, 3. Stock;Straße des Übermuts 12;München;Bayern;80331;Deutschland"),
        quoted("NOTE", "Erste Zeile: Grüße aus dem Süden, von der Isar bis zur Würm und zurück.\r\n"
                       "Zweite Zeile: 100 % = alles\r\nDritte Zeile"))
    yield card(utf8("N", "Παπαδοπούλου;Ελένη"), utf8("FN", "Ελένη Παπαδοπούλου"), "TEL;CELL:+999 30 690 5550105",
               utf8("ADR;HOME", ";;Οδός Παραδείγματος 7;Αθήνα;;10551;Ελλάδα"))
    yield card(quoted("N", "Примерова;Ольга;Ивановна"), quoted("FN", "Ольга Ивановна Примерова"),
               quoted("TITLE", "главный бухгалтер"), "TEL;WORK:+999 7 495 5550106", "BDAY:1975-11-03")
    yield card(quoted("N", "المثال;ليلى"), quoted("FN", "ليلى المثال"), "TEL;CELL;HOME:+999 20 100 5550107")
    yield card(utf8("N", "דוגמה;נועה"), utf8("FN", "נועה דוגמה"), "TEL;CELL:+999 972 50 5550108",
               utf8("NOTE", "מימין לשמאל, then left to right"))
    yield card(quoted("N", "उदाहरण;आशा"), quoted("FN", "आशा उदाहरण"), "TEL:+999 91 98 5550109")
    yield card(utf8("N", "ตัวอย่าง;มะลิ"), utf8("FN", "มะลิ ตัวอย่าง"), "TEL;CELL:+999 66 80 5550110")
    yield card(quoted("N", "范例;小明"), quoted("FN", "范例小明"), quoted("ORG", "示例有限公司;研发部"),
               "TEL;CELL;WORK:+999 86 130 5550111", quoted("ADR;WORK", ";;示例路 8 号;北京;;100000;中国"))
    yield card(utf8("N", "見本;花子"), utf8("FN", "見本 花子"), utf8("SOUND;X-IRMC-N", "みほん;はなこ"),
               utf8("ORG", "見本商事株式会社"), utf8("SOUND;X-IRMC-ORG", "みほんしょうじ"), "TEL;WORK:+999 81 3 5550112")
    yield card(utf8("N", "본보기;지우"), utf8("FN", "본보기 지우"), "TEL;CELL:+999 82 10 5550113",
               "EMAIL;INTERNET;HOME:jiu@example.com")
    yield card(utf8("N", "მაგალითი;ნინო"), utf8("FN", "ნინო მაგალითი"), utf8("X-SPOUSE", "Արամ Օրինակյան"),
               "TEL;HOME:+999 995 32 5550114")
    yield card(quoted("N", "Ví Dụ;Nguyễn"), quoted("FN", "Nguyễn Ví Dụ"), "TEL;CELL:+999 84 90 5550115",
               quoted("NOTE", "decomposed: Nguye\u0302\u0303n"))
    yield card(quoted("N", "🎈;Sam"), quoted("FN", "Sam 🎈"), quoted("NOTE", "👩‍👩‍👧‍👦 🏳️‍🌈 👍🏽 𝄞"),
               quoted("X-EPOCSECONDNAME", "The Balloon 🎈"), "TEL;CELL:+1 212 5550116")
    yield card(
        "N:Phones;Every", "FN:Every Phones", "TEL;VOICE:32 voice", "TEL;HOME:33 home", "TEL;WORK:34 work",
        "TEL;PREF:35 preferred", "TEL;CAR:36 car", "TEL;MODEM:37 modem", "TEL;PAGER:48 pager", "TEL;CELL:64 mobile",
        "TEL;CELL;HOME:65 mobile home", "TEL;CELL;WORK:66 mobile work", "TEL;FAX:80 fax", "TEL;FAX;HOME:81 fax home",
        "TEL;FAX;WORK:82 fax work", "TEL;VIDEO:96 video", "TEL;VIDEO;HOME:97 video home",
        "TEL;VIDEO;WORK:98 video work", "X-SIP;VOIP:sip:112@example.com", "X-SIP;VOIP;HOME:sip:113@example.com",
        "X-SIP;VOIP;WORK:sip:114@example.com", "X-ASSISTANT-TEL:115 assistant", "TEL;CELL;PREF:64 mobile again")
    yield card(
        "N:Addresses;Every", "FN:Every Addresses", "ADR;POSTAL:PO 256;;;Nowhere;;00256;Utopia",
        "ADR;WORK:;Suite 257;Work Road 1;Workington;W Region;00257;Utopia",
        "ADR;HOME;PREF:258;;Home Lane 2;Hometown;;00258;Utopia", "EMAIL:general@example.com",
        "EMAIL;INTERNET;HOME:home@example.com", "EMAIL;INTERNET;WORK;PREF:work@example.com",
        "URL:http://www.example.com/272", "URL;HOME:http://www.example.com/273", "URL;WORK:http://www.example.com/274",
        "X-SIP;POC:sip:talk@example.com", "X-SIP;SWIS:sip:see@example.com", "X-SIP:sip:plain@example.com")
    yield card(
        "N:Extended;Every", "FN:Every Extended", "CLASS:PRIVATE", "X-GENDER:female", "NOTE:A note", "X-DTMF:123p456#",
        "UID:card-17@example.com", "X-WV-ID:wv:every@example.com", "GEO:52.5,13.4",
        "X-IMPP;TYPE=WORK;PREF:every@example.com", "X-FAVORITE:1", "X-SELF:0")
    yield card("N:Picture;Paula", "FN:Paula Picture", photo("PNG", make_photos.png(8, 8, (0, 128, 255))),
               "TEL;CELL:+999 44 70 5550118")
    yield card("N:Dot;Gilbert", "FN:Gilbert Dot", photo("GIF", make_photos.gif((255, 0, 0)), folded=False),
               "TEL;HOME:+999 44 20 5550119")
    yield card("N:Portrait;Jo", "FN:Jo Portrait", photo("JPEG", make_photos.jpeg(256, 192)), "BDAY:19991231")
    yield card("N:Chat;Charlie", "FN:Charlie Chat", "X-IMPP;TYPE=PERSONAL:charlie.personal@example.com",
               "X-IMPP;TYPE=BUSINESS:charlie.business@example.com", "X-IMPP;TYPE=HOME:charlie.home@example.com",
               "X-IMPP;TYPE=MOBILE:charlie.mobile@example.com", "X-IMPP:charlie@example.com",
               "X-JABBER:jabber:charlie@example.com", "X-SKYPE:skype:charlie.example", "X-FACEBOOK:Facebook:charlie")
    yield card("N:Family;Frances", "FN:Frances Family", "X-SPOUSE:Fred Family", "X-CHILDREN:Fiona, Finn",
               "X-ASSISTANT:Ada Aide", "X-ASSISTANT-TEL:+999 33 1 5550122", "X-ANNIVERSARY:20050614", "X-GENDER:MALE")
    yield card("N:", "FN:Example Airlines", "ORG:Example Airlines", "TEL;WORK;PREF:+1 800 5550123", "CLASS:PUBLIC",
               "URL;WORK:http://airlines.example.com/check-in?a=1&b=2")
    yield card("N:Back\\;slash;C:\\\\Temp", "FN:C:\\Temp; and so on",
               "ORG:Semicolons \\; Partners;R&D \\; more", "NOTE:a = b; c: d, \\e",
               quoted("ADR;HOME", ";;Street 1\r\nBackyard;Town;;;"), "X-GENDER:undefined", "CLASS:NONE")
    yield card("N:Twice;Tom;;;;Sixth", "FN:Tom Twice", "FN:Thomas Twice", "TITLE:Cook", "TITLE:Gardener",
               "NOTE:First", "NOTE:Second", "TEL;CELL:1", "TEL;HOME:2", "TEL;CELL:3", "EMAIL:a@example.com",
               "URL:http://www.example.com/", "EMAIL:b@example.com", "UID:25", "X-FAVORITE:3", "X-SELF:1")


VERSION_3 = card(
    "N:Three;Vera;;;", "FN:Vera Three", "ORG:Commas\\, Semicolons\\; and Co;Escapes",
    "TEL;TYPE=cell,pref:+1 212 5550130", "TEL;TYPE=\"work,voice\":+1 212 5550131", "tel;type=HOME;type=fax:+1 212 5550132",
    "ADR;TYPE=home:;;1 Main\\, Street;Anytown;CA;91921;U.S.A.", "EMAIL;TYPE=INTERNET,WORK:vera@example.com",
    "NOTE:Line one\\nLine two\\NLine three\\, with a comma\\; and a long te\r\n xt that was folded in the middle of a w\r\n ord",
    "BDAY:1996-04-15T00:00:00Z", "PHOTO;ENCODING=b;TYPE=GIF:" + base64.b64encode(make_photos.gif((0, 0, 0))).decode(),
    version="3.0")

SMALL = card("N:Plain;Peter", "FN:Peter Plain", "TEL;CELL:1")
WORLD = card("N:Größe;Zoë", "FN:Zoë Größe", "ORG:例;部", "TEL;CELL:+999 49 170 5550140",
             "NOTE:folded in the middle of Größ\r\n e and on", quoted("TITLE", "Café", charset=""))
GROUP = card("FN:Family", "X-CNTGRP:12;340282366920938463463374607431768211455;7")


def samples():
    """Name and bytes of each sample."""
    ascii_card = SMALL.encode()
    world = WORLD.encode()
    yield "phone-book", "".join(phone_book()).encode()
    yield "version-3", VERSION_3.encode()
    yield "line-feeds-only", (SMALL + WORLD).replace("\r\n", "\n").encode()
    yield "carriage-returns-only", (SMALL + WORLD).replace("\r\n", "\r").encode()
    yield "utf8-without-charset", world
    yield "utf8-bom", b"\xef\xbb\xbf" + world
    yield "utf16le-bom", b"\xff\xfe" + WORLD.encode("utf-16-le")
    yield "utf16be-without-bom", WORLD.encode("utf-16-be")
    yield "shift-jis", card("N;CHARSET=SHIFT_JIS:見本;太郎", "FN;CHARSET=SHIFT_JIS:表示 太郎").encode("cp932")
    yield "latin1", card("N;CHARSET=ISO-8859-1:Größe;Zoë", "FN;CHARSET=ISO-8859-1:Zoë Größe").encode("latin-1")
    yield "unfinished", ascii_card + b"BEGIN:VCARD\r\nVERSION:2.1\r\nFN:Cut Off\r\n" + ascii_card + ascii_card[:-11]
    yield "wrong-version", card("FN:Four", version="4.0").encode() + ascii_card
    yield "without-version", b"BEGIN:VCARD\r\nFN:None\r\nEND:VCARD\r\n"
    yield "stray-text", b"Contacts of my phone\r\n\r\n" + ascii_card + b"\r\n-- \r\nthe end\r\n"
    yield "only-the-frame", card().encode()
    yield "unknown-properties", card("X-MAKER-FIELD;X=1:a", "item1.TEL;CELL:2", "FN:Una Known", "REV:20200101T000000Z",
                                     "no colon in this line", "PHOTO;VALUE=URL:http://www.example.com/a.jpg").encode()
    yield "bad-values", card("FN:Bad Values", "BDAY:tomorrow", "X-ANNIVERSARY:20209999", "CLASS:SECRET",
                             "X-GENDER:unsure", "X-FAVORITE:many", "PHOTO;ENCODING=BASE64;TYPE=PNG:???",
                             "TEL:", "EMAIL:", "ADR:", "NOTE:").encode()
    yield "values-that-versit-loses", card("FN:Time of Birth", "BDAY:19991231T235959").encode()
    yield "agent", card("FN:Boss", "AGENT:", "BEGIN:VCARD", "VERSION:2.1", "FN:Agent", "END:VCARD",
                        "TEL;WORK:1").encode()
    yield "group", GROUP.encode()
    yield "group-without-members", card(quoted("FN", "Лучшие друзья 🎉"), "X-CNTGRP:").encode()
    yield "group-with-bad-members", card("FN:Some Bad", "X-CNTGRP:1;two;3;;340282366920938463463374607431768211456").encode()
    yield "group-of-utf8-without-charset", card("FN:Größe", "X-CNTGRP:1").encode()
    yield "group-of-version-3", card("FN:Three", "X-CNTGRP:1", version="3.0").encode()
    yield "contacts-and-groups", ascii_card + GROUP.encode() + ascii_card


def main():
    default = pathlib.Path(__file__).resolve().parent / "contacts"
    folder = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else default
    for name, data in samples():
        (folder / (name + ".vcf")).write_bytes(data)


if __name__ == "__main__":
    main()
