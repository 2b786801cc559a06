// What rules find in an input, and who decides what becomes of it. Rules go on behind a finding wherever the
// next one can be judged on its own: the sink alone decides whether a job ends there.
#pragma once

#include <cstdint>
#include <utility>

#include "support/CErrorHandler.h"

namespace tovarek {

// A fault: the error that a generation raises for it, one of eErrors or a runtime error, and its place.
struct Finding {
    std::int32_t error = 0;
    ErrorContext context;
};

class FindingSink {
  public:
    FindingSink() = default;
    virtual ~FindingSink() = default;
    FindingSink(const FindingSink&) = delete;
    FindingSink& operator=(const FindingSink&) = delete;

    // Takes a finding; it comes back when the rules shall go on.
    virtual void Take(Finding finding) = 0;
};

// The sink of a generation: the first finding ends it.
class RaisingSink : public FindingSink {
  public:
    explicit RaisingSink(const CErrorHandler& errorHandler) : errorHandler_(errorHandler) {}

    void Take(Finding finding) override {
        if (finding.error >= static_cast<std::int32_t>(RuntimeError::overflow))
            RaiseRuntimeError(static_cast<RuntimeError>(finding.error), std::move(finding.context));
        errorHandler_.RaiseError(finding.error, std::move(finding.context));
    }

  private:
    const CErrorHandler& errorHandler_;
};

// Adds what a caller knows of the place to the findings on their way.
class PlacingSink : public FindingSink {
  public:
    PlacingSink(FindingSink& outer, ErrorContext place) : outer_(outer), place_(std::move(place)) {}

    void Take(Finding finding) override {
        finding.context.FillFrom(place_);
        outer_.Take(std::move(finding));
    }

  private:
    FindingSink& outer_;
    ErrorContext place_;
};

}  // namespace tovarek
