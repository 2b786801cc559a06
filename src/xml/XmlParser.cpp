#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <climits>
#include <deque>
#include <memory>
#include <string_view>
#include <utility>

#include "base/Text.h"
#include "system/Files.h"
#include "xml/DtdPath.h"
#include "xml/XmlText.h"
#include "xml/XmlTree.h"

namespace tovarek {
namespace {

std::string Text(const xmlChar* text) {
    return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
}

// How much a report explains of a refusal. Prefixes that nobody declared and the like are no fault for us.
enum class Weight { none, notice, invalid, fatal };

// A place in a text, and the line and column of it, both from 1.
struct TextPosition {
    std::size_t offset = 0;
    int line = 1;
    int column = 1;

    // Forward only, so that all places together cost one walk through the text, however long its lines are.
    void MoveTo(std::size_t target, std::string_view text) {
        const std::string_view passed = text.substr(offset, target - offset);
        const auto lines = std::count(passed.begin(), passed.end(), '\n');
        if (lines > 0)
            column = 1;
        line += static_cast<int>(lines);
        column +=
            static_cast<int>(CharacterCount(lines > 0 ? passed.substr(passed.rfind('\n') + 1) : passed));
        offset = target;
    }
};

// One load: what the parser's callbacks need to know, and what they report. They are called from inside the
// library, which no exception may cross.
struct Load {
    explicit Load(std::string document) : path(std::move(document)) {}

    std::string path;
    std::string_view text;              // what is parsed
    std::deque<XmlPlace> places;        // of all elements that were seen
    TextPosition seen;                  // what places are counted from
    xmlParserCtxtPtr parser = nullptr;  // the document's; markup out of entities gets others
    std::string dtdName;
    int dtdLine = 0;  // where the document asks for its DTD file
    XmlFault fault;
    Weight weight = Weight::none;
    bool refused = false;
    bool outOfMemory = false;

    // The line in the document itself, whatever is being read in its place.
    int Line() const {
        constexpr int kInDtdFile = 2;
        if (parser == nullptr || parser->inputNr == 0)
            return 0;
        return parser->inSubset == kInDtdFile ? dtdLine : parser->inputTab[0]->line;
    }

    // The place of the start tag that has just been read in the document itself.
    XmlPlace PlaceOfTag() {
        // Behind the tag's "<" there is none up to here: attributes cannot hold it.
        const auto end = static_cast<std::size_t>(std::max(xmlByteConsumed(parser), 0L));
        const std::size_t start = text.rfind('<', end);
        if (end >= text.size() || start == std::string_view::npos || start < seen.offset)
            return {.line = Line()};
        seen.MoveTo(start, text);
        std::string_view tag = text.substr(start, std::min(text.find('>', end), text.size() - 1) + 1 - start);
        tag = tag.substr(0, tag.find('\n'));
        return {.line = seen.line, .column = seen.column, .width = static_cast<int>(CharacterCount(tag))};
    }

    // The first of the heaviest faults is the one that explains.
    void Note(Weight what, std::string reason, int line) {
        if (what <= weight)
            return;
        while (!reason.empty() && (reason.back() == '\n' || reason.back() == '\r'))
            reason.pop_back();
        weight = what;
        fault = {std::move(reason), line};
    }

    // With a document that still counts as well-formed the library would ask its own look-up after our
    // refusal, and open the file.
    void Refuse(void* reader, std::string reason) {
        refused = true;
        static_cast<xmlParserCtxtPtr>(reader)->wellFormed = 0;
        Note(Weight::fatal, std::move(reason), Line());
    }

