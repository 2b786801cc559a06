// Windows only: a value of automation.
#pragma once

#include <windows.h>

#include <cstring>
#include <new>
#include <string_view>

namespace tovarek {

class Variant {
  public:
    Variant() { VariantInit(&value_); }
    ~Variant() { VariantClear(&value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    VARIANT& Get() { return value_; }

    // Sets an empty variant to an array of bytes. Throws std::bad_alloc.
    void SetBytes(std::string_view bytes) {
        SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
        if (array == nullptr)
            throw std::bad_alloc();
        value_.vt = VT_ARRAY | VT_UI1;
        value_.parray = array;
        void* data = nullptr;
        if (FAILED(SafeArrayAccessData(array, &data)))
            throw std::bad_alloc();
        std::memcpy(data, bytes.data(), bytes.size());
        SafeArrayUnaccessData(array);
    }

  private:
    VARIANT value_{};
};

}  // namespace tovarek
