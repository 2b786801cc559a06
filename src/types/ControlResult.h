// Turns result codes of the resource-file control into errors that tell what the control says about them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "control/QVxTypes.h"
#include "support/CErrorHandler.h"

namespace tovarek {

// Raises the error for result code `code`. The context tells, beside `place`, the control's reason and, for a
// file that could not be written, the runtime's error.
[[noreturn]] void RaiseControlError(std::int32_t code, ErrorContext place, const QVxTypes& control,
                                    const CErrorHandler& errorHandler);

// Nothing for a success.
inline void CheckControl(std::int32_t code, std::string_view field, const QVxTypes& control,
                         const CErrorHandler& errorHandler) {
    if (code != resultOk)
        RaiseControlError(code, {.field = std::string(field)}, control, errorHandler);
}

}  // namespace tovarek
