#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>

#include "base/Nearest.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "system/CodePage.h"
#include "values/Scaling.h"
#include "values/ValueText.h"

namespace tovarek {
namespace {

constexpr std::string_view kRawPrefix = "raw:";

// A whole number, decimal or 0x hexadecimal.
std::optional<std::int64_t> WholeNumber(std::string_view text) {
    const bool isHex = text.starts_with("0x") || text.starts_with("0X");
    if (isHex)
        text.remove_prefix(2);
    return ExactNumber<std::int64_t>(text, isHex ? 16 : 10);
}

std::string Shown(std::string_view text) {
    return '\'' + Excerpt(text) + '\'';
}

class Encoder {
  public:
    Encoder(std::string_view text, const ResourceNames& names, std::string& bytes,
            std::vector<std::string>& notes)
        : text_(text), names_(names), bytes_(bytes), notes_(notes) {}

    void Whole(const ValueType& type) {
        Value(type.type, type.unit, 0, 0);
        SkipBlanks();
        if (position_ < text_.size())
            Refuse(Shown(text_.substr(position_)) + " stands behind the value");
    }

  private:
    void Value(const TypeDescription& type, const StringRef& unit, std::size_t at, int depth) {
        if (depth > kDeepestValue)
            Refuse("the type is nested too deeply; is its type file sound?");
        const ShownType shown = ShownTypeOf(type, unit, names_);
        switch (shown.shape) {
            case ValueShape::integer:
                return Integer(Word(depth), shown, at);
            case ValueShape::real:
                return Real(Word(depth), shown, at);
            case ValueShape::enumeration:
                return Enumerator(Word(depth), *shown.type, at);
            case ValueShape::text:
                return Text(shown.size, at, depth);
            case ValueShape::bytes:
                SkipBlanks();
                if (shown.type != nullptr && !shown.type->members.empty() && Rest().starts_with('['))
                    return Array(shown, at, depth);
                return Bytes(Word(depth), shown.size, at);
            case ValueShape::array:
                return Array(shown, at, depth);
            case ValueShape::structure:
            case ValueShape::oneOf:
                return Structure(shown, at, depth);
        }
    }

    // ---- single values ----

    void Integer(std::string_view word, const ShownType& shown, std::size_t at) {
        const TypeDescription& type = *shown.type;
        const std::string unit = UnitText(shown.unit, names_);
        if (word == "invalid" && type.invalid)
            return WriteRaw(bytes_, at, type, *type.invalid);
        if (word.starts_with(kRawPrefix)) {
            const std::optional<std::int64_t> raw = WholeNumber(word.substr(kRawPrefix.size()));
            if (!raw || *raw < SmallestRaw(type) || *raw > LargestRaw(type))
                Refuse(Shown(word) + " is not a raw number of the type; accepted: " +
                       std::to_string(SmallestRaw(type)) + " to " + std::to_string(LargestRaw(type)));
            return WriteRaw(bytes_, at, type, *raw);
        }
        const std::optional<double> value = DecimalNumber(WithoutUnit(word, unit));
        if (!value)
            Refuse(Shown(word) + " is not a number; accepted: " + LimitsText(type, unit) +
                   (type.invalid ? ", invalid" : ""));
        const std::optional<NearestRaw> nearest = RawOfScaled(*value, type);
        if (!nearest || nearest->raw < type.minimum || nearest->raw > type.maximum)
            Refuse(Shown(word) + " is outside of " + LimitsText(type, unit));
        if (type.invalid && nearest->raw == *type.invalid)
            Refuse(Shown(word) + " is the value that means invalid; write invalid");
        if (!nearest->isExact)
            notes_.push_back(InMember(std::string(word) + " lies between two steps, " +
                                      ScaledText(nearest->raw, type).value_or("") + " was taken"));
        WriteRaw(bytes_, at, type, nearest->raw);
    }

