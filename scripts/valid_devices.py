"""Valid devices for check-jobs: variants of the example within the documented ranges, in which nothing is read otherwise
than it is written. A device is made from a seed and a number alone; each optional field is there in a third of them.
"""
import pathlib
import random
from xml.sax.saxutils import escape

EXAMPLE = pathlib.Path(__file__).resolve().parent.parent / "examples" / "fan-coil"

# Standard types and user types of the example's format file, with their sizes in bytes.
STANDARD = [(8, 2), (81, 2), (92, 3), (93, 6), (95, 2), (105, 2), (107, 2), (9, 2), (39, 2), (48, 2)]
USER = [(300, 2), (301, 2), (302, 4), (303, 1), (304, 16), (320, 9)]
# Standard properties: number in scope 0, bytes of one element.
PROPERTIES = [(49, 2), (52, 2), (17, 31), (48, 2), (34, 2)]
USER_PROPERTIES = [(300, 2, "0FA0", "4650"), (303, 1, "00", "04"), (304, 16, "00" * 16, "FF" * 16)]

# Field, XML element, how a value is drawn.
NV_FIELDS = [("avgRate", lambda rng: rng.randrange(128)), ("maxRate", lambda rng: rng.randrange(128)),
             ("arraySize", lambda rng: rng.choice([0, 1, 2, 5])), ("offline", lambda rng: rng.randrange(2)),
             ("defaultService", lambda rng: rng.randrange(3)), ("serviceCanBeChanged", lambda rng: rng.randrange(2)),
             ("defaultAuth", lambda rng: rng.randrange(2)), ("authCanBeChanged", lambda rng: rng.randrange(2)),
             ("defaultPriority", lambda rng: rng.randrange(2)), ("priorityCanBeChanged", lambda rng: rng.randrange(2)),
             ("polled", lambda rng: rng.randrange(2)), ("synchronized", lambda rng: rng.randrange(2)),
             ("configuration", lambda rng: rng.randrange(2))]
TEXTS = ["Room temperature", "21 °C in the room", "Größe; a second part", "@1|3", "&1,2,3", "naïve µ² – “quoted”"]


def optional(rng, fields):
    return [(name, str(draw(rng))) for name, draw in fields if rng.random() < 1 / 3]


def variables(rng):
    for number in range(rng.randrange(0, 20)):
        is_user = rng.random() < 0.3
        kind, size = rng.choice(USER if is_user else STANDARD)
        direction = rng.randrange(2)
        fields = [("direction", str(direction)), ("type", str(kind))]
        if is_user:
            fields.append(("length", str(size)))
        fields += optional(rng, NV_FIELDS)
        if rng.random() < 1 / 3:
            fields.append(("selfdoc", rng.choice(TEXTS)))
        yield "nv%s%s%d" % ("io"[direction], rng.choice(["Temp", "Größe", "x_"]), number), fields


def tags(rng):
    for number in range(rng.randrange(0, 4)):
        yield "tag%d" % number, [("bindable", str(rng.randrange(2)))] + optional(rng, NV_FIELDS[:2])


def hexadecimal(rng, size, count):
    """Numbers that no limit forbids, or a text."""
    if size == 2:
        return "".join("%04X" % rng.randrange(0x1000) for _ in range(count))
    return "".join(rng.choice("0123456789ABCDEF") for _ in range(2 * size * count))


def properties(rng):
    own = 0
    for number in range(rng.randrange(0, 6)):
        if rng.random() < 0.5:
            index, size = rng.choice(PROPERTIES)
            count = rng.choice([0, 0, 3])
            fields = [("declaration", "1,1,0\\x80,%d,%d%s;" % (index, size, ",%d" % count if count else ""))]
            if rng.random() < 1 / 3:
                fields.append(("value", hexadecimal(rng, size, max(count, 1))))
        else:
            kind, size, low, high = rng.choice(USER_PROPERTIES)
            own += 1
            fields = [("declaration", "1,1,6\\x80,%d,%d;" % (own, size)), ("typeIndex", str(kind)),
                      ("value", low), ("minRawVal", low), ("maxRawVal", high)]
            if rng.random() < 1 / 3:
                fields.append(("initRawVal", low))
        yield "cp%d" % number, fields


