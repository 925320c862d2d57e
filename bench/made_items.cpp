#include "made_items.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace bench {

namespace {

std::vector<int> Shuffled(int count, unsigned seed) {
    std::vector<int> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    std::mt19937 random(seed);
    // std::shuffle differs between libraries
    for (std::size_t i = numbers.size(); i > 1; --i) std::swap(numbers[i - 1], numbers[random() % i]);
    return numbers;
}

/// Six syllables, the first of few, so that names are alike for a while; another text for each number below 16^5.
std::string Name(int number) {
    constexpr const char* syllables[] = {"ba", "de", "fi", "go", "hu", "ka", "le", "mi",
                                         "no", "pu", "ra", "se", "ti", "vo", "wu", "zy"};
    constexpr unsigned few = 4;
    std::string name = syllables[static_cast<unsigned>(number) % few];
    for (unsigned place = 0; place < 5; ++place)
        name += syllables[static_cast<unsigned>(number) >> (4 * (4 - place)) & 15U];
    return name;
}

}  // namespace

MadeItems::MadeItems(int count) : codes(Shuffled(count, 1)) {
    for (const int number : Shuffled(count, 2)) names.push_back(Name(number));
    for (const int number : Shuffled(count, 3)) weights.push_back(number / 8.0);
    texts.reserve(names.size());
    for (const std::string& name : names) texts.emplace_back(name.c_str());
    byName.resize(names.size());
    std::iota(byName.begin(), byName.end(), 0);
    std::ranges::sort(byName, {}, [this](int i) -> const std::string& { return names[static_cast<std::size_t>(i)]; });
}

}  // namespace bench