    void Real(std::string_view word, const ShownType& shown, std::size_t at) {
        const TypeDescription& type = *shown.type;
        const TypeDescription pattern = NumberOfKind(TypeKind::unsignedQuad);
        if (word.starts_with(kRawPrefix)) {
            const std::optional<std::int64_t> raw = WholeNumber(word.substr(kRawPrefix.size()));
            if (!raw || *raw < 0 || *raw > LargestRaw(pattern))
                Refuse(Shown(word) + " is not a raw number of the type; accepted: 0x0 to 0xFFFFFFFF");
            return WriteRaw(bytes_, at, pattern, *raw);
        }
        if (word == "invalid" && type.floatInvalid)
            return WriteRaw(bytes_, at, pattern, std::bit_cast<std::uint32_t>(*type.floatInvalid));
        const std::string_view digits = WithoutUnit(word, UnitText(shown.unit, names_));
        if (!DecimalNumber(digits))
            Refuse(Shown(word) + " is not a number; a decimal one with a point, such as 20.5, is needed");
        const float number = NearestFloat(digits);
        if (!(number >= type.floatMinimum && number <= type.floatMaximum))
            Refuse(Shown(word) + " is outside of " + DecimalText(type.floatMinimum) + " to " +
                   DecimalText(type.floatMaximum));
        const auto bits = std::bit_cast<std::uint32_t>(number);
        if (type.floatInvalid && bits == std::bit_cast<std::uint32_t>(*type.floatInvalid))
            Refuse(Shown(word) + " is the value that means invalid; write invalid");
        WriteRaw(bytes_, at, pattern, bits);
    }

    void Enumerator(std::string_view word, const TypeDescription& type, std::size_t at) {
        if (word.starts_with(kRawPrefix)) {
            const std::optional<std::int64_t> raw = WholeNumber(word.substr(kRawPrefix.size()));
            if (!raw || *raw < SmallestRaw(type) || *raw > LargestRaw(type))
                Refuse(Shown(word) + " is not a raw number of the type; accepted: -128 to 127");
            return WriteRaw(bytes_, at, type, *raw);
        }
        const Enumeration* set = names_.EnumerationSet(type.target);
        if (set == nullptr)
            Refuse("the names of the enumeration are not known; give a number, such as raw:1");
        const auto find = [&](auto isNamed) {
            return std::find_if(set->values.begin(), set->values.end(), isNamed);
        };
        auto found = find([&](const EnumerationValue& value) { return value.name == word; });
        if (found == set->values.end())
            found = find([upper = UpperCase(word)](const EnumerationValue& value) {
                return UpperCase(value.name) == upper;
            });
        if (found != set->values.end())
            return WriteRaw(bytes_, at, type, found->value);
        std::vector<std::string> known;
        known.reserve(set->values.size());
        for (const EnumerationValue& value : set->values)
            known.push_back(value.name);
        Refuse(Shown(word) + " is not among the values of " + set->name + ": " + FirstOf(known) +
               DidYouMean(word, known));
    }

    void Bytes(std::string_view word, std::size_t size, std::size_t at) {
        std::string digits(word);
        std::erase(digits, ' ');
        const std::optional<std::string> bytes = FromHex(digits);
        if (!bytes || bytes->size() != size)
            Refuse(Shown(word) + " is not what the type needs: " + std::to_string(size) +
                   " bytes in hexadecimal, two digits each");
        bytes_.replace(at, size, *bytes);
    }

    void Text(std::size_t size, std::size_t at, int depth) {
        std::string bytes;
        if (const std::size_t quote = text_.find_first_not_of(' ', position_);
            quote < text_.size() && text_[quote] == '"') {
            position_ = quote + 1;
            bytes = QuotedText();
        } else if (depth == 0) {
            bytes = InCodePage(Rest());
            position_ = text_.size();
        } else {
            bytes = InCodePage(Word(depth));
        }
        if (bytes.size() > size)
            Refuse("the text has " + std::to_string(bytes.size()) + " characters, " + std::to_string(size) +
                   " have room");
        bytes_.replace(at, bytes.size(), bytes);
    }

    std::string QuotedText() {
        std::string bytes;
        std::string run;  // characters that are not in the code page yet
        while (position_ < text_.size() && text_[position_] != '"') {
            const char c = text_[position_++];
            if (c != '\\') {
                run += c;
                continue;
            }
            const char escaped = position_ < text_.size() ? text_[position_++] : '\0';
            if (escaped == '"' || escaped == '\\') {
                run += escaped;
                continue;
            }
            const std::optional<std::string> byte =
                escaped == 'x' ? FromHex(text_.substr(position_, 2)) : std::nullopt;
            if (!byte || byte->size() != 1)
                Refuse("behind '\\' stands '\"', another '\\', or x and two hexadecimal digits");
            position_ += 2;
            bytes += InCodePage(run) + *byte;
            run.clear();
        }
        if (!Take('"'))
            Refuse("the text lacks its second quotation mark");
        return bytes + InCodePage(run);
    }

