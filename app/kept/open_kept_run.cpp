#include "app/kept/open_kept_run.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

#include "app/kept/kept_choice.h"
#include "app/kept/kept_facts.h"
#include "app/kept/kept_reader.h"
#include "app/run/run_start.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/restore_table.h"
#include "engine/text/unicode.h"

namespace korv {

namespace {

/// One kept run, read from its first byte and then put together.
class KeptRunOpening {
 public:
  KeptRunOpening(InputFile& file, const KeptServices& services, ShownResult& result)
      : yielder_(services.Yielder), reader_(file, services.Progress, services.Yielder), result_(result) {}

  std::optional<OpenError> Open() {
    if (!Read()) return reader_.Error();
    if (PutTogether()) return std::nullopt;
    return OpenError{yielder_.Stopped() ? OpenFault::Stopped : OpenFault::Damaged};
  }

 private:
  bool Read() {
    return reader_.Begin() && ReadFacts() && ReadWords() &&
           ReadNumbers(KeptSection::Tokens, stored_.Corpus.Tokens) && ReadSources() &&
           ReadNumbers(KeptSection::WordsAtEnds, stored_.Corpus.WordsAtEnds) &&
           ReadNumbers(KeptSection::Places, stored_.Corpus.Places) && ReadAnchors() && ReadLines() &&
           ReadPhrases() && ReadNumbers(KeptSection::LeftOut, result_.LeftOut) && reader_.End();
  }

  bool ReadFacts() {
    if (!reader_.BeginSection(KeptSection::Settings)) return false;
    choice_ = TakeChoice(reader_);
    if (!reader_.EndSection() || !reader_.BeginSection(KeptSection::Facts)) return false;
    facts_ = TakeFacts(reader_, said_);
    if (!reader_.EndSection() || !reader_.BeginSection(KeptSection::KeptText)) return false;
    said_.KeptText = reader_.TakeBytes(reader_.Left());
    return reader_.EndSection();
  }

  bool ReadWords() {
    if (!reader_.BeginSection(KeptSection::WordLengths)) return false;
    const size_t words = reader_.ElementsLeft(kKeptNumberBytes);
    wordEnds_.reserve(words);
    uint64_t end = 0;
    for (size_t w = 0; w < words; ++w) wordEnds_.push_back(end += reader_.Take<uint32_t>());
    if (!reader_.EndSection() || !reader_.BeginSection(KeptSection::Words)) return false;
    if (words >= std::numeric_limits<uint32_t>::max()) reader_.Fail(OpenFault::Damaged);
    wordBytes_.reserve(static_cast<size_t>(reader_.Left()));
    while (reader_.Left() > 0) wordBytes_.append(std::span<const char>(reader_.TakeBytes(PieceLeft())));
    return reader_.EndSection();
  }

  uint64_t PieceLeft() const { return std::min<uint64_t>(reader_.Left(), 1U << 16); }

  /// Numbers that stand for themselves, for words, for places or for entries.
  template <typename Array>
  bool ReadNumbers(KeptSection section, Array& array) {
    if (!reader_.BeginSection(section)) return false;
    const size_t elements = reader_.ElementsLeft(kKeptNumberBytes);
    array.reserve(elements);
    for (size_t i = 0; i < elements && !reader_.Failed(); ++i)
      array.push_back(std::remove_cvref_t<decltype(*array.begin())>{reader_.Take<uint32_t>()});
    return reader_.EndSection();
  }

  bool ReadSources() {
    if (!reader_.BeginSection(KeptSection::Sources)) return false;
    while (reader_.Left() > 0) {
      CorpusSource source{};
      source.Path = reader_.TakePath();
      source.Begin = static_cast<size_t>(reader_.TakeUpTo(std::numeric_limits<uint32_t>::max()));
      source.WordsBefore = reader_.TakeUpTo(kMostKept);
      source.Origin.IsDocument = reader_.TakeBool();
      source.Origin.IsUtf8 = reader_.TakeBool();
      source.Origin.Size = reader_.Take<uint64_t>();
      source.Origin.Modified = reader_.Take<int64_t>();
      stored_.Corpus.Sources.push_back(std::move(source));
      stored_.SourceHasPhrase.push_back(reader_.TakeBool() ? 1 : 0);
    }
    return reader_.EndSection();
  }

  bool ReadAnchors() {
    if (!reader_.BeginSection(KeptSection::Anchors)) return false;
    const size_t anchors = reader_.ElementsLeft(kKeptAnchorBytes);
    anchors_.reserve(anchors);
    for (size_t i = 0; i < anchors && !reader_.Failed(); ++i) {
      const auto offset = reader_.Take<uint64_t>();
      const Place token{reader_.Take<uint32_t>()};
      anchors_.emplace_back(offset >> 1, (offset & 1) != 0, token, reader_.Take<uint32_t>());
    }
    return reader_.EndSection();
  }

  bool ReadLines() {
    if (!reader_.BeginSection(KeptSection::Lines)) return false;
    const size_t lines = reader_.ElementsLeft(kKeptLineBytes);
    lines_.reserve(lines);
    for (size_t i = 0; i < lines && !reader_.Failed(); ++i) {
      const Place token{reader_.Take<uint32_t>()};
      lines_.push_back({token, reader_.Take<uint32_t>()});
    }
    return reader_.EndSection();
  }

