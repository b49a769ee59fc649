#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "app/kept/kept_reader.h"
#include "app/run/run.h"

namespace korv {

/// What a run says of itself beside its text and its phrases, to be written.
struct FactsToKeep {
  const CountedRun& Run;
  std::chrono::seconds Took;
  std::chrono::system_clock::time_point Ended;
};
/// What was read of that.
struct KeptFacts {
  std::chrono::seconds Took{};
  std::chrono::system_clock::time_point Ended;
  uint64_t PhraseCount = 0;
  uint64_t Occurrences = 0;
  std::optional<size_t> SecondSideAt = {};  ///< Corpus::SecondSide.
};

/// For the contents of a section. What is no UTF-8 becomes U+FFFD.
void AppendFacts(const FactsToKeep& facts, std::string& bytes);
/// The summary and what else the run says goes into `run`, which has begun. Numbers and times that no run has
/// are a fault.
KeptFacts TakeFacts(KeptReader& reader, CountedRun& run);

}  // namespace korv
