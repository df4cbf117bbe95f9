#!/usr/bin/env python3
"""Runs vzconv on the samples and on hostile surroundings, and compares what it prints and how it exits.

Usage: run_cases.py [--part conversions|objects|surroundings] VZCONV [EMULATOR ...]

Samples are the *.vbm files of tests/data/bookmarks, the *.vcf files of tests/data/contacts, the *.vcs and *.ics files
of tests/data/calendar, the *.vmg files of tests/data/messages, the *.mms files of tests/data/multimedia and the *.xml
files of tests/data/email. Beside each stands what the commands print for it: .expected.json (json), .expected.txt
(show), .expected.check (check), .expected.extract (extract, where there are files in it), and, where something is to be
said on standard error, .expected.err (json and show), .expected.check.err (check), .expected.extract.err (extract) and
.expected.versit.err (versit of the JSON). The *.json files of from-json are the input of the command versit, with
.expected.vbm, .expected.vcf, .expected.vcs, .expected.ics, .expected.vmg or .expected.mms, one such with "utf8", the
name of a profile or a size of the record in it for each one asked for, and .expected.err. A message that is no warning
is a failure: exit status 1. Every case expects the same bytes on every platform.

The cases on objects run twice, through the conversion functions and through the data-object functions of the library.
The second time samples with contact groups are left out, which those functions do not have, and profiles are refused.
"""

import base64
import json
import os
import pathlib
import resource
import shutil
import subprocess
import sys
import tempfile

DATA = pathlib.Path(__file__).resolve().parent.parent / "data"
# Messages of many makers, which need not be there.
CORPUS = pathlib.Path(os.environ.get("VZAPI_MMS_CORPUS", DATA.parent.parent.parent / "shared" / "corpus" / "mms"))
sys.dont_write_bytecode = True  # nothing is left among the samples
sys.path.insert(0, str(DATA))
import make_multimedia  # noqa: E402  pylint: disable=wrong-import-position

SAMPLES = DATA / "bookmarks"
FOLDERS = (  # of samples, with the suffixes of their files
    (SAMPLES, (".vbm",)),
    (DATA / "contacts", (".vcf",)),
    (DATA / "calendar", (".vcs", ".ics")),
    (DATA / "messages", (".vmg",)),
    (DATA / "multimedia", (".mms",)),
    (DATA / "email", (".xml",)),
)
DOORS = ("conversions", "objects")  # what --via knows
SURROUNDINGS = "surroundings"  # files, options, and outputs that fail
COMMANDS = ("show", "list", "json", "versit", "check", "extract")
RECORD_SIZE = "record-"  # in the name of a file with what is expected: behind it stands a size
KINDS = {"bookmark", "contact", "group", "calendar entry", "message", "multimedia message", "e-mail item"}
HINT = b"\nTry vzconv --help.\n"
TIME_ZONE = "Europe/Berlin"  # some times in UTC become local ones
BOOKMARK = b"BEGIN:VBKM\r\nVERSION:1.0\r\nTITLE:%s\r\nURL:http://www.example.com/\r\nEND:VBKM\r\n"
BOOKMARK_JSON = b'{"kind":"bookmark","title":"%s","url":"http://www.example.com/"}\n'


class Tool:
    """The program under test, with the emulator that runs it.

    An emulator sets up a system of its own for its first program and takes it down after its last. One instance of
    the program that waits for its standard input keeps it standing from the first case to the last.
    """

    def __init__(self, program, emulator):
        self.command = [*emulator, program]
        self.via = None
        self.keeper = None
        if emulator:
            self.keeper = subprocess.Popen([*self.command, "json", "-"], stdin=subprocess.PIPE,
                                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                           env=dict(os.environ, TZ=TIME_ZONE))
            # The system outlives the program that sets it up and holds on to its streams, so that must be none whose
            # output is waited for.
            subprocess.run([*self.command, "--version"], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                           stderr=subprocess.DEVNULL, timeout=300, check=False)

    def close(self):
        if self.keeper:
            self.keeper.communicate(timeout=60)

    def run(self, *arguments, cwd=SAMPLES, stdin=b"", stdout=subprocess.PIPE):
        environment = dict(os.environ, LC_ALL="C.UTF-8", TZ=TIME_ZONE)
        if self.via and arguments[0] in COMMANDS:
            arguments = (arguments[0], "--via", self.via, *arguments[1:])

        def once():
            return subprocess.run([*self.command, *arguments], cwd=cwd, input=stdin, stdout=stdout,
                                  stderr=subprocess.PIPE, env=environment, timeout=300, check=False)

        result = once()
        if self.keeper and result.returncode == 1 and not result.stdout and not result.stderr:
            # Wine ends one program in ten thousand like this before it begins, even one that only prints a word.
            # Ours never fails without saying why, so what ends like this twice is a fault of ours.
            print(f"again  {' '.join(map(str, arguments))}: no word, status 1")
            result = once()
        return result