    std::string InCodePage(std::string_view text) {
        std::string bytes = ToCodePage(text);
        if (FromCodePage(bytes) != text)
            Refuse("the text " + Shown(text) +
                   " has characters that devices do not know (their code page lacks them)");
        return bytes;
    }

    // ---- several values ----

    void Array(const ShownType& shown, std::size_t at, int depth) {
        const TypeMember& element = shown.type->members[0];
        const StringRef& unit = element.unit.number != 0 ? element.unit : shown.unit;
        const std::size_t step = SizeOf(element.type);
        const std::size_t outer = path_.size();
        const std::string wanted = std::to_string(shown.type->count) + " values are needed";
        const bool isOpen =
            Open('[', depth, "an array inside another value is written in brackets: [1, 2, 3]");
        for (std::size_t i = 0; i < shown.type->count; ++i) {
            SkipBlanks();
            if (position_ == text_.size() || (isOpen && text_[position_] == ']'))
                Refuse(wanted + ", " + std::to_string(i) + " were given");
            path_ += '[' + std::to_string(i) + ']';
            Value(element.type, unit, at + i * step, depth + 1);
            path_.resize(outer);
            SkipBlanks();
            if (i + 1 < shown.type->count && !Take(','))
                Refuse(wanted + ", with a comma between them; " + std::to_string(i + 1) + " were given");
        }
        Close(isOpen, ']', wanted);
    }

    void Structure(const ShownType& shown, std::size_t at, int depth) {
        const TypeDescription& type = *shown.type;
        const bool isUnion = shown.shape == ValueShape::oneOf;
        const std::vector<std::string> keys = MemberKeys(type);
        const std::vector<std::uint32_t> offsets =
            isUnion ? std::vector<std::uint32_t>(keys.size(), 0) : MemberOffsets(type);
        std::vector<bool> given(keys.size(), false);
        const std::size_t outer = path_.size();
        // The one member of the outermost needs no name.
        if (depth == 0 && keys.size() == 1 && !NamesMember(keys.front()))
            return Value(type.members[0].type, type.members[0].unit, at + offsets[0], 0);
        const bool isOpen =
            Open('{', depth, "a structure inside another value is written in braces: {member=value, ...}");
        for (SkipBlanks(); position_ < text_.size() && !(isOpen && text_[position_] == '}'); SkipBlanks()) {
            const std::size_t member = Member(keys);
            if (given[member])
                Refuse("member '" + keys[member] + "' has two values");
            if (isUnion && std::find(given.begin(), given.end(), true) != given.end())
                Refuse("of a union one member has a value");
            given[member] = true;
            path_ += (outer == 0 ? "" : ".") + keys[member];
            Value(type.members[member].type, type.members[member].unit, at + offsets[member], depth + 1);
            path_.resize(outer);
            SkipBlanks();
            if (!Take(','))
                break;
        }
        Close(isOpen, '}', "a comma stands between members");
        RequireAll(keys, given, isUnion);
    }

    // True when "member=", or the brace in front of it, begins what is left.
    bool NamesMember(const std::string& key) const {
        const std::string_view rest = Trim(Rest());
        return rest.starts_with('{') || (UpperCase(rest).starts_with(UpperCase(key)) &&
                                         Trim(rest.substr(key.size())).starts_with('='));
    }

    // Reads "member=" and answers which one it is.
    std::size_t Member(const std::vector<std::string>& keys) {
        const std::size_t end = text_.find_first_of(",={}[]", position_);
        const std::string_view name = Trim(text_.substr(position_, end - position_));
        if (end == std::string_view::npos || text_[end] != '=')
            Refuse(Shown(name) + " is not 'member=value'; the members are: " + FirstOf(keys));
        auto found = std::find(keys.begin(), keys.end(), name);
        if (found == keys.end())
            found = std::find_if(keys.begin(), keys.end(), [upper = UpperCase(name)](const std::string& key) {
                return UpperCase(key) == upper;
            });
        if (found == keys.end())
            Refuse("there is no member " + Shown(name) + "; the members are: " + FirstOf(keys));
        position_ = end + 1;
        return static_cast<std::size_t>(found - keys.begin());
    }

