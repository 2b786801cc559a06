// The one place that raises the component's own errors.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/Error.h"
#include "support/CResources.h"

namespace tovarek {

// Holds nothing but its own string tables, so one instance serves every object of a component.
class CErrorHandler {
  public:
    // Raises error `e` (one of eErrors) with its message. A number outside the enumeration is runtime error
    // 9; one whose table index overflows 32 bits is runtime error 6.
    [[noreturn]] void RaiseError(std::int32_t e, ErrorContext context = {}) const;

    // As RaiseError, with `s` directly behind the message.
    [[noreturn]] void RaiseErrorWithString(std::int32_t e, std::string_view s,
                                           ErrorContext context = {}) const;

    // Raises the error that stands for result code `error` of the resource-file control.
    [[noreturn]] void RaiseQVxTypesEditError(std::int32_t error, ErrorContext context = {}) const;

  private:
    CResources resources_;
};

}  // namespace tovarek
