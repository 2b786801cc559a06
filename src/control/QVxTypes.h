// The resource-file control: opens the standard type catalog, answers type lookups, and creates and saves
// LonMark resource files. It knows nothing of the component's errors: every operation answers with a result
// code, 0 on success, and throws nothing but std::bad_alloc. One instance holds one open catalog and one open
// file.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "control/TypeElement.h"
#include "formats/records/Outcome.h"
#include "system/Clock.h"
#include "system/Files.h"
#include "system/TrialOutput.h"

namespace tovarek {

class StandardCatalog;  // control/StandardCatalog.h
struct OwnTypes;        // control/OwnTypes.h

// One display format of a standard type. For a format with several parameters factor, offset and unit are
// those of its first one. Displayed value = factor x scaled value + offset.
struct TypeFormat {
    std::string name;
    double factor = 1.0;
    double offset = 0.0;
    std::string unit;
};

class QVxTypes {
  public:
    QVxTypes();
    ~QVxTypes();
    QVxTypes(const QVxTypes&) = delete;
    QVxTypes& operator=(const QVxTypes&) = delete;

    // ---- the catalog ----

    // Folder and file name of the catalog; OpenCatalog reads them joined with "\" where the folder is not
    // empty and does not end in a separator.
    const std::string& CatalogDirectory() const;
    void CatalogDirectory(const std::string& value);
    const std::string& CatalogFileName() const;
    void CatalogFileName(const std::string& value);

    void CloseCatalog();
    // Stands between closing and opening; the argument is always 0. Nothing is left to prepare.
    void PrepareCatalog(std::int32_t argument);
    // Opens the catalog; ResultCode tells: 0, 5 (the catalog file or the standard set cannot be read), 10 or
    // another code (the standard set is damaged).
    void OpenCatalog();
    // Takes one that is open already, and perhaps others' as well, in place of the named one.
    void UseCatalog(std::shared_ptr<const StandardCatalog> catalog);
    // The result of the last operation.
    std::int32_t ResultCode() const;
    // A sentence for people about the last result that was not 0; empty when there is nothing to say.
    const std::string& ResultReason() const;

    // Forgets the selected type. ResultCode becomes 0.
    void ClearTypeSelection();
    // Selects the standard network-variable type with this index (1 to 65535). ResultCode becomes 0, or 1
    // when no catalog is open or it lacks the type; then no type is selected.
    void SelectedTypeIndex(std::int32_t index);
    // Size in bytes of the selected type; 0 when none is selected.
    std::int32_t SelectedTypeSize() const;
    // The number of named display formats of the selected type; 0 when none is selected.
    std::int32_t SelectedTypeFormatCount() const;
    // Named format `number`, counted from 1, of the selected type. Answers 0, or 16 when there is none.
    std::int32_t SelectedTypeFormat(std::int32_t number, TypeFormat& format) const;

    // What is known of the open catalog, or null when none is open.
    const StandardCatalog* Catalog() const;

    // ---- creating resource files ----

    // The clock that header times are taken from; the machine's by default.
    void SetClock(std::shared_ptr<const Clock> clock);
    // What SaveResourceFile writes through, given a path; a plain OutputFile by default. It may raise the
    // runtime errors of a FileSink, which become code 27.
    void SetFileOpener(std::function<std::unique_ptr<FileSink>(const std::string&)> opener);

    // From now on files are only tried out: what is written goes to `trial`, which also tells whether a
    // folder is there. It lives until the next call; null ends the trial.
    void SetTrial(TrialOutput* trial);
    // From now on the types and texts of each set whose type file is saved are added to `sets`, in a trial
    // too; null ends that.
    void KeepSets(std::vector<OwnTypes>* sets);
    // In a trial a refused type does not hold up those behind it: it is dropped and its number counts as
    // used.
    void SkipType(bool isUnvt);

    // First call of a set; the control writes the handle that the creation calls take. A file that an earlier
    // set left unsaved is forgotten.
    void GetResourceSetHandle(std::int32_t& handle);
    // Scope, 0 to 6, of the files that are created from now on. Answers 0 or 3.
    std::int32_t SetResourceScope(std::int32_t scope);

    // Create and open a file; nothing is on disk before SaveResourceFile. `reserved` is always -1.
    // `programId` is 16 hexadecimal digits. `kind` (1 language, 3 profile, 4 type file) is also the number of
    // the string that describes the file, `creatorText` (always 2) the one that describes its creator.
    // Versions are 0 to 65535 (major) and 0 to 255 (minor; the title shows at least two digits). Codes: 2 a
    // file is open, 3 bad scope, 4 bad program ID, 5 the folder does not exist or the path is a folder, 6 a
    // text does not fit the header, 7 bad version, 8 no language is known for the locale, 9 creator
    // information is not usable, 16 bad handle, kind or creator text.
    std::int32_t CreateLanguageFile(const std::string& path, std::int32_t reserved, std::int32_t handle,
                                    const std::string& programId, const std::string& creator,
                                    const std::string& phone, const std::string& email,
                                    const std::string& webPage, std::int32_t localeId,
                                    std::int32_t majorVersion, std::int32_t minorVersion, std::int32_t kind,
                                    std::int32_t creatorText);
    std::int32_t CreateFunctionalProfileFile(const std::string& path, std::int32_t reserved,
                                             std::int32_t handle, const std::string& programId,
                                             const std::string& creator, const std::string& phone,
                                             const std::string& email, const std::string& webPage,
                                             std::int32_t majorVersion, std::int32_t minorVersion,
                                             std::int32_t kind, std::int32_t creatorText);
    std::int32_t CreateTypeFile(const std::string& path, std::int32_t reserved, std::int32_t handle,
                                const std::string& programId, const std::string& creator,
                                const std::string& phone, const std::string& email,
                                const std::string& webPage, std::int32_t majorVersion,
                                std::int32_t minorVersion, std::int32_t kind, std::int32_t creatorText);

