// A type of the device's own, or a member of one: how it is described, checked, measured and written into the
// resource files.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/KeyedList.h"
#include "support/Findings.h"
#include "types/catalog/CCatalog.h"

namespace tovarek {

class FormatLines;      // types/FormatLines.h
class StandardFormats;  // types/FormatLines.h
struct CParam;          // types/FormatLines.h

// What a type is made of; numbered as the generator always did.
enum ElementType : std::int32_t {
    elementNone = 0,
    elementSigned = 1,
    elementUnsigned = 2,
    elementBits = 3,
    elementEnum = 4,
    elementTextual = 5,
    elementStruct = 6,
    elementUnion = 7,
    elementFloat = 8,
    // Deliberate: has the name of a bit field and none of its rules; those are elementBits'.
    elementBitfield = 9,
};

// Format numbers from 1 to this one are the indexes of standard types.
inline constexpr std::int32_t kLargestStandardIndex = 255;

// The scope of the types that a device defines for itself alone: those that its template asks for.
inline constexpr std::int32_t kOwnScope = 6;

struct CEnumValue {
    std::string name;
    int line = 0;            // in the format file, for error messages; 0 = unknown
    std::int32_t value = 0;  // of a signed byte, -128 to 127
    std::string description;
    std::int32_t res_description = 0;  // string number of the description in the language file; 0 = none
};

// An alternative unit of display: shown = format_a_coef x scaled value + format_c_coef.
struct CFormat {
    std::string name;
    std::string unit;
    double format_a_coef = 1.0;
    double format_c_coef = 0.0;
};
using CFormats = KeyedList<CFormat>;

// Numbers of the enumerations that a type file holds already, by name.
using CreatedEnums = std::unordered_map<std::string, std::int32_t>;

// What the template or the user type file tells of a type: the number of its definition in the format file,
// and of a property type its own number and its raw values.
enum class TypeInput { definition, number, initial, minimum, maximum };

// Tells where that stands in the input: field, value, file and line, for messages. It looks into the template
// or the user type file, so it is asked while they are as they were loaded.
using TypeInputPlace = std::function<ErrorContext(TypeInput which)>;

// Where a type element stands in the format file, and those of its children that say something of the type.
struct ElementLines {
    struct Child {
        std::string_view name;  // in capitals
        int line = 0;
        std::string typed{};      // of a number, where it is not written as it is read
        std::int32_t number = 0;  // of a whole number, as it is read
    };
    int element = 0;
    std::vector<Child> children;
};

// A type may hold up to a million members, nested up to a thousand deep: what many members have in common is
// shared between them, and the operations that descend keep their frames small.
class CType {
  public:
    bool isUnvt = false;     // a network-variable type; else a configuration-property type
    bool isField = false;    // a member of a structure or union
    bool isRefused = false;  // a fault of it was told: it is not judged further, nor written
    bool hasMin = false;     // whether minValue and maxValue count
    bool hasMax = false;
    bool inheritable = false;
    bool bitfieldSigned = false;
    std::int32_t typeIndex = 0;  // format number of the definition
    std::int32_t scope = 0;      // resource scope, 0 to 6
    ElementType elementType = elementNone;
    std::int32_t a_coef = 1;  // scaled value = a_coef x 10^b_coef x (raw value + c_coef)
    std::int32_t b_coef = 0;
    std::int32_t c_coef = 0;
    std::int32_t length = 0;          // bytes
    std::int32_t arraySize = 0;       // elements; 0 = not an array
    std::int32_t indexInScope = 0;    // number of the type in its scope
    std::int32_t bitfieldSize = 0;    // bits
    std::int32_t bitfieldOffset = 0;  // bits from the start of the byte
    std::int32_t enumIndex = 0;       // number of the enumeration in the type file, once created
    std::int32_t res_longname = 0;    // string numbers in the language file; 0 = none
    std::int32_t res_unit = 0;
    std::int32_t res_description = 0;
    int memberLine = 0;   // of a member: where its owner lists it in the format file; 0 = unknown
    double minValue = 0;  // limits in scaled units
    double maxValue = 0;
    std::string name;
    std::string longname;
    std::string unit;
    std::string description;
    std::string rawInitValue;  // hexadecimal, two digits a byte; configuration-property types only
    std::string rawMinValue;
    std::string rawMaxValue;
    std::shared_ptr<const ErrorContext> place;  // of a type of its own: whose it is, and where it is defined
    std::shared_ptr<const TypeInputPlace> inputPlace;  // of a type of its own; none: not known
    std::shared_ptr<const ElementLines> lines;  // shared by all types of one type element; none: not known
    std::string enumName;
    std::shared_ptr<std::vector<CEnumValue>> enumValues;  // shared likewise; none: no values
    std::shared_ptr<const CFormats> availableFormats;     // shared likewise; none until the first one
    std::vector<CType> elements;                          // members of a structure or union
    std::vector<std::string> formats;  // names of its and its members' display formats, by AnalyseFormat

