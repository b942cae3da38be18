// nearestName: the name of a list closest to a mistyped word, by the number of single-character
// insertions, deletions and substitutions between them; the first of equals wins.
#pragma once

#include <string>
#include <vector>

// Empty when names is empty.
std::string nearestName(const std::string& word, const std::vector<std::string>& names);

// The edit distance between a and b.
std::size_t editDistance(const std::string& a, const std::string& b);
