"""Jobs for compare-platforms: the example device, its inputs changed and written in every way that a reader may meet.

A job is made from a seed and a number alone. One in three is whole, one in three has odd values, the rest is damaged.
"""
import copy
import pathlib
import random
import xml.etree.ElementTree as ElementTree

EXAMPLE = pathlib.Path(__file__).resolve().parent.parent / "examples" / "fan-coil"

ODD_VALUES = ["", " ", "-1", "0", "1", "2.5", "1e3", " 7 ", "0x10", "&H10", "&O17", "255", "256", "65536",
              "2147483648", "99999999999", "4,5", "abc", "\t3", "\n12\n", "9FFFFF5014030401", "00ff", "input",
              " input", "OUTPUT", "é", "300", "303", "320", "TEXTUAL", "ENUM", "STRUCT", "FLOAT",
              "1,1,6\\x80,1,2;", "1,1,6\\x80,1,2,3;", "0,,0\\x80,17,31;"]
TEXTS = ["°C", "Größe", "naïve", "µ²³", "“quoted”", "–", "€ 5", "žluť", "привет", "ελ", "温度", "−", "a  b", "x\ty",
         "\u00a0", "\U0001f321", "e\u0301"]

# Declared names, the codec that writes them, and whether single bytes may be put in at will. Of the four Asian ones only
# characters are used that every table has alike.
BYTES = [(name, codec, True) for name, codec in [
    ("UTF-8", "utf-8"), ("utf8", "utf-8"), ("US-ASCII", "ascii"), ("ASCII", "ascii"), ("windows-1252", "cp1252"),
    ("cp1252", "cp1252"), ("ISO-8859-1", "latin-1"), ("latin1", "latin-1"), ("l2", "iso8859-2"), ("KOI8-R", "koi8-r"),
    ("koi8-u", "koi8-u"), ("IBM437", "cp437"), ("cp850", "cp850"), ("IBM852", "cp852"), ("866", "cp866"),
    ("cp866", "cp866"), ("x-unknown", "latin-1"), ("UTF-7", "ascii"), ("ISO-8859-10", "latin-1"), ("", "utf-8"),
    ("UTF-16", "utf-8"), ("EBCDIC-CP-US", "latin-1"), ("ISO-10646-UCS-4", "utf-8")]
    + [("ISO-8859-%d" % n, "iso8859-%d" % n) for n in (2, 3, 4, 5, 6, 7, 8, 9, 13, 15)]
    + [("windows-%d" % n, "cp%d" % n) for n in range(1250, 1259)]]
ASIAN = [("Shift_JIS", "shift_jis", "日本語かな"), ("SJIS", "shift_jis", "日本語かな"),
         ("GB2312", "gb2312", "中文日本"), ("Big5", "big5", "中文日本"), ("EUC-KR", "euc_kr", "한국어")]
WIDE = [("utf-16-le", b"\xff\xfe"), ("utf-16-be", b"\xfe\xff"), ("utf-16-le", b""), ("utf-16-be", b""),
        ("utf-32-le", b"\xff\xfe\0\0")]


class Node:
    """An element: children are elements, or one text."""

    def __init__(self, name, attributes=(), children=()):
        self.name, self.attributes, self.children = name, list(attributes), list(children)

    @staticmethod
    def load(path):
        def convert(element):
            children = [convert(child) for child in element]
            text = element.text or ""
            return Node(element.tag, element.attrib.items(), children or ([text] if text else []))
        return convert(ElementTree.parse(path).getroot())

    def walk(self):
        yield self
        for child in self.children:
            if isinstance(child, Node):
                yield from child.walk()

    def leaves(self):
        return [node for node in self.walk() if not any(isinstance(child, Node) for child in node.children)]

    def inner(self):
        return [node for node in self.walk() if any(isinstance(child, Node) for child in node.children)]


def odd_text(rng):
    return rng.choice(ODD_VALUES) if rng.random() < 0.6 else rng.choice(TEXTS)


