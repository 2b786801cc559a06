// A device with types of its own, as all tests of this room use it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Scratch.h"
#include "system/Files.h"
#include "types/CTypes.h"
#include "types/FormatLines.h"

namespace tovarek::test {

// Keeps what is written.
class StringSink : public FileSink {
  public:
    void Append(std::string_view bytes) override { text += bytes; }
    void Close() override {}
    std::string text;
};

class Device {
  public:
    Device() {
        catalog.catalogDir(TOVAREK_CATALOG);
        deviceTemplate.programID = "9000010A0B040100";
        types.deviceTemplate = &deviceTemplate;
        types.errorHandler = &errorHandler;
        types.catalog = &catalog;
    }

    void AddNv(std::int32_t unvtType) {
        CNv& nv = deviceTemplate.nvs.emplace_back();
        nv.name = "nv" + std::to_string(deviceTemplate.nvs.size());
        nv.unvtType = unvtType;
    }
    void AddCp(std::int32_t typeIndex, std::int32_t indexInScope, const std::string& name,
               std::int32_t scope = 6) {
        CCp& cp = deviceTemplate.cps.emplace_back();
        cp.name = name;
        cp.scope = scope;
        cp.typeIndex = typeIndex;
        cp.typeIndexInScope = indexInScope;
    }

    // Writes the two files: `elements` are those of the format file, `users` the whole user type file.
    void WriteFiles(const std::string& elements, const std::string& users = "<UNVTS/>") {
        scratch.File("format.xml", "<formats>" + elements + "</formats>");
        scratch.File("user.xml", users);
    }
    void Load() { types.LoadTypes(scratch.Path("format.xml"), scratch.Path("user.xml")); }
    void Load(const std::string& elements, const std::string& users = "<UNVTS/>") {
        WriteFiles(elements, users);
        Load();
    }

    CType& Unvt(const std::string& key) { return **types.unvtTypes.Find(key); }
    CType& Ucpt(const std::string& key) { return **types.ucptTypes.Find(key); }

    // Names and keys of the loaded types: "6_1 UNVT__speed".
    static std::vector<std::string> Names(const CTypes::Types& list) {
        std::vector<std::string> names;
        for (const auto& type : list)
            names.push_back(std::to_string(type->scope) + "_" + std::to_string(type->indexInScope) + " " +
                            type->name);
        return names;
    }

    // The format lines of a type.
    std::string Lines(CType& type) {
        StringSink sink;
        FormatLines lines(sink, catalog.types.Catalog());
        type.AnalyseFormat(type);
        type.AddToFormatFile(lines);
        return sink.text;
    }

    Scratch scratch;
    CErrorHandler errorHandler;
    CCatalog catalog;
    CTemplate deviceTemplate;
    CTypes types;
};

// A user type file with types for one program ID of one scope.
inline std::string UserTypes(const std::string& root, const std::string& scope, const std::string& programID,
                             const std::string& content) {
    return "<" + root + "><" + scope + "><" + programID + ">" + content + "</" + programID + "></" + scope +
           "></" + root + ">";
}

}  // namespace tovarek::test