class Cases:
    """Counts the cases and keeps the names of those that went wrong."""

    def __init__(self):
        self.count = 0
        self.failures = []
        self.suffix = ""  # of the names

    def expect(self, name, **pairs):
        """One case: every pair of (expected, actual) values is equal."""
        self.count += 1
        name += self.suffix
        wrong = {what: pair for what, pair in pairs.items() if pair[0] != pair[1]}
        print(("FAILED " if wrong else "ok     ") + name)
        for what, (expected, actual) in wrong.items():
            print(f"    {what}: {first_difference(expected, actual)}")
        if wrong:
            self.failures.append(name)

    def expect_run(self, name, result, out=b"", err=b"", status=0):
        self.expect(name, stdout=(out, result.stdout), stderr=(err, result.stderr),
                    status=(status, result.returncode))


def first_difference(expected, actual):
    if not isinstance(expected, bytes):
        return f"expected {expected!r}, got {actual!r}"
    at = len(os.path.commonprefix([expected, actual]))
    line = expected.count(b"\n", 0, at) + 1
    column = at - (expected.rfind(b"\n", 0, at) + 1) + 1
    return f"line {line}, column {column}: expected {expected[at:at + 200]!r}, got {actual[at:at + 200]!r}"


def expected_bytes(sample, suffix):
    """What is expected of a sample; messages may be missing, results may not."""
    path = sample.with_suffix(".expected" + suffix)
    if suffix.endswith(".err") and not path.exists():
        return b""
    return path.read_bytes()


def status_for(messages):
    return 1 if any(b": warning: " not in line for line in messages.splitlines()) else 0


def has_door(tool, path):
    """Whether the door that is open takes all objects of `path`: JSON, or what check says of them."""
    text = path.read_bytes().replace(b" ", b"")
    return tool.via != "objects" or not (b'"kind":"group"' in text or b":group:" in text)


def sample_cases(tool, cases, folder, suffix):
    for sample in sorted(folder.glob("*" + suffix)):
        if not has_door(tool, sample.with_suffix(".expected.check")):
            continue
        messages = expected_bytes(sample, ".err")
        for command, answer in (("json", ".json"), ("show", ".txt")):
            cases.expect_run(f"{command} {sample.name}", tool.run(command, sample.name, cwd=folder),
                             expected_bytes(sample, answer), messages, status_for(messages))
        verdicts = expected_bytes(sample, ".check")
        messages = expected_bytes(sample, ".check.err")
        bad = any(not is_good_verdict(line) for line in verdicts.splitlines())
        cases.expect_run(f"check {sample.name}", tool.run("check", sample.name, cwd=folder), verdicts, messages,
                         1 if bad else status_for(messages))


def is_good_verdict(line):
    return line.split(b": ", 2)[2].startswith(b"ok")


def options_named(words):
    """What the part of a file name between "expected" and the suffix asks for."""
    if not words:
        return []
    if words == "utf8":
        return ["--utf8"]
    if words.startswith(RECORD_SIZE):
        return ["--record-size", words[len(RECORD_SIZE):]]
    return ["--profile", words]


