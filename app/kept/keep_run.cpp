#include "app/kept/keep_run.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

#include "app/kept/kept_choice.h"
#include "app/kept/kept_facts.h"
#include "app/kept/kept_writer.h"
#include "app/run/is_source.h"
#include "base/raw_vector.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/counting/restore_table.h"

namespace korv {

namespace {

std::string SourcesBytes(const PhraseTableData& data) {
  const std::vector<uint8_t> hasPhrase = SourcesWithPhrase(data);
  std::string bytes;
  for (size_t s = 0; s < data.Corpus.Sources.size(); ++s) {
    const CorpusSource& source = data.Corpus.Sources[s];
    AppendBytes(BytesOfPath(source.Path), bytes);
    AppendNumber(uint64_t{source.Begin}, bytes);
    AppendNumber(source.WordsBefore, bytes);
    AppendBool(source.Origin.IsDocument, bytes);
    AppendBool(source.Origin.IsUtf8, bytes);
    AppendNumber(source.Origin.Size, bytes);
    AppendNumber(source.Origin.Modified, bytes);
    AppendBool(!hasPhrase.empty() && hasPhrase[s] != 0, bytes);
  }
  return bytes;
}

/// The sections of a run, and how many bytes their contents take.
class RunSections {
 public:
  explicit RunSections(const RunToKeep& run) : run_(run), data_(run.Run.Table.Data()), corpus_(data_.Corpus) {
    AppendChoice(run.Chosen, run.Run, choice_);
    AppendFacts({.Run = run.Run, .Took = run.Took, .Ended = run.Ended}, facts_);
    sources_ = SourcesBytes(data_);
    for (const WordNumber word : corpus_.Words.All()) wordBytes_ += corpus_.Words.Text(word).size();
  }

  uint64_t Length() const {
    uint64_t length = kKeptHeaderBytes + kKeptSectionBytes * kKeptSections.size() + kKeptChecksumBytes;
    for (size_t s = 0; s < kKeptSections.size(); ++s) length += BytesOf(static_cast<KeptSection>(s));
    return length;
  }

  void Write(KeptWriter& writer) const {
    for (size_t s = 0; s < kKeptSections.size() && !writer.Failed(); ++s) {
      const auto section = static_cast<KeptSection>(s);
      writer.BeginSection(section, BytesOf(section));
      Put(section, writer);
    }
  }

 private:
  uint64_t BytesOf(KeptSection section) const {
    switch (section) {
      case KeptSection::Settings:
        return choice_.size();
      case KeptSection::Facts:
        return facts_.size();
      case KeptSection::KeptText:
        return run_.Run.KeptText.size();
      case KeptSection::WordLengths:
        return corpus_.Words.Size() * uint64_t{kKeptNumberBytes};
      case KeptSection::Words:
        return wordBytes_;
      case KeptSection::Tokens:
        return corpus_.Tokens.size() * kKeptNumberBytes;
      case KeptSection::Sources:
        return sources_.size();
      case KeptSection::WordsAtEnds:
        return corpus_.WordsAtEnds.size() * kKeptNumberBytes;
      case KeptSection::Places:
        return corpus_.Places.size() * kKeptNumberBytes;
      case KeptSection::Anchors:
        return corpus_.Lines.Anchors().size() * kKeptAnchorBytes;
      case KeptSection::Lines:
        return corpus_.Lines.Begins().size() * kKeptLineBytes;
      case KeptSection::Phrases:
        return data_.Entries.size() * kKeptPhraseBytes;
      case KeptSection::LeftOut:
        return run_.LeftOut.size() * kKeptNumberBytes;
    }
    return 0;
  }

  void Put(KeptSection section, KeptWriter& writer) const {
    switch (section) {
      case KeptSection::Settings:
        return writer.PutBytes(choice_);
      case KeptSection::Facts:
        return writer.PutBytes(facts_);
      case KeptSection::KeptText:
        return writer.PutBytes(run_.Run.KeptText);
      case KeptSection::WordLengths:
        return PutWords(writer,
                        [&](std::string_view text) { writer.Put(static_cast<uint32_t>(text.size())); });
      case KeptSection::Words:
        return PutWords(writer, [&](std::string_view text) { writer.PutBytes(text); });
      case KeptSection::Tokens:
        return PutNumbers(corpus_.Tokens, writer);
      case KeptSection::Sources:
        return writer.PutBytes(sources_);
      case KeptSection::WordsAtEnds:
        return PutNumbers(corpus_.WordsAtEnds, writer);
      case KeptSection::Places:
        return PutNumbers(corpus_.Places, writer);
      case KeptSection::Anchors:
        return PutAnchors(writer);
      case KeptSection::Lines:
        return PutLines(writer);
      case KeptSection::Phrases:
        return PutPhrases(writer);
      case KeptSection::LeftOut:
        return PutNumbers(run_.LeftOut, writer);
    }
  }

  template <typename Use>
  void PutWords(const KeptWriter& writer, const Use& use) const {
    for (const WordNumber word : corpus_.Words.All()) {
      if (writer.Failed()) return;
      use(corpus_.Words.Text(word));
    }
  }
  template <typename Array>
  static void PutNumbers(const Array& array, KeptWriter& writer) {
    for (const auto element : array) {
      if (writer.Failed()) return;
      writer.Put(uint32_t{ValueOf(element)});
    }
  }
  void PutAnchors(KeptWriter& writer) const {
    for (const LineAnchor& anchor : corpus_.Lines.Anchors()) {
      if (writer.Failed()) return;
      writer.Put(anchor.Offset() << 1 | uint64_t{anchor.StartsLine()});
      writer.Put(uint32_t{ValueOf(anchor.Token())});
      writer.Put(anchor.Line());
    }
  }
  void PutLines(KeptWriter& writer) const {
    for (const LineIndex::LineBegin& begin : corpus_.Lines.Begins()) {
      if (writer.Failed()) return;
      writer.Put(uint32_t{ValueOf(begin.Token)});
      writer.Put(begin.Line);
    }
  }
  void PutPhrases(KeptWriter& writer) const {
    for (const PhraseEntry& entry : data_.Entries) {
      if (writer.Failed()) return;
      writer.Put(entry.Slice);
      writer.Put(entry.Count);
      writer.Put(entry.Words);
      writer.Put(uint8_t{entry.Listed});
    }
  }

  const RunToKeep& run_;
  const PhraseTableData& data_;
  const Corpus& corpus_;
  std::string choice_;
  std::string facts_;
  std::string sources_;
  uint64_t wordBytes_ = 0;
};

}  // namespace

RunToKeep ToKeep(const ShownResult& result) {
  return {.Chosen = *result.Chosen,
          .Run = result.Run,
          .Took = result.Took,
          .Ended = result.Ended,
          .LeftOut = result.LeftOut};
}

Expected<uint64_t, KeepError> KeepRun(const RunToKeep& run, const std::filesystem::path& path,
                                      const KeptServices& services) {
  if (IsSource(path, run.Run.Table.Corpus(), services.Files)) return KeepError{KeepFault::IsSource};
  auto file = services.Files.OpenForWriting(path);
  if (!file) return KeepError{KeepFault::Unwritable, file.Error().Description};
  const RunSections sections(run);
  const uint64_t length = sections.Length();
  KeptWriter writer(**file, length, services.Progress, services.Yielder);
  sections.Write(writer);
  if (auto error = writer.End()) return *error;
  if (const auto refused = (*file)->Commit()) return KeepError{KeepFault::Unwritable, refused->Description};
  return length;
}

}  // namespace korv
