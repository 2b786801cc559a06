#include "types/CTypes.h"

#include <utility>

#include "base/Numbers.h"
#include "base/Path.h"
#include "template/TemplateFields.h"
#include "template/TemplatePlaces.h"
#include "types/FormatDefinitions.h"

namespace tovarek {
namespace {

// Where the template tells something of the type of its configuration property `position`, from 0.
ErrorContext PlaceInProperty(const CTemplate& source, std::size_t position, TypeInput which) {
    switch (which) {
        case TypeInput::definition:
            return source.PlaceOf(position, &CCp::typeIndex);
        case TypeInput::number:
            return source.PlaceOf(position, &CCp::declaration);
        case TypeInput::initial:
            return source.PlaceOf(position, &CCp::initValue);
        case TypeInput::minimum:
            return source.PlaceOf(position, &CCp::minValue);
        case TypeInput::maximum:
            return source.PlaceOf(position, &CCp::maxValue);
    }
    return {};
}

// Types of other scopes than the device's own come from the user type file.
void TellDropped(const CType& type, FindingSink& findings) {
    findings.Take({.context = {.field = "SCOPE",
                               .value = std::to_string(type.scope),
                               .line = type.LineOf("SCOPE"),
                               .reason = "the type of this variable is not written: its SCOPE is " +
                                         std::to_string(type.scope) + ", types of a template have scope " +
                                         std::to_string(kOwnScope) +
                                         "; leave SCOPE out, or list the type in the user type file"},
                   .warning = Warning::ignoredElement});
}

// A property type of the user type file whose number is taken.
void TellRepeated(const TypeRequest& request, const CType& first, FindingSink& findings) {
    Finding finding{.context = request.inputPlace(TypeInput::number), .warning = Warning::duplicateType};
    finding.context.reason = "type " + std::to_string(request.typeNumber) + " of scope " +
                             std::to_string(request.scope) +
                             " stands in the file already; only the first one is written: give this one "
                             "another number";
    if (first.inputPlace) {
        const ErrorContext other = (*first.inputPlace)(TypeInput::number);
        finding.notes.push_back({other.file, other.line, "the first one"});
    }
    findings.Take(std::move(finding));
}

std::string Key(std::int32_t scope, std::int32_t indexInScope) {
    return std::to_string(scope) + '_' + std::to_string(indexInScope);
}

}  // namespace

void CTypes::LoadTypes(const std::string& xmlFileFormat, const std::string& userTypeFile) {
    RaisingSink raise(*errorHandler);
    LoadTypes(xmlFileFormat, userTypeFile, raise);
}

void CTypes::LoadTypes(const std::string& xmlFileFormat, const std::string& userTypeFile,
                       FindingSink& findings, Readings* readings) {
    catalog->types.ClearTypeSelection();
    userTypePath_ = userTypeFile;
    unvtTypes = {};
    ucptTypes = {};
    nextIndex_.fill(1);
    zeros_ = 0;
    isEmptyTold_ = false;
    std::unique_ptr<FormatDefinitions> definitions;
    TellingErrors(findings, [&] {
        definitions = std::make_unique<FormatDefinitions>(xmlFileFormat, prefixTypes, *errorHandler);
        if (readings != nullptr)
            definitions->Listen(*readings, catalog->types.Catalog());
    });
    AddTemplateTypes(definitions.get(), findings);
    TellingErrors(findings, [&] {
        // A folder alone is no file; the template is the place to mend.
        if (deviceTemplate->userTypeFile.empty() && NameOf(userTypeFile).empty()) {
            ErrorContext place = TemplatePlaces(*deviceTemplate).Of(&CTemplate::userTypeFile, {});
            place.record.clear();
            errorHandler->RaiseError(eQVXIFerr_errorloadingusertypefile, std::move(place));
        }
        ReadUserTypeFile(userTypeFile, deviceTemplate->programID, *errorHandler, findings,
                         [&](const TypeRequest& request, FindingSink& ofType) {
                             AddType(definitions.get(), request, ofType);
                         },
                         {readings, catalog->types.Catalog(), prefixTypes});
    });
    if (definitions)
        definitions->TellUnused();
}

void CTypes::AddTemplateTypes(FormatDefinitions* definitions, FindingSink& findings) {
    const auto add = [&](TypeRequest request, const auto& record, std::size_t position) {
        request.origin = RecordTitle(record, position);
        const auto place = [&](const Error& error) {
            ErrorContext context;
            // Of a number without a definition the template tells where it stands.
            if (error.Number() == eQVXIFerr_typenotfoundinformatfile && error.Context().file.empty()) {
                context = request.inputPlace(TypeInput::definition);
                context.FillFrom(
                    {.value = std::to_string(request.formatNumber), .file = definitions->Path()});
            }
            context.record = request.origin;
            return context;
        };
        WithPlace(findings, place, [&](FindingSink& placed) { AddType(definitions, request, placed); });
    };
    for (std::size_t i = 0; i < deviceTemplate->nvs.size(); ++i) {
        const CNv& nv = deviceTemplate->nvs[i];
        if (nv.unvtType >= 1 && nv.typeIndex == 0)
            add({.formatNumber = nv.unvtType,
                 .isUnvt = true,
                 .scope = kOwnScope,
                 .inputPlace = [source = deviceTemplate,
                                i](TypeInput /*which*/) { return source->PlaceOfNvType(i); },
                 .onlyScope6 = true},
                nv, i);
    }
    for (std::size_t i = 0; i < deviceTemplate->cps.size(); ++i) {
        const CCp& cp = deviceTemplate->cps[i];
        if (cp.scope != kOwnScope || cp.typeIndex < 1)
            continue;
        add({.name = "UCPT_" + std::to_string(cp.typeIndexInScope) + '_' + cp.name,
             .formatNumber = cp.typeIndex,
             .typeNumber = cp.typeIndexInScope,
             .scope = cp.scope,
             .rawMinValue = cp.minValue,
             .rawMaxValue = cp.maxValue,
             .rawInitValue = cp.initValue,
             .inputPlace = [source = deviceTemplate,
                            i](TypeInput which) { return PlaceInProperty(*source, i, which); },
             .onlyScope6 = true},
            cp, i);
    }
}

void CTypes::AddType(FormatDefinitions* definitions, const TypeRequest& request, FindingSink& findings) {
    // The first definition of a property type wins.
    if (const CType* const first =
            request.isUnvt ? nullptr : FindType(false, request.typeNumber, request.scope)) {
        if (request.fromUserTypeFile && findings.WantsWarnings())
            TellRepeated(request, *first, findings);
        return;
    }
    const TypeDefinition* definition = nullptr;
    // Only a network-variable type of the template may choose its scope.
    TellingErrors(findings, [&] {
        // That the file holds no types at all is told with the first one.
        if (definitions != nullptr && !request.isRefused && !isEmptyTold_)
            definition = &definitions->Get(request.formatNumber, request.isUnvt && !request.fromUserTypeFile,
                                           findings);
    });
    if (definition == nullptr) {
        isEmptyTold_ = isEmptyTold_ || (definitions != nullptr && !definitions->HasRoot());
        return AddRefused(request);
    }
    auto type = std::make_unique<CType>();
    definition->Instantiate(*type, request.isUnvt, request.scope);
    type->name = request.name;
    if (type->name.empty() && definition->name)
        type->name = (request.isUnvt ? "UNVT__" : "UCPT__") + *definition->name;
    ErrorContext place{.record = "type element " + definitions->ElementName(request.formatNumber) +
                                 (type->name.empty() ? "" : " '" + type->name + "'"),
                       .file = definitions->Path(),
                       .line = definition->content.LineOf()};
    place.FillFrom({.record = request.origin});
    type->place = std::make_shared<const ErrorContext>(std::move(place));
    type->inputPlace = std::make_shared<const TypeInputPlace>(request.inputPlace);
    bool isWanted = false;
    TellingErrors(findings, [&] {
        WithPlace(
            findings, [&] { return *type->place; },
            [&](FindingSink& placed) { isWanted = Complete(*type, request, placed); });
    });
    if (!isWanted)
        return;
    const std::string key = Key(type->scope, type->indexInScope);
    ListOf(request.isUnvt).Add(key, std::move(type));
}

// Keeps the number of a property type without a definition, so that its absence is no gap. Those of
// network-variable types follow each other anyway.
void CTypes::AddRefused(const TypeRequest& request) {
    if (request.isUnvt)
        return;
    auto type = std::make_unique<CType>();
    type->scope = request.scope;
    type->indexInScope = request.typeNumber;
    type->isRefused = true;
    const std::string key = Key(type->scope, type->indexInScope);
    ucptTypes.Add(key, std::move(type));
}

// Numbers, measures, checks and fills a new type. False when it is not wanted after all.
bool CTypes::Complete(CType& type, const TypeRequest& request, FindingSink& findings) {
    if (type.isUnvt && (type.scope < 0 || type.scope >= static_cast<std::int32_t>(nextIndex_.size())))
        RaiseRuntimeError(RuntimeError::subscriptOutOfRange, {.field = "SCOPE",
                                                              .value = std::to_string(type.scope),
                                                              .line = type.LineOf("SCOPE"),
                                                              .reason = "accepted: 0 to 6"});
    std::int32_t* const next = type.isUnvt ? &nextIndex_[static_cast<std::size_t>(type.scope)] : nullptr;
    type.indexInScope = next != nullptr ? *next : request.typeNumber;
    if (type.isUnvt && FindType(true, type.indexInScope, type.scope) != nullptr)
        return false;
    if (request.onlyScope6 && type.scope != kOwnScope) {
        if (findings.WantsWarnings())
            TellDropped(type, findings);
        return false;
    }
    type.ComputeReferenceLength(*catalog);
    if (useReferenceUnits)
        type.VerifyReferenceFormats(type, *catalog);
    MarkingSink marking(findings);
    TellingErrors(marking, [&] { type.AnalyseLength(); });
    type.isRefused = type.isRefused || marking.HasError();
    if (next != nullptr)
        ++*next;
    type.VerifyData(marking);
    type.isRefused = type.isRefused || marking.HasError();
    if (!type.isUnvt && !type.isRefused)
        TellingErrors(marking, [&] { FillRawValues(type, request); });
    type.isRefused = type.isRefused || marking.HasError();
    return true;
}

// Absent raw values are all zeros, two digits a byte.
void CTypes::FillRawValues(CType& type, const TypeRequest& request) {
    type.rawInitValue = request.rawInitValue;
    type.rawMinValue = request.rawMinValue;
    type.rawMaxValue = request.rawMaxValue;
    for (std::string CType::*value : {&CType::rawInitValue, &CType::rawMinValue, &CType::rawMaxValue}) {
        if (!(type.*value).empty())
            continue;
        const std::int32_t characters = MultiplyChecked(2, type.length);
        zeros_ += characters;
        if (zeros_ > kMostZeros)
            RaiseRuntimeError(
                RuntimeError::outOfMemory,
                {.field = "LENGTH",
                 .value = std::to_string(type.length),
                 .line = type.LineOf("LENGTH"),
                 .reason = "the raw values so far have more bytes than any device; correct LENGTH"});
        (type.*value).assign(static_cast<std::size_t>(characters), '0');
    }
}

const CType* CTypes::FindType(bool isUnvt, std::int32_t indexInScope, std::int32_t scope) {
    const std::unique_ptr<CType>* const found = ListOf(isUnvt).Find(Key(scope, indexInScope));
    return found == nullptr ? nullptr : found->get();
}

}  // namespace tovarek