def from_json_cases(tool, cases, folder, suffix):
    for sample in sorted(folder.glob("from-json/*.json")):
        if not has_door(tool, sample):
            continue
        for expected in sorted(sample.parent.glob(sample.stem + ".expected*" + suffix)):
            words = expected.name[len(sample.stem) + len(".expected."):-len(suffix)]
            arguments = options_named(words)
            if tool.via == "objects" and "--profile" in arguments:
                cases.expect_run(f"versit of objects for {words}",
                                 tool.run("versit", *arguments, sample.name, cwd=sample.parent),
                                 err=b'vzconv: --profile: the family "objects" has no profiles' + HINT, status=2)
                continue
            messages = expected_bytes(sample, "." + words + ".err" if words == "utf8" else ".err")
            cases.expect_run(" ".join(["versit", sample.name, *arguments]),
                             tool.run("versit", *arguments, sample.name, cwd=sample.parent),
                             expected.read_bytes(), messages, status_for(messages))


def record_size_cases(tool, cases, folder):
    """What is read into a smaller record: it has no time zone, then no exceptions and no days of a recurrence."""
    for expected in sorted(folder.glob("*.expected." + RECORD_SIZE + "*")):
        stem, _, words = expected.stem.partition(".expected.")
        command = {".json": "json", ".txt": "show"}[expected.suffix]
        sample = next(name for name in (stem + ".vcs", stem + ".ics") if (folder / name).exists())
        arguments = [command, *options_named(words), sample]
        cases.expect_run(" ".join(arguments), tool.run(*arguments, cwd=folder), expected.read_bytes())


def explicit_profile_cases(tool, cases):
    folder = DATA / "contacts" / "from-json"
    expected = (folder / "all-fields.expected.20-empty-fields.vcf").read_bytes()
    for profile in ("0x02000020:300", "33554464:0x12c"):
        cases.expect_run(f"versit --profile {profile}",
                         tool.run("versit", "--profile", profile, "all-fields.json", cwd=folder), expected)


def round_trip_cases(tool, cases, folder):
    """What json prints is JSON line by line, goes through versit and comes back the same, but for what versit warns of.

    Multimedia messages in their shortest form come back byte for byte.
    """
    shortest = {name + ".expected.json": pdu for name, pdu, _, is_shortest in make_multimedia.samples() if is_shortest}
    for expected in sorted(folder.glob("*.expected.json")):
        objects = expected.read_bytes()
        if not objects or not has_door(tool, expected):
            continue
        for line in objects.decode("utf-8").split("\n")[:-1]:
            cases.expect(f"JSON in {expected.name}", kind=(True, json.loads(line)["kind"] in KINDS))
        losses = expected_bytes(expected.with_name(expected.name.replace(".expected.json", ".json")), ".versit.err")
        for arguments in (("--utf8",), ()) if folder.name == "messages" else (("--utf8",),):
            name = " ".join(["versit", *arguments, expected.name])
            versit = tool.run("versit", *arguments, expected.name, cwd=folder)
            cases.expect(name, stderr=(losses, versit.stderr), status=(status_for(losses), versit.returncode))
            if folder.name == "multimedia" and expected.name in shortest:
                cases.expect(name + " gives the message again", pdu=(shortest[expected.name], versit.stdout))
            if not losses:
                cases.expect_run("json of " + name, tool.run("json", "-", stdin=versit.stdout), objects)


def listed_files(folder):
    """Name and content of each file of a folder; none when it is not there."""
    return {path.name: path.read_bytes() for path in folder.iterdir()} if folder.exists() else {}


def extract_and_expect(tool, cases, name, folder, arguments, lines, contents, messages=b""):
    """One case: the lines that are printed, and the files that are there then, which have these contents in turn."""
    result = tool.run("extract", "-o", "files", *arguments, cwd=folder)
    files = [line.split(b": ")[0].decode().removeprefix("files/") for line in lines.splitlines()]
    cases.expect(name, stdout=(lines, result.stdout), stderr=(messages, result.stderr),
                 status=(status_for(messages), result.returncode),
                 files=(dict(zip(files, contents)), listed_files(folder / "files")))
    shutil.rmtree(folder / "files", ignore_errors=True)


