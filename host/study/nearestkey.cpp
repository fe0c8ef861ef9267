#include "host/study/nearestkey.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace vrn::orlo::host::study {

namespace {

constexpr std::size_t kLongestWord = 64;  // bytes; longer words are near to none

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::size_t editDistance(std::string_view a, std::string_view b)
{
    // Three rows of the table of distances between the beginnings of the words.
    std::vector<std::size_t> beforeLast(b.size() + 1);
    std::vector<std::size_t> last(b.size() + 1);
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            char const inA = lowered(a[i - 1]);
            char const inB = lowered(b[j - 1]);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1,
                               last[j - 1] + static_cast<std::size_t>(inA == inB ? 0 : 1)});
            bool const swapped =
                i > 1 && j > 1 && inA == lowered(b[j - 2]) && inB == lowered(a[i - 2]);
            if (swapped) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
        std::swap(beforeLast, last);
        std::swap(last, row);
    }
    return last[b.size()];
}

std::string_view nearestKey(std::string_view word, std::span<std::string_view const> known)
{
    std::string_view nearest;
    if (word.size() > kLongestWord) {
        return nearest;
    }
    std::size_t smallest = 0;
    for (std::string_view const candidate : known) {
        std::size_t const distance = editDistance(word, candidate);
        bool const isNear = distance <= (std::max(word.size(), candidate.size()) + 2) / 3;
        if (isNear && (nearest.empty() || distance < smallest)) {
            nearest = candidate;
            smallest = distance;
        }
    }
    return nearest;
}

}  // namespace vrn::orlo::host::study
