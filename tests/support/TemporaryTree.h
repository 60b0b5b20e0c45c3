#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace broomtide::test {

/// A folder of its own for one test, removed with everything in it afterwards. Relative paths are
/// below it; missing parent folders are made.
class TemporaryTree {
 public:
  TemporaryTree();
  ~TemporaryTree();

  TemporaryTree(const TemporaryTree&) = delete;
  TemporaryTree& operator=(const TemporaryTree&) = delete;

  const std::string& root() const { return root_; }
  std::string path(std::string_view relative) const;

  std::string folder(std::string_view relative) const;
  std::string file(std::string_view relative, std::string_view contents = "") const;
  void link(std::string_view target, std::string_view relative) const;
  void pipe(std::string_view relative) const;

  /// Runs a shell command in a folder of the tree and fails the test when it fails.
  void run(const std::string& command, std::string_view relative = "") const;

  /// Makes a Git repository with everything below it that is not ignored committed.
  void repository(std::string_view relative) const;

 private:
  std::string root_;
};

}  // namespace broomtide::test