    void RequireAll(const std::vector<std::string>& keys, const std::vector<bool>& given, bool isUnion) {
        std::vector<std::string> missing;
        for (std::size_t i = 0; i < keys.size(); ++i)
            if (!given[i])
                missing.push_back(keys[i]);
        if (isUnion && !keys.empty() && missing.size() == keys.size())
            Refuse("one member of a union has to have a value: " + FirstOf(keys));
        if (!isUnion && !missing.empty())
            Refuse("all members need a value; missing: " + FirstOf(missing));
    }

    // ---- the text ----

    std::string_view Rest() const { return text_.substr(position_); }

    void SkipBlanks() { position_ = std::min(text_.find_first_not_of(kWhiteSpace, position_), text_.size()); }

    bool Take(char c) {
        if (position_ >= text_.size() || text_[position_] != c)
            return false;
        ++position_;
        return true;
    }

    // What opens a value of several; the outermost goes without.
    bool Open(char c, int depth, const std::string& otherwise) {
        SkipBlanks();
        const bool isOpen = Take(c);
        if (!isOpen && depth > 0)
            Refuse(otherwise);
        return isOpen;
    }

    void Close(bool isOpen, char c, const std::string& wanted) {
        SkipBlanks();
        if (isOpen && !Take(c))
            Refuse(wanted + "; then '" + std::string(1, c) + "', found " + Shown(Rest()));
        if (!isOpen && position_ < text_.size())
            Refuse(wanted + "; " + Shown(Rest()) + " is more");
    }

    // A single value without the blanks around it: all that is left, inside others up to what ends it there.
    std::string_view Word(int depth) {
        const std::size_t end =
            depth == 0 ? text_.size() : std::min(text_.find_first_of(",}]", position_), text_.size());
        const std::string_view word = Trim(text_.substr(position_, end - position_));
        position_ = end;
        return word;
    }

    static std::string_view WithoutUnit(std::string_view word, const std::string& unit) {
        if (unit.empty() || !word.ends_with(unit))
            return word;
        const std::string_view number = word.substr(0, word.size() - unit.size());
        const std::string_view trimmed = TrimBlanks(number);
        return trimmed.size() < number.size() || !IsHexDigit(unit.front()) ? trimmed : word;
    }

    // Of a decimal number; not by way of a double, which would round twice.
    static float NearestFloat(std::string_view digits) {
        if (digits.starts_with('+'))
            digits.remove_prefix(1);
        float number = 0;
        if (std::from_chars(digits.data(), digits.data() + digits.size(), number).ec == std::errc())
            return number;
        // Beyond all floats, on one side or the other.
        const double value = DecimalNumber(digits).value_or(0);
        return std::abs(value) < 1 ? 0.0F : static_cast<float>(std::copysign(HUGE_VALF, value));
    }

    static std::string DecimalText(float number) {
        char digits[32];
        return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
    }

    static std::string FirstOf(const std::vector<std::string>& names) {
        constexpr std::size_t kMostNames = 20;
        std::string list;
        for (std::size_t i = 0; i < std::min(names.size(), kMostNames); ++i)
            list += (i == 0 ? "" : ", ") + names[i];
        return list + (names.size() > kMostNames ? " ..." : "");
    }

    std::string InMember(const std::string& sentence) const {
        return path_.empty() ? sentence : path_ + ": " + sentence;
    }

    [[noreturn]] void Refuse(const std::string& reason) const { throw ValueFault(InMember(reason)); }

    std::string_view text_;
    const ResourceNames& names_;
    std::string& bytes_;
    std::vector<std::string>& notes_;
    std::size_t position_ = 0;
    std::string path_;  // of the member that is being read
};

}  // namespace

Outcome EncodeValue(const ValueType& type, std::string_view text, const ResourceNames& names,
                    std::string& bytes, std::vector<std::string>& notes) {
    const std::uint32_t size = SizeOf(type.type);
    if (size > kMostValueBytes)
        return Failure(resultBadParam, type.name + " is larger than 65535 bytes");
    bytes.assign(size, '\0');
    try {
        Encoder(text, names, bytes, notes).Whole(type);
    } catch (const ValueFault& fault) {
        bytes.clear();
        return Failure(resultBadParam, type.name + ": " + fault.what());
    }
    return {};
}

}  // namespace tovarek
