#include "support/Xml_msxml.h"

#include <windows.h>
// The header wants the types of windows.h.
#include <msxml2.h>

#include <algorithm>
#include <cstring>

#include "support/Bstr.h"
#include "support/ComPtr.h"
#include "support/Files.h"
#include "support/Text.h"
#include "support/Wide.h"
#include "support/XmlPrefixes.h"
#include "support/XmlProlog.h"

// No library holds the identifier of this interface.
__CRT_UUID_DECL(IXMLDOMDocument2, 0x2933BF95, 0x7B36, 0x11D2, 0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60)

namespace tovarek {

using DomNode = ComPtr<IXMLDOMNode>;

// What is known of a document beside its tree; nothing of a host's document.
struct XmlSource {
    std::string file;
    XmlProlog prolog;
};

struct XmlNode::Owner {
    DomNode node;
    DomNode document;         // where the node stands; empty when the platform did not tell
    ComPtr<IDispatch> given;  // the object of the host, where the node came from one
    std::shared_ptr<const XmlSource> source;

    // Another node of the same document.
    Owner With(DomNode other) const { return {std::move(other), document, {}, source}; }
};

struct XmlNodeAccess {
    static XmlNode Make(XmlNode::Owner owner) {
        if (!owner.node)
            return {};
        const void* const identity = owner.node.Get();
        return {std::make_shared<const XmlNode::Owner>(std::move(owner)), identity};
    }
    static const XmlNode::Owner* Open(const XmlNode& node) { return node.owner_.get(); }
};

namespace {

class Variant {
  public:
    Variant() { VariantInit(&value_); }
    ~Variant() { VariantClear(&value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    VARIANT& Get() { return value_; }

    // `bytes` as an array, which the parser decodes as it would decode a file.
    void SetBytes(std::string_view bytes) {
        SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
        if (array == nullptr)
            throw std::bad_alloc();
        value_.vt = VT_ARRAY | VT_UI1;
        value_.parray = array;
        void* data = nullptr;
        if (SUCCEEDED(SafeArrayAccessData(array, &data))) {
            std::memcpy(data, bytes.data(), bytes.size());
            SafeArrayUnaccessData(array);
        }
    }

  private:
    VARIANT value_{};
};

// A DOM of a host may live elsewhere and stop to answer; that must not look like the end of a list.
void Require(HRESULT status) {
    if (SUCCEEDED(status))
        return;
    if (status == E_OUTOFMEMORY)
        throw std::bad_alloc();
    RaiseRuntimeError(RuntimeError::deviceIoError,
                      {.reason = "the XML node cannot be read (status " + std::to_string(status) + ")"});
}

DOMNodeType TypeOf(const DomNode& node) {
    DOMNodeType type = NODE_INVALID;
    Require(node->get_nodeType(&type));
    return type;
}

std::string NameOf(const DomNode& node) {
    Bstr name;
    Require(node->get_nodeName(name.Out()));
    return FromWide(name.View());
}

// Behind a document type declaration: the platform may not know its siblings, but the document knows its
// children.
DomNode BehindDocumentType(const DomNode& document) {
    ComPtr<IXMLDOMNodeList> children;
    LONG count = 0;
    Require(document->get_childNodes(children.Out()));
    Require(children->get_length(&count));
    bool isBehind = false;
    for (LONG i = 0; i < count; ++i) {
        DomNode child;
        Require(children->get_item(i, child.Out()));
        if (isBehind)
            return child;
        isBehind = TypeOf(child) == NODE_DOCUMENT_TYPE;
    }
    return {};
}

// `document` is where the node stands; empty when that is unknown.
DomNode SiblingOf(const DomNode& node, const DomNode& document) {
    if (document && TypeOf(node) == NODE_DOCUMENT_TYPE)
        return BehindDocumentType(document);
    DomNode next;
    Require(node->get_nextSibling(next.Out()));
    return next;
}

DomNode ChildOf(const DomNode& node) {
    DomNode child;
    // The declarations inside a document type declaration are no content.
    if (TypeOf(node) != NODE_DOCUMENT_TYPE)
        Require(node->get_firstChild(child.Out()));
    return child;
}

// What an entity stands for. The reference itself may not tell. Where the document's declarations are known,
// they do; else an element that holds the reference does. The platform trims the text of an element, so the
// reference stands between two marks there.
std::wstring ExpansionOf(const DomNode& reference, const XmlSource* source) {
    if (source != nullptr)
        if (const auto text = source->prolog.TextOf(NameOf(reference)); text && IsAscii(*text))
            return ToWide(*text);
    ComPtr<IXMLDOMDocument> document;
    ComPtr<IXMLDOMElement> holder;
    DomNode copy;
    Bstr text;
    Require(reference->get_ownerDocument(document.Out()));
    Require(document->createElement(Bstr(L"holder").Get(), holder.Out()));
    Require(reference->cloneNode(VARIANT_TRUE, copy.Out()));
    const auto append = [&](IXMLDOMNode* node) {
        DomNode added;
        Require(holder->appendChild(node, added.Out()));
    };
    const auto appendMark = [&] {
        ComPtr<IXMLDOMText> mark;
        Require(document->createTextNode(Bstr(L"|").Get(), mark.Out()));
        append(mark.Get());
    };
    appendMark();
    append(copy.Get());
    appendMark();
    Require(holder->get_text(text.Out()));
    const std::wstring_view marked = text.View();
    return marked.size() < 2 ? std::wstring() : std::wstring(marked.substr(1, marked.size() - 2));
}

// The value of the node itself: get_text is trimmed, and the typed value is that of the whole parent element.
std::wstring ValueOf(const DomNode& node) {
    Variant value;
    Require(node->get_nodeValue(&value.Get()));
    return value.Get().vt == VT_BSTR ? std::wstring(ViewOf(value.Get().bstrVal)) : std::wstring();
}

bool IsText(DOMNodeType type) {
    return type == NODE_TEXT || type == NODE_ENTITY_REFERENCE;
}

// References stand in the tree between the texts around them; for us they are one text, and its first node
// stands for it. Two texts without a reference between them, as only a host makes them, stay two.
bool BelongTogether(DOMNodeType type, DOMNodeType next) {
    return next == NODE_ENTITY_REFERENCE || (type == NODE_ENTITY_REFERENCE && next == NODE_TEXT);
}

// One text: `text` is told, the node behind it answered.
DomNode ReadRun(const DomNode& first, const XmlSource* source, std::wstring& text) {
    DomNode node = first;
    DOMNodeType type = TypeOf(node);
    while (true) {
        text += type == NODE_TEXT ? ValueOf(node) : ExpansionOf(node, source);
        DomNode next;
        Require(node->get_nextSibling(next.Out()));
        if (!next)
            return {};
        const DOMNodeType nextType = TypeOf(next);
        if (!BelongTogether(type, nextType))
            return next;
        node = std::move(next);
        type = nextType;
    }
}

bool IsBlank(const std::wstring& text) {
    return text.find_first_not_of(L" \t\r\n") == std::wstring::npos;
}

// The first node from `node` on that exists for us.
DomNode SkipBlankText(DomNode node, const XmlSource* source) {
    while (node && IsText(TypeOf(node))) {
        std::wstring text;
        DomNode next = ReadRun(node, source, text);
        if (!IsBlank(text))
            break;
        node = std::move(next);
    }
    return node;
}

// ---- loading ----

// Why a document is refused.
struct Refusal {
    std::string reason;
    int line = 0;
};

ComPtr<IXMLDOMDocument2> NewDocument() {
    CLSID id{};
    ComPtr<IXMLDOMDocument2> document;
    Require(CLSIDFromProgID(L"MSXML2.DOMDocument", &id));
    const auto create = [&] {
        return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IXMLDOMDocument2),
                                document.OutVoid());
    };
    HRESULT status = create();
    if (status == CO_E_NOTINITIALIZED) {
        // A C++ program that knows nothing of COM. It keeps it until it ends: nodes may outlive every scope
        // of ours.
        Require(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
        status = create();
    }
    Require(status);
    return document;
}

void Refuse(std::string reason) {
    throw Refusal{std::move(reason)};
}

// The file at `path` as an ASCII URL, whatever its name is made of.
std::string FileUrl(const std::string& path) {
    std::wstring full(32768, L'\0');
    const DWORD length =
        GetFullPathNameW(ToWide(path).c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length == 0 || length >= full.size())
        Refuse("the document type definition '" + path + "' has no full name");
    std::string name = FromWide(std::wstring_view(full).substr(0, length));
    std::replace(name.begin(), name.end(), '\\', '/');
    std::string url = name.starts_with("//") ? "file:" : "file:///";
    constexpr std::string_view kPlain = "/:-._~";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        const char upper = AsciiUpper(c);
        if (IsDigit(c) || (upper >= 'A' && upper <= 'Z') || kPlain.find(c) != std::string_view::npos)
            url += c;
        else
            url.append({'%', kDigits[byte >> 4U], kDigits[byte & 0xFU]});
    }
    return url;
}

// Reads the document's own DTD file into `prolog` and answers its path; nothing else outside the document is
// read.
std::string ReadDtd(const std::string& path, XmlProlog& prolog) {
    const std::string& name = prolog.SystemId();
    if (name.find("://") != std::string::npos)
        Refuse("the document type definition '" + name + "' is not a file beside the document");
    const bool isAbsolute =
        name.starts_with('\\') || name.starts_with('/') || name.find(':') != std::string::npos;
    const std::size_t folderEnd = path.find_last_of("\\/:");
    const std::string folder = folderEnd == std::string::npos ? std::string() : path.substr(0, folderEnd + 1);
    std::string dtd = isAbsolute ? name : folder + name;
    try {
        prolog.ReadExternalPart(ReadFile(dtd));
    } catch (const Error& error) {
        Refuse("the document type definition '" + name + "' cannot be read: " + error.Description());
    }
    return dtd;
}

// Throws a Refusal when `fault` tells one.
void CheckFault(IXMLDOMParseError* fault) {
    LONG code = 0;
    if (fault == nullptr || FAILED(fault->get_errorCode(&code)) || code == 0)
        return;
    Bstr reason;
    LONG line = 0;
    fault->get_reason(reason.Out());
    fault->get_line(&line);
    std::string text = FromWide(reason.View());
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.pop_back();
    throw Refusal{text.empty() || text == "error" ? "not an XML document" : text,
                  static_cast<int>(std::max(line, 0L))};
}

// The bytes that were looked at are the bytes that are parsed, whatever the file's name is made of.
void Parse(IXMLDOMDocument2& document, std::string_view bytes, bool hasDtdFile) {
    Variant source;
    source.SetBytes(bytes);
    Require(document.put_async(VARIANT_FALSE));
    Require(document.put_validateOnParse(VARIANT_TRUE));
    Require(document.put_resolveExternals(hasDtdFile ? VARIANT_TRUE : VARIANT_FALSE));
    // Blank texts are skipped by us; the others must keep their white space.
    Require(document.put_preserveWhiteSpace(VARIANT_TRUE));

    VARIANT_BOOL isLoaded = VARIANT_FALSE;
    ComPtr<IXMLDOMParseError> fault;
    Require(document.load(source.Get(), &isLoaded));
    Require(document.get_parseError(fault.Out()));
    CheckFault(fault.Get());
    if (isLoaded == VARIANT_FALSE)
        Refuse("not an XML document");
}

// The parser may have loaded a document that does not follow its document type definition.
void Validate(IXMLDOMDocument2& document) {
    ComPtr<IXMLDOMDocumentType> declaration;
    ComPtr<IXMLDOMParseError> fault;
    if (FAILED(document.get_doctype(declaration.Out())) || !declaration)
        return;
    const HRESULT status = document.validate(fault.Out());
    CheckFault(fault.Get());
    if (status != S_OK)
        Refuse("the document does not follow its document type definition");
}

// Refuses what the tree must not hold: elements without end, and entities that stand for more than text.
void CheckTree(const DomNode& document, const XmlProlog& prolog) {
    std::vector<DomNode> path;  // from the document down to the node before the one at hand
    DomNode node = ChildOf(document);
    while (node || !path.empty()) {
        if (!node) {
            node = SiblingOf(path.back(), document);
            path.pop_back();
            continue;
        }
        const DOMNodeType type = TypeOf(node);
        if (type == NODE_ENTITY_REFERENCE && !prolog.IsPlainText(NameOf(node)))
            Refuse("only entities that stand for plain text are read: " + NameOf(node));
        if (type == NODE_ELEMENT) {
            if (path.size() >= static_cast<std::size_t>(kDeepestXml))
                Refuse("elements are nested deeper than " + std::to_string(kDeepestXml) + " levels");
            DomNode child = ChildOf(node);
            path.push_back(std::move(node));
            node = std::move(child);
        } else {
            node = SiblingOf(node, document);
        }
    }
}

struct Loaded {
    DomNode document;
    std::shared_ptr<const XmlSource> source;
};

Loaded Load(const std::string& path) {
    std::string bytes = ReadFile(path);
    XmlProlog prolog(bytes);
    const bool hasDtdFile = !prolog.SystemId().empty();
    if (hasDtdFile) {
        // The parser does not know where bytes come from, so it is told where the DTD file lies.
        const std::string dtd = ReadDtd(path, prolog);
        bytes = prolog.ForParser(bytes, FileUrl(dtd));
    } else if (!prolog.HasDocumentType()) {
        bytes = WithPrefixesDeclared(bytes);
    }
    if (prolog.UsesExternalParameters())
        Refuse("external entities are not read");
    const ComPtr<IXMLDOMDocument2> document = NewDocument();
    Parse(*document.Get(), bytes, hasDtdFile);
    Validate(*document.Get());
    DomNode node;
    Require(document->QueryInterface(IID_IXMLDOMNode, node.OutVoid()));
    CheckTree(node, prolog);
    return {std::move(node), std::make_shared<const XmlSource>(XmlSource{path, std::move(prolog)})};
}

}  // namespace

XmlNode NodeOfHost(IDispatch* object) {
    DomNode node;
    if (object == nullptr || FAILED(object->QueryInterface(IID_IXMLDOMNode, node.OutVoid())))
        return {};
    DomNode document;
    ComPtr<IXMLDOMDocument> owner;
    if (TypeOf(node) == NODE_DOCUMENT)
        document = node;
    else if (SUCCEEDED(node->get_ownerDocument(owner.Out())) && owner)
        Require(owner->QueryInterface(IID_IXMLDOMNode, document.OutVoid()));
    return XmlNodeAccess::Make(
        {std::move(node), std::move(document), ComPtr<IDispatch>::Share(object), nullptr});
}

IDispatch* HostObject(const XmlNode& node) {
    const auto* const owner = XmlNodeAccess::Open(node);
    return owner == nullptr ? nullptr : owner->given.Get();
}

XmlNodeKind XmlNode::Kind() const {
    if (!owner_)
        return XmlNodeKind::none;
    switch (TypeOf(owner_->node)) {
        case NODE_ELEMENT:
            return XmlNodeKind::element;
        case NODE_TEXT:
        case NODE_ENTITY_REFERENCE:
            return XmlNodeKind::text;
        case NODE_CDATA_SECTION:
            return XmlNodeKind::cdata;
        case NODE_PROCESSING_INSTRUCTION:
            return XmlNodeKind::processingInstruction;
        case NODE_COMMENT:
            return XmlNodeKind::comment;
        case NODE_DOCUMENT_TYPE:
            return XmlNodeKind::documentType;
        default:
            return XmlNodeKind::other;
    }
}

std::string XmlNode::Name() const {
    return IsElement() ? NameOf(owner_->node) : std::string();
}

std::string XmlNode::Text() const {
    if (Kind() != XmlNodeKind::text)
        return {};
    std::wstring text;
    ReadRun(owner_->node, owner_->source.get(), text);
    return FromWide(text);
}

int XmlNode::Line() const {
    return 0;
}

const std::string& XmlNode::File() const {
    static const std::string none;
    return owner_ && owner_->source ? owner_->source->file : none;
}

XmlNode XmlNode::FirstChild() const {
    return owner_
               ? XmlNodeAccess::Make(owner_->With(SkipBlankText(ChildOf(owner_->node), owner_->source.get())))
               : XmlNode();
}

XmlNode XmlNode::NextSibling() const {
    if (!owner_)
        return {};
    DomNode next;
    if (IsText(TypeOf(owner_->node))) {
        std::wstring text;
        next = ReadRun(owner_->node, owner_->source.get(), text);
    } else {
        next = SiblingOf(owner_->node, owner_->document);
    }
    return XmlNodeAccess::Make(owner_->With(SkipBlankText(std::move(next), owner_->source.get())));
}

std::vector<std::pair<std::string, std::string>> XmlNode::Attributes() const {
    std::vector<std::pair<std::string, std::string>> attributes;
    if (!IsElement())
        return attributes;
    ComPtr<IXMLDOMNamedNodeMap> map;
    LONG count = 0;
    Require(owner_->node->get_attributes(map.Out()));
    Require(map->get_length(&count));
    for (LONG i = 0; i < count; ++i) {
        DomNode attribute;
        Require(map->get_item(i, attribute.Out()));
        std::string name = NameOf(attribute);
        // Declarations of name spaces are no attributes.
        if (name != "xmlns" && !name.starts_with("xmlns:"))
            attributes.emplace_back(std::move(name), FromWide(ValueOf(attribute)));
    }
    return attributes;
}

XmlDocument::XmlDocument(const std::string& path) {
    try {
        const Loaded loaded = Load(path);
        owner_ = std::make_shared<const XmlNode::Owner>(
            XmlNode::Owner{loaded.document, loaded.document, {}, loaded.source});
    } catch (const Refusal& refusal) {
        reason_ = refusal.reason;
        line_ = refusal.line;
    } catch (const Error& error) {
        reason_ = error.Description();
        if (!error.Context().reason.empty())
            reason_ += ": " + error.Context().reason;
    }
}

XmlNode XmlDocument::FirstNode() const {
    return owner_
               ? XmlNodeAccess::Make(owner_->With(SkipBlankText(ChildOf(owner_->node), owner_->source.get())))
               : XmlNode();
}

}  // namespace tovarek