def change_tree(rng, root):
    """Other values, names and orders; the document stays well-formed."""
    for _ in range(rng.choice([1, 1, 2, 5])):
        leaf = rng.choice(root.leaves())
        parent = rng.choice(root.inner() or [root])
        kind = rng.randrange(9)
        if kind <= 2:
            leaf.children = [odd_text(rng)]
        elif kind == 3:
            leaf.children = [(leaf.children[0] if leaf.children else "") + rng.choice(TEXTS)]
        elif kind == 4 and parent.children:
            parent.children.pop(rng.randrange(len(parent.children)))
        elif kind == 5 and parent.children:
            parent.children.insert(0, copy.deepcopy(rng.choice(parent.children)))
        elif kind == 6:
            node = rng.choice([leaf, parent])
            node.name = rng.choice(["p:%s", "q:%s", "_%s", "%s.2"]) % node.name if rng.random() < 0.7 else node.name.lower()
        elif kind == 7:
            leaf.attributes.append(rng.choice([("a", "1"), ("A_COEF", odd_text(rng)), ("xml:id", "i1"), ("p:a", "x"),
                                               ("xmlns:p", "urn:p"), ("xmlns", "urn:d"), ("xml:space", "preserve"),
                                               ("xmlns:xml", "urn:x"), ("xml:lang", "de")]))
        else:
            parent.children.insert(rng.randrange(len(parent.children) + 1), Node("wrap", (), parent.children[:1]))


