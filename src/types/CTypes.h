// The user types of a device: all that its resource files define, each once.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "base/KeyedList.h"
#include "support/CErrorHandler.h"
#include "support/Findings.h"
#include "template/CTemplate.h"
#include "types/CType.h"
#include "types/UserTypeFile.h"
#include "types/catalog/CCatalog.h"

namespace tovarek {

class FormatDefinitions;  // types/FormatDefinitions.h
class Readings;           // support/Readings.h

// After LoadTypes every type is numbered, measured in bytes and checked, and has all its raw values.
class CTypes {
  public:
    using Types = KeyedList<std::unique_ptr<CType>>;

    // ---- set before LoadTypes ----
    const CTemplate* deviceTemplate = nullptr;  // loaded and checked
    const CErrorHandler* errorHandler = nullptr;
    CCatalog* catalog = nullptr;
    // Prefix of the type elements' names in the XML format file, in upper case.
    std::string prefixTypes = "SNVT_";
    // Whether each new type takes over the display formats of the standard types that it is made of.
    bool useReferenceUnits = true;

    // ---- the types, under scope, "_" and index in scope ("6_1") ----
    Types unvtTypes;
    Types ucptTypes;

    // Loads the types that the template uses and those that the user type file lists for the device, all as
    // `xmlFileFormat` defines them. Types that were added before an error stay. Raises error 89 or 128 for a
    // file that cannot be loaded, those of FormatDefinitions::Get and CType::VerifyData, and runtime errors:
    // 6 for a size beyond 32 bits, 7 for absent raw values beyond measure, 9 for a scope outside 0 to 6.
    void LoadTypes(const std::string& xmlFileFormat, const std::string& userTypeFile);
    // The same, with all of that told to `findings`. A type with a fault is refused and keeps its number, so
    // that those behind it are judged as they will be. `readings` hears what is read otherwise than it was
    // written; null for nobody.
    void LoadTypes(const std::string& xmlFileFormat, const std::string& userTypeFile, FindingSink& findings,
                   Readings* readings = nullptr);

    // The user type file of the last load.
    const std::string& UserTypePath() const { return userTypePath_; }

  private:
    // `definitions`: null for a file that cannot be loaded.
    void AddTemplateTypes(FormatDefinitions* definitions, FindingSink& findings);
    void AddType(FormatDefinitions* definitions, const TypeRequest& request, FindingSink& findings);
    void AddRefused(const TypeRequest& request);
    bool Complete(CType& type, const TypeRequest& request, FindingSink& findings);
    void FillRawValues(CType& type, const TypeRequest& request);

    Types& ListOf(bool isUnvt) { return isUnvt ? unvtTypes : ucptTypes; }
    const CType* FindType(bool isUnvt, std::int32_t indexInScope, std::int32_t scope);

    std::string userTypePath_;
    std::array<std::int32_t, 7> nextIndex_{};  // of network-variable types, by scope
    bool isEmptyTold_ = false;                 // of a format file that holds no types
    std::int64_t zeros_ = 0;                   // characters of absent raw values so far
};

}  // namespace tovarek
