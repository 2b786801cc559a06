#include "Inputs.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <string_view>

#include "profile/ProfileFields.h"

namespace tovarek::bench {
namespace {

constexpr std::string_view kProgramId = "9000010A0B040100";

// A standard type with a typical variable of it; the length is the catalog's.
struct Sample {
    int type;
    std::string_view name;
    std::string_view text;
};
constexpr auto kSamples = std::to_array<Sample>({
    {105, "nviSpaceTemp", "Temperature of the space, degrees Celsius"},
    {95, "nvoValve", "Valve position and state"},
    {81, "nvoHeatOutput", "Heating output of the terminal"},
    {8, "nviPulses", "Pulses of the water meter since power-up, one per litre, not stored"},
    {76, "nvoFrequency", "Supply frequency"},
    {39, "nvoDischarge", "Discharge air temperature behind the coil, averaged over one minute"},
});
constexpr int kFirstUserType = 300;

constexpr int kMostTemplateTypes = 2048;
// What the structures are made of: so many numbers from kMember on.
constexpr int kMember = 900;
constexpr int kMembers = 8;
// The definitions of structure members come first; the types of the device follow from here on.
constexpr int kFirstType = 1000;

class Text {
  public:
    template <class... Parts>
    Text& Add(const Parts&... parts) {
        (Put(parts), ...);
        return *this;
    }
    std::string Take() { return std::move(text_); }

  private:
    void Put(std::string_view part) { text_ += part; }
    void Put(const std::string& part) { text_ += part; }
    void Put(const char* part) { text_ += part; }
    void Put(int number) { text_ += std::to_string(number); }

