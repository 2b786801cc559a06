// XML documents. The system needs little of them: load a document, walk its nodes in order, read names, texts
// and attributes.
//
// What every document keeps to:
// - With a document type declaration it must be valid, without one only well-formed. An external DTD is read
//   from a file beside the document; a missing one fails the load. No network and no other external entity.
// - Internal entities are expanded into the text around them; documents that expand without measure are
//   refused.
// - Text nodes of nothing but white space do not exist. Other texts keep their white space. CDATA is not
//   text.
// - Names are qualified names, prefix included; a prefix need not be declared.
// - Elements nested deeper than kDeepestXml levels fail the load, so whoever walks a tree may recurse.
//
// On Windows nodes come from hosts as well. They are copied as they are: nothing is validated, neighbouring
// texts stay two, attributes are left out.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tovarek {

inline constexpr int kDeepestXml = 256;

// Numbered like the node types of the DOM.
enum class XmlNodeKind {
    none = 0,
    element = 1,
    text = 3,
    cdata = 4,
    processingInstruction = 7,  // the XML declaration is one as well
    comment = 8,
    documentType = 10,
    other = 12,
};

// Where the start tag of an element stands.
struct XmlPlace {
    int line = 0;            // 1-based, of its "<"; 0 when unknown
    int column = 0;          // of its "<", in characters from 1; 0 when unknown or inside an entity
    int width = 0;           // of what stands of it in that line, in characters
    std::size_t number = 0;  // of the element in its document, from 1; 0 when unknown
};

// One node, or nothing. A node keeps its document alive; copies are cheap.
class XmlNode {
  public:
    XmlNode() = default;

    explicit operator bool() const { return node_ != nullptr; }

    // The node as it is now, to be read. A host may change a node of its own at any time: such a node is
    // copied here and says nothing before; any other one is itself. Raises runtime error 57 when the host's
    // DOM fails, 28 for elements nested deeper than kDeepestXml.
    XmlNode Current() const;

    bool IsElement() const { return Kind() == XmlNodeKind::element; }

    XmlNodeKind Kind() const;
    // The qualified name of an element; empty for other kinds.
    std::string Name() const;
    // The text of a text node, entities expanded; empty for other kinds.
    std::string Text() const;
    // The text of a comment; empty for other kinds.
    std::string Comment() const;
    // 1-based line in the file, of an element that of its start tag; 0 when unknown and for a node that a
    // host handed over.
    int Line() const;
    // Of an element of a file; the same whenever that file is loaded. Unknown for what a host handed over and
    // for what an entity repeats.
    const XmlPlace& Place() const;
    // Path of the file that the node was loaded from, empty for a node that a host handed over.
    const std::string& File() const;

    XmlNode FirstChild() const;
    XmlNode NextSibling() const;
    // Names and values of an element's attributes, in document order.
    std::vector<std::pair<std::string, std::string>> Attributes() const;
    // The names of those that the document itself gives, in its order: none that the document type definition
    // supplies, no declarations of namespaces.
    std::vector<std::string> WrittenAttributes() const;

  private:
    friend class XmlDocument;
    friend struct XmlNodeAccess;  // the reader's own door
    struct Owner;
    XmlNode(std::shared_ptr<const Owner> owner, const void* node) : owner_(std::move(owner)), node_(node) {}

    std::shared_ptr<const Owner> owner_;
    const void* node_ = nullptr;
};

// A document, or nothing. Loading raises no error.
class XmlDocument {
  public:
    // Loads the document at `path`. When that fails in any way the document is empty and Reason and Line tell
    // why.
    explicit XmlDocument(const std::string& path);

    bool IsLoaded() const { return owner_ != nullptr; }
    // Why the document could not be loaded.
    const std::string& Reason() const { return reason_; }
    // The line of the fault, 0 when unknown.
    int Line() const { return line_; }

    // The first document-level node: the XML declaration, a comment, a processing instruction, the document
    // type declaration or the document element.
    XmlNode FirstNode() const;

  private:
    std::shared_ptr<const XmlNode::Owner> owner_;
    std::string reason_;
    int line_ = 0;
};

// The path of the DTD file of the document at `path`, which is read up to that name. Empty when the document
// names none, cannot be read, or is no regular file: a pipe gives its bytes only once.
std::string DtdFileOf(const std::string& path);

}  // namespace tovarek
