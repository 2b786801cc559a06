// How an XML document was read, for warnings: which of its elements the loaders of a job read, and as what.
// What is read otherwise than it was written is told by the records that loaders report; what nobody read is
// told in the end. Put together only when somebody listens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/Findings.h"
#include "xml/Xml.h"

namespace tovarek {

// Names of elements, in capitals; of a table that outlives the job.
using XmlNames = std::span<const std::string_view>;

// The names that the rows of a table have, behind `names`; for tables that are asked once.
template <class Rows, class Row>
std::vector<std::string_view> NamesOf(const Rows& rows, std::string_view Row::*name,
                                      std::vector<std::string_view> names = {}) {
    for (const Row& row : rows)
        if (!(row.*name).empty())
            names.push_back(row.*name);
    return names;
}

// What the loaders of a job did with the elements of one file, by their numbers: every loader reads a tree of
// its own.
struct XmlMarks {
    struct Mark {
        bool isRead = false;
        bool isValue = false;    // its first text is read
        bool isSkipped = false;  // on purpose, with all below it
        bool isTold = false;
        std::optional<bool> hasReadBelow;     // none before it was searched for that
        std::vector<XmlNames> names;          // that loaders look for in it
        std::vector<std::string> attributes;  // that are read, in capitals
    };
    Mark& Of(const XmlNode& element);

    std::vector<Mark> marks;
    std::map<std::size_t, std::string> reasons;  // why an element is not read
};

// The elements below one that a loader was given. All of it counts for elements of a file only: what a host
// handed over, and what an entity repeats, has no place to be told.
class XmlReading {
  public:
    XmlReading(XmlNode root, std::shared_ptr<XmlMarks> marks)
        : root_(std::move(root)), marks_(std::move(marks)) {}

    // The element is read for the elements in it, of which `names` are looked for; its own texts are not.
    void Structure(const XmlNode& element, XmlNames names = {});
    // The first text of the element is read. Records tell more; this is for what is no field.
    void Value(const XmlNode& element);
    void Attribute(const XmlNode& element, std::string_view name);
    // The element is meant for somebody else, with all below it.
    void Skip(const XmlNode& element);
    // Why the element is not read, where that is not its name.
    void Misplaced(const XmlNode& element, std::string reason);

    // Tells the elements, attributes and texts that nobody read.
    void TellUnread(FindingSink& findings) const;

    const XmlNode& Root() const { return root_; }

  private:
    bool IsRead(const XmlNode& element) const;
    bool HasReadBelow(const XmlNode& element) const;
    void TellBelow(const XmlNode& element, const std::vector<XmlNames>& names, FindingSink& findings) const;
    static void TellOwn(const XmlNode& element, const XmlMarks::Mark& mark, FindingSink& findings);
    Finding UnreadElement(const XmlNode& element, const XmlNode& parent,
                          const std::vector<XmlNames>& names) const;

    XmlNode root_;
    std::shared_ptr<XmlMarks> marks_;
};

// A finding at the start tag of `element`.
Finding AtElement(Warning warning, const XmlNode& element, std::string reason);

// An edit of `element`, as the edits of its finding; none for one without a place.
std::vector<Edit> EditsOf(const XmlNode& element, EditPart part, std::string text = {});

// The number that a text begins with, by the rules of a format (base/Numbers.h).
struct NumberRules {
    double (*read)(std::string_view text);
    bool (*isNumber)(std::string_view text);
};
extern const NumberRules kDecimalNumbers;
extern const NumberRules kProfileNumbers;

// One record: its fields, as a loader reads them in document order. Of several elements for one field the
// last one counts.
class XmlRecord {
  public:
    // What `read` means in a field, and what to write in place of what was typed. Asked only of a value that
    // is no number.
    using Explain = std::function<Advice(std::string_view typed, std::int32_t read)>;

    // What messages call it; asked only where there is something to tell.
    using Title = std::function<std::string()>;

    XmlRecord(XmlReading& reading, FindingSink& findings, Title title)
        : reading_(reading), findings_(findings), title_(std::move(title)) {}

    // `field` is the name of a table. A number that is refused is told by its loader.
    void Integer(const XmlNode& element, std::string_view field, const Explain& explain = {},
                 const NumberRules& rules = kDecimalNumbers);
    // A number with a fraction; what is none is read as 0.
    void Number(const XmlNode& element, std::string_view field);
    void Text(const XmlNode& element, std::string_view field);

    // The element that the field was read from, nothing when it has none.
    XmlNode Find(std::string_view field) const;

    // A warning about the field: its place, its text as it was typed.
    void Tell(Warning warning, const XmlNode& element, std::string_view field, std::string reason,
              std::vector<Edit> edits = {});

  private:
    void Keep(const XmlNode& element, std::string_view field);

    XmlReading& reading_;
    FindingSink& findings_;
    Title title_;
    std::vector<std::pair<std::string_view, XmlNode>> fields_;
};

}  // namespace tovarek