def multimedia_cases(tool, cases, folder):
    """The parts of messages come out as files."""
    for name, pdu, parts, _ in make_multimedia.samples():
        path = DATA / "multimedia" / (name + ".mms")
        cases.expect(f"{path.name} is what make_multimedia.py writes", pdu=(pdu, path.read_bytes()))
        if parts:
            shutil.copy(path, folder)
            extract_and_expect(tool, cases, f"extract {path.name}", folder, [path.name],
                               path.with_suffix(".expected.extract").read_bytes(), parts,
                               expected_bytes(path, ".extract.err"))


def photos_in(path):
    """The pictures of the contacts in a file of JSON lines."""
    contacts = [json.loads(line) for line in path.read_text(encoding="utf-8").splitlines()]
    photos = [contact["photo"] for contact in contacts if "photo" in contact]
    return [base64.b64decode(photo["data"]) for photo in photos]


def extract_cases(tool, cases, folder):
    book = DATA / "contacts" / "phone-book.vcf"
    photos = photos_in(book.with_suffix(".expected.json"))
    lines = book.with_suffix(".expected.extract").read_bytes()
    shutil.copy(book, folder)
    extract_and_expect(tool, cases, "extract phone-book.vcf", folder, [book.name], lines, photos)
    second = b"".join(line.replace(b".", b" (2).", 1) for line in lines.splitlines(keepends=True))
    extract_and_expect(tool, cases, "extract the same file twice", folder, [book.name, book.name], lines + second,
                       photos * 2)
    (folder / "files").mkdir()
    (folder / "files" / "gilbert DOT.gif").write_bytes(b"mine")
    numbered = lines.replace(b"Gilbert Dot.gif", b"Gilbert Dot (2).gif")
    result = tool.run("extract", "-o", "files", book.name, cwd=folder)
    cases.expect("extract overwrites nothing", stdout=(numbered, result.stdout),
                 mine=(b"mine", (folder / "files" / "gilbert DOT.gif").read_bytes()),
                 count=(len(photos) + 1, len(listed_files(folder / "files"))))
    shutil.rmtree(folder / "files")
    card = b"BEGIN:VCARD\r\nVERSION:2.1\r\n%sPHOTO;TYPE=GIF;ENCODING=BASE64:R0lGODlh\r\n\r\nEND:VCARD\r\n"
    (folder / "Freunde \u00e4.vcf").write_bytes(card % b"" + BOOKMARK % b"A" + card % b"FN:\r\n")
    extract_and_expect(tool, cases, "extract a photo of nobody", folder, ["Freunde \u00e4.vcf"],
                       "files/Freunde \u00e4.gif: image/gif, 6 bytes, from Freunde \u00e4.vcf:1\n"
                       "files/Freunde \u00e4 (2).gif: image/gif, 6 bytes, from Freunde \u00e4.vcf:11\n".encode(),
                       [b"GIF89a"] * 2)
    extract_and_expect(tool, cases, "extract a file that is not there", folder, ["missing.vcf"],
                       b"", [], b"missing.vcf: cannot be opened: No such file or directory\n")
    (folder / "mixed.vcf").write_bytes(card.replace(b"2.1", b"4.2") % b"FN:X\r\n" + card % b"FN:Y\r\n")
    extract_and_expect(tool, cases, "extract leaves out what cannot be read", folder, ["mixed.vcf"],
                       b"files/Y.gif: image/gif, 6 bytes, from mixed.vcf:7\n", [b"GIF89a"],
                       b"mixed.vcf:1: contact: the text is no object of this kind in a version that the library reads "
                       b"(0x80800003)\n")
    (folder / "taken").write_bytes(b"a file")
    cases.expect_run("extract into a file", tool.run("extract", "-o", "taken", book.name, cwd=folder),
                     err=b"taken: the folder cannot be made: Not a directory\n", status=1)
    nested = tool.run("extract", "--output", "new/\u00fc/folder/", "-", cwd=folder, stdin=card % b"FN:[A]\r\n")
    cases.expect_run("extract makes the folder",
                     nested, "new/\u00fc/folder/[A].gif: image/gif, 6 bytes, from -:1\n".encode())
    cases.expect("the file in it", files=({"[A].gif": b"GIF89a"}, listed_files(folder / "new" / "\u00fc" / "folder")))
    shutil.rmtree(folder / "new")