class XmlWriter:
    """One document, written in one way of many."""

    def __init__(self, rng, root, files, name, prolog=0.5):
        self.rng, self.root, self.files, self.name = rng, root, files, name
        self.eol = rng.choice(["\n", "\n", "\r\n", "\r"])
        self.noise = rng.choice([0, 0, 0, 0.02, 0.2])
        self.declaration, self.codec, self.mark = "", "utf-8", b""
        self.single_bytes = True
        self.entities = {}
        self.has_prolog = rng.random() < prolog
        self.alphabet = None
        if self.has_prolog:
            self.choose_encoding()
        elif rng.random() < 0.1:
            self.mark = b"\xef\xbb\xbf"

    def chance(self, probability):
        return self.rng.random() < probability

    def choose_encoding(self):
        rng = self.rng
        kind = rng.randrange(10)
        declared = None
        if kind <= 3:
            declared, self.codec, self.single_bytes = rng.choice(BYTES)
        elif kind == 4:
            declared, self.codec, self.alphabet = rng.choice(ASIAN)
            self.single_bytes = False
        elif kind == 5:
            self.codec, self.mark = rng.choice(WIDE)
            declared = rng.choice([None, "UTF-16", "utf-16", "UTF-8", "UTF-16LE"])
        elif kind == 6:
            declared, self.mark = rng.choice(["UTF-8", "utf-8", "ISO-8859-1"]), b"\xef\xbb\xbf"
        elif kind == 7:
            return
        quote = rng.choice("'\"")
        self.declaration = "<?xml version=%s%s%s" % (quote, rng.choice(["1.0"] * 18 + ["1.1", "2.0"]), quote)
        if declared is not None:
            self.declaration += " encoding=%s%s%s" % (quote, rng.choice([declared, declared, declared.lower()]), quote)
        self.declaration += rng.choice(["", "", " standalone='yes'", " standalone='no'"]) + "?>"

    # ---- texts ----
    def escape(self, text):
        rng = self.rng
        pieces = []
        for character in text:
            if character in "<&" or (character == ">" and self.chance(0.5)):
                pieces.append({"<": "&lt;", "&": "&amp;", ">": "&gt;"}[character])
            elif self.noise and self.chance(0.02):
                pieces.append(rng.choice(["&#%d;", "&#x%X;"]) % ord(character))
            else:
                pieces.append(character)
        if self.alphabet and pieces and self.chance(0.03):
            pieces.append(rng.choice(self.alphabet))
        if self.noise and pieces and self.chance(self.noise):
            pieces.insert(rng.randrange(len(pieces) + 1), self.noise_in_text())
        return "".join(pieces)

    def noise_in_text(self):
        rng = self.rng
        if self.entities and self.chance(0.5):
            return "&%s;" % rng.choice(list(self.entities))
        return rng.choice(["<!-- c -->", "<!---->", "<![CDATA[12]]>", "<![CDATA[]]>", "<?pi data?>", "&apos;", "&quot;",
                           "&#13;", "&#10;", "&#xE9;", "&#x6E29;", " ", self.eol, "]]&gt;", "&#x1F321;", "&#9;"])

    def element(self, node, level):
        space = self.eol + "  " * level if self.chance(0.95) else ""
        attributes = "".join(" %s=%s" % (name, self.quoted(value)) for name, value in node.attributes)
        if not node.children and self.chance(0.5):
            return "%s<%s%s/>" % (space, node.name, attributes)
        body = "".join(self.element(child, level + 1) if isinstance(child, Node) else self.escape(child)
                       for child in node.children)
        if any(isinstance(child, Node) for child in node.children):
            if self.noise and self.chance(self.noise / 2):
                body += self.eol + self.noise_in_text()
            body += space
        return "%s<%s%s>%s</%s>" % (space, node.name, attributes, body, node.name)

    def quoted(self, value):
        quote = self.rng.choice("'\"")
        value = value.replace("&", "&amp;").replace("<", "&lt;").replace(quote, "&#%d;" % ord(quote))
        return quote + value + quote

    # ---- the document type ----
    def declarations(self):
        """Declarations that fit the tree, or nearly."""
        rng = self.rng
        children, attributes = {}, {}
        for node in self.root.walk():
            names = children.setdefault(node.name, [])
            names += [child.name for child in node.children if isinstance(child, Node) and child.name not in names]
            attributes.setdefault(node.name, set()).update(name for name, _ in node.attributes)
        lines = []
        for name, names in children.items():
            if self.chance(0.01):
                continue
            model = "(%s)*" % "|".join(names) if names else "(#PCDATA)"
            if names and self.chance(0.1):
                model = rng.choice(["ANY", "(%s)" % ",".join(names), "(%s*)" % "*,".join(names),
                                    "(#PCDATA|%s)*" % "|".join(names), "((%s)+)" % "|".join(names)])
            lines.append("<!ELEMENT %s %s>" % (name, model))
            for attribute in sorted(attributes[name]):
                kind = rng.choice(["CDATA #IMPLIED", "CDATA #IMPLIED", "CDATA 'd'", "NMTOKEN #IMPLIED", "ID #IMPLIED",
                                   "IDREF #IMPLIED"])
                lines.append("<!ATTLIST %s %s %s>" % (name, attribute, kind))
        rng.shuffle(lines)
        return lines

    def entity_lines(self):
        rng = self.rng
        known = {"t": '"text"', "n": "'7'", "deg": '"°C"', "two": '"&t;&t;"', "lt2": '"&#38;#60;"', "empty": '""',
                 "mark": '"<B>1</B>"', "open": '"<B>"', "self": '"&self;"', "ext": 'SYSTEM "ext.txt"',
                 "pub": 'PUBLIC "-//x" "ext.txt"', "und": '"&nowhere;"', "blank": '"  "', "ref": '"&#x6E29;"',
                 "amp": '"&#38;#38;"'}
        lines = []
        for name in rng.sample(sorted(known), rng.randrange(1, 5)):
            self.entities[name] = True
            lines.append("<!ENTITY %s %s>" % (name, known[name]))
        self.noise = max(self.noise, 0.02)
        if self.chance(0.03):
            lines.append('<!ENTITY x0 "xxxxxxxxxx">')
            lines += ['<!ENTITY x%d "%s">' % (i, "&x%d;" % (i - 1) * 10) for i in range(1, 10)]
            self.entities["x%d" % rng.randrange(1, 10)] = True
        if self.chance(0.05):
            lines += rng.choice([['<!ENTITY % p "<!ELEMENT B (#PCDATA)>">', "%p;"],
                                 ['<!ENTITY % p SYSTEM "p.dtd">', "%p;"], ["%nowhere;"],
                                 ["<!NOTATION n SYSTEM 'n'>", "<!ENTITY u SYSTEM 'u' NDATA n>"],
                                 ["<!ELEMENT B ANY>", "<!ATTLIST B a CDATA #REQUIRED>"]])
        if self.chance(0.02):
            self.entities["nowhere"] = True
        return lines

    def doctype(self):
        rng = self.rng
        entities = self.entity_lines() if self.chance(0.7) else []
        declared = self.declarations()
        root = self.root.name if self.chance(0.97) else "OTHER"
        if self.chance(0.6):
            return "<!DOCTYPE %s [%s]>" % (root, self.eol.join([""] + entities + declared + [""]))
        file = rng.choice(["d.dtd", "d.dtd", "sub/d.dtd", "sub\\d.dtd", "./d.dtd", "a%20b.dtd", "a b.dtd",
                           "missing.dtd", "http://localhost/d.dtd", "é.dtd", ""])
        text = self.eol.join(declared + [""])
        if self.chance(0.1):
            text = "<![INCLUDE[%s]]>" % text
        if self.chance(0.3):
            text = rng.choice(["<?xml encoding='UTF-8'?>", "<?xml version='1.0' encoding='utf-8'?>", "<!-- c -->",
                               "<?xml encoding='ISO-8859-1'?>", "<?xml encoding='x-unknown'?>", "<?xml version='1.0'?>"]) + text
        stored = file.replace("\\", "/").replace("%20", " ")
        if stored and "missing" not in stored and ":" not in stored:
            self.files[stored] = damaged(rng, text, 0.1).encode(
                rng.choice(["utf-8", "utf-8", "utf-8", "latin-1", "utf-16"]), "replace")
        quoted = rng.choice(['SYSTEM "%s"', "SYSTEM '%s'", "PUBLIC '-//x' '%s'"]) % file
        internal = " [%s]" % self.eol.join(entities) if entities else ""
        return "<!DOCTYPE %s %s%s>" % (root, quoted, internal)

    # ---- the file ----
    def write(self, damage):
        rng = self.rng
        parts = []
        if self.has_prolog:
            if self.declaration:
                parts.append(self.declaration)
            if self.chance(0.3):
                parts.append(rng.choice(["<!-- before -->", "<?pi?>", "<!--" + rng.choice(TEXTS) + "-->"]))
            if self.chance(0.5):
                parts.append(self.doctype())
        if self.chance(0.02):
            for _ in range(rng.choice([3, 100, 250, 254, 256, 300])):
                self.root = Node("w", (), [self.root])
        parts.append(self.element(self.root, 0).lstrip())
        if self.chance(0.05):
            parts.append(rng.choice(["<!-- behind -->", "<?pi?>", "<again/>", "text", "&amp;"]))
        text = damaged(rng, self.eol.join(parts) + self.eol, damage)
        content = self.mark + text.encode(self.codec, "xmlcharrefreplace")
        if self.single_bytes and self.chance(damage / 2):
            content = damaged_bytes(rng, content)
        self.files[self.name] = content


