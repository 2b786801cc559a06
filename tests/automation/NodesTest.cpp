#include "Host.h"
#include "Scratch.h"

namespace tovarek::test {
namespace {

constexpr const char* kNodeProperties[] = {"xmlProfileNode", "xmlTemplateNode"};

TEST(Nodes, ComeBackAsTheSameObjectAndAreReleased) {
    const Apartment apartment;
    const auto document = LoadXml(L"<a><b>x</b></a>");
    const auto element = ObjectOf(document, "documentElement");
    const ULONG before = ReferencesOf(element.Get());
    for (const char* const property : kNodeProperties) {
        const auto server = CreateServer();
        for (const WORD flags : std::initializer_list<WORD>{DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF,
                                                            DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}) {
            EXPECT_EQ(DispatchPut(server.Get(), property, Variant(element.Get()), flags), "S_OK");
            EXPECT_EQ(DispatchGet(server.Get(), property).value.Get().pdispVal, element.Get());
            EXPECT_GT(ReferencesOf(element.Get()), before) << "the component keeps the node alive";
            EXPECT_EQ(DispatchPut(server.Get(), property, Variant(static_cast<IDispatch*>(nullptr)), flags),
                      "S_OK");
            EXPECT_EQ(DispatchGet(server.Get(), property).value.Text(), "nothing");
            EXPECT_EQ(ReferencesOf(element.Get()), before);
        }
    }
    {
        const auto server = CreateServer();
        EXPECT_EQ(server->putref_xmlTemplateNode(element.Get()), S_OK);
    }
    EXPECT_EQ(ReferencesOf(element.Get()), before) << "an object that ends lets its node go";
}

TEST(Nodes, WhatIsNoNodeIsATypeError) {
    const Apartment apartment;
    const auto server = CreateServer();
    const auto other = CreateServer();
    const auto document = LoadXml(L"<a/>");
    for (const char* const property : kNodeProperties) {
        EXPECT_EQ(DispatchPut(server.Get(), property, Variant(document.Get())), "S_OK")
            << "a document is a node";
        EXPECT_EQ(DispatchPut(server.Get(), property, Variant(static_cast<IDispatch*>(other.Get()))),
                  "800A000D QVTovarek: Type mismatch");
        EXPECT_EQ(DispatchPut(server.Get(), property, Variant(std::wstring(L"<a/>"))), "80020005 : ");
        EXPECT_EQ(DispatchPut(server.Get(), property, Variant(3L)), "80020005 : ");
        EXPECT_EQ(DispatchGet(server.Get(), property).value.Get().pdispVal, document.Get())
            << "the value stays";
    }
    EXPECT_EQ(Telling(server->put_xmlTemplateNode(other.Get())), "800A000D QVTovarek: Type mismatch");
    EXPECT_EQ(Telling(server->putref_xmlTemplateNode(document.Get())), "S_OK")
        << "no error information is left";
}

// A template as an element of a host, with what a host's DOM may hold beside the texts of a file.
TEST(Nodes, ATemplateIsReadFromAHostsElement) {
    const Apartment apartment;
    const auto server = CreateServer();
    const auto put = [&](const char* property, Variant value) {
        EXPECT_EQ(DispatchPut(server.Get(), property, std::move(value)), "S_OK") << property;
    };
    put("mustGenerateTypes", Variant(false));
    put("mustGenerateXif", Variant(false));
    const auto generate = [&](const std::wstring& programId) {
        const auto document = LoadXml(L"<D><PROGRAMID>" + programId + L"</PROGRAMID></D>");
        put("xmlTemplateNode", Variant(ObjectOf(document, "documentElement").Get()));
        return Telling(server->Generate());
    };
    const std::string bad = "80040034 QVTovarek: Bad program ID.";
    EXPECT_EQ(generate(L"9000010a0b040100"), "S_OK");
    EXPECT_EQ(generate(L"<!-- c -->9000010a0b040100"), "S_OK");
    EXPECT_EQ(generate(L"9000010a0b04010"), bad);
    EXPECT_EQ(generate(L"90000<!-- c -->10a0b040100"), bad) << "only the first piece of the text counts";
    EXPECT_EQ(generate(L"<![CDATA[9000010a0b040100]]>"), bad) << "CDATA is no text";
    const auto given = ObjectOf(ComPtr<IDispatch>::Share(server.Get()), "xmlTemplateNode");
    EXPECT_EQ(
        DispatchPut(ObjectOf(given, "firstChild").Get(), "text", Variant(std::wstring(L"9000010a0b040100"))),
        "S_OK");
    EXPECT_EQ(Telling(server->Generate()), "S_OK") << "the node as it is when it is needed";
}

}  // namespace
}  // namespace tovarek::test
