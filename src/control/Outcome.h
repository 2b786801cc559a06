// How the readers and writers of the control answer: a result code and, where it is not 0, a sentence for
// people.
#pragma once

#include <string>
#include <utility>

#include "control/QVxTypes.h"

namespace tovarek {

struct Outcome {
    QVxResult code = resultOk;
    std::string reason;  // empty on success

    bool Ok() const { return code == resultOk; }
};

inline Outcome Failure(QVxResult code, std::string reason) {
    return {code, std::move(reason)};
}

}  // namespace tovarek
