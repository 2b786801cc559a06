// What the tests of dump and diff share: a small resource set with something of everything.
#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "Samples.h"
#include "Scratch.h"
#include "formats/language/LanguageFile.h"
#include "formats/profile/ProfileFile.h"
#include "formats/type/TypeFile.h"
#include "inspect/Inspect.h"

namespace tovarek::test {

inline bool IsNoXif(const std::string& path) {
    return path.find("vnone") != std::string::npos;  // a comma-separated list in spite of its name
}

inline ResourceHeader SmallHeader(ResourceKind kind) {
    ResourceHeader header;
    header.title = TitleText(kind, 1, 5);
    header.contact = ContactText("Acme Works", "555-0100", "info@acme.example");
    header.description = {3, kind == ResourceKind::language ? 1U : 4U};
    header.creator = {3, 2};
    header.majorVersion = 1;
    header.minorVersion = 5;
    header.saved = {.year = 2024, .month = 3, .day = 9, .hour = 14, .minute = 30, .second = 7};
    header.programId = {0x90, 0x0A, 0xBC, 1, 2, 3, 4, 0};
    header.scope = 3;
    return header;
}

inline LanguageFile SmallLanguage() {
    LanguageFile file;
    file.header = SmallHeader(ResourceKind::language);
    file.language = "enu";
    file.strings = {"Strings",    "Acme Works", std::nullopt,          "Types",
                    "Belt speed", "m/s",        "Caf\xC3\xA9 \xC2\xB0"};
    return file;
}

inline TypeFile SmallTypes() {
    TypeFile file;
    file.header = SmallHeader(ResourceKind::type);
    NvType speed{.name = "_beltSpeed", .size = 2, .nameText = {3, 5}, .unit = {3, 6}};
    speed.type = NumberOfKind(TypeKind::signedLong);
    speed.type.minimum = -500;
    speed.type.maximum = 1200;
    speed.type.a = 5;
    speed.type.b = -2;
    TypeDescription mode = NumberOfKind(TypeKind::enumeration);
    mode.target = {3, 1};
    mode.minimum = -1;
    mode.maximum = 2;
    TypeDescription gear;
    gear.kind = TypeKind::bitField;
    gear.bitOffset = 1;
    gear.bitWidth = 3;
    gear.maximum = 5;
    TypeDescription temp;
    temp.kind = TypeKind::reference;
    temp.target = {0, 105};
    temp.referencedSize = 2;
    NvType state{.name = "_beltState", .size = 10};
    state.type.kind = TypeKind::structure;
    state.type.members = {{.name = "mode", .type = mode},
                          {.name = "gear", .type = gear},
                          {.name = "label", .type = TextOf(6, 3)},
                          {.name = "temp", .type = temp}};
    file.nvTypes = {speed, std::nullopt, state};
    CpType limit;
    limit.name = "_maxSpeed";
    limit.size = 2;
    limit.type.kind = TypeKind::reference;
    limit.type.target = {3, 1};
    limit.type.referencedSize = 2;
    limit.minimum = std::string("\0\0", 2);
    limit.maximum = "\x04\xB0";
    limit.initial = "\x02\x58";
    file.cpTypes = {limit};
    file.enumerations = {Enumeration{"belt_mode_t", "belt.h", {{-1, "BM_NUL", {}}, {1, "BM_ON", {3, 7}}}}};
    return file;
}

inline NvType TypeNamed(const char* name, TypeDescription type) {
    NvType nv{.name = name, .size = static_cast<std::uint16_t>(SizeOf(type)), .type = std::move(type)};
    return nv;
}

inline CpType Property(const char* name, TypeDescription type, const std::string& initial) {
    CpType cp;
    static_cast<NvType&>(cp) = TypeNamed(name, std::move(type));
    cp.initial = initial;
    return cp;
}

inline TypeDescription Number(TypeKind kind, std::int64_t minimum, std::int64_t maximum,
                              std::array<std::int16_t, 3> scaling = {1, 0, 0}) {
    TypeDescription type = NumberOfKind(kind);
    type.minimum = minimum;
    type.maximum = maximum;
    std::tie(type.a, type.b, type.c) = std::tie(scaling[0], scaling[1], scaling[2]);
    return type;
}

inline TypeDescription Bits(int offset, int width, bool isSigned = false) {
    TypeDescription type = NumberOfKind(TypeKind::bitField);
    type.bitOffset = static_cast<std::uint8_t>(offset);
    type.bitWidth = static_cast<std::uint8_t>(width);
    type.bitSigned = isSigned;
    type.minimum = SmallestRaw(type);
    type.maximum = LargestRaw(type);
    return type;
}

// The small set with everything in it that a type file can say.
inline TypeFile RichTypes() {
    TypeFile file = SmallTypes();
    file.header.title += " (belts)";
    file.header.webPage = std::string(255, 'w');
    file.marks[13] = 7;
    NvType& speed = *file.nvTypes[0];
    speed.name += '~';
    speed.description = {3, 7};
    speed.reservedByte = 8;
    speed.reservedWord = 515;
    speed.type.c = 10;
    speed.type.invalid = 32767;
    TypeDescription total = Number(TypeKind::unsignedQuad, 1, 0xFFFFFFFE, {2, 3, -1});
    total.invalid = 0xFFFFFFFF;
    TypeDescription real = NumberOfKind(TypeKind::floatingPoint);
    real.floatMinimum = -1.5F;
    real.floatMaximum = 0.1F;
    real.floatInvalid = 0.0625F;
    TypeDescription either;
    either.kind = TypeKind::unionKind;
    either.members = {{.name = "byte", .type = Number(TypeKind::unsignedChar, 0, 127)},
                      {.name = "list", .type = ArrayOf(file.nvTypes[2]->type.members[0].type, 2, 3)}};
    TypeDescription low = Bits(0, 3, true);
    low.minimum = -2;
    low.maximum = 1;
    TypeDescription all;
    all.kind = TypeKind::structure;
    all.members = {
        {.name = "total", .nameText = {3, 5}, .description = {3, 7}, .unit = {3, 6}, .type = total},
        {.name = "step", .unit = {3, 66051}, .type = Number(TypeKind::signedQuad, -1, 1, {1, 0, 5})},
        {.name = "share", .type = Number(TypeKind::unsignedLong, 0, 65535, {1, 300, 0})},
        {.name = "level", .type = Number(TypeKind::signedShort, -128, 0, {1, -2, 0})},
        {.name = "real", .type = real},
        {.name = "low", .type = low},
        {.name = "high", .type = Bits(3, 5, false)},
        {.name = "either", .type = either},
        {.name = "letter", .type = Number(TypeKind::signedChar, 0, 1)}};
    file.nvTypes.emplace_back(TypeNamed("_beltAll", all));
    const TypeDescription mode = file.nvTypes[2]->type.members[0].type;
    file.cpTypes = {file.cpTypes[0],
                    std::nullopt,
                    Property("_label", TextOf(6, 3), {"Belt\0\0", 6}),
                    Property("_real", real, "\x3F\xC0\x40\x41"),
                    Property("_mode", mode, "\1"),
                    Property("_pair", ArrayOf(mode, 2, 3), "\1\2"),
                    Property("_odd", mode, {"\0\1", 2})};
    file.cpTypes[4]->minimum = "\xFF";
    file.cpTypes[6]->size = 2;  // a byte more than its type has
    file.cpTypes[5]->maximum = "\3\4";
    file.enumerations.emplace_back(std::nullopt);
    file.enumerations.emplace_back(Enumeration{"gear_t", "gears.h", {{0, "G_N", {3, 1}}}});
    return file;
}

inline ProfileFile SmallProfiles() {
    ProfileFile file;
    file.header = SmallHeader(ResourceKind::profile);
    Profile profile{.name = "UFPTbelt", .key = 20000, .principalNv = 1};
    const MemberValues initial{.size = 2, .initial = "\x01\x02"};
    profile.nvs = {
        {{.number = 1, .name = "nviSpeed", .mandatory = true, .type = {3, 1}, .values = initial}, true}};
    profile.cps = {{{.number = 1, .name = "limit", .type = {3, 1}, .values = {.size = 2}}, 1}};
    file.profiles = {profile};
    return file;
}

template <class File>
std::string BytesOf(Outcome (*writer)(const File&, std::string&), const File& file) {
    std::string bytes;
    const Outcome outcome = writer(file, bytes);
    EXPECT_TRUE(outcome.Ok()) << outcome.reason;
    return bytes;
}

inline constexpr std::string_view kSmallXif =
    "File: belt.xif generated by Acme Builder 2.1, XIF Version 4.0\r\n"
    "Copyright (c) Acme Works\r\n"
    "All Rights Reserved.  Run on Tue Feb 29 16:27:27 2000\r\n"
    "\r\n"
    "90:0A:BC:01:02:03:04:00\r\n"
    "2 15 1 2 1 3 3 3 3 3 3 11 11 9 9 0 0 16 15 1 1 11 *\r\n"
    "0 5 6 13 28 0 0 15 5 3 240 4\r\n"
    "# a comment\r\n"
    "1 7 1 1 4 4 4 15 200 0\r\n"
    "78125 0 0 0 0 0 0 0 0 0 0 0\r\n"
    "90 0 240 0 0 0 40 40 0 5 8 5 12 14 15\r\n"
    "*\r\n"
    "\"&3.1@0Node\r\n"
    "\"Object,4Belt\r\n"
    "\r\n"
    "TAG alarm 0 13 13 0\r\n"
    "0 1 63 1 0 1 0 1 0 0 0 0 0\r\n"
    "VAR nviSpeed 0 0 0 0\r\n"
    "0 1 63 0 2 1 0 1 0 1 0 0 0\r\n"
    "*\r\n"
    "105 *   1\r\n"
    "2 0 0 1 0\r\n"
    "VAR nciLimits 1 0 0 2\r\n"
    "1 1 63 0 0 1 0 1 0 1 0 0 1\r\n"
    "\"&1,0,0\\x80,49\r\n"
    "0 * 4\r\n"
    "3 0 1 0 0 \r\n"
    "3 1 2 0 0 \r\n"
    "3 0 8 0 0 \r\n"
    "1 0 0 0 2\r\n"
    "\r\n"
    "FILE template 0 2\r\n"
    "\"1.1;\" // version\r\n"
    "\"1,0,0\\x80,49,2,,0:600;\r\n"
    "\r\n"
    "FILE value 1 1 2\r\n"
    "0x0258\r\n"
    "\r\n"
    "FUTURE record of a later version\r\n"
    "with two lines\r\n"
    "\r\n"
    "NVVAL\r\n"
    "0x01,0x02 \\x03\\x04\r\n"
    "\t0506 7,8\r\n";

// Runs `check` on changed copies of `bytes`: cut at every `step`th length, then with random bytes exchanged.
// The changes are the same in every run.
inline void ForDamaged(const std::string& bytes, std::size_t step, int mutations,
                       const std::function<void(const std::string&)>& check) {
    std::mt19937 random(20240309);
    for (std::size_t length = 0; length < bytes.size(); length += step)
        check(bytes.substr(0, length));
    for (int i = 0; i < mutations; ++i) {
        std::string changed = bytes;
        const std::size_t first = i % 2 == 0 ? 0 : std::min<std::size_t>(0x300, changed.size() / 2);
        for (unsigned n = 1 + random() % 4; n > 0; --n)
            changed[first + random() % (changed.size() - first)] = static_cast<char>(random());
        check(changed);
    }
}

}  // namespace tovarek::test
