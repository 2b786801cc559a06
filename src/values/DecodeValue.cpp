#include <algorithm>
#include <bit>
#include <cmath>

#include "base/Numbers.h"
#include "base/Text.h"
#include "system/CodePage.h"
#include "values/Scaling.h"
#include "values/ValueText.h"

namespace tovarek {
namespace {

// Values of one type, at most: an unsound set may describe a few bytes without end.
constexpr std::size_t kMostValues = 1'000'000;

// The characters of a text up to the zeros behind it.
std::string_view WithoutZeros(std::string_view bytes) {
    return bytes.substr(0, bytes.find_last_not_of('\0') + 1);
}

class Decoder {
  public:
    Decoder(std::string_view bytes, const ResourceNames& names, std::vector<std::string>& notes)
        : bytes_(bytes), names_(names), notes_(notes) {}

    DecodedValue Value(const TypeDescription& type, const StringRef& unit, std::size_t at,
                       const std::string& path, int depth) {
        if (++values_ > kMostValues || depth > kDeepestValue)
            throw ValueFault("the type has more than " + std::to_string(kMostValues) +
                             " values, or is nested too deeply; is its type file sound?");
        const ShownType shown = ShownTypeOf(type, unit, names_);
        switch (shown.shape) {
            case ValueShape::integer:
                return Integer(shown, at, path);
            case ValueShape::real:
                return Real(shown, at, path);
            case ValueShape::enumeration:
                return Enumerator(*shown.type, at, path);
            case ValueShape::text:
                return Text(shown, at);
            case ValueShape::bytes:
                return Bytes(shown, at, path);
            case ValueShape::array:
                return Array(shown, at, path, depth);
            case ValueShape::structure:
            case ValueShape::oneOf:
                return Structure(shown, at, path, depth);
        }
        throw ValueFault("the type is of an unknown kind");
    }

  private:
    using Kind = DecodedValue::Kind;

    DecodedValue Integer(const ShownType& shown, std::size_t at, const std::string& path) {
        const TypeDescription& type = *shown.type;
        const std::int64_t raw = ReadRaw(bytes_, at, type);
        if (type.invalid && raw == *type.invalid)
            return {.kind = Kind::word, .text = "invalid", .isInvalid = true};
        const std::optional<std::string> text = ScaledText(raw, type);
        const std::string unit = UnitText(shown.unit, names_);
        const bool isInside = raw >= type.minimum && raw <= type.maximum;
        if (isInside && text)
            return {.kind = Kind::number, .unit = unit, .text = *text};
        DecodedValue value{.kind = Kind::word, .text = "raw:" + std::to_string(raw)};
        if (!isInside)
            value.fault = Note(path, "raw " + std::to_string(raw) + (text ? " (" + *text + ")" : "") +
                                         " is outside of " + LimitsText(type, unit));
        return value;
    }

    DecodedValue Real(const ShownType& shown, std::size_t at, const std::string& path) {
        const TypeDescription& type = *shown.type;
        const auto bits =
            static_cast<std::uint32_t>(ReadRaw(bytes_, at, NumberOfKind(TypeKind::unsignedQuad)));
        const auto number = std::bit_cast<float>(bits);
        if (type.floatInvalid && bits == std::bit_cast<std::uint32_t>(*type.floatInvalid))
            return {.kind = Kind::word, .text = "invalid", .isInvalid = true};
        if (number >= type.floatMinimum && number <= type.floatMaximum && std::isfinite(number))
            return {.kind = Kind::number, .unit = UnitText(shown.unit, names_), .text = RealText(number)};
        DecodedValue value{.kind = Kind::word, .text = "raw:0x"};
        value.fault = Note(path, RealText(number) + " is outside of " + RealText(type.floatMinimum) + " to " +
                                     RealText(type.floatMaximum));
        AppendHex(value.text, bits, 8);
        return value;
    }

    DecodedValue Enumerator(const TypeDescription& type, std::size_t at, const std::string& path) {
        const std::int64_t raw = ReadRaw(bytes_, at, type);
        DecodedValue unnamed{.kind = Kind::word, .text = "raw:" + std::to_string(raw)};
        if (const Enumeration* set = names_.EnumerationSet(type.target)) {
            const auto& values = set->values;
            const auto named =
                std::find_if(values.begin(), values.end(),
                             [raw](const EnumerationValue& value) { return value.value == raw; });
            // A name that stands twice is that of the first.
            if (named != values.end() && IsMemberKey(named->name) &&
                std::none_of(values.begin(), named,
                             [&](const EnumerationValue& value) { return value.name == named->name; }))
                return {.kind = Kind::word, .text = named->name};
            // The standard sets grow.
            if (named == values.end() && type.target.scope != 0)
                unnamed.fault =
                    path + (path.empty() ? "" : ": ") + std::to_string(raw) + " is no value of " + set->name;
        }
        return unnamed;
    }

    DecodedValue Text(const ShownType& shown, std::size_t at) {
        std::string bytes(WithoutZeros(bytes_.substr(at, shown.size)));
        std::string text = FromCodePage(bytes);
        return {.kind = Kind::text, .text = std::move(text), .bytes = std::move(bytes)};
    }

    DecodedValue Bytes(const ShownType& shown, std::size_t at, const std::string& path) {
        if (shown.type == nullptr)
            Note(path, "the type that it refers to is not known, so its bytes are shown");
        std::string text;
        for (const char byte : bytes_.substr(at, shown.size))
            AppendHex(text, static_cast<unsigned char>(byte), 2);
        return {.kind = Kind::word, .text = std::move(text)};
    }

