// Stateless helpers that the whole generator uses.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/KeyedList.h"
#include "support/CErrorHandler.h"
#include "xml/Xml.h"

namespace tovarek {

// The first document-level node of the XML file at `path`. Raises error `unloaded` when it cannot be loaded.
XmlNode FirstNodeOf(const std::string& path, eErrors unloaded, const CErrorHandler& errorHandler);

// LeadingInt32 of `text`, which `element` says. The context of an error tells the element.
std::int32_t IntegerOfElement(const XmlNode& element, std::string_view text);

// The context of a number beyond 32 bits, `text`, that `element` says for `field`.
ErrorContext OverflowIn(const XmlNode& element, std::string_view text, std::string_view field);

class CTools {
  public:
    // The name part of `path`: what follows the last "\" or ":" (on POSIX "/" counts as well), cut before its
    // first "." when `removeExtension`. Deliberate: when that leaves nothing, or there is no separator, the
    // whole path is answered unchanged, extension included. Callers rely on it for bare file names.
    std::string ExtractFile(std::string_view path, bool removeExtension = false) const;

    // The folder part of `path`, without its final separator; empty when there is none.
    std::string ExtractPath(std::string_view path) const;

    // The first element (document order) named exactly `nodeName`, prefix included, of the XML file. Raises
    // error 87 when the file cannot be loaded and 88 when it has no such element, whatever the file is for.
    // `property`: what the name was set with, for the message.
    XmlNode SearchXmlNode(const std::string& xmlFile, const std::string& nodeName,
                          const CErrorHandler& errorsHandler, const char* property = "") const;

    // The text of the first child that is a text node, empty when there is none. Texts in CDATA sections,
    // attributes and deeper elements do not count, nor does what follows a comment.
    std::string nodeTextValue(const XmlNode& node) const;

    // Splits `source`, blanks around it trimmed, at every `separator` (one character). Two in a row give an
    // empty field, one at the very end no field. An empty source gives nFields 0 and leaves `fields`
    // untouched. Field n of the documentation is fields[n - 1].
    void GetFields(std::string_view source, std::int32_t& nFields, std::vector<std::string>& fields,
                   char separator) const;

    // Every character but ASCII digits and letters replaced by "_", position for position.
    std::string ReplaceBadCharInType(std::string_view s) const;

    // Deliberate: true when the text holds a character that is NOT a hexadecimal digit, false for the empty
    // text. The sense is inverted with respect to the name; callers raise their error when it is true.
    bool ValidateHexaString(std::string_view text) const;

    // Creates the last level of `path`, unless its parent holds an entry of that name (compared without
    // regard to case). Failures are ignored: the file that cannot be created in the folder tells.
    void CreateDirectory(std::string_view path) const;

    // Number to text with a point; see DoubleToText.
    std::string doubleToStringWithPoint(double value) const;

    // The member of `col` under `key`, or null.
    template <class Member>
    const Member* itemInCol(const KeyedList<Member>& col, const std::string& key) const {
        return col.Find(key);
    }
};

}  // namespace tovarek
