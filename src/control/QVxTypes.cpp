#include "control/QVxTypes.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/Path.h"
#include "control/ResourceCreator.h"
#include "control/StandardCatalog.h"

namespace tovarek {
namespace {

Outcome CheckScaling(const NumberRange& range, TypeDescription& type) {
    for (const auto& [value, place] : {std::pair{range.a, &type.a}, {range.b, &type.b}, {range.c, &type.c}}) {
        if (value < -32768 || value > 32767)
            return Failure(resultErrorSettingDetails,
                           "the factors A, B and C of a number are -32768 to 32767");
        *place = static_cast<std::int16_t>(value);
    }
    return {};
}

std::string RawRange(const TypeDescription& type) {
    return std::to_string(SmallestRaw(type)) + " to " + std::to_string(LargestRaw(type)) +
           ", which numbers of this kind hold";
}

// Takes limits over into a number; one that is not given is the kind's own.
Outcome SetLimits(std::optional<std::int32_t> minimum, std::optional<std::int32_t> maximum,
                  TypeDescription& type) {
    type.minimum = minimum ? std::int64_t{*minimum} : SmallestRaw(type);
    type.maximum = maximum ? std::int64_t{*maximum} : LargestRaw(type);
    if (type.minimum < SmallestRaw(type) || type.minimum > LargestRaw(type)) {
        return Failure(resultBadMinimum,
                       "the raw minimum " + std::to_string(type.minimum) + " is not " + RawRange(type));
    }
    if (type.maximum < SmallestRaw(type) || type.maximum > LargestRaw(type)) {
        return Failure(resultBadMaximum,
                       "the raw maximum " + std::to_string(type.maximum) + " is not " + RawRange(type));
    }
    if (type.minimum > type.maximum)
        return Failure(resultBadMinimum, "the minimum is greater than the maximum");
    return {};
}

Outcome SetRange(const NumberRange& range, TypeDescription& type) {
    Outcome scaling = CheckScaling(range, type);
    return scaling.Ok() ? SetLimits(range.minimum, range.maximum, type) : scaling;
}

struct LongerKinds {
    TypeKind ofTwoBytes;
    TypeKind ofFourBytes;
};

// `type` has the kind of one byte.
Outcome SetInteger(std::int32_t length, LongerKinds longer, const NumberRange& range, TypeDescription& type) {
    if (length != 1 && length != 2 && length != 4)
        return Failure(resultBadParam, "an integer has 1, 2 or 4 bytes");
    if (length > 1)
        type.kind = length == 2 ? longer.ofTwoBytes : longer.ofFourBytes;
    return SetRange(range, type);
}

// A limit that rounds to the largest single-precision number is that number: 15 digits cannot tell it
// exactly.
bool ToFloat(double value, float& result) {
    constexpr double kLargest = std::numeric_limits<float>::max();
    // Half a step of the largest numbers: what is less far beyond them still rounds to the largest one, as
    // its usual short decimal form does.
    constexpr double kHalfStep = 0x1p103;
    if (!(std::abs(value) < kLargest + kHalfStep))
        return false;
    result = static_cast<float>(std::clamp(value, -kLargest, kLargest));
    return true;
}

}  // namespace

class QVxTypes::Impl {
  public:
    std::int32_t Note(Outcome outcome) {
        result = outcome.code;
        reason = std::move(outcome.reason);
        return result;
    }

    // Adds a number or another element without members when the open file and the builder are ready for one.
    // `fill` completes the description or says what is wrong with it.
    template <class Fill>
    std::int32_t Describe(const TypeElement& element, TypeKind kind, Fill fill) {
        Outcome outcome = creator.Editing(ResourceKind::type);
        if (outcome.Ok())
            outcome = creator.Builder().CheckRoom();
        TypeDescription type;
        type.kind = kind;
        if (outcome.Ok())
            outcome = fill(type);
        return Note(outcome.Ok() ? creator.Builder().Add(element, std::move(type)) : std::move(outcome));
    }

    std::int32_t DescribeStructure(const TypeElement& element, TypeKind kind, std::int32_t memberCount) {
        Outcome outcome = creator.Editing(ResourceKind::type);
        return Note(outcome.Ok() ? creator.Builder().AddStructure(element, kind, memberCount)
                                 : std::move(outcome));
    }

