#include "control/ResourceCreator.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include "base/Error.h"
#include "base/Path.h"
#include "base/Text.h"
#include "formats/records/ResourceFile.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

constexpr std::size_t kLongestHeaderText = 255;

// Why no file can be created at `path`, empty when one can: the folder must be there already, and the path
// must not be a folder itself.
std::string PathFault(const std::string& path, TrialOutput* trial) {
    const std::string folder = FolderOf(path);
    if (path.empty() || folder == path)
        return "the path \"" + SystemPath(path) + "\" does not name a file";
    if (FolderExists(path))
        return "\"" + SystemPath(path) + "\" is a folder, and a file of this name is to be written";
    if (!folder.empty() && !(trial != nullptr ? trial->HasFolder(folder) : FolderExists(folder)))
        return "there is no folder \"" + SystemPath(folder) + "\"; create it or choose another one";
    return {};
}

// The file that declares a set's enumerations: the set's base name and ".h".
std::string EnumerationFile(const std::string& path) {
    return std::string(StemOf(path)) + ".h";
}

bool HasControlCharacter(const std::string& text) {
    return std::any_of(text.begin(), text.end(), [](char c) { return c >= 0 && c < ' '; });
}

bool IsName(const std::string& name) {
    const std::size_t length = ToCodePage(name).size();
    return length >= 1 && length <= kLongestName;
}

}  // namespace

ResourceCreator::ResourceCreator()
    : clock_(SystemClock()), opener_([](const std::string& path) { return OpenOutput(path, nullptr); }) {}

std::int32_t ResourceCreator::BeginSet() {
    file_.reset();
    builder_ = {};
    texts_ = {};
    scope_.reset();
    handle_ = handle_ == 0x7FFFFFFF ? 1 : handle_ + 1;
    return handle_;
}

Outcome ResourceCreator::SetScope(std::int32_t scope) {
    if (scope < 0 || scope > 6) {
        scope_.reset();
        return Failure(resultBadScope, "a scope is 0 to 6");
    }
    scope_ = scope;
    return {};
}

Outcome ResourceCreator::CheckRequest(const CreationRequest& request) const {
    if (file_)
        return Failure(resultFileAlreadyOpened, "\"" + SystemPath(file_->path) + "\" is open");
    if (handle_ == 0 || request.handle != handle_)
        return Failure(resultBadParam, "the handle is not that of the current resource set");
    if (request.reserved != -1 || request.descriptionText != RowOf(request.kind).descriptionText ||
        request.creatorText != kCreatorText)
        return Failure(resultBadParam, "the kind of the file or the number of the creator's text is wrong");
    if (!scope_)
        return Failure(resultBadScope, "no scope of 0 to 6 is set");
    if (request.programId.size() != 16 || !FromHex(request.programId))
        return Failure(resultBadProgramId, "a program ID has 16 hexadecimal digits");
    if (std::string fault = PathFault(request.path, trial_); !fault.empty())
        return Failure(resultErrorOpenFile, std::move(fault));
    if (request.majorVersion < 0 || request.majorVersion > 65535 || request.minorVersion < 0 ||
        request.minorVersion > 255)
        return Failure(resultErrorSettingVersion,
                       "the major version is 0 to 65535, the minor version 0 to 255");
    if (request.kind == ResourceKind::language && LanguageOfLocale(request.localeId).empty())
        return Failure(resultErrorSettingLocale,
                       "no language is known for locale " + std::to_string(request.localeId) +
                           "; a locale is the number that Windows gives to a language of a country, such as "
                           "1033 (English, United States) or 1031 (German, Germany): see the LCID column of "
                           "the Windows language code identifiers");
    for (const std::string* text : {&request.creator, &request.phone, &request.email, &request.webPage}) {
        if (HasControlCharacter(*text)) {
            return Failure(resultErrorSettingInformation,
                           "creator, phone, e-mail and web page are single lines without control characters");
        }
    }
    const std::string contact = ContactText(request.creator, request.phone, request.email);
    if (CharacterCount(contact) > kLongestHeaderText ||
        CharacterCount(request.webPage) > kLongestHeaderText) {
        return Failure(resultErrorSettingHeader,
                       "creator, phone and e-mail together, or the web page, do not fit 255 characters");
    }
    return {};
}

