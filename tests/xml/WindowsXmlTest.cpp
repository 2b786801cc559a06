// The nodes of hosts.
#include <gtest/gtest.h>
#include <windows.h>
// The header wants the types of windows.h.
#include <msxml2.h>

#include <string>

#include "Scratch.h"
#include "support/CTools.h"
#include "system/Bstr.h"
#include "system/ComPtr.h"
#include "system/Wide.h"
#include "xml/XmlHost.h"

namespace tovarek::test {
namespace {

// A document as a script makes it.
class HostDocument {
  public:
    explicit HostDocument(const std::string& text, bool keepsBlanks = false) {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        CLSID id{};
        CLSIDFromProgID(L"MSXML2.DOMDocument", &id);
        CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLDOMDocument, document_.OutVoid());
        document_->put_async(VARIANT_FALSE);
        document_->put_validateOnParse(VARIANT_FALSE);
        document_->put_preserveWhiteSpace(keepsBlanks ? VARIANT_TRUE : VARIANT_FALSE);
        VARIANT_BOOL isLoaded = VARIANT_FALSE;
        BSTR source = SysAllocString(ToWide(text).c_str());
        document_->loadXML(source, &isLoaded);
        SysFreeString(source);
        EXPECT_EQ(isLoaded, VARIANT_TRUE) << text;
    }
    IXMLDOMDocument* Get() const { return document_.Get(); }
    ComPtr<IXMLDOMElement> Root() const {
        ComPtr<IXMLDOMElement> root;
        document_->get_documentElement(root.Out());
        return root;
    }

