#include "formats/format/FormatFile.h"

#include <algorithm>
#include <optional>

#include "base/Text.h"
#include "formats/format/FormatExpression.h"
#include "system/CodePage.h"

namespace tovarek {
namespace {

// A comment and where it stood in the text that was left without it.
struct Comment {
    std::size_t position;
    std::string text;
};

// All up to a ";", without comments.
struct Statement {
    std::string text;
    std::vector<Comment> comments;
    std::string trailingComment;  // on the line of the ";"
    std::size_t line = 0;
};

// Cuts the file into statements.
class StatementReader {
  public:
    explicit StatementReader(std::string_view text) : text_(text) {}

    bool Failed() const { return failed_; }
    std::size_t Line() const { return line_; }

    // False at the end of the file; Failed tells whether something stood there that no ";" ends.
    bool Next(Statement& statement) {
        statement = {};
        while (position_ < text_.size()) {
            const char c = text_[position_];
            if (statement.text.empty() && (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\x1A')) {
                Step();
            } else if (c == '!' && !IsOperator(statement)) {
                TakeComment(statement);
            } else if (c == ';') {
                Step();
                statement.trailingComment = RestOfLineComment();
                return true;
            } else {
                if (statement.text.empty())
                    statement.line = line_;
                if (c == '"') {
                    TakeQuoted(statement);
                } else {
                    statement.text.push_back(Step());
                }
            }
        }
        failed_ = !Trim(statement.text).empty();
        return false;
    }

  private:
    char Step() {
        const char c = text_[position_++];
        if (c == '\n')
            ++line_;
        return c;
    }

    // "!=" compares what stands before it on its line; where nothing does, it begins a comment.
    bool IsOperator(const Statement& statement) const {
        if (position_ + 1 >= text_.size() || text_[position_ + 1] != '=')
            return false;
        const std::size_t last = statement.text.find_last_not_of(" \t");
        constexpr std::string_view kNoValue = "\r\n,(:";
        return last != std::string::npos && kNoValue.find(statement.text[last]) == std::string_view::npos;
    }

    std::string CommentText() {
        const std::size_t end = std::min(text_.find_first_of("\r\n", position_), text_.size());
        const std::string_view comment = text_.substr(position_ + 1, end - position_ - 1);
        position_ = end;
        return std::string(Trim(comment));
    }

    void TakeComment(Statement& statement) {
        std::string comment = CommentText();
        if (!statement.text.empty())
            statement.comments.push_back({statement.text.size(), std::move(comment)});
    }

    void TakeQuoted(Statement& statement) {
        statement.text.push_back(Step());
        while (position_ < text_.size()) {
            const char c = Step();
            statement.text.push_back(c);
            if (c == '"')
                return;
            if (c == '\\' && position_ < text_.size())
                statement.text.push_back(Step());
        }
    }

    std::string RestOfLineComment() {
        const std::size_t next = text_.find_first_not_of(" \t", position_);
        if (next == std::string_view::npos || text_[next] != '!')
            return {};
        position_ = next;
        return CommentText();
    }

    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t line_ = 1;
    bool failed_ = false;
};

// An argument of a form and where it ends in the body.
struct Argument {
    std::string_view text;
    std::size_t end;
};

// Cuts "a,b(c,d),e" at its commas outside quotes and parentheses. `base` is where `text` stands in the body.
// Nothing when quotes or parentheses do not match: then the text is no list of arguments.
std::optional<std::vector<Argument>> SplitArguments(std::string_view text, std::size_t base) {
    std::vector<Argument> arguments;
    std::size_t start = 0;
    int depth = 0;
    bool quoted = false;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        const char c = i < text.size() ? text[i] : ',';
        if (quoted) {
            if (c == '\\')
                ++i;
            if (i >= text.size())
                return std::nullopt;
            quoted = c != '"';
            continue;
        }
        quoted = c == '"';
        depth += c == '(' ? 1 : 0;
        depth -= c == ')' ? 1 : 0;
        if (depth < 0 || (depth > 0 && i == text.size()))
            return std::nullopt;
        if (c != ',' || (depth > 0 && i < text.size()))
            continue;
        const std::string_view argument = Trim(text.substr(start, i - start));
        arguments.push_back({argument, base + std::min(i, text.size())});
        start = i + 1;
    }
    if (arguments.size() == 1 && arguments[0].text.empty())
        arguments.clear();
    return arguments;
}

// Understands int, real and name(arguments). The comments count from the start of the body.
class BodyReader {
  public:
    BodyReader(std::string_view body, const Statement& statement, std::size_t offset, DisplayFormat& format)
        : body_(body), statement_(statement), offset_(offset), format_(format) {}