def damaged(rng, text, probability):
    """Characters lost, doubled, put in; the end cut off."""
    while text and rng.random() < probability:
        place = rng.randrange(len(text))
        end = min(len(text), place + rng.choice([1, 1, 5, 40]))
        kind = rng.randrange(5)
        if kind == 0:
            text = text[:place] + text[end:]
        elif kind == 1:
            text = text[:end] + text[place:]
        elif kind <= 3:
            text = text[:place] + rng.choice("<>&\"'/]-?!;:= \n\r#%[\x00\x01\x7f\x85\ufffe") + text[place:]
        else:
            text = text[:place]
        probability *= 0.6
    return text


def damaged_bytes(rng, content):
    place = rng.randrange(len(content))
    put_in = rng.choice([[rng.randrange(256)], [rng.randrange(128, 256)], [0xC3], [0xED, 0xA0, 0x80], [0]])
    return content[:place] + bytes(put_in) + content[place + rng.randrange(2):]


# ---- the other inputs ----
def ini_file(rng, path, files, name, changes, damage):
    text = path.read_text(encoding="utf-8-sig")
    lines = text.split("\n")
    for _ in range(changes):
        place = rng.randrange(len(lines))
        key = lines[place].split("=")[0]
        lines[place] = rng.choice([key + "=" + odd_text(rng), key.upper() + " = " + odd_text(rng),
                                   '%s="%s"' % (key, odd_text(rng)), lines[place] + rng.choice(TEXTS), "", key,
                                   "[" + key + "]", ";" + lines[place], lines[place] + "\n" + lines[place]])
    text = damaged(rng, rng.choice(["\n", "\n", "\r\n", "\r"]).join(lines), damage)
    content = rng.choice([lambda: text.encode("cp1252", "replace"), lambda: b"\xef\xbb\xbf" + text.encode(),
                          lambda: b"\xff\xfe" + text.encode("utf-16-le"), lambda: b"\xfe\xff" + text.encode("utf-16-be"),
                          lambda: text.encode("utf-8")])()
    files[name] = damaged_bytes(rng, content) if rng.random() < damage / 2 else content


