#include "StandardFacts.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <stdexcept>
#include <unordered_map>

#include "formats/format/FormatExpression.h"

namespace tovarek {
namespace {

using nlohmann::json;

constexpr std::uint16_t kMajorVersion = 16;
constexpr const char* kCreator = "the Tovarek developers";
constexpr const char* kEnumerationFile = "standard.h";

std::string Get(const json& fact, const char* key) {
    return fact.value(key, std::string());
}

// Strings of the language file. Some unit texts have a number that is known; the others take the free ones.
class Strings {
  public:
    explicit Strings(const json& facts) {
        for (const char* header : {"Standard resource strings", kCreator, "Standard functional profiles",
                                   "Standard network-variable and configuration-property types"})
            strings_.emplace_back(header);
        for (const char* group : {"snvt", "scpt"}) {
            for (const json& type : facts.at(group)) {
                for (const json& format : type.value("formats", json::array())) {
                    for (const json& parameter : format.value("params", json::array()))
                        Reserve(parameter);
                }
            }
        }
    }

    // The number of a text, a new one when it has none yet; 0 for an empty text.
    StringRef Number(const std::string& text) {
        if (text.empty())
            return {};
        const auto [place, isNew] = numbers_.try_emplace(text, 0);
        if (isNew) {
            while (next_ <= strings_.size() && strings_[next_ - 1])
                ++next_;
            Put(next_, text);
            place->second = next_;
        }
        return {0, place->second};
    }

    static StringRef ReferenceOf(const json& parameter) {
        const std::string reference = '(' + Get(parameter, "unit_ref") + ')';
        return ParseFormatExpression(reference).unitText;
    }

    std::vector<std::optional<std::string>> Take() { return std::move(strings_); }

  private:
    void Reserve(const json& parameter) {
        if (!parameter.contains("unit_ref") || !parameter.contains("unit"))
            return;
        const std::uint32_t number = ReferenceOf(parameter).number;
        const std::string text = Get(parameter, "unit");
        Put(number, text);
        numbers_.try_emplace(text, number);
    }

    void Put(std::uint32_t number, const std::string& text) {
        if (number > strings_.size())
            strings_.resize(number);
        strings_[number - 1] = text;
    }

    std::vector<std::optional<std::string>> strings_;
    std::unordered_map<std::string, std::uint32_t> numbers_;
    std::uint32_t next_ = 1;
};

class SetBuilder {
  public:
    SetBuilder(const json& facts, const CivilTime& saved) : facts_(facts), saved_(saved), strings_(facts) {}

    StandardSet Build() {
        for (const auto& [name, enumeration] : facts_.at("enums").items())
            AddEnumeration(name, enumeration);
        for (const json& type : facts_.at("snvt"))
            nvFacts_[Get(type, "name")] = &type;
        for (const json& type : facts_.at("snvt")) {
            if (type.contains("size"))
                AddNv(type);
        }
        for (const json& type : facts_.at("scpt")) {
            if (type.contains("size"))
                AddCp(type);
        }
        AddFormats();
        set_.language.strings = strings_.Take();
        set_.language.language = "enu";
        AddHeaders();
        return std::move(set_);
    }

  private:
    template <class Entry>
    static Entry& Place(std::vector<std::optional<Entry>>& entries, std::size_t number) {
        if (entries.size() < number)
            entries.resize(number);
        return entries[number - 1].emplace();
    }

    void AddEnumeration(const std::string& name, const json& fact) {
        Enumeration& enumeration = Place(set_.types.enumerations, fact.at("index").get<std::size_t>());
        enumeration.name = name;
        enumeration.fileName = kEnumerationFile;
        for (const auto& [member, value] : fact.at("members").items())
            enumeration.values.push_back({static_cast<std::int8_t>(value.get<int>()), member, {}});
        std::sort(enumeration.values.begin(), enumeration.values.end(),
                  [](const auto& left, const auto& right) { return left.value < right.value; });
    }

