#include "Runs.h"

std::vector<std::string> tovarek::fuzz::Seeds() {
    const std::string sound =
        "<?xml "
        "version=\"1.0\"?>\n<D><T><PROGRAMID>9000010A0B040100</PROGRAMID><SDSTRING>&amp;3.4@0</SDSTRING>"
        "<FILETYPEIIVERSION>1.0</FILETYPEIIVERSION><MAXIMUMNUMBEROFNVS>9</MAXIMUMNUMBEROFNVS><USERCPFILE> "
        "t.xml "
        "</USERCPFILE><NVS><nviTemp><DIRECTION>input</DIRECTION><SNVTTYPE>105</SNVTTYPE><SISD>@1|1;"
        "\xC2\xB0</SISD></nviTemp><nvoMode><more><SNVTTYPE>300</SNVTTYPE></more><LENGTH>4</"
        "LENGTH><ARRAYSIZE>3"
        "</ARRAYSIZE><POLLED>1</POLLED></nvoMode></NVS><TAGS><mt><BINDABLE>0</BINDABLE></mt></TAGS><CPS><cpA>"
        "<SISD>1,0,0\\x80,17,2;</SISD><RAWVALUE>0A1B</RAWVALUE></cpA><cpB><SISD>1,1,6,3,1</SISD><SNVTTYPE>301"
        "</SNVTTYPE></cpB></CPS></T></D>";
    const std::string valid =
        "<!DOCTYPE T [<!ELEMENT T ANY><!ELEMENT NVS ANY><!ELEMENT a ANY><!ENTITY e \"105\">"
        "<!ATTLIST T x CDATA \"1\">]><T><NVS><a>&e;</a></NVS></T>";
    return {
        sound,
        valid,
        "<!DOCTYPE T [<!ENTITY a \"b\"><!ENTITY b \"&a;&a;&a;\"><!ENTITY c \"&b;&b;&b;\">]><T>&c;</T>",
        "<T xmlns:p=\"u\"><p:NVS><![CDATA[x]]><!-- c --><?pi x?></p:NVS></T>",
        "<?xml version='1.0' encoding='windows-1252'?><T><NVS><\xE9><LENGTH>1e1</LENGTH></\xE9></NVS></T>",
    };
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovarek;
    fuzz::RunTemplate(&CTemplate::xmlFile, fuzz::View(data, size));
    return 0;
}
