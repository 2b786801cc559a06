// INI files as such: reading and writing of single values, and device profiles.
#include "Runs.h"
#include "support/cIni.h"

namespace {

using tovarek::fuzz::Accepts;
using tovarek::fuzz::Require;

// What is written must be read back, and what stands beside it must stay.
void WriteAndRead(tovarek::cIni& ini) {
    const std::string before = ini.GetStringValue("Line7", "firmware", "none");
    ini.SetStringValue("made", "key", "a value");
    ini.SetLongValue("Line6", "added here", -12);
    Require(ini.GetStringValue("Made", "KEY", "") == "a value", "a written text is read back");
    Require(ini.GetLongValue("line6", "added here", 0) == -12, "a written number is read back");
    Require(ini.GetStringValue("Line7", "firmware", "none") == before, "writing leaves other values alone");
}

}  // namespace

std::vector<std::string> tovarek::fuzz::Seeds() {
    const std::string sound =
        "[Line6]\r\ndomains=2\r\naddresses=15\r\napplicationtype=0\r\n[Line7]\r\ntypeNeuron=8\r\n"
        "protocolClockRate=5\r\nfirmware=0x10\r\n[Line8]\r\ntransceiverRate=-3\r\n[Line9]\r\n"
        "generalData0=2.9\r\n[Line10]\r\nrawData4= 12\r\n";
    return {
        sound,
        "; comment\n[ Line6 ]\n domains = \"1\"\nadded here='3'\n\n[line7]\nfirmware=4294967297\n[line7]\n",
        "\xEF\xBB\xBF[Line6]\nname=\xC3\xA9t\xC3\xA9\n",
        std::string("\xFF\xFE[\0m\0a\0d\0e\0]\0\n\0k\0e\0y\0=\0x\0\n\0", 28),
        "key before any section=1\r[made]\rkey=a\rKEY=b\r[x\r=\r\x1A",
    };
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovarek;
    const fuzz::InputFile file(fuzz::View(data, size));
    fuzz::RunProfile(&CProfile::iniFile, file.Path());
    cIni ini;
    ini.iniFile(file.Path());
    Accepts([&] {
        ini.GetBoolValue("Line6", "domains", true);
        ini.GetDoubleValue("Line8", "transceiverRate", 0.5);
        ini.GetColorValue("Line6", "x", 0x102030);
    });
    WriteAndRead(ini);
    return 0;
}