    void FillType(const json& fact, NvType& type) {
        type.name = Get(fact, "name").substr(4);
        type.size = fact.at("size").get<std::uint16_t>();
        type.unit = strings_.Number(Get(fact, "unit"));
        type.type = Describe(fact);
        if (SizeOf(type.type) != type.size) {
            throw std::runtime_error(Get(fact, "name") + ": its members take " +
                                     std::to_string(SizeOf(type.type)) + " bytes, not " +
                                     std::to_string(type.size));
        }
    }

    void AddNv(const json& fact) {
        FillType(fact, Place(set_.types.nvTypes, fact.at("index").get<std::size_t>()));
    }

    void AddCp(const json& fact) {
        CpType& type = Place(set_.types.cpTypes, fact.at("index").get<std::size_t>());
        FillType(fact, type);
        if (fact.contains("min_hex"))
            type.minimum = Raw(Get(fact, "min_hex"), type.size);
        if (fact.contains("max_hex"))
            type.maximum = Raw(Get(fact, "max_hex"), type.size);
        // The format always stores an initial value; where it is not known it is zero.
        type.initial = fact.contains("default_hex") ? Raw(Get(fact, "default_hex"), type.size)
                                                    : std::string(type.size, '\0');
    }

    static std::string Raw(const std::string& hex, std::size_t size) {
        std::string bytes;
        for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
            bytes.push_back(static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16)));
        if (bytes.size() != size)
            throw std::runtime_error("a raw value does not have the size of its type: " + hex);
        return bytes;
    }

    TypeDescription Describe(const json& fact) {
        const std::size_t count = fact.value("array", std::size_t{0});
        if (count == 0)
            return DescribeOne(fact, fact.value("size", std::size_t{1}));
        if (Get(fact, "kind") == "text")
            return TextOf(static_cast<std::uint16_t>(count), 0);
        return ArrayOf(DescribeOne(fact, fact.at("element_size").get<std::size_t>()),
                       static_cast<std::uint16_t>(count), 0);
    }

    TypeDescription DescribeOne(const json& fact, std::size_t size) {
        if (const auto target = nvFacts_.find(Get(fact, "type"));
            target != nvFacts_.end() && target->second->contains("size"))
            return Reference(*target->second);
        const std::string kind = Get(fact, "kind");
        if (kind == "float")
            return Float(fact);
        if (kind == "enum")
            return EnumerationOf(fact);
        if (kind == "bitfield")
            return BitField(fact);
        if ((kind == "struct" || kind == "union") && fact.contains("fields"))
            return Structure(fact, kind == "union");
        if (kind == "signed" || kind == "unsigned")
            return Number(fact, size, kind == "signed");
        // The members are not known: the bytes as they are.
        return ArrayOf(NumberOfKind(TypeKind::unsignedShort), static_cast<std::uint16_t>(size), 0);
    }

    static TypeDescription Reference(const json& target) {
        TypeDescription type;
        type.kind = TypeKind::reference;
        type.target = {0, target.at("index").get<std::uint16_t>()};
        type.referencedSize = target.at("size").get<std::uint8_t>();
        return type;
    }

    static TypeDescription Float(const json& fact) {
        TypeDescription type = NumberOfKind(TypeKind::floatingPoint);
        const double largest = type.floatMaximum;
        const auto limit = [&](const char* key, float& value) {
            if (fact.contains(key))
                value = static_cast<float>(std::clamp(fact.at(key).get<double>(), -largest, largest));
        };
        limit("min", type.floatMinimum);
        limit("max", type.floatMaximum);
        return type;
    }

    TypeDescription EnumerationOf(const json& fact) const {
        TypeDescription type = NumberOfKind(TypeKind::enumeration);
        const json& enumeration = facts_.at("enums").at(Get(fact, "enum"));
        type.target = {0, enumeration.at("index").get<std::uint16_t>()};
        const json& members = enumeration.at("members");
        type.minimum = 127;
        type.maximum = -128;
        for (const json& value : members) {
            type.minimum = std::min(type.minimum, value.get<std::int64_t>());
            type.maximum = std::max(type.maximum, value.get<std::int64_t>());
        }
        return type;
    }

