// Windows only: what the XML seam needs of the platform's DOM, with its quirks kept in here.
#pragma once

#include <windows.h>
// The header wants the types of windows.h.
#include <msxml2.h>

#include <memory>
#include <string>

#include "support/ComPtr.h"
#include "support/XmlProlog.h"

// No library holds the identifier of this interface.
__CRT_UUID_DECL(IXMLDOMDocument2, 0x2933BF95, 0x7B36, 0x11D2, 0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60)

namespace tovarek {

using DomNode = ComPtr<IXMLDOMNode>;

// Raises runtime error 57 for a status that is a failure, std::bad_alloc for a lack of memory. A DOM of a
// host may live elsewhere and stop to answer; that must not look like the end of a list.
void Require(HRESULT status);

DOMNodeType TypeOf(const DomNode& node);
// The qualified name.
std::string NameOf(const DomNode& node);
// The value of the node itself, untrimmed; empty when it has none.
std::wstring ValueOf(const DomNode& node);
// The first child; nothing below a document type declaration, whose declarations are no content.
DomNode ChildOf(const DomNode& node);
// The next sibling. `document` is where the node stands; empty when that is unknown.
DomNode SiblingOf(const DomNode& node, const DomNode& document);

// A document that was loaded from a file, and what is known of it beside its tree.
struct DomSource {
    std::string file;
    XmlProlog prolog;
};
struct LoadedDom {
    DomNode document;
    std::shared_ptr<const DomSource> source;
};

// Why a document was refused. An exception.
struct DomRefusal {
    std::string reason;
    int line = 0;  // 0 when unknown
};

// Loads the document at `path` as the XML seam demands it. Throws a DomRefusal, or raises a runtime error
// when the file cannot be read.
LoadedDom LoadDom(const std::string& path);

}  // namespace tovarek