    void Read() {
        if (body_ == "int" || body_ == "real") {
            format_.form = body_;
            format_.parameters.push_back({.conversion = body_ == "int" ? "%d" : "%f"});
            return;
        }
        const std::size_t open = body_.find('(');
        if (open == std::string_view::npos || !body_.ends_with(')'))
            return;
        const std::string_view form = Trim(body_.substr(0, open));
        const auto isLetter = [](char c) {
            return (AsciiUpper(c) >= 'A' && AsciiUpper(c) <= 'Z') || c == '_';
        };
        if (form.empty() || !std::all_of(form.begin(), form.end(), isLetter))
            return;
        const auto arguments =
            SplitArguments(body_.substr(open + 1, body_.size() - open - 2), offset_ + open + 1);
        if (!arguments)
            return;
        arguments_ = *arguments;
        if (form == "text") {
            ReadText();
        } else {
            ReadFunction(form);
        }
    }

  private:
    void ReadText() {
        if (arguments_.empty() || !IsQuoted(arguments_[0].text))
            return;
        format_.form = "text";
        format_.text = arguments_[0].text.substr(1, arguments_[0].text.size() - 2);
        const std::vector<std::string> conversions = ConversionsOf(format_.text);
        const std::size_t count = std::max(conversions.size(), arguments_.size() - 1);
        for (std::size_t i = 0; i < count; ++i) {
            FormatParameter& parameter = format_.parameters.emplace_back();
            if (i + 1 < arguments_.size())
                parameter = ParseFormatExpression(arguments_[i + 1].text);
            if (i < conversions.size())
                parameter.conversion = conversions[i];
        }
        AddComments();
        if (format_.parameters.size() == 1 && !statement_.trailingComment.empty())
            format_.parameters[0].unit = statement_.trailingComment;
    }

    void ReadFunction(std::string_view form) {
        format_.form = form;
        for (const Argument& argument : arguments_)
            format_.parameters.push_back(ParseFormatExpression(argument.text));
    }

    // A comment is the unit of the last value that ended before it.
    void AddComments() {
        for (const Comment& comment : statement_.comments) {
            std::size_t before = 0;
            while (before < arguments_.size() && arguments_[before].end <= comment.position)
                ++before;
            if (before == arguments_.size() - 1 && comment.position >= LastTextEnd())
                before = arguments_.size();
            if (before >= 2)
                format_.parameters[before - 2].unit = comment.text;
        }
    }

    // Where the last argument's own text ends: a comment may stand between it and the closing parenthesis.
    std::size_t LastTextEnd() const {
        const auto within = static_cast<std::size_t>(arguments_.back().text.data() - body_.data());
        return offset_ + within + arguments_.back().text.size();
    }

    static bool IsQuoted(std::string_view text) {
        return text.size() >= 2 && text.starts_with('"') && text.ends_with('"');
    }

