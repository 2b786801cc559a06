// The trees behind the nodes; inside the XML reader only.
#pragma once

#include <libxml/tree.h>

#include <deque>
#include <memory>
#include <string>
#include <utility>

#include "xml/Xml.h"

namespace tovarek {

struct FreeXmlTree {
    void operator()(xmlDocPtr tree) const { xmlFreeDoc(tree); }
};
using XmlTree = std::unique_ptr<xmlDoc, FreeXmlTree>;

// A document as it was read. The places are those of its elements, which point to them (`psvi`); an attribute
// that a document type definition supplies points to itself there.
struct ParsedXml {
    XmlTree tree;
    std::deque<XmlPlace> places;
};

// Loads the document at `path`. Throws an XmlFault, or raises a runtime error when the file cannot be read.
ParsedXml ParseXmlFile(const std::string& path);

// Why a document with more than kDeepestXml levels is refused, wherever that is noticed.
std::string TooDeepReason();

// A node that somebody else keeps and may change.
struct XmlHostNode {
    XmlHostNode() = default;
    virtual ~XmlHostNode() = default;
    XmlHostNode(const XmlHostNode&) = delete;
    XmlHostNode& operator=(const XmlHostNode&) = delete;

    // The node as it is now, in a tree of its own.
    virtual XmlNode Copy() const = 0;
};

struct XmlNode::Owner {
    ParsedXml document;
    std::string file;
    std::unique_ptr<const XmlHostNode> host;  // instead of a document
};

struct XmlNodeAccess {
    static XmlNode Make(XmlTree tree, const xmlNode* node);
    static XmlNode Make(std::unique_ptr<const XmlHostNode> host);
    // Null for a node of a tree.
    static const XmlHostNode* HostOf(const XmlNode& node);
};

}  // namespace tovarek