XML_NAMES = {"selfdoc": "SISD", "type": "SNVTTYPE", "declaration": "SISD", "value": "RAWVALUE", "typeIndex": "SNVTTYPE"}


def ini_template(rng, general, lists):
    eol = rng.choice(["\n", "\r\n"])
    lines = ["; a valid device", "[general]"] + ["%s=%s" % row for row in general]
    nvs, all_tags, cps = lists
    lines += ["[nvs]", "numberOfStaticNvs=%d" % len(nvs), "maximumNumberOfNvs=%d" % (len(nvs) + rng.randrange(20)),
              "[tags]", "numberOfTags=%d" % len(all_tags), "[cps]", "numberOfCp=%d" % len(cps)]
    lines += ["version=1.0"] if cps else []
    for prefix, records in (("nv", nvs), ("tag", all_tags), ("cp", cps)):
        for number, (name, fields) in enumerate(records):
            lines += ["", "[%s%d]" % (prefix, number + 1)] + (["name=" + name] if prefix != "cp" else [])
            lines += ["%s=%s" % field for field in fields]
    text = eol.join(lines) + eol
    return rng.choice([b"\xef\xbb\xbf" + text.encode(), text.encode("cp1252")])


def xml_template(rng, general, lists):
    names = {"programID": "PROGRAMID", "selfDoc": "SDSTRING", "userTypeFile": "USERCPFILE"}
    parts = ["<%s>%s</%s>" % (names[key], escape(value), names[key]) for key, value in general]
    if lists[2]:
        parts.append("<FILETYPEIIVERSION>1.0</FILETYPEIIVERSION>")
    for title, records in zip(("NVS", "TAGS", "CPS"), lists):
        parts.append("<%s>" % title)
        for name, fields in records:
            parts.append("  <%s>" % name)
            for key, value in fields:
                element = XML_NAMES.get(key, key.upper())
                value = ["input", "OUTPUT"][int(value)] if key == "direction" else value
                parts.append("    <%s>%s</%s>" % (element, escape(value), element))
            parts.append("  </%s>" % name)
        parts.append("</%s>" % title)
    return ("<DEVICES>\n<DEVICE>\n%s\n</DEVICE>\n</DEVICES>\n" % "\n".join(parts)).encode()


class Device:
    """Input files by name, and the arguments of the program, as generated_jobs.Job has them."""

    def __init__(self, seed, number):
        rng = random.Random("valid %s/%s" % (seed, number))
        self.files = {name: (EXAMPLE / name).read_bytes()
                      for name in ("profile.ini", "profile.xml", "profile.xif", "format.xml", "user-types.xml")}
        general = [("programID", "9FFFFF5014030401"), ("userTypeFile", "user-types.xml")]
        if rng.random() < 1 / 3:
            general.append(("selfDoc", "&3.0@0,8020[2];" + rng.choice(TEXTS)))
        lists = [list(variables(rng)), list(tags(rng)), list(properties(rng))]
        self.arguments = ["--outputXIFfile", "out/node.xif"]
        if rng.random() < 0.5:
            self.files["template.ini"] = ini_template(rng, general, lists)
            self.arguments += ["--iniTemplateFile", "template.ini"]
        else:
            self.files["template.xml"] = xml_template(rng, general, lists)
            self.arguments += ["--xmlTemplateFile", "template.xml", "--xmlTemplateNodeName", "DEVICE"]
        self.arguments += rng.choice([["--iniProfileFile", "profile.ini"], ["--xifProfileFile", "profile.xif"],
                                      ["--xmlProfileFile", "profile.xml", "--xmlProfileNodeName", "DEVICEPROFILE"]])
        if rng.random() < 0.7:
            self.arguments += ["--typeFilesXMLFormat", "format.xml", "--userTypeFilePath", ".", "--typeFilesDirectory",
                               "out", "--typeFilesBaseName", "device", "--localeID", "1033", "--langExtension", "ENU"]
        else:
            self.arguments += ["--mustGenerateTypes", "false"]
