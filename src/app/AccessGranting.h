#pragma once

#include <string>

namespace broomtide {

/// The right to read and change a folder, on systems where the user's choice of it gives that
/// right. Called on the main thread.
class AccessGranting {
 public:
  virtual ~AccessGranting() = default;

  /// Whether the right was granted, so that it must be given back.
  virtual bool startAccess(const std::string& folder) = 0;

  /// Gives a granted right back.
  virtual void stopAccess(const std::string& folder) = 0;
};

/// For systems without such rights: always granted.
class UnrestrictedAccess final : public AccessGranting {
 public:
  bool startAccess(const std::string&) override { return true; }
  void stopAccess(const std::string&) override {}
};

}  // namespace broomtide
