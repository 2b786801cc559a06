#include "values/ValueTypes.h"

#include <algorithm>
#include <memory>

#include "base/Text.h"
#include "control/ResourceSet.h"
#include "formats/language/LanguageFile.h"
#include "formats/records/ResourceKinds.h"
#include "support/CErrorHandler.h"
#include "system/Files.h"
#include "types/CType.h"
#include "types/ControlResult.h"
#include "types/FormatDefinitions.h"

namespace tovarek {
namespace {

constexpr std::int32_t kReserved = -1;
constexpr std::int32_t kEnglish = 1033;
// Of files that nobody sees.
constexpr const char* kAnyProgramId = "9000000000000000";

// What the control would write, in memory.
class MemorySink : public FileSink {
  public:
    explicit MemorySink(std::string& bytes) : bytes_(bytes) { bytes_.clear(); }
    void Append(std::string_view bytes) override { bytes_ += bytes; }
    void Close() override {}

  private:
    std::string& bytes_;
};

template <class File>
void Read(const std::string& bytes, Outcome (*reader)(std::string_view, File&), File& file,
          const std::string& path) {
    if (const Outcome outcome = reader(bytes, file); !outcome.Ok())
        CErrorHandler().RaiseQVxTypesEditError(outcome.code, {.file = path, .reason = outcome.reason});
}

// What is wrong with a definition is told when it is asked for.
class RefusedAlone : public FindingSink {
  public:
    void Take(Finding /*finding*/) override {}
};

// In capitals, without what stands in front of the names of types.
std::string BareName(std::string_view name) {
    std::string bare = UpperCase(name);
    for (const std::string_view prefix : {"UNVT", "UCPT"})
        if (bare.starts_with(prefix))
            bare.erase(0, prefix.size());
    bare.erase(0, std::min(bare.find_first_not_of('_'), bare.size()));
    return bare;
}

// Has the control write one type and keeps the bytes.
class Describer {
  public:
    explicit Describer(CCatalog& catalog) : catalog_(catalog), control_(catalog.types) {
        control_.SetFileOpener([this](const std::string&) { return std::make_unique<MemorySink>(bytes_); });
        control_.GetResourceSetHandle(handle_);
        Check(control_.SetResourceScope(kOwnScope));
    }
    ~Describer() { control_.SetFileOpener({}); }
    Describer(const Describer&) = delete;
    Describer& operator=(const Describer&) = delete;

    OwnTypes Describe(CType& type) {
        OwnTypes own;
        Check(control_.CreateLanguageFile("own.enu", kReserved, handle_, kAnyProgramId, "", "", "", "",
                                          kEnglish, 1, 0, RowOf(ResourceKind::language).descriptionText,
                                          kCreatorText));
        std::int32_t strings = 1;
        type.AddToLangFile(catalog_, strings, errorHandler_);
        Save();
        Read(bytes_, ReadLanguageFile, own.texts, "");
        Check(control_.CreateTypeFile("own.typ", kReserved, handle_, kAnyProgramId, "", "", "", "", 1, 0,
                                      RowOf(ResourceKind::type).descriptionText, kCreatorText));
        CreatedEnums enums;
        type.CreateEnums(catalog_, errorHandler_, enums);
        type.CreateType(catalog_, errorHandler_, true);
        Save();
        Read(bytes_, ReadTypeFile, own.types, "");
        return own;
    }

  private:
    void Check(std::int32_t code) { CheckControl(code, {}, control_, errorHandler_); }
    void Save() { Check(control_.SaveResourceFile(0, 0)); }

    CErrorHandler errorHandler_;
    CCatalog& catalog_;
    QVxTypes& control_;
    std::string bytes_;
    std::int32_t handle_ = 0;
};

}  // namespace

const InheritingType* InheritingTypeOf(std::int32_t index) {
    const auto found = std::find_if(kInheritingTypes.begin(), kInheritingTypes.end(),
                                    [&](const InheritingType& type) { return type.index == index; });
    return found == kInheritingTypes.end() ? nullptr : &*found;
}

ValueType ValueTypeOf(const std::string& name, const NvType& type) {
    return {name, type.type, type.unit};
}

ValueType ValueTypeOf(const std::string& name, const CpType& type, const ResourceNames& names) {
    ValueType value = ValueTypeOf(name, static_cast<const NvType&>(type));
    const ShownType shown = ShownTypeOf(type.type, type.unit, names);
    if (shown.shape != ValueShape::integer || !type.minimum || !type.maximum ||
        type.minimum->size() != shown.size || type.maximum->size() != shown.size)
        return value;
    const std::int64_t minimum = ReadRaw(*type.minimum, 0, *shown.type);
    const std::int64_t maximum = ReadRaw(*type.maximum, 0, *shown.type);
    // Zeros for both are limits that nobody gave.
    if (minimum >= maximum || minimum < shown.type->minimum || maximum > shown.type->maximum)
        return value;
    value = {name, *shown.type, shown.unit};
    value.type.minimum = minimum;
    value.type.maximum = maximum;
    return value;
}

OwnTypes ReadOwnTypes(const std::string& path) {
    OwnTypes own;
    Read(ReadFile(path), ReadTypeFile, own.types, path);
    // Without its texts a type has no units, and that is all.
    if (const std::string texts = FindResourceSet(path).language; !texts.empty())
        if (!ReadLanguageFile(ReadFile(texts), own.texts).Ok())
            own.texts = {};
    return own;
}

OwnTypes ReadDefinedType(const std::string& path, const std::string& prefix, std::int32_t number,
                         CCatalog& catalog) {
    const CErrorHandler errorHandler;
    RaisingSink raise(errorHandler);
    FormatDefinitions definitions(path, prefix, errorHandler);
    const TypeDefinition& definition = definitions.Get(number, false, raise);
    CType type;
    definition.Instantiate(type, true, kOwnScope);
    type.indexInScope = 1;
    type.name = "UNVT__" + definition.name.value_or(std::to_string(number));
    try {
        type.ComputeReferenceLength(catalog);
        type.AnalyseLength();
        type.VerifyData(raise);
        return Describer(catalog).Describe(type);
    } catch (Error& error) {
        error.AddContext({.record = "type element " + definitions.ElementName(number),
                          .file = definitions.Path(),
                          .line = definition.content.LineOf()});
        throw;
    }
}

std::vector<std::int32_t> DefinedTypesNamed(const std::string& path, const std::string& prefix,
                                            std::string_view name) {
    const CErrorHandler errorHandler;
    FormatDefinitions definitions(path, prefix, errorHandler);
    const std::string wanted = BareName(name);
    std::vector<std::int32_t> found;
    for (const std::int32_t number : definitions.Numbers()) {
        if (number <= kLargestStandardIndex)
            continue;
        RefusedAlone refused;
        TellingErrors(refused, [&] {
            const std::optional<std::string>& own = definitions.Get(number, false, refused).name;
            if (own && BareName(*own) == wanted)
                found.push_back(number);
        });
    }
    return found;
}

ValueType ArrayOfValues(const ValueType& element, std::uint16_t count) {
    return {element.name + '[' + std::to_string(count) + ']', ArrayOf(element.type, count, 0), element.unit};
}

}  // namespace tovarek
