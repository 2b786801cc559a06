#include "support/XmlProlog.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "support/Text.h"

namespace tovarek {
namespace {

// The document without a mark, in a form whose ASCII characters are bytes of their own; markup is made of
// nothing else. `converted` holds it where it is not the document itself.
std::string_view Readable(std::string_view document, std::string& converted) {
    const auto byte = [&](std::size_t i) {
        return i < document.size() ? static_cast<unsigned char>(document[i]) : 0xFFU;
    };
    const bool littleEndian = (byte(0) == 0xFF && byte(1) == 0xFE) || (byte(0) == '<' && byte(1) == 0);
    const bool bigEndian = (byte(0) == 0xFE && byte(1) == 0xFF) || (byte(0) == 0 && byte(1) == '<');
    if (littleEndian || bigEndian) {
        converted = FromUtf16(document, bigEndian);
        document = converted;
    }
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (document.starts_with(kMark))
        document.remove_prefix(kMark.size());
    return document;
}

constexpr bool IsSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// What ends a name in a declaration or a reference.
constexpr bool EndsName(char c) {
    return IsSpace(c) || c == ';' || c == '>' || c == '"' || c == '\'' || c == '[' || c == '&' || c == '%' ||
           c == '<';
}

// The character that a reference like "#60" or "#x3C" names, 0 for what is none.
char32_t ReferredCharacter(std::string_view reference) {
    if (!reference.starts_with('#'))
        return 0;
    const bool hexadecimal = reference.starts_with("#x");
    const std::string_view digits = reference.substr(hexadecimal ? 2 : 1);
    std::uint32_t value = 0;
    const auto parsed =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, hexadecimal ? 16 : 10);
    return parsed.ec == std::errc() && parsed.ptr == digits.data() + digits.size() ? value : 0;
}

// Calls `visit` with the name of every "&name;" of `text`, and with the text between them.
template <class OnReference, class OnText>
void ForEachReference(std::string_view text, const OnReference& onReference, const OnText& onText) {
    while (!text.empty()) {
        const std::size_t ampersand = std::min(text.find('&'), text.size());
        const std::size_t end = text.find(';', ampersand);
        if (end == std::string_view::npos) {
            onText(text);
            return;
        }
        onText(text.substr(0, ampersand));
        onReference(text.substr(ampersand + 1, end - ampersand - 1));
        text.remove_prefix(end + 1);
    }
}

// An entity's value as the parser keeps it: character references resolved, references to entities not.
std::string StoredValue(std::string_view literal) {
    std::string value;
    ForEachReference(
        literal,
        [&](std::string_view name) {
            if (const char32_t character = ReferredCharacter(name); character != 0)
                AppendUtf8(value, character);
            else
                value.append("&").append(name).append(";");
        },
        [&](std::string_view text) { value += text; });
    return value;
}

}  // namespace

// Walks over declarations, from the front to the back.
class XmlProlog::Scanner {
  public:
    Scanner(XmlProlog& prolog, std::string_view text) : prolog_(prolog), rest_(text) {}

    // The front of a document: everything up to the document type declaration and that itself.
    void Document() {
        while (true) {
            SkipSpace();
            if (Take("<?"))
                SkipBehind("?>");
            else if (Take("<!--"))
                SkipBehind("-->");
            else
                break;
        }
        if (!Take("<!DOCTYPE"))
            return;
        prolog_.hasDocumentType_ = true;
        SkipSpace();
        Name();
        prolog_.systemId_ = ExternalId().value_or(std::string());
        SkipSpace();
        if (Take("["))
            Declarations();
    }

    // Declarations up to the "]" that ends an internal part, or to the end.
    void Declarations() {
        while (!rest_.empty() && rest_.front() != ']') {
            if (Take("<!--"))
                SkipBehind("-->");
            else if (Take("<?"))
                SkipBehind("?>");
            else if (Take("<!ENTITY"))
                Entity();
            else if (Take("<![") || Take("]]>"))
                continue;  // a section of an external part: its content is declarations
            else if (Take("<!"))
                SkipDeclaration();
            else if (Take("%"))
                Parameter();
            else
                rest_.remove_prefix(1);
        }
    }

