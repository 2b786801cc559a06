#include "component/FilesList.h"
#include "component/Tovarek.h"
#include "contradictions/Contradictions.h"
#include "control/StandardCatalog.h"

namespace tovarek {
namespace {

void Add(std::vector<JobFile>& files, const std::string& role, const std::string& path) {
    if (!path.empty())
        files.push_back({role, path});
}

void AddXml(std::vector<JobFile>& files, const std::string& role, const std::string& path) {
    Add(files, role, path);
    Add(files, "document type definition of " + role, DtdFileOf(path));
}

}  // namespace

JobFiles Tovarek::Files() const {
    JobFiles files;
    Add(files.inputs, "iniProfileFile", profile_.iniFile);
    AddXml(files.inputs, "xmlProfileFile", profile_.xmlFile);
    AddXml(files.inputs, "xmlProfileNode", profile_.xmlNode.File());
    Add(files.inputs, "xifProfileFile", profile_.xifFile);
    Add(files.inputs, "iniTemplateFile", template_.iniFile);
    AddXml(files.inputs, "xmlTemplateFile", template_.xmlFile);
    AddXml(files.inputs, "xmlTemplateNode", template_.xmlNode.File());
    AddXml(files.inputs, "typeFilesXMLFormat", typeFilesXMLFormat_);
    if (!template_.userTypeFile.empty())
        AddXml(files.inputs, "user type file", UserTypeFile(template_, userTypeFilePath_));
    if (const StandardCatalog* catalog = catalog_.types.Catalog())
        for (const std::string& path : catalog->Files())
            Add(files.inputs, "catalog", path);

    if (mustGenerateTypes_)
        for (const std::string& path : PossibleTypeFiles(typeFiles_))
            Add(files.outputs, "typeFilesDirectory", path);
    if (mustGenerateXif_)
        Add(files.outputs, "outputXIFfile", outputXIFfile_);
    return files;
}

void Tovarek::TellOutputs(FindingSink& findings) const {
    std::vector<OutputPath> outputs;
    for (const JobFile& file : Files().outputs) {
        const bool isXif = file.role == "outputXIFfile";
        outputs.push_back({file.path, isXif ? file.role : "typeFilesBaseName", file.role, isXif});
    }
    TellOutputContradictions(outputs, findings);
}

}  // namespace tovarek
