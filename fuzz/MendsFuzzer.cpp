// Mends of any bytes. An input is a mend per line, "LINE COLUMN WIDTH TEXT", an empty line, and the file.
#include <cstdlib>

#include "Fuzzing.h"
#include "base/Text.h"
#include "mend/MendedBytes.h"

namespace tovarek::fuzz {
namespace {

using namespace std::string_view_literals;

int TakeNumber(std::string_view& line) {
    const int number = std::atoi(std::string(line.substr(0, 9)).c_str());
    line.remove_prefix(std::min(line.find(' '), line.size() - 1) + 1);
    return number;
}

std::vector<Piece> TakePieces(std::string_view& rest) {
    std::vector<Piece> pieces;
    for (std::string_view line = TakeLine(rest); !line.empty(); line = TakeLine(rest)) {
        Piece piece;
        for (int Piece::*const number : {&Piece::line, &Piece::column, &Piece::width})
            if (!line.empty())
                piece.*number = TakeNumber(line);
        piece.text = line;
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

// What both files have in front of, between and behind the changes.
void RequireTheRest(const MendedBytes& file) {
    const std::string mended = file.New();
    std::size_t oldAt = 0;
    std::size_t newAt = 0;
    for (const ByteChange& change : file.Changes()) {
        Require(change.start >= oldAt && change.End() <= file.Old().size(),
                "changes lie in the file, in order");
        const std::size_t kept = change.start - oldAt;
        Require(mended.compare(newAt, kept, file.Old(), oldAt, kept) == 0, "what lies between changes stays");
        Require(mended.compare(newAt + kept, change.bytes.size(), change.bytes) == 0, "a change is made");
        newAt += kept + change.bytes.size();
        oldAt = change.End();
    }
    Require(mended.substr(newAt) == file.Old().substr(oldAt), "what lies behind the changes stays");
}

void Run(std::string_view input) {
    const std::vector<Piece> pieces = TakePieces(input);
    MendedBytes file{std::string(input)};
    for (const Piece& piece : pieces) {
        const std::string before = file.New();
        if (!file.Add({piece}).empty()) {
            Require(file.New() == before, "a mend that is refused changes nothing");
            continue;
        }
        RequireTheRest(file);
    }
    Require(UnifiedDiff("f", file.Old(), file.Changes()).empty() ==
                (file.Changes().empty() || file.Old().empty()),
            "what is changed shows in the diff");
    // One mend of plain text shows in the text of its line, and in no other.
    MendedBytes plain{std::string(input)};
    if (pieces.empty() || pieces[0].text.empty() || !IsAscii(pieces[0].text) ||
        pieces[0].text.find_first_of("\r\n<\0"sv) != std::string::npos || LooksLikeXml(input) ||
        !plain.Add({pieces[0]}).empty())
        return;
    const MendedBytes again(plain.New());
    if (LooksLikeXml(plain.New()))
        return;
    Require(again.Line(pieces[0].line) == plain.LineWith(pieces[0].line, {pieces[0]}),
            "the line is what was meant");
}

}  // namespace

std::vector<std::string> Seeds() {
    const std::string ini = "[general]\r\nprogramID: 9\r\n\nname=\xC3\xA4 b\rlast";
    return {
        "2 10 2 =\n\n" + ini,
        "2 10 2 =\n4 6 1 x\n5 5 0 ;\n\n\xEF\xBB\xBF" + ini,
        "1 10 0 \n4 6 3 yy\n\n\xFF\xFE" + ToUtf16(ini + "\xF0\x9F\x98\x80=1", false),
        "5 5 1 -\n5 1 4 l\n\n\xFE\xFF" + ToUtf16(ini, true),
        "1 1 0 \xEF\xBB\xBF\n1 1 1 [\n\n" + ini,
        "1 31 2 A\n2 2 1 A\n\n<?xml version='1.0' encoding='Shift_JIS'?>\n<A>\x83\x41\x83</A>",
        "2 2 1 A\n\n" + ToUtf16("<?xml version='1.0'?>\n<A/>", false),
    };
}

}  // namespace tovarek::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tovarek::fuzz::Run(tovarek::fuzz::View(data, size));
    return 0;
}
