#include <algorithm>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"
#include "profile/CProfile.h"
#include "profile/ProfileElements.h"
#include "profile/ProfileFields.h"
#include "support/CTools.h"
#include "support/cIni.h"
#include "system/Files.h"

namespace tovarek {
namespace {

constexpr std::string_view kXifBegin = "File:";

// The lines of a file that ends its lines in CR LF, CR or LF, one after the other.
class LineReader {
  public:
    LineReader(std::string_view bytes, std::string file) : rest_(bytes), file_(std::move(file)) {}

    std::string_view Next() {
        if (rest_.empty())
            RaiseRuntimeError(RuntimeError::inputPastEndOfFile,
                              {.file = file_,
                               .line = lines_ + 1,
                               .reason = "an XIF file has at least 10 lines, this one ends after " +
                                         std::to_string(lines_)});
        ++lines_;
        return TakeLine(rest_);
    }

  private:
    std::string_view rest_;
    std::string file_;
    int lines_ = 0;
};

// `line` without what follows its first `count` fields, which may be long and is never read. Where something
// was cut off a "." takes its place: an empty last field would be trimmed away otherwise.
std::string FirstFields(std::string_view line, int count) {
    line = TrimBlanks(line);
    std::size_t end = 0;
    for (int i = 0; i < count && end < line.size(); ++i)
        end = std::min(line.find(' ', end), line.size() - 1) + 1;
    return std::string(line.substr(0, end)) + (end < line.size() ? "." : "");
}

}  // namespace

void CProfile::Load() {
    RaisingSink raise(*errorHandler);
    Load(raise);
}

void CProfile::Load(FindingSink& findings) {
    wasLoaded_ = std::exchange(isLoaded_, true);
    if (!iniFile.empty()) {
        LoadFromIni();
        return;
    }
    if (!xifFile.empty()) {
        LoadFromXif(findings);
        return;
    }
    elements_.fill({});
    if (xmlNode)
        LoadFromXmlNode(xmlNode.Current(), findings);
    // Deliberate: an element alone is loaded first and refused then, since a profile is named by its file.
    if (xmlFile.empty())
        errorHandler->RaiseError(
            eQVXIFerr_profilefilenotdefined,
            {.reason = xmlNode ? "a profile element alone is not enough: set xmlProfileFile as well, in "
                                 "front of the element"
                               : "no profile is named; set iniProfileFile, xifProfileFile, or xmlProfileFile "
                                 "with xmlProfileNodeName"});
    LoadFromXmlNode(CTools().SearchXmlNode(xmlFile, xmlNodeName, *errorHandler, "xmlProfileNodeName"),
                    findings);
}

void CProfile::LoadFromIni() {
    cIni ini;
    ini.iniFile(iniFile);
    loadedIni_ = ini.Text();
    IniSection section;
    int line = 0;
    for (const ProfileField& field : kProfileFields) {
        if (field.line != line) {
            line = field.line;
            loadedIni_->ReadSection("Line" + std::to_string(line), section);
        }
        this->*field.value = section.LongValue(field.iniKey, -1);
    }
}

void CProfile::Store(const ProfileField& field, std::string_view text, FindingSink& findings) {
    TellingErrors(findings, [&] {
        this->*field.value = WithContext([&] { return ContextOfFault(field, {}, {}); },
                                         [&] { return RoundToInt32(LeadingProfileNumber(text)); });
    });
}

void CProfile::LoadFromXif(FindingSink& findings) {
    const std::string bytes = ReadFile(xifFile);
    LineReader lines(bytes, xifFile);
    std::string hint;
    if (LooksLikeUtf16(bytes))
        hint = "; " + std::string(kXifInUtf16);
    else if (!CaselessEqual()(std::string_view(bytes).substr(0, kXifBegin.size()), kXifBegin))
        hint = "; an XIF file begins with \"File:\", this one does not: is it an INI or XML profile?";
    for (int line = 1; line < kFirstProfileLine; ++line)
        lines.Next();

    std::vector<std::string> tokens;
    const ProfileField* field = kProfileFields.data();
    const ProfileField* const end = field + kProfileFields.size();
    while (field != end) {
        const int line = field->line;
        const ProfileField* const next =
            std::find_if(field, end, [&](const auto& f) { return f.line != line; });
        std::int32_t count = 0;
        tokens.clear();
        CTools().GetFields(FirstFields(lines.Next(), std::prev(next)->token), count, tokens, ' ');
        for (; field != next; ++field) {
            if (field->token > count) {
                RaiseRuntimeError(
                    RuntimeError::subscriptOutOfRange,
                    {.record = "profile line " + std::to_string(line),
                     .field = std::string(field->name),
                     .file = xifFile,
                     .line = line,
                     .reason = "line " + std::to_string(line) + " of an XIF file holds at least " +
                               std::to_string(std::prev(next)->token) +
                               " numbers, each behind a single blank, this one " + std::to_string(count) +
                               hint});
            }
            std::string& token = tokens[static_cast<std::size_t>(field->token) - 1];
            std::string& kept = tokens_[static_cast<std::size_t>(field - kProfileFields.data())];
            kept = std::move(token);
            Store(*field, kept, findings);
        }
    }
}

void CProfile::LoadFromXmlNode(const XmlNode& profile, FindingSink& findings) {
    loadedXml_ = profile;
    ForEachProfileElement(profile, [&](const XmlNode& element, int /*line*/, const ProfileField* field) {
        if (field == nullptr)
            return;
        elements_[static_cast<std::size_t>(field - kProfileFields.data())] = element;
        Store(*field, CTools().nodeTextValue(element), findings);
    });
}

}  // namespace tovarek
