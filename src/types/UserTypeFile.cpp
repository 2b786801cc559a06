#include "types/UserTypeFile.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/Text.h"
#include "support/CTools.h"
#include "xml/Xml.h"

namespace tovarek {
namespace {

// The element of a scope, and the part of a program ID that devices of one such scope have in common: the
// position of its first character, from 0, and the number of characters.
struct ScopeRule {
    std::string_view element;
    std::int32_t scope;
    std::size_t position;
    std::size_t count;
};
constexpr ScopeRule kScopeRules[] = {
    {"_1", 1, 6, 4},   // device class
    {"_2", 2, 6, 8},   // device class, usage and channel type
    {"_3", 3, 1, 5},   // manufacturer
    {"_4", 4, 1, 9},   // manufacturer and device class
    {"_5", 5, 1, 13},  // manufacturer, device class, usage and channel type
};

// Where the raw values of a type are found.
struct RawValueRule {
    std::string_view element;
    TypeInput which;
    std::string TypeRequest::*value;
};
constexpr RawValueRule kRawValueRules[] = {
    {"MINRAWVAL", TypeInput::minimum, &TypeRequest::rawMinValue},
    {"MAXRAWVAL", TypeInput::maximum, &TypeRequest::rawMaxValue},
    {"INITRAWVAL", TypeInput::initial, &TypeRequest::rawInitValue},
};

// Letters in front of a type's number.
constexpr std::size_t kTypePrefix = 4;

std::string_view WithoutCharacters(std::string_view text, std::size_t count) {
    return text.substr(FirstCharacters(text, count).size());
}

std::string_view WithoutUnderscore(std::string_view text) {
    return text.starts_with('_') ? text.substr(1) : text;
}

std::string Part(std::string_view programID, const ScopeRule& rule) {
    return UpperCase(FirstCharacters(WithoutCharacters(programID, rule.position), rule.count));
}

template <class Operation>
void ForEachElement(const XmlNode& parent, const Operation& operation) {
    for (XmlNode child = parent.FirstChild(); child; child = child.NextSibling())
        if (child.IsElement())
            operation(child);
}

// The child of the type `node` that tells `which`; of several the last one counts. Without one, the type,
// whose name holds its number.
ErrorContext PlaceInType(const XmlNode& node, TypeInput which) {
    std::string_view name = which == TypeInput::definition ? "SNVTTYPE" : "";
    for (const RawValueRule& rule : kRawValueRules)
        if (rule.which == which)
            name = rule.element;
    ErrorContext place{.field = std::string(name), .file = node.File(), .line = node.Line()};
    ForEachElement(node, [&](const XmlNode& child) {
        if (UpperCase(child.Name()) != name)
            return;
        place.value = Excerpt(CTools().nodeTextValue(child));
        place.line = child.Line();
    });
    return place;
}

class UserTypeFileReader {
  public:
    UserTypeFileReader(const std::string& programID, const CErrorHandler& errorHandler, FindingSink& findings,
                       const AddTypeRequest& add)
        : programID_(programID), errorHandler_(errorHandler), findings_(findings), add_(add) {}

    void ReadTypes(const XmlNode& root, bool isUnvt) {
        ForEachElement(root, [&](const XmlNode& scope) {
            const std::string name = scope.Name();
            for (const ScopeRule& rule : kScopeRules)
                if (rule.element == name)
                    ReadScope(scope, rule, isUnvt);
        });
    }

  private:
    void ReadScope(const XmlNode& scope, const ScopeRule& rule, bool isUnvt) {
        const std::string wanted = Part(programID_, rule);
        ForEachElement(scope, [&](const XmlNode& device) {
            const std::string name = device.Name();
            if (Part(WithoutUnderscore(name), rule) == wanted)
                ForEachElement(device, [&](const XmlNode& type) {
                    TellingErrors(findings_, [&] { ReadType(type, rule.scope, isUnvt); });
                });
        });
    }

    void ReadType(const XmlNode& node, std::int32_t scope, bool isUnvt) {
        const std::string name = node.Name();
        // Deliberate: the first four letters may be any; the list that a type stands in tells its kind.
        const std::int32_t number =
            IntegerOfElement(node, WithoutUnderscore(WithoutCharacters(name, kTypePrefix)));
        if (number <= 0)
            return;
        TypeRequest request{.typeNumber = number, .isUnvt = isUnvt, .scope = scope, .fromUserTypeFile = true};
        TellingErrors(findings_, [&] {
            request.isRefused = true;
            ReadChildren(node, request);
            request.isRefused = false;
        });
        request.inputPlace = [node](TypeInput which) { return PlaceInType(node, which); };
        request.origin = "type <" + name + ">";
        request.name = (isUnvt ? "UNVT_" : "UCPT_") + std::to_string(number) + '_' + request.name;
        const auto place = [&](const Error& error) {
            ErrorContext context;
            // Of a number without a definition the file tells where it stands.
            if (error.Number() == eQVXIFerr_typenotfoundinformatfile && error.Context().file.empty())
                context = request.inputPlace(TypeInput::definition);
            context.FillFrom({.record = "type <" + name + ">", .file = node.File(), .line = node.Line()});
            return context;
        };
        WithPlace(findings_, place, [&](FindingSink& findings) { add_(request, findings); });
    }

    void ReadChildren(const XmlNode& node, TypeRequest& request) {
        bool hasDefinition = false;
        ForEachElement(node, [&](const XmlNode& child) {
            const std::string name = UpperCase(child.Name());
            if (name == "NAME") {
                request.name = tools_.nodeTextValue(child);
            } else if (name == "SNVTTYPE") {
                request.formatNumber = IntegerOfElement(child, tools_.nodeTextValue(child));
                hasDefinition = true;
            }
            for (const RawValueRule& rule : kRawValueRules)
                if (rule.element == name)
                    request.*rule.value = tools_.nodeTextValue(child);
        });
        if (request.name.empty() || !hasDefinition)
            errorHandler_.RaiseError(eQVXIFerr_errorloadingusertypefile,
                                     {.record = "type <" + node.Name() + ">",
                                      .field = request.name.empty() ? "NAME" : "SNVTTYPE",
                                      .file = node.File(),
                                      .line = node.Line(),
                                      .reason = "a type needs a NAME with a text and a SNVTTYPE"});
    }

    const std::string& programID_;
    const CErrorHandler& errorHandler_;
    FindingSink& findings_;
    const AddTypeRequest& add_;
    CTools tools_;
};

}  // namespace

void ReadUserTypeFile(const std::string& path, const std::string& programID,
                      const CErrorHandler& errorHandler, FindingSink& findings, const AddTypeRequest& add) {
    const XmlNode first = FirstNodeOf(path, eQVXIFerr_errorloadingusertypefile, errorHandler);
    UserTypeFileReader reader(programID, errorHandler, findings, add);
    for (XmlNode node = first; node; node = node.NextSibling()) {
        const std::string name = UpperCase(node.Name());
        if (name == "UNVTS" || name == "UCPTS")
            reader.ReadTypes(node, name == "UNVTS");
    }
}

}  // namespace tovarek
