#include "types/ControlResult.h"

#include <string>
#include <utility>

namespace tovarek {

void RaiseControlError(std::int32_t code, std::string_view field, const QVxTypes& control,
                       const CErrorHandler& errorHandler) {
    std::string reason = control.ResultReason();
    if (code == resultSaveFailed) {
        const std::int32_t number = control.LastRuntimeError();
        reason += (reason.empty() ? "runtime error " : "; runtime error ") + std::to_string(number) + " (" +
                  RuntimeErrorMessage(static_cast<RuntimeError>(number)) + ")";
    }
    errorHandler.RaiseQVxTypesEditError(code, {.field = std::string(field), .reason = std::move(reason)});
}

}  // namespace tovarek