def full_disk_cases(tool, cases, folder):
    """A file that there is no room for is reported and not left behind; the others are written."""
    if tool.keeper:
        return  # the limit would hold for the emulator too
    book = DATA / "contacts" / "phone-book.vcf"
    small = BOOKMARK % b"A" + b"BEGIN:VCARD\r\nVERSION:2.1\r\nPHOTO;ENCODING=BASE64:R0lGODlh\r\n\r\nEND:VCARD\r\n"
    (folder / "small.vcf").write_bytes(small)
    limit = (1000, 1000)
    result = subprocess.run([*tool.command, "extract", "-o", "files", str(book), "small.vcf"], cwd=folder,
                            stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False, restore_signals=False,
                            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, limit))
    place = f"{book}:210: contact: files/Jo Portrait.jpg "
    cases.expect("extract with little room on the disk", status=(1, result.returncode),
                 stderr=(place.encode() + b"cannot be written: File too large\n", result.stderr),
                 files=({"Paula Picture.png", "Gilbert Dot.gif", "small.gif"}, set(listed_files(folder / "files"))))
    shutil.rmtree(folder / "files")


def leaves_of(parts):
    for part in parts:
        yield from leaves_of(part["parts"]) if "parts" in part else (part,)


def content_of(part):
    return base64.b64decode(part["data"]) if "data" in part else part["text"].encode()


def corpus_cases(tool, cases, folder):
    """Messages of many makers: all are shown, and come back from JSON and as files. None is copied to stay."""
    if not CORPUS.is_dir():
        print("skipped " + str(CORPUS) + " is not there")
        return
    shown = tool.run("show", str(CORPUS))
    cases.expect("show the corpus", stderr=(b"", shown.stderr), status=(0, shown.returncode))
    result = tool.run("json", str(CORPUS))
    cases.expect("json of the corpus", stderr=(b"", result.stderr), status=(0, result.returncode))
    (folder / "again").mkdir()
    lines = result.stdout.splitlines(keepends=True)
    for i, line in enumerate(lines):
        pdu = tool.run("versit", "-", stdin=line)
        cases.expect(f"versit of message {i} of the corpus", stderr=(b"", pdu.stderr), status=(0, pdu.returncode))
        (folder / "again" / f"{i:04}.mms").write_bytes(pdu.stdout)
    cases.expect_run("json of what was written", tool.run("json", "again", cwd=folder), result.stdout)
    shutil.rmtree(folder / "again")
    messages = [json.loads(line) for line in lines]
    contents = [content_of(part) for message in messages for part in leaves_of(message.get("parts", []))]
    printed = tool.run("extract", "-o", "files", str(CORPUS), cwd=folder)
    extracted = listed_files(folder / "files")
    names = [line.split(b": ")[0].decode().removeprefix("files/") for line in printed.stdout.splitlines()]
    cases.expect("extract the corpus", stderr=(b"", printed.stderr), files=(dict(zip(names, contents)), extracted),
                 count=(len(contents), len(extracted)))
    shutil.rmtree(folder / "files")


def group_cases(tool, cases):
    """Contact groups are no data objects: they are refused, and what stands beside them is converted."""
    refusal = b"group: the data-object functions do not have this kind\n"
    folder = DATA / "contacts"
    group = BOOKMARK % b"A" + (folder / "group.vcf").read_bytes() + BOOKMARK % b"B"
    cases.expect_run("json of a group", tool.run("json", "-", stdin=group),
                     BOOKMARK_JSON % b"A" + BOOKMARK_JSON % b"B", b"-:6: " + refusal, 1)
    cases.expect_run("check of a group", tool.run("check", "-", stdin=group),
                     b"-:1: bookmark: ok\n-:6: " + refusal + b"-:%d: bookmark: ok\n" % (group.count(b"\r\n") - 4),
                     status=1)
    cases.expect_run("versit of a group", tool.run("versit", "-", stdin=b'{"kind":"group","members":["1"]}'),
                     err=b"-:1: " + refusal, status=1)