    template <class Action>
    void Guarded(Action&& action) noexcept {
        try {
            action();
        } catch (const std::bad_alloc&) {
            outOfMemory = true;
        }
    }
};

Load& LoadOf(void* reader) {
    return *static_cast<Load*>(static_cast<xmlParserCtxtPtr>(reader)->_private);
}

Weight WeightOf(const xmlError& error) {
    // A missing document type declaration is no fault, and warnings are not faults either.
    if (error.code == XML_DTD_NO_DTD || error.level <= XML_ERR_WARNING)
        return Weight::none;
    if (error.level == XML_ERR_FATAL)
        return Weight::fatal;
    return error.domain == XML_FROM_VALID || error.domain == XML_FROM_DTD ? Weight::invalid : Weight::notice;
}

// What the library tells in words of its own trade, told with what to write. By the beginning of its text; a
// text that is not here is shown as it is.
constexpr std::pair<std::string_view, const char*> kPlainReasons[] = {
    {"xmlParseEntityRef: no name", "in a text '&' is written &amp;"},
    {"EntityRef: expecting ';'", "behind '&' and a name stands ';'; for the character itself write &amp;"},
    {"StartTag: invalid element name",
     "behind '<' stands the name of an element; for the character itself write &lt;"},
    {"AttValue: \" or ' expected", "the value of an attribute stands in quotation marks"},
    {"AttValue: ' expected", "the second quotation mark of an attribute's value is missing"},
    {"attributes construct error", "a blank is missing in front of an attribute"},
    {"Specification mandates value", "an attribute has a value: NAME=\"VALUE\""},
    {"Unescaped '<' not allowed",
     "in the value of an attribute '<' is written &lt;; is its second quotation mark missing?"},
    {"Extra content at the end", "a document ends with its root element, and something stands behind it"},
    {"Start tag expected", "not an XML document: an element in '<' and '>' is expected here"},
    {"Document is empty", "not an XML document: the file is empty"},
    {"PCDATA invalid Char", "a text has a control character, which XML does not allow"},
    {"expected '>'", "a '>' is missing"},
    {"Couldn't find end of Start Tag", "a '>' is missing at the end of a tag"},
    {"String not started", "a quotation mark is missing in front of a value"},
    {"parsing XML declaration: '?>' expected", "the XML declaration ends with '?>'"},
};

std::string ReasonOf(const xmlError& error) {
    const auto text = [](const char* part) { return std::string(part != nullptr ? part : ""); };
    if (error.code == XML_ERR_TAG_NAME_MISMATCH)
        return "<" + text(error.str1) + "> in line " + std::to_string(error.int1) + " is closed with </" +
               text(error.str2) + ">";
    if (error.code == XML_ERR_TAG_NOT_FINISHED)
        return "the file ends before <" + text(error.str1) + "> in line " + std::to_string(error.int1) +
               " is closed";
    const std::string reason = text(error.message);
    for (const auto& [beginning, plain] : kPlainReasons)
        if (reason.starts_with(beginning))
            return plain;
    if (error.code == XML_ERR_UNDECLARED_ENTITY)
        return "XML does not know '&" + text(error.str1) + ";': write the character itself";
    return reason.empty() ? "not an XML document" : reason;
}

void NoteError(void* context, xmlErrorPtr error) {
    Load& load = *static_cast<Load*>(context);
    load.Guarded([&] {
        if (error->code == XML_ERR_NO_MEMORY)
            throw std::bad_alloc();
        std::string reason = ReasonOf(*error);
        // The document has no name for the library, only a DTD file has.
        const bool isInDtd = error->file != nullptr;
        const bool isInEntity = error->ctxt != nullptr && error->ctxt != load.parser;
        if (isInDtd)
            reason = "in the document type definition '" + std::string(error->file) + "', line " +
                     std::to_string(error->line) + ": " + reason;
        load.Note(WeightOf(*error), std::move(reason), isInDtd || isInEntity ? load.Line() : error->line);
    });
}

// While it lives, what the library has to say on this thread goes to one load; else it would go to the
// standard error of whoever hosts us. A parser's own outlet does not get everything.
class ReportsTo {
  public:
    explicit ReportsTo(Load& load) : outlet_(xmlStructuredError), context_(xmlStructuredErrorContext) {
        xmlSetStructuredErrorFunc(&load, NoteError);
    }
    ~ReportsTo() { xmlSetStructuredErrorFunc(context_, outlet_); }
    ReportsTo(const ReportsTo&) = delete;
    ReportsTo& operator=(const ReportsTo&) = delete;

