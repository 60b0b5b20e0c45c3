#pragma once

#include <exception>

namespace broomtide {

/// A failure that stops a scan. `what()` is the text that people see.
class ScannerError : public std::exception {
 public:
  enum class Case { invalidRoot, permissionDenied };

  explicit ScannerError(Case failure) : failure_(failure) {}

  Case failure() const { return failure_; }
  const char* what() const noexcept override;

 private:
  Case failure_;
};

/// Thrown out of an operation whose stop token was asked to stop.
class CancellationError : public std::exception {
 public:
  const char* what() const noexcept override;
};

}  // namespace broomtide