    // Adds `text` (UTF-8) to the open language file and gives back its number (from 1) and its scope.
    // `reserved` is always 0. Codes: 11 nothing is open, 12 not a language file, 13 the text does not fit
    // (65,531 bytes in the code page) or no number is left.
    std::int32_t AddLanguageString(const std::string& text, std::int32_t reserved, std::int32_t& number,
                                   std::int32_t& scope);

    // Adds an enumeration set to the open type file and gives back its number. The set's file name is the
    // base name of the resource set and ".h". Codes: 11, 12, 14 (name empty or longer than 255 bytes, no
    // number left).
    std::int32_t CreateEnumeration(const std::string& name, std::int32_t& number);
    // Adds a value (-128 to 127) to enumeration `number`, with the number of its description text (0 = none).
    // Codes: 11, 12, 15 (no such enumeration, bad name or value, too many values).
    std::int32_t AddEnumerationValue(std::int32_t number, const std::string& name, std::int32_t value,
                                     std::int32_t descriptionText);

    // Starts a type; `name` is whole ("UNVT_speed"), its first four letters are not stored. Codes: 11, 12, 20
    // (bad name, or a type is being described already).
    std::int32_t StartType(const std::string& name);
    // Describe the type, or its next member where a structure or union still lacks members. The first call
    // describes the type itself. Codes: 11, 12, 21 no type is started, 17 the type has all its members or the
    // member's name does not fit, 16 a length, size or index that the kind does not have, 18 bad number of
    // members, 19 bad scaling or array size, 24 and 25 bad minimum or maximum.
    std::int32_t DescribeReference(const TypeElement& element, std::int32_t standardIndex, std::int32_t size);
    std::int32_t DescribeSigned(const TypeElement& element, std::int32_t length, const NumberRange& range);
    std::int32_t DescribeUnsigned(const TypeElement& element, std::int32_t length, const NumberRange& range);
    std::int32_t DescribeBitField(const TypeElement& element, std::int32_t bitSize, std::int32_t bitOffset,
                                  bool isSigned, const NumberRange& range);
    std::int32_t DescribeEnumeration(const TypeElement& element, std::int32_t number, std::int32_t minimum,
                                     std::int32_t maximum);
    std::int32_t DescribeText(const TypeElement& element, std::int32_t length);
    std::int32_t DescribeFloat(const TypeElement& element, std::optional<double> minimum,
                               std::optional<double> maximum);
    std::int32_t DescribeStructure(const TypeElement& element, std::int32_t memberCount);
    std::int32_t DescribeUnion(const TypeElement& element, std::int32_t memberCount);
    // Ends the description. 22 on success; 21 nothing is started, 23 members are missing.
    std::int32_t CompleteType();
    // Stores the completed type under its number in the scope; numbers must come in order from 1. The control
    // computes a network-variable type's size by the format's rules (bit fields share bytes, a union is as
    // large as its largest member). Codes: 11, 12, 21, 23, 20 (number out of order, size above 65535).
    // Names may repeat.
    std::int32_t RegisterNetworkVariableType(std::int32_t number);
    // The size of the record is that of the description, as for a network-variable type; `length`, in bytes,
    // may be another. The raw values are hexadecimal, two digits a byte: as many bytes as the size, or a
    // multiple of that for an array, whose first element is stored. Zeros of `length` bytes stand for a value
    // that nobody gave. Further codes: 16 a length below 1; 26, 24, 25 a bad initial, minimum or maximum
    // value.
    std::int32_t RegisterConfigurationPropertyType(std::int32_t number, std::int32_t length,
                                                   const std::string& rawInitial,
                                                   const std::string& rawMinimum,
                                                   const std::string& rawMaximum);

    // Ends the edits of the open file.
    void CloseResourceFile();
    // Writes the file whose edits were ended to disk; both arguments are always 0. Codes: 11, 23 a type was
    // started and not registered, 27 the write failed. The file is closed in any case.
    std::int32_t SaveResourceFile(std::int32_t reserved1, std::int32_t reserved2);
    // The runtime's number (61, 70, 75, 76 ...) of the last failed write, 0 when there was none.
    std::int32_t LastRuntimeError() const;

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace tovarek