ResourceHeader ResourceCreator::HeaderOf(const CreationRequest& request) const {
    ResourceHeader header;
    header.title = TitleText(request.kind, request.majorVersion, request.minorVersion);
    header.contact = ContactText(request.creator, request.phone, request.email);
    header.webPage = request.webPage;
    header.scope = static_cast<std::uint8_t>(*scope_);
    header.description = {header.scope, static_cast<std::uint32_t>(request.descriptionText)};
    header.creator = {header.scope, static_cast<std::uint32_t>(request.creatorText)};
    header.majorVersion = static_cast<std::uint16_t>(request.majorVersion);
    header.minorVersion = static_cast<std::uint8_t>(request.minorVersion);
    header.saved = clock_->UtcTime();
    const std::string id = *FromHex(request.programId);
    std::transform(id.begin(), id.end(), header.programId.begin(),
                   [](char byte) { return static_cast<std::uint8_t>(byte); });
    return header;
}

Outcome ResourceCreator::Create(const CreationRequest& request) {
    if (Outcome check = CheckRequest(request); !check.Ok())
        return check;
    auto file = std::make_unique<OpenFile>();
    file->kind = request.kind;
    file->path = request.path;
    file->header = file->language.header = file->types.header = HeaderOf(request);
    file->language.language = LanguageOfLocale(request.localeId);
    file->enumerationFile = EnumerationFile(request.path);
    builder_ = {};
    file_ = std::move(file);
    return {};
}

Outcome ResourceCreator::Editing(ResourceKind kind) const {
    if (!file_ || !file_->editing)
        return Failure(resultFileIsNotOpened, "no resource file is open");
    if (file_->kind != kind) {
        return Failure(resultInvalidForCurrentFile,
                       "the open file \"" + SystemPath(file_->path) + "\" is of another kind");
    }
    return {};
}

Outcome ResourceCreator::AddString(const std::string& text, std::int32_t& number, std::int32_t& scope) {
    if (Outcome editing = Editing(ResourceKind::language); !editing.Ok())
        return editing;
    std::vector<std::optional<std::string>>& strings = file_->language.strings;
    if (CharacterCount(text) > kLongestString || text.find('\0') != std::string::npos)
        return Failure(resultErrorAddingResource, "a text has at most 65,531 characters and no NUL");
    if (strings.size() >= kMostStrings)
        return Failure(resultErrorAddingResource, "the language file has 16,777,215 strings already");
    strings.emplace_back(text);
    number = static_cast<std::int32_t>(strings.size());
    scope = file_->header.scope;
    return {};
}

Outcome ResourceCreator::CreateEnumeration(const std::string& name, std::int32_t& number) {
    if (Outcome editing = Editing(ResourceKind::type); !editing.Ok())
        return editing;
    std::vector<std::optional<Enumeration>>& enumerations = file_->types.enumerations;
    if (!IsName(name) || !IsName(file_->enumerationFile)) {
        return Failure(resultErrorAddingEnum,
                       "names of an enumeration and its file have 1 to 255 characters: \"" + name + '"');
    }
    if (enumerations.size() >= kMostRecords)
        return Failure(resultErrorAddingEnum, "the type file has 65535 enumerations already");
    enumerations.emplace_back(Enumeration{name, file_->enumerationFile, {}});
    file_->enumerationLengths.push_back(RecordLength(*enumerations.back()));
    number = static_cast<std::int32_t>(enumerations.size());
    return {};
}

bool ResourceCreator::HasEnumeration(std::int32_t number) const {
    return number >= 1 && static_cast<std::size_t>(number) <= file_->types.enumerations.size();
}

