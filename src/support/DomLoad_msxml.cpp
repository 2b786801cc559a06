#include <algorithm>
#include <vector>

#include "support/Bstr.h"
#include "support/Dom_msxml.h"
#include "support/Files.h"
#include "support/Text.h"
#include "support/Variant.h"
#include "support/Wide.h"
#include "support/Xml.h"
#include "support/XmlPrefixes.h"

namespace tovarek {
namespace {

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

[[noreturn]] void Refuse(std::string reason) {
    throw DomRefusal{std::move(reason)};
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
    const bool isOnNetwork =
        name.find("://") != std::string::npos || name.starts_with("\\\\") || name.starts_with("//");
    if (isOnNetwork)
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

// Throws a DomRefusal when `fault` tells one.
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
    throw DomRefusal{text.empty() || text == "error" ? "not an XML document" : text,
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

// Refuses what the tree must not hold: elements without end, and entities that nobody could follow.
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
            Refuse("external entities are not read: " + NameOf(node));
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

}  // namespace

LoadedDom LoadDom(const std::string& path) {
    std::string bytes = ReadFile(path);
    XmlProlog prolog(bytes);
    const bool hasDtdFile = !prolog.SystemId().empty();
    if (hasDtdFile) {
        // The parser does not know where bytes come from, so it is told where the DTD file lies.
        const std::string dtd = ReadDtd(path, prolog);
        bytes = prolog.ForParser(prolog.WithMarkupExpanded(bytes), FileUrl(dtd));
    } else if (prolog.HasDocumentType()) {
        bytes = prolog.WithMarkupExpanded(bytes);
    } else {
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
    return {std::move(node), std::make_shared<const DomSource>(DomSource{path, std::move(prolog)})};
}

}  // namespace tovarek
