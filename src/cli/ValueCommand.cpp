#include "cli/ValueCommand.h"

#include <algorithm>
#include <optional>
#include <ostream>

#include "base/Numbers.h"
#include "base/Text.h"
#include "cli/CatalogFind.h"
#include "cli/Json.h"
#include "types/CType.h"
#include "values/ValueTypes.h"

namespace tovarek {
namespace {

// A type that cannot be had, told as what it is: not known, or not enough told.
struct NoType {
    bool isWrongUse;
    std::string message;
};

// The types that the options open, and the one that is meant among them.
class TypeFinder {
  public:
    explicit TypeFinder(const ValueOptions& options)
        : options_(options), catalog_(OpenCatalog(options.place)), names_(catalog_->types.Catalog()) {
        if (!options.typeFile.empty())
            Use(ReadOwnTypes(options.typeFile));
    }

    const ResourceNames& Names() const { return names_; }

    // The type that the options name. "TYPE[3]" is an array of three values, and so are as many `bytes` of a
    // property type, whose properties may be arrays.
    ValueType Find(std::size_t bytes = 0) {
        std::string word = options_.type;
        std::size_t count = TakeCount(word);
        const ValueType element = FindElement(word);
        const std::uint32_t size = SizeOf(element.type);
        if (count == 0 && isProperty_ && size > 0 && bytes > size && bytes % size == 0)
            count = bytes / size;
        if (count > kLargestArray)
            throw NoArray(std::to_string(count));
        return count == 0 ? element : ArrayOfValues(element, static_cast<std::uint16_t>(count));
    }

  private:
    static constexpr std::size_t kLargestArray = 65535;

    static NoType NoArray(std::string_view count) {
        return {true, "an array has 1 to 65535 values, not '" + Excerpt(count) + "'"};
    }

    // Takes "[3]" off the end of a type; 0 where there is none.
    static std::size_t TakeCount(std::string& word) {
        const std::size_t open = word.rfind('[');
        if (open == std::string::npos || !word.ends_with(']'))
            return 0;
        const std::string_view digits = std::string_view(word).substr(open + 1, word.size() - open - 2);
        const std::size_t count = ExactNumber<std::size_t>(digits).value_or(0);
        if (count == 0)
            throw NoArray(digits);
        word.resize(open);
        return count;
    }

    ValueType FindElement(const std::string& word) {
        ValueType type = TypeOf(word, false);
        if (!inherits_) {
            if (!options_.of.empty())
                throw NoType{true, type.name + " has a type of its own; leave out --of"};
            return type;
        }
        if (options_.of.empty())
            throw NoType{true, type.name +
                                   " takes the type of the variable that it belongs to; name that with "
                                   "--of TYPE, such as --of SNVT_temp_p"};
        inherits_ = false;
        ValueType variable = TypeOf(options_.of, true);
        variable.name = type.name + " of " + variable.name;
        isProperty_ = true;
        return variable;
    }

    void Use(OwnTypes own) {
        own_ = std::move(own);
        names_.Use(own_.types);
        names_.Use(own_.texts);
    }

    // The type that `word` names; of variables only where only those can be meant.
    ValueType TypeOf(const std::string& word, bool isOfVariable) {
        if (const std::optional<std::int32_t> number = DefinedNumber(word)) {
            Use(ReadDefinedType(options_.formatFile, options_.prefix, *number, *catalog_));
            return OwnType({true, {1, WholeNvName(6, own_.types.nvTypes.at(0)->name), 0}});
        }
        std::vector<CatalogType> types = OwnList(isOfVariable);
        const std::size_t ownTypes = types.size();
        for (CatalogType& type : AllTypes(*catalog_->types.Catalog()))
            if (type.isNv || !isOfVariable)
                types.push_back(std::move(type));
        if (!isOfVariable)
            for (const InheritingType& type : kInheritingTypes)
                types.push_back({false, {type.index, std::string(type.name), 0}});
        const std::vector<CatalogType> named = TypesNamed(types, word);
        std::vector<CatalogType> own;
        for (std::size_t i = 0; i < ownTypes; ++i)
            std::copy_if(named.begin(), named.end(), std::back_inserter(own), [&](const CatalogType& type) {
                return types[i].isNv == type.isNv && types[i].entry.name == type.entry.name;
            });
        // Who opens a type file means its types where they are called like standard ones.
        if (own.size() == 1)
            return OwnType(own.front());
        if (named.size() != 1)
            throw NoType{false, NoTypeReason(word, types, named) + (named.empty() ? Hint(word) : "")};
        return StandardType(named.front());
    }