Outcome ResourceCreator::AddEnumerationValue(std::int32_t number, const std::string& name, std::int32_t value,
                                             std::int32_t descriptionText) {
    if (Outcome editing = Editing(ResourceKind::type); !editing.Ok())
        return editing;
    if (!HasEnumeration(number))
        return Failure(resultErrorAddingEnumValue, "there is no enumeration " + std::to_string(number));
    if (!IsName(name))
        return Failure(resultErrorAddingEnumValue, "a value's name has 1 to 255 characters: \"" + name + '"');
    if (value < -128 || value > 127)
        return Failure(resultErrorAddingEnumValue, "the value of \"" + name + "\" is not -128 to 127");
    if (!IsTextNumber(descriptionText))
        return Failure(resultErrorAddingEnumValue, "a text number is 0 to 16777215");

    // The entry, then the name; the name's place must be told in 16 bits as well.
    const auto index = static_cast<std::size_t>(number) - 1;
    const std::size_t nameLength = ToCodePage(name).size() + 1;
    const std::size_t length = file_->enumerationLengths[index] + kEnumerationEntry + nameLength;
    if (length > kLongestRecord || kRecordHead + length - nameLength > kLongestRecord) {
        return Failure(
            resultErrorAddingEnumValue,
            "the values of an enumeration take 65535 bytes at most, \"" + name + "\" does not fit");
    }
    file_->enumerationLengths[index] = length;
    file_->types.enumerations[index]->values.push_back(
        {static_cast<std::int8_t>(value),
         name,
         {file_->header.scope, static_cast<std::uint32_t>(descriptionText)}});
    return {};
}

Outcome ResourceCreator::StartType(const std::string& name) {
    Outcome editing = Editing(ResourceKind::type);
    return editing.Ok() ? builder_.Start(name, file_->header.scope) : editing;
}

// Names may repeat: a device has as many types of one name as it has variables of that type.
Outcome ResourceCreator::CheckRegistration(std::int32_t number, bool isUnvt) const {
    if (Outcome editing = Editing(ResourceKind::type); !editing.Ok())
        return editing;
    if (builder_.CurrentState() == TypeBuilder::State::none)
        return Failure(resultNoCurrentType, "no type is started");
    if (builder_.CurrentState() != TypeBuilder::State::complete)
        return Failure(resultTypeIsNotComplete, "type \"" + builder_.Name() + "\" is not complete");
    const std::size_t registered = isUnvt ? file_->types.nvTypes.size() : file_->types.cpTypes.size();
    if (number < 1 || static_cast<std::size_t>(number) != registered + 1 || registered >= kMostRecords) {
        return Failure(resultErrorAddingType, "types are numbered 1 to 65535 in order; the next number is " +
                                                  std::to_string(registered + 1));
    }
    return {};
}

namespace {

// A raw value of a property type whose record is `size` bytes large. The `length` that the type was given may
// be another: a value that nobody gave is that many zeros, and one of an array holds several elements. `code`
// is what a value of neither kind is answered with.
Outcome RawValue(const std::string& hex, std::int32_t length, std::uint32_t size, QVxResult code,
                 std::string& bytes) {
    std::optional<std::string> value = FromHex(hex);
    if (!value)
        return Failure(code, "a raw value has two hexadecimal digits for each of its bytes");
    const bool isAbsent = value->size() == static_cast<std::size_t>(length) &&
                          value->find_first_not_of('\0') == std::string::npos;
    if (isAbsent)
        value = std::string(size, '\0');
    if (value->empty() || value->size() % size != 0) {
        return Failure(code,
                       "the type has " + std::to_string(size) +
                           " bytes, so a raw value has as many, or a multiple of that for an array; this "
                           "one has " +
                           std::to_string(value->size()));
    }
    bytes = value->substr(0, size);
    return {};
}

}  // namespace

Outcome ResourceCreator::RegisterNv(std::int32_t number) {
    if (Outcome check = CheckRegistration(number, true); !check.Ok())
        return check;
    NvType type = builder_.Take();
    const std::uint32_t size = SizeOf(type.type);
    if (size > 65535)
        return Failure(resultErrorAddingType, "type \"" + type.name + "\" is larger than 65535 bytes");
    type.size = static_cast<std::uint16_t>(size);
    if (RecordLength(type) > kLongestRecord)
        return Failure(resultErrorAddingType, "the description of \"" + type.name + "\" exceeds 65535 bytes");
    file_->types.nvTypes.emplace_back(std::move(type));
    return {};
}