  private:
    void Entity() {
        SkipSpace();
        const bool isParameter = Take("%");
        SkipSpace();
        std::string name = Name();
        SkipSpace();
        std::optional<std::string> value;
        if (const auto literal = Literal())
            value = StoredValue(*literal);
        Entities& entities = isParameter ? prolog_.parameters_ : prolog_.general_;
        entities.try_emplace(std::move(name), std::move(value));
        SkipDeclaration();
    }

    void Parameter() {
        const auto found = prolog_.parameters_.find(Name());
        if (found != prolog_.parameters_.end() && !found->second)
            prolog_.usesExternalParameters_ = true;
    }

    // The system identifier of SYSTEM "..." or PUBLIC "..." "...", nothing when neither stands there.
    std::optional<std::string> ExternalId() {
        SkipSpace();
        const bool isPublic = Take("PUBLIC");
        if (!isPublic && !Take("SYSTEM"))
            return std::nullopt;
        SkipSpace();
        auto literal = Literal();
        if (isPublic) {
            SkipSpace();
            literal = Literal();
        }
        return literal ? std::optional<std::string>(*literal) : std::nullopt;
    }

    bool Take(std::string_view word) {
        if (!rest_.starts_with(word))
            return false;
        rest_.remove_prefix(word.size());
        return true;
    }

    std::string Name() {
        const auto* const end = std::find_if(rest_.begin(), rest_.end(), EndsName);
        const auto length = static_cast<std::size_t>(end - rest_.begin());
        std::string name(rest_.substr(0, length));
        rest_.remove_prefix(length);
        return name;
    }

    // What stands between two quotes, or nothing when no quote comes next.
    std::optional<std::string_view> Literal() {
        if (rest_.empty() || (rest_.front() != '"' && rest_.front() != '\''))
            return std::nullopt;
        const std::size_t end = std::min(rest_.find(rest_.front(), 1), rest_.size());
        const std::string_view literal = rest_.substr(1, end - 1);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return literal;
    }

    void SkipSpace() {
        while (!rest_.empty() && IsSpace(rest_.front()))
            rest_.remove_prefix(1);
    }

    void SkipBehind(std::string_view mark) {
        rest_.remove_prefix(std::min(rest_.find(mark), rest_.size()));
        Take(mark);
    }

    // Up to the ">" that is in no literal.
    void SkipDeclaration() {
        while (!rest_.empty() && !Take(">"))
            if (!Literal())
                rest_.remove_prefix(1);
    }

    XmlProlog& prolog_;
    std::string_view rest_;
};

XmlProlog::XmlProlog(std::string_view document) {
    std::string converted;
    Scanner(*this, Readable(document, converted)).Document();
}

void XmlProlog::ReadExternalPart(std::string_view declarations) {
    std::string converted;
    Scanner(*this, Readable(declarations, converted)).Declarations();
}

bool XmlProlog::IsPlainText(const std::string& name) const {
    std::map<std::string, bool> known;
    return IsPlainText(name, known);
}

bool XmlProlog::IsPlainText(const std::string& name, std::map<std::string, bool>& known) const {
    constexpr auto kPredefined = std::to_array<std::string_view>({"amp", "lt", "gt", "quot", "apos"});
    if (std::find(kPredefined.begin(), kPredefined.end(), name) != kPredefined.end() ||
        ReferredCharacter(name) != 0)
        return true;
    // An entity that is asked for again while it is looked at contains itself.
    const auto [seen, isNew] = known.try_emplace(name, false);
    if (!isNew)
        return seen->second;
    const auto found = general_.find(name);
    // "%" may refer to a parameter entity, whose value nobody looked at.
    constexpr std::size_t kDeepestNesting = 100;
    if (found == general_.end() || !found->second || known.size() > kDeepestNesting ||
        found->second->find_first_of("<%") != std::string::npos)
        return false;
    bool plain = true;
    ForEachReference(
        *found->second,
        [&](std::string_view inner) { plain = plain && IsPlainText(std::string(inner), known); },
        [](std::string_view /*text*/) {});
    known[name] = plain;
    return plain;
}

}  // namespace tovarek
