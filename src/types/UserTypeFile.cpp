#include "types/UserTypeFile.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "base/Nearest.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "support/CTools.h"
#include "support/Readings.h"
#include "types/TypeReadings.h"
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

bool IsScope(std::string_view name) {
    return std::any_of(std::begin(kScopeRules), std::end(kScopeRules),
                       [&](const ScopeRule& rule) { return rule.element == name; });
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
    ErrorContext place{
        .field = std::string(name), .file = node.File(), .line = node.Line(), .column = node.Place().column};
    ForEachElement(node, [&](const XmlNode& child) {
        if (UpperCase(child.Name()) != name)
            return;
        place.value = Excerpt(CTools().nodeTextValue(child));
        place.line = child.Line();
        place.column = child.Place().column;
    });
    return place;
}

constexpr std::size_t kProgramIdDigits = 16;

// The names that a type's children have.
XmlNames ChildNames() {
    static const std::vector<std::string_view> names =
        NamesOf(kRawValueRules, &RawValueRule::element, {"NAME", "SNVTTYPE"});
    return names;
}

XmlNames ScopeNames() {
    static const std::vector<std::string_view> names = NamesOf(kScopeRules, &ScopeRule::element);
    return names;
}

bool IsList(std::string_view name) {
    return name == "UNVTS" || name == "UCPTS";
}

// What of the file is read otherwise than it was written; does nothing when nobody listens.
class UserTypeReading {
  public:
    UserTypeReading(const UserTypeListener& listener, const XmlNode& root) : listener_(listener) {
        if (listener.readings == nullptr || !root)
            return;
        reading_ = &listener.readings->Xml(root);
        if (IsList(UpperCase(root.Name())))
            reading_->Structure(root, ScopeNames());
        else
            Tell(Warning::ignoredElement, root,
                 "<" + Excerpt(root.Name()) + "> is not read: the document element is UNVTS or UCPTS" +
                     DidYouMean(root.Name(), {"UNVTS", "UCPTS"}));
        if (!IsList(UpperCase(root.Name())))
            reading_->Skip(root);
    }

    void Structure(const XmlNode& element) {
        if (reading_ != nullptr)
            reading_->Structure(element);
    }
    // Another list inside the list counts as a scope.
    void OtherScope(const XmlNode& scope) {
        if (reading_ == nullptr)
            return;
        const std::string name = scope.Name();
        if (name == "_6")
            reading_->Misplaced(scope, "types of scope 6 come from the template alone");
        else if (IsNumber(WithoutUnderscore(name)) && !IsScope(name))
            reading_->Misplaced(scope, "the scopes of a user type file are <_1> to <_5>");
        if (!IsList(UpperCase(name)))
            return;
        Tell(Warning::mixedTypes, scope,
             "<" + name +
                 "> is not read: a user type file holds either UNVTS or UCPTS, as its document element");
        reading_->Skip(scope);
    }
    // That of another maker is no mistake; a name that is no program ID is one.
    void Device(const XmlNode& device, bool isMeant) {
        if (reading_ == nullptr)
            return;
        const std::string name = device.Name();
        const std::string_view id = WithoutUnderscore(name);
        const bool isId = id.size() == kProgramIdDigits && FromHex(id);
        if (isMeant)
            reading_->Structure(device);
        else if (isId)
            reading_->Skip(device);
        else
            reading_->Misplaced(
                device, "its name does not hold a program ID, which has 16 hexadecimal digits behind a '_'");
    }
    void NoType(const XmlNode& type) {
        if (reading_ != nullptr)
            reading_->Misplaced(type, "behind four letters and a '_' its name has no number of 1 or more");
    }
    void Type(const XmlNode& type, std::int32_t number, bool isUnvt) {
        if (reading_ == nullptr)
            return;
        reading_->Structure(type, ChildNames());
        const std::string name = type.Name();
        record_ = std::make_shared<XmlRecord>(*reading_, listener_.readings->Findings(),
                                              [name] { return "type <" + name + ">"; });
        const std::string digits(WithoutUnderscore(WithoutCharacters(name, kTypePrefix)));
        if (!IsNumber(digits))
            Tell(Warning::notANumber, type,
                 "\"" + Excerpt(digits) + "\" in the name of <" + Excerpt(name) + "> is read as the number " +
                     std::to_string(number));
        const std::string right = isUnvt ? "UNVT" : "UCPT";
        if (const std::string letters = UpperCase(FirstCharacters(name, kTypePrefix)); letters != right)
            Tell(
                Warning::mixedTypes, type,
                "<" + Excerpt(name) + "> is read as a " + (isUnvt ? "network-variable" : "property") +
                    " type, because it stands in " + right + "S" +
                    (letters == "UCPT" || letters == "UNVT" ? "" : ": write <" + right + "_" + digits + ">"));
    }
    void Child(const XmlNode& child, const std::string& name, bool isUnvt) {
        if (reading_ == nullptr)
            return;
        const XmlNames names = ChildNames();
        const auto known = std::find(names.begin(), names.end(), name);
        if (known == names.end())
            return;
        if (name == "SNVTTYPE")
            record_->Integer(child, *known, [&](std::string_view typed, std::int32_t /*read*/) {
                return MendTypeNumber(listener_.catalog, listener_.prefix, typed);
            });
        else if (name == "NAME" || !isUnvt) {
            record_->Text(child, *known);
            const std::string text = CTools().nodeTextValue(child);
            if (name == "NAME" && text.find_first_of(kWhiteSpace) != std::string::npos)
                record_->Tell(Warning::blankInName, child, *known,
                              "\"" + Excerpt(text) +
                                  "\" has white space in it, which becomes part of the type's name: write it "
                                  "without");
        } else
            reading_->Misplaced(child, "only property types have raw values");
    }

