#include "component/XifWriter.h"

#include <initializer_list>

#include "base/Numbers.h"
#include "base/Text.h"
#include "profile/ProfileFields.h"
#include "support/CTools.h"
#include "support/TextWriter.h"
#include "system/TrialOutput.h"

namespace tovarek {
namespace {

// The longest piece of self-documentation on one line, in characters, without its leading quote.
constexpr std::size_t kPieceLength = 60;

class XifWriter {
  public:
    XifWriter(FileSink& sink, const CProfile& profile, const CTemplate& deviceTemplate,
              const CResources& resources)
        : out_(sink), profile_(profile), template_(deviceTemplate), resources_(resources) {}

    void WriteHeader(const std::string& fileName, const Clock& clock) {
        out_.Line(resources_.resource(fragmentFile) + fileName + " " +
                  resources_.resource(fragmentGeneratedBy) + " " TOVAREK_VERSION +
                  resources_.resource(fragmentXifVersion));
        out_.Line(resources_.resource(fragmentCopyright));
        out_.Line(resources_.resource(fragmentRunOn) + GeneralDateText(clock.LocalTime()));
        out_.Line();
        out_.Line(template_.displayPID());
    }

    // Lines 6 to 10: the profile's values at their places, and between them those of the template and a
    // constant.
    void WriteParameters() {
        const ProfileField* field = kProfileFields.data();
        const ProfileField* const end = field + kProfileFields.size();
        for (int line = kFirstProfileLine; line <= kLastProfileLine; ++line) {
            line_.clear();
            for (int token = 1;; ++token) {
                if (field != end && field->line == line && field->token == token)
                    Number(profile_.*(field++)->value);
                else if (const std::int32_t* value = OtherParameter(line, token))
                    Number(*value);
                else
                    break;
            }
            EndLine();
        }
        out_.Line("*");
    }

    void WriteSelfDocumentation(std::string_view text) {
        if (text.empty()) {
            out_.Line("*");
            return;
        }
        while (!text.empty()) {
            const std::string_view piece = FirstCharacters(text, kPieceLength);
            line_ = '"';
            line_ += piece;
            EndLine();
            text.remove_prefix(piece.size());
        }
    }

    void WriteTag(const CTag& tag) {
        line_ = "TAG ";
        line_ += tag.name;
        Numbers({tag.index, tag.avgRate, tag.maxRate, 0});
        EndLine();
        Numbers({0, tag.bindable});
        line_ += " 63 1 0 1 0 1 0 1 0 0 0";
        EndLine();
    }

    void WriteNv(const CNv& nv) {
        line_ = "VAR ";
        line_ += nv.name;
        Numbers({nv.index, nv.avgRate, nv.maxRate, nv.arraySize});
        EndLine();
        // Deliberate: 1 and 63 for every variable; readers of the format expect these two constants.
        Numbers({nv.offline, 1, 63, nv.direction, nv.defaultService, nv.serviceCanBeChanged, nv.defaultAuth,
                 nv.authCanBeChanged, nv.defaultPriority, nv.priorityCanBeChanged, nv.polled, nv.synchronized,
                 nv.configuration});
        EndLine();
        WriteSelfDocumentation(nv.selfdoc);
        AppendInteger(line_, nv.typeIndex);
        line_ += " * ";
        AppendInteger(line_, nv.length);
        EndLine();
        for (std::int32_t byte = 0; byte < nv.length; ++byte) {
            line_ = "0 ";
            AppendInteger(line_, byte);
            line_ += " 0 0 0";
            EndLine();
        }
    }

    void WritePropertyTemplate() {
        out_.Line();
        out_.Line("FILE template 0 2");
        out_.Line('"' + template_.versionCP + ";\"");
        for (const CCp& cp : template_.cps)
            out_.Line('"' + cp.declaration + '"');
    }

    void WritePropertyValues() {
        out_.Line();
        out_.Line("FILE value 1 1");
        for (const CCp& cp : template_.cps) {
            // Deliberate: a lone last digit is no byte and is dropped.
            for (std::size_t digit = 0; digit + 1 < cp.defaultValue.size(); digit += 2) {
                line_ += digit == 0 ? "\\x" : " \\x";
                line_.append(cp.defaultValue, digit, 2);
            }
            EndLine();
        }
    }

  private:
    // The places of lines 6 to 10 that are no values of the profile, or null behind the end of a line.
    const std::int32_t* OtherParameter(int line, int token) const {
        // Deliberate: the third number of line 8, the transceiver type, is always 1.
        static constexpr std::int32_t kTransceiverType = 1;
        if (line == 6 && token == 4)
            return &template_.numberStaticNvs;
        if (line == 6 && token == 5)
            return &template_.numberOfMessageTags;
        if (line == 6 && token == 23)
            return &template_.maximumNumberOfNvs;
        return line == 8 && token == 3 ? &kTransceiverType : nullptr;
    }

    void Number(std::int32_t value) {
        if (!line_.empty())
            line_ += ' ';
        AppendInteger(line_, value);
    }
    void Numbers(std::initializer_list<std::int32_t> values) {
        for (const std::int32_t value : values)
            Number(value);
    }
    void EndLine() {
        out_.Line(line_);
        line_.clear();
    }

    TextWriter out_;
    const CProfile& profile_;
    const CTemplate& template_;
    const CResources& resources_;
    std::string line_;  // the line that is being put together
};

}  // namespace

void WriteXifText(FileSink& sink, const std::string& fileName, const CProfile& profile,
                  const CTemplate& deviceTemplate, const CResources& resources, const Clock& clock) {
    XifWriter writer(sink, profile, deviceTemplate, resources);
    writer.WriteHeader(fileName, clock);
    writer.WriteParameters();
    writer.WriteSelfDocumentation(deviceTemplate.selfDocumentation);
    TextWriter(sink).Line();
    for (const CTag& tag : deviceTemplate.tags)
        writer.WriteTag(tag);
    for (const CNv& nv : deviceTemplate.nvs)
        writer.WriteNv(nv);
    if (deviceTemplate.numberOfCps < 1)
        return;
    writer.WritePropertyTemplate();
    writer.WritePropertyValues();
}

void WriteXif(const std::string& path, const CProfile& profile, const CTemplate& deviceTemplate,
              const CResources& resources, const Clock& clock) {
    const std::unique_ptr<FileSink> file = OpenOutput(path, nullptr);
    WriteXifText(*file, CTools().ExtractFile(path), profile, deviceTemplate, resources, clock);
    file->Close();
}

}  // namespace tovarek
