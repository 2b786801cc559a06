// Compares two type descriptions of different sets by what they mean.
#pragma once

#include <string>
#include <vector>

#include "control/ResourceNames.h"
#include "convert/DeviceInterface.h"
#include "convert/ResourceSetInput.h"

namespace tovarek {

// A set with what its references mean.
struct SetView {
    SetView(const ResourceSetInput& input, const StandardCatalog* catalog, StandardTexts texts);

    const ResourceSetInput& set;
    ResourceNames names;
};

class TypeComparison {
  public:
    TypeComparison(const SetView& given, const SetView& made, std::string record, std::vector<Loss>& losses)
        : given_(given), made_(made), record_(std::move(record)), losses_(losses) {}

    // The type itself: its size, its texts, its description.
    void Types(const NvType& given, const NvType& made);
    void Lose(const std::string& field, const std::string& value, const std::string& reason);

  private:
    // A description where references to own types are followed, and the texts that are nearest on the way.
    struct Resolved {
        const TypeDescription* type;
        StringRef name;
        StringRef description;
        StringRef unit;
    };
    template <class Record>
    static Resolved Resolve(const SetView& view, const Record& record);

    void Texts(const Resolved& given, const Resolved& made, const std::string& path);
    void Descriptions(const Resolved& given, const Resolved& made, const std::string& path, int depth);
    void Members(const TypeDescription& given, const TypeDescription& made, const std::string& path,
                 int depth);
    void Values(const TypeDescription& given, const TypeDescription& made, const std::string& path);
    void Enumerations(const TypeDescription& given, const TypeDescription& made, const std::string& path);
    void Number(const std::string& path, const char* field, std::int64_t given, std::int64_t made);

    const SetView& given_;
    const SetView& made_;
    std::string record_;
    std::vector<Loss>& losses_;
    int members_ = 0;
};

}  // namespace tovarek
