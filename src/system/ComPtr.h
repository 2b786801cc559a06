// Windows only: a counted reference to a COM object.
#pragma once

#include <unknwn.h>

#include <utility>

namespace tovarek {

template <class Interface>
class ComPtr {
  public:
    ComPtr() = default;
    // Takes over the reference that `owned` stands for.
    explicit ComPtr(Interface* owned) : object_(owned) {}
    ComPtr(const ComPtr& other) : object_(other.object_) {
        if (object_ != nullptr)
            object_->AddRef();
    }
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() {
        if (object_ != nullptr)
            object_->Release();
    }

    // A further reference to an object that somebody else holds as well.
    static ComPtr Share(Interface* object) {
        if (object != nullptr)
            object->AddRef();
        return ComPtr(object);
    }

    explicit operator bool() const { return object_ != nullptr; }
    Interface* operator->() const { return object_; }
    Interface* Get() const { return object_; }
    // The reference, for the caller to release.
    Interface* Detach() { return std::exchange(object_, nullptr); }

    // Where a function that answers an object puts it; what was held is released.
    Interface** Out() {
        *this = ComPtr();
        return &object_;
    }
    void** OutVoid() { return reinterpret_cast<void**>(Out()); }

  private:
    Interface* object_ = nullptr;
};

}  // namespace tovarek