    // The number of a type element of the format file, where `word` is one, "300" or "SNVT_300", or its NAME.
    std::optional<std::int32_t> DefinedNumber(const std::string& word) const {
        if (options_.formatFile.empty())
            return std::nullopt;
        std::string_view digits = word;
        if (UpperCase(word).starts_with(options_.prefix))
            digits.remove_prefix(options_.prefix.size());
        if (const auto number = ExactNumber<std::int32_t>(digits))
            return *number > kLargestStandardIndex ? number : std::nullopt;
        const std::vector<std::int32_t> named = DefinedTypesNamed(options_.formatFile, options_.prefix, word);
        if (named.size() > 1)
            throw NoType{false, "'" + Excerpt(word) + "' names several type elements of the format file, " +
                                    std::to_string(named[0]) + " and " + std::to_string(named[1]) +
                                    " for two; give the number"};
        return named.empty() ? std::nullopt : std::optional(named.front());
    }

    std::vector<CatalogType> OwnList(bool isOfVariable) const {
        std::vector<CatalogType> list;
        const std::uint8_t scope = own_.types.header.scope;
        const auto add = [&](bool isNv, const auto& types, auto wholeName) {
            for (std::size_t i = 0; i < types.size(); ++i)
                if (types[i])
                    list.push_back({isNv,
                                    {static_cast<std::uint16_t>(i + 1), wholeName(scope, types[i]->name),
                                     types[i]->size}});
        };
        add(true, own_.types.nvTypes, WholeNvName);
        if (!isOfVariable)
            add(false, own_.types.cpTypes, WholeCpName);
        return list;
    }

    ValueType OwnType(const CatalogType& type) {
        isProperty_ = !type.isNv;
        const std::size_t position = type.entry.index - std::size_t{1};
        return type.isNv ? ValueTypeOf(type.entry.name, *own_.types.nvTypes.at(position))
                         : ValueTypeOf(type.entry.name, *own_.types.cpTypes.at(position), names_);
    }

    ValueType StandardType(const CatalogType& type) {
        const StandardCatalog& standard = *catalog_->types.Catalog();
        inherits_ =
            std::any_of(kInheritingTypes.begin(), kInheritingTypes.end(),
                        [&](const InheritingType& row) { return !type.isNv && row.name == type.entry.name; });
        isProperty_ = !type.isNv;
        if (inherits_)
            return {.name = type.entry.name};
        if (const NvType* nv = type.isNv ? standard.Nv(type.entry.index) : nullptr)
            return ValueTypeOf(type.entry.name, *nv);
        if (const CpType* cp = type.isNv ? nullptr : standard.Cp(type.entry.index))
            return ValueTypeOf(type.entry.name, *cp, names_);
        throw NoType{false, "the catalog's description of " + type.entry.name + " is damaged"};
    }

    std::string Hint(const std::string& word) const {
        const bool isNumber = std::all_of(word.begin(), word.end(), IsDigit);
        return isNumber && options_.formatFile.empty() && options_.typeFile.empty()
                   ? "; types of a device's own are found with --typeFilesXMLFormat FILE or --typeFile FILE"
                   : "";
    }

