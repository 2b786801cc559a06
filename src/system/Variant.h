// Windows only: a value of automation.
#pragma once

#include <windows.h>

namespace tovarek {

class Variant {
  public:
    Variant() { VariantInit(&value_); }
    ~Variant() { VariantClear(&value_); }
    Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    VARIANT& Get() { return value_; }
    const VARIANT& Get() const { return value_; }

  private:
    VARIANT value_{};
};

}  // namespace tovarek