Outcome ResourceCreator::RegisterCp(std::int32_t number, std::int32_t length, const std::string& rawInitial,
                                    const std::string& rawMinimum, const std::string& rawMaximum) {
    if (Outcome check = CheckRegistration(number, false); !check.Ok())
        return check;
    if (length < 1)
        return Failure(resultBadParam, "the length of a configuration property is 1 byte or more");
    const std::uint32_t size = builder_.Size();
    if (size > 65535)
        return Failure(resultErrorAddingType, "type \"" + builder_.Name() + "\" is larger than 65535 bytes");
    CpType type;
    for (const auto& [hex, bytes, code] : {std::tuple{&rawInitial, &type.initial, resultBadInitial},
                                           {&rawMinimum, &type.minimum.emplace(), resultBadMinimum},
                                           {&rawMaximum, &type.maximum.emplace(), resultBadMaximum}}) {
        if (Outcome value = RawValue(*hex, length, size, code, *bytes); !value.Ok())
            return value;
    }
    static_cast<NvType&>(type) = builder_.Take();
    type.size = static_cast<std::uint16_t>(size);
    if (RecordLength(type) + 1 + 3 * static_cast<std::size_t>(size) > kLongestRecord)
        return Failure(resultErrorAddingType, "the record of \"" + type.name + "\" exceeds 65535 bytes");
    file_->types.cpTypes.emplace_back(std::move(type));
    return {};
}

void ResourceCreator::SkipType(bool isUnvt) {
    builder_ = {};
    if (isUnvt)
        file_->types.nvTypes.emplace_back();
    else
        file_->types.cpTypes.emplace_back();
}

Outcome ResourceCreator::EndEdits() {
    if (!file_)
        return Failure(resultFileIsNotOpened, "no resource file is open");
    file_->editing = false;
    return {};
}

Outcome ResourceCreator::Bytes(std::string& bytes) const {
    switch (file_->kind) {
        case ResourceKind::language:
            return WriteLanguageFile(file_->language, bytes);
        case ResourceKind::type:
            return WriteTypeFile(file_->types, bytes);
        default: {
            ProfileFile profiles;
            profiles.header = file_->header;
            return WriteProfileFile(profiles, bytes);
        }
    }
}

Outcome ResourceCreator::WriteOut(const std::string& bytes) {
    try {
        const std::unique_ptr<FileSink> sink =
            trial_ != nullptr ? trial_->Open(file_->path) : opener_(file_->path);
        sink->Append(bytes);
        sink->Close();
        lastRuntimeError_ = 0;
        return {};
    } catch (const Error& error) {
        lastRuntimeError_ = error.Number();
        const std::string& reason = error.Context().reason;
        return Failure(resultSaveFailed, "\"" + SystemPath(file_->path) + "\" cannot be written: " +
                                             (reason.empty() ? error.Description() : reason));
    }
}

void ResourceCreator::KeepFile() {
    if (file_->kind == ResourceKind::language)
        texts_ = std::move(file_->language);
    else if (file_->kind == ResourceKind::type)
        sets_->push_back({std::move(file_->types), std::move(texts_)});
}

Outcome ResourceCreator::Save() {
    if (!file_)
        return Failure(resultFileIsNotOpened, "no resource file is open");
    Outcome outcome;
    if (builder_.CurrentState() != TypeBuilder::State::none)
        outcome = Failure(resultTypeIsNotComplete, "type \"" + builder_.Name() + "\" is not registered");
    std::string bytes;
    if (outcome.Ok())
        outcome = Bytes(bytes);
    if (outcome.Ok())
        outcome = WriteOut(bytes);
    if (outcome.Ok() && sets_ != nullptr)
        KeepFile();
    file_.reset();
    builder_ = {};
    return outcome;
}

}  // namespace tovarek