    std::string_view body_;
    const Statement& statement_;
    std::size_t offset_;  // of the body in the statement
    DisplayFormat& format_;
    std::vector<Argument> arguments_;
};

bool IsSetting(std::string_view text) {
    return text.size() > 3 && AsciiLowerCase(text.substr(0, 3)) == "set" &&
           (text[3] == ' ' || text[3] == '\t');
}

// "name#FORMAT: body". False when it is no such statement.
bool ReadFormat(const Statement& statement, DisplayFormat& format) {
    const std::string_view text = statement.text;
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos)
        return false;
    const std::string_view head = Trim(text.substr(0, colon));
    const std::size_t hash = head.find('#');
    format.type = Trim(head.substr(0, hash));
    if (hash != std::string_view::npos)
        format.name = Trim(head.substr(hash + 1));
    const bool isName = std::none_of(format.type.begin(), format.type.end(), [](char c) {
        return c == '"' || c == '(' || c == ')' || (c >= 0 && c <= ' ');
    });
    if (format.type.empty() || !isName)
        return false;
    const std::string_view body = Trim(text.substr(colon + 1));
    format.body = body;
    BodyReader(body, statement, body.empty() ? 0 : static_cast<std::size_t>(body.data() - text.data()),
               format)
        .Read();
    return true;
}

}  // namespace

Outcome ReadFormatFile(std::string_view bytes, FormatFile& file) {
    file = {};
    if (bytes.find('\0') != std::string_view::npos)
        return Failure(resultErrorOpenFile, "the file is binary, format files are text");
    const std::string text = FromCodePage(bytes);
    StatementReader reader(text);
    Statement statement;
    while (reader.Next(statement)) {
        if (IsSetting(statement.text)) {
            file.settings.emplace_back(Trim(std::string_view(statement.text).substr(4)));
            continue;
        }
        DisplayFormat format;
        if (!ReadFormat(statement, format)) {
            return Failure(resultBadParam,
                           "line " + std::to_string(statement.line) + " is neither a setting nor a format");
        }
        file.formats.push_back(std::move(format));
    }
    if (reader.Failed())
        return Failure(resultBadParam, "line " + std::to_string(statement.line) + " has no \";\" at its end");
    return {};
}

namespace {

// The arguments of a text form. With several values a unit needs a line of its own behind its value.
std::string TextBody(const DisplayFormat& format, const std::string& indent) {
    std::string body = "text(\"" + format.text + '"';
    const std::vector<FormatParameter>& parameters = format.parameters;
    const bool hasComments =
        std::any_of(parameters.begin(), parameters.end(),
                    [](const FormatParameter& parameter) { return !parameter.unit.empty(); });
    if (parameters.size() == 1) {
        const std::string expression = FormatExpressionText(parameters[0]);
        body += expression.empty() ? ");" : ',' + expression + ");";
        if (hasComments)
            AppendUnitComment(body, parameters[0].unit);
        return body;
    }
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const bool last = i + 1 == parameters.size();
        body += i == 0 ? "," : "";
        body += hasComments ? "\r\n" + indent : "";
        body += FormatExpressionText(parameters[i]);
        body += last ? "" : ",";
        if (!parameters[i].unit.empty())
            AppendUnitComment(body, parameters[i].unit);
    }
    if (!parameters.empty() && !parameters.back().unit.empty())
        body += "\r\n" + indent;
    return body + ");";
}

std::string FunctionBody(const DisplayFormat& format) {
    std::string body = format.form + '(';
    for (std::size_t i = 0; i < format.parameters.size(); ++i)
        body += (i == 0 ? "" : ",") + FormatExpressionText(format.parameters[i]);
    return body + ");";
}

std::string FormatText(const DisplayFormat& format) {
    const std::string head = format.type + (format.name.empty() ? "" : '#' + format.name) + ": ";
    if (format.form == "int" || format.form == "real")
        return head + format.form + ';';
    if (format.form == "text")
        return head + TextBody(format, std::string(CharacterCount(head), ' '));
    return head + (format.form.empty() ? format.body + ';' : FunctionBody(format));
}

}  // namespace

std::string WriteFormatFile(const FormatFile& file) {
    std::string text;
    for (const std::string& setting : file.settings)
        text += "set " + setting + ";\r\n";
    text += "\r\n";
    for (const DisplayFormat& format : file.formats)
        text += FormatText(format) + "\r\n";
    return ToCodePage(text);
}

}  // namespace tovarek
