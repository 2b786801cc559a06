// Makes automation objects for hosts.
#pragma once

#include <windows.h>

#include "automation/Counted.h"

namespace tovarek {

class ClassFactory final : public Counted<ClassFactory, IClassFactory> {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

  private:
    friend Counted;
    ~ClassFactory() = default;
};

}  // namespace tovarek
