// SARIF 2.1.0, the JSON in which tools of source analysis hand their results to code hosts.
#pragma once

#include <cstddef>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "mend/Piece.h"

namespace tovarek {

using SarifJson = nlohmann::ordered_json;

struct SarifRule {
    std::string_view name;
    std::string_view message;  // in short
    std::string meaning;       // in full
    std::string_view mend;     // what to do, as plain text
    std::string markdown;      // all that is known of it
    const char* level = "";    // "error", "warning" or "note"
};

// Where something is; empty and 0 where that is not known. Lines and columns count from 1.
struct SarifPlace {
    std::string file;
    int line = 0;
    int column = 0;
    int width = 0;
    std::string text;  // of a place beside the result
};

struct SarifResult {
    const char* level = "";
    std::string message;
    SarifPlace place;
    std::vector<SarifPlace> related;
    std::vector<Piece> mend{};  // of the file of `place`
    // What makes the result the same one wherever it has moved to.
    std::vector<std::string_view> identity;
};

// The document of one run. Rules are described where a result has one; paths are relative to the current
// folder where they lead into it.
class SarifDocument {
  public:
    // `version` is that of the program.
    explicit SarifDocument(std::string_view version) : version_(version) {}

    void Add(const SarifRule& rule, SarifResult result);
    // A fact of the run as a whole.
    void SetProperty(const char* name, const std::string& value) { properties_[name] = value; }
    // With a line end behind it; the document is empty afterwards.
    std::string Text();

  private:
    std::size_t IndexOf(const SarifRule& rule);
    std::string Fingerprint(const std::vector<std::string_view>& identity);

    std::string_view version_;
    SarifJson rules_ = SarifJson::array();
    SarifJson results_ = SarifJson::array();
    SarifJson properties_ = SarifJson::object();
    std::map<std::string, std::size_t, std::less<>> indices_;
    std::map<std::string, int> twins_;  // results that nothing tells apart
};

}  // namespace tovarek
