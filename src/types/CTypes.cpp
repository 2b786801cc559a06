#include "types/CTypes.h"

#include <utility>

#include "base/Numbers.h"
#include "template/TemplateFields.h"
#include "types/FormatDefinitions.h"

namespace tovarek {
namespace {

// The scope of types that a device defines for itself alone.
constexpr std::int32_t kOwnScope = 6;

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

std::string Key(std::int32_t scope, std::int32_t indexInScope) {
    return std::to_string(scope) + '_' + std::to_string(indexInScope);
}

}  // namespace

void CTypes::LoadTypes(const std::string& xmlFileFormat, const std::string& userTypeFile) {
    catalog->types.ClearTypeSelection();
    unvtTypes = {};
    ucptTypes = {};
    FormatDefinitions definitions(xmlFileFormat, prefixTypes, *errorHandler);
    nextIndex_.fill(1);
    zeros_ = 0;
    AddTemplateTypes(definitions);
    ReadUserTypeFile(userTypeFile, deviceTemplate->programID, *errorHandler,
                     [&](const TypeRequest& request) { AddType(definitions, request); });
}

void CTypes::AddTemplateTypes(FormatDefinitions& definitions) {
    const auto add = [&](TypeRequest request, const auto& record, std::size_t position) {
        request.origin = RecordTitle(record, position);
        const auto place = [&](const Error& error) {
            ErrorContext context;
            // Of a number without a definition the template tells where it stands.
            if (error.Number() == eQVXIFerr_typenotfoundinformatfile && error.Context().file.empty()) {
                context = request.inputPlace(TypeInput::definition);
                context.FillFrom({.value = std::to_string(request.formatNumber), .file = definitions.Path()});
            }
            context.record = request.origin;
            return context;
        };
        WithContext(place, [&] { AddType(definitions, request); });
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

void CTypes::AddType(FormatDefinitions& definitions, const TypeRequest& request) {
    // The first definition of a property type wins.
    if (!request.isUnvt && FindType(false, request.typeNumber, request.scope) != nullptr)
        return;
    // Only a network-variable type of the template may choose its scope.
    const TypeDefinition& definition =
        definitions.Get(request.formatNumber, request.isUnvt && !request.fromUserTypeFile);
    auto type = std::make_unique<CType>();
    definition.Instantiate(*type, request.isUnvt, request.scope);
    type->name = request.name;
    if (type->name.empty() && definition.name)
        type->name = (request.isUnvt ? "UNVT__" : "UCPT__") + *definition.name;
    ErrorContext place{.record = "type element " + definitions.ElementName(request.formatNumber) +
                                 (type->name.empty() ? "" : " '" + type->name + "'"),
                       .file = definitions.Path(),
                       .line = definition.content.LineOf()};
    place.FillFrom({.record = request.origin});
    type->place = std::make_shared<const ErrorContext>(std::move(place));
    type->inputPlace = std::make_shared<const TypeInputPlace>(request.inputPlace);
    const bool isWanted = WithContext([&] { return *type->place; }, [&] { return Complete(*type, request); });
    if (!isWanted)
        return;
    const std::string key = Key(type->scope, type->indexInScope);
    ListOf(request.isUnvt).Add(key, std::move(type));
}

// Numbers, measures, checks and fills a new type. False when it is not wanted after all.
bool CTypes::Complete(CType& type, const TypeRequest& request) {
    if (type.isUnvt && (type.scope < 0 || type.scope >= static_cast<std::int32_t>(nextIndex_.size())))
        RaiseRuntimeError(RuntimeError::subscriptOutOfRange, {.field = "SCOPE",
                                                              .value = std::to_string(type.scope),
                                                              .line = type.LineOf("SCOPE"),
                                                              .reason = "accepted: 0 to 6"});
    std::int32_t* const next = type.isUnvt ? &nextIndex_[static_cast<std::size_t>(type.scope)] : nullptr;
    type.indexInScope = next != nullptr ? *next : request.typeNumber;
    if (type.isUnvt && FindType(true, type.indexInScope, type.scope) != nullptr)
        return false;
    if (request.onlyScope6 && type.scope != kOwnScope)
        return false;
    type.ComputeReferenceLength(*catalog);
    if (useReferenceUnits)
        type.VerifyReferenceFormats(type, *catalog);
    type.AnalyseLength();
    if (next != nullptr)
        ++*next;
    RaisingSink raise(*errorHandler);
    type.VerifyData(raise);
    if (!type.isUnvt)
        FillRawValues(type, request);
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
