// What describes a device, turned into other forms of it and written.
#pragma once

#include <string>
#include <vector>

#include "cli/ConvertInputs.h"
#include "cli/ConvertTypes.h"
#include "cli/OpenCatalog.h"
#include "convert/InputText.h"

namespace tovarek {

struct ConvertOptions {
    std::vector<std::string>
        inputs;  // files; of an XML file FILE#ELEMENT where it is not the document element
    // Outputs; empty ones are not written.
    std::string profile;         // .ini or .xml
    std::string deviceTemplate;  // likewise
    std::string formatFile;      // .xml, of resource files
    std::string userTypes;       // likewise
    std::string job;
    std::string fit;                // "4.0": the profile is made into one that passes
    std::vector<std::string> sets;  // FIELD=VALUE for it
    bool isStrict = false;          // a loss is a failure
    KeyComments comments = KeyComments::no;
    std::string outputs;  // what the outputs of the job are called; empty: as the job
    CatalogPlace place;
};

struct ConversionResult {
    std::vector<std::string> written{};
    std::vector<std::string> replaced{};  // what --fit has replaced
    std::vector<Loss> losses{};
};

// One conversion: what was read, and what has become of it.
class Conversion {
  public:
    // Reads the inputs. Throws WrongUse for what cannot be asked of them, and raises what reading raises.
    Conversion(const ConvertOptions& options, CCatalog& catalog);

    // Writes what is asked for; nothing where that cannot be done.
    void Write();
    const ConversionResult& Result() const { return result_; }

  private:
    void AddTypes();
    void Guard() const;
    void WriteOutputs(const TypeOutputs& outputs);
    void Put(const std::string& path, const std::string& bytes);

    const ConvertOptions& options_;
    CCatalog& catalog_;
    StandardTexts texts_;
    ConvertInputs inputs_;
    InputForm profileForm_ = InputForm::ini;
    InputForm templateForm_ = InputForm::ini;
    std::vector<TypeOutputs> outputs_;
    ConversionResult result_;
};

}  // namespace tovarek
