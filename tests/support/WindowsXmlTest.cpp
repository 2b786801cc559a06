// The nodes of hosts, and where the platform's parser differs.
#include <gtest/gtest.h>
#include <windows.h>
// The header wants the types of windows.h.
#include <msxml2.h>

#include <string>

#include "Scratch.h"
#include "support/CTools.h"
#include "support/ComPtr.h"
#include "support/Wide.h"
#include "support/Xml_msxml.h"

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

std::string Children(const XmlNode& parent) {
    std::string shown;
    for (XmlNode child = parent.FirstChild(); child; child = child.NextSibling())
        shown += child.IsElement() ? child.Name() + " " : "[" + child.Text() + "] ";
    return shown;
}

TEST(WindowsXml, AHostsNodeIsWalkedLikeOneOfOurs) {
    for (const bool keepsBlanks : {false, true}) {
        const HostDocument host("<t k='1' xmlns:n='urn:x'>\n <a/> x <n:b/><!-- c -->\n</t>", keepsBlanks);
        const XmlNode node = NodeOfHost(host.Root().Get());
        EXPECT_EQ(node.Name(), "t");
        EXPECT_EQ(Children(node), "a [ x ] n:b [] ");
        EXPECT_EQ(node.Attributes(), (std::vector<std::pair<std::string, std::string>>{{"k", "1"}}));
        EXPECT_EQ(node.File(), "");
        EXPECT_EQ(node.Line(), 0);
    }
}

TEST(WindowsXml, AHostsDocumentIsANodeWithItsDeclarations) {
    const HostDocument host("<?xml version='1.0'?><!DOCTYPE t [<!ELEMENT t ANY>]><t/>");
    XmlNode child = NodeOfHost(host.Get()).FirstChild();
    std::string kinds;
    for (; child; child = child.NextSibling())
        kinds += std::to_string(static_cast<int>(child.Kind())) + " ";
    EXPECT_EQ(kinds, "7 10 1 ");
}

TEST(WindowsXml, AHostGetsItsObjectBackAndNothingElseIsANode) {
    const HostDocument host("<t/>");
    const auto root = host.Root();
    IDispatch* const object = root.Get();
    const XmlNode node = NodeOfHost(object);
    EXPECT_EQ(HostObject(node), object);
    EXPECT_EQ(HostObject(node.FirstChild()), nullptr);
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
        node = NodeOfHost(host.Root().Get()).FirstChild();
    }
    EXPECT_EQ(CTools().nodeTextValue(node), "x");
}

}  // namespace
}  // namespace tovarek::test
