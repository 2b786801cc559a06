// Windows only: strings of COM.
#pragma once

#include <windows.h>

#include <climits>
#include <new>
#include <string_view>

namespace tovarek {

// A copy of `text` that the caller frees with SysFreeString. Throws std::bad_alloc.
inline BSTR NewBstr(std::wstring_view text) {
    BSTR copy =
        text.size() > UINT_MAX / 2 ? nullptr : SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (copy == nullptr)
        throw std::bad_alloc();
    return copy;
}

// What `text` holds, NULs included; null is the empty string.
inline std::wstring_view ViewOf(BSTR text) {
    return {text == nullptr ? L"" : text, SysStringLen(text)};
}

// A string that is freed with its owner.
class Bstr {
  public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text) : text_(NewBstr(text)) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;

    BSTR Get() const { return text_; }
    // Where a function that answers a string puts it; called once.
    BSTR* Out() { return &text_; }
    std::wstring_view View() const { return ViewOf(text_); }

  private:
    BSTR text_ = nullptr;
};

}  // namespace tovarek
