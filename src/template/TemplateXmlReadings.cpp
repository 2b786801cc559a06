// What of a template in XML form is read otherwise than it was written.
#include <algorithm>
#include <string>

#include "base/Text.h"
#include "support/CTools.h"
#include "support/Readings.h"
#include "template/FieldMeanings.h"
#include "template/TemplatePlaces.h"

namespace tovarek {
namespace {

template <class Record>
XmlNames RecordXmlNames() {
    static const std::vector<std::string_view> names =
        NamesOf(RecordNames<Record>::Fields(), &RecordField<Record>::xmlName);
    return names;
}

XmlNames TemplateXmlNames() {
    static const std::vector<std::string_view> names = NamesOf(
        TemplateFields(), &TemplateField::xmlName, {std::begin(kTemplateLists), std::end(kTemplateLists)});
    return names;
}

template <class Record>
std::string_view IniKeyOf(std::string_view xmlName) {
    for (const RecordField<Record>& field : RecordNames<Record>::Fields())
        if (field.xmlName == xmlName)
            return field.iniKey;
    return {};
}

template <class Field>
bool IsText(std::span<const Field> fields, std::string_view name) {
    return std::any_of(fields.begin(), fields.end(),
                       [&](const Field& field) { return field.xmlName == name && field.text != nullptr; });
}

// A direction is a word of two; whatever is not the one counts as the other.
void TellDirection(const XmlNode& element, XmlRecord& record) {
    const std::string text = CTools().nodeTextValue(element);
    record.Text(element, kDirectionElement);
    const std::string word = UpperCase(Trim(text));
    const bool isInput = UpperCase(text) == "INPUT";
    if (isInput || word == "OUTPUT" || (text.empty() && element.FirstChild()))
        return;
    std::string reason = text.empty() ? std::string(kDirectionElement) + " has no value"
                                      : "\"" + Excerpt(text) + "\" is neither INPUT nor OUTPUT";
    reason += "; it is read as an output";
    const std::string meant(DirectionMeant(word));
    if (!meant.empty() && word == meant)
        reason += ", because of the white space around it";
    if (!meant.empty())
        reason += ": write " + meant;
    record.Tell(Warning::notANumber, element, kDirectionElement, std::move(reason),
                meant.empty() ? std::vector<Edit>() : EditsOf(element, EditPart::content, meant));
}

void TellMissing(const CNv& /*nv*/, const XmlNode& element, XmlRecord& record) {
    if (!record.Find(kDirectionElement))
        record.Tell(Warning::missingValue, element, kDirectionElement,
                    "<" + Excerpt(element.Name()) +
                        "> has no DIRECTION and is read as an input: write INPUT or OUTPUT");
}
void TellMissing(const CTag& /*tag*/, const XmlNode& /*element*/, const XmlRecord& /*record*/) {}
void TellMissing(const CCp& /*cp*/, const XmlNode& /*element*/, const XmlRecord& /*record*/) {}

template <class Record>
void TellRecords(const std::vector<Record>& records, const TemplateElements& all, const CCatalog* catalog,
                 XmlReading& reading, FindingSink& findings) {
    const std::vector<TemplateElements::Field>& fields = all.*RecordNames<Record>::fields;
    const std::vector<XmlNode>& elements = all.*RecordNames<Record>::elements;
    auto field = fields.begin();
    for (std::size_t i = 0; i < elements.size() && i < records.size(); ++i) {
        reading.Structure(elements[i], RecordXmlNames<Record>());
        XmlRecord record(reading, findings, [&records, i] { return RecordTitle(records[i], i); });
        for (; field != fields.end() && field->record == i; ++field) {
            if (field->name == kDirectionElement)
                TellDirection(field->element, record);
            else if (IsText(RecordNames<Record>::Fields(), field->name))
                record.Text(field->element, field->name);
            else
                record.Integer(field->element, field->name, [&](std::string_view typed, std::int32_t read) {
                    return ExplainNumber(catalog, {IniKeyOf<Record>(field->name), field->name}, typed, read);
                });
        }
        TellMissing(records[i], elements[i], record);
    }
}

}  // namespace

void CTemplate::TellXmlReadings(XmlReading& reading, FindingSink& findings) const {
    const TemplateElements& elements = Source().elements;
    reading.Structure(reading.Root(), TemplateXmlNames());
    for (const XmlNode& element : elements.own) {
        const std::string name = UpperCase(element.Name());
        if (std::find(std::begin(kTemplateLists), std::end(kTemplateLists), name) != std::end(kTemplateLists))
            reading.Structure(element);
    }
    XmlRecord record(reading, findings, [] { return std::string("template"); });
    for (const TemplateElements::Field& field : elements.ownFields) {
        if (IsText(TemplateFields(), field.name))
            record.Text(field.element, field.name);
        else
            record.Integer(field.element, field.name);
    }
    if (!userTypeFile.empty() && !record.Find("USERCPFILE"))
        findings.Take(AtElement(Warning::missingValue, reading.Root(),
                                "<" + Excerpt(reading.Root().Name()) + "> has no USERCPFILE; \"" +
                                    Excerpt(userTypeFile) + "\" of the template before it is kept"));
    TellRecords(nvs, elements, catalog, reading, findings);
    TellRecords(tags, elements, catalog, reading, findings);
    TellRecords(cps, elements, catalog, reading, findings);
}

}  // namespace tovarek
