#include "soak/Progress.h"

#include <array>
#include <cstdio>
#include <iostream>
#include <string>

namespace broomtide::soak {
namespace {

std::string megabytes(std::uint64_t bytes) {
  constexpr double bytesPerMegabyte = 1e6;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.2f MB", static_cast<double>(bytes) / bytesPerMegabyte);
  return text.data();
}

std::string done(const Figures& figures) {
  return std::to_string(figures.rounds) + " rounds, " + std::to_string(figures.candidates) +
         " candidates, " + std::to_string(figures.moved) + " moved, " +
         std::to_string(figures.restored) + " restored, " + std::to_string(figures.refused) +
         " refused, " + std::to_string(figures.entriesCompared) + " entries (" +
         megabytes(figures.bytesCompared) + ") compared";
}

std::string change(std::size_t first, std::size_t last) {
  return std::to_string(first) + " -> " + std::to_string(last);
}

std::string change(const Growth& memory) {
  return megabytes(memory.first()) + " -> " + megabytes(memory.last()) + " (may rise by " +
         megabytes(memory.most()) + ")";
}

std::string memory(const Footprint& footprint) {
  if (!Footprint::judgesMemory()) {
    return "memory not judged, because sanitizers keep what was freed";
  }
  const bool isJudged = footprint.resident().isJudged();
  return "resident " + change(footprint.resident()) + ", heap " + change(footprint.heap()) +
         (isJudged ? "" : ", not judged after so few rounds");
}

}  // namespace

void Progress::afterRound(const Figures& figures, const Footprint& footprint) {
  if (Clock::now() < nextLine_) return;
  nextLine_ += std::chrono::seconds(10);
  std::cout << time().count() << " s: " << done(figures) << "; ";
  if (Footprint::judgesMemory()) {
    std::cout << "resident " << megabytes(footprint.resident().last()) << ", heap "
              << megabytes(footprint.heap().last()) << ", ";
  }
  std::cout << footprint.descriptors().last << " descriptors, " << footprint.threads().last
            << " threads" << std::endl;
}

void Progress::finish(const Figures& figures, const Footprint& footprint, std::uint64_t seed,
                      std::uint64_t firstRound) const {
  std::cout << "total: " << done(figures) << " in " << time().count() << " s; " << memory(footprint)
            << "; descriptors "
            << change(footprint.descriptors().first, footprint.descriptors().last) << ", threads "
            << change(footprint.threads().first, footprint.threads().last) << "; seed " << seed
            << " from round " << firstRound << std::endl;
}

}  // namespace broomtide::soak
