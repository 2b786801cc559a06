// Where a value of an input stands and how it was typed, for messages. All of it is looked up when something
// has failed, never before.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Error.h"
#include "support/IniText.h"
#include "xml/Xml.h"

namespace tovarek {

enum class InputPart { none, value, group, file };

struct InputPlace {
    std::string file;
    int line = 0;    // of the value; for one that is missing, of what stands nearest
    int column = 0;  // of the start tag of an XML element and how wide it is, see XmlPlace
    int width = 0;
    std::string typed;   // the value as the file has it
    bool isCut = false;  // only its first 999 characters are read
    // What is missing: the value alone, the section or element that it would stand in, or the whole file.
    InputPart missing = InputPart::none;
    std::string absence;  // a sentence about that
};

// What the check of a value expects.
struct Expected {
    std::string values;    // e.g. "0 to 15"
    std::string sentence;  // in place of the values, or behind them
};

// True for a name that stands for something itself and so is no other one mistyped.
using IsKnownName = std::function<bool(std::string_view name)>;

// An INI file, read once for all that is asked. It may be missing or unreadable, which reads like an empty
// one.
class IniSource {
  public:
    // `text`: as a loader has read it, where that is known.
    explicit IniSource(std::string file, std::shared_ptr<const IniText> text = {});

    const IniText& Text() const { return *text_; }
    // `isKnownSection` is the same each time.
    InputPlace Find(std::string_view section, std::string_view key, const IsKnownName& isKnownSection,
                    const IsKnownName& isKnownKey) const;

  private:
    std::string file_;
    std::string whyUnread_;
    std::shared_ptr<const IniText> text_;
    mutable std::optional<std::vector<std::string>> unknownSections_;  // to suggest, once one is missing
};

// All elements below `parent`, in document order.
std::vector<XmlNode> ElementsBelow(const XmlNode& parent);

// The element `name` (in capitals) among `elements`, those below `parent`; the last one of several.
InputPlace FindXmlPlace(const XmlNode& parent, const std::vector<XmlNode>& elements, std::string_view name,
                        const IsKnownName& isKnown);

// How a value was taken that is not written as it counts: "this is not a number and reads as 0". Empty where
// it is, and where `read` is empty.
std::string ReadAs(std::string_view typed, std::string_view read);

// The same for a warning about `field`: `"abc" is not a number; it is read as 0, ` and `more`.
std::string NotANumber(std::string_view typed, std::string_view field, std::string_view read,
                       std::string_view more);

// Both sentences of a reason as one; either may be empty.
std::string JoinSentences(std::string first, std::string_view second);

// The context of a value that was refused. `read` is what it was taken for; a field is told only where the
// file can hold it.
ErrorContext ContextOf(const InputPlace& place, std::string record, std::string_view field,
                       std::string_view read, const Expected& expected);

}  // namespace tovarek
