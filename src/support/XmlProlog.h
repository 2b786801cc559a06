// What a document type declaration says, for parsers that cannot be asked: where the external part lies, and
// which entities stand for plain text. It finds declarations, it does not check them; the parser does.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tovarek {

class XmlProlog {
  public:
    // Reads the front of a document, UTF-8, UTF-16 or in an 8-bit code page, up to its element.
    explicit XmlProlog(std::string_view document);

    bool HasDocumentType() const { return hasDocumentType_; }

    // The system identifier of the external part of the document type definition, empty when it has none.
    const std::string& SystemId() const { return systemId_; }

    // Reads the declarations of the external part. What was declared before stays: the first declaration
    // counts.
    void ReadExternalPart(std::string_view declarations);

    // True when a parameter entity that lies outside the document is referred to.
    bool UsesExternalParameters() const { return usesExternalParameters_; }

    // True when the general entity `name` is declared and stands for text alone: no markup, nothing from
    // outside, not itself.
    bool IsPlainText(const std::string& name) const;

  private:
    class Scanner;
    // The value between its quotes, character references resolved; nothing for an external entity.
    using Entities = std::map<std::string, std::optional<std::string>, std::less<>>;

    bool IsPlainText(const std::string& name, std::map<std::string, bool>& known) const;

    Entities general_;
    Entities parameters_;
    std::string systemId_;
    bool hasDocumentType_ = false;
    bool usesExternalParameters_ = false;
};

}  // namespace tovarek
