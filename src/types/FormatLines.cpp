#include "types/FormatLines.h"

#include "formats/format/FormatExpression.h"

namespace tovarek {

const std::vector<FormatParameter>& StandardFormats::Default(std::int32_t index) {
    const auto found = defaults_.find(index);
    if (found != defaults_.end())
        return found->second;
    return defaults_
        .emplace(index,
                 catalog_ == nullptr ? std::vector<FormatParameter>() : catalog_->DefaultParameters(index))
        .first->second;
}

const std::vector<FormatParameter>* StandardFormats::Named(std::int32_t index,
                                                           const std::string& name) const {
    if (catalog_ == nullptr)
        return nullptr;
    for (const DisplayFormat& format : catalog_->Formats(catalog_->NvName(index)))
        if (format.name == name && !format.parameters.empty() && !format.parameters[0].conversion.empty())
            return &format.parameters;
    return nullptr;
}

void FormatLines::WriteGroup(const CType& type, const std::string& formatName) {
    params_.clear();
    prefix_.clear();
    type.AnalyseFormatLine(formatName, params_, prefix_, standard_, true);
    if (params_.empty())
        return;
    line_ = type.name;
    if (!formatName.empty())
        line_.append("#").append(formatName);
    line_ += ": ";
    if (params_.size() == 1)
        WriteSingle(params_.front());
    else
        WriteSeveral(CharacterCount(line_));
}

// The path of a single value is implied, but for a text.
void FormatLines::WriteSingle(const CParam& param) {
    if (!param.withFormat && (param.format == "%f" || param.format == "%d")) {
        out_.Line(line_ += param.format == "%f" ? "real;" : "int;");
        return;
    }
    OpenText();
    const bool isText = param.format == "%s";
    if (isText || param.withFormat) {
        line_ += ',';
        if (isText)
            line_ += param.expression;
        AppendValue(param);
    }
    line_ += ");";
    AppendComment(param);
    out_.Line(line_);
}

void FormatLines::WriteSeveral(std::size_t indent) {
    OpenText();
    out_.Line(line_ += ',');
    for (const CParam& param : params_) {
        const bool isLast = &param == &params_.back();
        const bool hasComment = param.withFormat && !param.comment.empty();
        line_.assign(indent, ' ');
        line_ += param.expression;
        AppendValue(param);
        if (!isLast)
            line_ += ',';
        else if (!hasComment)
            line_ += ");";
        AppendComment(param);
        out_.Line(line_);
        // A comment runs to the end of its line, so what closes the group gets one of its own.
        if (isLast && hasComment)
            out_.Line(line_.assign(indent, ' ') += ");");
    }
}

// text(" and the conversions of all values.
void FormatLines::OpenText() {
    line_ += "text(\"";
    for (const CParam& param : params_) {
        if (&param != &params_.front())
            line_ += ' ';
        line_ += param.format;
    }
    line_ += '"';
}

// Factor and offset, where there is something to show. An offset of 0 is written as well.
void FormatLines::AppendValue(const CParam& param) {
    if (!param.withFormat || (param.formatCoefA == 1 && param.formatCoefC == 0 && param.comment.empty()))
        return;
    AppendFactorAndOffset(line_, param.formatCoefA, param.formatCoefC);
}

void FormatLines::AppendComment(const CParam& param) {
    if (param.withFormat && !param.comment.empty())
        AppendUnitComment(line_, param.comment);
}

}  // namespace tovarek
