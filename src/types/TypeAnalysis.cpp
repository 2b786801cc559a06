// Lengths of types, and what they take over from the standard types that they are made of.
#include <unordered_set>

#include "base/Numbers.h"
#include "base/Text.h"
#include "types/CType.h"

namespace tovarek {
namespace {

// Adds display formats of standard types to those of a main type.
class FormatCollector {
  public:
    FormatCollector(CType& mainType, QVxTypes& control) : mainType_(mainType), control_(control) {}

    void Collect(const CType& type) {
        if (type.isReference())
            CollectStandard(type.typeIndex);
        if (type.HasMembers())
            for (const CType& member : type.elements)
                Collect(member);
    }

    // The formats of the main type are shared with others; it gets its own list only when it differs.
    void Finish() {
        if (formats_)
            mainType_.availableFormats = std::move(formats_);
    }

  private:
    void CollectStandard(std::int32_t index) {
        // A second reference to the same type brings nothing new.
        if (!collected_.insert(index).second)
            return;
        control_.SelectedTypeIndex(index);
        const std::int32_t count = control_.SelectedTypeFormatCount();
        for (std::int32_t number = 1; number <= count; ++number) {
            TypeFormat format;
            if (control_.SelectedTypeFormat(number, format) == resultOk)
                Add(format);
        }
    }

    void Add(const TypeFormat& format) {
        if (!formats_)
            Start();
        if (upperNames_.insert(UpperCase(format.name)).second)
            formats_->Add(format.name, {format.name, format.unit, format.factor, format.offset});
    }

    void Start() {
        formats_ = mainType_.availableFormats ? std::make_shared<CFormats>(*mainType_.availableFormats)
                                              : std::make_shared<CFormats>();
        for (const CFormat& format : *formats_)
            upperNames_.insert(UpperCase(format.name));
    }

    CType& mainType_;
    QVxTypes& control_;
    std::shared_ptr<CFormats> formats_;
    std::unordered_set<std::string> upperNames_;
    std::unordered_set<std::int32_t> collected_;
};

}  // namespace

void CType::ComputeReferenceLength(CCatalog& catalog) {
    if (isReference()) {
        catalog.types.SelectedTypeIndex(typeIndex);
        length = catalog.types.SelectedTypeSize();
    }
    if (HasMembers())
        for (CType& member : elements)
            member.ComputeReferenceLength(catalog);
}

void CType::VerifyReferenceFormats(CType& mainType, CCatalog& catalog) const {
    FormatCollector collector(mainType, catalog.types);
    collector.Collect(*this);
    collector.Finish();
}

void CType::ComputeLength(std::int32_t& total) const {
    // Deliberate: a reference that its type element calls a structure has no members here and counts nothing.
    if (HasMembers()) {
        for (const CType& member : elements)
            member.ComputeLength(total);
        return;
    }
    total = AddChecked(total, arraySize > 0 ? MultiplyChecked(length, arraySize) : length);
}

void CType::AnalyseLength() {
    if (isReference() || !HasMembers())
        return;
    length = 0;
    const auto tooLong = [&] {
        return ErrorContext{.field = "FIELDS",
                            .line = LineOf("FIELDS"),
                            .reason = "the lengths of the members add up to more than 32 bits"};
    };
    WithContext(tooLong, [&] { ComputeLength(length); });
}

}  // namespace tovarek