    // Whether the type stands for a standard one.
    bool isReference() const { return typeIndex > 0 && typeIndex <= kLargestStandardIndex; }
    bool HasMembers() const { return elementType == elementStruct || elementType == elementUnion; }

    // The line of the last child called `child`, in capitals, of the type element, or of the element itself
    // where it has none such; 0 = unknown.
    int LineOf(std::string_view child = {}) const;
    // That child, of several the last one; null where it has none such.
    const ElementLines::Child* ChildOf(std::string_view child) const;
    // The place and the value of a number that the child sets, with what it was read as.
    ErrorContext PlaceOf(std::string_view child, std::string read) const;

    // Sets elementType from the word of a type element; letter case does not matter. Raises error 91.
    void ConvertType(std::string_view t, const CErrorHandler& errorHandler);

    // Tells `findings` every fault of the type and its members; of those that are refused already nothing
    // more. The context names the field, not the type: the caller knows what the type is called.
    void VerifyData(FindingSink& findings) const;

    // The limits as raw integers, halves to even. Runtime error 6 when one does not fit 32 bits.
    std::int32_t minValueToLong() const { return RawValue(minValue); }
    std::int32_t maxValueToLong() const { return RawValue(maxValue); }

    // Lengths of references, from the catalog; 0 for a type that it lacks.
    void ComputeReferenceLength(CCatalog& catalog);
    // Gives `mainType` the named display formats of the standard types that this type is made of. One whose
    // name is there already, letter case aside, is left out.
    void VerifyReferenceFormats(CType& mainType, CCatalog& catalog) const;
    // Adds the length to `total`. Deliberate: a union counts the sum of its members, not the largest.
    void ComputeLength(std::int32_t& total) const;
    // Computes the length of a structure or union from its members.
    void AnalyseLength();

    // Adds the texts to the open language file and keeps their numbers. `resNumber` counts the strings of the
    // file.
    void AddToLangFile(CCatalog& catalog, std::int32_t& resNumber, const CErrorHandler& errorHandler);
    // Creates the enumeration in the open type file, unless one of its name is there already.
    void CreateEnum(CCatalog& catalog, const CErrorHandler& errorHandler, CreatedEnums& alreadyCreated);
    // CreateEnum for the type or for its members.
    void CreateEnums(CCatalog& catalog, const CErrorHandler& errorHandler, CreatedEnums& alreadyCreated);
    // Describes the type in the open type file. The main type (`isFirst`) is started before and registered
    // behind.
    void CreateType(CCatalog& catalog, const CErrorHandler& errorHandler, bool isFirst) const;

    // Gathers the names of the display formats of this type in `mainType`, each once.
    void AnalyseFormat(CType& mainType) const;
    // Appends what the display format `formatName` (empty: the default one) shows of this type. `prefix` is
    // the path of the type inside the main type (`isFirst`); it comes back unchanged.
    void AnalyseFormatLine(const std::string& formatName, std::vector<CParam>& params, std::string& prefix,
                           StandardFormats& catalog, bool isFirst) const;
    // Writes the lines of all display formats.
    void AddToFormatFile(FormatLines& file) const;

  private:
    std::int32_t RawValue(double value) const;

    void VerifyIdentity(FindingSink& findings) const;
    void VerifyDefinition(FindingSink& findings) const;
    void VerifyNumber(FindingSink& findings) const;
    void VerifyBitField(FindingSink& findings) const;

    void AddText(std::string_view field, const std::string& text, std::int32_t& number, CCatalog& catalog,
                 std::int32_t& resNumber, const CErrorHandler& errorHandler) const;
    std::int32_t Describe(QVxTypes& control) const;
    void StartType(CCatalog& catalog, const CErrorHandler& errorHandler) const;
    void Register(CCatalog& catalog, const CErrorHandler& errorHandler) const;
    ErrorContext RegistrationContext(std::int32_t code) const;
};

// Adds to `error`, which arose in `member`, what the member is called and where it is defined.
ErrorContext MemberContext(const CType& member);

}  // namespace tovarek
