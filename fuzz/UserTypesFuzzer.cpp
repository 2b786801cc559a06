// The XML format file and the user type file. An input is the format file; where it holds a NUL, what follows
// the first one is the user type file.
#include <algorithm>

#include "Runs.h"
#include "types/CTypes.h"

namespace {

using namespace tovarek;

// A device that uses type 1000 as a variable and type 1001 as a property.
CTemplate Device() {
    CTemplate device;
    device.programID = "9000010A0B040100";
    CNv nv;
    nv.name = "nviTemp";
    nv.unvtType = 1000;
    nv.length = 2;
    device.nvs = {nv};
    CCp cp;
    cp.name = "cpLimit";
    cp.scope = 6;
    cp.typeIndex = 1001;
    cp.typeIndexInScope = 1;
    cp.length = 2;
    device.cps = {cp};
    return device;
}

const std::string kNumber =
    "<SNVT_1000><TYPE>UNSIGNEDNUMERIC</TYPE><NAME>speed</NAME><LENGTH>2</LENGTH><A_COEF>5</A_COEF><B_COEF>-1"
    "</B_COEF><C_COEF>3</C_COEF><MIN>0</MIN><MAX>12.5</MAX><UNIT>m/s</UNIT><UNITS><US A_COEF=\"3.28\" "
    "C_COEF=\"-1\"><UNIT>ft/s</UNIT></US></UNITS></SNVT_1000>";

}  // namespace

std::vector<std::string> tovarek::fuzz::Seeds() {
    const std::string enumeration =
        "<SNVT_1001><TYPE>ENUM</TYPE><NAME>mode</NAME><ENUMS><OFF>0</OFF><NUL>255</NUL></ENUMS></SNVT_1001>";
    const std::string members =
        "<SNVT_1002><TYPE>BITS</TYPE><NAME>bit</NAME><LENGTH>1</LENGTH><BFSIZE>3</BFSIZE><BFOFFSET>2</"
        "BFOFFSET>"
        "<BFSIGNED>1</BFSIGNED></SNVT_1002><SNVT_1003><TYPE>STRUCT</TYPE><NAME>UNVT_record</"
        "NAME><FIELDS><a>1000"
        "</a><b>1001</b><c>1002</c><d>105</d><e>1004</e></FIELDS></SNVT_1003><SNVT_1004><TYPE>TEXTUAL</TYPE>"
        "<NAME>text</NAME><LENGTH>4</LENGTH></SNVT_1004><SNVT_105><TYPE>USER</TYPE><NAME>t</NAME></SNVT_105>";
    const std::string format = "<F>" + kNumber + enumeration + members + "</F>";
    const std::string userTypes =
        "<UNVTS><_3><_9000010A0B040100><UNVT_1><NAME>record</NAME><SNVTTYPE>1003</SNVTTYPE></UNVT_1><UNVT_2>"
        "<NAME>mode</NAME><SNVTTYPE>1001</SNVTTYPE></UNVT_2></_9000010A0B040100></_3></UNVTS>";
    const std::string properties =
        "<UCPTS><_5><_9000010A0B040100><UCPT_7><NAME>p</NAME><SNVTTYPE>1000</SNVTTYPE><MINRAWVAL>0000</"
        "MINRAWVAL>"
        "</UCPT_7></_9000010A0B040100></_5></UCPTS>";
    const std::string circle =
        "<F><SNVT_1000><TYPE>STRUCT</TYPE><NAME>n</NAME><FIELDS><a>1000</a></FIELDS>"
        "</SNVT_1000></F>";
    return {format, format + '\0' + userTypes, format + '\0' + properties, circle};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input = fuzz::View(data, size);
    const std::size_t end = std::min(input.find('\0'), size);
    const fuzz::InputFile format(input.substr(0, end));
    const fuzz::InputFile userTypes(end == size ? "<UNVTS/>" : input.substr(end + 1));

    const CTemplate device = Device();
    CTypes types;
    types.deviceTemplate = &device;
    types.errorHandler = &fuzz::SharedErrors();
    types.catalog = &fuzz::SharedCatalog();
    fuzz::RunTypesCheck(types, format.Path(), userTypes.Path());
    fuzz::Accepts([&] { types.LoadTypes(format.Path(), userTypes.Path()); });
    for (const auto& type : types.unvtTypes) {
        // Limits outside 32 bits are refused only when they are asked for.
        fuzz::Accepts([&] { type->minValueToLong(); });
        fuzz::Accepts([&] { type->AnalyseFormat(*type); });
    }
    return 0;
}
