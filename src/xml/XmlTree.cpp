#include "xml/XmlTree.h"

#include <climits>

#include "base/Error.h"
#include "xml/XmlText.h"

namespace tovarek {
namespace {

const xmlNode* Raw(const void* node) {
    return static_cast<const xmlNode*>(node);
}

const xmlAttr* FirstAttribute(const XmlNode& node, const void* raw) {
    return node.IsElement() ? Raw(raw)->properties : nullptr;
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

// Stands for the XML declaration, which the library does not keep as a node.
const xmlNode* DeclarationMark() {
    static const xmlNode mark{};
    return &mark;
}

// Stands for a host's node until it is copied.
const xmlNode* HostMark() {
    static const xmlNode mark{};
    return &mark;
}

bool HasDeclaration(const xmlDoc* document) {
    // -1 is the library's word for "no declaration"; one without "standalone" is -2.
    return document->standalone != -1;
}

}  // namespace

XmlNode XmlNodeAccess::Make(XmlTree tree, const xmlNode* node) {
    return {std::make_shared<const XmlNode::Owner>(XmlNode::Owner{{std::move(tree), {}}, {}, {}}), node};
}

XmlNode XmlNodeAccess::Make(std::unique_ptr<const XmlHostNode> host) {
    return {std::make_shared<const XmlNode::Owner>(XmlNode::Owner{{}, {}, std::move(host)}), HostMark()};
}

const XmlHostNode* XmlNodeAccess::HostOf(const XmlNode& node) {
    return node.owner_ ? node.owner_->host.get() : nullptr;
}

XmlNode XmlNode::Current() const {
    return owner_ && owner_->host ? owner_->host->Copy() : *this;
}

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

std::string XmlNode::Comment() const {
    return Kind() == XmlNodeKind::comment ? std::string(View(Raw(node_)->content)) : std::string();
}

int XmlNode::Line() const {
    if (node_ == DeclarationMark())
        return 1;
    if (const int line = Place().line; line > 0)
        return line;
    const long line = xmlGetLineNo(Raw(node_));
    return line > 0 && line <= INT_MAX ? static_cast<int>(line) : 0;
}

const XmlPlace& XmlNode::Place() const {
    static const XmlPlace none;
    const void* const place = IsElement() ? Raw(node_)->psvi : nullptr;
    return place == nullptr ? none : *static_cast<const XmlPlace*>(place);
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
        next = owner_->document.tree->children;
    else
        next = IsText(Raw(node_)) ? EndOfRun(Raw(node_)) : Raw(node_)->next;
    next = SkipBlankText(next);
    return next == nullptr ? XmlNode() : XmlNode(owner_, next);
}

std::vector<std::pair<std::string, std::string>> XmlNode::Attributes() const {
    std::vector<std::pair<std::string, std::string>> attributes;
    for (const xmlAttr* attribute = FirstAttribute(*this, node_); attribute != nullptr;
         attribute = attribute->next) {
        std::string value;
        for (const xmlNode* text = attribute->children; text != nullptr; text = text->next)
            value += View(text->content);
        attributes.emplace_back(QualifiedName(attribute->ns, attribute->name), std::move(value));
    }
    return attributes;
}

std::vector<std::string> XmlNode::WrittenAttributes() const {
    std::vector<std::string> names;
    for (const xmlAttr* attribute = FirstAttribute(*this, node_); attribute != nullptr;
         attribute = attribute->next)
        if (attribute->psvi == nullptr)
            names.push_back(QualifiedName(attribute->ns, attribute->name));
    return names;
}

XmlDocument::XmlDocument(const std::string& path) {
    try {
        owner_ = std::make_shared<const XmlNode::Owner>(XmlNode::Owner{ParseXmlFile(path), path, {}});
    } catch (const XmlFault& fault) {
        reason_ = fault.reason;
        line_ = fault.line;
    } catch (const Error& error) {
        reason_ = error.Context().reason.empty() ? error.Description() : error.Context().reason;
    }
}

XmlNode XmlDocument::FirstNode() const {
    if (!owner_)
        return {};
    if (HasDeclaration(owner_->document.tree.get()))
        return XmlNode(owner_, DeclarationMark());
    return owner_->document.tree->children == nullptr ? XmlNode()
                                                      : XmlNode(owner_, owner_->document.tree->children);
}

}  // namespace tovarek
