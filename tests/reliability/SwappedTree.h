#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "support/TemporaryTree.h"

namespace broomtide::test {

/// What somebody does to an item, or to the folder that holds it, while Broomtide works. Each is
/// done and undone in turn.
enum class Swap {
  itemByLink,      ///< to the item of the same name outside
  itemByItem,      ///< in one step
  itemByNewItem,   ///< the old one is taken away
  itemByOther,     ///< a folder by a file, a file by a folder, in one step
  parentByLink,    ///< to the folder of the same name outside
  parentByParent,  ///< in one step
};

/// An item that a scan offers.
struct SwappedItem {
  std::string parent;  ///< below the folder that is scanned
  std::string name;
  bool isFolder;

  std::string path() const { return parent + '/' + name; }
};

/// A folder to scan that holds one item, and one outside it that looks the same and holds far more.
/// Every file says something of its own, so that none can be lost unnoticed.
class SwappedTree {
 public:
  explicit SwappedTree(SwappedItem item);

  /// Makes everything anew but what lies outside.
  void build();

  /// What is not possible just now is left out, and false is returned. Nothing is erased or
  /// replaced. From one thread at a time.
  bool swap(Swap swap);

  /// Takes the folder that is scanned away, and puts a link to the one outside in its place.
  void swapRoot();

  std::string scanned() const { return tree_.path("scanned"); }
  std::string trash() const { return tree_.path("Trash"); }

  /// Far more than there is in all the files that may be measured.
  static constexpr std::int64_t bytesOutside = std::int64_t{20} << 20U;

  /// Fails the test when a file was lost or exists twice, or something outside has changed.
  void expectNothingLost() const;

 private:
  void fill(const std::string& folder);
  void fillItem(const std::string& path);
  bool putNewItem();
  std::string newText();
  std::string newAway();

  const SwappedItem item_;
  TemporaryTree tree_;
  std::vector<std::string> outside_;
  std::multiset<std::string> texts_;
  int count_ = 0;
};

}  // namespace broomtide::test
