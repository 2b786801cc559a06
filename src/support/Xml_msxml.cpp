#include "support/Xml_msxml.h"

#include "support/Bstr.h"
#include "support/Dom_msxml.h"
#include "support/Error.h"
#include "support/Text.h"
#include "support/Wide.h"

namespace tovarek {

struct XmlNode::Owner {
    DomNode node;
    DomNode document;         // where the node stands; empty when the platform did not tell
    ComPtr<IDispatch> given;  // the object of the host, where the node came from one
    std::shared_ptr<const DomSource> source;

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

// What an entity stands for. The reference itself may not tell. Where the document's declarations are known,
// they do; else an element that holds the reference does. The platform trims the text of an element, so the
// reference stands between two marks there.
std::wstring ExpansionOf(const DomNode& reference, const DomSource* source) {
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

bool IsText(DOMNodeType type) {
    return type == NODE_TEXT || type == NODE_ENTITY_REFERENCE;
}

// References stand in the tree between the texts around them; for us they are one text, and its first node
// stands for it. Two texts without a reference between them, as only a host makes them, stay two.
bool BelongTogether(DOMNodeType type, DOMNodeType next) {
    return next == NODE_ENTITY_REFERENCE || (type == NODE_ENTITY_REFERENCE && next == NODE_TEXT);
}

// One text: `text` is told, the node behind it answered.
DomNode ReadRun(const DomNode& first, const DomSource* source, std::wstring& text) {
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
DomNode SkipBlankText(DomNode node, const DomSource* source) {
    while (node && IsText(TypeOf(node))) {
        std::wstring text;
        DomNode next = ReadRun(node, source, text);
        if (!IsBlank(text))
            break;
        node = std::move(next);
    }
    return node;
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
        const LoadedDom loaded = LoadDom(path);
        owner_ = std::make_shared<const XmlNode::Owner>(
            XmlNode::Owner{loaded.document, loaded.document, {}, loaded.source});
    } catch (const DomRefusal& refusal) {
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
