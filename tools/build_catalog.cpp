// build_catalog FACTS FOLDER: writes the standard resource set and its catalog file into FOLDER.
#include <exception>
#include <iostream>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "StandardFacts.h"
#include "base/Error.h"
#include "system/Files.h"

namespace {

using namespace tovarek;

// Every build writes the same bytes.
constexpr CivilTime kSaved = {.year = 2026, .month = 1, .day = 1};

constexpr const char* kCatalog =
    "# Tovarek resource catalog 1\r\n"
    "# Folders of resource sets, one per line, relative to this file.\r\n"
    ".\r\n";

template <class File>
void Write(Outcome (*writer)(const File&, std::string&), const File& file, const std::string& path) {
    std::string bytes;
    if (const Outcome outcome = writer(file, bytes); !outcome.Ok())
        throw std::runtime_error(path + ": " + outcome.reason);
    WriteFile(path, bytes);
}

void BuildCatalog(const std::string& facts, const std::string& folder) {
    const StandardSet set = BuildStandardSet(nlohmann::json::parse(ReadFile(facts)), kSaved);
    Write(WriteLanguageFile, set.language, folder + "/standard.enu");
    Write(WriteTypeFile, set.types, folder + "/standard.typ");
    Write(WriteProfileFile, set.profiles, folder + "/standard.fpt");
    WriteFile(folder + "/standard.fmt", WriteFormatFile(set.formats));
    WriteFile(folder + "/ldrf.cat", kCatalog);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: build_catalog FACTS FOLDER\n";
        return 2;
    }
    try {
        BuildCatalog(argv[1], argv[2]);
        return 0;
    } catch (const Error& error) {
        std::cerr << "build_catalog: " << error.Description() << ": " << error.Context().file << '\n';
    } catch (const std::exception& error) {
        std::cerr << "build_catalog: " << error.what() << '\n';
    }
    return 1;
}
