#include "types/ControlResult.h"

#include <utility>

namespace tovarek {

void RaiseControlError(std::int32_t code, ErrorContext place, const QVxTypes& control,
                       const CErrorHandler& errorHandler) {
    std::string& reason = place.reason;
    reason = control.ResultReason();
    if (code == resultSaveFailed) {
        const std::int32_t number = control.LastRuntimeError();
        reason += (reason.empty() ? "runtime error " : "; runtime error ") + std::to_string(number) + " (" +
                  RuntimeErrorMessage(static_cast<RuntimeError>(number)) + ")";
    }
    errorHandler.RaiseQVxTypesEditError(code, std::move(place));
}

}  // namespace tovarek
