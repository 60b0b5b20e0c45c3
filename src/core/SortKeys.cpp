#include "core/SortKeys.h"

#include <algorithm>
#include <tuple>

namespace broomtide {
namespace {

using Word = std::uint64_t;

// A number for the bytes at `start`; numbers are ordered as the bytes are.
Word wordAt(const std::uint8_t* start) {
  Word word = 0;
  for (std::size_t index = 0; index < sizeof(Word); ++index) word = (word << 8U) | start[index];
  return word;
}

// Keys end with a zero byte and are filled up with more of them.
bool isLastWord(Word word) { return (word & 0xFFU) == 0; }

struct KeyWord {
  Word word;  // of the key, as deep as the run is sorted
  std::size_t key;

  bool operator<(const KeyWord& other) const {
    return std::tie(word, key) < std::tie(other.word, other.key);
  }
};

// Entries whose keys are the same above this depth.
struct Run {
  std::size_t begin, end, depth;
};

}  // namespace

SortKeys::SortKeys(std::size_t count, std::size_t bytes) {
  starts_.reserve(count);
  bytes_.reserve(bytes + count * sizeof(Word));
}

void SortKeys::add(std::span<const std::uint8_t> key) {
  starts_.push_back(bytes_.size());
  bytes_.insert(bytes_.end(), key.begin(), key.end());
  bytes_.resize((bytes_.size() / sizeof(Word) + 1) * sizeof(Word));
}

// Paths have long beginnings in common. Sorting word by word looks at each of them once, where
// comparing two keys at a time would go through them again and again. Runs wait in a list, since
// keys may be longer than the stack is deep.
std::vector<std::size_t> SortKeys::order() const {
  std::vector<KeyWord> entries(starts_.size());
  for (std::size_t index = 0; index < entries.size(); ++index) entries[index].key = index;

  std::vector<Run> pending{{0, entries.size(), 0}};
  while (!pending.empty()) {
    const Run run = pending.back();
    pending.pop_back();
    const std::span<KeyWord> sorted(entries.data() + run.begin, run.end - run.begin);
    for (KeyWord& entry : sorted) entry.word = wordAt(&bytes_[starts_[entry.key] + run.depth]);
    if (!std::is_sorted(sorted.begin(), sorted.end())) std::sort(sorted.begin(), sorted.end());
    for (std::size_t begin = 0, end = 0; begin < sorted.size(); begin = end) {
      while (end < sorted.size() && sorted[end].word == sorted[begin].word) ++end;
      if (end - begin > 1 && !isLastWord(sorted[begin].word)) {
        pending.push_back({run.begin + begin, run.begin + end, run.depth + sizeof(Word)});
      }
    }
  }
  std::vector<std::size_t> order;
  order.reserve(entries.size());
  for (const KeyWord& entry : entries) order.push_back(entry.key);
  return order;
}

}  // namespace broomtide
