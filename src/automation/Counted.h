// The counting that every object of the server does.
#pragma once

#include <windows.h>

#include "automation/Module.h"

namespace tovarek {

// The base of `Object`, which implements `Interfaces`. An object begins with one reference, its maker's, and
// is deleted when the last one is released, and only then. While it lives the server stays in memory.
template <class Object, class... Interfaces>
class Counted : public Interfaces... {
  public:
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    ULONG STDMETHODCALLTYPE AddRef() override {
        return static_cast<ULONG>(InterlockedIncrement(&references_));
    }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0)
            delete static_cast<Object*>(this);
        return static_cast<ULONG>(left);
    }

  protected:
    Counted() = default;
    ~Counted() = default;

  private:
    ModuleLock lock_;
    LONG references_ = 1;
};

}  // namespace tovarek
