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
    const char* Phrase;
    int Count;
  };

  /// Phrases without files.
  static ReportWorld Of(std::initializer_list<Occurrences> phrases) {
    ReportWorld world;
    for (const Occurrences& o : phrases)
      for (int i = 0; i < o.Count; ++i) world.Table.AddWordToList(o.Phrase);
    world.Finish();
    return world;
  }

  void Finish(ChainOrder order = ChainOrder::ByCount) {
    NoYielder yielder;
    SortPhrases(Table, yielder);
    ListByFrequency(Table, Facts.Options.MinFrequency);
    ExcludeRedundantSubphrases(Table, yielder);
    SetUpFrequencyChain(Table, order, yielder);
  }

  Report View() const { return {Table, Facts, Options, Numbers}; }

  PhraseTable Table;
  RunSummary Facts = [] {
    RunSummary f;
    f.Options.MinWords = 2;
    f.Options.MaxWords = 3;
    f.Options.MinFrequency = 1;
    return f;
  }();
  ReportOptions Options;
  NumberFormat Numbers;
};

/// Keeps the pieces; may refuse from some piece on.
class StringSink final : public ReportSink {
 public:
  bool Write(std::string_view piece) override {
    if (Pieces == Takes) return false;
    ++Pieces;
    Text += piece;
    return true;
  }
  size_t PieceSize() const override { return Piece; }

  std::string Text;
  size_t Piece = 0;
  int Pieces = 0;
  int Takes = -1;
};

inline constexpr Layout kColumns = Layout::Columns;
inline const ReportForm kBoxForm{};
inline const ReportForm kFileForm{.LineLayout = Layout::Tabs, .File = true};

inline std::string TextOf(const Report& report, const ReportForm& form) {
  StringSink sink;
  NoYielder yielder;
  ListWords(report, form, sink, yielder);
  return sink.Text;
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