def xif_profile(rng, files, name, changes, damage):
    lines = (EXAMPLE / "profile.xif").read_text().split("\n")
    for _ in range(changes):
        place = rng.randrange(5, 10)
        words = lines[place].split(" ")
        words[rng.randrange(len(words))] = rng.choice(ODD_VALUES).strip()
        lines[place] = rng.choice([" ", " ", "  ", "\t"]).join(words)
    text = damaged(rng, rng.choice(["\n", "\r\n", "\r\n"]).join(lines), damage)
    files[name] = text.encode("cp1252", "replace")


class Job:
    """Input files by name, and the arguments of the program, which runs in their folder and writes to the folder out."""

    def __init__(self, seed, number):
        rng = random.Random("%s/%s" % (seed, number))
        self.files, self.arguments = {}, []
        kind = rng.randrange(3)
        # The files that are changed or damaged, each with its own chance, so that few faults stand in front of others.
        self.changes = lambda: rng.choice([0, 1, 3]) if kind == 1 else 0
        self.damage = lambda: rng.choice([0, 0.5, 0.9]) if kind == 2 else 0
        self.rng = rng
        types = rng.random() < 0.4
        self.profile()
        self.template(types)
        self.set("mustGenerateTypes", "true" if types else "false")
        if types:
            self.types()
        self.set("outputXIFfile", rng.choice(["out\\device.xif"] * 9 + ["nowhere\\device.xif"]))
        if rng.random() < 0.2:
            self.set("addNameInCpString", "true")
        if rng.random() < 0.05:
            self.set("mustGenerateXif", "false")

    def set(self, name, value):
        self.arguments += ["--" + name, value]

    def xml(self, source, name, prolog=0.5):
        root = Node.load(EXAMPLE / source)
        if self.changes():
            change_tree(self.rng, root)
        XmlWriter(self.rng, root, self.files, name, prolog).write(self.damage())

    def from_xml(self, what, source, element):
        name = self.rng.choice([source] * 8 + ["gerät.xml", "a b.xml"])
        self.xml(source, name)
        if self.rng.random() < 0.1 and what == "Template":
            self.set("xmlTemplateNode", name + "#" + element)
        else:
            self.set("xml%sFile" % what, name)
            self.set("xml%sNodeName" % what, element)

    def profile(self):
        rng = self.rng
        kind = rng.randrange(4)
        if kind == 0:
            ini_file(rng, EXAMPLE / "profile.ini", self.files, "profile.ini", self.changes(), self.damage())
            self.set("iniProfileFile", "profile.ini")
        elif kind == 1:
            xif_profile(rng, self.files, "profile.xif", self.changes(), self.damage())
            self.set("xifProfileFile", "profile.xif")
        else:
            self.from_xml("Profile", "profile.xml", "DEVICEPROFILE")

    def template(self, types):
        rng = self.rng
        if rng.random() < 0.25:
            ini_file(rng, EXAMPLE / "template.ini", self.files, "template.ini", self.changes(), self.damage())
            self.set("iniTemplateFile", "template.ini")
        else:
            self.from_xml("Template", "template.xml", "DEVICE")

    def types(self):
        rng = self.rng
        # Anything in front of its first element makes a format file without types.
        self.xml("format.xml", "format.xml", prolog=0.1)
        self.xml("user-types.xml", "user-types.xml")
        self.set("typeFilesXMLFormat", "format.xml")
        self.set("userTypeFilePath", ".")
        self.set("typeFilesDirectory", rng.choice(["out", "out", "out\\new"]))
        self.set("typeFilesBaseName", rng.choice(["t", "gerät"]))
        if rng.random() < 0.3:
            self.set("creator", rng.choice(TEXTS + [""]))
        if rng.random() < 0.2:
            self.set("localeID", rng.choice(["1031", "1036", "0", "99999", "2057", "1041"]))
        if rng.random() < 0.2:
            self.set("createUnitsFromReference", "false")
