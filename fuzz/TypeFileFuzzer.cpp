#include "Runs.h"
#include "formats/type/TypeFile.h"
#include "values/ValueText.h"

namespace {

using namespace tovarek;

TypeMember Member(const std::string& name, TypeDescription type) {
    TypeMember member;
    member.name = name;
    member.nameText = {3, 5};
    member.type = std::move(type);
    return member;
}

TypeFile SoundFile() {
    TypeFile file;
    file.header.title = TitleText(ResourceKind::type, 1, 0);
    file.header.scope = 3;

    TypeDescription scaled = NumberOfKind(TypeKind::unsignedLong);
    scaled.maximum = 1000;
    scaled.a = 5;
    scaled.b = -1;
    scaled.c = 3;
    scaled.invalid = 65535;
    TypeDescription mode = NumberOfKind(TypeKind::enumeration);
    mode.target = {3, 1};
    mode.minimum = -1;
    mode.maximum = 3;
    TypeDescription bit = NumberOfKind(TypeKind::bitField);
    bit.bitOffset = 2;
    bit.bitWidth = 3;
    bit.maximum = 7;
    TypeDescription reference;
    reference.kind = TypeKind::reference;
    reference.target = {0, 105};
    reference.referencedSize = 2;
    TypeDescription inner;
    inner.kind = TypeKind::unionKind;
    inner.members = {Member("a", NumberOfKind(TypeKind::floatingPoint)), Member("b", TextOf(4, 3))};
    TypeDescription record;
    record.kind = TypeKind::structure;
    record.members = {Member("level", scaled),
                      Member("mode", mode),
                      Member("bit", bit),
                      Member("space", reference),
                      Member("list", ArrayOf(scaled, 3, 3)),
                      Member("inner", inner)};

    NvType number;
    number.name = "_speed";
    number.type = scaled;
    number.size = 2;
    NvType structure;
    structure.name = "_record";
    structure.type = record;
    structure.size = static_cast<std::uint16_t>(SizeOf(record));
    file.nvTypes = {number, structure};
    CpType property;
    static_cast<NvType&>(property) = number;
    property.name = "setting";
    property.initial = std::string("\x01\x02", 2);
    property.minimum = std::string(2, '\0');
    property.maximum = property.initial;
    file.cpTypes = {property};
    Enumeration enumeration;
    enumeration.name = "mode_t";
    enumeration.fileName = "modes.h";
    enumeration.values = {{-1, "MODE_NUL", {}}, {0, "MODE_OFF", {3, 9}}, {3, "MODE_ON", {}}};
    file.enumerations = {enumeration};
    return file;
}

// Whatever the file describes, bytes of it have a text, and the text stands for the same value.
void DecodeAny(const TypeFile& file, std::string_view bytes) {
    constexpr std::uint32_t kLargest = 256;
    ResourceNames names;
    names.Use(file);
    for (const std::optional<NvType>& nv : file.nvTypes) {
        if (!nv || SizeOf(nv->type) > kLargest)
            continue;
        const ValueType type{nv->name, nv->type, nv->unit};
        std::string raw(bytes.substr(bytes.size() / 2, SizeOf(nv->type)));
        raw.resize(SizeOf(nv->type), '\x7F');
        DecodedValue value;
        std::vector<std::string> notes;
        if (!DecodeValue(type, raw, names, value, notes).Ok())
            continue;
        const std::string text = WrittenValue(value);
        std::string encoded;
        fuzz::Require(EncodeValue(type, text, names, encoded, notes).Ok(), "a decoded value can be encoded");
        fuzz::Require(DecodeValue(type, encoded, names, value, notes).Ok() && WrittenValue(value) == text,
                      "an encoded value is the one that was decoded");
    }
}

}  // namespace

std::vector<std::string> tovarek::fuzz::Seeds() {
    std::vector<std::string> seeds(2);
    TypeFile file = SoundFile();
    Require(WriteTypeFile(file, seeds[0]).Ok(), "the seed can be written");
    file.nvTypes.clear();
    file.cpTypes.clear();
    file.enumerations.clear();
    WriteTypeFile(file, seeds[1]);
    return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    TypeFile read;
    const std::string bytes = fuzz::WithRightChecksums(std::string(fuzz::View(data, size)));
    if (ReadTypeFile(bytes, read).Ok())
        DecodeAny(read, bytes);
    const auto same = [](const TypeFile& again, const TypeFile& file) {
        fuzz::Require(again.nvTypes == file.nvTypes, "a written file has the same network-variable types");
        fuzz::Require(again.cpTypes == file.cpTypes, "a written file has the same property types");
        fuzz::Require(again.enumerations == file.enumerations, "a written file has the same enumerations");
    };
    fuzz::ReadWriteRead(fuzz::View(data, size), ReadTypeFile, WriteTypeFile, same);
    return 0;
}
