#include "template/CTemplate.h"

#include "base/Text.h"
#include "support/CTools.h"

namespace tovarek {

void CTemplate::Load() {
    RaisingSink raise(*errorHandler);
    Load(raise);
}

void CTemplate::Load(FindingSink& findings) {
    ResetTemplate();
    if (!iniFile.empty())
        LoadTemplateFromIni(findings);
    else if (xmlNode)
        LoadTemplateFromXmlNode(xmlNode.Current(), findings);
    else if (!xmlFile.empty())
        LoadTemplateFromXmlNode(
            CTools().SearchXmlNode(xmlFile, xmlNodeName, *errorHandler, "xmlTemplateNodeName"), findings);
    else
        errorHandler->RaiseError(
            eQVXIFerr_templatefilenotdefined,
            {.reason =
                 "no template is named; set iniTemplateFile, or xmlTemplateFile with xmlTemplateNodeName"});
}

void CTemplate::ResetTemplate() {
    loadedNode_ = {};
    loadedIni_.reset();
    source_.reset();
    programID.clear();
    selfDocumentation.clear();
    versionCP.clear();
    numberStaticNvs = 0;
    maximumNumberOfNvs = 0;
    numberOfMessageTags = 0;
    numberOfCps = 0;
    nvs.clear();
    tags.clear();
    cps.clear();
}

std::string CTemplate::displayPID() const {
    std::string display;
    std::string_view rest = programID;
    for (int group = 0; group < 8; ++group) {
        if (group > 0)
            display += ':';
        const std::string_view pair = FirstCharacters(rest, 2);
        display += pair;
        rest.remove_prefix(pair.size());
    }
    return display;
}

}  // namespace tovarek
