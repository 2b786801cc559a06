// Suggestions for names that were mistyped.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tovarek {

// The candidate that is most like `word` (edit distance, letter case apart), the first of several; empty when
// none is near.
std::string Nearest(std::string_view word, const std::vector<std::string>& candidates);

// The same, and whether nothing else can be meant: at most a third of its letters differ, or one, and no
// other candidate is as near.
struct NearestName {
    std::string name;
    bool isSure = false;
};
NearestName NearestOf(std::string_view word, const std::vector<std::string>& candidates);

// "; did you mean 'NAME'?" with the nearest of the candidates, empty when none is near.
std::string DidYouMean(std::string_view word, const std::vector<std::string>& candidates);
std::string DidYouMean(const NearestName& nearest);

}  // namespace tovarek