    const ValueOptions& options_;
    std::unique_ptr<CCatalog> catalog_;
    OwnTypes own_;
    ResourceNames names_;
    // Of the type that was found last: whether it takes that of its variable, whether properties have it.
    bool inherits_ = false;
    bool isProperty_ = false;
};

Json ValueAsJson(const DecodedValue& value) {
    switch (value.kind) {
        case DecodedValue::Kind::number:
            return Json::parse(value.text);
        case DecodedValue::Kind::word:
        case DecodedValue::Kind::text:
            return value.text;
        case DecodedValue::Kind::list:
        case DecodedValue::Kind::structure:
            break;
    }
    Json json = value.kind == DecodedValue::Kind::list ? Json::array() : Json::object();
    for (const DecodedValue& child : value.children)
        if (json.is_array())
            json.push_back(ValueAsJson(child));
        else
            json[child.name] = ValueAsJson(child);
    return json;
}

std::string Digits(std::string_view bytes) {
    std::string digits;
    for (const char byte : bytes)
        AppendHex(digits, static_cast<unsigned char>(byte), 2);
    return digits;
}

int Report(const ValueType& type, std::string_view bytes, const DecodedValue& value,
           const std::vector<std::string>& notes, const std::string& text, OutputFormat format,
           Streams streams) {
    if (format == OutputFormat::json) {
        Json json = {{"type", type.name}, {"bytes", Digits(bytes)}, {"value", ValueAsJson(value)}};
        if (!value.unit.empty())
            json["unit"] = value.unit;
        json["text"] = WrittenValue(value);
        json["notes"] = notes;
        streams.out << JsonText(json) << '\n';
        return kDone;
    }
    for (const std::string& note : notes)
        streams.error << "tovarek: " << note << '\n';
    streams.out << text << '\n';
    return kDone;
}

// Opens the types and hands the one that is meant to `action`.
template <class Action>
int WithType(const ValueOptions& options, std::size_t bytes, OutputFormat format, Streams streams,
             const Action& action) {
    try {
        TypeFinder finder(options);
        return action(finder.Find(bytes), finder.Names());
    } catch (const NoType& fault) {
        return fault.isWrongUse ? ReportWrongUse(fault.message, format, streams)
                                : ReportUnknownType(fault.message, format, streams);
    } catch (const Error& error) {
        return ReportError(error, format, streams);
    }
}

// Words as one value: those behind the first are further members, with or without a comma between.
std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        const bool isSeparate = text.empty() || TrimBlanks(text).ends_with(',');
        text += (&word == &words.front() ? "" : isSeparate ? " " : ", ") + word;
    }
    return text;
}

}  // namespace

int RunValueEncode(const ValueOptions& options, OutputFormat format, Streams streams) {
    return WithType(options, 0, format, streams, [&](const ValueType& type, const ResourceNames& names) {
        std::string bytes;
        std::vector<std::string> notes;
        DecodedValue value;
        if (const Outcome outcome = EncodeValue(type, Joined(options.value), names, bytes, notes);
            !outcome.Ok())
            return ReportBadValue(outcome.reason, format, streams);
        std::vector<std::string> known;
        if (const Outcome outcome = DecodeValue(type, bytes, names, value, known); !outcome.Ok())
            return ReportBadValue(outcome.reason, format, streams);
        return Report(type, bytes, value, notes, Digits(bytes), format, streams);
    });
}

int RunValueDecode(const ValueOptions& options, OutputFormat format, Streams streams) {
    std::string digits;
    for (const std::string& word : options.value)
        digits += word;
    std::erase(digits, ' ');
    const std::optional<std::string> bytes = FromHex(digits);
    if (!bytes)
        return ReportWrongUse(
            "'" + Excerpt(digits) + "' are not bytes: give two hexadecimal digits each, such as 0258", format,
            streams);
    return WithType(
        options, bytes->size(), format, streams, [&](const ValueType& type, const ResourceNames& names) {
            DecodedValue value;
            std::vector<std::string> notes;
            if (const Outcome outcome = DecodeValue(type, *bytes, names, value, notes); !outcome.Ok())
                return ReportBadValue(outcome.reason, format, streams);
            return Report(type, *bytes, value, notes, WrittenValue(value), format, streams);
        });
}

}  // namespace tovarek
