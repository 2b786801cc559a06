#include "support/XmlReading.h"

#include <algorithm>
#include <cmath>

#include "base/Nearest.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "support/CTools.h"
#include "support/InputPlace.h"

namespace tovarek {
namespace {

std::string Tag(const XmlNode& element) {
    return "<" + Excerpt(element.Name()) + ">";
}

bool IsText(const XmlNode& node) {
    return node.Kind() == XmlNodeKind::text || node.Kind() == XmlNodeKind::cdata;
}

// The first text of the element that is not read, and the node in front of it; nothing where all is.
struct UnreadText {
    XmlNode text;
    XmlNode before;
};
UnreadText FirstUnreadText(const XmlNode& element, bool isValue) {
    bool isRead = isValue;
    XmlNode before;
    for (XmlNode child = element.FirstChild(); child; before = child, child = child.NextSibling()) {
        if (!IsText(child))
            continue;
        if (!isRead || child.Kind() == XmlNodeKind::cdata)
            return {child, before};
        isRead = false;
    }
    return {};
}

std::string UnreadTextReason(const XmlNode& element, const UnreadText& unread, bool isValue) {
    if (unread.text.Kind() == XmlNodeKind::cdata)
        return "a CDATA section in " + Tag(element) +
               " is not read: write its text plainly, with &lt; and &amp; for < and &";
    std::string reason = "the text \"" + Excerpt(Trim(unread.text.Text())) + "\" in " + Tag(element);
    if (!isValue)
        return reason + " is not read: only elements in it are";
    if (unread.before.IsElement())
        reason += " behind " + Tag(unread.before);
    else if (unread.before.Kind() == XmlNodeKind::comment)
        reason += " behind a comment";
    return reason + " is not read: only the first text of an element is";
}

bool HasChild(const XmlNode& parent, std::string_view upperName) {
    for (XmlNode child = parent.FirstChild(); child; child = child.NextSibling())
        if (child.IsElement() && UpperCase(child.Name()) == upperName)
            return true;
    return false;
}

// Whether the element holds one text and nothing else, as most do.
bool IsPlain(const XmlNode& element) {
    const XmlNode text = element.FirstChild();
    return text.Kind() == XmlNodeKind::text && !text.NextSibling() && element.WrittenAttributes().empty();
}

// A number with a decimal comma, written with a point; empty for what is none. A comma in front of three
// digits may divide thousands.
std::string WithPoint(std::string_view typed) {
    std::string number(typed);
    const std::size_t comma = number.find(',');
    if (comma == std::string::npos || number.size() - comma == 4)
        return {};
    number[comma] = '.';
    return IsNumber(number) ? number : std::string();
}

// Whether both say the same, and nothing but their text.
bool AreSameText(const XmlNode& a, const XmlNode& b) {
    return IsPlain(a) && IsPlain(b) && a.FirstChild().Text() == b.FirstChild().Text();
}

// Whether the element says something where nobody reads it; that is told as such.
bool HasValueElsewhere(const XmlNode& element) {
    return FirstUnreadText(element, true).text || !element.WrittenAttributes().empty();
}

bool IsForParsers(std::string_view attribute) {
    return attribute == "xmlns" || attribute.starts_with("xmlns:") || attribute.starts_with("xml:") ||
           attribute.starts_with("xsi:");
}

bool Knows(const std::vector<XmlNames>& lists, std::string_view name) {
    return std::any_of(lists.begin(), lists.end(), [&](const XmlNames& names) {
        return std::find(names.begin(), names.end(), name) != names.end();
    });
}

}  // namespace

const NumberRules kDecimalNumbers = {LeadingNumber, IsNumber};
const NumberRules kProfileNumbers = {LeadingProfileNumber, IsProfileNumber};

XmlMarks::Mark& XmlMarks::Of(const XmlNode& element) {
    // The first stands for all that have no place.
    const std::size_t number = element.Place().number;
    if (number >= marks.size())
        marks.resize(std::max(number + 1, marks.size() * 2));
    return marks[number];
}

Finding AtElement(Warning warning, const XmlNode& element, std::string reason) {
    return {.context = {.file = element.File(), .line = element.Line(), .reason = std::move(reason)},
            .warning = warning,
            .column = element.Place().column,
            .width = element.Place().width};
}

std::vector<Edit> EditsOf(const XmlNode& element, EditPart part, std::string text) {
    const XmlPlace& place = element.Place();
    if (place.column == 0)
        return {};
    return {{part, place.line, place.column, std::move(text)}};
}

void XmlReading::Structure(const XmlNode& element, XmlNames names) {
    XmlMarks::Mark& mark = marks_->Of(element);
    mark.isRead = true;
    if (!names.empty())
        mark.names.push_back(names);
}

void XmlReading::Value(const XmlNode& element) {
    XmlMarks::Mark& mark = marks_->Of(element);
    mark.isRead = true;
    mark.isValue = true;
}

void XmlReading::Attribute(const XmlNode& element, std::string_view name) {
    marks_->Of(element).attributes.push_back(UpperCase(name));
}

void XmlReading::Skip(const XmlNode& element) {
    marks_->Of(element).isSkipped = true;
}

void XmlReading::Misplaced(const XmlNode& element, std::string reason) {
    marks_->reasons.emplace(element.Place().number, std::move(reason));
}

void XmlReading::TellUnread(FindingSink& findings) const {
    TellBelow(root_, {}, findings);
}

bool XmlReading::IsRead(const XmlNode& element) const {
    const XmlMarks::Mark& mark = marks_->Of(element);
    return mark.isRead || mark.isSkipped;
}

// Asked only of elements that are not read themselves, which are few.
bool XmlReading::HasReadBelow(const XmlNode& element) const {
    if (const std::optional<bool> known = marks_->Of(element).hasReadBelow)
        return *known;
    bool isAnyRead = false;
    for (XmlNode child = element.FirstChild(); child && !isAnyRead; child = child.NextSibling())
        isAnyRead = child.IsElement() && (IsRead(child) || HasReadBelow(child));
    if (element.Place().number != 0)
        marks_->Of(element).hasReadBelow = isAnyRead;
    return isAnyRead;
}

void XmlReading::TellBelow(const XmlNode& element, const std::vector<XmlNames>& outerNames,
                           FindingSink& findings) const {
    if (marks_->Of(element).isValue && element.Place().number != 0 && IsPlain(element))
        return;
    // A copy: what lies below may ask for marks as well.
    const XmlMarks::Mark mark = marks_->Of(element);
    if (mark.isSkipped || mark.isTold)
        return;
    marks_->Of(element).isTold = element.Place().number != 0;
    if (element.Place().number != 0)
        TellOwn(element, mark, findings);
    const std::vector<XmlNames>& names = mark.names.empty() ? outerNames : mark.names;
    std::vector<Finding> unread;
    for (XmlNode child = element.FirstChild(); child; child = child.NextSibling()) {
        if (!child.IsElement())
            continue;
        if (IsRead(child) || HasReadBelow(child))
            TellBelow(child, names, findings);
        else if (child.Place().number != 0 && !marks_->Of(child).isTold)
            unread.push_back(UnreadElement(child, element, names));
    }
    TellSiblings(std::move(unread), findings);
}

void XmlReading::TellOwn(const XmlNode& element, const XmlMarks::Mark& mark, FindingSink& findings) {
    if (const UnreadText unread = FirstUnreadText(element, mark.isValue); unread.text)
        findings.Take(
            AtElement(Warning::ignoredText, element, UnreadTextReason(element, unread, mark.isValue)));
    std::vector<std::string> unread;
    for (std::string& name : element.WrittenAttributes()) {
        const bool isRead = std::find(mark.attributes.begin(), mark.attributes.end(), UpperCase(name)) !=
                            mark.attributes.end();
        if (!IsForParsers(name) && !isRead)
            unread.push_back(std::move(name));
    }
    if (unread.empty())
        return;
    std::string reason = unread.size() == 1 ? "attribute " : "attributes ";
    for (std::size_t i = 0; i < unread.size(); ++i)
        reason += (i == 0 ? "'" : ", '") + Excerpt(unread[i]) + "'";
    reason += " of " + Tag(element) + (unread.size() == 1 ? " is not read" : " are not read");
    const auto field = std::find_if(unread.begin(), unread.end(), [&](const std::string& name) {
        return Knows(mark.names, UpperCase(name));
    });
    if (field != unread.end())
        reason += ": write an element <" + UpperCase(*field) + ">";
    else if (!mark.attributes.empty())
        reason += DidYouMean(unread.front(), mark.attributes);
    findings.Take(AtElement(Warning::ignoredAttribute, element, std::move(reason)));
}

Finding XmlReading::UnreadElement(const XmlNode& element, const XmlNode& parent,
                                  const std::vector<XmlNames>& names) const {
    marks_->Of(element).isTold = true;
    std::string reason = Tag(element) + " is not read: ";
    if (const auto why = marks_->reasons.find(element.Place().number); why != marks_->reasons.end())
        return AtElement(Warning::ignoredElement, element, reason + why->second);
    std::vector<std::string> candidates;
    for (const XmlNames& list : names)
        candidates.insert(candidates.end(), list.begin(), list.end());
    const NearestName nearest = NearestOf(element.Name(), candidates);
    reason += "no element of this name is asked for in " + Tag(parent) + DidYouMean(nearest);
    Finding finding = AtElement(Warning::ignoredElement, element, std::move(reason));
    // An error that suggests it tells the same.
    finding.causeLine = finding.context.line;
    finding.aroundLine = parent.Line();
    if (nearest.isSure && !HasChild(parent, nearest.name))
        finding.edits = EditsOf(element, EditPart::name, nearest.name);
    return finding;
}

void XmlRecord::Keep(const XmlNode& element, std::string_view field) {
    reading_.Value(element);
    for (auto& [name, earlier] : fields_) {
        if (name != field)
            continue;
        const std::string where = element.Line() > 0 ? " in line " + std::to_string(element.Line()) : "";
        Tell(Warning::duplicateKey, earlier, field,
             "<" + std::string(field) + "> stands again" + where + "; only the last one is read",
             AreSameText(earlier, element) ? EditsOf(earlier, EditPart::comment) : std::vector<Edit>());
        earlier = element;
        return;
    }
    fields_.emplace_back(field, element);
}

XmlNode XmlRecord::Find(std::string_view field) const {
    for (const auto& [name, element] : fields_)
        if (name == field)
            return element;
    return {};
}

void XmlRecord::Tell(Warning warning, const XmlNode& element, std::string_view field, std::string reason,
                     std::vector<Edit> edits) {
    Finding finding = AtElement(warning, element, std::move(reason));
    finding.edits = std::move(edits);
    finding.context.record = title_();
    finding.context.field = field;
    finding.context.value = Excerpt(CTools().nodeTextValue(element));
    findings_.Take(std::move(finding));
}

void XmlRecord::Integer(const XmlNode& element, std::string_view field, const Explain& explain,
                        const NumberRules& rules) {
    Keep(element, field);
    const std::string text = CTools().nodeTextValue(element);
    const double exact = rules.read(text);
    const double rounded = std::nearbyint(exact);
    if (!(rounded >= INT32_MIN && rounded <= INT32_MAX))
        return;
    if (rules.isNumber(text) && exact == rounded)
        return;
    const auto read = static_cast<std::int32_t>(rounded);
    const std::string_view typed = Trim(text);
    if (typed.empty() && HasValueElsewhere(element))
        return;
    const Advice advice = explain ? explain(typed, read) : Advice();
    Tell(Warning::notANumber, element, field, NotANumber(typed, field, std::to_string(read), advice.text),
         advice.value.empty() ? std::vector<Edit>() : EditsOf(element, EditPart::value, advice.value));
}

void XmlRecord::Number(const XmlNode& element, std::string_view field) {
    Keep(element, field);
    const std::string text = CTools().nodeTextValue(element);
    const std::string_view typed = Trim(text);
    if (kDecimalNumbers.isNumber(text) || (typed.empty() && HasValueElsewhere(element)))
        return;
    const std::string meant = WithPoint(typed);
    Tell(Warning::notANumber, element, field,
         NotANumber(typed, field, DoubleToText(kDecimalNumbers.read(text)),
                    meant.empty() ? meant : "write " + meant),
         meant.empty() ? std::vector<Edit>() : EditsOf(element, EditPart::value, meant));
}

void XmlRecord::Text(const XmlNode& element, std::string_view field) {
    Keep(element, field);
}

}  // namespace tovarek