  bool ReadPhrases() {
    if (!reader_.BeginSection(KeptSection::Phrases)) return false;
    const size_t phrases = reader_.ElementsLeft(kKeptPhraseBytes);
    if (phrases >= std::numeric_limits<uint32_t>::max()) reader_.Fail(OpenFault::Damaged);
    stored_.Entries.reserve(reader_.Failed() ? 0 : phrases);
    for (size_t i = 0; i < phrases && !reader_.Failed(); ++i) {
      PhraseEntry entry{};
      entry.Slice = reader_.Take<uint32_t>();
      entry.Count = reader_.Take<uint32_t>();
      entry.Words = reader_.Take<uint8_t>();
      entry.Listed = reader_.TakeBool();
      stored_.Entries.push_back(entry);
    }
    return reader_.EndSection();
  }

  bool PutTogether() {
    result_.Request = RequestOf(*choice_);
    BeginRun(result_.Request, yielder_, result_.Run);
    if (yielder_.Stopped()) return false;
    TakeSaid();
    if (!TakeSecondSide()) return false;
    Corpus& corpus = stored_.Corpus;
    corpus.Rules = RulesInForce(result_.Request);
    corpus.Options = result_.Request.Options;
    corpus.Lists = result_.Run.Lists.get();
    if (corpus.Options.SourceKind != TextSource::Folder) stored_.SourceHasPhrase.clear();
    PhraseTable& table = result_.Run.Table;
    if (!corpus.Words.Restore(wordEnds_, std::move(wordBytes_), yielder_) ||
        !corpus.Lines.Restore(std::move(anchors_), std::move(lines_)) ||
        !RestoreTable(std::move(stored_), result_.Run.Facts.Words, table, yielder_) || !LeftOutIsThere() ||
        !SetUpFrequencyChain(table, result_.Run.Chain = ChainOrder::ByCount, yielder_))
      return false;
    result_.Chosen = std::move(choice_->Chosen);
    if (table.Occurrences() > 0) return true;
    OfferedPhrases offered;
    if (!FindOfferedPhrases(table, yielder_, offered)) return false;
    result_.Offered = offered;
    return true;
  }

  /// What the run says of itself, beside what its request tells.
  void TakeSaid() {
    CountedRun& run = result_.Run;
    RunSummary& facts = run.Facts;
    facts.Options.Stopped = said_.Facts.Options.Stopped;
    facts.Words = said_.Facts.Words;
    facts.LongPhrases = said_.Facts.LongPhrases;
    facts.FilesScanned = said_.Facts.FilesScanned;
    facts.FoldersScanned = said_.Facts.FoldersScanned;
    facts.Encodings = said_.Facts.Encodings;
    facts.SkippedFiles = std::move(said_.Facts.SkippedFiles);
    facts.Notices = std::move(said_.Facts.Notices);
    run.Interrupted = said_.Interrupted;
    run.FileKind = std::move(said_.FileKind);
    run.KeptText = std::move(said_.KeptText);
    result_.Took = facts_.Took;
    result_.Ended = facts_.Ended;
    stored_.PhraseCount = facts_.PhraseCount;
    stored_.Occurrences = facts_.Occurrences;
    stored_.LongPhrases = facts.LongPhrases;
  }

  /// False where what the run says of its sides does not go together.
  bool TakeSecondSide() {
    RunSummary& facts = result_.Run.Facts;
    const std::optional<SecondSide>& said = said_.Facts.SecondSide;
    if (!facts.SecondSide || !said) return facts.SecondSide.has_value() == said.has_value();
    facts.SecondSide->Words = said->Words;
    facts.SecondSide->FilesScanned = said->FilesScanned;
    facts.SecondSide->SharedFiles = said->SharedFiles;
    Corpus& corpus = stored_.Corpus;
    corpus.SecondSide = facts_.SecondSideAt;
    const size_t at = *corpus.SecondSide;
    if (at > corpus.Sources.size() || said->FilesScanned > facts.FilesScanned ||
        said->Words.Taken > facts.Words.Taken)
      return false;
    for (size_t r = 0; r < kDropReasons; ++r)
      if (said->Words.DroppedBy[r] > facts.Words.DroppedBy[r]) return false;
    const uint64_t onA = at < corpus.Sources.size() ? corpus.Sources[at].WordsBefore : facts.Words.Taken;
    return onA == facts.Words.Taken - said->Words.Taken && SizeOf(facts, Side::A).Words.Read() > 0 &&
           said->Words.Read() > 0;
  }

  bool LeftOutIsThere() const {
    const uint32_t entries = result_.Run.Table.EntryCount();
    return std::ranges::all_of(result_.LeftOut,
                               [entries](PhraseIndex i) { return i != kNoPhrase && ValueOf(i) <= entries; });
  }

  Yielder& yielder_;
  KeptReader reader_;
  ShownResult& result_;
  std::optional<KeptChoice> choice_;
  CountedRun said_;  ///< What the run says of itself, and nothing else of it.
  KeptFacts facts_;
  RawVector<uint64_t> wordEnds_;
  GrowingArray<char> wordBytes_;
  StoredTable stored_;
  std::vector<LineAnchor> anchors_;
  GrowingArray<LineIndex::LineBegin> lines_;
};

}  // namespace

bool NamesKeptRun(const std::filesystem::path& path) {
  return LowerText(PathToText(path.extension())) == ".korvrun";
}

std::optional<OpenError> OpenKeptRun(const std::filesystem::path& path, const KeptServices& services,
                                     ShownResult& result) {
  std::optional<OpenError> error;
  try {
    const auto file = services.Files.OpenForReading(path);
    if (!file) return OpenError{OpenFault::Unreadable, file.Error().Description};
    error = KeptRunOpening(**file, services, result).Open();
  } catch (const std::bad_alloc&) {
    error = OpenError{OpenFault::NoMemory};
  }
  if (error) {
    // On the heap, for GCC 12 at -O3 takes members of a temporary for uninitialised.
    const auto empty = std::make_unique<ShownResult>();
    result = std::move(*empty);
  }
  return error;
}

}  // namespace korv
