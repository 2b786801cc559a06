#include "support/Dom_msxml.h"

#include "support/Bstr.h"
#include "support/Error.h"
#include "support/Variant.h"
#include "support/Wide.h"

namespace tovarek {

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

DomNode ChildOf(const DomNode& node) {
    DomNode child;
    if (TypeOf(node) != NODE_DOCUMENT_TYPE)
        Require(node->get_firstChild(child.Out()));
    return child;
}

namespace {

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

}  // namespace

DomNode SiblingOf(const DomNode& node, const DomNode& document) {
    if (document && TypeOf(node) == NODE_DOCUMENT_TYPE)
        return BehindDocumentType(document);
    DomNode next;
    Require(node->get_nextSibling(next.Out()));
    return next;
}

}  // namespace tovarek
