// A host's node becomes a tree of ours, node by node; over text, neighbouring texts would merge and CR get
// lost.
#include <msxml2.h>
#include <windows.h>

#include "base/Error.h"
#include "system/Bstr.h"
#include "system/ComPtr.h"
#include "system/Variant.h"
#include "system/Wide.h"
#include "xml/XmlHost.h"
#include "xml/XmlTree.h"

namespace tovarek {
namespace {

using DomNode = ComPtr<IXMLDOMNode>;

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

std::wstring ValueOf(const DomNode& node) {
    // get_text is trimmed, and the typed value of a text is that of the whole parent element.
    Variant value;
    Require(node->get_nodeValue(&value.Get()));
    return value.Get().vt == VT_BSTR ? std::wstring(ViewOf(value.Get().bstrVal)) : std::wstring();
}

// What an entity stands for. The reference itself may not tell, an element that holds it does. The platform
// trims the text of an element, so the reference stands between two marks there.
std::wstring ExpansionOf(const DomNode& reference) {
    ComPtr<IXMLDOMDocument> document;
    ComPtr<IXMLDOMElement> holder;
    DomNode copy;
    Bstr text;
    Require(reference->get_ownerDocument(document.Out()));
    Require(document->createElement(Bstr(L"holder").Get(), holder.Out()));
    Require(reference->cloneNode(VARIANT_TRUE, copy.Out()));
    for (const bool isMark : {true, false, true}) {
        ComPtr<IXMLDOMText> mark;
        DomNode added;
        Require(document->createTextNode(Bstr(L"|").Get(), mark.Out()));
        Require(holder->appendChild(isMark ? mark.Get() : copy.Get(), added.Out()));
    }
    Require(holder->get_text(text.Out()));
    return text.View().size() < 2 ? L"" : std::wstring(text.View().substr(1, text.View().size() - 2));
}

// `made` stands behind the children of `parent` from now on.
xmlNodePtr Add(xmlNodePtr parent, xmlNodePtr made) {
    if (made == nullptr)
        throw std::bad_alloc();
    return xmlAddChild(parent, made);
}

const xmlChar* Raw(const std::string& text) {
    return reinterpret_cast<const xmlChar*>(text.c_str());
}

void AddText(xmlNodePtr parent, const std::wstring& text) {
    if (text.find_first_not_of(L" \t\r\n") == std::wstring::npos)
        return;
    // Two texts stay two; the library would make one of them.
    if (parent->last != nullptr && parent->last->type == XML_TEXT_NODE)
        Add(parent, xmlNewDocComment(parent->doc, nullptr));
    Add(parent, xmlNewDocText(parent->doc, Raw(FromWide(text))));
}

// `depth` is that of the children.
void CopyChildren(const DomNode& from, xmlNodePtr to, int depth) {
    // The list, because a document type declaration may not know its siblings.
    ComPtr<IXMLDOMNodeList> children;
    Require(from->get_childNodes(children.Out()));
    // References are one text with the texts around them; two texts without one between them are two.
    std::wstring text;
    DOMNodeType before = NODE_INVALID;
    for (DomNode child; Require(children->nextNode(child.Out())), child;) {
        const DOMNodeType type = TypeOf(child);
        const bool isReference = type == NODE_ENTITY_REFERENCE;
        if (!isReference && (type != NODE_TEXT || before != NODE_ENTITY_REFERENCE))
            AddText(to, std::exchange(text, {}));
        before = type;
        if (isReference || type == NODE_TEXT) {
            text += isReference ? ExpansionOf(child) : ValueOf(child);
        } else if (type == NODE_ELEMENT) {
            if (depth > kDeepestXml)
                RaiseRuntimeError(RuntimeError::outOfStackSpace, {.reason = TooDeepReason()});
            CopyChildren(child, Add(to, xmlNewDocNode(to->doc, nullptr, Raw(NameOf(child)), nullptr)),
                         depth + 1);
        } else {
            // CDATA, comments and the like: nobody reads them, they only part texts.
            Add(to, xmlNewDocComment(to->doc, nullptr));
        }
    }
    AddText(to, text);
}

struct DomHost : XmlHostNode {
    XmlNode Copy() const override {
        XmlTree tree(xmlNewDoc(nullptr));
        if (!tree)
            throw std::bad_alloc();
        const xmlNodePtr root = Add(reinterpret_cast<xmlNodePtr>(tree.get()),
                                    xmlNewDocNode(tree.get(), nullptr, Raw(NameOf(node)), nullptr));
        // All other kinds have no elements.
        const DOMNodeType type = TypeOf(node);
        if (type == NODE_ELEMENT || type == NODE_DOCUMENT || type == NODE_DOCUMENT_FRAGMENT)
            CopyChildren(node, root, type == NODE_ELEMENT ? 2 : 1);
        return XmlNodeAccess::Make(std::move(tree), root);
    }

    DomNode node;
    ComPtr<IDispatch> object;
};

}  // namespace

XmlNode NodeOfHost(IDispatch* object) {
    auto host = std::make_unique<DomHost>();
    if (object == nullptr || FAILED(object->QueryInterface(IID_IXMLDOMNode, host->node.OutVoid())))
        return {};
    host->object = ComPtr<IDispatch>::Share(object);
    return XmlNodeAccess::Make(std::move(host));
}

IDispatch* HostObject(const XmlNode& node) {
    const XmlHostNode* const host = XmlNodeAccess::HostOf(node);
    return host == nullptr ? nullptr : static_cast<const DomHost*>(host)->object.Get();
}

}  // namespace tovarek
