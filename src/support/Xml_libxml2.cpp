#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>

#include <climits>

#include "support/Files.h"
#include "support/Xml.h"

namespace tovarek {

struct XmlNode::Owner {
    explicit Owner(xmlDocPtr tree, std::string path) : document(tree), file(std::move(path)) {}
    ~Owner() { xmlFreeDoc(document); }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    xmlDocPtr document;
    std::string file;
};

namespace {

const xmlNode* Raw(const void* node) {
    return static_cast<const xmlNode*>(node);
}

std::string_view View(const xmlChar* text) {
    return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

bool IsText(const xmlNode* node) {
    return node->type == XML_TEXT_NODE;
}

// The library may keep one text in several neighbouring nodes; for us the run is one text, and its first node
// stands for it.
const xmlNode* EndOfRun(const xmlNode* node) {
    while (node != nullptr && IsText(node))
        node = node->next;
    return node;
}

bool IsBlankRun(const xmlNode* node) {
    const auto isBlank = [](xmlChar c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    for (; node != nullptr && IsText(node); node = node->next) {
        // Every text of a document is asked, and nearly every one answers with its first character.
        const xmlChar* character = node->content;
        while (character != nullptr && isBlank(*character))
            ++character;
        if (character != nullptr && *character != 0)
            return false;
    }
    return true;
}

// The first node from `node` on that exists for us.
const xmlNode* SkipBlankText(const xmlNode* node) {
    while (node != nullptr && IsText(node) && IsBlankRun(node))
        node = EndOfRun(node);
    return node;
}

std::string QualifiedName(const xmlNs* ns, const xmlChar* name) {
    std::string qualified;
    if (ns != nullptr && ns->prefix != nullptr) {
        qualified = View(ns->prefix);
        qualified += ':';
    }
    qualified += View(name);
    return qualified;
}

// How much a report explains of a refusal. Prefixes that nobody declared and the like are no fault for us.
enum class Weight { none, notice, invalid, fatal };

// What the parser's callbacks need to know and to report about one load.
struct LoadState {
    std::string folder;  // of the document, with its final separator
    std::string reason;
    int line = 0;
    Weight weight = Weight::none;
    bool refused = false;
    bool outOfMemory = false;

    // The first of the heaviest faults is the one that explains. Called from inside the library, which no
    // exception may cross.
    void Note(Weight what, std::string_view message, int where) noexcept {
        if (what <= weight)
            return;
        try {
            reason = message;
        } catch (const std::bad_alloc&) {
            outOfMemory = true;
        }
        while (!reason.empty() && (reason.back() == '\n' || reason.back() == '\r'))
            reason.pop_back();
        weight = what;
        line = where;
    }
    // Ends the parsing as any fatal fault does: the library asks no further callback for the same thing.
    void Refuse(xmlParserCtxtPtr parser, std::string_view message) noexcept {
        refused = true;
        parser->wellFormed = 0;
        parser->disableSAX = 1;
        Note(Weight::fatal, message, parser->input != nullptr ? parser->input->line : 0);
    }
};

LoadState& StateOf(void* context) {
    return *static_cast<LoadState*>(static_cast<xmlParserCtxtPtr>(context)->_private);
}

Weight WeightOf(const xmlError& error) {
    // A missing document type declaration is no fault, and warnings are not faults either.
    if (error.code == XML_DTD_NO_DTD || error.level <= XML_ERR_WARNING)
        return Weight::none;
    if (error.level == XML_ERR_FATAL)
        return Weight::fatal;
    return error.domain == XML_FROM_VALID || error.domain == XML_FROM_DTD ? Weight::invalid : Weight::notice;
}

void NoteError(void* state, xmlErrorPtr error) {
    auto& load = *static_cast<LoadState*>(state);
    if (error->code == XML_ERR_NO_MEMORY)
        load.outOfMemory = true;
    load.Note(WeightOf(*error), error->message != nullptr ? error->message : "not an XML document",
              error->line);
}

// While it lives, what the library has to say on this thread goes to one load; else it would go to the
// standard error of whoever hosts us. A parser's own outlet does not get everything.
class ReportsTo {
  public:
    explicit ReportsTo(LoadState& state) : outlet_(xmlStructuredError), context_(xmlStructuredErrorContext) {
        xmlSetStructuredErrorFunc(&state, NoteError);
    }
    ~ReportsTo() { xmlSetStructuredErrorFunc(context_, outlet_); }
    ReportsTo(const ReportsTo&) = delete;
    ReportsTo& operator=(const ReportsTo&) = delete;

  private:
    xmlStructuredErrorFunc outlet_;
    void* context_;
};

// Gives the parser the document's own DTD file and nothing else.
xmlParserInputPtr ReadDtd(void* context, const xmlChar* /*publicId*/, const xmlChar* systemId) {
    LoadState& state = StateOf(context);
    auto* parser = static_cast<xmlParserCtxtPtr>(context);
    try {
        const std::string name(View(systemId));
        if (name.empty() || name.find("://") != std::string::npos) {
            state.Refuse(parser,
                         "the document type definition '" + name + "' is not a file beside the document");
            return nullptr;
        }
        try {
            const bool absolute = name.front() == '/';
            const std::string dtd = ReadFile(absolute ? name : state.folder + name);
            xmlParserInputBufferPtr buffer = xmlParserInputBufferCreateMem(
                dtd.data(), static_cast<int>(dtd.size()), XML_CHAR_ENCODING_NONE);
            xmlParserInputPtr input =
                buffer == nullptr ? nullptr : xmlNewIOInputStream(parser, buffer, XML_CHAR_ENCODING_NONE);
            if (input != nullptr)
                input->filename = reinterpret_cast<char*>(xmlStrdup(systemId));
            return input;
        } catch (const Error& error) {
            state.Refuse(
                parser, "the document type definition '" + name + "' cannot be read: " + error.Description());
        }
    } catch (const std::bad_alloc&) {
        state.outOfMemory = true;
    }
    return nullptr;
}

bool IsExternal(const xmlEntity* entity) {
    return entity != nullptr && (entity->etype == XML_EXTERNAL_GENERAL_PARSED_ENTITY ||
                                 entity->etype == XML_EXTERNAL_PARAMETER_ENTITY);
}

// The library would ask its own look-up after ours, and open the file: the refusal itself has to stop it.
xmlEntityPtr RefuseExternal(void* context, xmlEntityPtr entity) {
    if (!IsExternal(entity))
        return entity;
    LoadState& state = StateOf(context);
    try {
        state.Refuse(static_cast<xmlParserCtxtPtr>(context),
                     "external entities are not read: " + std::string(View(entity->name)));
    } catch (const std::bad_alloc&) {
        state.outOfMemory = true;
    }
    return nullptr;
}

xmlEntityPtr GetEntity(void* context, const xmlChar* name) {
    return RefuseExternal(context, xmlSAX2GetEntity(context, name));
}

xmlEntityPtr GetParameterEntity(void* context, const xmlChar* name) {
    return RefuseExternal(context, xmlSAX2GetParameterEntity(context, name));
}

// Whether elements nest deeper than kDeepestXml. The parser's own limit is another one, and it begins anew in
// every entity.
bool IsTooDeep(const xmlDoc* tree) {
    const xmlNode* node = tree->children;
    for (int depth = 1; node != nullptr;) {
        if (node->type == XML_ELEMENT_NODE && depth > kDeepestXml)
            return true;
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
    return false;
}

struct FreeParser {
    void operator()(xmlParserCtxtPtr parser) const { xmlFreeParserCtxt(parser); }
};

// Parses `bytes`; the tree, or null with the reason in `state`.
xmlDocPtr Parse(const std::string& bytes, const std::string& path, LoadState& state) {
    if (bytes.size() > INT_MAX) {
        state.Note(Weight::fatal, "the file is too large", 0);
        return nullptr;
    }
    const ReportsTo reports(state);
    const std::unique_ptr<xmlParserCtxt, FreeParser> parser(xmlNewParserCtxt());
    if (!parser)
        throw std::bad_alloc();
    parser->_private = &state;
    parser->sax->resolveEntity = ReadDtd;
    parser->sax->getEntity = GetEntity;
    parser->sax->getParameterEntity = GetParameterEntity;

    constexpr int kOptions = XML_PARSE_NOENT | XML_PARSE_DTDATTR | XML_PARSE_DTDVALID | XML_PARSE_NONET |
                             XML_PARSE_BIG_LINES | XML_PARSE_COMPACT;
    xmlDocPtr tree = xmlCtxtReadMemory(parser.get(), bytes.data(), static_cast<int>(bytes.size()),
                                       path.c_str(), nullptr, kOptions);
    if (state.outOfMemory) {
        xmlFreeDoc(tree);
        throw std::bad_alloc();
    }
    if (tree == nullptr) {
        state.Note(Weight::fatal, "not an XML document", 0);
        return nullptr;
    }
    const bool hasDtd = tree->intSubset != nullptr || tree->extSubset != nullptr;
    if (state.refused || parser->wellFormed == 0 || (hasDtd && parser->valid == 0)) {
        if (state.refused || parser->wellFormed == 0)
            state.Note(Weight::fatal, "not an XML document", 0);
        state.Note(Weight::invalid, "the document does not follow its document type definition", 0);
        xmlFreeDoc(tree);
        return nullptr;
    }
    if (IsTooDeep(tree)) {
        state.Note(Weight::fatal,
                   "elements are nested deeper than " + std::to_string(kDeepestXml) + " levels", 0);
        xmlFreeDoc(tree);
        return nullptr;
    }
    return tree;
}

std::string FolderOf(const std::string& path) {
    const std::string system = SystemPath(path);
    const std::size_t slash = system.rfind('/');
    return slash == std::string::npos ? std::string() : system.substr(0, slash + 1);
}

// Stands for the XML declaration, which the library does not keep as a node.
const xmlNode* DeclarationMark() {
    static const xmlNode mark{};
    return &mark;
}

bool HasDeclaration(const xmlDoc* document) {
    // -1 is the library's word for "no declaration"; one without "standalone" is -2.
    return document->standalone != -1;
}

}  // namespace

XmlNodeKind XmlNode::Kind() const {
    if (node_ == nullptr)
        return XmlNodeKind::none;
    if (node_ == DeclarationMark())
        return XmlNodeKind::processingInstruction;
    switch (Raw(node_)->type) {
        case XML_ELEMENT_NODE:
            return XmlNodeKind::element;
        case XML_TEXT_NODE:
            return XmlNodeKind::text;
        case XML_CDATA_SECTION_NODE:
            return XmlNodeKind::cdata;
        case XML_PI_NODE:
            return XmlNodeKind::processingInstruction;
        case XML_COMMENT_NODE:
            return XmlNodeKind::comment;
        case XML_DTD_NODE:
            return XmlNodeKind::documentType;
        default:
            return XmlNodeKind::other;
    }
}

std::string XmlNode::Name() const {
    return IsElement() ? QualifiedName(Raw(node_)->ns, Raw(node_)->name) : std::string();
}

std::string XmlNode::Text() const {
    std::string text;
    if (Kind() == XmlNodeKind::text)
        for (const xmlNode* node = Raw(node_); node != nullptr && IsText(node); node = node->next)
            text += View(node->content);
    return text;
}

int XmlNode::Line() const {
    if (node_ == nullptr || node_ == DeclarationMark())
        return node_ == nullptr ? 0 : 1;
    const long line = xmlGetLineNo(Raw(node_));
    return line > 0 && line <= INT_MAX ? static_cast<int>(line) : 0;
}

const std::string& XmlNode::File() const {
    static const std::string none;
    return owner_ ? owner_->file : none;
}

XmlNode XmlNode::FirstChild() const {
    // Only elements are walked into; the declarations inside a document type declaration are no content.
    const xmlNode* child = IsElement() ? SkipBlankText(Raw(node_)->children) : nullptr;
    return child == nullptr ? XmlNode() : XmlNode(owner_, child);
}

XmlNode XmlNode::NextSibling() const {
    if (node_ == nullptr)
        return {};
    const xmlNode* next = nullptr;
    if (node_ == DeclarationMark())
        next = owner_->document->children;
    else
        next = IsText(Raw(node_)) ? EndOfRun(Raw(node_)) : Raw(node_)->next;
    next = SkipBlankText(next);
    return next == nullptr ? XmlNode() : XmlNode(owner_, next);
}

std::vector<std::pair<std::string, std::string>> XmlNode::Attributes() const {
    std::vector<std::pair<std::string, std::string>> attributes;
    if (!IsElement())
        return attributes;
    for (const xmlAttr* attribute = Raw(node_)->properties; attribute != nullptr;
         attribute = attribute->next) {
        std::string value;
        for (const xmlNode* text = attribute->children; text != nullptr; text = text->next)
            value += View(text->content);
        attributes.emplace_back(QualifiedName(attribute->ns, attribute->name), std::move(value));
    }
    return attributes;
}

XmlDocument::XmlDocument(const std::string& path) {
    LoadState state;
    state.folder = FolderOf(path);
    xmlDocPtr tree = nullptr;
    try {
        const std::string bytes = ReadFile(path);
        tree = Parse(bytes, path, state);
    } catch (const Error& error) {
        state.Note(Weight::fatal, error.Description(), 0);
    }
    if (tree != nullptr) {
        owner_ = std::make_shared<const XmlNode::Owner>(tree, path);
        return;
    }
    reason_ = state.reason;
    line_ = state.line;
}

XmlNode XmlDocument::FirstNode() const {
    if (!owner_)
        return {};
    if (HasDeclaration(owner_->document))
        return XmlNode(owner_, DeclarationMark());
    return owner_->document->children == nullptr ? XmlNode() : XmlNode(owner_, owner_->document->children);
}

}  // namespace tovarek
