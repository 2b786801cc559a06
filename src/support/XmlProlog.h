// What a document type declaration says, for parsers that cannot be asked: where the external part lies, and
// which entities stand for plain text. It finds declarations, it does not check them; the parser does.
#pragma once

#include <cstddef>
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

    // `document`, which this prolog was read from, for a parser that does not know where it lies: with
    // `systemId` (ASCII, without quotes) in the place of the one that stands there, and with the entities of
    // the external part that stand for text, because a parser may read that part only after the content.
    std::string ForParser(std::string_view document, std::string_view systemId) const;

    // Reads the declarations of the external part. What was declared before stays: the first declaration
    // counts.
    void ReadExternalPart(std::string_view declarations);

    // True when a parameter entity that lies outside the document is referred to; also when nobody can tell,
    // because one was not declared in front of the reference or they expand without measure.
    bool UsesExternalParameters() const { return usesExternalParameters_; }

    // True when the general entity `name` is declared and stands for text alone: no markup, nothing from
    // outside, not itself.
    bool IsPlainText(const std::string& name) const;

    // What such an entity stands for, in the encoding of the document; nothing for any other entity, and for
    // one that expands without measure.
    std::optional<std::string> TextOf(const std::string& name) const;

    // `document`, which this prolog was read from, with the references in its content to entities that stand
    // for markup replaced by that markup. References that cannot be followed stay: outside the document, to
    // itself, without measure.
    std::string WithMarkupExpanded(std::string_view document) const;

  private:
    class Scanner;
    // The value between its quotes, character references resolved; nothing for an external entity and for one
    // whose value is put together from others.
    using Entities = std::map<std::string, std::optional<std::string>, std::less<>>;

    bool IsPlainText(const std::string& name, std::map<std::string, bool>& known, std::size_t depth) const;

    // Appends what a plain entity stands for; false when it takes too many steps.
    bool AppendText(const std::string& name, std::string& text, std::size_t& steps) const;
    // The same for one that stands for markup; references to plain entities stay in it. False also for what
    // lies outside or contains itself.
    bool AppendMarkup(const std::string& name, std::string& text, std::size_t& steps,
                      std::size_t depth) const;

    Entities general_;
    Entities parameters_;
    std::string systemId_;
    // Counted in the document without a mark, in UTF-8 where it is UTF-16: where the system identifier
    // begins, and where declarations can be added.
    std::size_t systemIdStart_ = 0;
    std::size_t declarationsEnd_ = 0;
    bool hasInternalPart_ = false;
    // The external part's entities that stand for text, as they were declared.
    std::string outerEntities_;
    bool readsExternalPart_ = false;
    bool isUnicode_ = true;  // the document, and the external part as well once it was read
    bool hasDocumentType_ = false;
    bool usesExternalParameters_ = false;
    std::size_t expandedParameters_ = 0;  // bytes that references stood for so far
};

}  // namespace tovarek
