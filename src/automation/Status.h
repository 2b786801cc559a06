// From the library's exceptions to the status and the error information of a COM call. No exception leaves a
// method.
#pragma once

#include <windows.h>

#include <exception>
#include <new>
#include <stdexcept>
#include <string_view>

#include "base/Error.h"

namespace tovarek {

// The status that stands for an error of the library: the public errors are statuses already, runtime error n
// is 0x800A0000 + n, and out of memory is E_OUTOFMEMORY.
HRESULT StatusOf(std::int32_t number);

// Sets the calling thread's error information (source and `description`, UTF-8) and answers `status`.
HRESULT Fail(HRESULT status, std::string_view description) noexcept;

// A failure that has a status of the platform and no number of ours.
class StatusError : public std::exception {
  public:
    StatusError(HRESULT status, const char* description) : status_(status), description_(description) {}
    HRESULT Status() const { return status_; }
    const char* what() const noexcept override { return description_; }

  private:
    HRESULT status_;
    const char* description_;  // a literal
};

// Runs `action` as the body of a COM method.
template <class Action>
HRESULT Guarded(const Action& action) noexcept {
    // What an earlier call left must not explain a failure of this one.
    SetErrorInfo(0, nullptr);
    constexpr auto kOutOfMemory = RuntimeError::outOfMemory;
    try {
        action();
        return S_OK;
    } catch (const Error& error) {
        return Fail(StatusOf(error.Number()), error.Description());
    } catch (const StatusError& error) {
        return Fail(error.Status(), error.what());
    } catch (const std::bad_alloc&) {
        return Fail(E_OUTOFMEMORY, RuntimeErrorMessage(kOutOfMemory));
    } catch (const std::length_error&) {
        return Fail(E_OUTOFMEMORY, RuntimeErrorMessage(kOutOfMemory));
    } catch (...) {
        return Fail(E_UNEXPECTED, "Unexpected error");
    }
}

}  // namespace tovarek
