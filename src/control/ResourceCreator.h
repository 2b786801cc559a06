// Creates resource files: the one file that is open, its strings, enumerations and types, and saving it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "control/OwnTypes.h"
#include "control/TypeBuilder.h"
#include "formats/language/LanguageFile.h"
#include "formats/profile/ProfileFile.h"
#include "formats/records/Outcome.h"
#include "formats/type/TypeFile.h"
#include "system/Clock.h"
#include "system/Files.h"
#include "system/TrialOutput.h"

namespace tovarek {

// What every creation call is given; the integers as they arrive.
struct CreationRequest {
    ResourceKind kind;
    std::string path;
    std::int32_t reserved;
    std::int32_t handle;
    std::string programId;
    std::string creator;
    std::string phone;
    std::string email;
    std::string webPage;
    std::int32_t localeId;  // language files only
    std::int32_t majorVersion;
    std::int32_t minorVersion;
    std::int32_t descriptionText;  // that of the kind
    std::int32_t creatorText;
};

class ResourceCreator {
  public:
    ResourceCreator();

    void SetClock(std::shared_ptr<const Clock> clock) { clock_ = std::move(clock); }
    void SetFileOpener(std::function<std::unique_ptr<FileSink>(const std::string&)> opener) {
        opener_ = std::move(opener);
    }

    // From now on it is only tried whether files could be written; null for files again.
    void SetTrial(TrialOutput* trial) { trial_ = trial; }

    // Where the contents of sets go when they are saved; null for nowhere.
    void KeepSets(std::vector<OwnTypes>* sets) { sets_ = sets; }

    // Begins a new set: an unsaved file of an earlier one, left by a failure, is forgotten, and so is the
    // scope.
    std::int32_t BeginSet();
    Outcome SetScope(std::int32_t scope);
    Outcome Create(const CreationRequest& request);
    Outcome AddString(const std::string& text, std::int32_t& number, std::int32_t& scope);
    Outcome CreateEnumeration(const std::string& name, std::int32_t& number);
    Outcome AddEnumerationValue(std::int32_t number, const std::string& name, std::int32_t value,
                                std::int32_t descriptionText);

    // The builder of the open type file's types. Codes of Editing: 11 nothing is open, 12 another kind of
    // file.
    Outcome Editing(ResourceKind kind) const;
    TypeBuilder& Builder() { return builder_; }
    bool HasEnumeration(std::int32_t number) const;
    std::uint8_t Scope() const { return file_->header.scope; }

    Outcome StartType(const std::string& name);
    Outcome RegisterNv(std::int32_t number);
    Outcome RegisterCp(std::int32_t number, std::int32_t length, const std::string& rawInitial,
                       const std::string& rawMinimum, const std::string& rawMaximum);

    // In a trial: drops the type that is being described, and lets its number pass.
    void SkipType(bool isUnvt);

    Outcome EndEdits();
    Outcome Save();
    // The runtime's number of the last failed write, 0 when there was none.
    std::int32_t LastRuntimeError() const { return lastRuntimeError_; }

  private:
    struct OpenFile {
        ResourceKind kind = ResourceKind::language;
        std::string path;
        bool editing = true;
        ResourceHeader header;
        LanguageFile language;
        TypeFile types;
        std::string enumerationFile;                  // file name that its enumerations are declared in
        std::vector<std::size_t> enumerationLengths;  // of the records, so far
    };

    Outcome CheckRequest(const CreationRequest& request) const;
    ResourceHeader HeaderOf(const CreationRequest& request) const;
    Outcome CheckRegistration(std::int32_t number, bool isUnvt) const;
    Outcome Bytes(std::string& bytes) const;
    void KeepFile();
    Outcome WriteOut(const std::string& bytes);

    std::shared_ptr<const Clock> clock_;
    std::function<std::unique_ptr<FileSink>(const std::string&)> opener_;
    TrialOutput* trial_ = nullptr;
    std::vector<OwnTypes>* sets_ = nullptr;
    LanguageFile texts_;  // of the set, until its types are saved
    std::int32_t handle_ = 0;
    std::optional<std::int32_t> scope_;
    std::unique_ptr<OpenFile> file_;
    TypeBuilder builder_;
    std::int32_t lastRuntimeError_ = 0;
};

}  // namespace tovarek
