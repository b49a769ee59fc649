#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "base/yielder.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table.h"
#include "report/list_words.h"

namespace korv {

/// A counted table and what belongs to it, to be listed in every way.
struct ReportWorld {
  struct Occurrences {
    const char* phrase;
    int count;
  };

  /// Phrases without files.
  static ReportWorld Of(std::initializer_list<Occurrences> phrases) {
    ReportWorld world;
    for (const Occurrences& o : phrases)
      for (int i = 0; i < o.count; ++i) world.table.AddWordToList(o.phrase);
    world.Finish();
    return world;
  }

  void Finish(ChainOrder order = ChainOrder::ByCount) {
    NoYielder yielder;
    SortPhrases(table, yielder);
    ListByFrequency(table, facts.Options.MinFrequency);
    ExcludeRedundantSubphrases(table, yielder);
    SetUpFrequencyChain(table, order, yielder);
  }

  Report View() const { return {table, facts, options, numbers}; }

  PhraseTable table;
  RunSummary facts = [] {
    RunSummary f;
    f.Options.MinWords = 2;
    f.Options.MaxWords = 3;
    f.Options.MinFrequency = 1;
    return f;
  }();
  ReportOptions options;
  NumberFormat numbers;
};

/// Keeps the pieces; may refuse from some piece on.
class StringSink final : public ReportSink {
 public:
  bool Write(std::string_view piece) override {
    if (pieces == takes) return false;
    ++pieces;
    text += piece;
    return true;
  }
  size_t PieceSize() const override { return pieceSize; }

  std::string text;
  size_t pieceSize = 0;
  int pieces = 0;
  int takes = -1;
};

inline constexpr Layout kColumns = Layout::Columns;
inline const ReportForm kBoxForm{};
inline const ReportForm kFileForm{.LineLayout = Layout::Tabs, .File = true};

inline std::string TextOf(const Report& report, const ReportForm& form) {
  StringSink sink;
  NoYielder yielder;
  ListWords(report, form, sink, yielder);
  return sink.text;
}

/// Asks to stop at the nth yield of a listing's lines.
class StoppingYielder final : public Yielder {
 public:
  explicit StoppingYielder(int after) : left_(after) {}

 protected:
  void HandOver() override {
    if (--left_ <= 0) RequestStop();
  }
  uint32_t NextStride() override {
    HandOver();
    return 1;
  }

 private:
  int left_;
};

}  // namespace korv