def email_cases(tool, cases):
    folder = DATA / "email"
    objects = (folder / "utf8.expected.json").read_bytes()
    cases.expect_run("versit of an e-mail item", tool.run("versit", "-", stdin=objects),
                     err=b"-:1: e-mail item: e-mail items are read only: there is no versit text for them\n", status=1)


def list_cases(tool, cases, folder):
    """Messages of many files as lines in the order of their dates, whether files or their folder are named."""
    messages = DATA / "messages"
    (folder / "folder").mkdir()
    (folder / "folder" / "inside").mkdir()
    for name in ("several.vmg", "written-utf16le-mark.vmg", "utf8.vmg"):
        shutil.copy(messages / name, folder / "folder" / name)
    expected = (messages / "list.expected").read_bytes()
    cases.expect_run("list of a folder", tool.run("list", "folder", cwd=folder), expected)
    cases.expect_run("list of a folder with a slash behind it", tool.run("list", "folder/", cwd=folder), expected)
    cases.expect_run("list of files", tool.run("list", "folder/several.vmg", "folder/utf8.vmg",
                                               "folder/written-utf16le-mark.vmg", cwd=folder), expected)
    cases.expect_run("json of a folder is that of its files", tool.run("json", "folder", cwd=folder),
                     b"".join((messages / (name + ".expected.json")).read_bytes()
                              for name in ("several", "utf8", "written-utf16le-mark")))
    (folder / "folder" / "b.vbm").write_bytes(BOOKMARK % b"A" + b"BEGIN:VMSG\r\nEND:VMSG\r\n")
    cases.expect_run("list leaves out what is no message", tool.run("list", "folder", cwd=folder), expected,
                     b"folder/b.vbm:1: warning: bookmarks are left out\nfolder/b.vbm:6: message: the text is no object "
                     b"of this kind in a version that the library reads (0x80800003)\n", 1)
    shutil.rmtree(folder / "folder")


def input_cases(tool, cases, folder):
    text = BOOKMARK % b"A" + BOOKMARK % b"B"
    objects = BOOKMARK_JSON % b"A" + BOOKMARK_JSON % b"B"
    cases.expect_run("json of standard input", tool.run("json", "-", stdin=text), objects)
    cases.expect_run("versit of standard input", tool.run("versit", "-", stdin=objects), text)
    cases.expect_run("messages name standard input by its dash", tool.run("json", "-", stdin=b"\n\nhello"),
                     err=b"-: holds no versit object\n", status=1)
    for name in ("Überblick ä.vbm", "ブックマーク.vbm", "закладки.vbm", "two words.vbm", "[a,b]", "json", "=", "a'b&c.vbm"):
        (folder / name).write_bytes(BOOKMARK % b"A")
        cases.expect_run(f"file name {name}", tool.run("json", name, cwd=folder), BOOKMARK_JSON % b"A")
        cases.expect_run(f"file name {name} in messages", tool.run("check", name, cwd=folder),
                         f"{name}:1: bookmark: ok\n".encode())
    cases.expect_run("file name with all of its folders", tool.run("json", str(folder / "json")), BOOKMARK_JSON % b"A")
    (folder / "-dash.vbm").write_bytes(BOOKMARK % b"A")
    cases.expect_run("file name behind --", tool.run("json", "--", "-dash.vbm", cwd=folder), BOOKMARK_JSON % b"A")
    cases.expect_run("missing file between two others",
                     tool.run("json", "json", "missing.vbm", "=", cwd=folder), BOOKMARK_JSON % b"A" * 2,
                     b"missing.vbm: cannot be opened: No such file or directory\n", 1)
    cases.expect_run("missing file, check", tool.run("check", "missing.vbm", "=", cwd=folder),
                     b"=:1: bookmark: ok\n", b"missing.vbm: cannot be opened: No such file or directory\n", 1)
    cases.expect_run("missing file, versit", tool.run("versit", "missing.json", cwd=folder),
                     b"", b"missing.json: cannot be opened: No such file or directory\n", 1)
    (folder / "inside").mkdir()
    cases.expect_run("folder without files", tool.run("json", "inside", cwd=folder), b"",
                     b"inside: is a folder without files\n", 1)
    cases.expect_run("show parts objects of several files by an empty line",
                     tool.run("show", "json", "=", cwd=folder),
                     b"\n".join([b"Bookmark\n  Title     A\n  Address   http://www.example.com/\n"] * 2))