  private:
    void Tell(Warning warning, const XmlNode& element, std::string reason) {
        listener_.readings->Findings().Take(AtElement(warning, element, std::move(reason)));
    }

    UserTypeListener listener_;
    XmlReading* reading_ = nullptr;
    std::shared_ptr<XmlRecord> record_;  // of the type that is being read
};

class UserTypeFileReader {
  public:
    UserTypeFileReader(const std::string& programID, const CErrorHandler& errorHandler, FindingSink& findings,
                       const AddTypeRequest& add, UserTypeReading reading)
        : programID_(programID),
          errorHandler_(errorHandler),
          findings_(findings),
          add_(add),
          reading_(std::move(reading)) {}

    void ReadTypes(const XmlNode& root, bool isUnvt) {
        ForEachElement(root, [&](const XmlNode& scope) {
            const std::string name = scope.Name();
            for (const ScopeRule& rule : kScopeRules)
                if (rule.element == name)
                    ReadScope(scope, rule, isUnvt);
            reading_.OtherScope(scope);
        });
    }

  private:
    void ReadScope(const XmlNode& scope, const ScopeRule& rule, bool isUnvt) {
        const std::string wanted = Part(programID_, rule);
        reading_.Structure(scope);
        ForEachElement(scope, [&](const XmlNode& device) {
            const std::string name = device.Name();
            const bool isMeant = Part(WithoutUnderscore(name), rule) == wanted;
            reading_.Device(device, isMeant);
            if (isMeant)
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
            return reading_.NoType(node);
        reading_.Type(node, number, isUnvt);
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
            context.FillFrom({.record = "type <" + name + ">",
                              .file = node.File(),
                              .line = node.Line(),
                              .column = node.Place().column});
            return context;
        };
        WithPlace(findings_, place, [&](FindingSink& findings) { add_(request, findings); });
    }

    void ReadChildren(const XmlNode& node, TypeRequest& request) {
        bool hasDefinition = false;
        ForEachElement(node, [&](const XmlNode& child) {
            const std::string name = UpperCase(child.Name());
            reading_.Child(child, name, request.isUnvt);
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
                                      .column = node.Place().column,
                                      .reason = "a type needs a NAME with a text and a SNVTTYPE"});
    }

    const std::string& programID_;
    const CErrorHandler& errorHandler_;
    FindingSink& findings_;
    const AddTypeRequest& add_;
    UserTypeReading reading_;
    CTools tools_;
};

}  // namespace

void ReadUserTypeFile(const std::string& path, const std::string& programID,
                      const CErrorHandler& errorHandler, FindingSink& findings, const AddTypeRequest& add,
                      const UserTypeListener& listener) {
    const XmlNode first = FirstNodeOf(path, eQVXIFerr_errorloadingusertypefile, errorHandler);
    XmlNode root = first;
    while (root && !root.IsElement())
        root = root.NextSibling();
    UserTypeFileReader reader(programID, errorHandler, findings, add, UserTypeReading(listener, root));
    for (XmlNode node = first; node; node = node.NextSibling()) {
        const std::string name = UpperCase(node.Name());
        if (IsList(name))
            reader.ReadTypes(node, name == "UNVTS");
    }
}

}  // namespace tovarek