  private:
    ComPtr<IXMLDOMDocument> document_;
};

// The children as they are now: elements by name, texts in brackets, "-" for what only parts them.
std::string Children(const XmlNode& parent) {
    std::string shown;
    for (XmlNode child = parent.Current().FirstChild(); child; child = child.NextSibling())
        shown += (child.IsElement()                   ? child.Name()
                  : child.Kind() == XmlNodeKind::text ? "[" + child.Text() + "]"
                                                      : "-") +
                 " ";
    return shown;
}

// Appends what `made` answers to `parent`.
template <class Made>
void Append(IXMLDOMNode* parent, const ComPtr<Made>& made) {
    ComPtr<IXMLDOMNode> added;
    EXPECT_EQ(parent->appendChild(made.Get(), added.Out()), S_OK);
}
ComPtr<IXMLDOMText> TextOf(const HostDocument& host, const wchar_t* text) {
    ComPtr<IXMLDOMText> made;
    EXPECT_EQ(host.Get()->createTextNode(Bstr(text).Get(), made.Out()), S_OK);
    return made;
}
ComPtr<IXMLDOMElement> ElementOf(const HostDocument& host, const wchar_t* name) {
    ComPtr<IXMLDOMElement> made;
    EXPECT_EQ(host.Get()->createElement(Bstr(name).Get(), made.Out()), S_OK);
    return made;
}

TEST(WindowsXml, AHostsNodeIsCopiedAsItIs) {
    const std::string type = "<!DOCTYPE t [<!ELEMENT t ANY><!ENTITY e 'ent'><!ENTITY s ' '>]>";
    const std::pair<std::string, const char*> rows[] = {
        {"<t k='1' xmlns:n='urn:x'>\n <a/> x <n:b/><!-- c -->\n</t>", "a [ x ] n:b - "},
        {"<t>x<![CDATA[y]]>z<?p?></t>", "[x] - [z] - "},
        {"<t>a&#13;b</t>", "[a\rb] "},
        {type + "<t>a&e;b</t>", "[aentb] "},
        {type + "<t>&e;</t>", "[ent] "},
        {type + "<t>&s;<!-- -->\n&s;</t>", "- "},
        {"<!DOCTYPE other [<!ELEMENT other EMPTY>]><t><a/></t>", "a "},
    };
    for (const auto& [text, children] : rows)
        for (const bool keepsBlanks : {false, true}) {
            const HostDocument host(text, keepsBlanks);
            const XmlNode node = NodeOfHost(host.Root().Get()).Current();
            EXPECT_EQ(node.Name(), "t");
            EXPECT_EQ(node.File(), "");
            EXPECT_EQ(node.Line(), 0);
            EXPECT_EQ(Children(node), children) << text;
        }
}

TEST(WindowsXml, TheCopyIsTheNodeAsItNowIs) {
    const HostDocument host("<t>one<u/>two<v/> <w/>three</t>");
    const auto root = host.Root();
    const XmlNode node = NodeOfHost(root.Get());
    EXPECT_EQ(Children(node), "[one] u [two] v w [three] ");
    // What parted them goes, and the texts stay neighbours.
    for (const wchar_t* const name : {L"u", L"v", L"w"}) {
        ComPtr<IXMLDOMNode> element;
        ComPtr<IXMLDOMNode> removed;
        ASSERT_EQ(root->selectSingleNode(Bstr(name).Get(), element.Out()), S_OK);
        EXPECT_EQ(root->removeChild(element.Get(), removed.Out()), S_OK);
    }
    ComPtr<IXMLDOMComment> comment;
    ASSERT_EQ(host.Get()->createComment(Bstr(L"a--b").Get(), comment.Out()), S_OK);
    Append(root.Get(), comment);
    EXPECT_EQ(Children(node), "[one] - [two] - [three] - ");
    EXPECT_EQ(CTools().nodeTextValue(node.Current()), "one");
}

TEST(WindowsXml, DocumentsAndFragmentsAreWalkedLikeElements) {
    const HostDocument host("<?xml version='1.0'?><!DOCTYPE t [<!ELEMENT t ANY>]><t><a/></t>");
    EXPECT_EQ(Children(NodeOfHost(host.Get())), "- - t ");
    ComPtr<IXMLDOMDocumentFragment> fragment;
    ASSERT_EQ(host.Get()->createDocumentFragment(fragment.Out()), S_OK);
    Append(fragment.Get(), ElementOf(host, L"b"));
    Append(fragment.Get(), TextOf(host, L"x"));
    EXPECT_EQ(Children(NodeOfHost(fragment.Get())), "b [x] ");
    const auto text = TextOf(host, L"x");
    EXPECT_TRUE(NodeOfHost(text.Get()));
    EXPECT_EQ(Children(NodeOfHost(text.Get())), "") << "a node without elements";
}

TEST(WindowsXml, ElementsNestToTheLimitAndNoDeeper) {
    const HostDocument host("<t/>");
    const auto root = host.Root();
    ComPtr<IXMLDOMElement> innermost = root;
    const auto nest = [&] {
        const auto inner = ElementOf(host, L"a");
        Append(innermost.Get(), inner);
        innermost = inner;
    };
    for (int level = 2; level <= kDeepestXml; ++level)
        nest();
    EXPECT_EQ(RaisedNumber([&] { NodeOfHost(root.Get()).Current(); }), 0);
    nest();
    EXPECT_EQ(RaisedNumber([&] { NodeOfHost(root.Get()).Current(); }), 28);
    EXPECT_EQ(RaisedNumber([&] { NodeOfHost(host.Get()).Current(); }), 28);
}

TEST(WindowsXml, AHostGetsItsObjectBackAndNothingElseIsANode) {
    const HostDocument host("<t/>");
    const auto root = host.Root();
    IDispatch* const object = root.Get();
    const XmlNode node = NodeOfHost(object);
    EXPECT_EQ(HostObject(node), object);
    EXPECT_EQ(HostObject(node.Current()), nullptr);
    EXPECT_FALSE(NodeOfHost(nullptr));
    ComPtr<IXMLDOMImplementation> other;
    host.Get()->get_implementation(other.Out());
    ASSERT_TRUE(other);
    EXPECT_FALSE(NodeOfHost(other.Get()));
    EXPECT_EQ(HostObject(XmlNode()), nullptr);
}

TEST(WindowsXml, ANodeKeepsItsDocumentAlive) {
    XmlNode node;
    {
        const HostDocument host("<t><a>x</a></t>");
        node = NodeOfHost(host.Root().Get());
    }
    node = node.Current().FirstChild();
    EXPECT_EQ(CTools().nodeTextValue(node), "x");
}

}  // namespace
}  // namespace tovarek::test
