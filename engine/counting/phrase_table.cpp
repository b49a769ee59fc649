#include "engine/counting/phrase_table.h"

#include <algorithm>

#include "base/bytes_of.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/text/folding.h"
#include "engine/text/unicode.h"

namespace korv {

namespace {

PhraseEntry& Entry(PhraseTableData& data, PhraseIndex i) {
  return data.Entries[ValueOf(i) - 1];
}

}  // namespace

PhraseTable::PhraseTable() : data_(std::make_unique<PhraseTableData>()) {}
PhraseTable::~PhraseTable() = default;
PhraseTable::PhraseTable(PhraseTable&&) noexcept = default;
PhraseTable& PhraseTable::operator=(PhraseTable&&) noexcept = default;

uint64_t PhraseTable::PhraseCount() const {
  return data_->PhraseCount.load(std::memory_order_relaxed);
}
uint64_t PhraseTable::Occurrences() const {
  return data_->Occurrences;
}
uint64_t PhraseTable::LongPhrases() const {
  return data_->LongPhrases;
}

uint32_t PhraseTable::EntryCount() const {
  return static_cast<uint32_t>(data_->Entries.size());
}

void PhraseTable::AppendText(PhraseIndex i, std::string& out) const {
  const PhraseEntry& entry = Entry(*data_, i);
  const WordNumber* word = data_->Corpus.From(entry.First);
  out += data_->Corpus.Words.Text(*word);
  for (uint8_t k = 1; k < entry.Words; ++k) {
    out += ' ';
    out += data_->Corpus.Words.Text(*++word);
  }
}

std::string PhraseTable::Text(PhraseIndex i) const {
  std::string text;
  AppendText(i, text);
  return text;
}

void PhraseTable::Prefetch(PhraseIndex i, PhraseIndex later) const {
  const size_t entries = data_->Entries.size();
  if (ValueOf(later) - 1 < entries) {
    __builtin_prefetch(data_->Entries.data() + ValueOf(later) - 1);
    if (!data_->Rank.empty()) __builtin_prefetch(data_->Rank.data() + ValueOf(later));
  }
  if (ValueOf(i) - 1 < entries) __builtin_prefetch(data_->Corpus.From(Entry(*data_, i).First));
}

std::string PhraseTable::Key(PhraseIndex i) const {
  return FoldKey(FoldAccents(Text(i)));
}

uint32_t PhraseTable::Count(PhraseIndex i) const {
  return Entry(*data_, i).Count;
}
Place PhraseTable::First(PhraseIndex i) const {
  return Entry(*data_, i).First;
}
int PhraseTable::Words(PhraseIndex i) const {
  return Entry(*data_, i).Words;
}

int PhraseTable::Characters(PhraseIndex i) const {
  const PhraseEntry& entry = Entry(*data_, i);
  const WordNumber* words = data_->Corpus.From(entry.First);
  int characters = entry.Words - 1;
  for (uint8_t k = 0; k < entry.Words; ++k) characters += data_->Corpus.Words.Characters(words[k]);
  return characters;
}

bool PhraseTable::Listed(PhraseIndex i) const {
  return Entry(*data_, i).Listed;
}
void PhraseTable::SetListed(PhraseIndex i, bool listed) {
  Entry(*data_, i).Listed = listed;
}

PhraseIndex PhraseTable::ChainHead() const {
  return data_->Chain.empty() ? kNoPhrase : data_->Chain.front();
}

PhraseRank PhraseTable::ChainPosition(PhraseIndex i) const {
  return data_->Rank.empty() ? kNoRank : data_->Rank[ValueOf(i)];
}

uint32_t PhraseTable::ChainLength() const {
  return static_cast<uint32_t>(data_->Chain.size());
}

PhraseIndex PhraseTable::AtChainPosition(PhraseRank rank) const {
  const uint32_t before = ValueOf(rank) - 1;
  return before < data_->Chain.size() ? data_->Chain[before] : kNoPhrase;
}

PhraseIndex PhraseTable::ChainNext(PhraseIndex i) const {
  const PhraseRank rank = ChainPosition(i);
  return rank == kNoRank ? kNoPhrase : AtChainPosition(rank + 1);
}

const korv::Corpus& PhraseTable::Corpus() const {
  return data_->Corpus;
}

std::span<const Place> PhraseTable::Places(PhraseIndex i) const {
  const auto& places = data_->Corpus.Places;
  if (places.empty()) return {};
  const PhraseEntry& entry = Entry(*data_, i);
  return std::span(places).subspan(entry.Slice, entry.Count);
}

DocumentCounts PhraseTable::Files(PhraseIndex i) const {
  if (!data_->CountsOfEntries.empty()) return data_->CountsOfEntries[Entry(*data_, i).Slice];
  DocumentCounts counts;
  if (data_->FileNumberOfSource.empty()) return counts;
  const std::span<const Place> places = Places(i);
  std::vector<DocumentNumber> files(places.size());
  std::transform(places.begin(), places.end(), files.begin(),
                 [this](Place place) { return data_->FileNumberOfSource[data_->Corpus.SourceAt(place)]; });
  std::sort(files.begin(), files.end());
  for (const DocumentNumber file : files) counts.Add(file);
  return counts;
}

uint32_t PhraseTable::FileCount(PhraseIndex i) const {
  return Files(i).FileCount();
}
const std::vector<std::filesystem::path>& PhraseTable::FilePaths() const {
  return data_->FilePaths;
}

uint64_t PhraseTable::Bytes() const {
  const korv::Corpus& corpus = data_->Corpus;
  return corpus.Words.Bytes() + BytesOf(corpus.Tokens) + BytesOf(corpus.Sources) +
         BytesOf(corpus.SourceOfBlock) + BytesOf(corpus.Places) + BytesOf(corpus.PlacesOfWord) +
         BytesOf(corpus.Lines.Anchors()) + BytesOf(data_->Entries) + BytesOf(data_->FileNumberOfSource) +
         BytesOf(data_->FilePaths) + BytesOf(data_->Chain) + BytesOf(data_->Rank);
}

}  // namespace korv
