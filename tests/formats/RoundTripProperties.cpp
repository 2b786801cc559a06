// Write then read gives the same, for any content that fits the formats.
#include <rapidcheck.h>

#include <algorithm>

#include "Fixtures.h"

namespace tovarek::test {
namespace {

int Between(int low, int high) {
    return *rc::gen::inRange(low, high + 1);
}

std::string AnyName(int shortest = 1) {
    const int length = Between(0, 9) == 0 ? 255 : Between(shortest, 12);
    const std::string letters = "abcXYZ_019~ ";
    std::string name;
    for (int i = 0; i < length; ++i)
        name += letters[static_cast<std::size_t>(Between(0, 11))];
    return name;
}

std::string AnyText() {
    const std::vector<std::string> pieces = {"a",        " ", "\r\n",    "\xC2\xB0", "\xE2\x82\xAC",
                                             "\xC2\x81", "Z", "\xC3\xBF"};
    std::string text;
    for (int i = Between(0, 40); i > 0; --i)
        text += pieces[static_cast<std::size_t>(Between(0, 7))];
    return text;
}

StringRef AnyString() {
    return {static_cast<std::uint8_t>(Between(0, 6)), static_cast<std::uint32_t>(Between(0, 0xFFFFFF))};
}
TypeRef AnyType() {
    return {static_cast<std::uint8_t>(Between(0, 6)), static_cast<std::uint16_t>(Between(0, 65535))};
}

std::int64_t AnyRaw(const TypeDescription& type) {
    const std::vector<std::int64_t> limits = {SmallestRaw(type), LargestRaw(type), 0, -1, 1, 5};
    const std::int64_t value = limits[static_cast<std::size_t>(Between(0, 5))];
    return std::max(SmallestRaw(type), std::min(LargestRaw(type), value));
}

std::int16_t AnyCoefficient() {
    return static_cast<std::int16_t>(Between(0, 2) == 0 ? Between(-32768, 32767) : Between(-2, 2));
}

TypeDescription AnyDescription(int depth);

TypeMember AnyMember(int depth) {
    return {AnyName(), AnyString(), AnyString(), AnyString(), AnyDescription(depth)};
}

void FillNumber(TypeDescription& type) {
    type.minimum = AnyRaw(type);
    type.maximum = AnyRaw(type);
    type.a = AnyCoefficient();
    type.b = AnyCoefficient();
    type.c = AnyCoefficient();
    if (IsInteger(type.kind) && Between(0, 1) == 1)
        type.invalid = AnyRaw(type);
}

TypeDescription AnyDescription(int depth) {
    TypeDescription type;
    type.kind = static_cast<TypeKind>(Between(1, 15));
    const bool holds = type.kind == TypeKind::array || HasMembers(type.kind);
    if (depth > 4 && holds)
        type.kind = TypeKind::unsignedQuad;
    switch (type.kind) {
        case TypeKind::array:
            type = ArrayOf(AnyDescription(depth + 1), static_cast<std::uint16_t>(Between(0, 65535)), 4);
            break;
        case TypeKind::structure:
        case TypeKind::unionKind:
            for (int i = Between(0, 4); i > 0; --i)
                type.members.push_back(AnyMember(depth + 1));
            break;
        case TypeKind::reference:
            type.target = AnyType();
            type.referencedSize = static_cast<std::uint8_t>(Between(0, 255));
            break;
        case TypeKind::floatingPoint:
            type = NumberOfKind(TypeKind::floatingPoint);
            if (Between(0, 1) == 1)
                type.floatMinimum = static_cast<float>(Between(-5, 5)) / 4;
            if (Between(0, 3) == 1)
                type.floatInvalid = 7.25F;
            break;
        default:
            if (type.kind == TypeKind::enumeration)
                type.target = AnyType();
            if (type.kind == TypeKind::bitField) {
                type.bitOffset = static_cast<std::uint8_t>(Between(0, 7));
                type.bitWidth = static_cast<std::uint8_t>(Between(1, 8));
                type.bitSigned = Between(0, 1) == 1;
            }
            FillNumber(type);
    }
    return type;
}

void FillType(NvType& type) {
    type.name = AnyName(0);
    type.size = static_cast<std::uint16_t>(Between(0, 300));
    type.nameText = AnyString();
    type.unit = AnyString();
    type.type = AnyDescription(0);
}

std::optional<std::string> MaybeRaw(std::size_t size) {
    if (Between(0, 1) == 0)
        return std::nullopt;
    return std::string(size, static_cast<char>(Between(0, 127)));
}

ResourceHeader AnyHeader() {
    ResourceHeader header;
    header.title = TitleText(ResourceKind::type, Between(0, 65535), Between(0, 255));
    header.contact = AnyName();
    while (header.contact.ends_with(' '))  // blanks at the end fill the block
        header.contact.pop_back();
    header.scope = static_cast<std::uint8_t>(Between(0, 6));
    header.programId[7] = static_cast<std::uint8_t>(Between(0, 255));
    header.saved = {Between(0, 65535), 12, 31, 23, 59, 60};
    return header;
}

TEST(RoundTrip, TypeFiles) {
    EXPECT_TRUE(rc::check([] {
        TypeFile file;
        file.header = AnyHeader();
        for (int i = Between(0, 15); i > 0; --i)
            if (auto& nv = file.nvTypes.emplace_back(); Between(0, 5) != 0)
                FillType(nv.emplace());
        for (int i = Between(0, 5); i > 0; --i) {
            CpType& cp = file.cpTypes.emplace_back().emplace();
            FillType(cp);
            cp.minimum = MaybeRaw(cp.size);
            cp.maximum = MaybeRaw(cp.size);
            cp.initial = std::string(cp.size, 'i');
        }
        for (int i = Between(0, 5); i > 0; --i) {
            Enumeration& set =
                file.enumerations.emplace_back().emplace(Enumeration{AnyName(), AnyName(), {}});
            for (int value = Between(0, 20); value > 0; --value)
                set.values.push_back({static_cast<std::int8_t>(Between(-128, 127)), AnyName(), AnyString()});
        }
        std::string bytes;
        RC_ASSERT(WriteTypeFile(file, bytes).reason == "");
        TypeFile again;
        RC_ASSERT(ReadTypeFile(bytes, again).reason == "");
        RC_ASSERT(again.nvTypes == file.nvTypes);
        RC_ASSERT(again.cpTypes == file.cpTypes);
        RC_ASSERT(again.enumerations == file.enumerations);
        RC_ASSERT(again.header.contact == file.header.contact);
        RC_ASSERT(again.header.saved.year == file.header.saved.year);
        RC_ASSERT(again.header.programId == file.header.programId);
    }));
}

TEST(RoundTrip, LanguageFiles) {
    EXPECT_TRUE(rc::check([] {
        LanguageFile file;
        file.language = "fra";
        for (int i = Between(0, 30); i > 0; --i)
            if (auto& string = file.strings.emplace_back(); Between(0, 5) != 0)
                string = AnyText();
        std::string bytes;
        file.header.title = TitleText(ResourceKind::language, 1, 0);
        RC_ASSERT(WriteLanguageFile(file, bytes).reason == "");
        LanguageFile again;
        RC_ASSERT(ReadLanguageFile(bytes, again).reason == "");
        RC_ASSERT(again.strings == file.strings);
        RC_ASSERT(again.language == file.language);
    }));
}

MemberValues AnyValues(int largest) {
    MemberValues values;
    values.size = static_cast<std::uint16_t>(Between(0, largest));
    values.initial = MaybeRaw(values.size);
    values.minimum = MaybeRaw(values.size);
    values.maximum = MaybeRaw(values.size);
    return values;
}

std::uint16_t AnyWord() {
    return static_cast<std::uint16_t>(Between(0, 65535));
}

ProfileMember AnyProfileMember(int largestValue) {
    return {AnyWord(),   AnyName(0), Between(0, 1) == 1, AnyString(),
            AnyString(), 0,          AnyType(),          AnyValues(largestValue)};
}

TEST(RoundTrip, ProfileFiles) {
    EXPECT_TRUE(rc::check([] {
        ProfileFile file;
        file.header.title = TitleText(ResourceKind::profile, 1, 0);
        for (int i = Between(0, 12); i > 0; --i) {
            auto& place = file.profiles.emplace_back();
            if (Between(0, 5) == 0)
                continue;
            Profile& profile = place.emplace();
            profile.name = AnyName();
            profile.key = static_cast<std::uint16_t>(Between(20000, 20005));
            profile.inherits = Between(0, 1) == 1;
            profile.principalNv = static_cast<std::uint8_t>(Between(0, 255));
            for (int nv = Between(0, 4); nv > 0; --nv)
                profile.nvs.push_back({AnyProfileMember(255), Between(0, 1) == 1, Between(0, 1) == 1,
                                       static_cast<std::uint8_t>(Between(0, 7))});
            for (int cp = Between(0, 4); cp > 0; --cp)
                profile.cps.push_back({AnyProfileMember(300), AnyWord(), AnyWord(), AnyWord(),
                                       static_cast<std::uint8_t>(Between(0, 255))});
        }
        std::string bytes;
        RC_ASSERT(WriteProfileFile(file, bytes).reason == "");
        ProfileFile again;
        RC_ASSERT(ReadProfileFile(bytes, again).reason == "");
        RC_ASSERT(again.profiles == file.profiles);
    }));
}

TEST(RoundTrip, FormatFiles) {
    EXPECT_TRUE(rc::check([] {
        FormatFile file;
        file.settings = {"selector MANUFACTURER"};
        for (int i = Between(0, 8); i > 0; --i) {
            DisplayFormat format{.type = "UNVT_a", .name = Between(0, 1) == 0 ? "" : "US", .form = "text"};
            const int count = Between(1, 4);
            for (int value = 0; value < count; ++value) {
                FormatParameter parameter{.conversion = "%f"};
                parameter.expression = count == 1 && Between(0, 1) == 0 ? "" : "a.b[1]";
                parameter.factor = Between(-8, 8) / 4.0;
                parameter.offset = Between(-8, 8) / 8.0;
                if (Between(0, 1) == 1)
                    parameter.unit = "m/s, \"per\"; (s)";
                if (Between(0, 1) == 1)
                    parameter.unitText = {0, 855};
                format.text += (value == 0 ? "" : ", ") + parameter.conversion;
                format.parameters.push_back(parameter);
            }
            file.formats.push_back(format);
        }
        FormatFile again;
        RC_ASSERT(ReadFormatFile(WriteFormatFile(file), again).reason == "");
        RC_ASSERT(again.formats.size() == file.formats.size());
        for (std::size_t i = 0; i < file.formats.size(); ++i) {
            RC_ASSERT(again.formats[i].parameters == file.formats[i].parameters);
            RC_ASSERT(again.formats[i].text == file.formats[i].text);
            RC_ASSERT(again.formats[i].name == file.formats[i].name);
        }
    }));
}

}  // namespace
}  // namespace tovarek::test
