// Reads type elements of the XML format file, one after the other and those of members on the way.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/CTools.h"
#include "support/Findings.h"
#include "support/XmlReading.h"
#include "types/TypeDefinition.h"

namespace tovarek {

// Values of an enumeration above the largest one are lowered by the number of values, once.
inline constexpr std::int32_t kLargestEnumValue = 127;
inline constexpr std::int32_t kEnumValues = 256;

// Members lead from definition to definition, so the reader keeps a stack of those that it is in the middle
// of: however deep a file nests, the program's own stack stays as it is.
class DefinitionReader {
  public:
    DefinitionReader(DefinitionTable& table, bool readsScope, FindingSink& findings)
        : file_(table), readsScope_(readsScope), findings_(findings) {}

    // Reads the definition with this format number and all that it needs. What is refused is told and left
    // out, and the definition says so.
    const TypeDefinition& Read(std::int32_t number);

  private:
    // A definition that is being read.
    struct Level {
        std::int32_t number = 0;
        TypeDefinition* definition = nullptr;
        XmlNode child;          // next child of the type element
        XmlNode member;         // next child of the FIELDS element that is being read, or nothing
        XmlNode units;          // its UNITS element, or nothing
        std::string shortName;  // of the type element: its name without a standard prefix
        std::string enumName;   // shortName and the latest NAME; empty before the first
        std::shared_ptr<CFormats> formats;
        std::shared_ptr<ElementLines> lines;
        std::shared_ptr<XmlRecord> record;  // while warnings about the element are told
    };
    struct ChildRule;
    static const ChildRule kChildRules[];

    void Enter(std::int32_t number, const XmlNode& origin);
    std::string MissingReason(std::int32_t number) const;
    template <class Operation>
    void Telling(const Operation& operation);
    void ReadMember();
    void AddMember(const XmlNode& node, const TypeDefinition& definition);
    void Leave();

    void ReadChild(const XmlNode& node);
    void ReadInto(std::int32_t CType::*field, const XmlNode& node);
    void ReadInto(std::string CType::*field, const XmlNode& node);
    void ReadInto(bool CType::*field, const XmlNode& node);
    void ReadInto(void (DefinitionReader::*read)(const XmlNode&), const XmlNode& node);
    void ReadType(const XmlNode& node);
    void ReadName(const XmlNode& node);
    void ReadScope(const XmlNode& node);
    void KeepTyped(const XmlNode& node);
    void ReadMin(const XmlNode& node);
    void ReadMax(const XmlNode& node);
    void ReadFields(const XmlNode& node);
    void ReadEnums(const XmlNode& node);
    void ReadUnits(const XmlNode& node);
    void ReadFormat(const XmlNode& node, CFormat& format) const;

    // Warnings: of a child, of what a list holds, and of what does not count for the kind in the end.
    static XmlNames ChildNames();
    void StartTelling(const XmlNode& element);
    // What messages call the type element at the top of the stack.
    XmlRecord::Title Title() {
        return [name = file_.ElementName(Top().number)] { return "type element " + name; };
    }
    XmlRecord* Record() { return levels_.back().record.get(); }
    std::string_view ChildName() { return Top().lines->children.back().name; }
    void TellName(const XmlNode& node, const std::string& cleaned);
    void TellList(const XmlNode& node, bool isRead, std::string_view kinds);
    void TellMember(const XmlNode& node);
    void TellValue(const XmlNode& node);
    void TellFormat(const XmlNode& node, bool isFirst);
    void TellUnit(const XmlNode& node, XmlRecord& record);
    void TellFinished();
    void TellUseless(std::string_view child, const std::string& reason);

    std::int32_t Integer(const XmlNode& node) const;
    double Number(const XmlNode& node, const std::string& text) const;
    ErrorContext Place(const XmlNode& node) const;
    [[noreturn]] void RefuseNesting(const XmlNode& origin, std::int32_t next, std::string_view reason) const;

    Level& Top() { return levels_.back(); }
    CType& Content() { return levels_.back().definition->content; }

    DefinitionTable& file_;
    bool readsScope_;
    FindingSink& findings_;
    CTools tools_;
    std::vector<Level> levels_;
    std::vector<XmlNode> pendingMembers_;  // the members that the levels above the first are read for
};

}  // namespace tovarek