    static TypeDescription BitField(const json& fact) {
        TypeDescription type;
        type.kind = TypeKind::bitField;
        type.bitOffset = fact.at("bit_offset").get<std::uint8_t>();
        type.bitWidth = fact.at("bit_size").get<std::uint8_t>();
        type.bitSigned = fact.value("signed", false);
        SetNumber(fact, type);
        return type;
    }

    static TypeDescription Number(const json& fact, std::size_t size, bool isSigned) {
        TypeDescription type;
        if (size == 1) {
            type.kind = isSigned ? TypeKind::signedShort : TypeKind::unsignedShort;
        } else if (size == 2) {
            type.kind = isSigned ? TypeKind::signedLong : TypeKind::unsignedLong;
        } else {
            type.kind = isSigned ? TypeKind::signedQuad : TypeKind::unsignedQuad;
        }
        SetNumber(fact, type);
        if (fact.contains("invalid"))
            type.invalid = RawOf(fact.at("invalid").get<double>(), type);
        return type;
    }

    static void SetNumber(const json& fact, TypeDescription& type) {
        type.a = fact.value("A", std::int16_t{1});
        type.b = fact.value("B", std::int16_t{0});
        type.c = fact.value("C", std::int16_t{0});
        type.minimum = fact.contains("min") ? RawOf(fact.at("min").get<double>(), type) : SmallestRaw(type);
        type.maximum = fact.contains("max") ? RawOf(fact.at("max").get<double>(), type) : LargestRaw(type);
    }

    // Raw value of a scaled one, kept inside the kind.
    static std::int64_t RawOf(double scaled, const TypeDescription& type) {
        const double raw = std::round(scaled / (type.a * std::pow(10.0, type.b)) - type.c);
        const auto smallest = static_cast<double>(SmallestRaw(type));
        const auto largest = static_cast<double>(LargestRaw(type));
        return static_cast<std::int64_t>(std::clamp(raw, smallest, largest));
    }

    TypeDescription Structure(const json& fact, bool isUnion) {
        TypeDescription type;
        type.kind = isUnion ? TypeKind::unionKind : TypeKind::structure;
        const json* last = nullptr;
        for (const json& field : fact.at("fields")) {
            if (!isUnion)
                AddFiller(last, field, type);
            type.members.push_back(
                {Get(field, "name"), {}, {}, strings_.Number(Get(field, "unit")), Describe(field)});
            last = &field;
        }
        return type;
    }

    // The format knows no byte of a bit field, only that its offset does not grow where a byte begins. Where
    // the first bits of the next byte are not named, a member stands for them.
    static void AddFiller(const json* last, const json& field, TypeDescription& type) {
        const bool bits =
            Get(field, "kind") == "bitfield" && last != nullptr && Get(*last, "kind") == "bitfield";
        if (!bits || field.at("offset") == last->at("offset") ||
            field.at("bit_offset") <= last->at("bit_offset"))
            return;
        TypeMember filler;
        filler.name = "reserved" + std::to_string(type.members.size());
        filler.type.kind = TypeKind::bitField;
        filler.type.bitWidth = field.at("bit_offset").get<std::uint8_t>();
        filler.type.maximum = LargestRaw(filler.type);
        type.members.push_back(std::move(filler));
    }

    // ---- display formats ----

    void AddFormats() {
        for (const char* group : {"snvt", "scpt"}) {
            for (const json& type : facts_.at(group)) {
                if (type.contains("size"))
                    AddFormatsOf(type);
            }
        }
    }

    void AddFormatsOf(const json& fact) {
        const std::string name = Get(fact, "name");
        bool known = false;
        for (const json& format : fact.value("formats", json::array())) {
            if (format.contains("params")) {
                set_.formats.formats.push_back(TextFormat(name, format));
            } else if (format.contains("function")) {
                set_.formats.formats.push_back(FunctionFormat(name, format));
            } else {
                continue;  // named, but what it shows is not known
            }
            known = true;
        }
        if (!known)
            AddDefaultFormat(fact);
    }

