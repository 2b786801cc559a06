// What rules and loaders find in an input, and who decides what becomes of it. Rules go on behind a finding
// wherever the next one can be judged on its own: the sink alone decides whether a job ends there.
#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/CErrorHandler.h"
#include "support/Edit.h"

namespace tovarek {

// Warnings never change what a generation does. Weak ones are matters of taste.
enum class Warning {
    none,
#define TOVAREK_WARNING(id, name, weight, meaning) id,
#include "support/WarningList.inc"
#undef TOVAREK_WARNING
};

// Which part of the line of a finding it is about.
enum class LinePart { value, name, all };

// Another place that a finding is about, such as the other side of a contradiction.
struct FindingNote {
    std::string file;
    int line = 0;  // 0 when it is no place of its own
    std::string text;
};

// A fault, by the error that a generation raises for it (one of eErrors or a runtime error), or a warning, by
// its name; and its place. The reason of a warning's context is its text.
struct Finding {
    static constexpr int kNowhere = -1;
    std::int32_t error = 0;
    ErrorContext context;
    Warning warning = Warning::none;
    LinePart part = LinePart::value;
    int causeLine = 0;  // a line of the same file; a finding there explains this one
    // A file of types, of which this misses one: what keeps types of it from being read or written explains
    // it.
    std::string causeFile{};
    // Where an error may miss what nobody reads here: the line of a section or element, kNowhere for what the
    // file has no such place for.
    int aroundLine = 0;
    int column = 0;  // of the marked piece of the line, in characters from 1; 0: the part tells
    int width = 0;
    std::vector<FindingNote> notes{};
    std::vector<Edit> edits{};  // all together mend it; none where people have to choose
};

class FindingSink {
  public:
    FindingSink() = default;
    virtual ~FindingSink() = default;
    FindingSink(const FindingSink&) = delete;
    FindingSink& operator=(const FindingSink&) = delete;

    // Takes a finding; it comes back when the rules shall go on.
    virtual void Take(Finding finding) = 0;

    // An error that was raised where no rule could go on; called while it is handled.
    void TakeRaised(const Error& error) {
        if (Raises())
            throw;
        Take({error.Number(), error.Context()});
    }

    // Whether warnings are wanted; looking for them takes time.
    virtual bool WantsWarnings() const { return false; }
    // Whether weak ones are wanted; what stands between who tells them and the sink of a job need not know.
    virtual bool WantsWeak() const { return false; }
    // Whether Take raises errors: they gather their context on their way out then.
    virtual bool Raises() const { return false; }
};

// An error that leaves `operation` goes to `findings`.
template <class Operation>
void TellingErrors(FindingSink& findings, const Operation& operation) {
    try {
        operation();
    } catch (const Error& error) {
        findings.TakeRaised(error);
    }
}

// The sink of a generation: the first error ends it. Warnings go to whoever listens.
class RaisingSink : public FindingSink {
  public:
    explicit RaisingSink(const CErrorHandler& errorHandler, FindingSink* listener = nullptr)
        : errorHandler_(errorHandler), listener_(listener) {}

    void Take(Finding finding) override {
        if (finding.warning != Warning::none) {
            if (listener_ != nullptr)
                listener_->Take(std::move(finding));
            return;
        }
        if (finding.error >= static_cast<std::int32_t>(RuntimeError::overflow))
            RaiseRuntimeError(static_cast<RuntimeError>(finding.error), std::move(finding.context));
        errorHandler_.RaiseError(finding.error, std::move(finding.context));
    }
    bool WantsWarnings() const override { return listener_ != nullptr; }
    bool Raises() const override { return true; }

  private:
    const CErrorHandler& errorHandler_;
    FindingSink* listener_;
};

// Adds what a caller knows of the place to the findings on their way.
class PlacingSink : public FindingSink {
  public:
    PlacingSink(FindingSink& outer, ErrorContext place) : outer_(outer), place_(std::move(place)) {}

    void Take(Finding finding) override {
        finding.context.FillFrom(place_);
        outer_.Take(std::move(finding));
    }
    bool WantsWarnings() const override { return outer_.WantsWarnings(); }

  private:
    FindingSink& outer_;
    ErrorContext place_;
};

// What `operation` raises or tells the sink that it is given gets the context that `place` answers. It is
// asked only then, with the error where it takes one.
template <class Place, class Operation>
void WithPlace(FindingSink& findings, const Place& place, const Operation& operation) {
    class Sink : public FindingSink {
      public:
        Sink(FindingSink& outer, const Place& place) : outer_(outer), place_(place) {}
        void Take(Finding finding) override {
            if (finding.warning != Warning::none || !Raises())
                finding.context.FillFrom(PlaceOf(finding));
            outer_.Take(std::move(finding));
        }
        bool WantsWarnings() const override { return outer_.WantsWarnings(); }
        bool Raises() const override { return outer_.Raises(); }

      private:
        ErrorContext PlaceOf(const Finding& finding) const {
            if constexpr (std::is_invocable_v<const Place&, const Error&>)
                return place_(Error(finding.error, {}, finding.context));
            else
                return place_();
        }

        FindingSink& outer_;
        const Place& place_;
    };
    Sink placed(findings, place);
    WithContext(place, [&] { operation(placed); });
}

// Tells findings about names that stand side by side. Of several that are mended to the same name nobody
// knows which is meant, so none is.
void TellSiblings(std::vector<Finding> findings, FindingSink& sink);

// Knows whether it was told an error.
class MarkingSink : public FindingSink {
  public:
    explicit MarkingSink(FindingSink& outer) : outer_(outer) {}

    void Take(Finding finding) override {
        hasError_ = hasError_ || finding.warning == Warning::none;
        outer_.Take(std::move(finding));
    }
    bool WantsWarnings() const override { return outer_.WantsWarnings(); }
    bool Raises() const override { return outer_.Raises(); }
    bool HasError() const { return hasError_; }

  private:
    FindingSink& outer_;
    bool hasError_ = false;
};

}  // namespace tovarek