    std::string text_;
};

const Sample& SampleOf(int i) {
    return kSamples[static_cast<std::size_t>(i) % kSamples.size()];
}
// Every fourth variable has a type of the user's.
bool IsUserType(int i) {
    return i % 4 == 3;
}
int ArraySize(int i) {
    return i % 16 == 5 ? 4 : 0;
}
std::string Name(int i) {
    return std::string(SampleOf(i).name) + std::to_string(i);
}
std::string SelfDoc(int i) {
    Text text;
    text.Add("@", i / 8, "|", i % 8 + 1, ";", SampleOf(i).text);
    return text.Take();
}

// In bytes: user type `i` of FormatFile, the structures of as many numbers of 1 byte as of 2.
int NumberLength(int i) {
    return 1 + i % 2;
}
int TypeLength(int i) {
    constexpr int kStructure = kMembers / 2 * 3;
    return std::array{kStructure, 1, NumberLength(i)}[static_cast<std::size_t>(i) % 3];
}

// A standard configuration property of variable `i`, with the length that the catalog gives it.
struct Property {
    int type;
    int length;
    bool hasLimits;
};
Property PropertyOf(int i) {
    constexpr auto kKinds = std::to_array<Property>({{48, 2, true},
                                                     {25, 1, false},
                                                     {31, 4, true},
                                                     {17, 31, false},
                                                     {49, 2, true},
                                                     {38, 1, false},
                                                     {292, 4, true},
                                                     {41, 31, false}});
    return kKinds[static_cast<std::size_t>(i) % kKinds.size()];
}
std::string Declaration(int i) {
    Text text;
    text.Add("2,", i, ",0\\x80,", PropertyOf(i).type, ",", PropertyOf(i).length, ";");
    return text.Take();
}
std::string RawValue(int bytes, std::string_view byte) {
    std::string value;
    for (int i = 0; i < bytes; ++i)
        value += byte;
    return value;
}

void AddElement(Text& text, std::string_view indent, std::string_view name, const std::string& value) {
    text.Add(indent, "<", name, ">", value, "</", name, ">\n");
}

}  // namespace

std::string IniTemplate(int records) {
    Text text;
    text.Add("; Made for measurements\r\n[general]\r\nprogramID=", kProgramId, "\r\n",
             "selfDoc=&3.4@0NodeObject,1FanCoil;Unit ventilator with many points\r\n\r\n");
    text.Add("[nvs]\r\nnumberOfStaticNvs=", records, "\r\nmaximumNumberOfNvs=", records, "\r\n\r\n");
    text.Add("[tags]\r\nnumberOfTags=2\r\n\r\n[cps]\r\nnumberOfCp=", records, "\r\nversion=1.0\r\n");
    for (int i = 0; i < records; ++i) {
        text.Add("\r\n[nv", i + 1, "]\r\nname=", Name(i), "\r\nselfdoc=", SelfDoc(i), "\r\n");
        text.Add("direction=", i % 2, "\r\n");
        if (IsUserType(i))
            text.Add("type=", kFirstUserType + i % 50, "\r\nlength=", 1 + i % 8, "\r\n");
        else
            text.Add("type=", SampleOf(i).type, "\r\n");
        if (ArraySize(i) > 0)
            text.Add("arraySize=", ArraySize(i), "\r\n");
        if (i % 3 == 0)
            text.Add("avgRate=10\r\nmaxRate=20\r\n");
        if (i % 5 == 0)
            text.Add("defaultService=1\r\npolled=0\r\nsynchronized=0\r\ndefaultPriority=0\r\n");
    }
    for (int i = 1; i <= 2; ++i)
        text.Add("\r\n[tag", i, "]\r\nname=mtMessage", i, "\r\nbindable=1\r\n");
    for (int i = 0; i < records; ++i) {
        const Property property = PropertyOf(i);
        text.Add("\r\n[cp", i + 1, "]\r\ndeclaration=", Declaration(i), "\r\n");
        text.Add("value=", RawValue(property.length, "1E"), "\r\n");
        if (property.hasLimits)
            text.Add("minRawVal=", RawValue(property.length, "00"),
                     "\r\nmaxRawVal=", RawValue(property.length, "7F"),
                     "\r\ninitRawVal=", RawValue(property.length, "10"), "\r\n");
    }
    return text.Take();
}

std::string XmlTemplate(int records, TypeUse use) {
    const bool allUser = use == TypeUse::user;
    Text text;
    text.Add("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<DEVICE>\n  <TEMPLATE>\n");
    AddElement(text, "    ", "PROGRAMID", std::string(kProgramId));
    AddElement(text, "    ", "SDSTRING", "&amp;3.4@0NodeObject,1FanCoil;Unit ventilator with many points");
    AddElement(text, "    ", "FILETYPEIIVERSION", "1.0");
    if (allUser)
        AddElement(text, "    ", "USERCPFILE", "types.xml");
    text.Add("    <NVS>\n");
    for (int i = 0; i < records; ++i) {
        const std::string name = Name(i);
        text.Add("      <", name, ">\n");
        AddElement(text, "        ", "DIRECTION", i % 2 == 0 ? "INPUT" : "OUTPUT");
        if (allUser || IsUserType(i)) {
            AddElement(text, "        ", "SNVTTYPE",
                       std::to_string(allUser ? kFirstType + i : kFirstUserType + i % 50));
            AddElement(text, "        ", "LENGTH", std::to_string(allUser ? TypeLength(i) : 1 + i % 8));
        } else {
            AddElement(text, "        ", "SNVTTYPE", std::to_string(SampleOf(i).type));
        }
        AddElement(text, "        ", "SISD", SelfDoc(i));
        if (ArraySize(i) > 0)
            AddElement(text, "        ", "ARRAYSIZE", std::to_string(ArraySize(i)));
        if (i % 3 == 0) {
            AddElement(text, "        ", "AVGRATE", "10");
            AddElement(text, "        ", "MAXRATE", "20");
        }
        if (i % 5 == 0) {
            for (const char* flag : {"POLLED", "SYNCHRONIZED", "DEFAULTPRIORITY"})
                AddElement(text, "        ", flag, "0");
            AddElement(text, "        ", "DEFAULTSERVICE", "1");
        }
        text.Add("      </", name, ">\n");
    }
    text.Add("    </NVS>\n    <TAGS>\n");
    for (int i = 1; i <= 2; ++i)
        text.Add("      <mtMessage", i, "/>\n");
    text.Add("    </TAGS>\n    <CPS>\n");
    for (int i = 0; i < records; ++i) {
        const Property property = PropertyOf(i);
        text.Add("      <cpSetting", i, ">\n");
        AddElement(text, "        ", "SISD", Declaration(i));
        AddElement(text, "        ", "RAWVALUE", RawValue(property.length, "1E"));
        if (property.hasLimits) {
            AddElement(text, "        ", "MINRAWVAL", RawValue(property.length, "00"));
            AddElement(text, "        ", "MAXRAWVAL", RawValue(property.length, "7F"));
            AddElement(text, "        ", "INITRAWVAL", RawValue(property.length, "10"));
        }
        text.Add("      </cpSetting", i, ">\n");
    }
    text.Add("    </CPS>\n  </TEMPLATE>\n</DEVICE>\n");
    return text.Take();
}

std::string IniProfile() {
    Text text;
    int line = 0;
    for (const ProfileField& field : kProfileFields) {
        if (field.line != line) {
            line = field.line;
            text.Add("[Line", line, "]\r\n");
        }
        // 1 passes every check but that of the chip, which is 0 or a number from 8 on.
        text.Add(field.iniKey, "=", field.value == &ProfileValues::typeneuron ? 0 : 1, "\r\n");
    }
    return text.Take();
}

int TemplateTypes(int types) {
    return std::min(std::max(types / 6, 1), kMostTemplateTypes);
}

namespace {

constexpr int kEnumValues = 16;

void AddUnits(Text& text, int i) {
    text.Add("    <UNITS>\n      <US A_COEF=\"1.8\" C_COEF=\"32\"><UNIT>degrees F</UNIT></US>\n");
    text.Add("      <raw A_COEF=\"10\" C_COEF=\"", i % 7, "\"><UNIT>tenths</UNIT></raw>\n    </UNITS>\n");
}

void AddNumber(Text& text, int i) {
    AddElement(text, "    ", "TYPE", i % 2 == 0 ? "UNSIGNEDNUMERIC" : "SIGNEDNUMERIC");
    AddElement(text, "    ", "NAME", "value" + std::to_string(i));
    AddElement(text, "    ", "LENGTH", std::to_string(NumberLength(i)));
    AddElement(text, "    ", "A_COEF", "1");
    AddElement(text, "    ", "B_COEF", "-1");
    AddElement(text, "    ", "MIN", "0");
    AddElement(text, "    ", "MAX", "12.5");
    AddElement(text, "    ", "UNIT", "degrees C");
    AddElement(text, "    ", "DESC", "Measured value " + std::to_string(i));
    if (i % 2 == 0)
        AddUnits(text, i);
}

void AddEnumeration(Text& text, int i) {
    AddElement(text, "    ", "TYPE", "ENUM");
    AddElement(text, "    ", "NAME", "mode" + std::to_string(i));
    AddElement(text, "    ", "DESC", "Operating mode " + std::to_string(i));
    text.Add("    <ENUMS>\n");
    for (int value = 0; value < kEnumValues; ++value)
        text.Add("      <MODE", i, "_STATE_", value, ">", value - 1, "</MODE", i, "_STATE_", value, ">\n");
    text.Add("    </ENUMS>\n");
    AddUnits(text, i);
}

void AddStructure(Text& text, int i) {
    AddElement(text, "    ", "TYPE", "STRUCT");
    AddElement(text, "    ", "NAME", "record" + std::to_string(i));
    AddElement(text, "    ", "DESC", "Set of values " + std::to_string(i));
    text.Add("    <FIELDS>\n");
    for (int member = 0; member < kMembers; ++member)
        text.Add("      <member", member, ">", kMember + member, "</member", member, ">\n");
    text.Add("    </FIELDS>\n");
}

}  // namespace

std::string FormatFile(int types) {
    Text text;
    // The first node of the file is its root: nothing may stand in front of it.
    text.Add("<FORMATS>\n");
    for (int member = 0; member < kMembers; ++member) {
        text.Add("  <SNVT_", kMember + member, ">\n");
        AddNumber(text, member);
        text.Add("  </SNVT_", kMember + member, ">\n");
    }
    for (int i = 0; i < types; ++i) {
        text.Add("  <SNVT_", kFirstType + i, ">\n");
        if (i % 3 == 0)
            AddStructure(text, i);
        else if (i % 3 == 1)
            AddEnumeration(text, i);
        else
            AddNumber(text, i);
        text.Add("  </SNVT_", kFirstType + i, ">\n");
    }
    text.Add("</FORMATS>\n");
    return text.Take();
}

std::string UserTypeFile(int types) {
    const int first = TemplateTypes(types);
    Text text;
    text.Add("<UNVTS>\n");
    for (int scope = 1; scope <= 5; ++scope) {
        text.Add("  <_", scope, ">\n    <_", kProgramId, ">\n");
        int number = 0;
        for (int i = first + scope - 1; i < types; i += 5) {
            ++number;
            text.Add("      <UNVT_", number, "><NAME>type", i, "</NAME><SNVTTYPE>", kFirstType + i,
                     "</SNVTTYPE></UNVT_", number, ">\n");
        }
        text.Add("    </_", kProgramId, ">\n  </_", scope, ">\n");
    }
    text.Add("</UNVTS>\n");
    return text.Take();
}

}  // namespace tovarek::bench
