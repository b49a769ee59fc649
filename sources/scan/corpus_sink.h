#pragma once

#include <string_view>

#include "engine/corpus/corpus_builder.h"
#include "sources/scan/line_scanner.h"

namespace korv {

/// Hands words on to a corpus, which must outlive it.
class CorpusSink final : public WordSink {
 public:
  explicit CorpusSink(CorpusBuilder& corpus) : corpus_(corpus) {}
  void TakeWord(std::string_view word) override { corpus_.TakeWord(word); }
  void ResetPhrases() override { corpus_.ResetPhrases(); }

 private:
  CorpusBuilder& corpus_;
};

}  // namespace korv
