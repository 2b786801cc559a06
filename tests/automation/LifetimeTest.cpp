#include <atomic>
#include <filesystem>
#include <functional>
#include <latch>
#include <thread>

#include "Host.h"
#include "Scratch.h"

namespace tovarek::test {
namespace {

template <class Function>
Function EntryOf(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}
using ClassObjectOf = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);

// The server's own word on whether it is used. The module stays loaded as long as this object lives.
class LoadedServer {
  public:
    LoadedServer() {
        ComPtr<IClassFactory> factory;
        EXPECT_EQ(CoGetClassObject(CLSID_Tovarek, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                                   factory.OutVoid()),
                  S_OK);
        module_ = GetModuleHandleW(L"QVTovarek.dll");
        EXPECT_NE(module_, nullptr);
    }
    bool CanUnload() const { return EntryOf<HRESULT(WINAPI*)()>(module_, "DllCanUnloadNow")() == S_OK; }
    HRESULT ClassObject(REFCLSID id, REFIID iid, void** object) const {
        return EntryOf<ClassObjectOf>(module_, "DllGetClassObject")(id, iid, object);
    }

  private:
    HMODULE module_ = nullptr;
};

TEST(Lifetime, TheServerKnowsWhetherItIsUsed) {
    const Apartment apartment;
    const LoadedServer module;
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(module.ClassObject(CLSID_Tovarek, IID_IClassFactory, factory.OutVoid()), S_OK);
    EXPECT_FALSE(module.CanUnload()) << "a factory is in use";
    factory = {};
    // The platform may keep a factory of its own.
    const bool idle = module.CanUnload();
    {
        const auto server = CreateServer();
        EXPECT_FALSE(module.CanUnload());
    }
    EXPECT_EQ(module.CanUnload(), idle);
    ASSERT_EQ(module.ClassObject(CLSID_Tovarek, IID_IClassFactory, factory.OutVoid()), S_OK);
    factory->LockServer(TRUE);
    factory = {};
    EXPECT_FALSE(module.CanUnload()) << "a lock outlives its factory";
    ASSERT_EQ(module.ClassObject(CLSID_Tovarek, IID_IClassFactory, factory.OutVoid()), S_OK);
    factory->LockServer(FALSE);
    factory = {};
    EXPECT_EQ(module.CanUnload(), idle);
    EXPECT_TRUE(idle);
}

TEST(Lifetime, OnlyTheClassIsServedAndNothingIsAggregated) {
    const Apartment apartment;
    const LoadedServer module;
    void* object = &object;
    EXPECT_EQ(module.ClassObject(IID_IUnknown, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(module.ClassObject(CLSID_Tovarek, IID_IDispatch, &object), E_NOINTERFACE);
    EXPECT_EQ(module.ClassObject(CLSID_Tovarek, IID_IClassFactory, nullptr), E_POINTER);
    const auto outer = CreateServer();
    EXPECT_EQ(CoCreateInstance(CLSID_Tovarek, outer.Get(), CLSCTX_INPROC_SERVER, IID_IUnknown, &object),
              CLASS_E_NOAGGREGATION);
    EXPECT_TRUE(module.CanUnload() == false) << "one object is alive";
}

TEST(Lifetime, AThousandObjectsComeAndGo) {
    const Apartment apartment;
    const LoadedServer module;
    const auto document = LoadXml(L"<D><PROGRAMID>9000010a0b040100</PROGRAMID></D>");
    const auto element = ObjectOf(document, "documentElement");
    const ULONG before = ReferencesOf(element.Get());
    for (int i = 0; i < 1000; ++i) {
        const auto server = CreateServer();
        ASSERT_EQ(server->put_xmlTemplateNode(element.Get()), S_OK);
        ASSERT_EQ(server->put_mustGenerateTypes(VARIANT_FALSE), S_OK);
        // Every second one ends with a failure, which is an exception inside.
        ASSERT_EQ(server->put_mustGenerateXif(i % 2 == 0 ? VARIANT_FALSE : VARIANT_TRUE), S_OK);
        ASSERT_EQ(SUCCEEDED(server->Generate()), i % 2 == 0);
        ASSERT_EQ(DispatchGet(server.Get(), "creator").value.Text(), "Tovarek");
    }
    EXPECT_EQ(ReferencesOf(element.Get()), before);
    SetErrorInfo(0, nullptr);
    EXPECT_TRUE(module.CanUnload());
    std::vector<ComPtr<_Tovarek>> many;
    for (int i = 0; i < 1000; ++i)
        many.push_back(CreateServer());
    EXPECT_FALSE(module.CanUnload());
    many.clear();
    EXPECT_TRUE(module.CanUnload());
}

// Generates from a valid document and from one that is no XML, as the class of `module`.
void GenerateTwice(HMODULE module, const Scratch& scratch) {
    ComPtr<IClassFactory> factory;
    ComPtr<_Tovarek> server;
    ASSERT_EQ(EntryOf<ClassObjectOf>(module, "DllGetClassObject")(CLSID_Tovarek, IID_IClassFactory,
                                                                  factory.OutVoid()),
              S_OK);
    ASSERT_EQ(factory->CreateInstance(nullptr, IID__Tovarek, server.OutVoid()), S_OK);
    ASSERT_EQ(server->put_mustGenerateTypes(VARIANT_FALSE), S_OK);
    ASSERT_EQ(server->put_mustGenerateXif(VARIANT_FALSE), S_OK);
    ASSERT_EQ(server->put_xmlTemplateNodeName(Bstr(L"D").Get()), S_OK);
    const auto generate = [&](const char* name) {
        EXPECT_EQ(server->put_xmlTemplateFile(Bstr(ToWide(scratch.Path(name))).Get()), S_OK);
        return server->Generate();
    };
    EXPECT_EQ(generate("good.xml"), S_OK);
    EXPECT_TRUE(FAILED(generate("bad.xml")));
    SetErrorInfo(0, nullptr);
}

// What the server keeps for every thread must not want the server's code when the thread ends.
TEST(Lifetime, ThreadsThatUsedTheServerOutliveIt) {
    const Scratch scratch;
    scratch.File("good.xml",
                 "<!DOCTYPE D [<!ELEMENT D (PROGRAMID)><!ELEMENT PROGRAMID (#PCDATA)>]>"
                 "<D><PROGRAMID>9000010a0b040100</PROGRAMID></D>");
    scratch.File("bad.xml", "<D>");
    // A copy, because the registered server is not this test's to free.
    wchar_t program[MAX_PATH];
    ASSERT_NE(GetModuleFileNameW(nullptr, program, MAX_PATH), 0U);
    const std::filesystem::path copy = StandardPath(scratch.Path("server.dll"));
    std::filesystem::copy_file(std::filesystem::path(program).replace_filename("QVTovarek.dll"), copy);
    HMODULE module = LoadLibraryW(copy.c_str());
    ASSERT_NE(module, nullptr);

    std::latch generated(3);
    std::latch freed(1);
    const auto use = [&] {
        {
            const Apartment apartment;
            GenerateTwice(module, scratch);
        }
        generated.count_down();
        freed.wait();
    };
    std::thread first(use);
    std::thread second(use);
    generated.arrive_and_wait();
    EXPECT_TRUE(FreeLibrary(module));
    EXPECT_EQ(GetModuleHandleW(copy.c_str()), nullptr) << "it is still loaded";
    freed.count_down();
    first.join();
    second.join();
}

TEST(Lifetime, TwoObjectsShareNothing) {
    const Apartment apartment;
    const auto first = CreateServer();
    const auto second = CreateServer();
    EXPECT_EQ(first->put_creator(Bstr(L"first").Get()), S_OK);
    EXPECT_EQ(second->put_creator(Bstr(L"second").Get()), S_OK);
    EXPECT_TRUE(FAILED(first->put_catalogDir(Bstr(L"Z:\\no\\where").Get())));
    EXPECT_EQ(DispatchGet(first.Get(), "creator").value.Text(), "first");
    EXPECT_EQ(DispatchGet(second.Get(), "catalogDir").value.Text(), "");
    EXPECT_TRUE(FAILED(first->put_catalogFile(Bstr(L"ldrf.cat").Get()))) << "a failed opening is remembered";
}

// Calls from another apartment arrive as messages, which a host pumps.
void PumpUntil(const std::atomic<bool>& done) {
    while (!done) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
}

// Hands `server` to a thread of another apartment, runs `use` there on the reference that it gets, and serves
// its calls.
void UseElsewhere(const ComPtr<_Tovarek>& server, DWORD kind, const std::function<void(_Tovarek*)>& use) {
    IStream* stream = nullptr;
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(IID__Tovarek, server.Get(), &stream), S_OK);
    std::atomic<bool> done = false;
    std::thread elsewhere([&] {
        {
            const Apartment apartment(kind);
            ComPtr<_Tovarek> here;
            EXPECT_EQ(CoGetInterfaceAndReleaseStream(stream, IID__Tovarek, here.OutVoid()), S_OK);
            EXPECT_NE(here.Get(), server.Get()) << "a call from here has to go to the object's own thread";
            if (here)
                use(here.Get());
        }
        done = true;
    });
    PumpUntil(done);
    elsewhere.join();
}

TEST(Apartments, AnObjectIsUsedFromOtherApartments) {
    const Apartment apartment;
    const auto server = CreateServer();
    for (const DWORD kind : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
        UseElsewhere(server, kind, [](_Tovarek* here) {
            EXPECT_EQ(here->put_creator(Bstr(L"elsewhere").Get()), S_OK);
            Bstr creator;
            EXPECT_EQ(here->get_creator(creator.Out()), S_OK);
            EXPECT_EQ(creator.View(), L"elsewhere");
            EXPECT_EQ(DispatchPut(here, "majorVersion", Variant(7L)), "S_OK");
            EXPECT_EQ(Dispatch(here, "Generate", DISPATCH_METHOD).told,
                      "80040032 QVTovarek: Template file is not defined.");
        });
        LONG version = 0;
        EXPECT_EQ(server->get_majorVersion(&version), S_OK);
        EXPECT_EQ(version, 7);
    }
}

TEST(Apartments, AThreadOfTheMultithreadedApartmentCreatesItsOwn) {
    std::thread([] {
        const Apartment apartment(COINIT_MULTITHREADED);
        const auto server = CreateServer();
        EXPECT_EQ(DispatchPut(server.Get(), "creator", Variant(std::wstring(L"x"))), "S_OK");
        EXPECT_EQ(DispatchGet(server.Get(), "creator").value.Text(), "x");
    }).join();
}

}  // namespace
}  // namespace tovarek::test
