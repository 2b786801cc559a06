// Makes automation objects for hosts.
#pragma once

#include <windows.h>

#include "automation/Module.h"

namespace tovarek {

class ClassFactory final : public IClassFactory {
  public:
    // Born with one reference, for the one that made it.
    ClassFactory() = default;
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

  private:
    ~ClassFactory() = default;

    ModuleLock lock_;
    LONG references_ = 1;
};

}  // namespace tovarek