    static DisplayFormat TextFormat(const std::string& type, const json& fact) {
        DisplayFormat format{.type = type, .name = Get(fact, "name"), .form = "text"};
        for (const json& entry : fact.at("params")) {
            FormatParameter parameter;
            parameter.conversion = Get(entry, "conv");
            parameter.expression = Get(entry, "expr");
            parameter.factor = entry.value("a", 1.0);
            parameter.offset = entry.value("c", 0.0);
            if (entry.contains("unit_ref"))
                parameter.unitText = Strings::ReferenceOf(entry);
            format.text += (format.text.empty() ? "" : fact.value("separator", " ")) + parameter.conversion;
            format.parameters.push_back(std::move(parameter));
        }
        return format;
    }

    static DisplayFormat FunctionFormat(const std::string& type, const json& fact) {
        DisplayFormat format{.type = type, .name = Get(fact, "name"), .form = Get(fact, "function")};
        for (const json& argument : fact.at("args"))
            format.parameters.push_back({.expression = argument.get<std::string>()});
        return format;
    }

    // What follows from kind, scaling and members.
    void AddDefaultFormat(const json& fact) {
        DisplayFormat format{.type = Get(fact, "name"), .form = "text"};
        AddValues(fact, "", format.parameters, 0);
        for (const FormatParameter& parameter : format.parameters)
            format.text += (format.text.empty() ? "" : " ") + parameter.conversion;
        const bool single = format.parameters.size() == 1 && format.parameters[0].expression.empty();
        if (single && format.text == "%d") {
            format.form = "int";
        } else if (single && format.text == "%f") {
            format.form = "real";
        }
        if (!format.parameters.empty())
            set_.formats.formats.push_back(std::move(format));
    }

    void AddValues(const json& fact, const std::string& path, std::vector<FormatParameter>& values,
                   std::size_t depth) {
        if (depth > 16)
            throw std::runtime_error("types refer to one another in a circle at " + path);
        const std::size_t count = fact.value("array", std::size_t{0});
        if (count == 0 || Get(fact, "kind") == "text") {
            AddOne(fact, path, values, depth);
            return;
        }
        for (std::size_t i = 0; i < count; ++i)
            AddOne(fact, path + '[' + std::to_string(i) + ']', values, depth);
    }

    void AddOne(const json& fact, const std::string& path, std::vector<FormatParameter>& values,
                std::size_t depth) {
        if (const auto target = nvFacts_.find(Get(fact, "type")); target != nvFacts_.end()) {
            AddValues(*target->second, path, values, depth + 1);
            return;
        }
        for (const json& field : fact.value("fields", json::array())) {
            AddValues(field, path.empty() ? Get(field, "name") : path + '.' + Get(field, "name"), values,
                      depth + 1);
        }
        if (fact.contains("fields"))
            return;
        const std::string kind = Get(fact, "kind");
        const bool isScaled = fact.value("A", 1) != 1 || fact.value("B", 0) != 0;
        if (kind == "enum") {
            values.push_back({.conversion = "%m", .expression = path});
        } else if (kind == "text") {
            values.push_back({.conversion = "%s", .expression = path});
        } else if (kind == "float" || isScaled) {
            values.push_back({.conversion = "%f", .expression = path});
        } else if (kind == "signed" || kind == "unsigned" || kind == "bitfield") {
            values.push_back({.conversion = "%d", .expression = path});
        }
    }

    // ---- headers ----

    void AddHeaders() {
        SetHeader(set_.language.header, ResourceKind::language);
        SetHeader(set_.profiles.header, ResourceKind::profile);
        SetHeader(set_.types.header, ResourceKind::type);
        set_.formats.settings = {"program_id 00:00:00:00:00:00:00:00"};
    }

    void SetHeader(ResourceHeader& header, ResourceKind kind) const {
        header.title = TitleText(kind, kMajorVersion, 0);
        header.contact = ContactText(kCreator, "", "");
        header.description = {0, RowOf(kind).descriptionText};
        header.creator = {0, kCreatorText};
        header.majorVersion = kMajorVersion;
        header.saved = saved_;
    }

    const json& facts_;
    CivilTime saved_;
    Strings strings_;
    std::unordered_map<std::string, const json*> nvFacts_;
    StandardSet set_;
};

}  // namespace

StandardSet BuildStandardSet(const json& facts, const CivilTime& saved) {
    return SetBuilder(facts, saved).Build();
}

}  // namespace tovarek