def large_cases(tool, cases, folder):
    many = b"".join(BOOKMARK % b"%d" % i for i in range(100000))
    objects = b"".join(BOOKMARK_JSON % b"%d" % i for i in range(100000))
    (folder / "many.vbm").write_bytes(many)
    (folder / "many.json").write_bytes(objects)
    cases.expect_run("json of a hundred thousand bookmarks", tool.run("json", "many.vbm", cwd=folder), objects)
    cases.expect_run("versit of a hundred thousand bookmarks", tool.run("versit", "many.json", cwd=folder), many)
    (folder / "many.vbm").write_bytes(many.replace(b"\r", b""))
    cases.expect_run("json of a hundred thousand bookmarks with line feeds only",
                     tool.run("json", "many.vbm", cwd=folder), objects)
    title = b"t" * (64 << 20)
    (folder / "long.vbm").write_bytes(BOOKMARK % title)
    cases.expect_run("json of a title of 64 MB", tool.run("json", "long.vbm", cwd=folder), BOOKMARK_JSON % title)
    card = b"BEGIN:VCARD\r\nVERSION:2.1\r\n%sEND:VCARD\r\n"
    for name, line, value in (("folds", b"NOTE:%s\r\n", b"\r\n \xc3\xa9"),
                              ("soft line breaks", b"NOTE;ENCODING=QUOTED-PRINTABLE:%s\r\n", b"=C3=A9=\r\n")):
        text = card % (line % (value * 500000 + b"e"))
        note = "\u00e9".encode() * 500000 + b"e"
        cases.expect_run(f"json of a note of half a million {name} without a charset",
                         tool.run("json", "-", stdin=text), b'{"kind":"contact","note":"%s"}\n' % note)
    cases.expect_run("show of a contact with a hundred thousand names",
                     tool.run("show", "-", stdin=card % (b"FN:a\r\nN:b\r\n" * 100000)),
                     b"Contact\n" + b"  Name                 a\n" * 100000 + b"  Family name          b\n" * 100000)
    begins = b"BEGIN:VBKM\n" * 100000
    verdict = b"-:%d: bookmark: no END:VBKM before the BEGIN:VBKM of line %d\n"
    last = b"-:100000: bookmark: no END:VBKM before the end of the text\n"
    cases.expect_run("check of a hundred thousand objects without END", tool.run("check", "-", stdin=begins),
                     b"".join(verdict % (i, i + 1) for i in range(1, 100000)) + last, b"", 1)


