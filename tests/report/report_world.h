#pragma once

#include <filesystem>
#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/yielder.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table.h"
#include "engine/patterns/word_filters.h"
#include "report/list_words.h"

namespace korv {

/// A counted run and what belongs to it, to be listed in every way. Its text is said phrase by phrase, with a
/// phrase end behind each, and counted as that of any run: under the options in `Facts`, which are set first.
struct ReportWorld {
  struct Occurrences {
    const char* Phrase;
    int Count;
  };

  /// A text without a path.
  static ReportWorld Of(std::initializer_list<Occurrences> phrases) {
    ReportWorld world;
    for (const Occurrences& o : phrases) world.Say(o.Phrase, o.Count);
    world.Finish();
    return world;
  }

  /// What is said from here on stands in the file `path`.
  void BeginFile(std::filesystem::path path) { texts_.push_back({std::move(path), {}}); }
  void Say(std::string phrase, int times = 1) {
    if (texts_.empty()) BeginFile({});
    texts_.back().Phrases.insert(texts_.back().Phrases.end(), static_cast<size_t>(times), std::move(phrase));
  }

  /// Counts what was said, once. Lists by the frequency and the order that hold now, each time.
  void Finish(ChainOrder order = ChainOrder::ByCount) {
    NoYielder yielder;
    if (!texts_.empty()) {
      TakeText(Read(), Table);
      texts_.clear();
      CountPhrases(Table, yielder);
    }
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

 private:
  struct SaidText {
    std::filesystem::path Path;
    std::vector<std::string> Phrases;
  };

  CorpusBuilder Read() const {
    static const WordFilters kNoLists;
    WordRules rules;
    rules.IgnoreShortWords = false;
    CorpusBuilder builder(rules, Facts.Options, kNoLists);
    for (const SaidText& text : texts_) {
      builder.BeginSource(text.Path);
      for (const std::string& phrase : text.Phrases) {
        std::istringstream words(phrase);
        for (std::string word; words >> word;) builder.TakeWord(word);
        builder.ResetPhrases();
      }
    }
    return builder;
  }

  std::vector<SaidText> texts_;
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