    // The named display formats of the selected type.
    std::vector<const DisplayFormat*> NamedFormats() const {
        std::vector<const DisplayFormat*> named;
        if (catalog && selected != 0) {
            for (const DisplayFormat& format : catalog->Formats(catalog->NvName(selected))) {
                if (!format.name.empty())
                    named.push_back(&format);
            }
        }
        return named;
    }

    std::string folder;
    std::string fileName;
    std::shared_ptr<const StandardCatalog> catalog;
    std::int32_t selected = 0;
    ResourceCreator creator;
    std::int32_t result = resultOk;
    std::string reason;
};

QVxTypes::QVxTypes() : impl_(std::make_unique<Impl>()) {}
QVxTypes::~QVxTypes() = default;

const std::string& QVxTypes::CatalogDirectory() const {
    return impl_->folder;
}
void QVxTypes::CatalogDirectory(const std::string& value) {
    impl_->folder = value;
}
const std::string& QVxTypes::CatalogFileName() const {
    return impl_->fileName;
}
void QVxTypes::CatalogFileName(const std::string& value) {
    impl_->fileName = value;
}

void QVxTypes::CloseCatalog() {
    impl_->catalog.reset();
    impl_->selected = 0;
    impl_->Note({});
}

void QVxTypes::PrepareCatalog(std::int32_t /*argument*/) {
    impl_->Note({});
}

void QVxTypes::OpenCatalog() {
    impl_->selected = 0;
    std::unique_ptr<StandardCatalog> opened;
    impl_->Note(StandardCatalog::Open(WithSeparator(impl_->folder) + impl_->fileName, opened));
    impl_->catalog = std::move(opened);
}

void QVxTypes::UseCatalog(std::shared_ptr<const StandardCatalog> catalog) {
    impl_->selected = 0;
    impl_->catalog = std::move(catalog);
    impl_->Note({});
}

std::int32_t QVxTypes::ResultCode() const {
    return impl_->result;
}
const std::string& QVxTypes::ResultReason() const {
    return impl_->reason;
}

void QVxTypes::ClearTypeSelection() {
    impl_->selected = 0;
    impl_->Note({});
}

void QVxTypes::SelectedTypeIndex(std::int32_t index) {
    impl_->selected = 0;
    if (!impl_->catalog) {
        impl_->Note(Failure(resultNotInCatalog, "no catalog is open"));
    } else if (!impl_->catalog->HasNv(index)) {
        impl_->Note(Failure(resultNotInCatalog,
                            "the catalog has no standard network-variable type " + std::to_string(index)));
    } else {
        impl_->selected = index;
        impl_->Note({});
    }
}

std::int32_t QVxTypes::SelectedTypeSize() const {
    return impl_->catalog && impl_->selected != 0 ? impl_->catalog->NvSize(impl_->selected) : 0;
}

std::int32_t QVxTypes::SelectedTypeFormatCount() const {
    return static_cast<std::int32_t>(impl_->NamedFormats().size());
}

std::int32_t QVxTypes::SelectedTypeFormat(std::int32_t number, TypeFormat& format) const {
    const std::vector<const DisplayFormat*> named = impl_->NamedFormats();
    if (number < 1 || static_cast<std::size_t>(number) > named.size())
        return resultBadParam;
    const DisplayFormat& source = *named[static_cast<std::size_t>(number) - 1];
    format = {.name = source.name};
    if (!source.parameters.empty()) {
        format.factor = source.parameters[0].factor;
        format.offset = source.parameters[0].offset;
        format.unit = source.parameters[0].unit;
    }
    return resultOk;
}

const StandardCatalog* QVxTypes::Catalog() const {
    return impl_->catalog.get();
}

void QVxTypes::SetClock(std::shared_ptr<const Clock> clock) {
    impl_->creator.SetClock(std::move(clock));
}
void QVxTypes::SetFileOpener(std::function<std::unique_ptr<FileSink>(const std::string&)> opener) {
    impl_->creator.SetFileOpener(std::move(opener));
}
void QVxTypes::SetTrial(TrialOutput* trial) {
    impl_->creator.SetTrial(trial);
}
void QVxTypes::KeepSets(std::vector<OwnTypes>* sets) {
    impl_->creator.KeepSets(sets);
}
void QVxTypes::SkipType(bool isUnvt) {
    if (impl_->creator.Editing(ResourceKind::type).Ok())
        impl_->creator.SkipType(isUnvt);
}

void QVxTypes::GetResourceSetHandle(std::int32_t& handle) {
    handle = impl_->creator.BeginSet();
    impl_->Note({});
}

std::int32_t QVxTypes::SetResourceScope(std::int32_t scope) {
    return impl_->Note(impl_->creator.SetScope(scope));
}

std::int32_t QVxTypes::CreateLanguageFile(const std::string& path, std::int32_t reserved, std::int32_t handle,
                                          const std::string& programId, const std::string& creator,
                                          const std::string& phone, const std::string& email,
                                          const std::string& webPage, std::int32_t localeId,
                                          std::int32_t majorVersion, std::int32_t minorVersion,
                                          std::int32_t kind, std::int32_t creatorText) {
    return impl_->Note(
        impl_->creator.Create({ResourceKind::language, path, reserved, handle, programId, creator, phone,
                               email, webPage, localeId, majorVersion, minorVersion, kind, creatorText}));
}

std::int32_t QVxTypes::CreateFunctionalProfileFile(const std::string& path, std::int32_t reserved,
                                                   std::int32_t handle, const std::string& programId,
                                                   const std::string& creator, const std::string& phone,
                                                   const std::string& email, const std::string& webPage,
                                                   std::int32_t majorVersion, std::int32_t minorVersion,
                                                   std::int32_t kind, std::int32_t creatorText) {
    return impl_->Note(
        impl_->creator.Create({ResourceKind::profile, path, reserved, handle, programId, creator, phone,
                               email, webPage, 0, majorVersion, minorVersion, kind, creatorText}));
}

std::int32_t QVxTypes::CreateTypeFile(const std::string& path, std::int32_t reserved, std::int32_t handle,
                                      const std::string& programId, const std::string& creator,
                                      const std::string& phone, const std::string& email,
                                      const std::string& webPage, std::int32_t majorVersion,
                                      std::int32_t minorVersion, std::int32_t kind,
                                      std::int32_t creatorText) {
    return impl_->Note(
        impl_->creator.Create({ResourceKind::type, path, reserved, handle, programId, creator, phone, email,
                               webPage, 0, majorVersion, minorVersion, kind, creatorText}));
}

std::int32_t QVxTypes::AddLanguageString(const std::string& text, std::int32_t /*reserved*/,
                                         std::int32_t& number, std::int32_t& scope) {
    return impl_->Note(impl_->creator.AddString(text, number, scope));
}

std::int32_t QVxTypes::CreateEnumeration(const std::string& name, std::int32_t& number) {
    return impl_->Note(impl_->creator.CreateEnumeration(name, number));
}

std::int32_t QVxTypes::AddEnumerationValue(std::int32_t number, const std::string& name, std::int32_t value,
                                           std::int32_t descriptionText) {
    return impl_->Note(impl_->creator.AddEnumerationValue(number, name, value, descriptionText));
}

std::int32_t QVxTypes::StartType(const std::string& name) {
    return impl_->Note(impl_->creator.StartType(name));
}

std::int32_t QVxTypes::DescribeReference(const TypeElement& element, std::int32_t standardIndex,
                                         std::int32_t size) {
    return impl_->Describe(element, TypeKind::reference, [&](TypeDescription& type) -> Outcome {
        if (standardIndex < 1 || standardIndex > 65535)
            return Failure(resultBadParam, "the index of a standard type is 1 to 65535");
        if (size < 1 || size > 255) {
            const std::string name = "standard type " + std::to_string(standardIndex);
            return Failure(resultBadParam,
                           impl_->catalog ? "the catalog has no " + name + " with a size of 1 to 255 bytes"
                                          : "no catalog is open, so the size of " + name + " is not known");
        }
        type.target = {0, static_cast<std::uint16_t>(standardIndex)};
        type.referencedSize = static_cast<std::uint8_t>(size);
        return {};
    });
}

std::int32_t QVxTypes::DescribeSigned(const TypeElement& element, std::int32_t length,
                                      const NumberRange& range) {
    return impl_->Describe(element, TypeKind::signedShort, [&](TypeDescription& type) {
        return SetInteger(length, {TypeKind::signedLong, TypeKind::signedQuad}, range, type);
    });
}

std::int32_t QVxTypes::DescribeUnsigned(const TypeElement& element, std::int32_t length,
                                        const NumberRange& range) {
    return impl_->Describe(element, TypeKind::unsignedShort, [&](TypeDescription& type) {
        return SetInteger(length, {TypeKind::unsignedLong, TypeKind::unsignedQuad}, range, type);
    });
}

std::int32_t QVxTypes::DescribeBitField(const TypeElement& element, std::int32_t bitSize,
                                        std::int32_t bitOffset, bool isSigned, const NumberRange& range) {
    return impl_->Describe(element, TypeKind::bitField, [&](TypeDescription& type) -> Outcome {
        if (!IsBitWidth(bitSize) || bitOffset < 0 || bitOffset > kMostBits - bitSize)
            return Failure(resultBadParam, "a bit field has 1 to 8 bits inside one byte");
        if (element.arraySize != 0)
            return Failure(resultErrorSettingDetails, "a bit field cannot be an array");
        type.bitWidth = static_cast<std::uint8_t>(bitSize);
        type.bitOffset = static_cast<std::uint8_t>(bitOffset);
        type.bitSigned = isSigned;
        return SetRange(range, type);
    });
}

std::int32_t QVxTypes::DescribeEnumeration(const TypeElement& element, std::int32_t number,
                                           std::int32_t minimum, std::int32_t maximum) {
    return impl_->Describe(element, TypeKind::enumeration, [&](TypeDescription& type) -> Outcome {
        if (!impl_->creator.HasEnumeration(number))
            return Failure(resultBadParam, "there is no enumeration " + std::to_string(number));
        type.target = {impl_->creator.Scope(), static_cast<std::uint16_t>(number)};
        return SetLimits(minimum, maximum, type);
    });
}

std::int32_t QVxTypes::DescribeText(const TypeElement& element, std::int32_t length) {
    return impl_->Describe(element, TypeKind::array, [&](TypeDescription& type) -> Outcome {
        if (length < 1 || length > 65535)
            return Failure(resultBadParam, "a text has 1 to 65535 characters");
        type = TextOf(static_cast<std::uint16_t>(length), impl_->creator.Scope());
        return {};
    });
}

std::int32_t QVxTypes::DescribeFloat(const TypeElement& element, std::optional<double> minimum,
                                     std::optional<double> maximum) {
    return impl_->Describe(element, TypeKind::floatingPoint, [&](TypeDescription& type) -> Outcome {
        type = NumberOfKind(TypeKind::floatingPoint);
        if (minimum && !ToFloat(*minimum, type.floatMinimum))
            return Failure(resultBadMinimum, "the minimum is too large for a single-precision number");
        if (maximum && !ToFloat(*maximum, type.floatMaximum))
            return Failure(resultBadMaximum, "the maximum is too large for a single-precision number");
        if (type.floatMinimum > type.floatMaximum)
            return Failure(resultBadMinimum, "the minimum is greater than the maximum");
        return {};
    });
}

std::int32_t QVxTypes::DescribeStructure(const TypeElement& element, std::int32_t memberCount) {
    return impl_->DescribeStructure(element, TypeKind::structure, memberCount);
}

std::int32_t QVxTypes::DescribeUnion(const TypeElement& element, std::int32_t memberCount) {
    return impl_->DescribeStructure(element, TypeKind::unionKind, memberCount);
}

std::int32_t QVxTypes::CompleteType() {
    Outcome editing = impl_->creator.Editing(ResourceKind::type);
    return impl_->Note(editing.Ok() ? impl_->creator.Builder().Complete() : std::move(editing));
}

std::int32_t QVxTypes::RegisterNetworkVariableType(std::int32_t number) {
    return impl_->Note(impl_->creator.RegisterNv(number));
}

std::int32_t QVxTypes::RegisterConfigurationPropertyType(std::int32_t number, std::int32_t length,
                                                         const std::string& rawInitial,
                                                         const std::string& rawMinimum,
                                                         const std::string& rawMaximum) {
    return impl_->Note(impl_->creator.RegisterCp(number, length, rawInitial, rawMinimum, rawMaximum));
}

void QVxTypes::CloseResourceFile() {
    impl_->Note(impl_->creator.EndEdits());
}

std::int32_t QVxTypes::SaveResourceFile(std::int32_t /*reserved1*/, std::int32_t /*reserved2*/) {
    return impl_->Note(impl_->creator.Save());
}

std::int32_t QVxTypes::LastRuntimeError() const {
    return impl_->creator.LastRuntimeError();
}

}  // namespace tovarek
