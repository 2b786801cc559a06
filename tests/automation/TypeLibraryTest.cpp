#include "Host.h"
#include "base/ErrorTable.h"

namespace tovarek::test {
namespace {

ComPtr<ITypeLib> RegisteredLibrary() {
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(LIBID_QVTovarek, 1, 0, LOCALE_NEUTRAL, library.Out()), S_OK);
    return library;
}

ComPtr<ITypeInfo> TypeOf(const ComPtr<ITypeLib>& library, const std::wstring& name) {
    const UINT count = library->GetTypeInfoCount();
    for (UINT i = 0; i < count; ++i) {
        ComPtr<ITypeInfo> type;
        Bstr found;
        EXPECT_EQ(library->GetTypeInfo(i, type.Out()), S_OK);
        EXPECT_EQ(type->GetDocumentation(MEMBERID_NIL, found.Out(), nullptr, nullptr, nullptr), S_OK);
        if (found.View() == name)
            return type;
    }
    ADD_FAILURE() << "no type " << FromWide(name);
    return {};
}

std::string NameOf(const ComPtr<ITypeInfo>& type, MEMBERID member) {
    Bstr name;
    EXPECT_EQ(type->GetDocumentation(member, name.Out(), nullptr, nullptr, nullptr), S_OK);
    return FromWide(name.View());
}

TEST(TypeLibrary, HasTheClassWithItsDefaultInterface) {
    const Apartment apartment;
    const auto library = RegisteredLibrary();
    Bstr name;
    Bstr description;
    ASSERT_EQ(library->GetDocumentation(-1, name.Out(), description.Out(), nullptr, nullptr), S_OK);
    EXPECT_EQ(name.View(), L"QVTovarek");
    EXPECT_EQ(description.View(), L"XIF and types files generator");
    const auto coclass = TypeOf(library, L"Tovarek");
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(coclass->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_EQ(attributes->guid, CLSID_Tovarek);
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE);
    ASSERT_EQ(attributes->cImplTypes, 1);
    coclass->ReleaseTypeAttr(attributes);
    INT flags = 0;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> implemented;
    ASSERT_EQ(coclass->GetImplTypeFlags(0, &flags), S_OK);
    EXPECT_TRUE(flags & IMPLTYPEFLAG_FDEFAULT);
    ASSERT_EQ(coclass->GetRefTypeOfImplType(0, &reference), S_OK);
    ASSERT_EQ(coclass->GetRefTypeInfo(reference, implemented.Out()), S_OK);
    EXPECT_EQ(NameOf(implemented, MEMBERID_NIL), "_Tovarek");
}

// One member function as an early-bound host sees it.
std::string Signature(const ComPtr<ITypeInfo>& type, UINT index) {
    FUNCDESC* function = nullptr;
    EXPECT_EQ(type->GetFuncDesc(index, &function), S_OK);
    std::string text = std::to_string(function->memid) + ' ' + NameOf(type, function->memid);
    const char* const kinds[] = {"", " call", " get", "", " put", "", "", "", " putref"};
    text += function->invkind <= INVOKE_PROPERTYPUTREF ? kinds[function->invkind] : " ?";
    const auto append = [&](const TYPEDESC& described) {
        text += ' ' + std::to_string(described.vt == VT_PTR ? described.lptdesc->vt : described.vt);
    };
    for (SHORT i = 0; i < function->cParams; ++i)
        append(function->lprgelemdescParam[i].tdesc);
    text += " ->";
    append(function->elemdescFunc.tdesc);
    type->ReleaseFuncDesc(function);
    return text;
}

// The type that an argument or a result of the kind has.
std::string TypeNumber(MemberKind kind) {
    switch (kind) {
        case MemberKind::string:
            return std::to_string(VT_BSTR);
        case MemberKind::boolean:
            return std::to_string(VT_BOOL);
        case MemberKind::integer:
            return std::to_string(VT_I4);
        default:
            return std::to_string(VT_DISPATCH);
    }
}

TEST(TypeLibrary, TheInterfaceHasEveryMemberInItsPublicOrder) {
    const Apartment apartment;
    const auto type = TypeOf(RegisteredLibrary(), L"_Tovarek");
    std::vector<std::string> expected;
    const std::string none = " -> " + std::to_string(VT_VOID);
    for (const Member& member : Members()) {
        const std::string head = std::to_string(member.number) + ' ' + member.name;
        if (member.kind == MemberKind::method) {
            expected.push_back(head + " call" + none);
            continue;
        }
        const std::string value = ' ' + TypeNumber(member.kind);
        expected.push_back(head + " get ->" + value);
        expected.push_back(head + " put" + value + none);
        if (member.kind == MemberKind::node)
            expected.push_back(head + " putref" + value + none);
    }
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, IID__Tovarek);
    EXPECT_EQ(attributes->typekind, TKIND_DISPATCH) << "a dual interface shows its dispatch side first";
    EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FDUAL);
    const UINT count = attributes->cFuncs;
    type->ReleaseTypeAttr(attributes);
    std::vector<std::string> found;
    for (UINT i = 0; i < count; ++i) {
        const std::string signature = Signature(type, i);
        // The platform puts the members of IDispatch in front; their numbers are above 0x60000000.
        if (std::stol(signature) < 0x60000000)
            found.push_back(signature);
    }
    EXPECT_EQ(found, expected);
    EXPECT_EQ(Members().size(), 34U);
}

TEST(TypeLibrary, TheEnumerationHoldsEveryError) {
    const Apartment apartment;
    const auto type = TypeOf(RegisteredLibrary(), L"eErrors");
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_ENUM);
    const UINT count = attributes->cVars;
    type->ReleaseTypeAttr(attributes);
    ASSERT_EQ(count, kErrorTable.size());
    for (UINT i = 0; i < count; ++i) {
        VARDESC* value = nullptr;
        ASSERT_EQ(type->GetVarDesc(i, &value), S_OK);
        EXPECT_EQ(NameOf(type, value->memid), kErrorTable[i].name);
        EXPECT_EQ(value->lpvarValue->vt, VT_I4);
        EXPECT_EQ(value->lpvarValue->lVal, kErrorTable[i].code) << kErrorTable[i].name;
        type->ReleaseVarDesc(value);
    }
}

}  // namespace
}  // namespace tovarek::test