    DecodedValue Array(const ShownType& shown, std::size_t at, const std::string& path, int depth) {
        DecodedValue list{.kind = Kind::list};
        const TypeMember& element = shown.type->members[0];
        const StringRef& unit = element.unit.number != 0 ? element.unit : shown.unit;
        const std::size_t step = SizeOf(element.type);
        for (std::size_t i = 0; i < shown.type->count; ++i)
            list.children.push_back(
                Value(element.type, unit, at + i * step, path + '[' + std::to_string(i) + ']', depth + 1));
        return list;
    }

    DecodedValue Structure(const ShownType& shown, std::size_t at, const std::string& path, int depth) {
        DecodedValue structure{.kind = Kind::structure, .isUnion = shown.shape == ValueShape::oneOf};
        const TypeDescription& type = *shown.type;
        const std::vector<std::string> keys = MemberKeys(type);
        values_ += keys.size();
        const bool isUnion = shown.shape == ValueShape::oneOf;
        const std::vector<std::uint32_t> offsets =
            isUnion ? std::vector<std::uint32_t>(keys.size(), 0) : MemberOffsets(type);
        for (std::size_t i = 0; i < keys.size(); ++i) {
            // All members of a union lie over one another; the first that has all of its bytes tells most.
            if (isUnion && SizeOf(type.members[i].type) != shown.size)
                continue;
            const std::string place = path.empty() ? keys[i] : path + '.' + keys[i];
            DecodedValue& member = structure.children.emplace_back(
                Value(type.members[i].type, type.members[i].unit, at + offsets[i], place, depth + 1));
            member.name = keys[i];
            if (isUnion)
                break;
        }
        if (isUnion && keys.size() > 1)
            Note(path, "one of several members that share these bytes: " + Listed(keys));
        return structure;
    }

    static bool IsMemberKey(const std::string& name) {
        TypeDescription type;
        type.members.emplace_back().name = name;
        return MemberKeys(type).front() == name && !name.starts_with("raw:");
    }

    static std::string Listed(const std::vector<std::string>& keys) {
        std::string list;
        for (const std::string& key : keys)
            list += (list.empty() ? "" : ", ") + key;
        return Excerpt(list);
    }

    std::string Note(const std::string& path, const std::string& sentence) {
        constexpr std::size_t kMostNotes = 100;
        std::string note = path.empty() ? sentence : path + ": " + sentence;
        if (notes_.size() < kMostNotes)
            notes_.push_back(note);
        return note;
    }

    std::string_view bytes_;
    const ResourceNames& names_;
    std::vector<std::string>& notes_;
    std::size_t values_ = 0;  // and members that were looked at
};

// A text in quotes.
std::string Quoted(std::string_view bytes) {
    constexpr unsigned char kFirstPrintable = 0x20;
    constexpr unsigned char kDelete = 0x7F;
    std::string quoted = "\"";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        const std::string character = FromCodePage(bytes.substr(i, 1));
        // What the code page does not define stands for a control character.
        const bool isControl =
            byte < kFirstPrintable || byte == kDelete || (character.size() == 2 && character < "\xC2\xA0");
        const bool isCharacter = !isControl && ToCodePage(character) == bytes.substr(i, 1);
        if (bytes[i] == '"' || bytes[i] == '\\') {
            quoted += '\\';
            quoted += bytes[i];
        } else if (isCharacter) {
            quoted += character;
        } else {
            quoted += "\\x";
            AppendHex(quoted, byte, 2);
        }
    }
    return quoted + '"';
}

std::string Written(const DecodedValue& value, bool isOutermost) {
    std::string text;
    switch (value.kind) {
        case DecodedValue::Kind::number: {
            const std::string unit = isOutermost ? value.unit : UnitInside(value.unit);
            return unit.empty() ? value.text : value.text + ' ' + unit;
        }
        case DecodedValue::Kind::word:
            return value.text;
        case DecodedValue::Kind::text:
            text = Quoted(value.bytes);
            // Bare where it is no other text without its quotes.
            return isOutermost && text == '"' + value.text + '"' && !value.text.empty() &&
                           TrimBlanks(value.text).size() == value.text.size()
                       ? value.text
                       : text;
        case DecodedValue::Kind::list:
        case DecodedValue::Kind::structure:
            break;
    }
    for (const DecodedValue& child : value.children)
        text +=
            (text.empty() ? "" : ", ") + (child.name.empty() ? "" : child.name + '=') + Written(child, false);
    if (isOutermost)
        return text;
    return value.kind == DecodedValue::Kind::list ? '[' + text + ']' : '{' + text + '}';
}

}  // namespace

std::string WrittenValue(const DecodedValue& value) {
    return Written(value, true);
}

Outcome DecodeValue(const ValueType& type, std::string_view bytes, const ResourceNames& names,
                    DecodedValue& value, std::vector<std::string>& notes) {
    const std::uint32_t size = SizeOf(type.type);
    if (bytes.size() != size || size > kMostValueBytes)
        return Failure(resultBadParam, type.name + " has " + std::to_string(size) + " bytes, " +
                                           std::to_string(bytes.size()) + " were given");
    try {
        value = Decoder(bytes, names, notes).Value(type.type, type.unit, 0, "", 0);
    } catch (const ValueFault& fault) {
        return Failure(resultBadParam, fault.what());
    }
    std::string again;
    std::vector<std::string> ignored;
    if (!EncodeValue(type, WrittenValue(value), names, again, ignored).Ok() || again != bytes)
        notes.emplace_back("the bytes hold bits that no member describes; they are not shown");
    return {};
}

}  // namespace tovarek