  private:
    xmlStructuredErrorFunc outlet_;
    void* context_;
};

// The library counts in int.
void CheckSize(const std::string& text) {
    if (text.size() > INT_MAX)
        throw XmlFault{"the file is too large"};
}

std::string DtdText(const std::string& document, const std::string& name) {
    const auto path = DtdPath(document, name);
    if (!path)
        throw XmlFault{"is not a file beside the document"};
    // A device or a pipe could keep us waiting for good.
    if (!FileExists(*path))
        throw XmlFault{"cannot be read: there is no file " + SystemPath(*path)};
    try {
        std::string text = XmlText(ReadFile(*path));
        CheckSize(text);
        BlankTextDeclaration(text);
        return text;
    } catch (const Error& error) {
        throw XmlFault{"cannot be read: " + error.Description()};
    } catch (const XmlFault& fault) {
        throw XmlFault{"cannot be read: line " + std::to_string(fault.line) + ": " + fault.reason};
    }
}

// Gives the parser the document's own DTD file and nothing else.
xmlParserInputPtr ReadDtd(void* reader, const xmlChar* /*publicId*/, const xmlChar* systemId) {
    xmlParserInputPtr input = nullptr;
    Load& load = LoadOf(reader);
    load.Guarded([&] {
        const std::string name = Text(systemId);
        load.dtdLine = load.parser->input->line;
        try {
            const std::string dtd = DtdText(load.path, name);
            xmlParserInputBufferPtr buffer = xmlParserInputBufferCreateMem(
                dtd.data(), static_cast<int>(dtd.size()), XML_CHAR_ENCODING_NONE);
            if (buffer != nullptr)
                input = xmlNewIOInputStream(static_cast<xmlParserCtxtPtr>(reader), buffer,
                                            XML_CHAR_ENCODING_NONE);
            if (input == nullptr)
                throw std::bad_alloc();
            input->filename = reinterpret_cast<char*>(xmlStrdup(systemId));
        } catch (const XmlFault& fault) {
            load.Refuse(reader, "the document type definition '" + name + "' " + fault.reason);
        }
    });
    return input;
}

xmlEntityPtr RefuseExternal(void* reader, xmlEntityPtr entity) {
    if (entity == nullptr || (entity->etype != XML_EXTERNAL_GENERAL_PARSED_ENTITY &&
                              entity->etype != XML_EXTERNAL_PARAMETER_ENTITY))
        return entity;
    Load& load = LoadOf(reader);
    load.Guarded([&] { load.Refuse(reader, "external entities are not read: " + Text(entity->name)); });
    return nullptr;
}

xmlEntityPtr GetEntity(void* reader, const xmlChar* name) {
    return RefuseExternal(reader, xmlSAX2GetEntity(reader, name));
}

xmlEntityPtr GetParameterEntity(void* reader, const xmlChar* name) {
    return RefuseExternal(reader, xmlSAX2GetParameterEntity(reader, name));
}

// Stops endless nesting where it happens, before the parser's own limit, whose words are for programmers.
void StartElement(void* reader, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                  int namespaceCount, const xmlChar** namespaces, int attributeCount, int defaultedCount,
                  const xmlChar** attributes) {
    auto* const parser = static_cast<xmlParserCtxtPtr>(reader);
    Load& load = LoadOf(reader);
    if (parser->nodeNr >= kDeepestXml) {
        load.Guarded([&] { load.Refuse(reader, TooDeepReason()); });
        return;
    }
    xmlSAX2StartElementNs(reader, name, prefix, uri, namespaceCount, namespaces, attributeCount,
                          defaultedCount, attributes);
    xmlNode* const node = parser->node;
    if (node == nullptr)
        return;
    load.Guarded([&] {
        // Lines in the text of an entity tell nobody anything.
        XmlPlace place =
            parser == load.parser && parser->inputNr == 1 ? load.PlaceOfTag() : XmlPlace{.line = load.Line()};
        place.number = load.places.size() + 1;
        node->line = static_cast<unsigned short>(std::min(place.line, USHRT_MAX));
        node->psvi = &load.places.emplace_back(place);
    });
    // Those that the document does not give itself stand last.
    int given = attributeCount - defaultedCount;
    for (xmlAttr* attribute = node->properties; attribute != nullptr; attribute = attribute->next)
        if (--given < 0)
            attribute->psvi = attribute;
}

// The first element that is nested deeper than kDeepestXml, null when there is none. Elements out of entities
// stand in their place only when all is read.
const xmlNode* FirstTooDeep(const xmlDoc* tree) {
    const xmlNode* node = tree->children;
    for (int depth = 1; node != nullptr;) {
        if (node->type == XML_ELEMENT_NODE && depth > kDeepestXml)
            return node;
        if (node->type == XML_ELEMENT_NODE && node->children != nullptr) {
            node = node->children;
            ++depth;
            continue;
        }
        while (node != nullptr && node->next == nullptr) {
            node = depth > 1 ? node->parent : nullptr;
            --depth;
        }
        if (node != nullptr)
            node = node->next;
    }
    return nullptr;
}

struct FreeParser {
    void operator()(xmlParserCtxtPtr parser) const { xmlFreeParserCtxt(parser); }
};
using Parser = std::unique_ptr<xmlParserCtxt, FreeParser>;

Parser NewParser(Load& load) {
    Parser parser(xmlNewParserCtxt());
    if (!parser)
        throw std::bad_alloc();
    load.parser = parser.get();
    parser->_private = &load;
    return parser;
}

// The text is UTF-8, whatever its declaration says.
XmlTree Read(xmlParserCtxt& parser, const std::string& text, int options) {
    CheckSize(text);
    return XmlTree(xmlCtxtReadMemory(&parser, text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                                     options | XML_PARSE_NONET | XML_PARSE_IGNORE_ENC));
}

void Check(const Load& load, const xmlDoc* tree) {
    if (load.outOfMemory)
        throw std::bad_alloc();
    const auto fault = [&](Weight least, const char* otherwise) {
        return load.weight >= least ? load.fault : XmlFault{otherwise};
    };
    if (tree == nullptr || load.refused || load.parser->wellFormed == 0)
        throw fault(Weight::fatal, "not an XML document");
    const bool hasDtd = tree->intSubset != nullptr || tree->extSubset != nullptr;
    if (hasDtd && load.parser->valid == 0)
        throw fault(Weight::invalid, "the document does not follow its document type definition");
    if (const xmlNode* const deep = FirstTooDeep(tree))
        throw XmlFault{TooDeepReason(), deep->line};
}

}  // namespace

std::string TooDeepReason() {
    return "elements are nested deeper than " + std::to_string(kDeepestXml) + " levels";
}

ParsedXml ParseXmlFile(const std::string& path) {
    const std::string text = XmlText(ReadFile(path));
    Load load(path);
    load.text = text;
    const ReportsTo reports(load);
    const Parser parser = NewParser(load);
    parser->sax->resolveEntity = ReadDtd;
    parser->sax->getEntity = GetEntity;
    parser->sax->getParameterEntity = GetParameterEntity;
    parser->sax->startElementNs = StartElement;
    XmlTree tree = Read(
        *parser, text,
        XML_PARSE_NOENT | XML_PARSE_DTDATTR | XML_PARSE_DTDVALID | XML_PARSE_BIG_LINES | XML_PARSE_COMPACT);
    Check(load, tree.get());
    return {std::move(tree), std::move(load.places)};
}

std::string DtdFileOf(const std::string& path) {
    if (!FileExists(path))
        return {};
    try {
        const std::string bytes = ReadFile(path);
        // Most documents have none, which is seen before they are decoded. In UTF-16 it has bytes between.
        if (bytes.find('\0') == std::string::npos && bytes.find("<!DOCTYPE") == std::string::npos)
            return {};
        const std::string text = XmlText(bytes);
        Load load(path);
        const ReportsTo reports(load);
        const Parser parser = NewParser(load);
        parser->sax->internalSubset = [](void* reader, const xmlChar*, const xmlChar*, const xmlChar* name) {
            LoadOf(reader).Guarded([&] { LoadOf(reader).dtdName = Text(name); });
            xmlStopParser(static_cast<xmlParserCtxtPtr>(reader));
        };
        parser->sax->startElementNs = [](void* reader, auto...) {
            xmlStopParser(static_cast<xmlParserCtxtPtr>(reader));
        };
        Read(*parser, text, 0);
        if (load.outOfMemory)
            throw std::bad_alloc();
        return DtdPath(path, load.dtdName).value_or("");
    } catch (const Error&) {
        // Whoever reads the document tells why it cannot be read.
    } catch (const XmlFault&) {
    }
    return {};
}

}  // namespace tovarek