def usage_cases(tool, cases):
    rows = (
        ("no arguments", (), b"vzconv: a command is required"),
        ("no such command", ("convert", "a.vbm"), b'vzconv: there is no command "convert"'),
        ("no such option", ("--verbose", "show", "a.vbm"), b'vzconv: there is no option "--verbose"'),
        ("no such option of a command", ("show", "--verbose", "a.vbm"),
         b"vzconv: The following argument was not expected: --verbose"),
        ("show without files", ("show",), b"vzconv: FILE is required"),
        ("json without files", ("json",), b"vzconv: FILE is required"),
        ("versit without files", ("versit",), b"vzconv: FILE is required"),
        ("no such profile", ("versit", "--profile", "nobody", "a.json"),
         b'vzconv: --profile: there is no profile "nobody"'),
        ("a profile where none is looked at", ("json", "--profile", "none", "a.vcf"),
         b"vzconv: The following argument was not expected: --profile"),
        ("no such size of a record", ("json", "--record-size", "100", "a.vcs"),
         b"vzconv: --record-size: 100 not in {112,128,152,192}"),
        ("a size of a record where none is looked at", ("check", "--record-size", "112", "a.vcs"),
         b"vzconv: The following argument was not expected: --record-size"),
        ("list without files", ("list",), b"vzconv: FILE is required"),
        ("no such family", ("json", "--via", "nobody", "a.vcf"), b'vzconv: --via: there is no family "nobody"'),
        ("UTF-8 where nothing is written", ("json", "--utf8", "a.vcf"),
         b"vzconv: The following argument was not expected: --utf8"),
        ("check without files", ("check",), b"vzconv: FILE is required"),
        ("extract without a folder", ("extract", "a.vcf"), b"vzconv: --output is required"),
        ("extract without files", ("extract", "-o", "files"), b"vzconv: FILE is required"),
    )
    for name, arguments, message in rows:
        cases.expect_run(name, tool.run(*arguments), err=message + HINT, status=2)
    for arguments, words in ((("--help",), b"Commands:"), (("json", "--help"), b"FILE ..."),
                             (("versit", "--help"), b"20-empty-fields "),
                             (("--version",), b"vzconv 16.")):
        result = tool.run(*arguments)
        cases.expect(" ".join(arguments), stdout=(True, words in result.stdout), stderr=(b"", result.stderr),
                     status=(0, result.returncode))


def lost_output_cases(tool, cases):
    message = b"vzconv: standard output cannot be written\n"
    for arguments in (("json", "plain-ascii.vbm"), ("show", "plain-ascii.vbm"), ("check", "plain-ascii.vbm"),
                      ("versit", "from-json/fields.json"), ("--help",)):
        with open("/dev/full", "wb") as full:
            result = tool.run(*arguments, stdout=full)
        cases.expect(f"full disk: {arguments[0]}", stderr=(message, result.stderr), status=(1, result.returncode))
    reader, writer = os.pipe()
    os.close(reader)
    result = tool.run("json", "plain-ascii.vbm", stdout=writer)
    os.close(writer)
    cases.expect("nobody reads the output", stderr=(message, result.stderr), status=(1, result.returncode))


def object_cases(tool, cases, folder):
    for samples, suffixes in FOLDERS:
        for suffix in suffixes:
            sample_cases(tool, cases, samples, suffix)
            from_json_cases(tool, cases, samples, suffix)
        if samples.name != "email":
            round_trip_cases(tool, cases, samples)
    record_size_cases(tool, cases, DATA / "calendar")
    email_cases(tool, cases)
    list_cases(tool, cases, folder)
    multimedia_cases(tool, cases, folder)
    extract_cases(tool, cases, folder)
    corpus_cases(tool, cases, folder)


def surroundings_cases(tool, cases, folder):
    tool.via = None
    explicit_profile_cases(tool, cases)
    input_cases(tool, cases, folder)
    usage_cases(tool, cases)
    lost_output_cases(tool, cases)
    full_disk_cases(tool, cases, folder)
    large_cases(tool, cases, folder)


def main():
    arguments = sys.argv[1:]
    parts = [*DOORS, SURROUNDINGS]
    if arguments[:1] == ["--part"] and arguments[1:2] and arguments[1] in parts:
        parts = [arguments[1]]
        del arguments[:2]
    if not arguments or arguments[0].startswith("--"):
        print(__doc__)
        return 2
    emulator = [os.path.abspath(word) if os.path.exists(word) else word for word in arguments[1:]]
    tool = Tool(os.path.abspath(arguments[0]), emulator)
    cases = Cases()
    folder = pathlib.Path(tempfile.mkdtemp(prefix="vzconv-"))
    try:
        for part in parts:
            if part == SURROUNDINGS:
                cases.suffix = ""
                surroundings_cases(tool, cases, folder)
                continue
            tool.via = part
            cases.suffix = " via " + part
            object_cases(tool, cases, folder)
            if part == "objects":
                group_cases(tool, cases)
    finally:
        shutil.rmtree(folder)
        tool.close()
    print(f"{cases.count - len(cases.failures)} passed, {len(cases.failures)} failed")
    return 1 if cases.failures else 0


if __name__ == "__main__":
    sys.exit(main())
